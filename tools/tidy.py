#!/usr/bin/python3
"""Runs clang-tidy on every file of a build folder's compile_commands.json that it has not found good before.

    tidy.py SOURCE_FOLDER BUILD_FOLDER      both as CMake spells them

Prints what is wrong and a line that counts; fails when anything is wrong. GoogleTest's sources and whatever else lies
outside of the project are not judged. Findings in the project's headers count, those in the system's do not.

A file that passed leaves an empty file in ~/.cache/quilon/tidy (or below XDG_CACHE_HOME), named by a hash of everything
the verdict depends on; a file that failed leaves nothing and is run again. The hash covers

- the preprocessed text with its macros: every header, the system's too, every value, every answer of __has_include;
- the bytes of the project's own files in it, because comments such as NOLINT, the spelling of macros and the layout of
  what is switched off are gone from the preprocessed text, yet clang-tidy reads them;
- every .clang-tidy that may hold for one of these files, because naming rules are looked up by a header's folder;
- the command line, because flags such as -Wshadow change no text;
- clang-tidy itself, its plugin tidy_scope.cc, and this script.

The project's folder is cut out of all paths, so that clones share what they learn. As the rules name
clang-diagnostic-*, clang's own warnings by the command's flags are found as well: a file that passes has also passed a
second compiler.
"""

import argparse
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

# Verdicts are empty files: what is bounded is their number, some dozen runs' worth of a project that changed whole.
MOST_VERDICTS = 20_000

# The preprocessor says which file it enters: # 1 "/usr/include/stdio.h" 1 3
ENTERED_FILE = re.compile(rb'^# \d+ "([^"\n]+)"', re.MULTILINE)


class Verdicts:
    """The hashes of what passed, as names of empty files in a folder; the newest ones only."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def passed(self, key):
        try:
            os.utime(self.folder / key)
            return True
        except FileNotFoundError:
            return False

    def add(self, key):
        (self.folder / key).touch()

    def forget_old(self, count=MOST_VERDICTS):
        with os.scandir(self.folder) as entries:
            by_age = sorted(entries, key=lambda entry: entry.stat().st_mtime, reverse=True)
        for entry in by_age[count:]:
            pathlib.Path(entry).unlink(missing_ok=True)


class Project:
    """A project's folder, and what is known of its files; each is read once."""

    def __init__(self, root):
        self.root = root
        self._prefix = os.fsencode(root) + b"/"
        # The folder itself is named, too: -I/the/project
        self._root = re.compile(re.escape(os.fsencode(root)) + rb"(?=[/\0]|$)")

    def without_root(self, text):
        return self._root.sub(b".", text)

    def owns(self, name):
        return name.startswith(self._prefix)

    @functools.lru_cache(maxsize=None)
    def hash_of(self, path):
        return hashlib.sha256(path.read_bytes()).digest()

    @functools.lru_cache(maxsize=None)
    def rules_of(self, folder):
        """The .clang-tidy files of `folder` and of those above, up to the project's."""
        above = self.rules_of(folder.parent) if folder != self.root else ()
        rules = folder / ".clang-tidy"
        return above + (rules,) if rules.exists() else above


class ClangTidy:
    """The program and its plugin, which keeps the rules to the project's own declarations."""

    plugin_source = pathlib.Path(__file__).with_name("tidy_scope.cc")

    def __init__(self, build_folder):
        self.program = pathlib.Path(shutil.which("clang-tidy") or sys.exit("tidy.py: there is no clang-tidy")).resolve()
        self.identity = self._identify()
        self.plugin = self._build_plugin(build_folder)

    def _identify(self):
        """What stands for the program in a key. Debian's revisions are not in the version's text."""
        version = subprocess.run([self.program, "--version"], capture_output=True, check=True).stdout
        stat = self.program.stat()
        sources = pathlib.Path(__file__).read_bytes() + self.plugin_source.read_bytes()
        return version + b"%d %d " % (stat.st_size, stat.st_mtime_ns) + sources

    def _build_plugin(self, build_folder):
        """.../bin/clang-tidy stands beside the headers of the clang that it was made of."""
        plugin = build_folder / "tidy_scope.so"
        clang = [self.program.with_name("clang++"), "-fPIC", "-fno-rtti", "-O1", "-Wall", "-Wextra", "-Werror"]
        headers = ["-isystem", self.program.parents[1] / "include"]
        objects = plugin.with_suffix(".o")
        subprocess.run(["ccache", *clang, *headers, "-std=c++20", "-c", self.plugin_source, "-o", objects], check=True)
        subprocess.run([*clang, "-shared", objects, "-o", plugin], check=True)
        return plugin

    def check(self, source, flags, folder, root):
        """What is wrong with a file; empty when nothing is."""
        headers = f"--header-filter=^{re.escape(str(root))}/"
        command = [self.program, "--quiet", f"--load={self.plugin}", headers, source, "--", *flags]
        result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if result.returncode == 0 and not result.stdout:
            return ""
        return (result.stdout + result.stderr).decode(errors="replace") or f"exit status {result.returncode}\n"


