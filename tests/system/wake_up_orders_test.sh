#!/bin/sh
# The wake-up service, one caller with many requests, and names with addresses that no printer can have: no
# caller can use up the service's limit, and nothing is sent to such an address.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

CALLER=$BUILD/tests/system/wake_up_caller

# ask NAME REQUEST... : starts a caller; the service's answers to it go to $W/NAME_told
ask() {
  name=$1
  shift
  "$CALLER" "$@" >"$W/${name}_told" 2>"$W/${name}_log" &
  started "$name" $!
}
said() { grep -qF -- "$1" "$W/service_log" 2>/dev/null; }
told() { [ "$(grep -scxF -- "$2" "$W/$1_told")" = "$3" ]; }
waking() { [ "$(grep -c ' waking ' "$W/service_log" 2>/dev/null)" = "$1" ]; }

printer_host_start
bus_start
bus_wake_service
magic_packets_start 0.0.0.0

# One caller may have eight requests. The ninth gets its magic packets and is then refused.
ask greedy '10.77.9.1 NO' '10.77.9.2 NO' '10.77.9.3 NO' '10.77.9.4 NO' '10.77.9.5 NO' \
  '10.77.9.6 NO' '10.77.9.7 NO' '10.77.9.8 NO' '10.77.9.9 YES'
too_many='too many printers are being woken for the same caller'
wait_until 5 told greedy "refused: $too_many" 1 || fail "the ninth request was not turned away"
wait_until 5 told greedy 'called back' 1 || fail "no call-back for the ninth request"
expect "printers that are woken" 8 "$(grep -c ' waking ' "$W/service_log")"
! said 'waking 10.77.9.9 ' || fail "the ninth request was served"
wait_until 5 packets_arrived 3 || fail "no magic packets for the ninth request"

# Another caller has its own limit, and may join a wake-up of the first.
ask modest '10.77.9.9 NO' '10.77.9.1 NO'
wait_until 5 waking 10 || fail "another caller was refused"
said 'waking 10.77.9.1 for ' || fail "no wake-up was joined"
told modest "refused: $too_many" 0 || fail "another caller was turned away"

# SIGTERM makes the service call back for every request.
kill -TERM "$(tail -n 1 "$W/service_pid")"
wait_until 5 told greedy 'called back' 9 || fail "not every request was called back for"
wait_until 5 told modest 'called back' 2 || fail "the other caller was not called back"
stop greedy
stop modest
wait_until 5 service_is_gone || fail "the service does not end"

# Numeric addresses are refused immediately.
: >"$W/service_log"
numbers='224.0.0.251 127.0.0.1 127.1.2.3 0.0.0.0 0.1.2.3 255.255.255.255 ff02::1 ::1 :: ::ffff:127.0.0.1 ::ffff:224.0.0.1'
set --
for number in $numbers; do set -- "$@" "$number YES"; done
: >"$W/packets"
ask numbers "$@"
wait_until 5 told numbers 'refused: no printer can have the address' $# || fail "$(cat "$W/numbers_told")"
wait_until 5 told numbers 'called back' $# || fail "a refused caller was not called back"
stop numbers
! said ' waking ' || fail "an address that no printer can have is woken"

# Names are looked up. Neither a query nor a packet goes to such an address.
cp /etc/hosts "$W/hosts"
cat >>"$W/hosts" <<END
224.0.0.251 group.example
127.0.0.1 loop.example
0.0.0.0 zero.example
255.255.255.255 all.example
ff02::1 group6.example
::1 loop6.example
:: zero6.example
fd77::2 both.example
127.0.0.1 both.example
10.77.0.2 printer.example
fd77::9 printer.example
END
chmod 644 "$W/hosts"
mount --bind "$W/hosts" /etc/hosts
: >"$W/strays"
socat -u UDP4-RECV:161,bind=127.0.0.1 "OPEN:$W/strays,append" 2>"$W/strays_log" &
started question_here $!
socat -u UDP4-RECV:9,bind=127.0.0.1 "OPEN:$W/strays,append" 2>"$W/strays9_log" &
started packet_here $!
both_ports() { [ "$(ss -lunH 'sport = :161 or sport = :9' | wc -l)" = 2 ]; }
wait_until 5 both_ports || fail "no process listens on this machine"
for name in group loop zero all group6 loop6 zero6 both; do
  ask "$name" "$name.example NO"
  wait_until 5 told "$name" 'called back' 1 || fail "no call-back for $name.example: $(cat "$W/service_log")"
  said "$name.example has an address that no printer can have: ended after " ||
    fail "$name.example was not refused: $(cat "$W/service_log")"
  stop "$name"
done
expect "bytes to this machine" 0 "$(stat -c %s "$W/strays")"

# If a name has a printer's addresses, the service asks the IPv4 address.
printer_agent_start
ask printer 'printer.example NO'
wait_until 10 told printer 'called back' 1 || fail "no call-back for a printer's name"
said 'printer.example answers after ' || fail "the printer was not asked: $(cat "$W/service_log")"
stop printer
