#!/usr/bin/python3
"""Puts the programs of examples/tasks/ into their pages in docs/tasks/.

    task_pages.py            rewrites the pages whose program changed
    task_pages.py --check    only names them, and fails when there are any

The first C block of a page is its program. The paper and the output below it are written by hand: the test of the
examples compares them with what the virtual printer prints.
"""

import argparse
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
CODE = re.compile(r"(?<=^```c\n).*?(?=^```$)", re.MULTILINE | re.DOTALL)


def programs():
    """The example programs; till.c is what they share."""
    return sorted(path for path in (ROOT / "examples/tasks").glob("*.c") if path.stem != "till")


def page_of(program):
    return ROOT / "docs/tasks" / (program.stem.replace("_", "-") + ".md")


def with_code(page, code):
    """The text of a page with this code for its first C block."""
    text, count = CODE.subn(lambda _: code, page, count=1)
    if count == 0:
        raise ValueError("there is no C block")
    return text


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true", help="change nothing")
    arguments = parser.parse_args()

    status = 0
    for program in programs():
        page = page_of(program)
        old = page.read_text(encoding="utf-8")
        new = with_code(old, program.read_text(encoding="utf-8"))
        if new != old and arguments.check:
            print(f"{page.relative_to(ROOT)} shows an older {program.name}: run tools/task_pages.py")
            status = 1
        elif new != old:
            page.write_text(new, encoding="utf-8")
    return status


if __name__ == "__main__":
    sys.exit(main())
