#!/bin/sh
# kelmctl sync while its update job is under way: interrupted, and met by another one that calls the print
# server differently. What it says is what is stored.
# Time limit: 120 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

KELMCTL=$BUILD/kelmctl

# backend NAME SECONDS : a backend that takes its job and ends after SECONDS
install -d -m 1777 "$W/taken"
backend() {
  printf '#!/bin/sh\ncat >/dev/null\n: >"%s/%s"\nexec sleep %s\n' "$W/taken" "$1" "$2" \
    >"$CUPS/bin/backend/$1"
  chmod 755 "$CUPS/bin/backend/$1"
}

# sync_start ARGUMENT... : kelmctl sync in the background
sync_start() {
  "$KELMCTL" sync "$@" >"$W/out" 2>"$W/err" &
  started sync $!
  sync=$!
}

# interrupt STATUS : SIGINT ends it with STATUS within 10 seconds
interrupt() {
  begin=$(date +%s)
  kill -INT "$sync"
  status=0
  wait "$sync" || status=$?
  expect "status of an interrupted sync" "$1" "$status"
  [ $(($(date +%s) - begin)) -le 10 ] || fail "interrupted, it goes on too long"
  grep -q '^kelmctl: interrupted; finishing what has begun$' "$W/err" || fail "$(cat "$W/err")"
}

jobs_of() { lpstat -W not-completed -o "$1" | wc -l; }
has_jobs() { [ "$(jobs_of "$1")" = "$2" ]; }

cups_setup
cups_start
backend slow 3
backend hang 60
for queue in held begun hung; do
  cups_queue $queue hang://127.0.0.1 "$HERE/lib/queue.ppd"
done
lpadmin -p begun -v slow://127.0.0.1 2>"$W/lpadmin_log"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"

# The update job waits for another one: it is cancelled, and nothing is stored.
cp "$(cups_queue_ppd held)" "$W/held.ppd"
lp -d held "$W/page.ps" >"$W/lp_log"
wait_until 5 test -e "$W/taken/hang" || fail "no job in the queue"
sync_start held --address 127.0.0.1
wait_until 10 has_jobs held 2 || fail "no update job: $(cat "$W/err")"
interrupt 1
grep -q '^kelmctl: the update job held-[0-9]* is cancelled$' "$W/err" || fail "$(cat "$W/err")"
expect "the changes" '' "$(cat "$W/out")"
expect "jobs in the queue" 1 "$(jobs_of held)"
cmp "$W/held.ppd" "$(cups_queue_ppd held)" || fail "something was stored"

# The update job is being processed: its end is waited for, and what it stored is shown.
sync_start begun --address 127.0.0.1
wait_until 10 test -e "$W/taken/slow" || fail "no update job: $(cat "$W/err")"
interrupt 0
expect_line "$W/out" 'IP address: (none) -> 127.0.0.1'
expect_line "$(cups_queue_ppd begun)" '*PrinterIPAddress: MTI3LjAuMC4x'

# It does not end: that is said, too.
rm -f "$W/taken/hang"
sync_start hung --address 127.0.0.1
wait_until 10 test -e "$W/taken/hang" || fail "no update job: $(cat "$W/err")"
interrupt 1
grep -q '^kelmctl: the update job hung-[0-9]* is still being processed$' "$W/err" || fail "$(cat "$W/err")"
expect "the changes" '' "$(cat "$W/out")"
cancel -a hung

# One print server, whatever it is called: the second sync of a queue says who is at it.
sync_start held --address 127.0.0.1 --wait 20 -h 127.0.0.1:631
wait_until 10 has_jobs held 2 || fail "no update job: $(cat "$W/err")"
for name in localhost "$CUPS/state/cups.sock"; do
  status=0
  "$KELMCTL" sync held --address 127.0.0.1 --wait 0 -h "$name" >"$W/second_out" 2>"$W/second_err" || status=$?
  expect "status of the second sync ($name)" 1 "$status"
  grep -q "^kelmctl: process $sync is updating the queue \"held\"" "$W/second_err" ||
    fail "no word about the first sync ($name): $(cat "$W/second_err")"
done
expect "jobs in the queue" 2 "$(jobs_of held)"
interrupt 1
