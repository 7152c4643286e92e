#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""watched.py FILE COMMAND... : runs COMMAND and ends with its status. Writes one line to FILE: COMMAND's
time in ms, its peak memory in kB (the sum of the proportional set sizes of COMMAND and all its descendants),
and its processor time in ms."""
import os
import sys
import time

PAUSE = 0.2


def descendants(process):
    try:
        with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
            children = file.read().split()
    except OSError:
        children = []
    for child in children:
        yield from descendants(child)
    yield process


def memory(process):
    try:
        with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
            return sum(int(line.split()[1]) for line in file if line.startswith("Pss:"))
    except OSError:
        return 0


def main():
    start = time.monotonic()
    command = os.fork()
    if command == 0:
        os.execvp(sys.argv[2], sys.argv[2:])
    most = 0
    ended = 0
    while not ended:
        most = max(most, sum(memory(each) for each in descendants(command)))
        time.sleep(PAUSE)
        ended, status, used = os.wait4(command, os.WNOHANG)
    with open(sys.argv[1], "w", encoding="ascii") as file:
        print(round((time.monotonic() - start) * 1000), most,
              round((used.ru_utime + used.ru_stime) * 1000), file=file)
    sys.exit(os.waitstatus_to_exitcode(status))


main()
