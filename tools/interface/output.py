"""Writes a made file, or tells whether it is up to date."""

import pathlib
import sys


def add_arguments(parser, output):
    parser.add_argument("--check", action="store_true", help="only tell whether the file is up to date")
    parser.add_argument("--output", type=pathlib.Path, default=output, help="the file to make")


def write_or_check(text, arguments):
    """Returns the exit status: 1 for a file that was to be checked and is stale."""
    output = arguments.output
    if not arguments.check:
        output.write_text(text, encoding="utf-8")
    elif not output.exists() or output.read_text(encoding="utf-8") != text:
        print(f"{output} is stale: run tools/{pathlib.Path(sys.argv[0]).name}", file=sys.stderr)
        return 1
    return 0
