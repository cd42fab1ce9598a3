#!/usr/bin/python3
"""Counts the test cases that a run of CTest passed, failed and skipped.

Prints "PASSED FAILED SKIPPED". A GoogleTest program counts by its cases, any
other test as one. A program that failed without naming a failed case (it
crashed, leaked or ran out of time) counts as one failed case more.
"""

import argparse
import pathlib
import sys
from xml.etree import ElementTree


def test_cases(path):
    """The test cases of an XML file, in which a message may show any bytes."""
    return ElementTree.fromstring(path.read_text(encoding="utf-8", errors="replace")).iter("testcase")


def read_cases(report):
    """The (passed, failed, skipped) cases of one GoogleTest report; one that was cut short is a failed case."""
    passed = failed = skipped = 0
    try:
        cases = list(test_cases(report))
    except ElementTree.ParseError:
        return 0, 1, 0
    for case in cases:
        if case.find("failure") is not None:
            failed += 1
        elif case.get("result") == "completed":
            passed += 1
        else:
            skipped += 1
    return passed, failed, skipped


def count_test(test, reports):
    """The (passed, failed, skipped) cases of one test of CTest."""
    status = test.get("status")
    report = reports / (test.get("name") + ".xml")
    if report.exists():
        passed, failed, skipped = read_cases(report)
        if status != "run" and failed == 0:
            failed = 1
        return passed, failed, skipped
    return {"run": (1, 0, 0), "disabled": (0, 0, 1)}.get(status, (0, 1, 0))


def count_run(junit, reports):
    """The (passed, failed, skipped) cases of a whole run."""
    return tuple(map(sum, zip((0, 0, 0), *(count_test(test, reports) for test in test_cases(junit)))))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("junit", type=pathlib.Path, help="what ctest --output-junit wrote")
    parser.add_argument("reports", type=pathlib.Path, help="folder of the GoogleTest reports")
    arguments = parser.parse_args()

    print(*count_run(arguments.junit, arguments.reports))


if __name__ == "__main__":
    sys.exit(main())
