#!/bin/sh
# kelmctl sync that is interrupted while its update job is under way, or that meets another sync of the same
# queue. It must say what is stored.
# Time limit: 240 s
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
echo 'ServerAlias *' >>"$CUPS/etc/cupsd.conf"
cups_start
backend slow 3
backend hang 200
for queue in held begun hung; do
  cups_queue $queue hang://127.0.0.1 "$HERE/lib/queue.ppd"
done
lpadmin -p begun -v slow://127.0.0.1 2>"$W/lpadmin_log"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"

# The update job waits for another job: it is cancelled, and nothing is stored.
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

# The update job is being processed: kelmctl waits for its end and shows what it stored.
sync_start begun --address 127.0.0.1
wait_until 10 test -e "$W/taken/slow" || fail "no update job: $(cat "$W/err")"
interrupt 0
expect_line "$W/out" 'IP address: (none) -> 127.0.0.1'
expect_line "$(cups_queue_ppd begun)" '*PrinterIPAddress: MTI3LjAuMC4x'

# The update job does not end: kelmctl says so.
rm -f "$W/taken/hang"
sync_start hung --address 127.0.0.1
wait_until 10 test -e "$W/taken/hang" || fail "no update job: $(cat "$W/err")"
interrupt 1
grep -q '^kelmctl: the update job hung-[0-9]* is still being processed$' "$W/err" || fail "$(cat "$W/err")"
expect "the changes" '' "$(cat "$W/out")"
cancel -a hung

# The print server hangs while it has the update job: kelmctl says that the result is not known.
cups_queue unknown slow://127.0.0.1 "$HERE/lib/queue.ppd"
rm -f "$W/taken/slow"
sync_start unknown --address 127.0.0.1
wait_until 10 test -e "$W/taken/slow" || fail "no update job: $(cat "$W/err")"
kill -STOP "$(cat "$W/pids/cupsd")"
sleep 1
interrupt 1
kill -CONT "$(cat "$W/pids/cupsd")"
grep -q '^kelmctl: the update job unknown-[0-9]* was sent; whether it was done is not known: ' "$W/err" ||
  fail "$(cat "$W/err")"

# With several queues it ends as fast, even if a server does not answer.
socat -u TCP-LISTEN:8080,bind=127.0.0.1,reuseaddr,fork OPEN:/dev/null &
started silent_server $!
wait_until 5 printer_listens 8080 || fail "no silent server"
sync_start held begun -h 127.0.0.1:8080
sleep 1
interrupt 1
for queue in held begun; do
  expect_line "$W/out" "$queue: interrupted: interrupted before anything was stored"
done
expect "messages" 1 "$(wc -l <"$W/err")"

# A request that is to be encrypted is given up as soon as any other: at the server's word that it can encrypt, at
# the beginning of TLS after that word, and on the port where TLS begins at once.
socat -u TCP-LISTEN:443,bind=127.0.0.1,reuseaddr,fork OPEN:/dev/null &
started silent_https $!
printf '#!/bin/sh\nread -r line\nprintf "%%s\\r\\n" "HTTP/1.1 101 Switching Protocols" "Connection: Upgrade" \
  "Upgrade: TLS/1.2,HTTP/1.1" "Content-Length: 0" ""\nexec sleep 60\n' >"$W/willing"
chmod 755 "$W/willing"
socat TCP-LISTEN:8081,bind=127.0.0.1,reuseaddr,fork "EXEC:$W/willing" &
started willing_server $!
for port in 443 8081; do
  wait_until 5 printer_listens $port || fail "no silent server on port $port"
done
for server in 127.0.0.1:8080 '127.0.0.1:8080 -E' 127.0.0.1:443 '127.0.0.1:443 -E' '127.0.0.1:8081 -E'; do
  begin=$(date +%s)
  status=0
  # shellcheck disable=SC2086
  "$KELMCTL" settings held -h $server >"$W/out" 2>"$W/err" || status=$?
  expect "status with a silent server" 1 "$status"
  [ $(($(date +%s) - begin)) -le 20 ] || fail "a silent server is waited for too long ($server)"
  grep -q "^kelmctl: the print server ${server%% *} accepts connections but does not answer" "$W/err" ||
    fail "no message about it ($server): $(cat "$W/err")"
done

# The letter case of a queue's name does not matter.
"$KELMCTL" sync begun Begun BEGUN --address 127.0.0.1 >"$W/out" 2>"$W/err" && fail "--address with three names"
"$KELMCTL" settings begun >"$W/settings"
"$KELMCTL" settings BEGUN | diff "$W/settings" - || fail "the settings differ"
lpadmin -p begun -v socket://127.0.0.1 2>"$W/lpadmin_log"
"$KELMCTL" sync begun Begun BEGUN --quiet --json >"$W/out" 2>"$W/err" || fail "$(cat "$W/err")"
expect "objects" 1 "$(wc -l <"$W/out")"
grep -q '^{"server":"127.0.0.1","queue":"begun","status":"unchanged",' "$W/out" || fail "$(cat "$W/out")"
lpadmin -p begun -v slow://127.0.0.1 2>"$W/lpadmin_log"

