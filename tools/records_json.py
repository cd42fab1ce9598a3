#!/usr/bin/python3
"""Makes docs/records.json, the public interface as data: records, codes, functions, flags, status bytes, error texts,
tasks, and what the virtual printer takes commands and fields for.

It is read from the public headers, docs/readings.json, tools/interface/tasks.json and the driver's table of errors.
With --check nothing is written; the exit status says whether the file is up to date.
"""

import argparse
import json
import pathlib
import sys

from interface import errors, headers, output, readings, tasks

ROOT = pathlib.Path(__file__).resolve().parents[1]


def describe(include):
    """The whole interface."""
    interface = headers.describe_interface(include)
    heard = readings.load(ROOT / "docs/readings.json")
    faults = readings.apply(interface, heard)
    interface["errors"] = errors.read_errors(ROOT / "src/protocol/error_table.cc")
    faults += readings.add_refusals(interface, heard)
    faults += tasks.add_tasks(interface)
    if faults:
        raise headers.HeaderError("\n".join(faults))
    return interface


def dump(value):
    return json.dumps(value, ensure_ascii=False)


def format_list(name, entries, indent="  "):
    """A list with a line for each entry."""
    lines = ",\n".join(f"{indent}  {dump(entry)}" for entry in entries)
    return f"{indent}{dump(name)}: [\n{lines}\n{indent}]"


def format_record(name, record):
    head = "".join(f"      {dump(key)}: {dump(record[key])},\n" for key in ("size", "align", "comment"))
    return f'    {dump(name)}: {{\n{head}{format_list("fields", record["fields"], "      ")}\n    }}'


def format_interface(interface):
    records = ",\n".join(format_record(name, record) for name, record in interface["records"].items())
    parts = [f'  "records": {{\n{records}\n  }}']
    for name, value in interface.items():
        if isinstance(value, list):
            parts.append(format_list(name, value))
        elif name != "records":
            entries = ",\n".join(f"    {dump(key)}: {dump(entry)}" for key, entry in value.items())
            parts.append(f"  {dump(name)}: {{\n{entries}\n  }}")
    return "{\n" + ",\n".join(parts) + "\n}\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--include", type=pathlib.Path, default=ROOT / "include", help="folder of quilon/quilon.h")
    output.add_arguments(parser, ROOT / "docs/records.json")
    arguments = parser.parse_args()

    try:
        interface = describe(arguments.include.resolve())
    except headers.HeaderError as error:
        print(error, file=sys.stderr)
        return 1
    return output.write_or_check(format_interface(interface), arguments)


if __name__ == "__main__":
    sys.exit(main())
