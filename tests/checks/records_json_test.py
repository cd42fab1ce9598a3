#!/usr/bin/python3
"""Tests that docs/records.json is up to date, and that its tool notices when it is not."""

import json
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RECORDS = ROOT / "docs/records.json"


def run_tool(*arguments):
    return subprocess.run(["/usr/bin/python3", ROOT / "tools/records_json.py", *arguments],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


class RecordsJsonTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.copy = pathlib.Path(folder.name, "records.json")
        self.include = pathlib.Path(folder.name, "include")
        shutil.copytree(ROOT / "include", self.include)

    def replace_in_header(self, name, old, new):
        path = self.include / "quilon" / name
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def make_from_changed_header(self):
        return run_tool("--include", self.include, "--output", self.copy)

    def test_committed_file_is_up_to_date(self):
        result = run_tool("--check")
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_changed_copy_is_stale(self):
        text = RECORDS.read_text(encoding="utf-8")
        self.assertIn('"offset": 112', text)
        self.copy.write_text(text.replace('"offset": 112', '"offset": 116', 1), encoding="utf-8")
        result = run_tool("--check", "--output", self.copy)
        self.assertEqual(result.returncode, 1)
        self.assertIn("is stale", result.stdout)
        self.assertEqual(json.loads(self.copy.read_text())["records"]["DocumentLine"]["fields"][6]["offset"], 116)

    def test_missing_file_is_stale(self):
        self.assertEqual(run_tool("--check", "--output", self.copy).returncode, 1)

    def test_changed_header_makes_the_committed_file_stale(self):
        self.replace_in_header("codes.h", "Record: Payment.", "Record: DocumentEnd.")
        self.assertEqual(run_tool("--check", "--include", self.include).returncode, 1)

    def test_new_record(self):
        self.replace_in_header("records/status.h", "/** The number of the printer's last error. */",
                               "typedef struct Inner { char pad; int64_t big; } Inner;\n"
                               "typedef struct Outer { char names[8][65]; Inner inner[2]; uint32_t reserved7; } Outer;")
        result = self.make_from_changed_header()
        self.assertEqual((result.returncode, result.stdout), (0, ""))
        records = json.loads(self.copy.read_text())["records"]
        self.assertEqual(records["Inner"], {
            "size": 16, "align": 8, "fields": [
                {"name": "pad", "type": "char", "offset": 0, "dims": []},
                {"name": "big", "type": "int64", "offset": 8, "dims": []},
            ]})
        # 8 * 65 = 520 is a multiple of 8; two Inner take 32 bytes; 556 is rounded up to 560.
        self.assertEqual(records["Outer"], {
            "size": 560, "align": 8, "fields": [
                {"name": "names", "type": "char", "offset": 0, "dims": [8, 65]},
                {"name": "inner", "type": "Inner", "offset": 520, "dims": [2]},
                {"name": "reserved7", "type": "uint32", "offset": 552, "dims": [], "reserved": True},
            ]})

    def test_code_without_direction(self):
        self.replace_in_header("codes.h", "Direction: send.", "Sends.")
        result = self.make_from_changed_header()
        self.assertEqual(result.returncode, 1)
        self.assertIn("QUIL_SEND_DLE", result.stdout)

    def test_code_with_unknown_record(self):
        self.replace_in_header("codes.h", "Record: DleStatus.", "Record: NoSuchRecord.")
        result = self.make_from_changed_header()
        self.assertEqual(result.returncode, 1)
        self.assertIn("NoSuchRecord", result.stdout)

    def test_field_of_another_type(self):
        self.replace_in_header("records/status.h", "int32_t number;", "int number;")
        result = self.make_from_changed_header()
        self.assertEqual(result.returncode, 1)
        self.assertIn("ErrorNumber.number", result.stdout)

    def test_header_that_does_not_compile(self):
        self.replace_in_header("records/status.h", "int32_t number;", "int33_t number;")
        self.assertEqual(self.make_from_changed_header().returncode, 1)
        self.assertFalse(self.copy.exists())


if __name__ == "__main__":
    unittest.main()
