#!/usr/bin/env python3
"""Plants faults in the pure sources, one at a time, and tells which of them the tests catch. See ./dev plant in
docs/developing.md. A fault is a small textual change of one line; the tree it is planted in is a copy."""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys

Fault = collections.namedtuple("Fault", "file line kind old new")

# kind, what is looked for in the code of a line, what stands there instead
KINDS = [
    ("comparison", r"(?<= )<=(?= )", "<"), ("comparison", r"(?<= )>=(?= )", ">"),
    ("comparison", r"(?<= )<(?= )", "<="), ("comparison", r"(?<= )>(?= )", ">="),
    ("comparison", r"==", "!="), ("comparison", r"!=", "=="),
    ("logic", r"&&(?= )", "||"), ("logic", r"\|\|", "&&"), ("logic", r"(?<=[ (])!(?=[A-Za-z_(])", ""),
    ("sign", r"(?<= )\+(?= )", "-"), ("sign", r"(?<=[\w)\]] )-(?= )", "+"),
    ("off by one", r" [+-] 1\b(?![.\d])", ""),
    ("constant", r"(?<![\w.'])\d+(?![\w.'])", lambda m: str(int(m.group()) + 1)),
    ("constant", r"\btrue\b", "false"), ("constant", r"\bfalse\b", "true"),
    ("swapped arguments", r"(?<=\w\()(\w+), (\w+)(?=\))", r"\2, \1"),
    ("forgotten call", r"^\s*[\w.:]+(?:->\w+)?\([^;]*\);$", ""),
    ("forgotten exit", r"(?<=^)\s*(?:return|continue);$", ""),
]

# Folders whose tests have another name than theirs, and which programs use a folder's code.
PROGRAMS = {
    "calc": ["calc", "core", "daygrid", "timegrid", "pickers", "printing"],
    "core": ["core", "text", "daygrid", "timegrid", "pickers", "access", "printing", "planner"],
    "views/daygrid": ["daygrid", "access", "printing"],
    "views/timegrid": ["timegrid", "access", "printing"],
    "pickers": ["pickers", "access", "printing"],
    "printing": ["printing"],
    "access": ["access"],
    "ical": ["ical", "planner"],
    "planner": ["planner"],
    "mfc": ["mfc", "core", "calc", "ical", "timegrid"],
}
WINDOWS_PROGRAMS = {
    "core": ["core", "timegrid", "input"],
    "views/daygrid": ["daygrid", "input"],
    "views/timegrid": ["timegrid", "input"],
    "pickers": ["pickers"],
}


