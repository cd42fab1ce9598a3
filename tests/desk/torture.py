#!/usr/bin/python3
"""Receipts through the desk while tills and printers are killed and misbehave; each verdict is compared with the books.

    torture.py CLIENT PRINTER [--shim POWER_CUT] [--receipts N | --sweep] [--seed S]
        [--lanes N] [--pty] [--wine LAUNCHER]

CLIENT is desk_client, PRINTER quilon-printer. Prints a table of what was done and what came of it; fails when a receipt
was booked twice, lost, or its verdict was not what the books say.
"""

import argparse
import collections
import json
import os
import pathlib
import random
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

from desk_process import Client, printer_at, printer_process

# A closing is over long before that, also on a busy machine.
CLOSING_MS = 1500
REPLY_MS = 200
RATES = "ABCD"
# Faults with places, of which one is chosen by chance.
FAULTS = (
    [f"{name}@document=1" for name in ("lose-closing", "die-after-closing", "restart", "forget")] +
    ["power-cut@frame={frame}"] +
    [f"book-late={CLOSING_MS // 4}", f"busy={REPLY_MS // 2}@frame=9",
     f"busy={3 * REPLY_MS}@frame=10"] +
    [f"{name}@byte={{byte}}" for name in ("silent", "dead", "cut", "lose-byte", "change-byte")] +
    [f"{name}@answer={{answer}}" for name in ("garble", "lose-answer", "double-answer", "cut-answer",
                                              f"late={REPLY_MS // 2}", f"late={2 * REPLY_MS}")] +
    ["bad-checksum@frame={frame}", "refuse=20@frame={frame}", "refuse=1086@frame={frame}", "paper-out@line={line}"]
)
# The books are not what the printer told: only a person can tell. Real printers hardly do so.
LIES = ["book-nothing@document=1", "book-twice@document=1", "book-other=100@document=1", "book-other=-1@document=1"]

# How many there are of each while a receipt is printed, and a few more.
PLACES = {"byte": range(1, 480), "answer": range(1, 70), "frame": range(1, 26), "line": range(0, 24)}


def at_every_place(fault):
    """A fault at each of the places where it may be ordered."""
    for name, places in PLACES.items():
        if "{" + name + "}" in fault:
            return [fault.format(**{name: place}) for place in places]
    return [fault]


def free_port():
    """A port that the system gives to nobody by itself, so that the printer finds it free again."""
    for _ in range(1000):
        port = random.randrange(15_000, 30_000)
        with socket.socket() as probe:
            try:
                probe.bind(("127.0.0.1", port))
                return port
            except OSError:
                pass
    raise AssertionError("no port is free")


class Printer:
    """The virtual printer with its memory, started anew when it was killed or has a fault."""

    def __init__(self, command, folder, link=None):
        self.command = command
        self.folder = pathlib.Path(folder)
        self.link = link
        self.port = free_port()
        self.terminal = None
        self.faults = set(subprocess.run(
            [*command, "--help"], check=True, capture_output=True, text=True).stdout.replace("=", " ").replace(
                "@", " ").split())
        self.process = None

    def knows(self, fault):
        return fault.replace("=", "@").split("@")[0] in self.faults

    def start(self, fault=None):
        self.stop()
        way = ["--pty", self.link] if self.link else ["--tcp", f"127.0.0.1:{self.port}"]
        order = ["--fault", fault] if fault else []
        memory = ["--state", self.folder / "printer.json", "--paper", self.folder / "paper.txt"]
        self.process = printer_process.Printer(self.command, *way, "--lenient", *memory, *order)
        self.process.expect("listening on")
        if self.link:
            # While somebody has it open, no other printer gets a terminal of this number.
            self.terminal = os.open(self.link, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)

    def stop(self):
        if self.process:
            self.process.kill()
            self.process = None
        if self.terminal is not None:
            # A till finds no other printer there in place of its own.
            os.unlink(self.link)
            os.close(self.terminal)
            self.terminal = None

    def books(self):
        """What the printer holds: receipts, and grosze per rate."""
        path = self.folder / "printer.json"
        if not path.exists():
            return 0, [0] * 7
        books = json.loads(path.read_text(encoding="utf-8"))["books"]
        return books["receipt_count"], books["receipts"]


