#!/usr/bin/python3
"""Makes a Markdown table of what scripts/bench measured.

    bench_table.py FOLDER LINUX_LIBRARY WINDOWS_LIBRARY

FOLDER holds bench.json, which the benchmark program wrote with --benchmark_out, receipt_linux.json and
receipt_windows.json, what receipt_latency printed, and desk.json, what desk_cost printed. Fails when an aim is missed.
"""

import json
import pathlib
import sys

DELAYS = (0, 1, 2, 3, 5, 8, 12, 20, 22, 30)


class Figures:
    """The median results by benchmark name; of a benchmark that ran once, its result."""

    def __init__(self, path):
        results = json.loads(path.read_text(encoding="utf-8"))["benchmarks"]
        failed = [result["name"] for result in results if result.get("error_occurred")]
        if failed:
            sys.exit("failed: " + ", ".join(failed))
        self.medians = {
            result["run_name"].removesuffix("/real_time").removesuffix("/manual_time").split("/iterations:")[0]: result
            for result in results if result.get("aggregate_name") == "median" or result.get("repetitions") == 1
        }

    def nanoseconds(self, name):
        result = self.medians[name]
        assert result["time_unit"] == "ns", name
        return result["real_time"]

    def megabytes_per_second(self, name):
        return self.medians[name]["bytes_per_second"] / 1e6

    def counter(self, name, counter):
        return self.medians[name][counter]

    def comparison(self, name):
        """The seconds that the driver and the bare loop took, and driver ÷ bare."""
        return {counter: self.counter(name, counter) for counter in ("driver", "bare", "ratio")}


def rate(what, comparison, least=None):
    """A row of calls a second; the driver reaches at least that part of the bare loop's rate."""
    part = 1 / comparison["ratio"]
    return (what, f"{1 / comparison['driver']:,.0f} /s", f"{1 / comparison['bare']:,.0f} /s, ratio {part:.2f}",
            f"at least {least:.2f}" if least else "", part >= least if least else None)


def duration(what, comparison, most=None):
    """A row of milliseconds; the driver takes at most so many times what the bare loop takes."""
    return (what, f"{comparison['driver'] * 1e3:.2f} ms",
            f"{comparison['bare'] * 1e3:.2f} ms, ratio {comparison['ratio']:.2f}",
            f"at most {most:.2f}" if most else "", comparison["ratio"] <= most if most else None)


def latency(what, figures, name):
    """A row of how much later than a bare client the driver returns, over all delays."""
    beyond = {delay: figures.counter(name.format(delay), "beyond_seconds") * 1e3 for delay in DELAYS}
    worst = max(beyond, key=beyond.get)
    return (f"waiting longer than bare for an answer after 0 to 30 ms, {what}",
            f"{min(beyond.values()):.2f} to {beyond[worst]:.2f} ms", f"most after {worst} ms", "at most 0.30 ms each",
            beyond[worst] <= 0.3)


def size(path, largest):
    kilobytes = path.stat().st_size / 1000
    return (f"size of `{path.name}`", f"{kilobytes:,.0f} KB", "", f"at most {largest} KB", kilobytes <= largest)


def desk_rows(figures):
    """What the desk costs beyond the driver's own calls."""
    beyond = (figures["desk"] - figures["bare"]) * 1e3
    yield ("a receipt through the desk, journal on disk, virtual printer", f"{figures['desk'] * 1e3:.2f} ms",
           f"{figures['bare'] * 1e3:.2f} ms by calls, {beyond:.2f} ms are the desk's", "at most 2 ms more", beyond <= 2)
    yield ("journal of the desk, a receipt", f"{figures['journal_bytes']:,.0f} bytes", "", "", None)
    yield ("opening a desk with 100,000 entries in its journal", f"{figures['opening'] * 1e3:.1f} ms", "", "", None)


