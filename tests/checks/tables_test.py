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

HEADER = pathlib.Path(__file__).resolve().parents[2] / "include/quilon/quilon.h"

# The compiler's own runtime is linked in.
LINUX_LIBRARIES = {"libc.so.6", "libm.so.6", "ld-linux-x86-64.so.2"}
SANITIZER = re.compile(r"lib(asan|ubsan|tsan)\.so\.\d+")
WINDOWS_LIBRARIES = {"kernel32.dll", "ws2_32.dll", "msvcrt.dll"}


def declared_functions():
    return sorted(re.findall(r"^QUILON_API\s[\w\s*]*?\b(\w+)\(", HEADER.read_text(encoding="utf-8"), re.MULTILINE))


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def elf_exports(library):
    """Every name that the library defines for others, with its version if it has one."""
    return sorted(line.split()[-1] for line in run("nm", "--dynamic", "--defined-only", library).splitlines())


def elf_needed(library):
    return re.findall(r"^\s+NEEDED\s+(\S+)$", run("objdump", "--private-headers", library), re.MULTILINE)


def pe_headers(library):
    return run("x86_64-w64-mingw32-objdump", "--private-headers", library)


def pe_exports(library):
    table = pe_headers(library).partition("[Ordinal/Name Pointer] Table")[2]
    return sorted(re.findall(r"^\t\[ *\d+\] (\S+)$", table, re.MULTILINE))


def pe_imports(library):
    return [name.lower() for name in re.findall(r"^\tDLL Name: (\S+)$", pe_headers(library), re.MULTILINE)]


def import_library_functions(library):
    symbols = run("x86_64-w64-mingw32-nm", "--defined-only", library)
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
        self.assertEqual(elf_exports(self.library), declared_functions())

    def test_needs_the_system_only(self):
        needed = elf_needed(self.library)
        self.assertIn("libc.so.6", needed)
        if any(SANITIZER.match(name) for name in needed):
            self.skipTest("a sanitizer brings libraries of its own")
        self.assertEqual(set(needed) - LINUX_LIBRARIES, set())

    def test_a_further_export_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            library = folder + "/library.so"
            subprocess.run(["gcc", "-shared", "-fPIC", "-xc", "-", "-o", library], check=True, text=True,
                           input="int quil_init; void stray(void) {} static void hidden(void) {} void (*p)(void) = hidden;")
            self.assertEqual(elf_exports(library), ["p", "quil_init", "stray"])


@unittest.skipUnless(sys.argv[1].endswith(".dll"), "for Windows")
class WindowsTest(unittest.TestCase):
    library = sys.argv[1]

    def test_exports(self):
        self.assertEqual(pe_exports(self.library), declared_functions())

    def test_imports_the_system_only(self):
        imports = pe_imports(self.library)
        self.assertIn("kernel32.dll", imports)
        self.assertEqual(set(imports) - WINDOWS_LIBRARIES, set())

    def test_import_library(self):
        self.assertEqual(import_library_functions(sys.argv[2]), declared_functions())

    def test_a_further_export_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            library = folder + "/library.dll"
            subprocess.run(["x86_64-w64-mingw32-gcc-posix", "-shared", "-xc", "-", "-o", library, "-luser32"],
                           check=True, text=True,
                           input="int __stdcall MessageBeep(unsigned); void stray(void) { MessageBeep(0); }")
            self.assertEqual(pe_exports(library), ["stray"])
            self.assertIn("user32.dll", pe_imports(library))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
