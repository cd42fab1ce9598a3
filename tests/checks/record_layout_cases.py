#!/usr/bin/python3
"""Makes a C++ test that compares docs/records.json with what the compiler lays out: a case a record, one for all codes.

    record_layout_cases.py RECORDS_JSON CASES_CC
"""

import json
import pathlib
import sys

CXX_TYPES = {"int32": "std::int32_t", "uint32": "std::uint32_t", "int64": "std::int64_t", "char": "char"}

HEAD = """\
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "quilon/quilon.h"

namespace {
"""

FOOT = """
}  // namespace
"""


def field_checks(record, field):
    element = CXX_TYPES.get(field["type"], field["type"])
    dims = "".join(f"[{dim}]" for dim in field["dims"])
    yield f"EXPECT_EQ(offsetof({record}, {field['name']}), {field['offset']}U);"
    yield f"EXPECT_TRUE((std::is_same_v<decltype({record}::{field['name']}), {element}{dims}>));"


def record_case(name, record):
    lines = [f"EXPECT_EQ(sizeof({name}), {record['size']}U);", f"EXPECT_EQ(alignof({name}), {record['align']}U);"]
    for field in record["fields"]:
        lines += field_checks(name, field)
    return f"\nTEST(RecordLayout, {name}) {{\n" + "".join(f"  {line}\n" for line in lines) + "}\n"


def codes_case(codes):
    lines = [f"  EXPECT_EQ({code['name']}, {code['code']});\n" for code in codes]
    return "\nTEST(RecordLayout, Codes) {\n" + "".join(lines) + "}\n"


def main():
    records_json, cases_cc = map(pathlib.Path, sys.argv[1:])
    interface = json.loads(records_json.read_text(encoding="utf-8"))
    cases = [record_case(name, record) for name, record in interface["records"].items()]
    cases_cc.write_text(HEAD + "".join(cases) + codes_case(interface["codes"]) + FOOT, encoding="utf-8")


if __name__ == "__main__":
    main()