class Till:
    """desk_client, started anew when it was killed."""

    def __init__(self, command, folder, printer, shim):
        self.command = command
        self.folder = folder
        self.shim = shim
        where = {"serial": {"name": printer.link, "baud": 115200}} if printer.link else printer_at(printer.port)
        self.settings = {"printer": where, "journal": "till.journal",
                         "limits": {"reply_ms": REPLY_MS, "closing_ms": CLOSING_MS, "call_ms": 20_000}}
        self.process = None
        self.cut = None

    def start(self, cut=None):
        """With a cut, (step, seed or None), it ends at that step."""
        environment = {}
        if cut and self.shim:
            environment = {"LD_PRELOAD": self.shim, "CUT_AT": str(cut[0]), "ASAN_OPTIONS": "verify_asan_link_order=0"}
            if cut[1] is not None:
                environment["CUT_POWER"] = str(cut[1])
        self.process = Client(self.command, self.folder, self.settings, environment)
        if self.process.opening is None:
            self.stop()
        elif "error" in self.process.opening:
            raise AssertionError(f"no desk: {self.process.opening}")

    def stop(self):
        if self.process:
            self.process.kill()
            self.process = None

    def say(self, order):
        if not self.process:
            self.start()
        if self.process:
            self.process.say(order)

    def hear(self):
        """The answer; None when the till is dead."""
        answer = self.process.hear() if self.process else None
        if answer is None:
            self.stop()
        return answer

    def ask(self, order):
        self.say(order)
        return self.hear()


class Torture:
    def __init__(self, arguments, folder, lane):
        self.dice = random.Random(arguments.seed * 1000 + lane)
        self.folder = folder
        link = f"/tmp/q{os.getpid() % 10_000}{lane}" if arguments.pty else None
        launcher = [arguments.wine] if arguments.wine else []
        self.printer = Printer([*launcher, arguments.printer], folder, link)
        self.till = Till([*launcher, arguments.client], folder, self.printer, arguments.shim)
        self.shim = arguments.shim
        # Faults that are gone through one by one.
        self.sweep = [place for fault in FAULTS + LIES for place in at_every_place(fault)][
            lane::arguments.lanes] if arguments.sweep else []
        self.count = collections.Counter()
        self.persons = []
        self.wrong = []
        self.cut = 0

    def document(self, name, number):
        rate = RATES[number % len(RATES)]
        grosze = 1 + number % 5000
        # Now and then a total passes 2^31 grosze.
        grosze += 20_000_000_00 if number % 97 == 0 else 0
        price = f"{grosze // 100}.{grosze % 100:02}"
        return {
            "id": name, "kind": "receipt", "total": price,
            "lines": [{"name": f"Towar {rate}", "quantity": "1", "price": price, "rate": rate}],
            "payments": [{"form": "cash", "amount": price}],
        }, RATES.index(rate), grosze

    def trouble(self, number):
        """What happens to this receipt: (name, fault of the printer, step at which the till is cut)."""
        if self.sweep:
            return "fault", self.sweep.pop(), None
        kind = self.dice.choice(["none"] * 3 + ["fault"] * 4 + ["till", "printer", "both", "step", "power"])
        if kind == "fault":
            lies = self.dice.randrange(100) == 0
            fault = self.dice.choice([one for one in (LIES if lies else FAULTS) if self.printer.knows(one)])
            return kind, self.dice.choice(at_every_place(fault)), None
        if kind in ("step", "power") and self.shim:
            self.cut += 1
            return kind, None, (self.cut % 90 + 1, number if kind == "power" else None)
        return kind, None, None

    def kill_meanwhile(self, kind):
        time.sleep(self.dice.random() * 0.03)
        if kind in ("till", "both"):
            self.till.stop()
        if kind in ("printer", "both"):
            self.printer.stop()
        self.count["kills of " + kind] += 1

    def print_under(self, trouble, order):
        """The first verdict under trouble; None when the till did not live to tell."""
        kind, fault, cut = trouble
        if fault or not self.printer.process:
            self.printer.start(fault)
        if cut:
            self.till.stop()
            try:
                self.till.start(cut)
            finally:
                self.count["cuts by " + kind] += 1
        if fault:
            self.count["faults"] += 1
        if cut and not self.till.process:
            return None
        self.till.say(order)
        if kind in ("till", "printer", "both"):
            self.kill_meanwhile(kind)
        return self.till.hear()

    def verdict_after(self, trouble, order):
        """The final verdict, when all is well again."""
        verdict = self.print_under(trouble, order)
        for _ in range(5):
            if verdict and verdict["final"]:
                return verdict
            if self.till.process is None or not verdict or verdict["verdict"] != "booked":
                self.printer.start()
                self.till.stop()
            self.count["asked again"] += 1
            verdict = self.till.ask(order)
        return verdict or {"verdict": "none", "final": False}

    def one(self, number):
        """One receipt, until the books hold it."""
        trouble = self.trouble(number)
        for attempt in range(4):
            document, rate, grosze = self.document(f"{number}/{attempt}", number)
            order = "print " + json.dumps(document)
            before = self.printer.books()
            verdict = self.verdict_after(trouble, order)
            after = self.printer.books()
            self.check(document["id"], trouble, verdict, before, after, rate, grosze)
            self.count[verdict["verdict"]] += 1
            if verdict["verdict"] == "needs_person":
                self.resolve(document["id"], before != after)
            if verdict["verdict"] != "not_booked":
                return
            # The fault may still be ahead.
            trouble = ("none", None, None)
            self.printer.start()

    def check(self, name, trouble, verdict, before, after, rate, grosze):
        grown = [new - old for new, old in zip(after[1], before[1])]
        exactly = [grosze if index == rate else 0 for index in range(7)]
        truth = {
            "booked": grown == exactly and after[0] == before[0] + 1,
            "not_booked": grown == [0] * 7 and after[0] == before[0],
            "needs_person": True,
        }.get(verdict["verdict"], False)
        if not truth:
            self.wrong.append(f"{name}: {trouble}: {verdict}: grown by {grown}, {after[0] - before[0]} receipts")
        if verdict["verdict"] == "needs_person":
            self.persons.append(f"{name}: {trouble[0]} {trouble[1] or trouble[2] or ''}: grown by {grown}")

    def resolve(self, name, booked):
        said = "booked" if booked else "not_booked"
        answer = self.till.ask("resolve " + json.dumps({"id": name, "verdict": said, "by": "torture"}))
        if not answer or answer.get("verdict") != said:
            self.wrong.append(f"{name}: cannot be resolved: {answer}")

    def run(self, receipts):
        try:
            self.printer.start()
            for number in range(1, receipts + 1):
                self.one(number)
                self.count["receipts"] += 1
            pending = self.till.ask("pending")
            if pending != {"pending": []}:
                self.wrong.append(f"still pending: {pending}")
        except Exception as error:  # pylint: disable=broad-except
            self.wrong.append(f"ended after {self.count['receipts']} receipts: {error!r}")
        finally:
            self.till.stop()
            self.printer.stop()


