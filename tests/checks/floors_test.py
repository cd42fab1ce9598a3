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
                "src/log/log.cc":
                    '#include "src/log/log.h"\n#include "src/platform/clock.h"\n#include "quilon/quilon.h"\n',
            }), [])

    def test_upper_floor(self):
        self.assertEqual(
            self.faults_of({"src/comm/comm.h": "", "src/log/log.cc": '#include "src/comm/comm.h"\n'}),
            ["src/log/log.cc must not include src/comm/comm.h"])

    def test_upper_floor_in_a_line_with_blanks(self):
        self.assertEqual(
            self.faults_of({"src/api/table.h": "", "src/commands/a.cc": '  #  include "src/api/table.h"\n'}),
            ["src/commands/a.cc must not include src/api/table.h"])

    def test_the_two_lowest_floors_keep_apart(self):
        self.assertEqual(
            self.faults_of({"src/platform/clock.h": "", "src/text/text.cc": '#include "src/platform/clock.h"\n'}),
            ["src/text/text.cc must not include src/platform/clock.h"])

    def test_unknown_folder(self):
        self.assertEqual(self.faults_of({"src/misc/a.cc": ""}), ["src/misc/a.cc stands on no floor"])

    def test_unknown_file(self):
        self.assertEqual(
            self.faults_of({"src/log/a.cc": '#include "no.h"\n'}),
            ['src/log/a.cc includes "no.h", which is no path in the repository'])

    def test_file_named_by_half_its_path(self):
        self.assertEqual(
            self.faults_of({"src/log/a.h": "", "src/log/a.cc": '#include "log/a.h"\n#include "a.h"\n'}), [
                'src/log/a.cc includes "log/a.h", which is no path in the repository',
                'src/log/a.cc includes "a.h", which is no path in the repository',
            ])

    def test_circle(self):
        self.assertEqual(
            self.faults_of({
                "src/log/a.h": '#include "src/log/b.h"\n',
                "src/log/b.h": '#include "src/log/c.h"\n',
                "src/log/c.h": '#include "src/log/a.h"\n',
            }), ["circle of includes: src/log/a.h -> src/log/b.h -> src/log/c.h -> src/log/a.h"])

    def test_printer_is_independent(self):
        self.assertEqual(
            self.faults_of({
                "src/text/text.h": "",
                "include/quilon/codes.h": "",
                "printer/a.cc": '#include "src/text/text.h"\n#include <quilon/codes.h>\n',
            }), [
                "printer/a.cc must not include src/text/text.h",
                "printer/a.cc must not include include/quilon/codes.h",
            ])

    def test_example_needs_the_public_header_only(self):
        self.assertEqual(
            self.faults_of({"src/text/text.h": "", "examples/a.c": '#include "src/text/text.h"\n'}),
            ["examples/a.c must not include src/text/text.h"])

    def test_floors_of_the_printer(self):
        self.assertEqual(
            self.faults_of({
                "printer/fiscal/books.h": "",
                "printer/commands/table.h": '#include "printer/fiscal/books.h"\n',
                "printer/watch/json.h": "",
                "printer/wire/a.cc": '#include "printer/commands/table.h"\n#include "printer/watch/json.h"\n',
                "printer/fiscal/a.cc": '#include "printer/commands/table.h"\n',
                "printer/printer.h": '#include "printer/watch/json.h"\n',
                "printer/posix/a.cc": '#include "printer/watch/json.h"\n',
                "printer/misc/a.cc": "",
            }), [
                "printer/fiscal/a.cc must not include printer/commands/table.h",
                "printer/misc/a.cc stands on no floor",
                "printer/wire/a.cc must not include printer/watch/json.h",
            ])

    def test_what_the_readme_calls_pure(self):
        impure = "#include <thread>\n#include <boost/asio.hpp>\nauto now = std::chrono::system_clock::now();\n"
        self.assertEqual(
            self.faults_of({
                "printer/README.md": "Text.\n\n`protocol/` and `fiscal/` are pure: no threads.\n",
                "printer/protocol/a.cc": "#include <string>\n#include <chrono>\n#include <nlohmann/json.hpp>\n",
                "printer/fiscal/a.cc": impure,
                "printer/commands/a.cc": impure,
            }), [
                "printer/fiscal/a.cc is pure and must not include <thread>",
                "printer/fiscal/a.cc is pure and must not include <boost/asio.hpp>",
                "printer/fiscal/a.cc is pure and must not use system_clock::now",
            ])

    def test_the_printer_has_pure_floors(self):
        readme = (ROOT / "printer/README.md").read_text(encoding="utf-8")
        self.assertEqual(floors.pure_folders(readme), ["printer/protocol", "printer/fiscal", "printer/commands"])

    def test_question_for_the_system(self):
        question = "#ifdef _WIN32\n#endif\n"
        self.assertEqual(
            self.faults_of({
                "include/quilon/quilon.h": question,
                "src/platform/a.cc": question,
                "printer/wire/a.cc": question,
                "src/log/a.cc": question,
                "tests/a.cc": question,
            }), [
                "printer/wire/a.cc asks for the system with _WIN32",
                "src/log/a.cc asks for the system with _WIN32",
                "tests/a.cc asks for the system with _WIN32",
            ])

    def test_header_of_the_system(self):
        self.assertEqual(
            self.faults_of({
                "src/platform/posix/a.cc": "#include <sys/socket.h>\n",
                "printer/wire/win32/a.cc": "#include <windows.h>\n",
                "printer/wire/a.cc": "#include <windows.h>\n#include <boost/asio/write.hpp>\n",
                "src/comm/a.cc": "#include <sys/socket.h>\n#include <cstdint>\n",
            }), [
                "printer/wire/a.cc includes <windows.h>, a header of the system",
                "src/comm/a.cc includes <sys/socket.h>, a header of the system",
            ])


if __name__ == "__main__":
    unittest.main()
