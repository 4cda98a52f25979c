#!/usr/bin/env python3
"""Plants faults in the pure sources, one at a time, and tells which of them the tests catch. See ./dev plant in
docs/developing.md. A fault is a small textual change of one line; the sources it is planted in are a copy."""

import argparse
import collections
import concurrent.futures
import hashlib
import os
import pathlib
import queue
import re
import subprocess
import time

import plant_build

# first: the Windows program and the tests of it that are tried before all others
Fault = collections.namedtuple("Fault", "file line kind old new first", defaults=[None])

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

# Windows programs that are tried first, by the folder of a fault.
WINDOWS_PROGRAMS = {
    "core": ["core", "daygrid", "timegrid", "input"], "views/daygrid": ["daygrid", "input"],
    "views/timegrid": ["timegrid", "input"], "views/docview": ["docview"], "pickers": ["pickers"],
    "printing": ["printing"], "access": ["access"], "mfc": ["mfc", "docview"],
}


def code_of(line):
    """The line with comments and literals blanked, so that a fault never stands in one."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: '"' + "\0" * (len(m.group()) - 2) + '"', line)
    line = re.sub(r"'(?:\\.|[^'\\])*'", lambda m: "\0" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: "\0" * len(m.group()), line)


def for_windows_only(lines):
    """Of each line whether it stands between #ifdef _WIN32 and #else or #endif."""
    conditions = []
    for line in lines:
        words = line.split()
        if words and words[0].startswith("#if"):
            conditions.append(words[:2] == ["#ifdef", "_WIN32"])
        elif words and words[0] == "#else":
            conditions[-1] = False
        elif words and words[0] == "#endif":
            conditions.pop()
        yield any(conditions)


def candidates(root, known, folder, windows=False):
    """Every fault that could be planted in these sources, in the order of the sources."""
    listed = subprocess.run(["git", "ls-files", "*.cpp", "*.h"], cwd=root, capture_output=True, text=True, check=True)
    for name in listed.stdout.split():
        path = pathlib.PurePosixPath(name)
        # A header counts when its source is among them; a header without source is left out.
        if not name.startswith(folder) or (name not in known and str(path.with_suffix(".cpp")) not in known):
            continue
        lines = (root / name).read_text(encoding="utf-8").split("\n")
        for number, (text, is_windows) in enumerate(zip(lines, for_windows_only(lines)), 1):
            if is_windows and not windows:
                continue  # no native test has it
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
                    if kind == "swapped arguments" and re.search(r"\b(min|max|Sum|SumOf)(<[\w:]+>)?\($", code[:match.start()]):
                        continue  # both orders give the same
                    replaced = new(match) if callable(new) else match.expand(new)
                    changed = text[:match.start()] + replaced + text[match.end():]
                    if changed != text:
                        yield Fault(name, number, kind, text, changed)


def read_table(path):
    """Rows of a table with tabs; lines that begin with # are remarks."""
    if not path.exists():
        return []
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").split("\n")]
    return [row for row in rows if len(row) >= 3 and not row[0].startswith("#")]


def listed_faults(root, rows):
    """The faults of a table: file, old text, new text, reason and perhaps what is tried first. Each old text stands
    once in its file."""
    for row in rows:
        old, new = (text.replace("\\n", "\n") for text in row[1:3])
        text = (root / row[0]).read_text(encoding="utf-8")
        if text.count(old) != 1:
            print(f"{row[0]}: '{row[1]}' stands there {text.count(old)} times; the table is out of date")
            continue
        before, after = text.split(old)
        first, last = before.rpartition("\n")[2], after.partition("\n")[0]
        yield Fault(row[0], before.count("\n") + 1, "listed", first + old + last, first + new + last,
                    tuple(row[4].split(" ")) if len(row) > 4 else None)


def changed_lines(fault):
    pairs = zip(fault.old.split("\n"), fault.new.split("\n"))
    return {(fault.file, number, old.strip(), new.strip())
            for number, (old, new) in enumerate(pairs, fault.line) if old != new}


