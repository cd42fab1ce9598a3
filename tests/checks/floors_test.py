#!/usr/bin/python3
"""Tests that the project's includes keep the floors, and that the check sees what breaks them."""

import pathlib
import tempfile
import unittest

import floors

ROOT = pathlib.Path(__file__).resolve().parents[2]


class FloorsTest(unittest.TestCase):

    def faults_of(self, files):
        """The faults of a tree made of {name: text}."""
        with tempfile.TemporaryDirectory() as root:
            for name, text in files.items():
                path = pathlib.Path(root, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return floors.find_faults(root)

    def test_project(self):
        self.assertEqual(floors.find_faults(ROOT), [])

    def test_project_is_looked_at(self):
        tree = floors.Tree(ROOT)
        self.assertIn("include/quilon/codes.h", tree.includes["include/quilon/quilon.h"])

    def test_lower_floor_own_floor_and_public_header_are_fine(self):
        self.assertEqual(
            self.faults_of({
                "include/quilon/quilon.h": "",
                "src/platform/clock.h": "",
                "src/log/log.h": "#include <string>\n",
                "src/log/log.cc": '#include "log/log.h"\n#include "platform/clock.h"\n#include "quilon/quilon.h"\n',
            }), [])

    def test_upper_floor(self):
        self.assertEqual(
            self.faults_of({"src/comm/comm.h": "", "src/log/log.cc": '#include "comm/comm.h"\n'}),
            ["src/log/log.cc must not include src/comm/comm.h"])

    def test_upper_floor_by_full_path(self):
        self.assertEqual(
            self.faults_of({"src/api/table.h": "", "src/commands/a.cc": '  #  include "src/api/table.h"\n'}),
            ["src/commands/a.cc must not include src/api/table.h"])

    def test_the_two_lowest_floors_keep_apart(self):
        self.assertEqual(
            self.faults_of({"src/platform/clock.h": "", "src/text/text.cc": '#include "platform/clock.h"\n'}),
            ["src/text/text.cc must not include src/platform/clock.h"])

    def test_unknown_folder(self):
        self.assertEqual(self.faults_of({"src/misc/a.cc": ""}), ["src/misc/a.cc stands on no floor"])

    def test_unknown_file(self):
        self.assertEqual(
            self.faults_of({"src/log/a.cc": '#include "no.h"\n'}),
            ['src/log/a.cc includes "no.h", which is no file of the project'])

    def test_circle(self):
        self.assertEqual(
            self.faults_of({
                "src/log/a.h": '#include "log/b.h"\n',
                "src/log/b.h": '#include "log/c.h"\n',
                "src/log/c.h": '#include "log/a.h"\n',
            }), ["circle of includes: src/log/a.h -> src/log/b.h -> src/log/c.h -> src/log/a.h"])

    def test_printer_is_independent(self):
        self.assertEqual(
            self.faults_of({
                "src/text/text.h": "",
                "include/quilon/codes.h": "",
                "printer/a.cc": '#include "text/text.h"\n#include <quilon/codes.h>\n',
            }), [
                "printer/a.cc must not include src/text/text.h",
                "printer/a.cc must not include include/quilon/codes.h",
            ])

    def test_example_needs_the_public_header_only(self):
        self.assertEqual(
            self.faults_of({"src/text/text.h": "", "examples/a.c": '#include "text/text.h"\n'}),
            ["examples/a.c must not include src/text/text.h"])

    def test_question_for_the_system(self):
        question = "#ifdef _WIN32\n#endif\n"
        self.assertEqual(
            self.faults_of({
                "include/quilon/quilon.h": question,
                "src/platform/a.cc": question,
                "printer/platform.cc": question,
                "src/log/a.cc": question,
                "tests/a.cc": question,
            }), ["src/log/a.cc asks for the system with _WIN32", "tests/a.cc asks for the system with _WIN32"])

    def test_printer_has_one_file_for_the_system(self):
        question = "#ifdef _WIN32\n#endif\n"
        self.assertEqual(
            self.faults_of({"printer/a.cc": question, "printer/b.cc": question}),
            ["more than one file of the printer asks for the system: printer/a.cc, printer/b.cc"])

    def test_header_of_the_system(self):
        self.assertEqual(
            self.faults_of({
                "src/platform/a.cc": "#include <windows.h>\n",
                "src/comm/a.cc": "#include <sys/socket.h>\n#include <cstdint>\n",
            }), ["src/comm/a.cc includes <sys/socket.h>, a header of the system"])


if __name__ == "__main__":
    unittest.main()