def code_of(line):
    """The line with comments and literals blanked, so that a fault never stands in one."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: '"' + "\0" * (len(m.group()) - 2) + '"', line)
    line = re.sub(r"'(?:\\.|[^'\\])*'", lambda m: "\0" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: "\0" * len(m.group()), line)


def candidates(root, folder):
    """Every fault that could be planted, in the order of the sources."""
    listed = subprocess.run(["git", "ls-files", "*.cpp", "*.h"], cwd=root, capture_output=True, text=True, check=True)
    compiled = (root / "build-sources.txt").read_text().split()
    known = set(compiled)
    for name in listed.stdout.split():
        path = pathlib.PurePosixPath(name)
        if folder and not name.startswith(folder):
            continue
        # A header counts when its source is part of the native build; a header without source is left out.
        if name not in known and str(path.with_suffix(".cpp")) not in known:
            continue
        for number, text in enumerate((root / name).read_text(encoding="utf-8").split("\n"), 1):
            code = code_of(text)
            if code.lstrip().startswith(("#", "static_assert", "using", "namespace", "*")):
                continue
            if re.search(r"\b(ASSERT|assert|reserve)\(", code):
                continue  # what asserts or only saves time
            # The default of a field is seldom seen by anybody: who makes the record fills it.
            if name.endswith(".h") and re.match(r"\s+(?!static|constexpr)[\w:<>]+ \w+ = [^;]*;", code):
                continue
            for kind, pattern, new in KINDS:
                for match in re.finditer(pattern, code):
                    if kind == "swapped arguments" and re.search(r"\b(min|max)(<[\w:]+>)?\($", code[:match.start()]):
                        continue  # both orders give the same
                    replaced = new(match) if callable(new) else match.expand(new)
                    changed = text[:match.start()] + replaced + text[match.end():]
                    if changed != text:
                        yield Fault(name, number, kind, text, changed)


def programs_for(file, programs):
    for folder in sorted(programs, key=len, reverse=True):
        if file.startswith(folder + "/"):
            return programs[folder]
    return []


class Tree:
    """A copy of the sources with a build of its own."""
    programs = PROGRAMS
    configuration = ["-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O1", "-DDAYVANE_SANITIZE=-D_GLIBCXX_ASSERTIONS"]
    targets = ["all"]
    suffix = ""

    def __init__(self, root, place):
        self.root, self.path, self.build = root, place / "tree", place / "build"
        place.mkdir(parents=True, exist_ok=True)
        shutil.rmtree(self.path, ignore_errors=True)
        files = subprocess.run(["git", "ls-files"], cwd=root, capture_output=True, text=True, check=True).stdout
        self.path.mkdir()
        for name in files.split("\n"):
            if name and (root / name).exists():
                (self.path / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(root / name, self.path / name)
        run(["cmake", "-G", "Ninja", "-S", str(self.path), "-B", str(self.build), "-DDAYVANE_BENCH=OFF",
             *self.configuration])
        run(["ninja", "-C", str(self.build), *self.targets])

    def sources(self):
        text = (self.build / "compile_commands.json").read_text()
        prefix = str(self.path) + "/"
        found = re.findall(r'"file": "(.*)"', text)
        names = [f[len(prefix):] for f in found if f.startswith(prefix)]
        return [n for n in names if not n.startswith(("tests/", "bench/", "samples/"))]

    def try_fault(self, fault):
        """'caught by ...', 'survived', or None when the change does not compile."""
        path = self.path / fault.file
        original = path.read_text(encoding="utf-8")
        lines = original.split("\n")
        lines[fault.line - 1:fault.line + fault.old.count("\n")] = [fault.new]
        path.write_text("\n".join(lines), encoding="utf-8")
        try:
            for program in programs_for(fault.file, self.programs):
                target = f"test_{program}"
                if not self.suffix and not (self.build / "bin" / target).exists():
                    continue  # a folder without native tests
                built = subprocess.run(["ninja", "-C", str(self.build), target], capture_output=True, text=True)
                if built.returncode:
                    return None
                if not self.passes(target):
                    return f"caught by {program}"
            return "survived"
        finally:
            path.write_text(original, encoding="utf-8")

    def passes(self, target):
        try:
            done = subprocess.run([*self.runner(), str(self.build / "bin" / target) + self.suffix, "--gtest_fail_fast",
                                   "--gtest_brief=1"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                  timeout=240, env=dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC"))
            return done.returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def runner(self):
        return []


class WindowsTree(Tree):
    """For the faults of windows and painters: the 32-bit build, whose tests run under Wine."""
    programs = WINDOWS_PROGRAMS
    targets = sorted({f"test_{p}" for list_ in WINDOWS_PROGRAMS.values() for p in list_})
    suffix = ".exe"

    def __init__(self, root, place):
        self.configuration = [f"-DCMAKE_TOOLCHAIN_FILE={root}/cmake/toolchain-win32.cmake", "-DCMAKE_BUILD_TYPE=None",
                              "-DCMAKE_CXX_FLAGS=-O1", "-DDAYVANE_SAMPLES=OFF"]
        super().__init__(root, place)

    def runner(self):
        return [str(self.root / "dev"), "wine"]


def run(command):
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode:
        sys.exit((done.stdout + done.stderr)[-3000:])


def read_table(path):
    """Rows of a table with tabs; lines that begin with # are remarks."""
    if not path.exists():
        return []
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").split("\n")]
    return [row for row in rows if len(row) >= 3 and not row[0].startswith("#")]


def listed_faults(root, rows):
    """The faults of a table: file, old text, new text, reason. Each old text stands once in its file."""
    for row in rows:
        old, new = (text.replace("\\n", "\n") for text in row[1:3])
        text = (root / row[0]).read_text(encoding="utf-8")
        if text.count(old) != 1:
            print(f"{row[0]}: '{row[1]}' stands there {text.count(old)} times; the table is out of date")
            continue
        before, after = text.split(old)
        first, last = before.rpartition("\n")[2], after.partition("\n")[0]
        yield Fault(row[0], before.count("\n") + 1, "listed", first + old + last, first + new + last)


