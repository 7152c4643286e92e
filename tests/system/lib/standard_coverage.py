# standard_coverage.py : names the values of standard options that no job in a file asks for.
#
#   standard_coverage.py PPD STANDARD_CHOICES ATTRIBUTES JOBS
#
# The values are the choices of the PPD's standard options and finishings, those in the filter's table
# (stdoptions/standard_choices.hpp), and those that the queue offers to clients (standard/attributes.txt).
# JOBS (described in standard_jobs.py) must ask for each value by lp, by Print-Job and by Create-Job, and by
# each of them for a PostScript document, a PDF and a text. Words in "media" need each of the three ways, but
# only one document.
# SPDX-License-Identifier: Apache-2.0
import re
import shlex
import sys

from standard_jobs import WAYS, read_jobs

FORMATS = ("ps", "pdf", "text")
# The numbers for the words that ipptool prints (RFC 8011, 5.2.13).
QUALITIES = {"draft": "3", "normal": "4", "high": "5"}
# Attributes whose values jobs write differently. The finishings come from the PPD, by their numbers.
NOT_ASKED_FOR = ("finishings", "urf", "job-password", "job-password-encryption")


def choice_tables(source):
    """The filter's table: the choices of each standard option, a pair of source and name."""
    lists = {name: re.findall(r'\{"([^"]+)", "[^"]+"\}', rows) for name, rows in re.findall(
        r"constexpr StandardChoice (k\w+)\[\] = \{(.*?)\n\};", source, re.S)}
    return [(where, name, lists[table]) for where, name, table in re.findall(
        r'\{Source::k(\w+), "([^"]+)", "\w+", (k\w+)\}', source)]


def wanted_values(ppd, source, attributes):
    """Pairs of an option and a value, and separately the words of media."""
    tables = choice_tables(source)
    wanted = {(name, choice) for where, name, choices in tables if name != "media" for choice in choices}
    for name in {name for where, name, _ in tables if where == "Marked"}:
        wanted |= {(name, choice) for choice in re.findall(rf"^\*{name} (\w+)/", ppd, re.M)}
    wanted |= {("finishings", number) for number in re.findall(r"^\*cupsIPPFinishings (\d+)/", ppd, re.M)}
    for line in attributes.splitlines():
        name, *values = line.split()
        name = name.removesuffix("-supported")
        if name not in NOT_ASKED_FOR:
            wanted |= {(name, QUALITIES.get(value, value)) for value in values}
    words = {("media", choice) for _, name, choices in tables if name == "media" for choice in choices}
    return wanted, words


def asked_for(way, lines):
    """The pairs of an option and a value that a job's lines for one way of submission ask for."""
    if way == "lp":
        words = shlex.split(" ".join(lines))
        pairs = [word.partition("=")[::2] for word in words if "=" in word]
    else:
        pairs = [words[-2:] for words in map(str.split, lines) if words[0] != "collection"]
        pairs += re.findall(r"MEMBER keyword (\S+) (\S+)", " ".join(lines))
    return {(name, value) for name, values in pairs for value in values.split(",")}


def lower(pairs):
    return {(name, value.lower()) for name, value in pairs}


def main():
    ppd, source, attributes, jobs_file = sys.argv[1:]
    wanted, words = wanted_values(*(open(path, encoding="utf-8").read()
                                    for path in (ppd, source, attributes)))
    if len(wanted) < 80 or len(words) < 30:
        sys.exit(f"only {len(wanted)} values and {len(words)} words of media found")
    asked = {(way, document): set() for way in WAYS for document in FORMATS}
    for job in read_jobs(jobs_file):
        for way, lines in job["ways"].items():
            for document in job["documents"]:
                asked.get((way, document), set()).update(lower(asked_for(way, lines)))
    missing = [f"{name}={value} ({way}, {document})" for (way, document), pairs in asked.items()
               for name, value in lower(wanted) - pairs]
    for way in WAYS:
        of_way = set().union(*(asked[way, document] for document in FORMATS))
        missing += [f"{name}={value} ({way})" for name, value in lower(words) - of_way]
    for each in sorted(missing):
        print(f"no job asks for {each}", file=sys.stderr)
    print(f"{len(wanted)} values and {len(words)} words of media; {len(missing)} are missing")
    return bool(missing)


if __name__ == "__main__":
    sys.exit(main())
