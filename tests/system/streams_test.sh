#!/bin/sh
# The filter with streams that are closed, slow, full or of the wrong kind: nothing hangs, nothing is lost
# silently, and nothing goes to the wrong place.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/system_log.sh
. "$HERE/lib/system_log.sh"

# The command without the options; used unquoted, as several words.
FILTER="$BUILD/kelmfilter 1 user title 1"
# shellcheck disable=SC2086
filter() { env PPD= $FILTER "$@"; }

# job COMMAND : runs a shell command for 20 seconds at most; its exit status is in $status
job() {
  status=0
  timeout -k 1 20 sh -c "$1" >"$W/sh_out" 2>"$W/sh_err" || status=$?
}

printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"
yes '%a line of a large job, 47 bytes with its feed' | head -n 400000 >"$W/large.ps"
filter '' <"$W/large.ps" >"$W/whole.prn"
filter '' </dev/null >"$W/header.prn"
system_log_start "$W/syslog"

# Closed standard input counts as empty. No socket or file of the filter takes the place of a closed stream.
job "$FILTER '' <&- >'$W/out'"
expect "status without standard input" 0 "$status"
cmp "$W/header.prn" "$W/out" >&2 || fail "not the header alone without standard input"
job "$FILTER 'UpdatePPDOptions IsWakeOnLan=a\\ b QVJobName=ON' <'$W/page.ps' >&- 2>&-"
expect "status of an update job without output" 0 "$status"
job "$FILTER '' <'$W/page.ps' >&- 2>&-"
expect "status without standard output and error" 0 "$status"
if grep -qa '@PJL\|showpage' "$W/syslog"; then fail "the job went to the system log"; fi

# Non-blocking pipes and slow programs on both sides: every byte arrives, even with SIGTERM.
cat >"$W/slow.py" <<'END'
"""slow.py INPUT OUTPUT COMMAND... : feeds and drains COMMAND slowly through non-blocking pipes"""
import fcntl, os, signal, subprocess, sys, threading, time

def pipe(nonblocking_end):
    ends = os.pipe()
    flags = fcntl.fcntl(ends[nonblocking_end], fcntl.F_GETFL)
    fcntl.fcntl(ends[nonblocking_end], fcntl.F_SETFL, flags | os.O_NONBLOCK)
    return ends

job_reader, job_writer = pipe(0)
out_reader, out_writer = pipe(1)
child = subprocess.Popen(sys.argv[3:], stdin=job_reader, stdout=out_writer, close_fds=True)
os.close(job_reader)
os.close(out_writer)

def feed():
    data = open(sys.argv[1], "rb").read()
    time.sleep(0.3)
    for at in range(0, len(data), 1 << 20):
        os.write(job_writer, data[at:at + (1 << 20)])
        time.sleep(0.01)
    os.close(job_writer)

threading.Thread(target=feed).start()
time.sleep(0.5)
with open(sys.argv[2], "wb") as out:
    while chunk := os.read(out_reader, 1 << 20):
        out.write(chunk)
        time.sleep(0.005)
        child.send_signal(signal.SIGTERM)
sys.exit(child.wait())
END
job "python3 '$W/slow.py' '$W/large.ps' '$W/out' $FILTER ''"
expect "status with slow peers" 0 "$status"
cmp "$W/whole.prn" "$W/out" >&2 || fail "bytes were lost with slow peers"

# A full device: the job ends with status 0, and the system log says so once.
: >"$W/syslog"
job "$FILTER '' <'$W/large.ps' >/dev/full"
expect "status with a full device" 0 "$status"
full() { grep -ca '\[Driver\] cannot write the job: No space left on device after 0 bytes' "$W/syslog"; }
wait_until 2 full >"$W/count" || fail "no message about the full device"
sleep 0.2
expect "messages about the full device" 1 "$(full)"

# A device that becomes full in the middle of the job: the system log says after how many bytes.
mkdir "$W/small"
mount -t tmpfs -o size=256k none "$W/small"
: >"$W/syslog"
job "$FILTER '' <'$W/large.ps' >'$W/small/out'"
expect "status with a device that becomes full" 0 "$status"
head -c 262144 "$W/whole.prn" | cmp - "$W/small/out" >&2 || fail "not the beginning of the job on the full device"
failed() { grep -ca '\[Driver\] cannot write the job: ' "$W/syslog"; }
wait_until 2 failed >"$W/count" || fail "no message about the device that became full"
sleep 0.2
expect "messages about the device that became full" 1 "$(failed)"
grep -qa 'cannot write the job: No space left on device after 262144 bytes' "$W/syslog" ||
  fail "another message about the device that became full: $(cat "$W/syslog")"
umount "$W/small"

# A reader that ends in the middle of the job: the same, and the job is read to its end.
: >"$W/syslog"
job "{ cat '$W/large.ps'; echo \$? >'$W/writer'; } | { $FILTER ''; echo \$? >'$W/filter'; } | head -c 100000 >'$W/out'"
expect "status without a reader" 0 "$(cat "$W/filter")"
expect "status of the program before the filter" 0 "$(cat "$W/writer")"
head -c 100000 "$W/whole.prn" | cmp - "$W/out" >&2 || fail "not the beginning of the job at the reader that goes away"
wait_until 2 failed >"$W/count" || fail "no message about the reader that went away"
sleep 0.2
expect "messages about the reader that went away" 1 "$(failed)"
written=$(sed -n 's/.*\[Driver\] cannot write the job: Broken pipe after \([0-9]*\) bytes.*/\1/p' "$W/syslog")
if [ "${written:-0}" -lt 100000 ] || [ "$written" -ge "$(stat -c %s "$W/whole.prn")" ]; then
  fail "a wrong number of bytes for the reader that went away: $(cat "$W/syslog")"
