#!/usr/bin/python3
"""Makes a C++ test that runs the examples of docs/commands.md on the virtual printer: a case a task.

    command_example_cases.py RECORDS_JSON CASES_CC
"""

import json
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
from interface import tasks  # noqa: E402  the path has to be known first

HEAD = """\
#include "tests/support/command_examples_test.h"

namespace quilon::testing {
namespace {
"""

FOOT = """
}  // namespace
}  // namespace quilon::testing
"""


def step_lines(step, codes):
    *declaration, call = tasks.example(step, codes[step["code"]])
    expression = call.rstrip(";").replace("NULL", "nullptr")
    return ["{", *declaration, f'EXPECT_EQ({expression}, {step["result"]}) << {step["code"]};', "}"]


def task_case(task, codes):
    name = "".join(word.capitalize() for word in re.findall(r"\w+", task["en"]))
    lines = [line for step in task["steps"] for line in step_lines(step, codes)]
    return f"\nTEST_F(CommandExamplesTest, {name}) {{\n" + "".join(f"  {line}\n" for line in lines) + "}\n"


def main():
    records_json, cases_cc = map(pathlib.Path, sys.argv[1:])
    interface = json.loads(records_json.read_text(encoding="utf-8"))
    codes = {code["code"]: code for code in interface["codes"]}
    cases = "".join(task_case(task, codes) for task in interface["tasks"])
    cases_cc.write_text(HEAD + cases + FOOT, encoding="utf-8")


if __name__ == "__main__":
    main()