def chosen(arguments, known):
    root, tables = arguments.root, arguments.root / "tests/plant"
    if arguments.listed:
        rows = read_table(tables / ("windows.tsv" if arguments.windows else "faults.tsv"))
        return [f for f in listed_faults(root, rows) if f.file.startswith(arguments.folder)]
    equivalents = set().union(*map(changed_lines, listed_faults(root, read_table(tables / "equivalents.tsv"))))
    every = [f for f in candidates(root, known, arguments.folder, arguments.windows)
             if changed_lines(f).isdisjoint(equivalents)]
    # The order depends on each fault alone, so that a change of the sources leaves the other faults of a seed.
    every.sort(key=lambda f: hashlib.sha256(f"{arguments.seed} {f.file} {f.old} {f.new}".encode()).digest())
    return every


def native_planters(arguments):
    build = plant_build.Build(arguments.root, arguments.build)
    coverage = plant_build.Coverage(build)
    return [plant_build.NativePlanter(build, arguments.place / str(number), coverage, arguments.quick)
            for number in range(arguments.jobs or os.cpu_count() or 1)], set(build.library_sources())


def windows_planter(arguments):
    """One planter, for the programs share a desktop; and the sources that the native build has not."""
    root, build = arguments.root, plant_build.Build(arguments.root, arguments.windows)
    pure = plant_build.Build(root, arguments.build).library_sources()

    def likely(fault):
        folder = max((f for f in WINDOWS_PROGRAMS if fault.file.startswith(f + "/")), key=len, default="")
        return WINDOWS_PROGRAMS.get(folder, [])

    planter = plant_build.WindowsPlanter(build, arguments.place / "windows", likely, arguments.quick)
    return [planter], {s for s in build.library_sources() if not s.startswith(("planner/", "ctl/"))} - set(pure)


def main():
    parser = argparse.ArgumentParser(prog="./dev plant")
    parser.add_argument("count", nargs="?", type=int, default=50, help="how many faults (default: 50)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--folder", default="", help="only sources whose path begins so, for example views/timegrid")
    parser.add_argument("--listed", action="store_true", help="the faults of a table in tests/plant instead")
    parser.add_argument("--quick", action="store_true",
                        help="without the last round of what has survived so far; of Windows without slow tests, too")
    parser.add_argument("--jobs", type=int, help="faults at a time (default: one for each processor)")
    for name in ("root", "place", "build", "windows"):
        parser.add_argument(f"--{name}", type=pathlib.Path, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    planters, known = windows_planter(arguments) if arguments.windows else native_planters(arguments)
    faults = chosen(arguments, known)
    results = plant_all(planters, iter(faults), len(faults) if arguments.listed else arguments.count)
    summary(results, arguments)


def plant_all(planters, faults, wanted):
    """Plants until so many have compiled; as many at a time as there are planters."""
    free, results = queue.Queue(), []
    for planter in planters:
        free.put(planter)

    def one(fault):
        planter, started = free.get(), time.monotonic()
        try:
            return fault, planter.try_fault(fault), time.monotonic() - started
        finally:
            free.put(planter)

    with concurrent.futures.ThreadPoolExecutor(len(planters)) as pool:
        running = {pool.submit(one, f) for _, f in zip(planters, faults)}
        while running and len(results) < wanted:
            done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for future in done:
                fault, outcome, seconds = future.result()
                if outcome:
                    results.append((fault, outcome))
                if outcome or fault.kind == "listed":
                    report(fault, outcome or "does not compile", seconds)
                following = next(faults, None)
                if following and len(results) + len(running) < wanted:
                    running.add(pool.submit(one, following))
    return results


def report(fault, outcome, seconds):
    print(f"{seconds:5.1f} s  {outcome:50} {fault.kind:18} {fault.file}:{fault.line}", flush=True)
    if outcome == "survived":
        print(f"    - {fault.old.strip()}\n    + {fault.new.strip()}", flush=True)


def summary(results, arguments):
    caught = sum(outcome != "survived" for _, outcome in results)
    print(f"\n{'folder':18} planted caught")
    folders = collections.Counter(str(pathlib.PurePosixPath(f.file).parent) for f, _ in results)
    for folder, planted in sorted(folders.items()):
        mine = sum(o != "survived" for f, o in results if str(pathlib.PurePosixPath(f.file).parent) == folder)
        print(f"{folder:18} {planted:7} {mine:6}")
    what = "the listed faults" if arguments.listed else f"seed {arguments.seed}"
    print(f"{what}: {caught} of {len(results)} caught ({100 * caught / max(1, len(results)):.1f} %)")


if __name__ == "__main__":
    main()
