#!/usr/bin/python3
"""Tests what several programs with desks do to each other, and to one journal.

    programs_test.py CLIENT [LAUNCHER]      CLIENT is desk_client
"""

import json
import pathlib
import sys
import tempfile
import unittest

from desk_process import Client, no_printer

COMMAND = sys.argv[2:] + [sys.argv[1]]


def client(folder, **more):
    return Client(COMMAND, folder, {
        "printer": no_printer(), "journal": "journal", "limits": {"reply_ms": 1, "closing_ms": 1}, **more})


class ProgramsTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_a_journal_is_one_programs_only(self):
        first = client(self.folder)
        self.assertEqual(first.opening, {"pending": []})
        second = client(self.folder)
        self.assertEqual(second.opening["error"]["what"], "journal")
        self.assertIn("another program has the journal", second.opening["error"]["text"])
        self.assertEqual(second.end(), 1)
        # The first one did not notice.
        self.assertEqual(first.ask("pending"), {"pending": []})
        self.assertEqual(first.end(), 0)

    def test_a_program_that_was_killed_leaves_its_journal_free(self):
        client(self.folder).kill()
        next_one = client(self.folder)
        self.assertEqual(next_one.opening, {"pending": []})
        self.assertEqual(next_one.end(), 0)

    def test_a_profile_of_ones_own_is_used(self):
        usual = pathlib.Path(__file__).resolve().parents[2] / "profiles/virtual-printer.json"
        profile = json.loads(usual.read_text(encoding="utf-8"))
        profile["name"] = "of our own"
        pathlib.Path(self.folder, "profile.json").write_text(json.dumps(profile), encoding="utf-8")
        till = client(self.folder, profile="profile.json")
        self.assertEqual(till.ask("status")["profile"], "of our own")
        till.end()

    def test_a_profile_with_an_unknown_counter_is_refused(self):
        usual = pathlib.Path(__file__).resolve().parents[2] / "profiles/virtual-printer.json"
        profile = json.loads(usual.read_text(encoding="utf-8"))
        profile["counters"]["receipt"] = "Identity.colour"
        pathlib.Path(self.folder, "profile.json").write_text(json.dumps(profile), encoding="utf-8")
        till = client(self.folder, profile="profile.json")
        self.assertEqual(till.opening["error"]["path"], "/profile")
        self.assertEqual(till.end(), 1)

    def test_the_log_is_kept_where_it_is_told(self):
        log = pathlib.Path(self.folder, "log")
        log.mkdir()
        till = client(self.folder, log="log")
        till.ask("status")
        till.end()
        self.assertTrue(list(log.iterdir()))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
