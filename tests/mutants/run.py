#!/usr/bin/env python3
# Breaks the program in one place at a time and checks whether a test notices (make mutants).
# SPDX-License-Identifier: Apache-2.0
"""run.py [OPTION]... [DIRECTORY | FILE | TEXT]...

Each DIRECTORY.txt next to this file lists mutants of one directory of the product (see README.md there).
Works in build-mutants/. That has a copy of the tree, a build without optimisation, and results.txt, from
which the next run continues. Arguments choose lists by name, or mutants by a part of their file or text.
"""
import argparse
import fcntl
import hashlib
import json
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parents[1]
WORK = SOURCE / "build-mutants"
TREE = WORK / "tree"
BUILD = WORK / "build"
KEPT = WORK / "kept"  # a copy of BUILD for the unchanged program
MEASURED = WORK / "measured.json"
RESULTS = WORK / "results.txt"

# In the order in which they run, after those of the mutant's own directory.
UNIT_TESTS = ("base job psrewrite pjl ppdsettings wakeup snmp stdoptions filter explain platform ppd ppdtext "
              "wolservice ctl").split()

# A document or a list that is out of date is no mistake that a printer would notice.
LEFT_OUT = ("HeaderDocument.IsUpToDate", "EveryVariable.*")

MEMORY = 4 << 30  # bytes of address space for a test
FILE_SIZE = 256 << 20
SLOWER = 10  # the limit, as a multiple of the processor time for the unchanged program
LEAST_SECONDS = 20
WAITING = 300  # seconds that a test may take in all
SLOW = 0.3  # seconds; a test that takes longer runs after the others of its program


class Mutant:
    def __init__(self, listed, line):
        self.listed, self.line = listed, line
        self.file, self.wrong, self.equal, self.system = "", "", "", ""
        self.old, self.new = [], []

    @property
    def key(self):
        text = "\0".join([self.file, "\n".join(self.old), "\n".join(self.new), self.system])
        return hashlib.sha256(text.encode()).hexdigest()[:16]

    def problem(self):
        path = SOURCE / self.file
        text = path.read_text() if path.is_file() else None
        if text is None:
            return f"there is no file {self.file}"
        if not self.old or not self.wrong:
            return "a mutant needs the lines ? and -"
        count = text.count("\n".join(self.old))
        if count != 1:
            return f"{self.file} has its text {count} times: {self.old[0]}"
        if self.old == self.new:
            return "nothing is changed"
        return None

    def apply(self):
        path = TREE / self.file
        path.write_text(path.read_text().replace("\n".join(self.old), "\n".join(self.new)))


def read_list(path):
    """The mutants of one list, which README.md describes."""
    mutants, file = [], ""
    for number, line in enumerate(path.read_text().split("\n"), 1):
        mark, text = line[:1], line[2:]
        if mark in ("", "#"):
            continue
        if mark == "[":
            file = line.strip("[]")
            continue
        if mark == "?":
            mutants.append(Mutant(path.stem, number))
            mutants[-1].file = file
        mutant = mutants[-1]
        if mark == "?":
            mutant.wrong = text
        elif mark == "-":
            mutant.old.append(text)
        elif mark == "+":
            mutant.new.append(text)
        elif mark == "=":
            mutant.equal = (mutant.equal + " " + text).strip()
        elif mark == "@":
            mutant.system = text
        else:
            sys.exit(f"{path.name}:{number}: a line begins with one of [ ? - + = @ #")
    return mutants


