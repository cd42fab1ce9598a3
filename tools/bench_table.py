#!/usr/bin/python3
"""Makes a Markdown table of what the benchmark program wrote with --benchmark_out; medians of its repetitions."""

import json
import pathlib
import sys


class Figures:
    """The median results by benchmark name; of a benchmark that ran once, its result."""

    def __init__(self, path):
        results = json.loads(pathlib.Path(path).read_text(encoding="utf-8"))["benchmarks"]
        failed = [result["name"] for result in results if result.get("error_occurred")]
        if failed:
            sys.exit("failed: " + ", ".join(failed))
        self.medians = {
            result["run_name"].removesuffix("/real_time").split("/iterations:")[0]: result
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


def rows(figures):
    """What is measured, the figure, the bare figure beside it, the aim, and whether it is met (None: no aim)."""
    driver, bare = figures.nanoseconds("ExchangeThroughDriver"), figures.nanoseconds("ExchangeBare")
    yield ("DLE and ENQ through `quil_ioctrl` over loopback TCP", f"{1e9 / driver:,.0f} /s",
           f"{1e9 / bare:,.0f} /s, ratio {bare / driver:.2f}", "at least 0.90", bare / driver >= 0.90)

    driver, bare = figures.nanoseconds("IdentityThroughDriver"), figures.nanoseconds("IdentityBare")
    yield ("an answer of 24 fields asked for and read, codes 8 and 27", f"{1e9 / driver:,.0f} /s",
           f"{1e9 / bare:,.0f} /s, ratio {bare / driver:.2f}", "", None)

    driver, bare = figures.nanoseconds("FileThroughDriver"), figures.nanoseconds("FileBare")
    yield ("a file of 64 KiB sent, code 39", f"{driver / 1e6:.2f} ms",
           f"{bare / 1e6:.2f} ms, ratio {driver / bare:.2f}", "", None)

    for figure, name in (("WholeDocument", "a whole document of 200 lines and 2 payments, proved by the totals"),
                         ("Receipt", "a receipt of 30 lines call by call, with flags 1 and 4")):
        driver, bare = figures.nanoseconds(figure + "ThroughDriver"), figures.nanoseconds(figure + "Bare")
        yield (name, f"{1e9 / driver:,.0f} /s", f"{1e9 / bare:,.0f} /s, ratio {bare / driver:.2f}", "", None)

    frame, allocations = figures.nanoseconds("BuildLineFrame"), figures.counter("BuildLineFrame", "allocations")
    yield ("building the frame of a document line", f"{frame:,.0f} ns, {allocations:.0f} allocations", "",
           "under 1 µs, 0 allocations", frame < 1000 and allocations == 0)

    for encoding, name in (("CP1250", "Cp1250"), ("UTF-8", "Utf8")):
        yield (f"converting text, {encoding}", f"{figures.megabytes_per_second('ConvertText/' + name):,.0f} MB/s", "", "", None)

    yield ("assembling and parsing a reply of 24 fields", f"{figures.nanoseconds('ParseReply'):,.0f} ns", "", "", None)

    entry, bare = figures.nanoseconds("WriteLogEntry"), figures.nanoseconds("WriteBareEntry")
    yield ("an entry of the log, written and flushed", f"{entry / 1000:.2f} µs",
           f"{bare / 1000:.2f} µs, ratio {entry / bare:.2f}", "at most 1.50", entry / bare <= 1.50)

    bare = figures.nanoseconds("SerialExchangeBare")
    for threaded, transport in ((0, "blocking"), (1, "threaded")):
        driver = figures.nanoseconds(f"SerialExchangeThroughDriver/{threaded}")
        yield (f"DLE and ENQ through `quil_ioctrl` over a pseudo-terminal, {transport}", f"{1e9 / driver:,.0f} /s",
               f"{1e9 / bare:,.0f} /s, ratio {bare / driver:.2f}", "", None)

    median = figures.counter("QueuedByteLeaves", "median_seconds")
    yield ("from `Write` to the byte leaving the port, threaded, median", f"{median * 1e6:,.0f} µs", "", "under 2 ms", median < 2e-3)

    idle = figures.counter("IdlePort", "processor_seconds")
    yield ("processor time of an idle threaded port in 10 s", f"{idle * 1e3:,.0f} ms", "", "", None)


def main():
    missed = 0
    print("| what | Quilon | bare | aim | met |\n|---|---|---|---|---|")
    for what, figure, bare, aim, met in rows(Figures(sys.argv[1])):
        missed += met is False
        print(f"| {what} | {figure} | {bare} | {aim} | {'' if met is None else 'yes' if met else 'NO'} |")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
