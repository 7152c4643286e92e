#!/bin/sh
# kelmctl wake without a queue: a printer that does not answer, one beyond a router, wrong arguments.
# Time limit: 240 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

MAC=00:80:92:12:34:56

printer_host_start
bus_start
bus_wake_service

# Two printers that stay asleep: both are asked once a second.
questions() { wc -l <"$W/questions_$1"; }
asked_thrice() { [ "$(questions 3)" -ge 3 ] && [ "$(questions 4)" -ge 3 ]; }
for printer in 3 4; do
  at_printer ip addr add "10.77.0.$printer/24" dev far
  : >"$W/questions_$printer"
  at_printer_start "sleeper_$printer" socat -u "UDP4-RECVFROM:161,bind=10.77.0.$printer,fork" \
    "SYSTEM:cat >/dev/null; echo asked >>'$W/questions_$printer'" >"$W/sleeper_${printer}_log" 2>&1
done
sleepers_listen() { [ "$(at_printer ss -lunH 'sport = :161' | grep -c '10.77.0.[34]:')" = 2 ]; }
wait_until 5 sleepers_listen || fail "no process listens on UDP port 161"
for printer in 3 4; do
  "$BUILD/kelmctl" wake --mac $MAC --address "10.77.0.$printer" >"$W/sleeper_${printer}_out" 2>&1 &
  started "wake_$printer" $!
done
wait_until 4 asked_thrice || fail "asked $(questions 3) and $(questions 4) times in 4 seconds"
sleep 2
for printer in 3 4; do
  [ "$(questions $printer)" -le 8 ] || fail "asked $(questions $printer) times in 6 seconds"
  stop "wake_$printer"
  stop "sleeper_$printer"
done

# expect_packet_for_mac : the packet is for $MAC, whatever form of it was given
expect_packet_for_mac() {
  expect "the packet" ffffffffffff008092123456 "$(head -c 12 "$W/packets" | od -An -tx1 | tr -d ' ')"
}

# Beyond a router, packets also go to the printer's own address.
magic_packets_start 10.88.0.2
"$BUILD/kelmctl" wake --mac 00-80-92-12-34-56 --address 10.88.0.2 --over-router >"$W/out" 2>"$W/err" &
started kelmctl $!
wait_until 5 packets_arrived 3 || fail "no packet beyond the router"
expect_packet_for_mac
printer_agent_start
wait_until 15 grep -q '^10.88.0.2: woken after [0-9]* s$' "$W/out" || fail "no end: $(cat "$W/err")"
expect_line "$W/out" 'waiting for the wake-up service: 0 s'
expect "messages" "" "$(cat "$W/err")"

# Without --over-router, nothing is sent to the printer's own address.
: >"$W/packets"
wake 0 --mac $MAC --address 10.88.0.2
expect "bytes beyond the router" 0 "$(stat -c %s "$W/packets")"

# On a terminal, a line says how long it has taken so far.
script -qec "'$BUILD/kelmctl' wake --mac $MAC --address 10.77.0.2 --community another" /dev/null \
  >"$W/terminal" 2>"$W/script_log" </dev/null &
started terminal $!
progress_is_shown() {
  tr '\r' '\n' <"$W/terminal" | grep -qaF "$(printf '\033[K')waiting for the wake-up service: 1 s"
}
wait_until 5 progress_is_shown || fail "no progress line on a terminal: $(cat "$W/terminal")"
stop terminal

# With a wrong community there is no answer, and the service calls back after a minute. (The community differs
# from the one above too, because an equal request would join that one.)
"$BUILD/kelmctl" wake --mac $MAC --address 10.77.0.2 --community other >"$W/silent_out" 2>&1 &
started silent $!
silent=$!

# Meanwhile other requests are served, and wrong arguments are refused.
wake 0 --mac $MAC --address 10.77.0.2
wake 0 --mac $MAC --address fd77::2
grep -q '^fd77::2: woken after [0-5] s$' "$W/out" ||
  fail "kelmctl wake over IPv6 said: $(cat "$W/out")"
wake 0 --mac $MAC --address '[fd77::2]'
wake 1 --mac 00:80:92 --address 10.77.0.2
grep -q 'six hexadecimal parts' "$W/err" || fail "no reason: $(cat "$W/err")"
wake 1 --mac $MAC --address socket://10.77.0.2:9100
wake 2 --mac $MAC
wake 2
wake 2 kelm --mac $MAC --address 10.77.0.2

