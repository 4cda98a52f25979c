"""What ./dev plant plants in: a build that stays as it is, a copy of the sources that takes the faults, and the test
programs with one fault in them, made from the objects of the build and those that the fault changes."""

import collections
import contextlib
import json
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import time

TEST_MS = (50, 1000, 1_000_000)  # tests are tried by their time: those below the first bound, below the next, ...
QUICK_TEST_MS = (50, 160)
MOST_SECONDS = 1200  # for one program, however busy the machine is
HANG_SECONDS, HANG_FACTOR = 60, 10  # what takes longer than this and so many times its own time hangs
HANGS = "it hangs"
TIMED_OUT = (124, -9)  # what timeout returns; the second when it had to kill
MEMORY_LIMIT = 6 << 30  # a fault that never stops to ask for memory
SANITIZERS = "-fsanitize=address,undefined -fno-sanitize-recover=all -fno-sanitize=vptr"


class DoesNotCompile(Exception):
    pass


def output_of(command):
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode:
        sys.exit((done.stdout + done.stderr)[-3000:])
    return done.stdout


class Build:
    """A folder with a finished build: how its objects are compiled, its programs linked, and who includes a header."""

    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.commands, self.sources, self.links, self.members = {}, {}, {}, {}
        for entry in json.loads((folder / "compile_commands.json").read_text()):
            found = re.search(r" -o (\S+) -c (\S+)$", entry["command"])
            if found and found.group(2).startswith(f"{root}/"):
                self.commands[found.group(1)] = entry["command"].replace("ccache ", "")
                self.sources[found.group(1)] = found.group(2)[len(str(root)) + 1:]
        self.programs = [line.split("\t")[0] for line in (folder / "tests.list").read_text().splitlines()]
        self._users = None

    def library_sources(self):
        return [s for s in self.sources.values() if not s.startswith(("tests/", "bench/", "samples/"))]

    def link_of(self, target):
        if target not in self.links:
            commands = output_of(["ninja", "-C", str(self.folder), "-t", "commands", target])
            self.links[target] = commands.rstrip("\n").rpartition("\n")[2]
        return self.links[target]

    def members_of(self, target):
        """The names of the objects that the linker takes from archives for this program."""
        if target not in self.members:
            command = self.link_of(target).replace(f" -o {target} ", f" -Wl,--trace -o {os.devnull} ")
            traced = subprocess.run(command, shell=True, cwd=self.folder, capture_output=True, text=True, check=True)
            self.members[target] = set(re.findall(r"\((\S+)\)$", traced.stdout, re.MULTILINE))
        return self.members[target]

    def objects_with(self, file):
        """The objects that a change of this source or header changes."""
        if not file.endswith(".h"):
            return [o for o, source in self.sources.items() if source == file]
        if self._users is None:
            self._users = collections.defaultdict(list)
            for line in output_of(["ninja", "-C", str(self.folder), "-t", "deps"]).splitlines():
                if not line.startswith(" "):
                    current = line.split(":")[0]
                else:
                    self._users[os.path.normpath(self.folder / line.strip())].append(current)
        return [o for o in self._users[str(self.root / file)] if o in self.commands]


