"""Checks what all C++ of the project writes in one way, as far as clang-tidy cannot: .clang-tidy holds the rest."""

import pathlib
import re

RULES = [
    (re.compile(r"\bstd::(?:u?int(?:8|16|32|64|ptr|max)_t|size_t|ptrdiff_t)\b"), "without std::"),
    (re.compile(r"\btemplate\s*<[^()]*?\bclass\b"), "with typename"),
]


def find_faults(root):
    """Lines below `root` that are written otherwise, one text each; empty when all is well."""
    faults = []
    for path in sorted(pathlib.Path(root).rglob("*")):
        name = path.relative_to(root).as_posix()
        if path.suffix not in (".cc", ".h") or name.startswith("build/"):
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for pattern, how in RULES:
                found = pattern.search(line)
                if found:
                    faults.append(f"{name}:{number}: {found.group()}: the project writes this {how}")
    return faults
