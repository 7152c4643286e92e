#!/bin/sh
# kelmctl wake with several queues: printers that are woken, silent or not woken; as text and as JSON.
# Time limit: 240 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/wake_up_site.sh
. "$HERE/lib/wake_up_site.sh"

wake_up_site_start
facts='*PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="'
sed "/^\*cupsFilter/a *IsWakeOnLan: \"1\"\\n$facts" "$HERE/lib/queue.ppd" >"$W/on.ppd"
sed "/^\*cupsFilter/a *IsWakeOnLan: \"0\"\\n$facts" "$HERE/lib/queue.ppd" >"$W/off.ppd"
cups_queue here socket://10.77.0.2 "$W/on.ppd"
cups_queue six 'socket://[fd77::2]' "$W/on.ppd"
cups_queue gone socket://10.77.0.9 "$W/on.ppd"
cups_queue off socket://10.77.0.2 "$W/off.ppd"
cups_queue unsynced socket://10.77.0.2 "$HERE/lib/queue.ppd"
cups_queue port socket://10.77.0.2:9100 "$W/on.ppd"
lpadmin -p raw -E -v socket://10.77.0.2 2>"$W/lpadmin_log"
lpadmin -p here -c pool 2>"$W/lpadmin_log"

# On a terminal, a line counts the finished printers. One printer does not answer for the service's minute.
/usr/bin/python3 "$HERE/lib/on_terminal.py" -- "$BUILD/kelmctl" wake here gone >"$W/terminal" &
started terminal $!
terminal=$!

# As JSON, with an object for each printer.
wake 0 six here --json
sort "$W/out" | sed 's/"seconds":[0-9],/"seconds":N,/' >"$W/sorted"
cat >"$W/expected" <<'END'
{"name":"here","address":"10.77.0.2","result":"woken","seconds":N,"message":""}
{"name":"six","address":"fd77::2","result":"woken","seconds":N,"message":""}
END
diff "$W/expected" "$W/sorted" || fail "the objects differ"
expect "standard error" '' "$(cat "$W/err")"
wake 0 here --json
expect "lines for one printer" 1 "$(grep -c '^{"name":"here",.*"result":"woken"' "$W/out")"
wake 3 here unsynced --json
grep -q '^{"name":"unsynced",.*"result":"not woken","seconds":0,"message":"the queue .* kelmctl sync unsynced"}' \
  "$W/out" || fail "no object for unsynced: $(cat "$W/out")"

# As text, and with --quiet. CUPS finds a queue in any letter case.
wake 0 here six here HERE
expect "queues that are woken" 2 "$(grep -c '^\(here\|six\): woken after [0-5] s$' "$W/out")"
expect "the summary" '2 of 2 printers are awake' "$(tail -n 1 "$W/out")"
wake 0 here six --quiet
expect "output of --quiet" '' "$(cat "$W/out" "$W/err")"
wake 0 here --quiet
expect "output of --quiet for one" '' "$(cat "$W/out" "$W/err")"
wake 3 here unsynced off port raw pool nothere --quiet
expect "standard output" '' "$(cat "$W/out")"
sort "$W/err" >"$W/sorted"
cat >"$W/expected" <<'END'
kelmctl: nothere: not woken: the queue "nothere" is not known to the print server 127.0.0.1; "lpstat -v" lists its queues (those that only "lpstat -e" lists do not exist yet)
kelmctl: off: not woken: the queue "off" has its wake-up switched off; switch it on in the print dialog, or give --mac and --address
kelmctl: pool: not woken: "pool" is a class; name its queues, "lpstat -c pool" lists them
END
grep -v 'port:\|raw:\|unsynced:' "$W/sorted" | diff "$W/expected" - || fail "the messages differ"
grep -q '^kelmctl: port: not woken: the printer "socket://10.77.0.2:9100" .* cannot be woken: .*kelmctl address' \
  "$W/sorted" || fail "no message about the device URI: $(cat "$W/sorted")"
grep -q '^kelmctl: raw: not woken: the queue "raw" has no PPD: it is raw, or ' "$W/sorted" ||
  fail "no message about the raw queue: $(cat "$W/sorted")"
grep -q '^kelmctl: unsynced: not woken: .* store it: kelmctl sync unsynced$' "$W/sorted" ||
  fail "no message about the queue without facts: $(cat "$W/sorted")"
wake 1 unsynced off
expect "the summary" '0 of 2 printers are awake' "$(cat "$W/out")"

# interrupt WORD ARGUMENT... : kelmctl wake, interrupted when $W/out or $W/err has WORD
interrupt() {
  word=$1
  shift
  : >"$W/out"
  "$BUILD/kelmctl" wake "$@" >"$W/out" 2>"$W/err" &
  started interrupted $!
  interrupted=$!
  wait_until 10 grep -q "$word" "$W/out" "$W/err" || fail "no '$word': $(cat "$W/out" "$W/err")"
  kill -INT $interrupted
  status=0
  wait $interrupted || status=$?
}

