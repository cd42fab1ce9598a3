#!/usr/bin/python3
"""Tests that docs/commands.md is up to date, that a shop finds its tasks in it, and that its examples compile."""

import json
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMMANDS = ROOT / "docs/commands.md"
RECORDS = ROOT / "docs/records.json"

# What a shop would look for, in English and Polish, and a code that must stand where it is found.
SEARCHES = {
    "daily": 100, "raport dobowy": 100, "periodic": 103, "raport okresowy": 103, "shift": 101, "zmian": 101,
    "receipt": 200, "paragon": 200, "invoice": 300, "faktur": 300, "discount": 201, "rabat": 201, "surcharge": 201,
    "narzut": 201, "cancel": 203, "anulowan": 203, "cashier": 500, "kasjer": 500, "tax rate": 9, "ptu": 9, "vat": 9,
    "card": 208, "kart": 208, "cash": 207, "gotówk": 207, "drawer": 400, "szuflad": 400, "display": 401,
    "wyświetlacz": 401, "pay in": 112, "wpłat": 112, "pay out": 113, "wypłat": 113, "clock": 12, "zegar": 12,
    "logo": 34,
    "status": 2, "stan drukarki": 2, "error": 10, "błęd": 10, "deposit": 217, "kaucj": 217, "non-fiscal": 600,
    "niefiskaln": 600, "utf-8": 801, "polskie znaki": 801,
}

C = ["gcc", "-std=c99", "-xc"]
CXX = ["g++", "-std=c++20", "-xc++"]


def run_tool(*arguments):
    return subprocess.run(["/usr/bin/python3", ROOT / "tools/commands_md.py", *arguments],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


class CommandsMdTest(unittest.TestCase):

    def setUp(self):
        self.text = COMMANDS.read_text(encoding="utf-8")

    def sections(self, level):
        """The text below each heading of a level, by the heading."""
        pieces = re.split(rf"^{'#' * level} (.*)$", self.text, flags=re.MULTILINE)
        return dict(zip(pieces[1::2], pieces[2::2]))

    def examples(self):
        """Each example of the page, as it stands there."""
        return [re.sub(r"^    ", "", block, flags=re.MULTILINE)
                for block in re.findall(r"(?:^    .*\n)+", self.text, re.MULTILINE)]

    def test_committed_file_is_up_to_date(self):
        result = run_tool("--check")
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_other_records_make_it_stale(self):
        with tempfile.TemporaryDirectory() as folder:
            changed = pathlib.Path(folder, "records.json")
            changed.write_text(RECORDS.read_text(encoding="utf-8").replace("daily report", "yearly report"),
                               encoding="utf-8")
            result = run_tool("--check", "--records", changed)
        self.assertEqual(result.returncode, 1)
        self.assertIn("is stale", result.stdout)

    def test_every_code_has_one_entry(self):
        codes = json.loads(RECORDS.read_text(encoding="utf-8"))["codes"]
        headings = re.findall(r"^### (.*)$", self.text, re.MULTILINE)
        self.assertEqual(sorted(headings), sorted(f'{code["code"]} {code["name"]}' for code in codes))
        for heading, text in self.sections(3).items():
            self.assertIn("Example:", text, heading)

    def test_tasks_are_found(self):
        tasks = self.sections(2)
        contents = re.findall(r"^\| \[(.*)\]\(#.*\) \| (.*) \|$", self.text, re.MULTILINE)
        for words, code in SEARCHES.items():
            with self.subTest(words=words):
                found = [heading for heading, more in contents if words in f"{heading} {more}".lower()]
                self.assertTrue(any(f"[{code}](#" in tasks[heading] for heading in found), found)

    def test_links_lead_to_headings(self):
        anchors = {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
                   for heading in re.findall(r"^#+ (.*)$", self.text, re.MULTILINE)}
        links = set(re.findall(r"\]\(#([^)]*)\)", self.text))
        self.assertGreater(len(links), 149)
        self.assertEqual(links - anchors, set())

    def test_examples_compile(self):
        examples = self.examples()
        self.assertGreaterEqual(len(examples), 149)
        bodies = "".join("  {\n" + example + "  }\n" for group in examples for example in
                         re.split(r"(?<=\);\n)(?=.)", group))
        program = '#include "quilon/quilon.h"\nvoid run(void);\nvoid run(void) {\n' + bodies + "}\n"
        for compiler in (C, CXX):
            with self.subTest(compiler=compiler):
                result = subprocess.run(
                    compiler + ["-Wall", "-Wextra", "-Wpedantic", "-Wno-missing-field-initializers", "-Werror",
                                "-fsyntax-only", f"-I{ROOT / 'include'}", "-"],
                    input=program.replace("NULL", "0"), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                    check=False)
                self.assertEqual(result.stdout, "")


if __name__ == "__main__":
    unittest.main()
