#!/usr/bin/python3
"""Counts how many record fields and codes say what they are for, by their name or at least by their comment.

    saying_names.py [REVISION...]

Without a revision it counts those of the working tree; --list names those that say nothing. A name says nothing when it
only tells a place or a type ("integer3", "text2", "first_parameter"), or for a code its mnemonic. A comment says
something when it holds a reading of the virtual printer, or a word beside those of place, type and sending.
"""

import argparse
import pathlib
import re
import subprocess
import tempfile

from interface import headers

ROOT = pathlib.Path(__file__).resolve().parents[1]

PLACES = ("first second third fourth fifth sixth last trailing leading short long optional tail raw header "
          "closing").split()
TYPES = "integer number text amount value parameter field flag".split()
PLACE_NAME = re.compile(rf"(({'|'.join(PLACES)})_)?({'|'.join(TYPES)})s?\d*(_[a-z]\d?)?|count_[a-z]")
MNEMONIC = re.compile(r"QUIL_(SEND_|READ_|SET_)?(DOLLAR|HASH|CARET|AT|EXCLAMATION|QUESTION)_|QUIL_(SEND|READ|SET)_"
                      r"(INFO_\d+|LOG|PROC|PMD|SERW|USB|CERT|EMF|EDB|EPNG|EPAR(_COMMON)?)$")
# Words of comments that tell only where something stands, of which type it is and when it is sent.
EMPTY_WORDS = {*PLACES, *TYPES, *(word + "s" for word in TYPES)} | set("""
    a all also and answer any are as at be before behind below between both but by characters code command converted
    conversion counts counted cr cut decimal dropped each eight eighteen eighth eleven eleventh empty end entries entry
    five form four frame from has have hundredths if in is it its line list lists many
    mnemonic most nine nineteen ninth no none not nothing of on one only or other others otherwise place plain
    position printer read reads record same self-test self-test's send sends sent seven seventh six sixteen so start
    takes ten tenth than that the their them then there these they this those three times to twelve twenty two under
    until up use used uses was what whatever when which whole with without
    """.split())


def has_meaning(comment):
    words = re.sub(r'"[^"]*"|`[^`]*`', " ", comment).lower()
    return any(word not in EMPTY_WORDS for word in re.findall(r"[a-z0-9_'-]*[a-z][a-z0-9_'-]*", words))


def fields_of(interface):
    """Each field with what says something about it: its name, its comment, or the codes of its record."""
    readings = {name: [code.get("field_readings", {}) for code in interface["codes"] if code["record"] == name]
                for name in interface["records"]}
    for name, record in interface["records"].items():
        for field in record["fields"]:
            if field.get("reserved"):
                continue
            by_code = readings[name] and all(field["name"] in told for told in readings[name])
            yield (f'{name}.{field["name"]}', not PLACE_NAME.fullmatch(field["name"]),
                   "reading" in field or by_code or has_meaning(field["comment"]))


def codes_of(interface):
    for code in interface["codes"]:
        yield (f'{code["code"]} {code["name"]}', not MNEMONIC.match(code["name"]),
               "reading" in code or "field_readings" in code)


def include_of(revision, folder):
    """The headers of a revision, in a folder."""
    archive = subprocess.run(["git", "-C", ROOT, "archive", revision, "include"], stdout=subprocess.PIPE, check=True)
    subprocess.run(["tar", "-x", "-C", folder], input=archive.stdout, check=True)
    return pathlib.Path(folder, "include")


def count(title, things, show):
    things = list(things)
    by_name = [name for name, name_says, _ in things if not name_says]
    silent = [name for name, name_says, comment_says in things if not name_says and not comment_says]
    print(f"  {title}: {len(things)}, the name says nothing: {len(by_name)}, the comment neither: {len(silent)}")
    for name in silent if show else []:
        print(f"    {name}")


def report(title, include, show):
    declarations = headers.parse_header(include)
    records = headers.describe_records(declarations)
    interface = {"records": records, "codes": headers.describe_codes(declarations, records)}
    print(title)
    count("fields", fields_of(interface), show)
    count("codes", codes_of(interface), show)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("revisions", nargs="*", metavar="REVISION")
    parser.add_argument("--list", action="store_true", help="names those that say nothing")
    arguments = parser.parse_args()
    for revision in arguments.revisions:
        with tempfile.TemporaryDirectory() as folder:
            report(revision, include_of(revision, folder), arguments.list)
    if not arguments.revisions:
        report("working tree", ROOT / "include", arguments.list)


if __name__ == "__main__":
    main()