class Coverage:
    """Which tests of the native programs reach which lines, and how long each takes."""

    def __init__(self, build):
        self.times = {}  # program -> test -> milliseconds
        self.reached = collections.defaultdict(lambda: collections.defaultdict(set))  # file -> line -> (program, test)
        for program in build.programs:
            self._read(build, program)
        if not self.reached:
            sys.exit(f"No line of {build.root} is reached: was {build.folder} compiled from other sources?")

    def _read(self, build, program):
        executable = build.folder / "bin" / f"test_{program}"
        written = build.folder / f"reached-{program}.txt"
        if not written.exists() or written.stat().st_mtime < executable.stat().st_mtime:
            done = subprocess.run([executable, "--gtest_brief=1"], capture_output=True, text=True,
                                  env=dict(environment(), DAYVANE_COVERAGE=f"{written}.new"))
            if done.returncode:
                sys.exit(f"test_{program} fails without any fault:\n{done.stdout[-2000:]}")
            os.replace(f"{written}.new", written)
        times, tests_at = {}, collections.defaultdict(list)
        for line in written.read_text().splitlines():
            if "\t" in line:
                test, milliseconds = line.split("\t")
                times[test] = int(milliseconds)
            else:
                tests_at[line].append((program, test))
        self.times[program] = times
        # An address is that of the instruction behind a call; one byte before is the call.
        asked = "\n".join(hex(int(address, 16) - 1) for address in tests_at)
        places = subprocess.check_output(["addr2line", "-e", executable], input=asked, text=True).splitlines()
        for tests, place in zip(tests_at.values(), places):
            file, _, line = place.split(" ")[0].rpartition(":")
            if file.startswith(f"{build.root}/") and line.isdigit():
                self.reached[file[len(str(build.root)) + 1:]][int(line)].update(tests)

    def near(self, file, line):
        """program -> tests that reach the nearest line with code before this one (itself, mostly) or after it."""
        lines = self.reached.get(file, {})
        nearest = {max((l for l in lines if l <= line), default=0), min((l for l in lines if l >= line), default=0)}
        return by_program(set().union(*(lines[l] for l in nearest if l)))

    def of_files(self, files):
        """program -> tests that reach any line of the files."""
        return by_program(set().union(*(tests for file in files for tests in self.reached.get(file, {}).values())))


def by_program(tests):
    found = collections.defaultdict(set)
    for program, test in tests:
        found[program].add(test)
    return found


class Mutant:
    """One fault in the copy of the sources: its objects are compiled and its programs linked as they are asked for."""

    def __init__(self, planter, file, change):
        self.planter, self.change = planter, change
        self.place = planter.place / "made"
        shutil.rmtree(self.place, ignore_errors=True)
        self.place.mkdir(parents=True)
        self.made, self.linked = {}, {}
        self.objects = planter.build.objects_with(file)
        if not self.objects:
            raise DoesNotCompile()

    def object(self, name):
        if name not in self.made:
            target = self.place / f"{len(self.made)}.o"
            command = self.change(self.planter.in_copy(self.planter.build.commands[name]))
            self.do(command.replace(f" -o {name} ", f" -o {target} "))
            self.made[name] = target
        return self.made[name]

    def objects_in(self, target):
        """The changed objects that this program is made of."""
        command, members = self.planter.build.link_of(target), self.planter.build.members_of(target)
        return [o for o in self.objects if f" {o} " in command or pathlib.PurePath(o).name in members]

    def program(self, target, changed_link=lambda command: command):
        """The path of this program or library with the fault in it."""
        if target not in self.linked:
            path = self.place / pathlib.PurePath(target).name
            command = self.planter.build.link_of(target)
            added = []
            for name in self.objects_in(target):
                if f" {name} " in command:
                    command = command.replace(f" {name} ", f" {self.object(name)} ")
                else:
                    added.append(str(self.object(name)))  # before the archive, whose own object is not looked at then
            self.do(changed_link(command.replace(f" -o {target} ", f" -o {path} {' '.join(added)} ")))
            self.linked[target] = path
        return self.linked[target]

    def do(self, command):
        if subprocess.run(command, shell=True, cwd=self.planter.build.folder, capture_output=True).returncode:
            raise DoesNotCompile()