fi

# The facts of an update job on a non-blocking standard error that is read slowly: 600 lines are more than a
# pipe's buffer holds.
cat >"$W/slow_facts.py" <<'END'
"""slow_facts.py COMMAND... : runs COMMAND, whose standard error is such a pipe, with an update job's options"""
import fcntl, os, subprocess, sys, time
reader, writer = os.pipe()
fcntl.fcntl(writer, fcntl.F_SETFL, fcntl.fcntl(writer, fcntl.F_GETFL) | os.O_NONBLOCK)
facts = [f"SharedBoxName{box}_Part{part}=" + "QUJD" * 45 for box in range(100) for part in range(1, 7)]
child = subprocess.Popen(sys.argv[1:] + [" ".join(["UpdatePPDOptions"] + facts)], stderr=writer)
os.close(writer)
time.sleep(1)
lines = open(reader).read().splitlines()
if lines != ["PPD: " + fact for fact in facts]:
    sys.exit(f"{len(lines)} lines, or others")
sys.exit(child.wait())
END
job "python3 '$W/slow_facts.py' $FILTER </dev/null"
expect "status of an update job that is read slowly ($(cat "$W/sh_err"))" 0 "$status"

# A fact that cannot be written to standard error is reported in the system log.
: >"$W/syslog"
job "$FILTER 'UpdatePPDOptions IsWakeOnLan=1' 2>/dev/full"
expect "status of an update job on a full device" 0 "$status"
not_told() { grep -qa '\[Driver\] PPD keyword IsWakeOnLan not updated: No space left on device' "$W/syslog"; }
wait_until 2 not_told || fail "no message about the fact that CUPS was not told"

# A read error in the middle of a job: a directory and a connection that is reset.
job "$FILTER '' /tmp >'$W/out'"
expect "status for a directory" 1 "$status"
expect_line "$W/sh_err" 'ERROR: Unable to read the job - Is a directory'
job "python3 -c '
import socket, struct, subprocess, sys
server = socket.create_server((\"127.0.0.1\", 0))
client = socket.create_connection(server.getsockname())
peer, _ = server.accept()
peer.send(b\"%!PS\\n\")
child = subprocess.Popen(sys.argv[1:], stdin=client)
import time; time.sleep(0.5)
peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack(\"ii\", 1, 0))
peer.close()
sys.exit(child.wait())' $FILTER ''"
expect "status for a connection that is reset" 1 "$status"
expect_line "$W/sh_err" 'ERROR: Unable to read the job - Connection reset by peer'

# A PPD that is not a regular file counts as none, and the job does not wait.
mkfifo "$W/fifo.ppd"
for ppd in "$W/fifo.ppd" "$W" /dev/zero; do
  job "PPD='$ppd' timeout 3 $FILTER '' <'$W/large.ps' >'$W/out'"
  expect "status with the PPD $ppd" 0 "$status"
  cmp "$W/whole.prn" "$W/out" >&2 || fail "not the job without a PPD: $ppd"
done

# A system log that is not read does not stop a job, even one with 1,800 messages.
stop system_log
rm -f /dev/log
cat >"$W/deaf.py" <<'END'
import signal, socket
log = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
log.bind("/dev/log")
signal.pause()
END
python3 "$W/deaf.py" &
started deaf $!
wait_until 5 test -S /dev/log || fail "no system log that does not read"
options='UpdatePPDOptions'
for index in $(seq 0 99); do
  for part in 1 2 3 4 5 6; do
    options="$options SharedBoxName${index}_Part$part=\\' SelSharedBoxName${index}_Part$part=\\' PSFormName${index}_Part$part=\\'"
  done
done
status=0
timeout -k 1 20 "$BUILD/kelmfilter" 1 user title 1 "$options" <"$W/page.ps" >"$W/out" 2>"$W/err" || status=$?
expect "status with a system log that does not read" 0 "$status"
stop deaf

# Too little memory ends a job with one line, never by a signal. Sizes with which the program cannot even be
# loaded are left out, because the dynamic loader may crash with them.
tried=0
for kilobytes in $(seq 16000 100 26000); do
  job "ulimit -v $kilobytes; exec '$BUILD/kelmfilter'"
  grep -q '^Usage: ' "$W/sh_err" || continue
  job "ulimit -v $kilobytes; exec $FILTER 'QVDuplex=ON media=Custom.595x842' <'$W/page.ps' >'$W/out'"
  if [ $status = 1 ]; then
    expect_line "$W/sh_err" 'ERROR: Unable to print the job - out of memory'
    tried=$((tried + 1))
  else
    expect "status with $kilobytes KB" 0 "$status"
  fi
done
# A program with a sanitizer needs terabytes of addresses, so it does not run with such limits.
job "ulimit -v 4000000; exec '$BUILD/kelmfilter'"
if grep -q '^Usage: ' "$W/sh_err"; then [ $tried -gt 0 ] || fail "no size was too little"; fi
