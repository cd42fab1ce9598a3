#!/usr/bin/python3
"""Tests that the project's C++ is written in one way, and that the check sees what is not."""

import pathlib
import tempfile
import unittest

import dialect

ROOT = pathlib.Path(__file__).resolve().parents[2]


class DialectTest(unittest.TestCase):

    def faults_of(self, text):
        with tempfile.TemporaryDirectory() as root:
            pathlib.Path(root, "a.cc").write_text(text, encoding="utf-8")
            return dialect.find_faults(root)

    def test_project(self):
        self.assertEqual(dialect.find_faults(ROOT), [])

    def test_the_way_of_the_project(self):
        text = "enum class E : uint8_t {};\ntemplate <typename T, size_t kCount>\nclass C;\n"
        self.assertEqual(self.faults_of(text), [])

    def test_integers_of_std(self):
        for name in ("std::int32_t", "std::uint8_t", "std::size_t", "std::uintptr_t"):
            fault = f"a.cc:2: {name}: the project writes this without std::"
            self.assertEqual(self.faults_of(f"\n{name} a;\n"), [fault])

    def test_class_in_a_template(self):
        self.assertEqual(
            self.faults_of("template <int kCount, class T>\n"),
            ["a.cc:1: template <int kCount, class: the project writes this with typename"])


if __name__ == "__main__":
    unittest.main()