def copy_tree():
    """Makes TREE a copy of the files that git knows or would add. Unchanged files keep their time."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=SOURCE,
                            check=True, capture_output=True, text=True).stdout.split("\0")
    wanted = {name for name in listed if name and (SOURCE / name).is_file()}
    for name in wanted:
        source, copy = SOURCE / name, TREE / name
        if copy.is_file() and copy.read_bytes() == source.read_bytes():
            continue
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, copy)
        shutil.copymode(source, copy)
    for path in TREE.rglob("*"):
        if path.is_file() and str(path.relative_to(TREE)) not in wanted:
            path.unlink()


def configure():
    if (BUILD / "build.ninja").exists():
        return
    linker = next((name for name in ("mold", "lld", "gold") if shutil.which("ld." + name)), None)
    command = ["cmake", "-G", "Ninja", "-S", TREE, "-B", BUILD, "-DCMAKE_BUILD_TYPE=None",
               "-DCMAKE_CXX_FLAGS=-O0 -g0 -Wno-cpp"]
    if linker:
        command.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=" + linker)
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def build(jobs, *targets):
    """Builds the targets. Returns whether that worked; if not, the log says why."""
    with open(WORK / "build.log", "w") as log:
        return subprocess.run(["ninja", "-C", BUILD, "-j", str(jobs), *targets], stdout=log,
                              stderr=log, stdin=subprocess.DEVNULL).returncode == 0


def build_files():
    """Every file in BUILD except ninja's own, with its time."""
    for directory, _, names in os.walk(BUILD):
        for name in names:
            path = os.path.join(directory, name)
            if not name.startswith(".ninja"):
                yield path, os.stat(path).st_mtime_ns


def keep_build():
    """Makes KEPT a copy of BUILD, so that the unchanged program need not be built again after a mutant."""
    times = {}
    for path, time_of in build_files():
        kept = KEPT / os.path.relpath(path, BUILD)
        times[path] = time_of
        if not kept.is_file() or kept.stat().st_mtime_ns != time_of:
            kept.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(path, kept)
    return times


def restore_build(times):
    """Makes BUILD a copy of KEPT, with the same times, so ninja finds nothing to do."""
    for path, time_of in build_files():
        if path not in times:
            os.unlink(path)
        elif times[path] != time_of:
            os.unlink(path)
            shutil.copy2(KEPT / os.path.relpath(path, BUILD), path)


