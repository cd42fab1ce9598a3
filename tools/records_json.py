#!/usr/bin/python3
"""Makes docs/records.json: the layout of every record and the list of every code, read from the public header.

With --check nothing is written; the exit status says whether the file is up to date.
"""

import argparse
import json
import pathlib
import re
import sys

from clang import cindex

ROOT = pathlib.Path(__file__).resolve().parents[1]
SCALARS = {"int32_t": "int32", "uint32_t": "uint32", "int64_t": "int64", "char": "char"}
CODES_ENUM = "QuilCode"
CODE_COMMENT = re.compile(r"Direction: (send|read|local)\. Record: (\w+)\.")


class HeaderError(Exception):
    """The header does not keep the form that records and codes have."""


def parse_header(include):
    """The public header's declarations, in their order."""
    header = str(include / "quilon/quilon.h")
    arguments = ["-x", "c", "-std=c99", "--target=x86_64-linux-gnu", f"-I{include}"]
    unit = cindex.Index.create().parse(header, args=arguments)
    errors = [str(message) for message in unit.diagnostics if message.severity >= cindex.Diagnostic.Warning]
    if errors:
        raise HeaderError("\n".join(errors))
    return [
        cursor for cursor in unit.cursor.get_children()
        if cursor.location.file and pathlib.Path(cursor.location.file.name).is_relative_to(include)
    ]


def describe_field(record, field, records):
    where = f"{record.spelling}.{field.spelling}"
    if field.is_bitfield() or not field.spelling:
        raise HeaderError(f"{where}: bit fields and fields without a name have no place in a record")
    dims = []
    element = field.type
    while element.kind == cindex.TypeKind.CONSTANTARRAY:
        dims.append(element.element_count)
        element = element.element_type
    type_name = SCALARS.get(element.spelling) or (element.spelling if element.spelling in records else None)
    if type_name is None:
        raise HeaderError(f"{where}: {element.spelling} is no fixed-width integer, char or record declared before")
    description = {
        "name": field.spelling,
        "type": type_name,
        "offset": record.type.get_offset(field.spelling) // 8,
        "dims": dims,
    }
    if field.spelling.startswith("reserved"):
        description["reserved"] = True
    return description


def describe_records(declarations):
    records = {}
    for cursor in declarations:
        if cursor.kind == cindex.CursorKind.STRUCT_DECL and cursor.is_definition():
            records[cursor.spelling] = {
                "size": cursor.type.get_size(),
                "align": cursor.type.get_align(),
                "fields": [describe_field(cursor, field, records) for field in cursor.type.get_fields()],
            }
    return records


def describe_code(constant, records):
    comment = re.sub(r"[\s*/]+", " ", constant.raw_comment or "")
    match = CODE_COMMENT.search(comment)
    if match is None:
        raise HeaderError(f'{constant.spelling}: no "Direction: send|read|local. Record: Name|none." in its comment')
    direction, record = match.groups()
    if record != "none" and record not in records:
        raise HeaderError(f"{constant.spelling}: no record is called {record}")
    return {
        "code": constant.enum_value,
        "name": constant.spelling,
        "record": None if record == "none" else record,
        "direction": direction,
    }


def describe_codes(declarations, records):
    return [
        describe_code(constant, records) for cursor in declarations
        if cursor.kind == cindex.CursorKind.ENUM_DECL and cursor.spelling == CODES_ENUM
        for constant in cursor.get_children()
    ]


def format_records(records):
    """JSON with a line for each field."""
    texts = []
    for name, record in records.items():
        fields = ",\n".join("        " + json.dumps(field) for field in record["fields"])
        texts.append(f'    {json.dumps(name)}: {{\n      "size": {record["size"]},\n      "align": {record["align"]},\n'
                     f'      "fields": [\n{fields}\n      ]\n    }}')
    return ",\n".join(texts)


def make_json(include):
    declarations = parse_header(include)
    records = describe_records(declarations)
    codes = describe_codes(declarations, records)
    code_lines = ",\n".join("    " + json.dumps(code) for code in codes)
    return f'{{\n  "records": {{\n{format_records(records)}\n  }},\n  "codes": [\n{code_lines}\n  ]\n}}\n'


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true", help="only tell whether the file is up to date")
    parser.add_argument("--include", type=pathlib.Path, default=ROOT / "include", help="folder of quilon/quilon.h")
    parser.add_argument("--output", type=pathlib.Path, default=ROOT / "docs/records.json", help="the file to make")
    arguments = parser.parse_args()

    try:
        text = make_json(arguments.include.resolve())
    except HeaderError as error:
        print(error, file=sys.stderr)
        return 1
    if not arguments.check:
        arguments.output.write_text(text, encoding="utf-8")
    elif not arguments.output.exists() or arguments.output.read_text(encoding="utf-8") != text:
        print(f"{arguments.output} is stale: run tools/records_json.py", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
