#!/usr/bin/python3
"""quilon-printer as a person starts it: its options, its outputs, its end.

    program_test.py COMMAND...     how the program is started
"""

import json
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

from printer_process import ENQ, ESC, HEADER, RECEIPT, Printer, ask, at_any_time, books, connect, framed

COMMAND = []
FAULTS = [
    "book-nothing", "book-twice", "book-other", "book-late", "lose-closing", "die-after-closing", "silent", "dead",
    "cut", "late", "paper-out", "bad-checksum", "refuse", "garble", "lose-answer", "double-answer", "cut-answer",
    "lose-byte", "change-byte", "busy", "restart", "forget", "power-cut",
]
PAPER = """\
             Sklep wzorcowy
              ul. Prosta 1
            00-001 Warszawa
           NIP 000-000-00-00
YYYY-MM-DD hh:mm           wydruk 000001
            PARAGON FISKALNY
Chleb
  2 x 4,50                        9,00 A
----------------------------------------
SPRZEDAŻ OPODATKOWANA A             9,00
PTU A 23%                           1,68
SUMA PTU                            1,68
SUMA PLN                            9,00
Gotówka                             9,00
Paragon 1               YYYY-MM-DD hh:mm
     WYDRUK WIRTUALNY QVP0000000001
""".splitlines()


def is_native():
    return len(COMMAND) == 1


