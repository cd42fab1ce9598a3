#!/usr/bin/python3
"""Tests that docs/readings.json and the public headers give the virtual printer the same readings, both ways."""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
import saying_names  # noqa: E402  the path has to be known first
from interface import headers, readings  # noqa: E402  the path has to be known first

READINGS = ROOT / "docs/readings.json"


class ReadingsTest(unittest.TestCase):

    def faults(self, change_readings=lambda heard: None, header=None, old="", new=""):
        """What differs, after a change of the readings or of one header."""
        heard = readings.load(READINGS)
        change_readings(heard)
        with tempfile.TemporaryDirectory() as folder:
            include = pathlib.Path(folder, "include")
            shutil.copytree(ROOT / "include", include)
            if header:
                path = include / "quilon" / header
                text = path.read_text(encoding="utf-8")
                self.assertIn(old, text)
                path.write_text(text.replace(old, new, 1), encoding="utf-8")
            interface = headers.describe_interface(include)
        return readings.apply(interface, heard)

    def test_headers_and_readings_agree(self):
        self.assertEqual(self.faults(), [])

    def test_reading_of_a_code_that_only_one_of_them_has(self):
        expected = ["QUIL_HASH_R: the headers say None, the readings daily report."]
        self.assertEqual(self.faults(header="codes.h",
                                     old="   *  Virtual printer: daily report.\n", new=""), expected)
        end = "   *  Direction: local. Record: none. */\n  QUIL_NOTHING"
        self.assertEqual(self.faults(header="codes.h", old=end, new="   *  Virtual printer: nap.\n" + end),
                         ["QUIL_NOTHING: the headers say nap., the readings None"])

    def test_reading_of_a_field_that_only_one_of_them_has(self):
        self.assertEqual(self.faults(lambda heard: heard["fields"].pop("HashR.parameter1")),
                         ["HashR.parameter1: the headers say day., the readings None"])
        self.assertEqual(self.faults(lambda heard: heard["fields"].pop("QUIL_READ_CLOCK.numbers")),
                         ["QUIL_READ_CLOCK.numbers: the headers say year, month, day, hour, minute, second., "
                          "the readings None"])
        self.assertEqual(self.faults(lambda heard: heard["fields"].update({"HashR.nothing": {"en": "x", "pl": "y"}})),
                         ["HashR.nothing: there is a reading, but no such code or field"])

    def test_other_words(self):
        self.assertEqual(self.faults(header="codes.h", old="*  Virtual printer: daily report.",
                                     new="*  Virtual printer: Daily report."),
                         ["QUIL_HASH_R: the headers say Daily report., the readings daily report."])

    def test_code_with_two_readings(self):
        def change(heard):
            heard["commands"].append({"command": "?", "en": "nap", "pl": "drzemka", "codes": [100, 94]})
        self.assertEqual(self.faults(change), ["QUIL_HASH_R: has two readings, daily report and nap",
                                               "?: no code is 94"])

    def test_readings_are_told_once_and_in_both_languages(self):
        heard = json.loads(READINGS.read_text(encoding="utf-8"))
        commands = [row["command"] for row in heard["commands"]]
        self.assertEqual(len(commands), len(set(commands)))
        for entry in [*heard["commands"], *heard["fields"].values(), *heard["refusals"]]:
            for language in ("en", "pl"):
                self.assertRegex(entry[language], r"^[^.?]*(\d[.]\d[^.?]*)?[?]?$")
                self.assertTrue(entry[language].strip("?"))

    def test_the_printer_is_described_with_every_number_and_its_rules(self):
        readme = (ROOT / "printer/README.md").read_text(encoding="utf-8")
        head = "| number | the driver says | a command is refused with it when |\n|---|---|---|\n"
        table = readme.partition(head)[2].partition("\n\n")[0]
        described = [[cell.strip() for cell in row.split("|")[1:-1]] for row in table.splitlines()]
        errors = json.loads((ROOT / "docs/records.json").read_text(encoding="utf-8"))["errors"]
        self.assertEqual([row[:2] for row in described],
                         [[str(error["number"]), " ".join(error["text"].split())] for error in errors])
        rules = {}
        for row in json.loads(READINGS.read_text(encoding="utf-8"))["refusals"]:
            rules.setdefault(row["error"], []).append(("strict: " if row.get("strict") else "") + row["en"])
        for number, _, when in described:
            if not when.startswith("only by order: "):
                self.assertEqual(when.split("; "), rules.pop(int(number)))
        self.assertEqual(rules, {})
        self.assertIn(f"{sum(not row[2].startswith('only by order') for row in described)} are raised by rules", readme)

    def test_every_code_says_what_it_is_for(self):
        interface = headers.describe_interface(ROOT / "include")
        self.assertEqual([name for name, by_name, by_comment in saying_names.codes_of(interface)
                          if not by_name and not by_comment], [])

    def test_names_are_counted(self):
        self.assertFalse(saying_names.has_meaning("Second parameter, sent also when empty."))
        self.assertFalse(saying_names.has_meaning('In hundredths; sent behind `price`, as "x" is.'))
        self.assertTrue(saying_names.has_meaning("Price of one unit, in hundredths."))
        for name in ("integer3", "number1", "text2", "amounts1", "field", "parameter7", "first_parameter", "texts_c"):
            self.assertTrue(saying_names.PLACE_NAME.fullmatch(name), name)
        for name in ("price", "total", "quantity_text", "name_number", "line_count"):
            self.assertFalse(saying_names.PLACE_NAME.fullmatch(name), name)
        run = subprocess.run(["/usr/bin/python3", ROOT / "tools/saying_names.py"], stdout=subprocess.PIPE, text=True,
                             check=True)
        self.assertRegex(run.stdout, r"fields: \d+, the name says nothing: \d+, the comment neither: \d+")


if __name__ == "__main__":
    unittest.main()