def chosen(arguments, root, equivalents):
    if arguments.listed:
        return list(listed_faults(root, read_table(root / "tests/plant/faults.tsv")))
    every = [f for f in candidates(root, arguments.folder) if (f.file, f.old.strip(), f.new.strip()) not in equivalents]
    random.Random(arguments.seed).shuffle(every)
    return every


def main():
    parser = argparse.ArgumentParser(prog="./dev plant")
    parser.add_argument("count", nargs="?", type=int, default=50, help="how many faults (default: 50)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--folder", default="", help="only sources whose path begins so, for example views/timegrid")
    parser.add_argument("--listed", action="store_true", help="the faults of tests/plant/faults.tsv instead")
    parser.add_argument("--windows", action="store_true", help="those of tests/plant/windows.tsv, under Wine")
    parser.add_argument("--jobs", type=int, help="faults at a time (default: one for each processor)")
    parser.add_argument("--root", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--place", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    root = arguments.root
    equivalents = {(row[0], row[1], row[2]) for row in read_table(root / "tests/plant/equivalents.tsv")}

    if arguments.windows:
        tree = WindowsTree(root, arguments.place / "windows")
        faults = listed_faults(tree.path, read_table(root / "tests/plant/windows.tsv"))
        summary([plant(tree, fault) for fault in faults], arguments)
        return
    trees = queue.Queue()
    first = None
    for number in range(arguments.jobs or os.cpu_count() or 1):
        tree = Tree(root, arguments.place / str(number))
        first = first or tree
        trees.put(tree)
    (first.path / "build-sources.txt").write_text("\n".join(first.sources()))
    subprocess.run(["git", "init", "-q"], cwd=first.path, check=True)
    subprocess.run(["git", "add", "-A"], cwd=first.path, check=True)
    for program in sorted({p for list_ in PROGRAMS.values() for p in list_}):
        if (first.build / "bin" / f"test_{program}").exists() and not first.passes(f"test_{program}"):
            sys.exit(f"test_{program} fails without any fault")
    faults = chosen(arguments, first.path, equivalents)
    wanted = len(faults) if arguments.listed else arguments.count

    def one(fault):
        tree = trees.get()
        try:
            return fault, tree.try_fault(fault)
        finally:
            trees.put(tree)

    results, waiting = [], iter(faults)
    with concurrent.futures.ThreadPoolExecutor(trees.qsize()) as pool:
        running = {pool.submit(one, f) for _, f in zip(range(trees.qsize()), waiting)}
        while running and len(results) < wanted:
            done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for future in done:
                fault, outcome = future.result()
                if outcome and len(results) < wanted:
                    results.append((fault, outcome))
                    report(fault, outcome)
                following = next(waiting, None)
                if following and len(results) + len(running) < wanted:
                    running.add(pool.submit(one, following))
    summary(results, arguments)


def plant(tree, fault):
    outcome = tree.try_fault(fault) or "does not compile"
    report(fault, outcome)
    return fault, outcome


def report(fault, outcome):
    print(f"{outcome:22} {fault.kind:18} {fault.file}:{fault.line}", flush=True)
    if outcome == "survived":
        print(f"    - {fault.old.strip()}\n    + {fault.new.strip()}", flush=True)


def summary(results, arguments):
    caught = sum(outcome != "survived" for _, outcome in results)
    print(f"\n{'folder':18} planted caught")
    folders = collections.Counter(str(pathlib.PurePosixPath(f.file).parent) for f, _ in results)
    for folder, planted in sorted(folders.items()):
        mine = sum(o != "survived" for f, o in results if str(pathlib.PurePosixPath(f.file).parent) == folder)
        print(f"{folder:18} {planted:7} {mine:6}")
    what = "the listed faults" if arguments.listed or arguments.windows else f"seed {arguments.seed}"
    print(f"{what}: {caught} of {len(results)} caught ({100 * caught // max(1, len(results))} %)")


if __name__ == "__main__":
    main()
