"""Checks who includes whom: the floors of src/, circles, the printer's independence, the seam to the system."""

import pathlib
import re

# Lower floors first. A file may include its own folder and the folders of lower floors.
FLOORS = {
    "src/platform": 1,
    "src/text": 1,
    "src/log": 2,
    "src/comm": 3,
    "src/protocol": 4,
    "src/commands": 5,
    "src/api": 6,
}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^">]+)[>"]', re.MULTILINE)
SYSTEM_QUESTION = re.compile(r"\b(_WIN32|_WIN64|__MINGW32__|__MINGW64__|__linux__|__unix__)\b")
STANDARD_HEADER = re.compile(r"[a-z_0-9]+")
SEARCH_PATH = ["", "src/", "include/", "printer/", "tests/", "bench/", "fuzz/"]


class Tree:
    """The C and C++ files below a folder, and the files of the tree that each includes."""

    def __init__(self, root):
        self.texts = {}
        for path in sorted(pathlib.Path(root).rglob("*")):
            name = path.relative_to(root).as_posix()
            if path.suffix in (".c", ".cc", ".h") and not name.startswith("build/"):
                self.texts[name] = path.read_text(encoding="utf-8")
        self.includes = {name: [] for name in self.texts}
        self.system_includes = {name: [] for name in self.texts}
        self.missing = []
        for name, text in self.texts.items():
            for bracket, included in INCLUDE.findall(text):
                self._add_include(name, bracket, included)

    def _add_include(self, name, bracket, included):
        folder = name.rpartition("/")[0] + "/"
        found = [prefix + included for prefix in [folder] + SEARCH_PATH if prefix + included in self.texts]
        if found:
            self.includes[name].append(found[0])
        elif bracket == "<":
            self.system_includes[name].append(included)
        else:
            self.missing.append(f'{name} includes "{included}", which is no file of the project')


def folder_of(name):
    """The top folder, below src/ the floor's folder: "src/log", "printer"."""
    parts = name.split("/")
    return "/".join(parts[:2]) if parts[0] == "src" else parts[0]


def may_include(includer, included):
    source, target = folder_of(includer), folder_of(included)
    if source == "printer":
        return target == "printer"
    if source == "include":
        return target == "include"
    if source == "examples":
        return target in ("examples", "include")
    if source in FLOORS:
        return target in (source, "include") or FLOORS.get(target, 99) < FLOORS[source]
    return True


def find_wrong_includes(tree):
    faults = list(tree.missing)
    for name, included_files in tree.includes.items():
        if name.startswith("src/") and folder_of(name) not in FLOORS:
            faults.append(f"{name} stands on no floor")
        for included in included_files:
            if not may_include(name, included):
                faults.append(f"{name} must not include {included}")
    return faults


def find_circles(tree):
    """The include circles, each told once, by the first way found."""
    faults = []
    done = set()

    def walk(name, way):
        if name in way:
            faults.append("circle of includes: " + " -> ".join(way[way.index(name):] + [name]))
            return
        if name not in done:
            for included in tree.includes[name]:
                walk(included, way + [name])
            done.add(name)

    for name in tree.includes:
        walk(name, [])
    return faults


def find_system_dependence(tree):
    """Questions for the system and headers of the system outside of the files made for them."""
    faults = []
    printer_files = []
    for name, text in tree.texts.items():
        if folder_of(name) in ("src/platform", "include"):
            continue
        question = SYSTEM_QUESTION.search(text)
        if question and name.startswith("printer/"):
            printer_files.append(name)
        elif question:
            faults.append(f"{name} asks for the system with {question.group(1)}")
        if name.startswith("src/"):
            for included in tree.system_includes[name]:
                if not STANDARD_HEADER.fullmatch(included):
                    faults.append(f"{name} includes <{included}>, a header of the system")
    if len(printer_files) > 1:
        faults.append("more than one file of the printer asks for the system: " + ", ".join(printer_files))
    return faults


def find_faults(root):
    """What is wrong below `root`, a line each; empty when all is well."""
    tree = Tree(root)
    return find_wrong_includes(tree) + find_circles(tree) + find_system_dependence(tree)
