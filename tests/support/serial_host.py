#!/usr/bin/python3
"""Runs a test program that needs serial ports; pseudo-terminals are the ports.

    serial_host.py [--wine SCRIPT PREFIX] PROGRAM [ARGUMENT...]

With --wine the program is a Windows one: SCRIPT runs it, and the pseudo-terminals are COM ports of the Wine in PREFIX.

The program finds a TCP port in QUILON_SERIAL_HOST. Each connection to it gets a fresh serial port and is the far end of
its line: it says what the far end is to do, in lines of text, some followed by as many bytes as they say. The first
line it hears, and every answer but that of "receive", is JSON.

    send N       sends N bytes, in the background; ok
    receive N    N bytes, fewer when they do not come within 10 s: their number in a line, and the bytes
    unread       how many bytes have come to the port and were not read yet; "sending" while some are still to be sent
    line         how the port is set up
    hangup       the port vanishes; ok

What nobody receives stays in the line, so that its other end has to wait.
"""

import array
import fcntl
import json
import os
import pathlib
import select
import socket
import struct
import subprocess
import sys
import termios
import threading
import time

PATIENCE = 10
COM_PORTS = [f"COM{number}" for number in range(10, 250)]
CHUNK = 65536
# Settings with any baud rate: four words of flags, 20 characters, and the rates of input and output.
TCGETS2 = 0x802C542A
TERMIOS2 = struct.Struct("4I20s2I")


class Line:
    """One serial line, driven by the connection to its far end."""

    def __init__(self, connection):
        self.connection = connection
        self.requests = connection.makefile("rb")
        self.master, self.slave = os.openpty()
        # A terminal has Xon/Xoff on when it is new; a COM port does not.
        settings = termios.tcgetattr(self.slave)
        settings[0] &= ~termios.IXON
        termios.tcsetattr(self.slave, termios.TCSANOW, settings)
        os.set_blocking(self.master, False)
        self.path = os.ttyname(self.slave)
        self.outgoing = bytearray()
        self.received = bytearray()

    def serve(self, greeting):
        self.answer(greeting)
        while self.pump(lambda: select.select([self.connection], [], [], 0)[0], None):
            request = self.requests.readline().split()
            if not request:
                break
            getattr(self, request[0].decode())(*[int(argument) for argument in request[1:]])
        self.close()

    def answer(self, value):
        self.connection.sendall(json.dumps(value).encode() + b"\n")

    def pump(self, done, deadline, reading=False):
        """Moves bytes until done() or the deadline; returns whether it was done()."""
        while not done():
            wait = None if deadline is None else max(0, deadline - time.monotonic())
            if wait == 0:
                return False
            readable = [self.master] if reading else [self.connection]
            writable = [self.master] if self.outgoing else []
            ready, room, _ = select.select(readable, writable, [], wait)
            if room:
                del self.outgoing[:os.write(self.master, self.outgoing[:CHUNK])]
            if self.master in ready:
                self.received += os.read(self.master, CHUNK)
        return True

    def send(self, count):
        self.outgoing += self.requests.read(count)
        self.answer("ok")

    def receive(self, count):
        self.pump(lambda: len(self.received) >= count, time.monotonic() + PATIENCE, reading=True)
        taken = self.received[:count]
        del self.received[:count]
        self.connection.sendall(b"%d\n" % len(taken) + taken)

    def unread(self):
        waiting = array.array("i", [0])
        fcntl.ioctl(self.slave, termios.FIONREAD, waiting)
        self.answer("sending" if self.outgoing else waiting[0])

    def line(self):
        iflag, oflag, cflag, lflag, _, _, characters = termios.tcgetattr(self.slave)
        self.answer({
            "speed": TERMIOS2.unpack(fcntl.ioctl(self.slave, TCGETS2, bytes(TERMIOS2.size)))[-1],
            "rts_cts": bool(cflag & termios.CRTSCTS),
            "xon_xoff_output": bool(iflag & termios.IXON),
            "xon_xoff_input": bool(iflag & termios.IXOFF),
            "xon": characters[termios.VSTART][0],
            "xoff": characters[termios.VSTOP][0],
            "changes_bytes": bool(lflag & (termios.ICANON | termios.ECHO | termios.ISIG) or oflag & termios.OPOST
                                  or iflag & (termios.ICRNL | termios.INLCR | termios.IGNCR | termios.ISTRIP)),
        })

    def hangup(self):
        self.close()
        self.answer("ok")

    def close(self):
        self.outgoing.clear()
        for end in (self.master, self.slave):
            if end is not None:
                os.close(end)
        self.master = self.slave = None


class ComPorts:
    """COM ports of a Wine prefix, as links that each lead to the pseudo-terminal of the moment."""

    def __init__(self, script, prefix):
        self.script = script
        self.prefix = pathlib.Path(prefix).resolve()
        self.links = {name: self.prefix / "serial" / name for name in COM_PORTS}
        self.unused = list(COM_PORTS)
        if any(not os.path.lexists(self.device(name)) or os.readlink(self.device(name)) != str(link)
               for name, link in self.links.items()):
            self.register()

    def device(self, name):
        return self.prefix / "dosdevices" / name.lower()

    def register(self):
        """Names the ports in the registry, which Wine asks only when its server starts."""
        folder = self.prefix / "serial"
        folder.mkdir(parents=True, exist_ok=True)
        values = "".join(f'"{name}"="{link}"\n' for name, link in self.links.items())
        (folder / "ports.reg").write_text(
            f"REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Wine\\Ports]\n{values}", encoding="ascii")
        subprocess.run([self.script, "regedit", "/S", f"Z:{folder}/ports.reg"], stdin=subprocess.DEVNULL, check=True)
        environment = dict(os.environ, WINEPREFIX=str(self.prefix))
        for option in ("--kill", "--wait"):
            subprocess.run(["wineserver", option], env=environment, stdin=subprocess.DEVNULL, check=False)

    def lead_to(self, path):
        name = self.unused.pop(0)
        link = self.links[name]
        link.unlink(missing_ok=True)
        link.symlink_to(path)
        return name


def serve(listener, com_ports):
    while True:
        connection, _ = listener.accept()
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        line = Line(connection)
        greeting = {"port": line.path.removeprefix("/dev/"), "no_serial_port": "null"}
        if com_ports:
            greeting = {"port": com_ports.lead_to(line.path), "no_serial_port": "NUL"}
        threading.Thread(target=line.serve, args=[greeting], daemon=True).start()


def main():
    command = sys.argv[1:]
    com_ports = None
    if command[0] == "--wine":
        com_ports = ComPorts(*command[1:3])
        command = [command[1]] + command[3:]
    listener = socket.create_server(("127.0.0.1", 0))
    threading.Thread(target=serve, args=[listener, com_ports], daemon=True).start()
    environment = dict(os.environ, QUILON_SERIAL_HOST=str(listener.getsockname()[1]))
    return subprocess.run(command, env=environment, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