def rows(folder, linux_library, windows_library):
    """What is measured, the figure, the bare figure beside it, the aim, and whether it is met (None: no aim)."""
    figures = Figures(folder / "bench.json")

    yield rate("DLE and ENQ through `quil_ioctrl` over loopback TCP", figures.comparison("CompareExchange"), 0.97)
    yield rate("an answer of 24 fields asked for and read, codes 8 and 27", figures.comparison("CompareIdentity"), 0.93)
    yield rate("beside it: 24 registers read by libmodbus", figures.comparison("CompareModbus"))
    yield duration("a file of 64 KiB sent, code 39", figures.comparison("CompareFile"))
    yield rate("a whole document of 200 lines and 2 payments, proved by the totals",
               figures.comparison("CompareWholeDocument"), 0.90)
    yield rate("a receipt of 30 lines call by call, with flags 1 and 4", figures.comparison("CompareReceipt"))

    receipt = "the receipt with flags 1 and 2, 3 ms an answer, "
    for system in ("linux", "windows"):
        result = json.loads((folder / f"receipt_{system}.json").read_text(encoding="utf-8"))
        yield duration(receipt + ("TCP" if system == "linux" else "TCP under Wine"), result, 1.10)
    yield duration(receipt + "threaded pseudo-terminal", figures.comparison("CompareThreadedReceipt"), 1.10)

    yield latency("TCP", figures, "TcpLatency/{}")
    yield latency("pseudo-terminal", figures, "SerialLatency/blocking/{}")
    yield latency("threaded pseudo-terminal", figures, "SerialLatency/threaded/{}")

    frame, allocations = figures.nanoseconds("BuildLineFrame"), figures.counter("BuildLineFrame", "allocations")
    yield ("building the frame of a document line", f"{frame:,.0f} ns, {allocations:.0f} allocations", "",
           "under 1 µs, 0 allocations", frame < 1000 and allocations == 0)

    for encoding, name in (("CP1250", "Cp1250"), ("UTF-8", "Utf8")):
        speed = figures.megabytes_per_second("ConvertText/" + name)
        yield (f"converting text, {encoding}", f"{speed:,.0f} MB/s", "", "", None)

    yield ("assembling and parsing a reply of 24 fields", f"{figures.nanoseconds('ParseReply'):,.0f} ns", "", "", None)

    entry, bare = figures.nanoseconds("WriteLogEntry"), figures.nanoseconds("WriteBareEntry")
    yield ("an entry of the log, written and flushed", f"{entry / 1000:.2f} µs",
           f"{bare / 1000:.2f} µs, ratio {entry / bare:.2f}", "at most 1.50", entry / bare <= 1.50)

    for transport, least in (("blocking", None), ("threaded", 0.50)):
        yield rate(f"DLE and ENQ through `quil_ioctrl` over a pseudo-terminal, {transport}",
                   figures.comparison(f"CompareSerialExchange/{transport}"), least)

    median = figures.counter("QueuedByteLeaves", "median_seconds")
    yield ("from `Write` to the byte leaving the port, threaded, median", f"{median * 1e6:,.0f} µs", "", "under 2 ms",
           median < 2e-3)

    idle = figures.counter("IdlePort", "processor_seconds")
    yield ("processor time of an idle threaded port in 10 s", f"{idle * 1e3:,.0f} ms", "", "", None)

    wake_ups = figures.counter("IdlePort", "wake_ups_per_second")
    yield ("times an idle threaded port wakes", f"{wake_ups:.1f} /s", "", "under 1 /s", wake_ups < 1)

    yield from desk_rows(json.loads((folder / "desk.json").read_text(encoding="utf-8")))

    yield size(linux_library, 310)
    yield size(windows_library, 380)


def main():
    missed = 0
    print("| what | Quilon | bare | aim | met |\n|---|---|---|---|---|")
    for what, figure, bare, aim, met in rows(*map(pathlib.Path, sys.argv[1:4])):
        missed += met is False
        print(f"| {what} | {figure} | {bare} | {aim} | {'' if met is None else 'yes' if met else 'NO'} |")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
