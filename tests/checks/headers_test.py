#!/usr/bin/python3
"""Tests that every public header compiles on its own, without a warning, with each compiler a user may have."""

import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = ROOT / "include"
HEADERS = sorted(path.relative_to(INCLUDE).as_posix() for path in INCLUDE.rglob("*.h"))

# -Wpadded: every padding byte of a record has a name.
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wundef", "-Wshadow", "-Wconversion", "-Wpadded", "-Werror"]
C_WARNINGS = ["-Wstrict-prototypes", "-Wc++-compat"]
MSVC = ["--target=x86_64-pc-windows-msvc", "-ffreestanding"]

COMPILERS = {
    "gcc": (["gcc"], ["g++"]),
    "clang": (["clang"], ["clang++"]),
    "mingw": (["x86_64-w64-mingw32-gcc-posix"], ["x86_64-w64-mingw32-g++-posix"]),
    "msvc": (["clang"] + MSVC, ["clang++"] + MSVC),
}


def compile_text(command, standard, suffix, text):
    """What the compiler says about `text`; empty when it is content."""
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder, "user" + suffix)
        source.write_text(text, encoding="utf-8")
        extra = C_WARNINGS if suffix == ".c" else []
        result = subprocess.run(
            command + [f"-std={standard}", "-fsyntax-only", f"-I{INCLUDE}"] + WARNINGS + extra + [str(source)],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        return result.stdout or ("" if result.returncode == 0 else f"exit status {result.returncode}")


class HeadersTest(unittest.TestCase):

    def check(self, text, c_standards=("c99",), cxx_standards=("c++11",)):
        """Compiles `text` with every compiler."""
        for name, (c_compiler, cxx_compiler) in COMPILERS.items():
            for standard in c_standards:
                with self.subTest(compiler=name, standard=standard, text=text):
                    self.assertEqual(compile_text(c_compiler, standard, ".c", text), "")
            for standard in cxx_standards:
                with self.subTest(compiler=name, standard=standard, text=text):
                    self.assertEqual(compile_text(cxx_compiler, standard, ".cc", text), "")

    def test_each_header_on_its_own(self):
        self.assertIn("quilon/quilon.h", HEADERS)
        for header in HEADERS:
            # Twice: the second time must add nothing.
            self.check(f'#include "{header}"\n#include "{header}"\nint user_value;\n')

    def test_every_standard(self):
        self.check('#include "quilon/quilon.h"\nint user_value;\n', ("c99", "c11", "c17"), ("c++11", "c++17", "c++20"))

    def test_library_and_static_use(self):
        for switch in ("QUILON_BUILD", "QUILON_STATIC"):
            self.check(f'#define {switch}\n#include "quilon/quilon.h"\nint user_value;\n')

    def test_another_layout_breaks_the_build(self):
        text = '#include <stdint.h>\n#define int64_t int32_t\n#include "quilon/quilon.h"\n'
        for command, standard, suffix in ((["gcc"], "c99", ".c"), (["g++"], "c++11", ".cc")):
            self.assertIn("error", compile_text(command, standard, suffix, text))


if __name__ == "__main__":
    unittest.main()
