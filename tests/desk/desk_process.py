"""desk_client as a process: a till that is told what to do, and may be killed."""

import json
import os
import pathlib
import socket
import subprocess
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "printer"))
import printer_process  # noqa: E402  the path has to be known first


def printer_at(port):
    return {"tcp": {"address": "127.0.0.1", "port": port}}


def no_printer():
    """Settings of a printer that nobody is."""
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return printer_at(probe.getsockname()[1])


class Client:
    """A running till; `opening` is what its opening told, None when it did not live to tell."""

    def __init__(self, command, folder, settings, environment=None):
        self.process = subprocess.Popen(
            [*command, json.dumps(settings)], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, env={**os.environ, **(environment or {})})
        self._lines = printer_process.Lines(self.process.stdout)
        self.opening = self.hear()

    def say(self, order):
        try:
            self.process.stdin.write(order.encode() + b"\n")
            self.process.stdin.flush()
        except OSError:
            # It was killed.
            pass

    def hear(self):
        """The next answer; None when it has ended."""
        line = self._lines.next()
        return None if line is None else json.loads(line)

    def ask(self, order):
        self.say(order)
        return self.hear()

    def end(self):
        """The exit status of a till that is told to end."""
        try:
            self.process.stdin.close()
        except OSError:
            pass
        status = self.process.wait(printer_process.PATIENCE)
        self._lines.close()
        return status

    def kill(self):
        self.process.kill()
        self.end()
