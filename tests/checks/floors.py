"""Checks who includes whom: the floors of src/, printer/ and desk/, circles, what is pure, the seam to the system."""

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
    "printer/protocol": 1,
    "printer/fiscal": 2,
    "printer/commands": 3,
    "printer/watch": 4,
    "printer/wire": 4,
    "printer": 5,
    "printer/web": 6,
    "printer/program": 7,
    "desk/document": 1,
    "desk/journal": 1,
    "desk/profile": 2,
    "desk/printing": 3,
    "desk": 4,
}

HOUSES = {"src", "printer", "desk"}
IN_HOUSES = tuple(house + "/" for house in sorted(HOUSES))

# What the folders that printer/README.md calls pure do without: threads, files, and whatever is no standard header.
IMPURE_HEADERS = {
    "atomic", "barrier", "condition_variable", "csignal", "ctime", "filesystem", "fstream", "future", "iostream",
    "latch",
    "mutex", "semaphore", "shared_mutex", "stop_token", "thread", "time.h"
}
PURE_LIBRARIES = {"nlohmann/json.hpp", "nlohmann/json_fwd.hpp"}
# A clock of the system, or chance that no seed repeats.
IMPURE_CALL = re.compile(r"\b(\w+_clock::now|random_device|(?:local|gm)time(?:_r|_s)?|std::time)\b")
PURE_SENTENCE = re.compile(r"^((?:`\w+/`(?:, | and ))*`\w+/`) are pure\b", re.MULTILINE)

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^">]+)[>"]', re.MULTILINE)
SYSTEM_QUESTION = re.compile(r"\b(_WIN32|_WIN64|__MINGW32__|__MINGW64__|__linux__|__unix__)\b")
STANDARD_HEADER = re.compile(r"[a-z_0-9]+")
LIBRARY_HEADERS = {
    "printer": re.compile(r"(boost|CLI|nlohmann|stb)/.*"), "desk": re.compile(r"nlohmann/.*|sqlite3\.h"),
}
# Files of one system only.
SYSTEM_FOLDER = re.compile(r"(src|printer|desk)/(.*/)?(posix|win32)/")
# A file is included by its path in the repository; the public headers as their users include them.
SEARCH_PATH = ["", "include/"]


class Tree:
    """The C and C++ files below a folder, and the files of the tree that each includes."""

    def __init__(self, root):
        self.texts = {}
        for path in sorted(pathlib.Path(root).rglob("*")):
            name = path.relative_to(root).as_posix()
            foreign = name.startswith("build/") or "node_modules" in path.parts
            if path.suffix in (".c", ".cc", ".h") and not foreign:
                self.texts[name] = path.read_text(encoding="utf-8")
        self.includes = {name: [] for name in self.texts}
        self.system_includes = {name: [] for name in self.texts}
        self.missing = []
        for name, text in self.texts.items():
            for bracket, included in INCLUDE.findall(text):
                self._add_include(name, bracket, included)

    def _add_include(self, name, bracket, included):
        # Examples are copied out of the repository, with what stands beside them.
        beside = [name.rpartition("/")[0] + "/"] if name.startswith("examples/") else []
        found = [prefix + included for prefix in beside + SEARCH_PATH if prefix + included in self.texts]
        if found:
            self.includes[name].append(found[0])
        elif bracket == "<":
            self.system_includes[name].append(included)
        else:
            self.missing.append(f'{name} includes "{included}", which is no path in the repository')


def folder_of(name):
    """The top folder, in src/, printer/ and desk/ the floor's folder: "tests", "src/log", "printer", "printer/wire".

    A system's folder is part of the one that it lies in.
    """
    folders = [folder for folder in name.split("/")[:-1] if folder not in ("posix", "win32")]
    return "/".join(folders[:2] if folders[0] in HOUSES else folders[:1])


def may_include(includer, included):
    source, target = folder_of(includer), folder_of(included)
    house, other = source.split("/")[0], target.split("/")[0]
    allowed = {
        "include": ["include"], "examples": ["examples", "include"], "src": ["src", "include"], "printer": ["printer"],
        "desk": ["desk", "include"],
    }
    if other not in allowed.get(house, [other]):
        return False
    if source in FLOORS and other == house:
        return target == source or FLOORS.get(target, 99) < FLOORS[source]
    return True


def find_wrong_includes(tree):
    faults = list(tree.missing)
    for name, included_files in tree.includes.items():
        if name.startswith(IN_HOUSES) and folder_of(name) not in FLOORS:
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
    for name, text in tree.texts.items():
        if folder_of(name) in ("src/platform", "include"):
            continue
        question = SYSTEM_QUESTION.search(text)
        if question:
            faults.append(f"{name} asks for the system with {question.group(1)}")
        if name.startswith(IN_HOUSES) and not SYSTEM_FOLDER.match(name):
            library = LIBRARY_HEADERS.get(name.split("/")[0])
            for included in tree.system_includes[name]:
                if not STANDARD_HEADER.fullmatch(included) and not (library and library.fullmatch(included)):
                    faults.append(f"{name} includes <{included}>, a header of the system")
    return faults


def pure_folders(readme):
    """The folders of the printer of which its README says that they are pure: "printer/fiscal"."""
    sentence = PURE_SENTENCE.search(readme)
    return ["printer/" + name for name in re.findall(r"`(\w+)/`", sentence.group(1))] if sentence else []


def find_impurity(tree, readme):
    faults = []
    pure = pure_folders(readme)
    for name, text in tree.texts.items():
        if folder_of(name) not in pure:
            continue
        for included in tree.system_includes[name]:
            standard = STANDARD_HEADER.fullmatch(included) and included not in IMPURE_HEADERS
            if not standard and included not in PURE_LIBRARIES:
                faults.append(f"{name} is pure and must not include <{included}>")
        for call in IMPURE_CALL.findall(text):
            faults.append(f"{name} is pure and must not use {call}")
    return faults


def find_faults(root):
    """What is wrong below `root`, a line each; empty when all is well."""
    tree = Tree(root)
    readme = pathlib.Path(root, "printer/README.md")
    text = readme.read_text(encoding="utf-8") if readme.exists() else ""
    return find_wrong_includes(tree) + find_circles(tree) + find_system_dependence(tree) + find_impurity(tree, text)
