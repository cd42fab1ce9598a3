#!/usr/bin/python3
"""What quilon-printer stands in a long day: clients that come, go and die, garbage, a hundred thousand receipts, death.

    endurance_test.py PROGRAM

Every receipt is one of 9.00 at the rate A, so that count and total of the books tell how many are in them.
"""

import os
import pathlib
import random
import socket
import sys
import tempfile
import threading
import time
import unittest

import printer_process
from printer_process import ENQ, HEADER, RECEIPT, books, connect, framed

PROGRAM = []
PRICE = 900
CLOSED = b"\x6d"  # fiscal mode, command OK, no document open, the last one closed properly
PATIENCE = 30
GARBAGE_SECONDS = 60
# What the allocator may keep or give back while a process does not grow.
SLACK_KIB = 4096


def print_receipt(client):
    """Prints one; raises an OSError when the printer does not say that it is closed."""
    client.sendall(RECEIPT + ENQ)
    answer = client.recv(1)
    if answer != CLOSED:
        raise ConnectionError(f"not printed: {answer!r}")


def memory_kib(printer):
    status = pathlib.Path(f"/proc/{printer.process.pid}/status").read_text()
    return int(next(line for line in status.splitlines() if line.startswith("VmRSS:")).split()[1])


class Endurance(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def start(self, *options):
        """A printer with a state file, and its port. It sells on when midnight passes."""
        printer = printer_process.Printer(
            PROGRAM, "--tcp", "127.0.0.1:0", "--paper", os.devnull, "--state", self.folder / "state.json", "--lenient",
            *options,
        )
        self.addCleanup(printer.stop)
        return printer, printer.port()

    def start_with_page(self):
        """The same with a page, on which a browser that never reads hangs."""
        printer = printer_process.Printer(
            PROGRAM, "--tcp", "127.0.0.1:0", "--web", "127.0.0.1:0", "--paper", os.devnull, "--lenient",
        )
        self.addCleanup(printer.stop)
        page = int(printer.expect("web page: http://127.0.0.1:").split("/")[0])
        browser = connect(page)
        self.addCleanup(browser.close)
        browser.sendall(b"GET /events HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n")
        return printer, printer.port()

    def assert_books(self, port, receipts):
        self.assertEqual(books(port), (receipts, receipts * PRICE))

    def test_a_hundred_clients_in_a_row_each_print_a_receipt(self):
        _, port = self.start()
        for _ in range(100):
            with connect(port) as client:
                print_receipt(client)
        self.assert_books(port, 100)

    def test_a_client_that_dies_in_mid_frame_leaves_nothing(self):
        _, port = self.start()
        # Behind its first frame the client leaves a document open, which the next one has to cancel.
        first = len(HEADER)
        for cut in range(1, len(RECEIPT)):
            with connect(port) as dying:
                dying.sendall(RECEIPT[:cut])
                # The printer has read all when it hangs up in turn.
                dying.shutdown(socket.SHUT_WR)
                self.assertEqual(dying.recv(1), b"")
            with connect(port) as client:
                client.sendall(ENQ)
                is_open = client.recv(1)[0] & 2 != 0
                self.assertEqual(is_open, cut >= first, cut)
                if is_open:
                    client.sendall(framed(b"0$e"))
        with connect(port) as client:
            print_receipt(client)
        self.assert_books(port, 1)

    def test_a_hundred_thousand_receipts_take_no_more_memory_than_twenty_thousand(self):
        printer, port = self.start_with_page()
        with connect(port) as client:
            for _ in range(20_000):
                print_receipt(client)
            fifth = memory_kib(printer)
            for _ in range(80_000):
                print_receipt(client)
        whole = memory_kib(printer)
        self.assert_books(port, 100_000)
        self.assertLess(whole, fifth + SLACK_KIB)
        print(f"memory after 20 000 receipts {fifth} KiB, after 100 000 {whole} KiB", file=sys.stderr)

    def test_a_minute_of_garbage_leaves_the_printer_as_it_was(self):
        printer, port = self.start_with_page()
        dice = random.Random(1)
        # Bytes of any kind, and bytes that almost make frames.
        tokens = [b"\x1bP", b"\x1b\\", b"\x1b", b"$h", b"$e", b"^l", b"#n", b";", b"/", b"\r", b"0", b"1", b"\xff"]
        blocks = [dice.randbytes(65536) for _ in range(16)]
        blocks += [b"".join(dice.choices(tokens, k=20000)) for _ in range(16)]
        sent = 0
        memory = []
        end = time.monotonic() + GARBAGE_SECONDS
        with connect(port) as client:
            drain = threading.Thread(target=lambda: [None for _ in iter(lambda: client.recv(65536), b"")])
            drain.start()
            while time.monotonic() < end:
                block = dice.choice(blocks)
                client.sendall(block)
                sent += len(block)
                memory.append(memory_kib(printer))
            client.shutdown(socket.SHUT_WR)
            drain.join(PATIENCE)
            self.assertFalse(drain.is_alive())
        third = len(memory) // 3
        self.assertLess(max(memory[-third:]), max(memory[:third]) + SLACK_KIB)
        with connect(port) as client:
            client.sendall(framed(b"0$e"))
            print_receipt(client)
        self.assert_books(port, 1)
        print(f"{sent >> 20} MiB of garbage, at most {max(memory)} KiB of memory", file=sys.stderr)

    def test_no_receipt_is_lost_when_the_printer_is_killed(self):
        """A hundred times: what the client was told is printed is in the state file, and at most one receipt more."""
        dice = random.Random(2)
        known = 0
        surprises = 0
        for _ in range(100):
            printer, port = self.start()
            count, total = books(port)
            self.assertIn(count, (known, known + 1))
            self.assertEqual(total, count * PRICE)
            surprises += count - known
            known = count
            known += self.print_until_killed(printer, port, dice.uniform(0, 0.05))
        self.assertGreater(known, 100)
        print(f"{known} receipts, {surprises} of them booked though the client heard nothing", file=sys.stderr)

    def print_until_killed(self, printer, port, seconds):
        printed = 0
        killer = threading.Timer(seconds, printer.process.kill)
        killer.start()
        try:
            with connect(port) as client:
                while True:
                    print_receipt(client)
                    printed += 1
        except OSError:
            pass
        killer.join()
        printer.stop()
        return printed


if __name__ == "__main__":
    PROGRAM = [sys.argv.pop(1)]
    unittest.main()
