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
    if status == "run":
        return 1, 0, 0
    if status in ("notrun", "disabled") and test.find("failure") is None:
        return 0, 0, 1
    return 0, 1, 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("junit", type=pathlib.Path, help="what ctest --output-junit wrote")
    parser.add_argument("reports", type=pathlib.Path, help="folder of the GoogleTest reports")
    arguments = parser.parse_args()

    total = [0, 0, 0]
    for test in xml.etree.ElementTree.parse(arguments.junit).iter("testcase"):
        for index, count in enumerate(count_test(test, arguments.reports)):
            total[index] += count
    print(*total)


if __name__ == "__main__":
    sys.exit(main())
