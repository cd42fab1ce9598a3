#!/usr/bin/python3
"""Makes docs/commands.md from docs/records.json: the commands by task, each with record, fields, refusals and example.

With --check nothing is written; the exit status says whether the file is up to date.
"""

import argparse
import json
import pathlib
import re
import sys
import textwrap

from interface import output, tasks

ROOT = pathlib.Path(__file__).resolve().parents[1]
WIDTH = 118

HEAD = """\
# Commands by task

Every command of `quil_ioctrl`, by what a shop wants to do (wszystkie rozkazy, według zadań sklepu). Made by
`tools/commands_md.py` from [records.json](records.json); the headers in [include/quilon](../include/quilon) say the
same.

*Virtual printer* tells what the [virtual printer](../printer/README.md) takes a command or a field for. That is a
reading, no statement about real printers: a real printer's own manual decides. Its [refusals](#refusals--odmowy) are
readings, too. The examples of a task run, in their order, against the virtual printer. (Odczyt drukarki wirtualnej nie
jest stwierdzeniem o drukarkach rzeczywistych.)
"""

REFUSALS = """\
## Refusals · Odmowy

The error numbers that the virtual printer refuses a command with, those called strict not with `--lenient`. The driver
knows more: [records.json](records.json).

| error | its text | when · kiedy |
|---|---|---|
"""


def wrap(text, first="", rest=""):
    return textwrap.fill(text, WIDTH, initial_indent=first, subsequent_indent=rest, break_long_words=False,
                         break_on_hyphens=False)


def both(reading):
    """A reading in English and Polish."""
    return f'{reading["en"]} · {reading["pl"]}'


def anchor(heading):
    """The fragment that a Markdown page gives to a heading."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def cell(text):
    return text.replace("|", "\\|").replace("\n", " ")


def type_of(field):
    return field["type"] + "".join(f"[{dim}]" for dim in field["dims"])


class Page:
    """The page while it is written: what was said once is referred to afterwards."""

    def __init__(self, interface):
        self.interface = interface
        self.codes = {code["code"]: code for code in interface["codes"]}
        self.errors = {error["number"]: error["text"].replace("\n", " ") for error in interface["errors"]}
        self.home_of_record = {}
        self.written = set()

    def heading(self, code):
        return f'{code["code"]} {code["name"]}'

    def link(self, code):
        return f'[{code["code"]}](#{anchor(self.heading(code))})'

    def errors_of(self, number):
        """The numbers that a command is refused with."""
        return sorted({row["error"] for row in self.interface["refusals"] if number in row.get("codes", [])})

    def error(self, number):
        return f"{number} „{self.errors[number]}”"

    def fields(self, code):
        """The table of a record's fields, the first time; what differs by code always."""
        record = self.interface["records"][code["record"]]
        home = self.home_of_record.setdefault(code["record"], code)
        own = code.get("field_readings", {})
        rows = []
        for field in record["fields"]:
            reading = own.get(field["name"]) or field.get("reading")
            if field.get("reserved") or (home is not code and field["name"] not in own):
                continue
            rows.append(f'| `{field["name"]}` | {type_of(field)} | {cell(field["comment"])} '
                        f'| {both(reading) if reading else ""} |\n')
        text = f'Record `{code["record"]}`'
        if home is not code:
            text += f", as for {self.link(home)}"
        if rows:
            text += ":\n\n| field | type | what it is | virtual printer |\n|---|---|---|---|\n" + "".join(rows)
        else:
            text += ".\n"
        return text

    def entry(self, step):
        code = self.codes[step["code"]]
        title = f"### {self.heading(code)}\n\n"
        if code["code"] in self.written:
            return ""
        self.written.add(code["code"])
        parts = []
        if "reading" in code:
            parts.append(f'*Virtual printer:* **{both(code["reading"])}**\n')
        parts.append(wrap(code["comment"].replace("\n", " ")) + "\n")
        if code["record"]:
            parts.append(self.fields(code))
        refusals = ", ".join(map(self.error, self.errors_of(code["code"])))
        if refusals:
            parts.append(wrap(f"[Refused](#refusals--odmowy) with {refusals}.") + "\n")
        parts.append("Example:\n\n" + "".join(f"    {line}\n" for line in wrapped_example(step, code)))
        return title + "\n".join(parts)

    def task(self, task):
        title = f'## {task["en"]} · {task["pl"]}\n\n'
        links = " → ".join(self.link(self.codes[step["code"]]) for step in task["steps"])
        text = title + wrap(f'({task["words"]})') + "\n\n" + wrap(f"In this order: {links}") + "\n"
        examples = self.changed_examples(task)
        if examples:
            text += "\nHere with\n\n" + examples
        entries = [entry for entry in map(self.entry, task["steps"]) if entry]
        return "\n".join([text] + entries)

    def changed_examples(self, task):
        """The examples of commands that this task uses in another way than their entry shows."""
        lines = []
        for step in task["steps"]:
            first = self.first_step(step["code"])
            if (step["record"], step["flags"]) != (first["record"], first["flags"]):
                lines += wrapped_example(step, self.codes[step["code"]])
        return "".join(f"    {line}\n" for line in lines)

    def first_step(self, number):
        return next(step for task in self.interface["tasks"] for step in task["steps"] if step["code"] == number)

    def contents(self):
        rows = []
        for task in self.interface["tasks"]:
            heading = f'{task["en"]} · {task["pl"]}'
            rows.append(f'| [{heading}](#{anchor(heading)}) | {task["words"]} |\n')
        return "| task · zadanie | see also · także |\n|---|---|\n" + "".join(rows)

    def refusals(self):
        rows = []
        for row in sorted(self.interface["refusals"], key=lambda row: row["error"]):
            when = both(row) if "codes" in row else f"any command, każdy rozkaz: {both(row)}"
            if row.get("strict"):
                when = f"*strict, w trybie ścisłym:* {when}"
            rows.append(f'| {row["error"]} | {self.errors[row["error"]]} | {when} |\n')
        return REFUSALS + "".join(rows)

    def text(self):
        parts = [HEAD, self.contents()] + [self.task(task) for task in self.interface["tasks"]] + [self.refusals()]
        return "\n".join(parts)


def wrapped_example(step, code):
    lines = []
    for line in tasks.example(step, code):
        lines += textwrap.wrap(line, WIDTH - 4, subsequent_indent="    ", break_long_words=False,
                               break_on_hyphens=False)
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--records", type=pathlib.Path, default=ROOT / "docs/records.json", help="what it is made from")
    output.add_arguments(parser, ROOT / "docs/commands.md")
    arguments = parser.parse_args()
    interface = json.loads(arguments.records.read_text(encoding="utf-8"))
    return output.write_or_check(Page(interface).text(), arguments)


if __name__ == "__main__":
    sys.exit(main())
