#!/usr/bin/python3
"""Tests what several programs with desks do to each other, and to one journal.

    programs_test.py CLIENT [LAUNCHER]      CLIENT is desk_client
"""

import json
import pathlib
import socket
import subprocess
import sys
import tempfile
import unittest

COMMAND = sys.argv[2:] + [sys.argv[1]]
PATIENCE = 60


def port_of_nobody():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Client:
    """A till; its opening is what it says first."""

    def __init__(self, folder, **more):
        settings = {"printer": {"tcp": {"address": "127.0.0.1", "port": port_of_nobody()}}, "journal": "journal",
                    "limits": {"reply_ms": 1, "closing_ms": 1}, **more}
        self.process = subprocess.Popen([*COMMAND, json.dumps(settings)], cwd=folder, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.opening = self._hear()

    def _hear(self):
        return json.loads(self.process.stdout.readline())

    def ask(self, order):
        self.process.stdin.write(order.encode() + b"\n")
        self.process.stdin.flush()
        return self._hear()

    def end(self):
        """The exit status of a program that is told to end."""
        self.process.stdin.close()
        self.process.stdout.close()
        return self.process.wait(PATIENCE)

    def kill(self):
        self.process.kill()
        self.end()


class ProgramsTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_a_journal_is_one_programs_only(self):
        first = Client(self.folder)
        self.assertEqual(first.opening, {"pending": []})
        second = Client(self.folder)
        self.assertEqual(second.opening["error"]["what"], "journal")
        self.assertIn("another program has the journal", second.opening["error"]["text"])
        self.assertEqual(second.end(), 1)
        # The first one did not notice.
        self.assertEqual(first.ask("pending"), {"pending": []})
        self.assertEqual(first.end(), 0)

    def test_a_program_that_was_killed_leaves_its_journal_free(self):
        Client(self.folder).kill()
        next_one = Client(self.folder)
        self.assertEqual(next_one.opening, {"pending": []})
        self.assertEqual(next_one.end(), 0)

    def test_a_profile_of_ones_own_is_used(self):
        usual = pathlib.Path(__file__).resolve().parents[2] / "profiles/virtual-printer.json"
        profile = json.loads(usual.read_text(encoding="utf-8"))
        profile["name"] = "of our own"
        pathlib.Path(self.folder, "profile.json").write_text(json.dumps(profile), encoding="utf-8")
        client = Client(self.folder, profile="profile.json")
        self.assertEqual(client.ask("status")["profile"], "of our own")
        client.end()

    def test_a_profile_with_an_unknown_counter_is_refused(self):
        usual = pathlib.Path(__file__).resolve().parents[2] / "profiles/virtual-printer.json"
        profile = json.loads(usual.read_text(encoding="utf-8"))
        profile["counters"]["receipt"] = "Identity.colour"
        pathlib.Path(self.folder, "profile.json").write_text(json.dumps(profile), encoding="utf-8")
        client = Client(self.folder, profile="profile.json")
        self.assertEqual(client.opening["error"]["path"], "/profile")
        self.assertEqual(client.end(), 1)

    def test_the_log_is_kept_where_it_is_told(self):
        log = pathlib.Path(self.folder, "log")
        log.mkdir()
        client = Client(self.folder, log="log")
        client.ask("status")
        client.end()
        self.assertTrue(list(log.iterdir()))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