class Test:
    """A test program, and the programs that its result depends on."""

    def __init__(self, name, command, directory, programs):
        self.name, self.command, self.directory, self.programs = name, command, directory, programs
        self.targets = [str(program.relative_to(BUILD)) for program in programs]
        self.limit = LEAST_SECONDS  # of processor time
        self.slow = []
        self.times = None

    def measure(self, known):
        """Runs the tests with the unchanged program. Returns the failure, or an empty text; notes the times in
        `known`."""
        self.times = self.program_times()
        entry = known.get(self.name, {})
        if entry.get("times") == self.times:
            self.limit, self.slow = entry["limit"], entry["slow"]
            return ""
        self.limit = WAITING
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        report = WORK / "times.json"
        failure = self.run([f"--gtest_output=json:{report}"], ["-" + ":".join(LEFT_OUT)])
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        spent = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        if not failure:
            self.limit = LEAST_SECONDS + int(SLOWER * spent)
            suites = json.loads(report.read_text())["testsuites"]
            self.slow = [f"{suite['name']}.{case['name']}" for suite in suites for case in suite["testsuite"]
                         if float(case["time"].rstrip("s")) > SLOW]
            known[self.name] = {"times": self.times, "limit": self.limit, "slow": self.slow}
            print(f"{self.name}: {spent:.1f} s", flush=True)
        return failure

    def program_times(self):
        return [program.stat().st_mtime_ns for program in self.programs]

    def is_new(self):
        """Whether the programs were linked again for a mutant."""
        return self.program_times() != self.times

    def ask(self, isOwn):
        """Runs the tests with a mutant. Returns the failure, or an empty text. Slow tests run only for the
        mutant's own directory and for the golden cases."""
        if not self.programs:
            return self.run()
        failure = self.run([], ["-" + ":".join([*LEFT_OUT, *self.slow])])
        if not failure and self.slow and (isOwn or self.name == "cases"):
            failure = self.run([], [":".join(self.slow)])
        return failure

    def limits(self):
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
        resource.setrlimit(resource.RLIMIT_CPU, (self.limit, self.limit + 5))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    def run(self, arguments=(), tests=()):
        """Runs the program. Returns the failure, or an empty text."""
        environment = {**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1", "KELM_BUILD": str(BUILD)}
        environment.update({"GTEST_FILTER": choice for choice in tests})
        with open(WORK / "test.log", "wb") as log:
            process = subprocess.Popen([*self.command, *arguments], cwd=self.directory, env=environment,
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                       start_new_session=True, preexec_fn=self.limits)
            try:
                status = process.wait(WAITING)
            except subprocess.TimeoutExpired:
                status = None
            if status != 0:  # its children too, if any are left
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()
        if status == 0:
            return ""
        if status is None or status in (-signal.SIGXCPU, -signal.SIGKILL):
            return f"{self.name}: takes too long"
        output = (WORK / "test.log").read_text(errors="replace").split("\n")
        failed = [line.split()[3].rstrip(",") for line in output
                  if line.startswith("[  FAILED  ] ") and len(line.split()) > 3 and "." in line.split()[3]]
        if failed:
            return f"{self.name}: {failed[0]}"
        last = next((line for line in reversed(output) if line.strip()), "")
        return f"{self.name}: status {status}: {last[:120]}"


def all_tests():
    tests = {}
    for name in UNIT_TESTS:
        directory = BUILD / "tests/unit" / name
        program = directory / f"{name}_test"
        tests[name] = Test(name, [program], directory, [program])
    directory = BUILD / "tests/cases"
    program = directory / "cases_test"
    tests["cases"] = Test("cases", [program], directory, [program, BUILD / "kelmfilter"])
    return tests


def measure(tests, jobs):
    """Checks that the unchanged program passes its tests, and measures them if their times are not known."""
    print("building the unchanged program", flush=True)
    if not build(jobs, *[target for test in tests.values() for target in test.targets]):
        sys.exit(f"the program does not compile: see {WORK / 'build.log'}")
    known = json.loads(MEASURED.read_text()) if MEASURED.exists() else {}
    for test in tests.values():
        if failure := test.measure(known):
            sys.exit(f"the unchanged program fails: {failure}; see {WORK / 'test.log'}")
        MEASURED.write_text(json.dumps(known))


def system_test(words):
    """The system test of a line "NAME TARGET...". Without targets it needs all programs."""
    name, *targets = words.split()
    script = TREE / "tests/system" / f"{name}_test.sh"
    test = Test("system/" + name, ["sh", script], TREE, [])
    test.limit = WAITING
    test.targets = targets or ["all"]
    return test


def verdict_of(mutant, tests, jobs):
    own = mutant.file.split("/")[0]
    order = [own, "cases", *tests]
    steps = [tests[name] for i, name in enumerate(order) if name in tests and name not in order[:i]]
    if mutant.system:
        steps.insert(1 if own in tests else 0, system_test(mutant.system))
    for step in steps:
        isSystem = step.name.startswith("system/")
        if not build(jobs, *step.targets):
            return "invalid", "does not compile"
        # A program that was not linked again cannot notice the mutant.
        if not isSystem and not step.is_new():
            continue
        failure = step.ask(step.name == own)
        if failure:
            return "killed", failure
    return "survived", ""


def known_results():
    """The last result of each mutant, by its key."""
    if not RESULTS.exists():
        return {}
    rows = [line.split("\t") for line in RESULTS.read_text().split("\n") if line]
    return {row[0]: row[1:] for row in rows if len(row) == 5}


def summary(mutants, results):
    names = ("killed", "survived", "equivalent", "invalid", "not run")
    counts = {}
    for mutant in mutants:
        verdict = results.get(mutant.key, ["not run"])[0]
        if mutant.equal and verdict == "survived":
            verdict = "equivalent"
        row = counts.setdefault(mutant.file.split("/")[0], dict.fromkeys(names, 0))
        row[verdict] += 1
    print("{:12}".format("") + "".join(f"{name:>12}" for name in names))
    for directory, row in counts.items():
        print(f"{directory:12}" + "".join(f"{row[name]:12}" for name in names))
    total = {name: sum(row[name] for row in counts.values()) for name in names}
    print(f"{'together':12}" + "".join(f"{total[name]:12}" for name in names))
    for mutant in mutants:
        verdict = results.get(mutant.key, ["not run"])[0]
        where = f"tests/mutants/{mutant.listed}.txt:{mutant.line}: {mutant.wrong}"
        if verdict == "killed" and mutant.equal:
            print(f"killed, but marked as equivalent: {where}")
        elif verdict == "invalid" or (verdict == "survived" and not mutant.equal):
            print(f"{verdict}: {where}")
    return total["survived"] + total["invalid"] + total["not run"]


def is_chosen(mutant, words):
    return not words or any(word == mutant.listed or word in mutant.file or word in mutant.wrong
                            for word in words)


def main():
    parser = argparse.ArgumentParser(prog="run.py", description="mutation test of the product")
    parser.add_argument("--jobs", type=int, default=1, help="parallel compilations (1)")
    parser.add_argument("--minutes", type=float, default=1e6, help="stop after this time")
    parser.add_argument("--tests", help="run only these: names of directories, and cases")
    parser.add_argument("--again", action="store_true", help="run killed mutants again, too")
    parser.add_argument("--check", action="store_true", help="only check that the lists fit the tree")
    parser.add_argument("--report", action="store_true", help="only show the results so far")
    parser.add_argument("chosen", nargs="*", help="lists, or parts of a file's name or of a text")
    arguments = parser.parse_args()

    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.default_int_handler)
    end = time.monotonic() + 60 * arguments.minutes
    mutants = [mutant for path in sorted(HERE.glob("*.txt")) for mutant in read_list(path)]
    problems = [f"tests/mutants/{mutant.listed}.txt:{mutant.line}: {problem}"
                for mutant in mutants if (problem := mutant.problem())]
    keys = [mutant.key for mutant in mutants]
    problems += [f"tests/mutants/{mutant.listed}.txt:{mutant.line}: is listed twice"
                 for i, mutant in enumerate(mutants) if mutant.key in keys[:i]]
    if problems:
        sys.exit("\n".join(problems))
    mutants = [mutant for mutant in mutants if is_chosen(mutant, arguments.chosen)]
    if arguments.check:
        print(f"{len(mutants)} mutants")
        return
    results = known_results()
    # A killed mutant stays killed until its text changes; the others run again.
    open_ones = [mutant for mutant in mutants
                 if arguments.again or results.get(mutant.key, [""])[0] != "killed"]
    if arguments.report or not open_ones:
        sys.exit(1 if summary(mutants, results) else 0)
    TREE.mkdir(parents=True, exist_ok=True)
    lock = open(WORK / "lock", "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError:
        sys.exit("another run is going on in build-mutants/")
    copy_tree()
    configure()
    tests = all_tests()
    if arguments.tests:
        tests = {name: tests[name] for name in arguments.tests.split(",")}
    measure(tests, arguments.jobs)
    times = keep_build()
    for number, mutant in enumerate(open_ones, 1):
        start = time.monotonic()
        if start > end:
            break
        path = TREE / mutant.file
        original, state = path.read_bytes(), path.stat()
        try:
            mutant.apply()
            verdict, reason = verdict_of(mutant, tests, arguments.jobs)
        finally:
            path.write_bytes(original)
            os.utime(path, ns=(state.st_atime_ns, state.st_mtime_ns))
            restore_build(times)
        results[mutant.key] = [verdict, mutant.file, mutant.wrong, reason]
        with open(RESULTS, "a") as file:
            file.write("\t".join([mutant.key, *results[mutant.key]]) + "\n")
        seconds = time.monotonic() - start
        print(f"{number}/{len(open_ones)} {verdict} ({seconds:.0f} s) {mutant.file}: {mutant.wrong}"
              + (f" [{reason}]" if reason else ""), flush=True)
    sys.exit(1 if summary(mutants, results) else 0)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("interrupted; the next run continues here")
