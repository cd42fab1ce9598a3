#!/usr/bin/python3
"""Tests that the code people copy from the documents and the headers' comments is code.

C compiles as C99 and as C++20, JSON and shell parse. Every block of code in a document has a fence that names its
language: c, json, sh or text.
"""

import json
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The examples of docs/commands.md, which is made by a tool, are compiled by commands_md_test.py.
DOCUMENTS = sorted(
    path for path in ROOT.rglob("*.md")
    if not {"build", "node_modules", "commands.md"} & set(path.relative_to(ROOT).parts))
HEADERS = sorted((ROOT / "include").rglob("*.h"))

FENCED = re.compile(r"^```(.*)\n((?:.*\n)*?)```$", re.MULTILINE)
# Behind a blank line and no item of a list.
INDENTED = re.compile(r"(?<=\n\n) {4}\S.*")
IN_COMMENT = re.compile(r"(?<=^ \*\n)(?:^ \*     .*\n(?:^ \*\n(?=^ \*     ))?)+", re.MULTILINE)

# A record of which only some fields are named is zero in the others, and meant so.
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wno-missing-field-initializers", "-Werror"]
INCLUDES = '#include <stdio.h>\n#include "quilon/desk.h"\n#include "quilon/quilon.h"\n'
COMPILERS = (
    ("gcc", "c99", ".c"), ("g++", "c++20", ".cc"), ("clang", "c99", ".c"), ("clang++", "c++20", ".cc"),
    ("x86_64-w64-mingw32-gcc-posix", "c99", ".c"), ("x86_64-w64-mingw32-g++-posix", "c++20", ".cc"),
)


def fault_of_c(code):
    """What a compiler says of the code; a piece without includes is taken for the inside of a function."""
    if "#include" not in code:
        code = INCLUDES + "int main(void) {\n" + code + "}\n"
    for compiler, standard, suffix in COMPILERS:
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "user" + suffix)
            source.write_text(code, encoding="utf-8")
            result = subprocess.run(
                [compiler, f"-std={standard}", "-fsyntax-only", f"-I{ROOT}/include", f"-I{ROOT}/examples/tasks",
                 *WARNINGS, source],
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        if result.returncode != 0:
            return f"{compiler}, {standard}:\n{result.stdout}"
    return ""


def fault_of_sh(code):
    result = subprocess.run(["bash", "-n"], input=code, capture_output=True, text=True, check=False)
    named = re.findall(r"(?<![\w/])(?:scripts|tools)/\w+(?:\.py)?", code)
    missing = [name for name in named if not (ROOT / name).exists()]
    return result.stderr or "".join(f"there is no {name}\n" for name in missing)


def fault_of_json(code):
    try:
        json.loads(code)
    except json.JSONDecodeError as failure:
        return str(failure)
    return ""


CHECKS = {"c": fault_of_c, "sh": fault_of_sh, "json": fault_of_json, "text": lambda _: ""}


def faults_of_document(text):
    """What is wrong with the blocks of a document, a text each."""
    faults = []
    for language, code in FENCED.findall(text):
        if language not in CHECKS:
            faults.append(f"what language is {language!r}?\n{code}")
        elif fault := CHECKS[language](code):
            faults.append(f"{fault}\n{code}")
    rest = FENCED.sub("", text)
    return faults + [f"a block without a fence: {line}" for line in INDENTED.findall(rest)]


def code_in_comments(text):
    """The pieces of code in a header's comments: what stands four columns in."""
    return [re.sub(r"^ \*(?:     )?", "", piece, flags=re.MULTILINE) for piece in IN_COMMENT.findall(text)]


class CodeBlocks(unittest.TestCase):

    def test_documents(self):
        self.assertIn(ROOT / "README.md", DOCUMENTS)
        for document in DOCUMENTS:
            with self.subTest(document=document.relative_to(ROOT).as_posix()):
                self.assertEqual(faults_of_document(document.read_text(encoding="utf-8")), [])

    def test_comments_of_headers(self):
        found = 0
        for header in HEADERS:
            for code in code_in_comments(header.read_text(encoding="utf-8")):
                found += 1
                with self.subTest(header=header.relative_to(ROOT).as_posix(), code=code):
                    self.assertEqual(fault_of_c(code), "")
        self.assertGreater(found, 0)

    def test_pages_show_their_programs(self):
        result = subprocess.run(
            [ROOT / "tools/task_pages.py", "--check"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            check=False)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_sees_what_is_wrong(self):
        for document in (
            "```c\nint x = ;\n```\n",
            '```c\n#include "quilon/quilon.h"\nPayment p = {.number = 1, .amount = 2};\n```\n',  # fine in C only
            "```c\nDocumentEnd end = {.sum = 1};\n```\n",
            "```sh\nif true\n```\n",
            "```sh\nscripts/nothing --here\n```\n",
            "```json\n{'a': 1}\n```\n",
            "```\nplain\n```\n",
            "```perl\n1\n```\n",
            "text\n\n    indented\n",
        ):
            self.assertEqual(len(faults_of_document(document)), 1, document)

    def test_sees_what_is_right(self):
        document = (
            "```c\nPayment p = {.amount = 2, .number = 1};\n(void)p;\n```\n\n```sh\nscripts/test debug\n```\n\n"
            '```json\n{"a": 1}\n```\n\n```text\n  anything {\n```\n\n- item\n\n  more of it\n')
        self.assertEqual(faults_of_document(document), [])
        self.assertEqual(code_in_comments("/**\n * Text:\n *\n *     int a;\n *\n *     int b;\n *\n * More.\n */\n"),
                         ["int a;\n\nint b;\n"])


if __name__ == "__main__":
    unittest.main()