# If interrupted, it says for which printers it did not wait.
interrupt '^here: woken' here gone
expect "status of an interrupted wake-up" 3 "$status"
grep -q '^kelmctl: gone: interrupted after [0-9]* s: the printer was not waited for$' "$W/err" ||
  fail "$(cat "$W/err")"
expect "the summary" '1 of 2 printers are awake' "$(tail -n 1 "$W/out")"
interrupt '"here"' here gone --json
expect "status of an interrupted wake-up" 3 "$status"
expect "objects" 2 "$(wc -l <"$W/out")"
grep -q '^{"name":"gone","address":"10.77.0.9","result":"interrupted","seconds":[0-9]*,"message":"the printer was not waited for"}$' \
  "$W/out" || fail "no object for gone: $(cat "$W/out")"
interrupt 'waiting for' gone
expect "status of one interrupted wake-up" 1 "$status"
grep -q '^kelmctl: gone: interrupted after [0-9]* s: ' "$W/err" || fail "$(cat "$W/err")"

# A printer that is not on the network has no address.
install -m 755 /usr/bin/true "$CUPS/bin/backend/usb"
cups_queue usb usb://KELM/IJ "$W/on.ppd"
wake 1 usb
expect "the message" 'kelmctl: the device URI "usb://KELM/IJ" of the queue "usb" names no printer on the network; give --mac and --address' \
  "$(cat "$W/err")"

# Printers do not wait for a name server that does not answer. No address for a name is a problem of its own.
cups_queue lost1 socket://lost1.example "$W/on.ppd"
cups_queue lost2 socket://lost2.example "$W/on.ppd"
printf 'nameserver 127.0.0.1\noptions timeout:30 attempts:1\n' >"$W/resolv.conf"
mount --bind "$W/resolv.conf" /etc/resolv.conf
socat -u UDP4-RECV:53,bind=127.0.0.1 "OPEN:$W/questions,creat,append" &
started names $!
interrupt '^here: woken' lost1 lost2 here --jobs 1
expect "status with two silent names" 3 "$status"
for queue in lost1 lost2; do
  echo "kelmctl: $queue: interrupted: the wake-up service was not asked"
done | diff - "$W/err" || fail "the messages differ"
script -qec "'$BUILD/kelmctl' wake lost1" /dev/null >"$W/look_up" 2>"$W/script_log" </dev/null &
started look_up $!
wait_until 5 grep -qa "looking up the printer's address: [12] s" "$W/look_up" ||
  fail "no progress line for a look-up: $(cat "$W/look_up")"
stop look_up
stop names
wake 1 lost1
expect "the message" 'kelmctl: no address is found for the name in the device URI "socket://lost1.example" of the queue "lost1"; correct the URI or the name server, or give --mac and --address' \
  "$(cat "$W/err")"

# It waits for a server that restarts. If interrupted then, it says which queues it could not handle.
cups_stop
"$BUILD/kelmctl" wake here six >"$W/out" 2>"$W/err" &
waiting=$!
wait_until 5 grep -q '^kelmctl: the print server 127.0.0.1 does not answer; trying again for 15 s$' "$W/err" ||
  fail "it does not say that it waits: $(cat "$W/err")"
cups_start
wait $waiting || fail "a restart of the server is not waited for: $(cat "$W/err")"
expect "the summary" '2 of 2 printers are awake' "$(tail -n 1 "$W/out")"
cups_stop
interrupt 'trying again' here six --json
expect "status without a server" 1 "$status"
for queue in here six; do
  echo '{"name":"'$queue'","address":null,"result":"interrupted","seconds":0,"message":"the wake-up service was not asked"}'
done | diff - "$W/out" || fail "the objects differ"
interrupt 'trying again' here six
grep -v 'trying again' "$W/err" >"$W/lines"
for queue in here six; do
  echo "kelmctl: $queue: interrupted: the wake-up service was not asked"
done | diff - "$W/lines" || fail "the messages differ"
begin=$(date +%s)
wake 1 here six
[ $(($(date +%s) - begin)) -le 25 ] || fail "a server that is gone is waited for once for each queue"
cups_start

status=0
wait $terminal || status=$?
tr '\r' '\n' <"$W/terminal" | tr '\033' '^' >"$W/lines"
[ "$status" = 3 ] || fail "status with a silent printer: expected 3, found $status: $(cat "$W/lines")"
for line in '^[K0 of 2 printers finished' '^[K1 of 2 printers finished'; do
  grep -qF -e "$line" "$W/lines" || fail "no progress line '$line': $(cat "$W/lines")"
done
grep -q 'here: woken after [0-5] s$' "$W/lines" || fail "not woken: $(cat "$W/lines")"
grep -q 'kelmctl: gone: silent after \(59\|60\|61\|62\) s: the printer does not answer' "$W/lines" ||
  fail "not silent: $(cat "$W/lines")"
grep -q '1 of 2 printers are awake' "$W/lines" || fail "no summary: $(cat "$W/lines")"
