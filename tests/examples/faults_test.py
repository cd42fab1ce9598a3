#!/usr/bin/python3
"""Every example through every fault of the virtual printer: what it says of a document is what the books hold.

    faults_test.py FOLDER     where the programs are

The faults are those that quilon-printer itself names, each at several places of the example. After each, when the
fault is cleared, the next receipt has to print.
"""

import concurrent.futures
import contextlib
import json
import pathlib
import queue
import re
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.request

sys.path.append(str(pathlib.Path(__file__).parent.parent / "printer"))
from printer_process import Printer  # noqa: E402  the path has to be known first

FOLDER = pathlib.Path()
# Reply time-outs in milliseconds. The short one is waited for several times in a run, and there are hundreds of runs;
# the longer one once where a fault has to be told for certain; the longest never, because the printer is well.
SHORT = 300
LONGER = 10000
LONGEST = 30000
# Seconds until a run is given up.
PATIENCE = 600
# They wait more than they work.
PRINTERS = 24
RECEIPT = 1298
OUTCOME = re.compile(r"^([\w ,]+): ((?:not )?(?:printed|open|shown)|cancelled|unknown)\b", re.MULTILINE)

# A printer that commits these goes on answering: an example that looks, and has time enough, says exactly this.
CERTAIN = {
    "lose-closing": {"not printed"}, "refuse": {"printed", "not printed"}, "bad-checksum": {"printed", "not printed"},
    "book-nothing": {"unknown"}, "book-twice": {"unknown"}, "book-other": {"unknown"}, "restart": {"printed"},
    "forget": {"unknown"},
}
# These leave a document closed or given up whose totals do not tell which.
UNPROVABLE = {"book-nothing", "book-twice", "book-other", "forget", "power-cut"}
# A command that is damaged on the line may be another one.
DAMAGE = {"lose-byte", "change-byte"}
# Values of a fault, by what the printer calls them, and how many places are tried where there are many.
VALUES = {"GROSZE": [1, -1, -RECEIPT], "MILLISECONDS": [SHORT // 2, 2 * SHORT], "ERROR": [20]}
PLACES = {"byte": 10, "answer": 8, "frame": 12, "line": 10}


class Example:
    """A program, and what the printer's memory should hold when it says that it printed."""

    def __init__(self, name, effect, finds_out=False, is_timed=True, retries=False, shows_damage=True):
        self.name = name
        # What grows by how much, by the name of what is told.
        self.effect = effect
        # Whether it looks what became of a document whose closing failed.
        self.finds_out = finds_out
        # Whether it takes a reply time-out as an argument; else it has one of 5 s.
        self.is_timed = is_timed
        # Whether it prints again what is not printed.
        self.retries = retries
        # Whether checksums tell the printer that its commands are damaged. The drawer's does not: with a wrong one the
        # command is a text for the display, and accepted.
        self.shows_damage = shows_damage

    def run(self, bench, timeout):
        """The outcomes that it tells, by name, and everything it says."""
        arguments = ["127.0.0.1", str(bench.port)] + ([str(timeout)] if self.is_timed else [])
        done = subprocess.run(
            [FOLDER / self.name, *arguments], cwd=bench.folder, stdin=subprocess.DEVNULL, capture_output=True,
            check=False, timeout=PATIENCE, encoding="utf-8",
        )
        outcomes = dict(OUTCOME.findall(done.stdout))
        if done.stderr or not outcomes:
            raise AssertionError(f"{self.name}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
        return outcomes, done.stdout

    def contradictions(self, outcomes, before, after, fault=""):
        """What is told otherwise than it is, as texts."""
        if fault in DAMAGE and not self.shows_damage:
            return []
        expected = dict.fromkeys(before, 0)
        # What is paid for a document goes into the drawer, or not; the printer's own tests say when.
        sells = any(key in ("receipts", "invoices") for key, _ in self.effect.values())
        unknown = {"cash"} if sells else set()
        for name, (key, amount) in self.effect.items():
            outcome = outcomes.get(name, "not printed")
            if outcome in ("printed", "open"):
                expected[key] += amount
            elif outcome == "unknown":
                unknown.add(key)
        grown = {key: after[key] - before[key] for key in before}
        return [
            f"{key} grew by {grown[key]}, which is not what is told" for key in before
            if key not in unknown and grown[key] != expected[key]
        ]

    def orders(self, fault, size):
        """The ways in which a fault is tried."""
        name, value, where, example = fault
        values = [f"={number}" for number in VALUES.get(value, [])]
        if value and not values:
            values = ["=" + re.search(r"=(-?\d+)", example).group(1)]
        all_orders = [f"{name}{number}@{where}={place}" for number in values or [""] for place in places(where, size)]
        if self.is_timed:
            return all_orders
        # It would wait too long for a printer that falls silent.
        return all_orders[::5] if name in CERTAIN or where == "line" else []


EXAMPLES = [
    Example("receipt", {"receipt": ("receipts", 6685)}, finds_out=True, is_timed=False),
    Example("readme_receipt", {"receipt": ("receipts", RECEIPT)}),
    Example("task_receipt", {"receipt": ("receipts", RECEIPT)}, finds_out=True),
    Example("task_receipt_with_discount", {"receipt": ("receipts", 7629)}, finds_out=True),
    Example("task_invoice", {"invoice": ("invoices", 21990)}, finds_out=True),
    Example("task_closing_failed", {"receipt": ("receipts", RECEIPT)}, finds_out=True, retries=True),
    Example("task_cancelled_receipt", {"receipt": ("receipts", RECEIPT)}),
    Example("task_daily_report", {"daily report": ("reports", 1)}),
    Example("task_cash_in_and_out", {"cash in": ("cash", 20000), "cash out": ("cash", -15050)}),
    Example("task_drawer_and_display", {"drawer": ("drawer", 1)}, shows_damage=False),
]
NEXT_RECEIPT = EXAMPLES[2]


def faults():
    """The printer's faults: (name, what its value is or "", where it counts, an example)."""
    shown = subprocess.run(
        [FOLDER / "quilon-printer", "--help"], stdout=subprocess.PIPE, check=True, encoding="utf-8", timeout=PATIENCE)
    return re.findall(r"^  ([a-z-]+)(?:=([A-Z]+))?@([a-z]+)=N\n.*?: (\S+)$", shown.stdout, re.MULTILINE)


def places(where, size):
    """Where a fault is tried: everywhere, or evenly spread when there is more room."""
    room = size.get(where, 3)
    tried = min(room, PLACES.get(where, 3))
    spread = {1 + (room - 1) * i // max(1, tried - 1) for i in range(tried)}
    return sorted(spread | ({0} if where == "line" else set()))


class Bench:
    """A printer that takes orders."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.printer = Printer(
            [FOLDER / "quilon-printer"], "--tcp", "127.0.0.1:0", "--web", "127.0.0.1:0",
            "--paper", self.folder / "paper", "--state", self.folder / "state", "--log", self.folder / "log",
            # An example prints the same invoice, the same daily report every time.
            "--lenient",
        )
        self.page, self.token = self.printer.expect("web page: ").split("/#")
        self.port = self.printer.port()

    def order(self, name, **details):
        request = urllib.request.Request(
            self.page + "/orders", json.dumps({"order": name, **details}).encode(), {"X-Token": self.token})
        urllib.request.urlopen(request, timeout=PATIENCE).close()

    def cure(self):
        for order in ("clear-faults", "paper-back", "online", "error-off"):
            self.order(order)

    def memory(self):
        """What the printer would remember if it were switched off."""
        state = json.loads((self.folder / "state").read_text(encoding="utf-8"))
        books = state["books"]
        return {
            "receipts": sum(books["receipts"]), "invoices": sum(books["invoices"]), "reports": books["report_count"],
            "cash": state["cash"], "drawer": state["drawer_openings"],
        }

    def new_lines(self, name, seen):
        """The lines of an output behind the first `seen` ones."""
        return (self.folder / name).read_text(encoding="utf-8").splitlines()[seen:]

    def size_of(self, example):
        """How many bytes, frames, answers and lines of paper the example takes when all is well."""
        log_seen, paper_seen = len(self.new_lines("log", 0)), len(self.new_lines("paper", 0))
        before = self.memory()
        outcomes, said = example.run(self, LONGEST)
        is_done = not set(outcomes.values()) & {"unknown", "not printed"}
        if not is_done or example.contradictions(outcomes, before, self.memory()):
            raise AssertionError(f"{example.name}, without a fault: {said}")
        log = [json.loads(line) for line in self.new_lines("log", log_seen)]
        frames = [entry for entry in log if entry["kind"] == "frame"]
        return {
            "byte": sum(map(length_of, frames)) + len(log) - len(frames),
            "frame": len(frames),
            "answer": sum(entry["answer"] != "" for entry in log),
            "line": len(self.new_lines("paper", paper_seen)),
            "document": 1,
        }


def length_of(frame):
    """The bytes of a frame in the log, where ESC "P" and ESC "\\" are left out, and a right checksum."""
    framing = 6 if frame["checksum"] == "right" else 4
    return len(";".join(frame["parameters"]) + frame["mnemonic"] + frame["fields"]) + framing


class Judge(unittest.TestCase):
    BEFORE = {"receipts": 100, "reports": 0}

    def told(self, outcome, receipts, reports=0):
        after = {"receipts": receipts, "reports": reports}
        return NEXT_RECEIPT.contradictions({"receipt": outcome}, self.BEFORE, after)

    def test_truth(self):
        self.assertEqual(self.told("printed", 100 + RECEIPT), [])
        self.assertEqual(self.told("not printed", 100), [])
        self.assertEqual(self.told("unknown", 100 + 2 * RECEIPT), [])

    def test_lies(self):
        for outcome, receipts, reports in (
            ("printed", 100, 0), ("printed", 100 + 2 * RECEIPT, 0), ("printed", 100 + RECEIPT, 1),
            ("not printed", 100 + RECEIPT, 0), ("not printed", 101, 0), ("unknown", 100, 1),
        ):
            self.assertEqual(len(self.told(outcome, receipts, reports)), 1, (outcome, receipts, reports))


class Faults(unittest.TestCase):
    def setUp(self):
        self.table = {}
        self.benches = queue.Queue()
        with contextlib.ExitStack() as stack:
            for _ in range(PRINTERS):
                bench = Bench(stack.enter_context(tempfile.TemporaryDirectory()))
                stack.callback(bench.printer.stop)
                self.benches.put(bench)
            self.addCleanup(stack.pop_all().close)

    def count(self, fault, outcomes):
        row = self.table.setdefault(fault, {})
        for outcome in outcomes.values():
            row[outcome] = row.get(outcome, 0) + 1

    def judge(self, bench, example, order):
        """Runs an example with a fault; returns what is wrong in what it says."""
        fault = re.match("[a-z-]+", order).group()
        before = bench.memory()
        bench.order("fault", fault=order)
        outcomes, said = example.run(bench, LONGER if fault in CERTAIN else SHORT)
        self.count(fault, outcomes)
        wrong = example.contradictions(outcomes, before, bench.memory(), fault)
        certain = CERTAIN.get(fault) if example.finds_out else None
        if certain and not set(outcomes.values()) <= (certain | {"printed"} if example.retries else certain):
            wrong.append(f"should be {' or '.join(certain)}")
        bench.cure()
        kept = bench.folder / "unknown.sale"
        if kept.exists():
            outcomes, said_then = example.run(bench, LONGEST)
            said += "asked again:\n" + said_then
            self.count("(asked again)", outcomes)
            wrong += example.contradictions(outcomes, before, bench.memory())
            if outcomes["receipt"] == "unknown" and fault not in UNPROVABLE:
                wrong.append("still unknown")
            kept.unlink(missing_ok=True)
        return [f"{one}\n{said}" for one in wrong]

    def run_once(self, example, order):
        bench = self.benches.get()
        wrong = self.judge(bench, example, order)
        before = bench.memory()
        outcomes, said = NEXT_RECEIPT.run(bench, LONGEST)
        if outcomes != {"receipt": "printed"} or NEXT_RECEIPT.contradictions(outcomes, before, bench.memory()):
            wrong.append(f"the next receipt:\n{said}")
        self.benches.put(bench)
        return [f"{example.name}, {order}: {one}" for one in wrong]

    def test_tell_the_truth(self):
        known = faults()
        self.assertGreater(len(known), 10)
        begin = time.monotonic()
        bench = self.benches.get()
        sizes = {example: bench.size_of(example) for example in EXAMPLES}
        self.benches.put(bench)
        with concurrent.futures.ThreadPoolExecutor(PRINTERS) as pool:
            runs = [
                pool.submit(self.run_once, example, order)
                for example in EXAMPLES for fault in known for order in example.orders(fault, sizes[example])
            ]
            wrong = sum((run.result() for run in runs), [])
        for fault, outcomes in sorted(self.table.items()):
            print(f"{fault:20}", ", ".join(f"{count} {outcome}" for outcome, count in sorted(outcomes.items())))
        print(f"{len(runs)} runs in {time.monotonic() - begin:.0f} s")
        self.assertEqual(wrong, [], "\n".join(wrong))


if __name__ == "__main__":
    FOLDER = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
