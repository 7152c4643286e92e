# case_files.py : shared by the tests whose jobs are in files: reads the files, runs the commands, reports
# what is wrong.
# SPDX-License-Identifier: Apache-2.0
import subprocess
import sys


def read_cases(path, word, new_case, add_line):
    """The cases of a file. A line "WORD WHAT" begins one: new_case(WHAT) makes it, and add_line(case, word,
    rest, line) adds each line after it, or returns False if it does not know the line. Empty lines and
    lines that begin with "#" are ignored."""
    cases = []
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if not line or line.startswith("#"):
            continue
        first, _, rest = line.partition(" ")
        if first == word:
            cases.append(new_case(rest))
        elif not cases or add_line(cases[-1], first, rest, line) is False:
            sys.exit(f"{path}: unknown line: {line}")
    return cases


def run(command, **others):
    """Runs the command and returns its result. The output is text, unless `others` say something else."""
    return subprocess.run(command, **{"capture_output": True, "text": True, "timeout": 60,
                                      "check": False, **others})


def report(what, problems):
    """Prints the problems of one case; returns whether there are any."""
    for each in problems:
        print(f"{what}: {each}", file=sys.stderr)
    return bool(problems)