class Unit:
    """A source file with the command that compiles it."""

    def __init__(self, entry):
        self.folder = pathlib.Path(entry["directory"])
        self.source = self.folder / entry["file"]
        self.compiler, *self.flags = shlex.split(entry["command"])
        for output in ("-o", "-c"):
            at = self.flags.index(output)
            del self.flags[at:at + 2]
        self.key = ""
        self.size = 0
        self.complaints = ""

    def find_key(self, project, tool):
        """Sets `key`, or `complaints` when there is no key because the file does not even preprocess."""
        # clang-tidy defines the macro too.
        command = [self.compiler, *self.flags, "-D__clang_analyzer__=1", "-E", "-dD", self.source]
        result = subprocess.run(command, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if result.returncode != 0:
            self.complaints = result.stderr.decode(errors="replace")
            return
        text = result.stdout
        names = {os.path.join(os.fsencode(self.folder), name) for name in ENTERED_FILE.findall(text)}
        paths = {pathlib.Path(os.fsdecode(name)) for name in names if project.owns(name)}
        own = {path for path in paths if path.is_file()}
        rules = {rule for path in own for rule in project.rules_of(path.parent)}

        parts = [tool.identity, "\0".join(self.flags).encode(), text]
        for path in sorted(own | rules):
            parts += [os.fsencode(path), project.hash_of(path)]
        key = hashlib.sha256()
        for part in map(project.without_root, parts):
            key.update(b"%d:" % len(part))
            key.update(part)
        self.key = key.hexdigest()
        self.size = len(text)

    def check(self, tool, root, verdicts):
        """Sets `complaints`, or keeps the verdict."""
        self.complaints = tool.check(self.source, self.flags, self.folder, root)
        if not self.complaints:
            looked_up = self.key
            # Somebody may have edited the file meanwhile.
            self.find_key(Project(root), tool)
            if self.key == looked_up:
                verdicts.add(self.key)


def read_units(build_folder, project):
    entries = json.loads((build_folder / "compile_commands.json").read_text(encoding="utf-8"))
    # What is made while building is its maker's to judge.
    written = [entry for entry in entries
               if entry["file"].endswith((".c", ".cc")) and not entry["file"].startswith(f"{build_folder}/")]
    units = [Unit(entry) for entry in written]
    return [unit for unit in units if project.owns(os.fsencode(unit.source))]


def run(tool, root, build_folder, verdicts):
    """Checks all units; returns the number of those that failed."""
    project = Project(root)
    units = read_units(build_folder, project)
    if not units:
        sys.exit(f"tidy.py: {build_folder} compiles no file of {root}")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(lambda unit: unit.find_key(project, tool), units))
        # A file that two targets compile alike is one.
        unknown = {unit.key: unit for unit in units if unit.key and not verdicts.passed(unit.key)}
        # The long ones first, so that none is waited for at the end.
        checked = sorted(unknown.values(), key=lambda unit: unit.size, reverse=True)
        list(pool.map(lambda unit: unit.check(tool, root, verdicts), checked))
    verdicts.forget_old()

    failed = [unit for unit in units if unit.complaints]
    for unit in failed:
        print(f"{unit.source.relative_to(root)}:\n{unit.complaints}")
    print(f"clang-tidy: {len(units)} files, {len(checked)} checked, {len(failed)} failed")
    return len(failed)


def cache_folder():
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "quilon" / "tidy"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("source_folder", type=pathlib.Path)
    parser.add_argument("build_folder", type=pathlib.Path)
    arguments = parser.parse_args()
    tool = ClangTidy(arguments.build_folder)
    return 1 if run(tool, arguments.source_folder, arguments.build_folder, Verdicts(cache_folder())) else 0


if __name__ == "__main__":
    sys.exit(main())