# Two computers update a queue at the same time, each with another printer: the two lists must not be mixed.
# A second directory for locks stands for the other computer.
printf 'boxState 5 integer 1\nboxName 5 text Lager\n' | printer_mib "$HERE/printers/few_boxes.mib" - |
  agent_start other_agent 127.0.0.2
cups_queue met slow://127.0.0.1 "$HERE/lib/queue.ppd"
rm -f "$W/taken/slow"
sync_start met --address 127.0.0.2
wait_until 10 test -e "$W/taken/slow" || fail "no update job: $(cat "$W/err")"
# shellcheck disable=SC2016 # for the shell that is started to expand
unshare -m sh -c 'mount -t tmpfs none /run/lock && exec "$0" sync met --address 127.0.0.1' "$KELMCTL" \
  >"$W/second_out" 2>"$W/second_err" || fail "the second computer: $(cat "$W/second_err")"
wait "$sync" || fail "the first computer: $(cat "$W/err")"
"$KELMCTL" settings met --json >"$W/settings"
grep -q '"sharedBoxes": *\[' "$W/settings" || fail "no boxes are stored"
/usr/bin/python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
boxes = {"127.0.0.1": [1, 17], "127.0.0.2": [1, 5, 17]}
assert d["sharedBoxNumbers"] == boxes[d["printerIPAddress"]], d' "$W/settings" ||
  fail "the lists of two printers are mixed"

# One print server, whatever it is called: the second sync of a queue says who is at it. Another server on this
# computer has another queue of that name, which is free.
cp /etc/hosts "$W/hosts"
echo '127.0.0.1 print1 print1.example' >>"$W/hosts"
mount --bind "$W/hosts" /etc/hosts
sed "s|$CUPS|$W/second|g; s/127.0.0.1:631/127.0.0.1:632/" "$CUPS/etc/cupsd.conf" >"$W/second.conf"
sed "s|$CUPS|$W/second|g" "$CUPS/etc/cups-files.conf" >"$W/second-files.conf"
cp -a "$CUPS" "$W/second"
rm -r "$W/second/etc" "$W/second/spool" "$W/second/cache"
mkdir -p "$W/second/etc/ppd" "$W/second/spool/tmp" "$W/second/cache"
/usr/sbin/cupsd -f -c "$W/second.conf" -s "$W/second-files.conf" >"$W/second_log" 2>&1 </dev/null &
started second $!
wait_until 5 printer_listens 632 || fail "no second print server"
lpadmin -h 127.0.0.1:632 -p held -E -v socket://127.0.0.1 -P "$HERE/lib/queue.ppd" 2>"$W/lpadmin_log"
printer_start 9100 "$W/printer.out"
sync_start held --address 127.0.0.1 --wait 20 -h 127.0.0.1:631
wait_until 10 has_jobs held 2 || fail "no update job: $(cat "$W/err")"
for name in print1:632 127.0.0.1:632; do
  "$KELMCTL" sync held --address 127.0.0.1 --wait 5 -h "$name" >"$W/second_out" 2>"$W/second_err" ||
    fail "the queue of another server is not free ($name): $(cat "$W/second_err")"
  expect "what is said of the other server ($name)" '' "$(cat "$W/second_err")"
done
for name in localhost "$CUPS/state/cups.sock" print1 print1:631 PRINT1 Print1.Example:631; do
  status=0
  "$KELMCTL" sync held --address 127.0.0.1 --wait 0 -h "$name" >"$W/second_out" 2>"$W/second_err" || status=$?
  expect "status of the second sync ($name)" 1 "$status"
  grep -q "^kelmctl: process $sync is updating the queue \"held\"" "$W/second_err" ||
    fail "no message about the first sync ($name): $(cat "$W/second_err")"
done
expect "jobs in the queue" 2 "$(jobs_of held)"
# Called by two names in one call, the other server's queue gets its update jobs one after the other.
printer_mib "$HERE/printers/few_boxes.mib" | agent_start third_agent 127.0.0.3
"$KELMCTL" sync held --address 127.0.0.3 --wait 5 -h print1:632 -h PRINT1:632 -h 127.0.0.1:632 >"$W/second_out" \
  2>"$W/second_err" || fail "one server by three names: $(cat "$W/second_err")"
sed 's/.*: //' "$W/second_out" | head -n 3 | cut -d, -f1 | tr '\n' ' ' >"$W/results"
expect "the results under three names" 'done unchanged unchanged ' "$(cat "$W/results")"
expect "messages about one server by three names" '' "$(cat "$W/second_err")"

# A refresh also waits for it, with any letter case of the queue's name.
sed 's/^\*FileVersion:.*/*FileVersion: "7.0"/' "$HERE/lib/queue.ppd" >"$W/version7"
status=0
"$KELMCTL" refresh HELD --ppd "$W/version7" --wait 1 >"$W/second_out" 2>"$W/second_err" || status=$?
expect "status of a refresh meanwhile" 1 "$status"
cat >"$W/expected" <<END
kelmctl: held: process $sync is updating it; waiting for it
kelmctl: held: process $sync is updating it; try again later
END
diff "$W/expected" "$W/second_err" || fail "the messages differ"
interrupt 1
