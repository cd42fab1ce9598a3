#!/usr/bin/python3
"""The example program and quilon-printer at the two ends of a serial line, as programs.

    serial_program_test.py [--wine SCRIPT PREFIX] PRINTER RECEIPT

Each end of the line is a pseudo-terminal of its own; with --wine they are COM ports.
"""

import os
import pathlib
import subprocess
import sys
import threading
import unittest

from printer_process import DEMO_RECEIPT, Printer

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
import serial_host  # noqa: E402  the path has to be known first

LAUNCHER = []
PROGRAMS = []
COM_PORTS = None


class Cable:
    """Two pseudo-terminals, each of which hears what is said into the other."""

    def __init__(self):
        self._ends = [os.openpty() for _ in range(2)]
        self.ports = [os.ttyname(slave) for _, slave in self._ends]
        for source, target in ((0, 1), (1, 0)):
            masters = self._ends[source][0], self._ends[target][0]
            threading.Thread(target=self._carry, args=masters, daemon=True).start()

    @staticmethod
    def _carry(source, target):
        try:
            while data := os.read(source, 4096):
                os.write(target, data)
        except OSError:
            pass  # The cable is cut.

    def cut(self):
        for end in self._ends:
            for file in end:
                os.close(file)


class SerialProgram(unittest.TestCase):
    def test_prints_the_demo_receipt_over_a_serial_line(self):
        cable = Cable()
        self.addCleanup(cable.cut)
        if COM_PORTS:
            printer_port, shop_port = map(COM_PORTS.lead_to, cable.ports)
        else:
            printer_port, shop_port = cable.ports[0], cable.ports[1].removeprefix("/dev/")
        printer = Printer([*LAUNCHER, PROGRAMS[0]], "--serial", printer_port, "--baud", "19200")
        self.addCleanup(printer.stop)
        self.assertEqual(printer.expect("listening on "), f"{printer_port} at 19200 baud")
        shop = subprocess.run(
            [*LAUNCHER, PROGRAMS[1], "--serial", shop_port, "19200"], stdin=subprocess.DEVNULL, capture_output=True, check=False,
            timeout=120,
        )
        self.assertEqual(shop.returncode, 0, shop.stdout)
        expected = DEMO_RECEIPT.read_text(encoding="utf-8").splitlines()
        self.assertEqual([printer.paper.next() for _ in expected], expected)
        self.assertRegex(printer.paper.next(), r"^1 +\d{4}-\d\d-\d\d \d\d:\d\d$")


if __name__ == "__main__":
    arguments = sys.argv[1:]
    if arguments[0] == "--wine":
        COM_PORTS = serial_host.ComPorts(*arguments[1:3])
        LAUNCHER = [arguments[1]]
        arguments = arguments[3:]
    PROGRAMS = arguments
    unittest.main(argv=sys.argv[:1])
