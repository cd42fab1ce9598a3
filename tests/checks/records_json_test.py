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
        changed = json.loads(self.copy.read_text(encoding="utf-8"))
        self.assertEqual(changed["records"]["DocumentLine"]["fields"][6]["offset"], 116)

    def test_missing_file_is_stale(self):
        self.assertEqual(run_tool("--check", "--output", self.copy).returncode, 1)

    def test_changed_header_makes_the_committed_file_stale(self):
        self.replace_in_header("codes.h", "Record: Payment.", "Record: DocumentEnd.")
        self.assertEqual(run_tool("--check", "--include", self.include).returncode, 1)

    def test_new_record(self):
        self.replace_in_header("records/status.h", "/** The number of the printer's last error. */",
                               "/** Within. */\n"
                               "typedef struct Inner {\n/** One. */ char pad;\nint64_t big; /**< Two,\n * great. */\n"
                               "} Inner;\n"
                               "/** Around. */\n"
                               "typedef struct Outer { /** Eight. */ char names[8][65]; /** Two. */ Inner inner[2];\n"
                               "uint32_t reserved7; } Outer;\n/** The number of the printer's last error. */")
        result = self.make_from_changed_header()
        self.assertEqual((result.returncode, result.stdout), (0, ""))
        records = json.loads(self.copy.read_text())["records"]
        self.assertEqual(records["Inner"], {
            "size": 16, "align": 8, "comment": "Within.", "fields": [
                {"name": "pad", "type": "char", "offset": 0, "dims": [], "comment": "One."},
                {"name": "big", "type": "int64", "offset": 8, "dims": [], "comment": "Two, great."},
            ]})
        # 8 * 65 = 520 is a multiple of 8; two Inner take 32 bytes; 556 is rounded up to 560.
        self.assertEqual(records["Outer"], {
            "size": 560, "align": 8, "comment": "Around.", "fields": [
                {"name": "names", "type": "char", "offset": 0, "dims": [8, 65], "comment": "Eight."},
                {"name": "inner", "type": "Inner", "offset": 520, "dims": [2], "comment": "Two."},
                {"name": "reserved7", "type": "uint32", "offset": 552, "dims": [], "reserved": True,
                 "comment": "Neither read nor written."},
            ]})

    def test_field_record_code_or_function_without_a_comment(self):
        for header, old, new, name in (
                ("records/status.h", "/** The number of the error, 0 for none. */", "", "ErrorNumber.number"),
                ("records/status.h", "/** The number of the printer's last error. */", "", "ErrorNumber"),
                ("codes.h", "/** Asks with the byte DLE whether the printer is able to print.\n   *  Dir", "/** Dir",
                 "QUIL_SEND_DLE"),
                ("quilon.h", " * @param argument Any", " * @param parameter Any", "quil_init"),
                ("quilon.h", " * @return 1, also when", " * 1, also when", "quil_close")):
            with self.subTest(name=name):
                self.replace_in_header(header, old, new)
                result = self.make_from_changed_header()
                self.assertEqual(result.returncode, 1)
                self.assertIn(name + ":", result.stdout)
                shutil.copytree(ROOT / "include", self.include, dirs_exist_ok=True)

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


class InterfaceTest(unittest.TestCase):
    """What the committed file says beside records and codes, where it can be said in another way."""

    def setUp(self):
        self.interface = json.loads(RECORDS.read_text(encoding="utf-8"))

    def test_functions(self):
        functions = {function["name"]: function for function in self.interface["functions"]}
        self.assertEqual(len(functions), 14)
        ioctl = functions["quil_ioctrl"]
        self.assertEqual([(parameter["name"], parameter["type"]) for parameter in ioctl["parameters"]],
                         [("code", "int32_t"), ("data", "void*"), ("reserved", "void*"), ("flags", "uint32_t")])
        self.assertEqual(ioctl["result"]["type"], "int32_t")
        self.assertEqual(functions["quil_open_serial_ex"]["parameters"][0]["type"], "const SerialParams*")
        self.assertEqual(functions["quil_auto_test"]["parameters"], [])

    def test_flags_and_status_bytes(self):
        def values(name):
            return {entry["name"]: entry["value"] for entry in self.interface[name]}
        self.assertEqual(values("flags"), {"QUIL_CHECK_STATUS": 1, "QUIL_QUERY_ERROR": 2, "QUIL_COMPARE_TOTALS": 4})
        self.assertEqual(values("flow_control"), {"QUIL_FLOW_HARDWARE": 1, "QUIL_FLOW_XON_XOFF": 2})
        dle, enq = self.interface["status"]["dle"], self.interface["status"]["enq"]
        self.assertEqual((dle["request"], dle["lowest"], dle["highest"]), (0x10, 0x70, 0x77))
        self.assertEqual((enq["request"], enq["lowest"], enq["highest"]), (0x05, 0x60, 0x6F))
        self.assertEqual({bit["bit"]: bit["field"] for bit in dle["bits"]},
                         {2: "online", 1: "paper_out", 0: "printer_error"})
        self.assertEqual({bit["bit"]: bit["field"] for bit in enq["bits"]},
                         {3: "flag3", 2: "last_command_ok", 1: "flag1", 0: "flag0"})

    def test_errors(self):
        errors = {error["number"]: error["text"] for error in self.interface["errors"]}
        self.assertEqual(len(self.interface["errors"]), 152)
        self.assertEqual(len(errors), 152)
        self.assertEqual(errors[2], "Błąd  transmisji")
        self.assertEqual(errors[1028], "Błąd  danych w\npamieci fisk.")
        self.assertEqual(errors[1505], "Błędna suma kontrolna programu PF")


if __name__ == "__main__":
    unittest.main()
