"""Reads finished libraries and programs of both systems with the tools of binutils."""

import pathlib
import re
import subprocess

PE_TOOLS = "x86_64-w64-mingw32-"


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def is_pe(path):
    return not {".dll", ".exe"}.isdisjoint(pathlib.Path(path).suffixes)


def tool(name, path):
    """The tool for the system that the file is for."""
    return PE_TOOLS + name if is_pe(path) else name


def exports(path):
    """Every name that the file defines for others, with its version if it has one."""
    if is_pe(path):
        table = run(PE_TOOLS + "objdump", "--private-headers", path).partition("[Ordinal/Name Pointer] Table")[2]
        return sorted(re.findall(r"^\t\[ *\d+\] (\S+)$", table, re.MULTILINE))
    return sorted(line.split()[-1] for line in run("nm", "--dynamic", "--defined-only", path).splitlines())


def needed_libraries(path):
    """The libraries that the system loads with the file; for Windows in small letters."""
    headers = run(tool("objdump", path), "--private-headers", path)
    if is_pe(path):
        return {name.lower() for name in re.findall(r"^\tDLL Name: (\S+)$", headers, re.MULTILINE)}
    return set(re.findall(r"^\s+NEEDED\s+(\S+)$", headers, re.MULTILINE))


def elf_imports(path):
    """The names that the file asks of other libraries, and the versions of them: {"fstat": "GLIBC_2.33"}."""
    lines = run("nm", "--dynamic", "--undefined-only", path).splitlines()
    return dict((line.split()[-1].partition("@")[0], line.partition("@")[2].lstrip("@")) for line in lines)


def symbols(path):
    """The addresses of the functions and objects in a file's symbol table."""
    lines = run(tool("nm", path), "--defined-only", path).splitlines()
    return {name: int(address, 16) for address, kind, name in map(str.split, lines) if kind in "TtDdBbRr"}


def section(name, path):
    """The bytes of a section; none when there is no such section."""
    headers = run(tool("objdump", path), "--section-headers", path)
    found = re.search(rf"^ *\d+ {re.escape(name)} +([0-9a-f]+) +\S+ +\S+ +([0-9a-f]+)", headers, re.MULTILINE)
    if not found:
        return b""
    size, offset = (int(number, 16) for number in found.groups())
    with open(path, "rb") as file:
        file.seek(offset)
        return file.read(size)