class Program(unittest.TestCase):
    def setUp(self):
        # Below the build folder, which Wine reaches by the same relative names.
        folder = tempfile.TemporaryDirectory(dir=os.getcwd())
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).relative_to(os.getcwd())

    def start(self, *options, tcp="127.0.0.1:0", **streams):
        printer = Printer(COMMAND, "--tcp", tcp, *options, **streams)
        self.addCleanup(printer.stop)
        return printer

    def send(self, port, frames, answers=1):
        """Sends frames and an ENQ; returns so many bytes of answers."""
        with connect(port) as client:
            client.sendall(frames + ENQ)
            received = b""
            while len(received) < answers and (part := client.recv(4096)):
                received += part
            return received

    def run_script(self, script, frames, *options):
        """The exit status and the messages of an acceptance of what these frames print."""
        path = self.folder / "script.json"
        path.write_text(json.dumps(script) if isinstance(script, dict) else script, encoding="utf-8")
        printer = self.start("--script", path, *options)
        if frames is not None:
            self.send(printer.port(), frames)
        messages = printer.messages.rest()
        return printer.stop(), messages

    def test_shows_its_paper(self):
        printer = self.start()
        self.assertEqual(self.send(printer.port(), RECEIPT), b"\x6d")
        self.assertEqual([at_any_time(printer.paper.next()) for _ in PAPER], PAPER)
        self.assertEqual(printer.paper.next(), "")

    def test_ends_well_at_a_signal(self):
        if not is_native():
            self.skipTest("a Windows program gets no signals from here")
        printer = self.start()
        printer.port()
        self.assertEqual(printer.stop(), 0)

    def test_goes_on_when_nobody_reads_its_paper(self):
        reading, writing = os.pipe()
        os.close(reading)
        printer = self.start(stdout=writing)
        os.close(writing)
        port = printer.port()
        for _ in range(2):
            self.assertEqual(self.send(port, RECEIPT), b"\x6d")
        self.assertEqual(books(port), (2, 1800))
        printer.stop()
        self.assertEqual(printer.messages.rest(), ["quilon-printer: cannot write the standard output"])

    def test_takes_nothing_for_a_standard_output_that_was_closed(self):
        if not is_native():
            self.skipTest("the numbers of streams are Linux's")
        path = self.folder / "state.json"
        printer = Printer(["/bin/sh", "-c", 'exec "$@" >&-', "sh", *COMMAND], "--tcp", "127.0.0.1:0", "--state", path)
        self.addCleanup(printer.stop)
        with connect(printer.port()) as client:
            client.sendall(RECEIPT)
            # All that the client hears is the answer, no paper.
            self.assertTrue(ask(client, ESC + b"P#n" + ESC + b"\\").startswith(ESC + b"P#E"))
        self.assertEqual(printer.stop(), 0)
        self.assertEqual(printer.messages.rest(), ["quilon-printer: cannot write the standard output"])

    def test_appends_its_paper_to_a_file(self):
        path = self.folder / "paper.txt"
        for _ in range(2):
            printer = self.start("--paper", path)
            self.send(printer.port(), RECEIPT)
            printer.stop()
        lines = [at_any_time(line) for line in path.read_text(encoding="utf-8").splitlines()]
        self.assertEqual(lines, 2 * [*PAPER, ""])

    def test_draws_every_printout(self):
        folder = self.folder / "pictures/of receipts"
        script = {"quiet_seconds": 0,
                  "documents": [{"kind": "receipt"}, {"kind": "cancelled"}, {"kind": "report"}]}
        for _ in range(2):
            # At an orderly end, as that of a script, all are there.
            status, messages = self.run_script(
                script, RECEIPT + HEADER + framed(b"0$e") + framed(b"0#r"), "--png", folder)
            self.assertEqual(status, 0, messages)
        self.assertEqual(
            sorted(path.name for path in folder.iterdir()),
            ["000001-receipt.png", "000002-cancelled.png", "000003-report.png",
             "000004-receipt.png", "000005-cancelled.png", "000006-report.png"],
        )
        picture = (folder / "000001-receipt.png").read_bytes()
        self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")
        # 57 mm of 8 dots; a margin of 40 dots above and below, sixteen lines of 22, one of them twice as high
        self.assertEqual(struct.unpack(">2I", picture[16:24]), (456, 80 + 17 * 22))

    def test_tells_every_printout_as_json(self):
        folder = self.folder / "values"
        script = {"quiet_seconds": 0, "documents": [{"kind": "receipt"}, {"kind": "report"}]}
        status, messages = self.run_script(script, RECEIPT + framed(b"0#r"), "--json", folder)
        self.assertEqual(status, 0, messages)
        values = {path.name: json.loads(path.read_text(encoding="utf-8")) for path in folder.iterdir()}
        self.assertEqual(sorted(values), ["000001-receipt.json", "000002-report.json"])
        # Two at 4.50; 9.00 x 23/123 = 1.68
        receipt = values["000001-receipt.json"]
        self.assertEqual((receipt["total"], receipt["tax"]), ("9.00", "1.68"))
        self.assertEqual([item["price"] for item in receipt["items"]], ["4.50"])
        report = values["000002-report.json"]
        self.assertEqual((report["report"], report["number"], report["total"]), ("daily", 1, "9.00"))

    def test_makes_every_printout_a_pdf_that_others_read(self):
        if not is_native():
            self.skipTest("the reader is Linux's")
        folder = self.folder / "pdf"
        script = {"quiet_seconds": 0, "documents": [{"kind": "receipt"}]}
        # Two texts in the header; in the old code page 9c, a2, a6 are Ł, ó, ź; a1 is Ż.
        receipt = RECEIPT.replace(HEADER, framed(b"0;1;0;1;0$hSklep \x9c\xa2d\xa6 (no. \\1)\r\xa1abka\r"))
        status, messages = self.run_script(script, receipt, "--pdf", folder, "--paper", self.folder / "paper.txt")
        self.assertEqual(status, 0, messages)
        pdf = folder / "000001-receipt.pdf"
        read = subprocess.run(["pdftotext", "-layout", pdf, "-"], stdout=subprocess.PIPE, check=True, text=True)
        lines = [" ".join(line.split()) for line in read.stdout.strip("\f").splitlines() if line.strip()]
        paper = (self.folder / "paper.txt").read_text(encoding="utf-8").splitlines()
        self.assertEqual(lines, [" ".join(line.split()) for line in paper if line])
        self.assertIn("Sklep Łódź (no. \\1)", lines)
        about = subprocess.run(["pdfinfo", pdf], stdout=subprocess.PIPE, check=True, text=True).stdout
        # 57 mm are 161.575 points; 18 lines, one twice as high, of 22 dots, and two margins of 40 are 498 dots,
        # that is 176.457.
        self.assertRegex(about, r"Pages: +1\n")
        self.assertRegex(about, r"Page size: +161\.57\d* x 176\.45\d* pts")

    def test_goes_on_while_a_picture_is_drawn(self):
        if not is_native():
            self.skipTest("Windows has no FIFOs in folders")
        printer = self.start("--png", self.folder)
        port = printer.port()
        slow = self.folder / "000001-receipt.png"
        os.mkfifo(slow)
        try:
            for _ in range(2):
                self.assertEqual(self.send(port, RECEIPT), b"\x6d")
        finally:
            self.assertEqual(slow.read_bytes()[:4], b"\x89PNG")
        self.assertEqual(printer.stop(), 0)
        self.assertEqual((self.folder / "000002-receipt.png").read_bytes()[:4], b"\x89PNG")

    def test_logs_the_traffic(self):
        path = self.folder / "traffic.jsonl"
        printer = self.start("--log", path)
        port = printer.port()
        self.send(port, HEADER + ESC + b"P1;0;0^lChleb\r2\rA/4.50/9/00" + ESC + b"\\")
        self.send(port, framed(b"7$Q"))
        entries = [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()]
        for entry in entries:
            self.assertRegex(entry.pop("time"), r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z$")
        frame = {"kind": "frame", "client": 1, "answer": ""}
        self.assertEqual(entries, [
            {**frame, "number": 1, "parameters": ["0", "0", "0", "1", "0"], "mnemonic": "$h", "fields": "↵",
             "checksum": "right", "error": 0},
            {**frame, "number": 2, "parameters": ["1", "0", "0"], "mnemonic": "^l", "fields": "Chleb↵2↵A/4.50/9/00",
             "checksum": "wrong", "error": 2,
             "reason": {"en": "its checksum is wrong or missing", "pl": "suma kontrolna jest błędna lub jej brak"}},
            # Document open, not the last command OK
            {"number": 3, "kind": "control", "client": 1, "mnemonic": "ENQ", "answer": "6a"},
            {**frame, "number": 4, "client": 2, "parameters": ["7"], "mnemonic": "", "fields": "$Q",
             "checksum": "right", "error": 1022,
             "reason": {"en": "its mnemonic is unknown", "pl": "mnemonik jest nieznany"}},
            {"number": 5, "kind": "control", "client": 2, "mnemonic": "ENQ", "answer": "6a"},
        ])

    def test_logs_where_faults_struck(self):
        path = self.folder / "traffic.jsonl"
        # HEADER has 18 bytes, and an ENQ follows it: the byte that is lost is the next client's first one.
        printer = self.start("--log", path, "--fault", "refuse=1086", "--fault", "late=1", "--fault", "cut@byte=20")
        port = printer.port()
        self.assertEqual(self.send(port, HEADER), b"\x69")
        self.assertEqual(self.send(port, b""), b"")
        entries = [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()]
        self.assertEqual(
            [(entry["kind"], entry["faults"]) for entry in entries],
            [("frame", ["refuse=1086"]), ("control", ["late=1"]), ("lost", ["cut@byte=20"])],
        )

    def test_remembers_its_state(self):
        path = self.folder / "state.json"
        for receipts in (1, 2):
            printer = self.start("--state", path)
            port = printer.port()
            self.send(port, RECEIPT)
            self.assertEqual(books(port), (receipts, 900 * receipts))
            printer.stop()

    def test_shares_its_state_with_no_other_printer(self):
        path = self.folder / "state.json"
        first = self.start("--state", path)
        port = first.port()
        second = self.start("--state", path)
        self.assertEqual(second.process.wait(60), 1)
        self.assertEqual(second.messages.rest(), [f"quilon-printer: another printer keeps its state in {path}"])
        self.assertEqual(self.send(port, RECEIPT), b"\x6d")
        # However a printer ends, the next one may have its state.
        first.process.kill()
        first.stop()
        third = self.start("--state", path)
        self.assertEqual(books(third.port()), (1, 900))

    def test_misbehaves_by_chance_the_same_for_the_same_seed(self):
        def answers(seed):
            printer = self.start("--fault", "garblex30%", "--seed", seed)
            received = self.send(printer.port(), 199 * ENQ, answers=200)
            printer.stop()
            return received

        first = answers(7)
        self.assertEqual(set(first), {0x6d, 0x6c})
        self.assertEqual(first, answers(7))
        self.assertNotEqual(first, answers(8))

    def test_answers_late(self):
        printer = self.start("--latency", 1, "--baud", 115200, "--fault", "late=1")
        self.assertEqual(self.send(printer.port(), RECEIPT), b"\x6d")

    def test_accepts_what_a_script_expects(self):
        script = {"quiet_seconds": 0, "refused": 0, "documents": [
            {"kind": "receipt", "total": "9.00", "rates": {"A": "9"}, "due": "9.00", "paid": "9.00",
             "lines": ["Chleb", "SUMA PLN"]},
            {"kind": "cancelled"},
        ]}
        self.assertEqual(self.run_script(script, RECEIPT + HEADER + framed(b"0$e")), (0, [
            "document 1: receipt: as expected", "document 2: cancelled: as expected", "refused commands: as expected",
        ]))

    def test_tells_what_differs_from_a_script(self):
        script = {"quiet_seconds": 0, "documents": [{"kind": "receipt", "total": "9.01", "rates": {"B": "9.00"}}]}
        self.assertEqual(self.run_script(script, RECEIPT), (1, [
            "document 1: receipt", "  total: expected 9.01, printed 9.00", "  rate A: expected 0.00, printed 9.00",
            "  rate B: expected 9.00, printed 0.00",
        ]))

    def test_finds_documents_missing_and_too_many(self):
        script = {"quiet_seconds": 0, "documents": []}
        self.assertEqual(self.run_script({**script, "quiet_seconds": 1}, RECEIPT),
                         (1, ["document 1: receipt", "  printed, but none was expected"]))
        script = {"within_seconds": 0, "documents": [{"kind": "report"}]}
        status, messages = self.run_script(script, None)
        self.assertEqual((status, messages[1:]), (1, ["document 1: report", "  expected, but none was printed"]))

    def test_refuses_what_is_no_script(self):
        status, messages = self.run_script({"documents": [], "wihtin_seconds": 5}, None)
        self.assertEqual(status, 1)
        self.assertEqual(messages, ['quilon-printer: not an acceptance script: what is "wihtin_seconds"?'])
        status, messages = self.run_script("{", None)
        self.assertEqual(status, 1)
        self.assertRegex(messages[0], "^quilon-printer: not an acceptance script: ")

    def test_explains_every_fault_with_an_example(self):
        printer = Printer(COMMAND, "--help")
        text = "\n".join(printer.paper.rest())
        self.assertEqual(printer.stop(), 0)
        for fault in FAULTS:
            self.assertRegex(text, rf"(?m)^  {fault}[=@].*\n      .*: {fault}\b")
        for option in ("--tcp", "--pty", "--serial", "--paper", "--png", "--log", "--web", "--state", "--fault",
                       "--seed", "--latency", "--baud", "--script"):
            self.assertIn(option + " ", text)

    def test_refuses_wrong_options(self):
        for options in (
            ["--nonsense"], ["--tcp", "127.0.0.1"], ["--tcp", "nowhere:1"], ["--fault", "nonsense"], ["--baud", "299"],
            ["--baud", "x"], ["--latency", "-1"], ["--latency", "60001"], ["--script", str(self.folder / "missing")],
            ["--state", str(self.folder / "missing/state/")], ["--paper", str(self.folder / "missing/paper")],
            ["--log", str(self.folder)], ["--serial", "no-such-port"], ["--web", "127.0.0.1"],
        ):
            with self.subTest(options=options):
                printer = Printer(COMMAND, *([] if "--tcp" in options else ["--tcp", "127.0.0.1:0"]), *options)
                self.addCleanup(printer.stop)
                self.assertNotIn(printer.process.wait(20), (0, None))
                self.assertNotEqual("".join(printer.messages.rest()), "")

    def test_takes_no_port_that_is_taken(self):
        port = self.start().port()
        web = ["--web", f"127.0.0.1:{port}"]
        for second in (self.start(tcp=f"127.0.0.1:{port}"), self.start(*web)):
            self.assertEqual(second.process.wait(60), 1)
            self.assertRegex(second.messages.rest()[0], f"^quilon-printer: cannot listen on 127.0.0.1:{port}: .")

    def test_prints_its_page_address(self):
        printer = self.start("--web", "127.0.0.1:0")
        self.assertTrue(re.fullmatch(r"\d+/#[0-9a-f]{32}", printer.expect("web page: http://127.0.0.1:")))


if __name__ == "__main__":
    COMMAND = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
