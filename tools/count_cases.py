#!/usr/bin/python3
"""Counts the test cases that a run of CTest passed, failed and skipped.

Prints "PASSED FAILED SKIPPED". A GoogleTest program counts by its cases, any
other test as one. A program that failed without naming a failed case (it
crashed, leaked or ran out of time) counts as one failed case more.
"""

import argparse
import json
import pathlib
import sys
import xml.etree.ElementTree


def read_cases(report):
    """The (passed, failed, skipped) cases of one GoogleTest report."""
    passed = failed = skipped = 0
    for suite in json.loads(report.read_text())["testsuites"]:
        for case in suite["testsuite"]:
            if case["status"] != "RUN" or case["result"] == "SKIPPED":
                skipped += 1
            elif case.get("failures"):
                failed += 1
            else:
                passed += 1
    return passed, failed, skipped


def count_test(test, reports):
    """The (passed, failed, skipped) cases of one test of CTest."""
    status = test.get("status")
    report = reports / (test.get("name") + ".json")
    if report.exists():
        passed, failed, skipped = read_cases(report)
        if status != "run" and failed == 0:
            failed = 1
        return passed, failed, skipped
    return {"run": (1, 0, 0), "disabled": (0, 0, 1)}.get(status, (0, 1, 0))


def count_run(junit, reports):
    """The (passed, failed, skipped) cases of a whole run."""
    tests = xml.etree.ElementTree.parse(junit).iter("testcase")
    return tuple(map(sum, zip((0, 0, 0), *(count_test(test, reports) for test in tests))))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("junit", type=pathlib.Path, help="what ctest --output-junit wrote")
    parser.add_argument("reports", type=pathlib.Path, help="folder of the GoogleTest reports")
    arguments = parser.parse_args()

    print(*count_run(arguments.junit, arguments.reports))


if __name__ == "__main__":
    sys.exit(main())
