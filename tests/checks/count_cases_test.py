#!/usr/bin/python3
"""Tests how the cases of a test run are counted: nothing that failed may be lost."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import count_cases  # noqa: E402

PASSED = '<testcase status="run" result="completed"/>'
FAILED = '<testcase status="run" result="completed"><failure message="1 is not 2 \xe9"/></testcase>'
SKIPPED = '<testcase status="run" result="skipped"/>'
DISABLED = '<testcase status="notrun" result="suppressed"/>'


class CountCasesTest(unittest.TestCase):

    def count(self, statuses, reports):
        """Counts tests of the given CTest statuses, with the cases of those that left a report."""
        with tempfile.TemporaryDirectory() as folder:
            junit = pathlib.Path(folder, "ctest.xml")
            tests = "".join(f'<testcase name="{name}" status="{status}"/>' for name, status in statuses.items())
            junit.write_text(f"<testsuite>{tests}</testsuite>", encoding="utf-8")
            for name, cases in reports.items():
                first, rest = cases[0], "".join(cases[1:])
                report = f"<testsuites><testsuite>{first}</testsuite><testsuite>{rest}</testsuite></testsuites>"
                pathlib.Path(folder, name + ".xml").write_text(report, encoding="latin-1")
            return count_cases.count_run(junit, pathlib.Path(folder))

    def test_no_tests(self):
        self.assertEqual(self.count({}, {}), (0, 0, 0))

    def test_cases_of_all_programs_add_up(self):
        self.assertEqual(
            self.count({"a": "run", "b": "fail"}, {"a": [PASSED, PASSED, SKIPPED], "b": [PASSED, FAILED, DISABLED]}),
            (3, 1, 2))

    def test_program_that_fails_after_its_last_case(self):
        self.assertEqual(self.count({"a": "fail"}, {"a": [PASSED, PASSED]}), (2, 1, 0))

    def test_program_that_crashes_without_a_report(self):
        self.assertEqual(self.count({"a": "fail", "b": "run"}, {"b": [PASSED]}), (1, 1, 0))

    def test_report_that_was_cut_short(self):
        self.assertEqual(self.count({"a": "run", "b": "fail"}, {"a": ["<testcase"], "b": ["<testcase"]}), (0, 2, 0))

    def test_program_that_does_not_exist(self):
        self.assertEqual(self.count({"a": "notrun"}, {}), (0, 1, 0))

    def test_others_than_programs_count_once(self):
        self.assertEqual(self.count({"a": "run", "b": "fail", "c": "disabled"}, {}), (1, 1, 1))


if __name__ == "__main__":
    unittest.main()
