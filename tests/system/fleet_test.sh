#!/bin/sh
# kelmctl sync --all with many queues. Half of the printers are silent. Time, memory and connections to cupsd.
# KELM_FLEET is the number of queues (default: 40). docs/scale.md has the figures for 500.
# Time limit: 240 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

KELMCTL=$BUILD/kelmctl
COUNT=${KELM_FLEET:-40}
# cupsd reads the PPDs of all queues when it starts.
CUPS_START_LIMIT=60

# address NUMBER : of printer NUMBER
address() { echo "10.1.$(($1 / 200)).$(($1 % 200 + 1))"; }

ip route add local 10.1.0.0/16 dev lo

# The printers of queues with odd numbers answer, the others are silent.
number=0
while [ $number -lt "$COUNT" ]; do
  number=$((number + 1))
  if [ $((number % 2)) = 1 ]; then kind=printer; else kind=silent; fi
  echo "$(address $number) $kind"
done | fleet_agents_start
cups_setup
# Debian's log level, so that the time is that of a real server.
sed -i 's/^LogLevel.*/LogLevel warn/' "$CUPS/etc/cupsd.conf"
# cupsd reads the queues from its files, which is faster than creating each by a request.
number=0
while [ $number -lt "$COUNT" ]; do
  number=$((number + 1))
  printf '<Printer q%s>\nPrinterId %s\nDeviceURI socket://%s\nState Idle\nAccepting Yes\nType 8425684\n</Printer>\n' \
    $number $number "$(address $number)"
  install -m 640 -g lp "$HERE/lib/queue.ppd" "$CUPS/etc/ppd/q$number.ppd"
done >"$CUPS/etc/printers.conf"
chmod 640 "$CUPS/etc/printers.conf"
cups_start
lpadmin -p raw -E -v socket://127.0.0.1 2>"$W/lpadmin_log"
# One listener takes the connections to all printers.
socat -u TCP-LISTEN:9100,reuseaddr,fork,backlog=128 OPEN:/dev/null &
started printers $!
wait_until 5 printer_listens 9100 || fail "no listener on port 9100"

# cpu NAME : the processor time of the process and its ended children, in ms
cpu() {
  sed 's/^.*) //' "/proc/$(cat "$W/pids/$1")/stat" |
    awk -v hertz="$(getconf CLK_TCK)" '{ printf "%d\n", ($12 + $13 + $14 + $15) * 1000 / hertz }'
}

# timed ARGUMENT... : runs kelmctl sync; sets $status, $milliseconds, $memory and $used (its processor time,
# and that of cupsd with its filters and backends)
timed() {
  before=$(cpu cupsd)
  status=0
  /usr/bin/python3 "$HERE/lib/watched.py" "$W/watched" "$KELMCTL" sync "$@" >"$W/out" 2>"$W/err" ||
    status=$?
  read -r milliseconds memory own <"$W/watched"
  used="$own ms of processor time, cupsd $(($(cpu cupsd) - before)) ms"
}

timed --all
printf '%s queues, half of the printers silent: %s ms, %s kB, %s\n' \
  "$COUNT" "$milliseconds" "$memory" "$used"
expect "status if half of the queues are done" 3 "$status"
expect "queues that are done" $((COUNT / 2)) "$(grep -c '^q[0-9]*: done, [0-9]* settings changed' "$W/out")"
expect "queues that failed" $((COUNT / 2)) "$(grep -c '^q[0-9]*: failed: the printer ".*" does not answer' "$W/out")"
grep -q "^$COUNT queues: $((COUNT / 2)) done, $((COUNT / 2)) failed, in [0-9.]* s\$" "$W/out" ||
  fail "no summary: $(tail -n 1 "$W/out")"
expect "standard error" '' "$(cat "$W/err")"
! grep -q 'Max clients reached' "$CUPS/log/error_log" || fail "cupsd had no free connection"
[ "$memory" -lt 100000 ] || fail "$memory kB of memory"
expect "a queue's box" '                          17  Entry 17' \
  "$("$KELMCTL" settings "q$((COUNT - 1))" | grep ' 17  ')"

# The second time nothing is sent.
jobs=$(lpstat -W completed -o | wc -l)
timed --all --json
printf '%s queues again, nothing to store: %s ms, %s kB, %s\n' \
  "$COUNT" "$milliseconds" "$memory" "$used"
