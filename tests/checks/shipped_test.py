#!/usr/bin/python3
"""Tests how the files that ship are made: hardening, needed versions, debug information, size.

    shipped_test.py LIBRARY PROGRAM DESK

LIBRARY is libquilon.so or quilon.dll, PROGRAM is quilon-printer or quilon-printer.exe, DESK is libquilon-desk.so or
quilon-desk.dll, all from a release build.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import zlib

from binaries import PE_TOOLS, elf_imports, exports, is_pe, needed_libraries, run, section, symbols, tool

ROOT = pathlib.Path(__file__).resolve().parents[2]
README = (ROOT / "README.md").read_text(encoding="utf-8")

LIBRARY, PROGRAM, DESK = sys.argv[1:4]
# A function of each file, and how its definition in the sources begins.
FUNCTIONS = {LIBRARY: ("quil_init", "int32_t quil_init("), PROGRAM: ("main", "int main("),
             DESK: ("quil_desk_close", "void quil_desk_close(")}
DESK_FUNCTIONS = ["quil_desk_" + name for name in (
    "close", "free", "learn", "open", "pending", "print", "resolve", "status")]

LARGEST_LIBRARY = {".so": 310_000, ".dll": 380_000}

LINUX_LIBRARIES = {"libc.so.6", "libm.so.6", "ld-linux-x86-64.so.2"}
WINDOWS_LIBRARIES = {"kernel32.dll", "msvcrt.dll", "ws2_32.dll"}
# The program alone: sockets of Asio, the compiler's own start of the stack protector.
WINDOWS_PROGRAM_LIBRARIES = WINDOWS_LIBRARIES | {"advapi32.dll", "mswsock.dll"}
# The desk stands upon the library.
DESK_LIBRARIES = {"libquilon.so", "libsqlite3.so.0", "quilon.dll", "advapi32.dll"}


def elf_faults(path):
    """What an attacker would like about a file for Linux."""
    dump = run("readelf", "--wide", "--file-header", "--segments", "--dynamic", path)
    segments = re.findall(r"^ +([A-Z_]+) +(?:0x[0-9a-f]+ +){5}([RWE ]{3})", dump, re.MULTILINE)
    flags = dict(segments)
    imports = elf_imports(path)
    checks = {
        "no position-independent code": re.search(r"Type: +DYN", dump),
        "the stack is executable": flags.get("GNU_STACK") == "RW ",
        "a segment is writable and executable": all(not {"W", "E"} <= set(flag) for _, flag in segments),
        "the linker's tables stay writable": "GNU_RELRO" in flags and "BIND_NOW" in dump and
        re.search(r"FLAGS_1.*\bNOW\b", dump),
        "no stack protector": "__stack_chk_fail" in imports,
        "no checked copies": any(re.fullmatch(r"__(?!stack).*_chk", name) for name in imports),
        # But for the folder that it lies in itself.
        "a folder to look for libraries in": set(re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", dump)) <= {"$ORIGIN"},
        "code that is written to when loaded": "(TEXTREL)" not in dump,
        "symbols": not section(".symtab", path) and ".symtab" not in run("readelf", "--wide", "--sections", path),
    }
    return [fault for fault, good in checks.items() if not good]


def pe_faults(path):
    """What an attacker would like about a file for Windows."""
    headers = run(PE_TOOLS + "objdump", "--private-headers", path)
    characteristics = headers.partition("DllCharacteristics")[2].partition("SizeOfStackReserve")[0]
    base = int(re.search(r"^ImageBase\t+([0-9a-f]+)", headers, re.MULTILINE).group(1), 16)
    sections = run(PE_TOOLS + "objdump", "--wide", "--section-headers", path).splitlines()
    checks = {
        "data can be executed": "NX_COMPAT" in characteristics,
        "always the same address": "DYNAMIC_BASE" in characteristics,
        "few addresses": "HIGH_ENTROPY_VA" in characteristics and base > 1 << 32,
        "cannot be moved": "relocations stripped" not in headers and section(".reloc", path),
        "a section is writable and executable": all("CODE" not in line or "READONLY" in line for line in sections),
        "symbols": "symbols stripped" in headers,
    }
    return [fault for fault, good in checks.items() if not good]


def debug_faults(path, function, definition):
    """What keeps a debugger from the debug information that lies beside `path`."""
    link = section(".gnu_debuglink", path)
    name = link.partition(b"\0")[0].decode()
    debug = pathlib.Path(path).with_name(name)
    if not name or not debug.is_file():
        return ["no debug file"]
    if zlib.crc32(debug.read_bytes()) != int.from_bytes(link[-4:], "little"):
        return ["another build's debug file"]
    # The tool finds the debug file by itself, as debuggers do.
    address = symbols(debug).get(function, 0)
    place = run(tool("addr2line", path), f"--exe={path}", hex(address)).strip()
    source, _, line = place.rpartition(":")
    source = (ROOT / source).resolve()
    # Not in another clone.
    if source.is_relative_to(ROOT) and source.is_file() and line.isdigit():
        found = source.read_text(encoding="utf-8").splitlines()[int(line) - 1]
        return [] if found.startswith(definition) else [f"{function} is at {place}, it says"]
    return [f"{function} is nowhere: {place}"]


def newest_version(family, path):
    """The newest version of a library's interface that the file needs: (2, 35) of GLIBC_2.35."""
    versions = [version.partition("_")[2] for version in elf_imports(path).values() if version.startswith(family + "_")]
    return max((tuple(map(int, version.split("."))) for version in versions), default=None)


