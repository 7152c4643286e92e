#!/bin/sh
# kelmctl sync and the print server: one that restarts, is silent, has no free connection, or is gone, and
# several servers at once.
# Time limit: 240 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/kelmctl.sh
. "$HERE/lib/kelmctl.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

cups_setup
cups_start
for queue in kelm fresh busy; do
  cups_queue "$queue" socket://127.0.0.1 "$HERE/lib/queue.ppd"
done
COMMUNITY=secret
printer_mib "$HERE/printers/few_boxes.mib" | agent_start ipv6 '[::1]'

# It waits for a server that restarts. It does not wait without end for one that is silent or gone.
cups_stop
"$KELMCTL" sync kelm --address ::1 --community secret >"$W/out" 2>"$W/err" &
waiting=$!
sleep 2
cups_start
wait $waiting || fail "a restart of the server is not waited for: $(cat "$W/err")"
grep -q 'print server 127.0.0.1 does not answer; trying again' "$W/err" ||
  fail "it does not say that it tries again: $(cat "$W/err")"
server=$(cat "$W/pids/cupsd")
kill -STOP "$server"
begin=$(date +%s)
run 1 sync kelm --address ::1
kill -CONT "$server"
[ $(($(date +%s) - begin)) -le 35 ] || fail "a silent server is waited for too long"
grep -q 'print server 127.0.0.1 accepts connections but does not answer' "$W/err" || fail "$(cat "$W/err")"

# A server with no free connection: the sync waits until one is free.
cups_stop
sed -i 's/^MaxJobs.*/&\nMaxClients 3/' "$CUPS/etc/cupsd.conf"
cups_start
python3 -c 'import socket, time
places = [socket.create_connection(("127.0.0.1", 631)) for _ in range(3)]
time.sleep(4)' 2>"$W/places_log" &
started places $!
wait_until 3 grep -q 'Max clients reached' "$CUPS/log/error_log" || fail "the server has free connections"
run 0 sync kelm --address ::1 --community secret
cups_stop
cups_write_conf >"$CUPS/etc/cupsd.conf"
cups_start

# Several servers, one of which does not run. The server on the command line wins over the environment.
run 3 sync kelm --address ::1 --community secret -h 127.0.0.1:631 -h 127.0.0.1:632
grep -q '^127.0.0.1:631/kelm: ' "$W/out" || fail "not the first server: $(cat "$W/out")"
grep -q '^127.0.0.1:632/kelm: failed: .*does not answer' "$W/out" || fail "not the second server"
CUPS_SERVER=127.0.0.1:632 run 0 settings kelm -h "$CUPS/state/cups.sock"
cups_stop
begin=$(date +%s)
run 1 sync kelm fresh busy
[ $(($(date +%s) - begin)) -le 30 ] || fail "a server that is gone is waited for once for each queue"
expect "messages about waiting" 1 "$(grep -c 'does not answer; trying again for 15 s' "$W/err")"
expect "queues that failed" 3 "$(grep -c ': failed: the print server 127.0.0.1 does not answer' "$W/out")"
run 1 sync --all --json
/usr/bin/python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
assert (d["server"], d["queue"], d["status"]) == ("127.0.0.1", "", "failed") and d["message"], d' "$W/out" ||
  fail "no object for the server: $(cat "$W/out")"