class Planter:
    """A copy of the sources and a folder for what is made from it."""

    def __init__(self, build, place):
        self.build, self.place, self.tree = build, place, place / "tree"
        shutil.rmtree(place, ignore_errors=True)
        for name in output_of(["git", "-C", str(build.root), "ls-files"]).splitlines():
            if (build.root / name).exists():
                (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(build.root / name, self.tree / name)  # with its time, or headers seem to be others

    def in_copy(self, command):
        kept = command.replace(str(self.build.folder), "\0").replace(str(self.build.root), str(self.tree))
        return kept.replace("\0", str(self.build.folder))

    def try_fault(self, fault):
        """'caught by ...', 'survived', or None when the change does not compile."""
        path = self.tree / fault.file
        original = path.read_text(encoding="utf-8")
        lines = original.split("\n")
        lines[fault.line - 1:fault.line + fault.old.count("\n")] = [fault.new]
        path.write_text("\n".join(lines), encoding="utf-8")
        with contextlib.suppress(DoesNotCompile):
            try:
                return self.outcome(fault)
            finally:
                path.write_text(original, encoding="utf-8")
        return None

    def run(self, command, limits=None, seconds=MOST_SECONDS):
        """None when the tests pass, else the test that failed or how the program ended. What computes for ever meets
        the limit of its processor time; only what waits for ever hangs."""
        try:
            done = subprocess.run([*command, "--gtest_fail_fast", "--gtest_brief=1"], cwd=self.place, env=environment(),
                                  timeout=seconds, preexec_fn=limits,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        except subprocess.TimeoutExpired:
            return HANGS
        failed = re.search(rb"\[  FAILED  \] ([\w./]+)", done.stdout)
        return (failed.group(1).decode() if failed else "it crashes") if done.returncode else None


class NativePlanter(Planter):
    """Faults of the pure sources. First the tests that reach the line; what they let through meets every test that
    reaches the file, with sanitizers as in the native build."""

    def __init__(self, build, place, coverage, quick_only):
        super().__init__(build, place)
        self.coverage, self.quick_only = coverage, quick_only

    def outcome(self, fault):
        mutant = Mutant(self, fault.file, quick)
        mutant.object(mutant.objects[0])  # does it compile?
        files = {fault.file, *(self.build.sources[o] for o in mutant.objects)}  # of a header: where it is included
        near, every = self.coverage.near(fault.file, fault.line), self.coverage.of_files(files)
        failed = self.try_tests(mutant, near)
        if not failed and self.quick_only:
            failed = self.try_tests(mutant, {program: names - near[program] for program, names in every.items()})
        return failed or not self.quick_only and self.last_round(fault.file, files) or "survived"

    def try_tests(self, mutant, tests):
        lower = -1
        for bound in TEST_MS:
            steps = []
            for program, names in tests.items():
                times = {t: self.coverage.times[program][t] for t in names}
                chosen = [t for t in sorted(names) if lower < times[t] <= bound]
                if chosen:
                    made = len(mutant.objects_in(f"bin/test_{program}"))
                    steps.append((made, sum(times[t] for t in chosen), program, chosen))
            for _, milliseconds, program, chosen in sorted(steps):
                executable = mutant.program(f"bin/test_{program}", quickly_linked)
                failed = self.run([executable, f"--gtest_filter={':'.join(chosen)}"],
                                  limit(10 + milliseconds / 50, MEMORY_LIMIT))
                if failed:
                    return f"caught by {program}: {failed}"
            lower = bound
        return None

    def last_round(self, changed, files):
        mutant = Mutant(self, changed, sanitized)
        steps = [(sum(self.coverage.times[program][t] for t in names), program, ":".join(sorted(names)))
                 for program, names in self.coverage.of_files(files).items()]
        steps += [(sum(self.coverage.times[program].values()), program, "*") for program in self.build.programs
                  if any(file.startswith(f"tests/{program}/") for file in files)]  # a header that the tests include
        for milliseconds, program, chosen in sorted(steps):
            executable = mutant.program(f"bin/test_{program}", sanitized_link)
            failed = self.run([executable, f"--gtest_filter={chosen}"], limit(60 + milliseconds / 20))
            if failed:
                return f"caught by {program}: {failed} (last round)"
        return None


class WindowsPlanter(Planter):
    """Faults of windows and painters: the DLL is linked again, and the tests run with it under Wine."""
    dll = "bin/Dayvane.dll"
    pictures = "pictures"  # in the place of a program: what views and selectors draw, against the kept pictures

    def __init__(self, build, place, likely, quick_only):
        super().__init__(build, place)
        self.likely, self.quick_only = likely, quick_only  # likely: fault -> programs
        self.times = {}  # program -> test -> milliseconds without a fault
        self.sound = place / "sound"
        self.sound.mkdir()
        build.members[self.dll] = set()  # the linker is given all its objects

    def outcome(self, fault):
        mutant = Mutant(self, fault.file, lambda command: command)
        mutant.program(self.dll, lambda command: command.replace("libDayvane.dll.a", f"{mutant.place}/unused.a"))
        for step in self.steps(fault):
            failed = self.failure(mutant.place, *step)
            if failed:
                return f"caught by {step[0]}: {failed}"
        return "survived"

    def steps(self, fault):
        """(program, filter, milliseconds) of what is tried: what the fault's row names, the likely programs, the quick
        tests of each first, then the pictures and the other programs."""
        if fault.first:
            yield *fault.first, 10_000
        likely = self.likely(fault)
        for programs in (likely, [p for p in self.build.programs if p not in likely]):
            lower = -1
            for bound in QUICK_TEST_MS if self.quick_only else TEST_MS:
                for program in programs:
                    times = self.times_of(program)
                    chosen = [test for test, ms in times.items() if lower < ms <= bound]
                    if chosen:
                        yield program, ":".join(chosen), sum(times[test] for test in chosen)
                lower = bound
            if programs is likely:
                yield self.pictures, "", 10_000

    def times_of(self, program):
        """How long each test takes, kept until the program changes; by the way, all of them pass without a fault."""
        if program not in self.times:
            executable = self.build.folder / "bin" / f"test_{program}.exe"
            kept = self.place.parent / f"times-{program}.json"
            if not kept.exists() or kept.stat().st_mtime < executable.stat().st_mtime:
                kept.write_text(json.dumps(self.measured(program)))
            self.times[program] = json.loads(kept.read_text())
        return self.times[program]

    def measured(self, program):
        self.provide(self.sound, program)
        done = subprocess.run(["wine", self.sound / f"test_{program}.exe"], cwd=self.sound, env=environment(),
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, errors="replace")
        if done.returncode:
            sys.exit(f"test_{program} fails without any fault:\n{done.stdout[-2000:]}")
        passed = re.findall(r"^\[       OK \] (\S+?)(?:, where .*)? \((\d+) ms\)", done.stdout, re.MULTILINE)
        return {test: int(milliseconds) for test, milliseconds in passed}

    def failure(self, place, program, names, milliseconds):
        """What fails with the fault and passes without it."""
        seconds = HANG_SECONDS + HANG_FACTOR * milliseconds / 1000
        failed = self.run_step(place, program, names, seconds)
        if not failed:
            return None
        if "." in failed:
            names = failed
        started = time.monotonic()
        if self.run_step(self.sound, program, names, seconds):
            print(f"       {program} {names[:60]} fails without the fault, too", flush=True)
            return None
        if failed == HANGS and time.monotonic() - started > seconds / 4:
            return self.failure(place, program, names, 4000 * seconds)  # the machine is busy
        return failed

    def run_step(self, place, program, names, seconds):
        if program == self.pictures:
            self.provide(place, program)
            script = self.build.root / "tests/outside/master_pictures.sh"
            done = subprocess.run(["timeout", "-k", "20", str(int(seconds)), "bash", script,
                                   place / "master_pictures.exe", self.build.root / "tests/pictures", place / "drawn"],
                                  cwd=place, env=environment(), capture_output=True, text=True)
            if done.returncode in TIMED_OUT:
                return HANGS
            return done.stdout.split(":")[0] or "it crashes" if done.returncode else None
        self.provide(place, program)
        return self.run(["wine", place / f"test_{program}.exe", f"--gtest_filter={names}"], seconds=seconds)

    def provide(self, place, program):
        """The program in this folder, and what it needs as it was built."""
        executable = f"master_{program}.exe" if program == self.pictures else f"test_{program}.exe"
        for file in [*(self.build.folder / "bin").glob("*.dll"), self.build.folder / "bin" / executable]:
            if not (place / file.name).exists():
                (place / file.name).symlink_to(file)


def quick(command):
    for flag in ("-fsanitize-coverage=trace-pc", "-g1"):
        command = command.replace(f" {flag}", "")
    return command


def quickly_linked(command):
    return command.replace(" -o ", " -Wl,--strip-debug -Wl,--threads=1 -o ", 1)


def sanitized(command):
    return command.replace("-fsanitize-coverage=trace-pc", SANITIZERS)


def sanitized_link(command):
    return command.replace("-fsanitize-coverage=trace-pc", SANITIZERS, 1)


def limit(seconds, memory=None):
    def set_limits():
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds), int(seconds) + 1))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        if memory:
            resource.setrlimit(resource.RLIMIT_AS, (memory, memory))
    return set_limits


def environment():
    return os.environ if "WINEPREFIX" in os.environ else dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC")
