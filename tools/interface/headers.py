"""Reads the public headers: records, codes, functions, flags, and the bits of the status bytes."""

import pathlib
import re

from clang import cindex

from interface.comments import take_apart

SCALARS = {"int32_t": "int32", "uint32_t": "uint32", "int64_t": "int64", "char": "char"}
STATUS_RANGE = re.compile(r"a byte 0x([0-9A-F]{2}) to 0x([0-9A-F]{2})")
STATUS_BIT = re.compile(r"\bbit (\d) of the answer", re.IGNORECASE)


class HeaderError(Exception):
    """The headers do not keep the form that the interface has."""


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


def commented(cursor, where):
    comment = take_apart(cursor.raw_comment)
    if not comment.text:
        raise HeaderError(f"{where}: has no comment")
    return comment


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
        description["comment"] = take_apart(field.raw_comment).text or "Neither read nor written."
        return description
    comment = commented(field, where)
    description["comment"] = comment.text
    if comment.readings:
        description["reading"] = comment.readings[""]
    return description


def describe_records(declarations):
    records = {}
    for cursor in declarations:
        if cursor.kind == cindex.CursorKind.STRUCT_DECL and cursor.is_definition():
            records[cursor.spelling] = {
                "size": cursor.type.get_size(),
                "align": cursor.type.get_align(),
                "comment": commented(cursor, cursor.spelling).text,
                "fields": [describe_field(cursor, field, records) for field in cursor.type.get_fields()],
            }
    return records


def constants_of(declarations, enum):
    return [
        constant for cursor in declarations
        if cursor.kind == cindex.CursorKind.ENUM_DECL and cursor.spelling == enum
        for constant in cursor.get_children()
    ]


def describe_code(constant, records):
    comment = take_apart(constant.raw_comment)
    if not comment.direction:
        raise HeaderError(f'{constant.spelling}: no "Direction: send|read|local. Record: Name|none." in its comment')
    if comment.record != "none" and comment.record not in records:
        raise HeaderError(f"{constant.spelling}: no record is called {comment.record}")
    description = {
        "code": constant.enum_value,
        "name": constant.spelling,
        "record": None if comment.record == "none" else comment.record,
        "direction": comment.direction,
        "comment": commented(constant, constant.spelling).text,
    }
    readings = dict(comment.readings)
    if "" in readings:
        description["reading"] = readings.pop("")
    if readings:
        description["field_readings"] = readings
    return description


def describe_codes(declarations, records):
    return [describe_code(constant, records) for constant in constants_of(declarations, "QuilCode")]


def describe_values(declarations, enum):
    """The constants of an enumeration that are no codes."""
    return [
        {"name": constant.spelling, "value": constant.enum_value,
         "comment": commented(constant, constant.spelling).text}
        for constant in constants_of(declarations, enum)
    ]


def c_type(type_):
    return type_.spelling.replace(" *", "*")


def describe_function(cursor):
    comment = commented(cursor, cursor.spelling)
    parameters = list(cursor.get_arguments())
    if [parameter.spelling for parameter in parameters] != list(comment.parameters):
        raise HeaderError(f"{cursor.spelling}: its comment does not name each parameter, in their order")
    if not comment.result:
        raise HeaderError(f"{cursor.spelling}: its comment does not tell what it returns")
    return {
        "name": cursor.spelling,
        "comment": comment.text,
        "parameters": [
            {"name": parameter.spelling, "type": c_type(parameter.type),
             "comment": comment.parameters[parameter.spelling]} for parameter in parameters
        ],
        "result": {"type": c_type(cursor.result_type), "comment": comment.result},
    }


def describe_functions(declarations):
    return [describe_function(cursor) for cursor in declarations if cursor.kind == cindex.CursorKind.FUNCTION_DECL]


def describe_status_byte(request, record, records):
    """A byte that is asked for, the range of its answers, and the record's fields that its bits fill."""
    lowest, highest = STATUS_RANGE.search(records[record]["comment"]).groups()
    bits = []
    for field in records[record]["fields"]:
        match = STATUS_BIT.search(field["comment"])
        if match:
            bits.append({"bit": int(match[1]), "field": field["name"]})
    return {"request": request, "lowest": int(lowest, 16), "highest": int(highest, 16), "record": record, "bits": bits}


def describe_interface(include):
    """All that the headers say, in the form of docs/records.json; readings are still English texts."""
    declarations = parse_header(include)
    records = describe_records(declarations)
    return {
        "records": records,
        "codes": describe_codes(declarations, records),
        "functions": describe_functions(declarations),
        "flags": describe_values(declarations, "QuilFlag"),
        "flow_control": describe_values(declarations, "QuilFlowControl"),
        "status": {
            "dle": describe_status_byte(0x10, "DleStatus", records),
            "enq": describe_status_byte(0x05, "EnqStatus", records),
        },
    }
