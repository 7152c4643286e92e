# explain_cases.py : compares what kelmctl explain says about jobs with cases in files.
#
#   explain_cases.py KELMCTL PPD HEADER_TABLE FILE...
#
# Lines of a FILE:
#   case WHAT             begins a case
#   language LOCALE       the user's language (default: en_US)
#   title TITLE           of the job
#   -x ARGUMENT           an argument of kelmctl explain, quoted as for a shell
#   VARIABLE=VALUE | NAME: CHOICE | SOURCE
#                         a line of the header, what it means and where its value comes from
#   says TEXT             a message about the options; all messages must be listed
# A case must have a line for every line of the header that its options change. HEADER_TABLE is
# docs/pjl-header.md: each of its variables must have a line in at least one case.
# SPDX-License-Identifier: Apache-2.0
import os
import re
import shlex
import sys

from case_files import read_cases, report, run


def new_case(what):
    return {"what": what, "language": "en_US", "arguments": [], "lines": [], "says": []}


def add_line(case, word, rest, line):
    if word == "language":
        case["language"] = rest
    elif word == "title":
        case["arguments"] += ["--title", rest]
    elif word == "says":
        case["says"].append(rest)
    elif word.startswith("-"):
        case["arguments"] += shlex.split(line)
    elif line.count(" | ") == 2:
        case["lines"].append(line)
    else:
        return False
    return True


def explained(kelmctl, ppd, case, mode):
    """The lines of the header in the form of the cases, and the messages."""
    environment = {"PATH": os.environ["PATH"], "HOME": os.environ["HOME"],
                   "LANG": case["language"] + ".UTF-8"}
    done = run([kelmctl, "explain", "--ppd", ppd, mode, *case["arguments"]], env=environment)
    found = re.findall(r"^(\S.*?) {2,}@PJL SET (\S*?=.*?) {2,}(.+)$", done.stdout, re.M)
    says = [line.removeprefix("kelmctl: ") for line in done.stderr.splitlines()]
    if done.returncode != (1 if says else 0):
        says.append(f"status {done.returncode}")
    return [" | ".join((setting.strip(), meaning, source)) for meaning, setting, source in found], says


def differences(kelmctl, ppd, case):
    every, says = explained(kelmctl, ppd, case, "--all")
    changed, _ = explained(kelmctl, ppd, case, "--changed")
    if not every:
        return ["no line of a header"]
    wrong = []
    for line in case["lines"]:
        if line in every:
            continue
        variable = line.partition("=")[0]
        wrong.append(f"expected {line}")
        wrong += [f"found    {other}" for other in every if other.partition("=")[0] == variable]
    wrong += [f"no case for {line}" for line in changed
              if line.partition("=")[0] not in {one.partition("=")[0] for one in case["lines"]}]
    wrong += [f"does not say: {text}" for text in case["says"] if text not in says]
    wrong += [f"says: {text}" for text in says if text not in case["says"]]
    return wrong


def variables_of(table):
    names = re.findall(r"^\| \d+ \| ([A-Z0-9a-z ]+) \|", open(table, encoding="utf-8").read(), re.M)
    return {word for name in names for word in re.split(" or | and ", name)}


def main():
    kelmctl, ppd, table, *files = sys.argv[1:]
    failed = 0
    count = 0
    covered = set()
    for path in files:
        for case in read_cases(path, "case", new_case, add_line):
            count += 1
            covered |= {line.partition("=")[0] for line in case["lines"]}
            failed += report(case["what"], differences(kelmctl, ppd, case))
    wanted = variables_of(table)
    if len(wanted) < 100:
        sys.exit(f"{table}: only {len(wanted)} variables found")
    for name in sorted(wanted - covered):
        print(f"no case in tests/system/explain/ explains {name}", file=sys.stderr)
    print(f"{count} cases, {failed} wrong; {len(wanted & covered)} of {len(wanted)} variables explained")
    return failed != 0 or not wanted <= covered


sys.exit(main())
