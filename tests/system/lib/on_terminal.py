#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""on_terminal.py [PROMPT ANSWER]... -- COMMAND... : runs COMMAND on a new terminal, types each ANSWER and
Enter when its PROMPT is shown, and ends with COMMAND's status. Prints what the terminal showed. After 100
seconds it kills COMMAND and says on standard error where each of its threads waits. If KELM_OUTPUT names a
file, the command's standard output goes there instead of to the terminal."""
import glob
import os
import pty
import select
import sys
import time

LIMIT = 100


def run(command):
    output = os.environ.get("KELM_OUTPUT")
    if output:
        os.dup2(os.open(output, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o644), 1)
    os.execvp(command[0], command)


def text_of(path):
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            return " ".join(file.read().replace("\0", " ").split())
    except OSError:
        return ""


def family(process):
    """The process and all its descendants."""
    found = [process]
    for each in found:
        for children in glob.glob(f"/proc/{each}/task/*/children"):
            found += text_of(children).split()
    return found


def tell_where_it_waits(process):
    for each in family(process):
        print(f"on_terminal.py: {each} {text_of(f'/proc/{each}/cmdline')}", file=sys.stderr)
        for thread in glob.glob(f"/proc/{each}/task/*"):
            state = [text_of(f"{thread}/{name}") for name in ("wchan", "syscall", "stack")]
            print(f"  {os.path.basename(thread)}: {' | '.join(state)}", file=sys.stderr)


def main():
    split = sys.argv.index("--")
    words = sys.argv[1:split]
    answers = list(zip(words[::2], words[1::2]))
    process, terminal = pty.fork()
    if process == 0:
        run(sys.argv[split + 1:])
    shown = b""
    seen = 0
    end = time.monotonic() + LIMIT
    while time.monotonic() < end and select.select([terminal], [], [], LIMIT)[0]:
        try:
            shown += os.read(terminal, 4096)
        except OSError:
            break
        if answers and answers[0][0].encode() in shown[seen:]:
            seen = len(shown)
            time.sleep(0.2)
            os.write(terminal, answers.pop(0)[1].encode() + b"\n")
    sys.stdout.buffer.write(shown)
    sys.stdout.flush()
    if time.monotonic() >= end:
        tell_where_it_waits(process)
        os.kill(process, 9)
    sys.exit(os.waitstatus_to_exitcode(os.waitpid(process, 0)[1]))


main()