request() {
  dbus-send --bus="$DBUS_SYSTEM_BUS_ADDRESS" --type=method_call --dest=com.kelm.KelmWoLServices \
    /com/kelm/KelmWoLServices com.kelm.KelmWoLServiceProtocol.XpcSnmpWakeUpOnLan "$@"
}

# The service refuses a request that the filter could send, and logs it.
refused() { grep -q 'refused a request' "$W/service_log"; }
request string:'' string:$MAC string:public string:YES string:NO
wait_until 5 refused || fail "an empty address was not refused"

# It also refuses an address that no printer can have.
wake 1 --mac $MAC --address 127.0.0.1
grep -q 'no printer can have the address' "$W/err" || fail "no reason: $(cat "$W/err")"

# It also refuses a request whose arguments are not five strings.
not_five() { [ "$(grep -c 'its arguments are not five strings' "$W/service_log")" = "$1" ]; }
request string:10.77.0.2 string:$MAC
wait_until 5 not_five 1 || fail "two strings were not refused"
request string:10.77.0.2 string:$MAC string:public string:NO string:NO string:more
wait_until 5 not_five 2 || fail "six strings were not refused"

wait_until 65 gone "$silent" || fail "no call-back after a minute"
grep -q '^kelmctl: 10.77.0.2: silent after \(59\|60\|61\) s: ' "$W/silent_out" ||
  fail "kelmctl wake said: $(cat "$W/silent_out")"
grep -q '10.77.0.2 does not answer after 60 s' "$W/service_log" || fail "not the service's own limit"

# A service without work ends. The next one wakes 64 printers, its limit.
wait_until 15 service_is_gone || fail "the service does not end without work"
: >"$W/service_log"
"$BUILD/kelmctl" wake --mac $MAC --address 10.77.0.2 --community other >"$W/last_out" 2>&1 &
started last $!
last=$!
woken() { [ "$(grep -c ' waking ' "$W/service_log")" -ge "$1" ]; }
one_too_many() { grep -q 'too many printers' "$W/service_log"; }
wait_until 5 woken 1 || fail "the service was not asked"
for number in $(seq 63); do
  request "string:10.77.9.$number" string:$MAC string:public string:NO string:NO
done
wait_until 5 woken 64 || fail "64 printers are not woken at the same time"
! one_too_many || fail "64 printers were too many"

# One more request gets its magic packets and is then refused. A request that equals one under way is joined
# to it and does not count.
: >"$W/packets"
wake 1 --mac 008092123456 --address 10.88.0.2 --over-router --community more
one_too_many || fail "more than 64 printers are woken"
grep -q '^kelmctl: 10.88.0.2: refused after [0-5] s: too many printers are being woken$' "$W/err" ||
  fail "kelmctl wake said: $(cat "$W/err")"
wait_until 5 packets_arrived 3 || fail "no packets for the request that was turned away"
expect_packet_for_mac
request string:10.77.9.1 string:$MAC string:public string:NO string:NO
joined() { grep -q 'waking 10.77.9.1 for .* too$' "$W/service_log"; }
wait_until 5 joined || fail "an equal request was not joined"

# When the service gets SIGTERM, it calls back all waiting callers. When the bus ends, service and caller end.
kill -TERM "$(tail -n 1 "$W/service_pid")"
wait_until 5 gone "$last" || fail "no caller was called back at the service's end"
grep -q '^kelmctl: 10.77.0.2: refused after [0-9]* s: the service is ending$' "$W/last_out" || fail "$(cat "$W/last_out")"
wait_until 5 service_is_gone || fail "the service does not end"
: >"$W/service_log"
"$BUILD/kelmctl" wake --mac $MAC --address 10.77.0.2 --community other >"$W/last_out" 2>&1 &
started last $!
last=$!
wait_until 5 woken 1 || fail "the service was not asked again"
stop bus
wait_until 5 service_is_gone || fail "the service outlives the bus"
grep -q 'lost the system bus' "$W/service_log" || fail "no message about the bus"
wait_until 5 gone "$last" || fail "kelmctl wake waits without a bus"
grep -q 'not woken' "$W/last_out" || fail "$(cat "$W/last_out")"
