#!/usr/bin/python3
"""Tests that clang-tidy runs again on whatever could change its verdict, and on nothing else."""

import contextlib
import io
import json
import os
import pathlib
import re
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import tidy  # noqa: E402

RULES = "Checks: '-*,clang-diagnostic-*,bugprone-branch-clone,google-runtime-int'\nWarningsAsErrors: '*'\n"
SOURCE = """\
#include <system.h>
#include "own.h"
#if __has_include("option.h")
#define OPTION 1
#endif
long f() { return g() + SYSTEM; }  // NOLINT(google-runtime-int)
"""
FILES = {
    "project/.clang-tidy": RULES,
    "project/src/a.cc": SOURCE,
    "project/include/own.h": "// A comment.\ninline int g() { return 2; }\n",
    "system/system.h": "#define SYSTEM 1\ninline long h() { return 3; }\n",
}


class TidyTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.tool = tidy.ClangTidy(pathlib.Path(folder.name))
        cls.identity = cls.tool.identity

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tool.identity = self.identity
        self.verdicts = tidy.Verdicts(self.folder / "verdicts")
        for name, text in FILES.items():
            self.write(name, text)

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def replace(self, name, old, new):
        text = (self.folder / name).read_text(encoding="utf-8")
        self.assertIn(old, text)
        self.write(name, text.replace(old, new))

    def run_tidy(self, project="project", flags=("",), tool=None):
        """Runs it on src/a.cc, compiled once with each of the flags; returns (checked, failed, what it printed)."""
        root = self.folder / project
        includes = f"-I{root} -I{root}/include -isystem {self.folder}/system"
        self.write(f"{project}/build/compile_commands.json", json.dumps([{
            "directory": f"{root}/build",
            "command": f"clang++ {includes} -Werror {flag} -std=c++20 -o a.o -c {root}/src/a.cc",
            "file": f"{root}/src/a.cc",
        } for flag in flags]))
        with contextlib.redirect_stdout(io.StringIO()) as output:
            failed = tidy.run(tool or self.tool, root, root / "build", self.verdicts)
        text = output.getvalue()
        last_line = text.splitlines()[-1]
        checked, counted = re.fullmatch(r"clang-tidy: \d+ files, (\d+) checked, (\d+) failed", last_line).groups()
        self.assertEqual(failed, int(counted))
        return int(checked), failed, text

    def assert_passes(self, checked, **options):
        self.assertEqual(self.run_tidy(**options)[:2], (checked, 0))

    def assert_fails(self, complaint, **options):
        """Fails, and fails again: only a good verdict is remembered."""
        for _ in range(2):
            checked, failed, text = self.run_tidy(**options)
            self.assertEqual((checked, failed), (1, 1), text)
            self.assertIn(complaint, text)

    def test_same_again(self):
        self.assert_passes(1)
        self.assert_passes(0)

    def test_clone_in_another_folder(self):
        self.assert_passes(1)
        for name in list(FILES):
            self.write(name.replace("project/", "elsewhere/clone/"), FILES[name])
        self.assert_passes(0, project="elsewhere/clone")

    def test_mended_file(self):
        self.replace("project/src/a.cc", "  // NOLINT(google-runtime-int)", "")
        self.assert_fails("[google-runtime-int")
        self.write("project/src/a.cc", SOURCE)
        self.assert_passes(1)

    def test_changed_comment(self):
        """The preprocessed text stays as it was."""
        self.assert_passes(1)
        self.replace("project/src/a.cc", "// NOLINT(google-runtime-int)", "// Nobody asked for it.")
        self.assert_fails("[google-runtime-int")

    def test_changed_comment_in_header(self):
        self.assert_passes(1)
        self.replace("project/include/own.h", "A comment", "Another comment")
        self.assert_passes(1)

    def test_finding_in_header(self):
        self.assert_passes(1)
        self.replace("project/include/own.h", "inline int", "inline long")
        self.assert_fails("include/own.h:2")

    def test_header_of_the_system(self):
        self.assert_passes(1)
        self.replace("system/system.h", "SYSTEM 1", "SYSTEM 2")
        self.assert_passes(1)

    def test_file_that_appears(self):
        self.assert_passes(1)
        self.write("project/include/option.h", "")
        self.assert_passes(1)

    def test_changed_rules(self):
        self.assert_passes(1)
        self.write("project/.clang-tidy", RULES.replace("bugprone-branch-clone", "misc-definitions-in-headers"))
        self.assert_passes(1)

    def test_rules_for_a_folder(self):
        self.assert_passes(1)
        self.write("project/src/.clang-tidy", "InheritParentConfig: true\nChecks: modernize-use-trailing-return-type\n")
        self.assert_fails("[modernize-use-trailing-return-type")

    def test_rules_for_the_folder_of_a_header(self):
        self.assert_passes(1)
        self.write("project/include/.clang-tidy", "InheritParentConfig: true\nChecks: readability-identifier-naming\n")
        self.assert_passes(1)

    def test_changed_flag(self):
        self.assert_passes(1)
        self.assert_passes(1, flags=["-DUNUSED=1"])

    def test_flags_of_two_targets(self):
        self.assert_passes(2, flags=["", "-DUNUSED=1"])
        self.assert_passes(0, flags=["", "-DUNUSED=1"])

    def test_same_flags_of_two_targets(self):
        self.assert_passes(1, flags=["", ""])

    def test_warning_of_the_compiler(self):
        self.replace("project/src/a.cc", "{ return", "{ int unused = 1; return")
        self.assert_passes(1)
        self.assert_fails("[clang-diagnostic-unused-variable", flags=["-Wunused-variable"])

    def test_file_that_does_not_preprocess(self):
        self.replace("project/src/a.cc", '"own.h"', '"gone.h"')
        self.assertIn("gone.h", self.run_tidy()[2])
        self.assertEqual(self.run_tidy()[:2], (0, 1))

    def test_another_clang_tidy(self):
        self.assert_passes(1)
        self.tool.identity += b"1"
        self.assert_passes(1)

    def test_file_edited_while_it_is_checked(self):
        """The verdict holds for neither text."""
        test = self

        class SlowTool:
            identity = self.identity

            def check(self, *_):
                test.write("project/src/a.cc", SOURCE + "// More.\n")
                return ""

        self.assert_passes(1, tool=SlowTool())
        self.assert_passes(1)
        self.write("project/src/a.cc", SOURCE)
        self.assert_passes(1)

    def test_build_folder_of_another_project(self):
        self.run_tidy()
        with self.assertRaises(SystemExit):
            tidy.run(self.tool, self.folder / "system", self.folder / "project/build", self.verdicts)

    def test_oldest_verdicts_are_forgotten(self):
        for age, key in enumerate(("new", "old", "older")):
            self.verdicts.add(key)
            os.utime(self.verdicts.folder / key, (1000 - age, 1000 - age))
        # What is asked for counts as new.
        self.assertTrue(self.verdicts.passed("older"))
        self.verdicts.forget_old(2)
        self.assertEqual([self.verdicts.passed(key) for key in ("new", "old", "older")], [True, False, True])


if __name__ == "__main__":
    unittest.main()
