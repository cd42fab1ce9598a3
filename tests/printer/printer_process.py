"""quilon-printer as a process, and what a client says to it; for the tests of the program."""

import io
import pathlib
import queue
import re
import socket
import subprocess
import threading

PATIENCE = 60
ESC = b"\x1b"
ENQ = b"\x05"
# What scripts/demo prints, whenever that is. Tax at 23 %: 24.50 * 23 / 123 = 4.58; at 5 %: 42.35 * 5 / 105 = 2.02.
DEMO_RECEIPT = pathlib.Path(__file__).parent.parent / "golden/demo_receipt.txt"


def framed(body):
    """ESC "P", the body, its checksum, ESC "\\": the XOR of all bytes from FF on, as two digits."""
    checksum = 0xFF
    for byte in body:
        checksum ^= byte
    return ESC + b"P" + body + b"%02x" % checksum + ESC + b"\\"


# A receipt of 9.00 at the rate A.
HEADER = framed(b"0;0;0;1;0$h\r")
LINE = framed(b"1;0;0^lChleb\r2\rA/4.50/9/")
CLOSING = framed(b"1;0;0;0;0;0$e\r0/9/0/")
RECEIPT = HEADER + LINE + CLOSING


def at_any_time(line):
    """A line of paper with letters in place of its date and time."""
    return re.sub(r"\d{4}-\d\d-\d\d \d\d:\d\d", "YYYY-MM-DD hh:mm", line)


def connect(port):
    client = socket.create_connection(("127.0.0.1", port), PATIENCE)
    client.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
    return client


def ask(client, frame):
    """The whole answer to a frame."""
    client.sendall(frame)
    answer = b""
    while not answer.endswith(ESC + b"\\"):
        answer += client.recv(4096)
    return answer


def books(port):
    """The number of receipts in the books and their total at rate A, in grosze, as the printer tells them."""
    with connect(port) as client:
        # Nine numbers and seven rates stand before them.
        fields = ask(client, ESC + b"P23#s" + ESC + b"\\").split(b"/")
    return int(fields[16]), int(fields[17].replace(b".", b""))


class Lines:
    """The lines of a stream, read as they come."""

    def __init__(self, stream):
        self._stream = stream
        self._lines = queue.Queue()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self._stream:
            self._lines.put(line.decode(errors="replace").rstrip("\r\n"))
        self._lines.put(None)

    def next(self):
        """The next line; None at the end."""
        return self._lines.get(timeout=PATIENCE)

    def rest(self):
        """All lines up to the end."""
        return list(iter(self.next, None))

    def close(self):
        self._reader.join(PATIENCE)
        self._stream.close()


class Printer:
    """A running printer; `paper` holds the lines of its standard output unless that goes elsewhere."""

    def __init__(self, command, *options, stdout=subprocess.PIPE):
        self.process = subprocess.Popen(
            [*command, *map(str, options)], stdin=subprocess.DEVNULL, stdout=stdout, stderr=subprocess.PIPE
        )
        self.paper = Lines(self.process.stdout or io.BytesIO())
        self.messages = Lines(self.process.stderr)

    def expect(self, begin):
        """The rest of the next message that begins so."""
        while (line := self.messages.next()) is not None:
            if line.startswith(begin):
                return line[len(begin):]
        raise AssertionError(f"the printer ended without saying {begin!r}")

    def port(self):
        """The TCP port that it says it listens on."""
        return int(self.expect("listening on 127.0.0.1:"))

    def kill(self):
        self.process.kill()
        self.stop()

    def stop(self):
        """Ends it, if it still runs; returns its exit status."""
        if self.process.poll() is None:
            self.process.terminate()
        status = self.process.wait(PATIENCE)
        self.paper.close()
        self.messages.close()
        return status
