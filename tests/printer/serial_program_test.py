#!/usr/bin/python3
"""The example program and quilon-printer at the two ends of a serial line, as programs.

    serial_program_test.py [--wine SCRIPT PREFIX] PRINTER RECEIPT

Each end of the line is a pseudo-terminal of its own; with --wine they are COM ports.
"""

import os
import pathlib
import select
import subprocess
import sys
import tempfile
import threading
import time
import tty
import unittest

from printer_process import DEMO_RECEIPT, Printer, at_any_time

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
import serial_host  # noqa: E402  the path has to be known first

LAUNCHER = []
PROGRAMS = []
COM_PORTS = None


class Cable:
    """Two pseudo-terminals, each of which hears what is said into the other."""

    def __init__(self):
        self._ends = [os.openpty() for _ in range(2)]
        for _, slave in self._ends:
            tty.setraw(slave)  # A new terminal echoes.
        self.ports = [os.ttyname(slave) for _, slave in self._ends]
        self._uncut, self._cut = os.pipe()
        masters = [master for master, _ in self._ends]
        self._carrier = threading.Thread(target=self._carry, args=masters, daemon=True)
        self._carrier.start()

    def _carry(self, first, second):
        other = {first: second, second: first}
        while self._uncut not in (ready := select.select([first, second, self._uncut], [], [])[0]):
            for source in ready:
                os.write(other[source], os.read(source, 4096))

    def answers(self, answer, patience):
        """Whether the far end, in that time, answers DLE so."""
        _, slave = self._ends[1]
        deadline = time.monotonic() + patience
        while time.monotonic() < deadline:
            os.write(slave, b"\x10")
            if select.select([slave], [], [], 0.1)[0]:
                return os.read(slave, 1) == answer
        return False

    def cut(self):
        os.close(self._cut)
        self._carrier.join()
        for file in (self._uncut, *sum(self._ends, ())):
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
            [*LAUNCHER, PROGRAMS[1], "--serial", shop_port, "19200"], stdin=subprocess.DEVNULL, capture_output=True,
            check=False, timeout=120,
        )
        self.assertEqual(shop.returncode, 0, shop.stdout)
        expected = DEMO_RECEIPT.read_text(encoding="utf-8").splitlines()
        self.assertEqual([at_any_time(printer.paper.next()) for _ in expected], expected)

    @unittest.skipIf(sys.argv[1:2] == ["--wine"], "a COM port does not vanish under Wine")
    def test_opens_a_port_again_that_was_gone(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        port = pathlib.Path(folder.name) / "port"
        first = Cable()
        port.symlink_to(first.ports[0])
        printer = Printer(PROGRAMS[:1], "--serial", port)
        self.addCleanup(printer.stop)
        printer.expect("listening on ")
        self.assertTrue(first.answers(b"\x74", 20))
        port.unlink()
        first.cut()
        second = Cable()
        self.addCleanup(second.cut)
        port.symlink_to(second.ports[0])
        self.assertTrue(second.answers(b"\x74", 20))


if __name__ == "__main__":
    arguments = sys.argv[1:]
    if arguments[0] == "--wine":
        COM_PORTS = serial_host.ComPorts(*arguments[1:3])
        LAUNCHER = [arguments[1]]
        arguments = arguments[3:]
    PROGRAMS = arguments
    unittest.main(argv=sys.argv[:1])
