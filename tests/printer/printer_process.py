"""quilon-printer as a process, and what a client says to it; for the tests of the program."""

import queue
import subprocess
import threading

PATIENCE = 60
ESC = b"\x1b"


def framed(body):
    """ESC "P", the body, its checksum, ESC "\\": the XOR of all bytes from FF on, as two digits."""
    checksum = 0xFF
    for byte in body:
        checksum ^= byte
    return ESC + b"P" + body + b"%02x" % checksum + ESC + b"\\"


class Printer:
    """A running printer. What it says on its standard error is read as it comes."""

    def __init__(self, command, *options):
        self.process = subprocess.Popen(
            [*command, *options], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE
        )
        self._messages = queue.Queue()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self.process.stderr:
            self._messages.put(line.decode(errors="replace").rstrip("\r\n"))
        self._messages.put(None)

    def message(self):
        """The next line that the printer says; None when it says no more."""
        return self._messages.get(timeout=PATIENCE)

    def expect(self, begin):
        """The rest of the next line that begins so."""
        while (line := self.message()) is not None:
            if line.startswith(begin):
                return line[len(begin):]
        raise AssertionError(f"the printer ended without saying {begin!r}")

    def port(self):
        """The TCP port that it says it listens on."""
        return int(self.expect("listening on 127.0.0.1:"))

    def stop(self):
        """Ends it, if it still runs; returns its exit status."""
        if self.process.poll() is None:
            self.process.terminate()
        status = self.process.wait(PATIENCE)
        self._reader.join(PATIENCE)
        self.process.stderr.close()
        return status

    def kill(self):
        """Ends it at once, wherever it is."""
        self.process.kill()
        self.stop()
