#!/usr/bin/python3
"""Tests what the built library exports and what it needs from the system.

    tables_test.py LIBRARY [IMPORT_LIBRARY]

LIBRARY is libquilon.so or quilon.dll; the exports must be the functions that
the public header declares, no more and no less.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from binaries import PE_TOOLS, exports, needed_libraries, run

HEADER = pathlib.Path(__file__).resolve().parents[2] / "include/quilon/quilon.h"

# The compiler's own runtime is linked in.
LINUX_LIBRARIES = {"libc.so.6", "libm.so.6", "ld-linux-x86-64.so.2"}
SANITIZER = re.compile(r"lib(asan|ubsan|tsan)\.so\.\d+")
WINDOWS_LIBRARIES = {"kernel32.dll", "ws2_32.dll", "msvcrt.dll"}


def declared_functions():
    return sorted(re.findall(r"^QUILON_API\s[\w\s*]*?\b(\w+)\(", HEADER.read_text(encoding="utf-8"), re.MULTILINE))


def import_library_functions(library):
    symbols = run(PE_TOOLS + "nm", "--defined-only", library)
    return sorted(set(re.findall(r" T (\S+)$", symbols, re.MULTILINE)))


class HeaderTest(unittest.TestCase):

    def test_declares_fourteen_functions(self):
        functions = declared_functions()
        self.assertEqual(len(functions), 14)
        self.assertTrue(all(name.startswith("quil_") for name in functions), functions)


@unittest.skipUnless(sys.argv[1].endswith(".so"), "for Linux")
class LinuxTest(unittest.TestCase):
    library = sys.argv[1]

    def test_exports(self):
        self.assertEqual(exports(self.library), declared_functions())

    def test_needs_the_system_only(self):
        needed = needed_libraries(self.library)
        self.assertIn("libc.so.6", needed)
        if any(SANITIZER.match(name) for name in needed):
            self.skipTest("a sanitizer brings libraries of its own")
        self.assertEqual(needed - LINUX_LIBRARIES, set())

    def test_a_further_export_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            library = folder + "/library.so"
            subprocess.run(["gcc", "-shared", "-fPIC", "-xc", "-", "-o", library], check=True, text=True,
                           input="int quil_init; void stray(void) {} "
                                 "static void hidden(void) {} void (*p)(void) = hidden;")
            self.assertEqual(exports(library), ["p", "quil_init", "stray"])


@unittest.skipUnless(sys.argv[1].endswith(".dll"), "for Windows")
class WindowsTest(unittest.TestCase):
    library = sys.argv[1]

    def test_exports(self):
        self.assertEqual(exports(self.library), declared_functions())

    def test_imports_the_system_only(self):
        imports = needed_libraries(self.library)
        self.assertIn("kernel32.dll", imports)
        self.assertEqual(imports - WINDOWS_LIBRARIES, set())

    def test_import_library(self):
        self.assertEqual(import_library_functions(sys.argv[2]), declared_functions())

    def test_a_further_export_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            library = folder + "/library.dll"
            subprocess.run([PE_TOOLS + "gcc-posix", "-shared", "-xc", "-", "-o", library, "-luser32"],
                           check=True, text=True,
                           input="int __stdcall MessageBeep(unsigned); void stray(void) { MessageBeep(0); }")
            self.assertEqual(exports(library), ["stray"])
            self.assertIn("user32.dll", needed_libraries(library))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