def read_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("client")
    parser.add_argument("printer")
    parser.add_argument("--shim")
    parser.add_argument("--wine")
    parser.add_argument("--pty", action="store_true")
    parser.add_argument("--receipts", type=int, default=100)
    parser.add_argument("--sweep", action="store_true", help="each fault at each place, instead of --receipts")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--lanes", type=int, default=1)
    arguments = parser.parse_args()
    for program in ("client", "printer", "shim", "wine"):
        if getattr(arguments, program):
            setattr(arguments, program, str(pathlib.Path(getattr(arguments, program)).resolve()))
    return arguments


def tell(count, persons, wrong):
    for name, number in sorted(count.items()):
        print(f"{name:24} {number}")
    for line in persons:
        print("needs a person:", line)
    for line in wrong:
        print("WRONG:", line)


def main():
    arguments = read_arguments()
    lanes = [Torture(arguments, tempfile.mkdtemp(prefix="torture"), lane) for lane in range(arguments.lanes)]
    receipts = [len(lane.sweep) or arguments.receipts // arguments.lanes for lane in lanes]
    threads = [threading.Thread(target=lane.run, args=(number,)) for lane, number in zip(lanes, receipts)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    count = sum((lane.count for lane in lanes), collections.Counter())
    wrong = [line for lane in lanes for line in lane.wrong]
    tell(count, [line for lane in lanes for line in lane.persons], wrong)
    if wrong or count["receipts"] != sum(receipts):
        return 1
    for lane in lanes:
        shutil.rmtree(lane.folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