expect "queues that are unchanged" $((COUNT / 2)) "$(grep -c '"status":"unchanged"' "$W/out")"
expect "objects" "$COUNT" "$(wc -l <"$W/out")"
expect "update jobs" "$jobs" "$(lpstat -W completed -o | wc -l)"
/usr/bin/python3 -c 'import json, sys
for line in open(sys.argv[1]):
    d = json.loads(line)
    assert list(d) == ["server", "queue", "status", "address", "changes", "missing", "message"], d
    assert d["status"] == "failed" and d["message"] or not d["message"], d' "$W/out" ||
  fail "the JSON objects differ"

# With --quiet, only queues that are not done are named.
"$KELMCTL" sync q1 q3 --quiet >"$W/out" 2>"$W/err" || fail "sync --quiet: $(cat "$W/err")"
expect "output of --quiet" '' "$(cat "$W/out" "$W/err")"
status=0
"$KELMCTL" sync q1 q2 --quiet >"$W/out" 2>"$W/err" || status=$?
expect "status with a silent printer" 3 "$status"
grep -q '^kelmctl: q2: failed: the printer "10.1.0.3" does not answer' "$W/err" || fail "$(cat "$W/err")"
expect "lines of --quiet" 1 "$(cat "$W/out" "$W/err" | wc -l)"

# kelmctl printer also asks several printers in parallel.
begin=$(date +%s%N)
status=0
"$KELMCTL" printer --json "$(address 1)" "$(address 2)" "$(address 3)" "$(address 4)" \
  >"$W/out" 2>"$W/err" || status=$?
expect "status of kelmctl printer" 3 "$status"
[ $((($(date +%s%N) - begin) / 1000000)) -lt 14000 ] || fail "the printers were asked one after the other"
expect "the first object" '{"address":"10.1.0.2","sharedBoxCount":30' "$(head -n 1 "$W/out" | cut -c 1-41)"
expect "objects" 4 "$(wc -l <"$W/out")"

# On a terminal, a line counts the finished queues; each queue has a line, and at the end is a summary.
# shown PATTERN : the terminal showed a line that matches
shown() {
  tr '\r' '\n' <"$W/terminal" | tr '\033' '^' | grep -q -e "$1" || fail "no line '$1': $(cat "$W/terminal")"
}
status=0
/usr/bin/python3 "$HERE/lib/on_terminal.py" -- "$KELMCTL" sync q1 q2 >"$W/terminal" || status=$?
expect "status on a terminal" 3 "$status"
shown '^^\[K1 of 2 queues finished, 1 printers being asked, 0 queues storing the answers$'
shown '^^\[Kq1: unchanged$'
shown '^q2: failed: the printer "10.1.0.3" does not answer'
shown '^2 queues: 1 unchanged, 1 failed, in [0-9.]* s$'
/usr/bin/python3 "$HERE/lib/on_terminal.py" -- "$KELMCTL" sync q1 q3 --quiet >"$W/terminal" ||
  fail "status of --quiet on a terminal"
expect "what --quiet shows on a terminal" '' "$(cat "$W/terminal")"
status=0
/usr/bin/python3 "$HERE/lib/on_terminal.py" -- "$KELMCTL" printer "$(address 1)" "$(address 2)" \
  >"$W/terminal" || status=$?
expect "status on a terminal" 3 "$status"
shown '^^\[K1 of 2 printers finished$'
shown '^1 of 2 printers answer$'

# With --quiet, only printers that do not answer are named.
status=0
"$KELMCTL" printer "$(address 1)" "$(address 2)" "$(address 3)" --quiet >"$W/out" 2>"$W/err" || status=$?
expect "status of printer --quiet" 3 "$status"
expect "output of printer --quiet" 1 "$(cat "$W/out" "$W/err" | wc -l)"
grep -q '^kelmctl: the printer "10.1.0.3" does not answer' "$W/err" || fail "$(cat "$W/err")"

# If interrupted, it says what was stored, and stores nothing incompletely.
"$KELMCTL" sync q5 q6 >"$W/out" 2>"$W/err" &
started interrupted $!
interrupted=$!
sleep 2
kill -INT $interrupted
status=0
wait $interrupted || status=$?
expect "status of an interrupted sync" 3 "$status"
expect_line "$W/out" 'q5: unchanged'
expect_line "$W/out" 'q6: interrupted: interrupted before anything was stored'
