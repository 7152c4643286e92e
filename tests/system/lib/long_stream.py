# long_stream.py : sends long streams to kelmctl explain through a pipe, and measures its memory.
#
#   long_stream.py FRONT KELMCTL
#
# FRONT is a file with a header and the beginning of the PostScript, in which QVDuplex is LongEdge. The
# last section of each stream contradicts it.
# SPDX-License-Identifier: Apache-2.0
import json
import os
import subprocess
import sys
import tempfile
import time

MEGABYTE = 1 << 20
LINE = b"123.456 234.567 m 345.678 456.789 l s\n"
PAGE = b"%%Page: 1 1\n" + LINE * 25000 + b"showpage\n"
BLOCK = (PAGE * 2)[:MEGABYTE]
SECTION = (b"\n%%BeginFeature: *QVDuplex OFF\n(OFF) userdict exch /QVDuplex exch put\n%%EndFeature\n"
           b"showpage\n")
MOST_KILOBYTES = 64 * 1024
MOST_GROWTH = 2 * 1024


def explained(kelmctl, front, blocks):
    """Lets kelmctl explain a stream, checks the result, and returns kelmctl's peak memory."""
    with tempfile.TemporaryFile() as out:
        reader, writer = os.pipe()
        process = subprocess.Popen([kelmctl, "explain", "--stream", "-", "--json"], stdin=reader,
                                   stdout=out)
        os.close(reader)
        begin = time.monotonic()
        with open(writer, "wb", buffering=0) as stream:
            stream.write(front)
            for _ in range(blocks):
                rest = memoryview(BLOCK)
                while rest:
                    rest = rest[stream.write(rest):]
            stream.write(SECTION)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        seconds = time.monotonic() - begin
        out.seek(0)
        report = json.load(out)
    size = len(front) + blocks * MEGABYTE + len(SECTION)
    print(f"{size} bytes: {usage.ru_maxrss} KB, {size / MEGABYTE / seconds:.0f} MB/s")
    if process.returncode != 1:
        sys.exit(f"status {process.returncode}")
    if report["size"] != size:
        sys.exit(f"{report['size']} bytes are read of {size}")
    wrong = {each["offset"] for each in report["findings"]}
    if wrong != {len(front) + blocks * MEGABYTE + 1}:
        sys.exit(f"the contradiction in the last section is not the only finding: {report['findings']}")
    return usage.ru_maxrss


def main():
    front_file, kelmctl = sys.argv[1:]
    with open(front_file, "rb") as file:
        front = file.read()
    short, long = (explained(kelmctl, front, blocks) for blocks in (16, 1024))
    if long > MOST_KILOBYTES or long > short + MOST_GROWTH:
        sys.exit(f"{long} KB for 1 GB, and {short} KB for 16 MB")


main()