def build(command, path, text, *options):
    subprocess.run([*command, "-xc", "-", "-o", path, *options], check=True, text=True, input=text)
    return path


class SizeTest(unittest.TestCase):

    def test_the_library_is_small(self):
        library = pathlib.Path(LIBRARY)
        self.assertLessEqual(library.stat().st_size, LARGEST_LIBRARY[library.suffix])


class DeskTest(unittest.TestCase):

    def test_offers_its_functions_only(self):
        self.assertEqual(exports(DESK), DESK_FUNCTIONS)

    def test_needs_the_library_and_the_system(self):
        self.assertEqual(needed_libraries(DESK) - LINUX_LIBRARIES - WINDOWS_LIBRARIES - DESK_LIBRARIES, set())


class DebugTest(unittest.TestCase):

    def test_a_debugger_finds_its_file(self):
        for path, (function, definition) in FUNCTIONS.items():
            with self.subTest(path=path):
                self.assertEqual(debug_faults(path, function, definition), [])

    def test_a_missing_and_a_wrong_file_are_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder, pathlib.Path(LIBRARY).name)
            copy.write_bytes(pathlib.Path(LIBRARY).read_bytes())
            function, definition = FUNCTIONS[LIBRARY]
            self.assertEqual(debug_faults(str(copy), function, definition), ["no debug file"])
            pathlib.Path(f"{copy}.debug").write_bytes(b"of yesterday")
            self.assertEqual(debug_faults(str(copy), function, definition), ["another build's debug file"])


@unittest.skipIf(is_pe(LIBRARY), "for Linux")
class LinuxTest(unittest.TestCase):

    def test_is_hardened(self):
        for path in FUNCTIONS:
            with self.subTest(path=path):
                self.assertEqual(elf_faults(path), [])

    def test_exports_can_be_landed_on(self):
        addresses = symbols(LIBRARY + ".debug")
        for name in exports(LIBRARY):
            with self.subTest(name=name):
                start = addresses[name]
                ends = [f"--start-address={start}", f"--stop-address={start + 4}"]
                code = run("objdump", "--disassemble", *ends, LIBRARY)
                self.assertIn("endbr64", code)

    def test_an_unhardened_file_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            text = "#include <stdio.h>\nint main(int n, char **v) { char t[9]; sprintf(t, v[0]); return t[n]; }"
            soft = ["-w", "-O2", "-fno-stack-protector", "-U_FORTIFY_SOURCE", "-fno-pie", "-no-pie",
                    "-Wl,-z,norelro,-z,lazy,-z,execstack,-rpath,/tmp"]
            faults = elf_faults(build(["gcc"], folder + "/soft", text, *soft))
            self.assertEqual(faults, [
                "no position-independent code", "the stack is executable", "a segment is writable and executable",
                "the linker's tables stay writable", "no stack protector", "no checked copies",
                "a folder to look for libraries in", "symbols"])

    def test_needs_the_system_only(self):
        for path in (LIBRARY, PROGRAM):
            with self.subTest(path=path):
                self.assertEqual(needed_libraries(path) - LINUX_LIBRARIES, set())

    def test_needs_the_glibc_that_the_readme_names(self):
        for path in FUNCTIONS:
            with self.subTest(path=path):
                stated = re.search(rf"`{pathlib.Path(path).name}`\s+needs\s+glibc (\d+)\.(\d+)", README)
                self.assertEqual(newest_version("GLIBC", path), tuple(map(int, stated.groups())))

    def test_needs_no_runtime_of_the_compiler(self):
        for path in FUNCTIONS:
            for family in ("GLIBCXX", "CXXABI", "GCC"):
                with self.subTest(path=path, family=family):
                    self.assertIsNone(newest_version(family, path))

    def test_newer_versions_are_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            text = "#include <iostream>\nint main() { std::cout << 2.35; throw 1; }"
            program = folder + "/program"
            subprocess.run(["g++", "-xc++", "-", "-o", program], check=True, text=True, input=text)
            self.assertGreaterEqual(newest_version("GLIBC", program), (2, 34))
            self.assertGreaterEqual(newest_version("GLIBCXX", program), (3, 4))
            self.assertGreaterEqual(newest_version("CXXABI", program), (1, 3))


@unittest.skipUnless(is_pe(LIBRARY), "for Windows")
class WindowsTest(unittest.TestCase):

    def test_is_hardened(self):
        for path in FUNCTIONS:
            with self.subTest(path=path):
                self.assertEqual(pe_faults(path), [])

    def test_stack_protector(self):
        for path in FUNCTIONS:
            with self.subTest(path=path):
                failure = symbols(path + ".debug")["__stack_chk_fail"]
                code = run(PE_TOOLS + "objdump", "--disassemble", path)
                calls = re.findall(rf"\tcall +0x{failure:x}$", code, re.MULTILINE)
                self.assertGreater(len(calls), 100)

    def test_an_unhardened_file_is_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            soft = ["-Wl,--disable-nxcompat,--disable-dynamicbase,--disable-high-entropy-va,--disable-reloc-section"]
            program = build([PE_TOOLS + "gcc-posix"], folder + "/soft.exe", "int main(void) { return 0; }", *soft)
            self.assertEqual(pe_faults(program), [
                "data can be executed", "always the same address", "few addresses", "cannot be moved", "symbols"])

    def test_needs_the_system_only(self):
        self.assertEqual(needed_libraries(LIBRARY) - WINDOWS_LIBRARIES, set())
        self.assertEqual(needed_libraries(PROGRAM) - WINDOWS_PROGRAM_LIBRARIES, set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
