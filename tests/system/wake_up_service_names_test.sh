#!/bin/sh
# A printer that announces itself is found by the name in its device URI, even with dots and spaces in it. For
# a printer that is not there, each place where its name may end costs 3 seconds.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"
# shellcheck source=tests/system/lib/avahi.sh
. "$HERE/lib/avahi.sh"

# The argument may name another program of the build, which is tested instead of kelmctl.
program=$BUILD/${1:-kelmctl}

# address STATUS URI : kelmctl address ends with STATUS; its result is in $result, its time in $milliseconds
address() {
  before=$(date +%s%N)
  status=0
  "$program" address "$2" --json >"$W/out" 2>"$W/err" || status=$?
  milliseconds=$((($(date +%s%N) - before) / 1000000))
  expect "exit status of kelmctl address $2" "$1" "$status"
  result=$(tr -d ' \n' <"$W/out")
}

# expect_time WHAT LEAST MOST : $milliseconds is within these limits
expect_time() {
  { [ "$milliseconds" -ge "$2" ] && [ "$milliseconds" -le "$3" ]; } ||
    fail "$1 took $milliseconds ms, not $2 to $3"
}

published() { grep -q Established "$W/publish_log"; }
resolvable() { avahi-resolve -4 -n printer.local >"$W/resolve_out" 2>&1 && grep -q 10.77 "$W/resolve_out"; }

printer_host_start
mount -t tmpfs none /run

# Two machines with a bus each; the printer's first.
near_bus=$DBUS_SYSTEM_BUS_ADDRESS
mkdir "$W/far"
DBUS_SYSTEM_BUS_ADDRESS=unix:path=$W/far/bus.sock
bus_configuration | sed "s|$W/bus.sock|$W/far/bus.sock|; /<include>/d" >"$W/far/bus.conf"
dbus-daemon --config-file="$W/far/bus.conf" --nofork --nopidfile --nosyslog >"$W/far/bus_log" 2>&1 &
started far_bus $!
wait_until 5 test -S "$W/far/bus.sock" || fail "the printer's bus did not start"
avahi_start printer far nsenter -t "$PRINTER_HOST" -n -m
avahi-publish-service "My.Printer 2" _pdl-datastream._tcp 9100 ty=KELM >"$W/publish_log" 2>&1 &
started publish $!
wait_until 10 published || fail "the service was not published"
DBUS_SYSTEM_BUS_ADDRESS=$near_bus

# Without a daemon there is no query and no wait.
bus_start
address 1 dnssd://My.Printer%202._pdl-datastream._tcp.local/
expect "address without a daemon" '{"ipv6":false,"address":null}' "$result"
expect_time "asking without a daemon" 0 900

avahi_start office near
wait_until 10 resolvable || fail "the printer's host is not seen"

address 0 dnssd://My.Printer%202._pdl-datastream._tcp.local/
expect "address" '{"ipv6":false,"address":"10.77.0.2"}' "$result"
expect_time "finding the printer" 0 2900
address 0 'dnssd://My.Printer%202._pdl-datastream._tcp.local./?uuid=1'
expect "address with a dot at the end" '{"ipv6":false,"address":"10.77.0.2"}' "$result"

# One place where the name may end, and two.
address 1 dnssd://Nobody._pdl-datastream._tcp.local/
expect "address of an unknown service" '{"ipv6":false,"address":null}' "$result"
expect_time "one split point" 3000 3900
address 1 dnssd://Nobody._ipp._tcp.local._pdl-datastream._tcp.local/
expect_time "two split points" 6000 6900

# The time limit also holds if the daemon hangs.
daemon=$(cat "$W/pids/office")
kill -STOP "$daemon"
address 1 dnssd://My.Printer%202._pdl-datastream._tcp.local/
expect_time "asking a daemon that hangs" 3000 3900
kill -CONT "$daemon"

# With too few parts no query is sent.
address 1 dnssd://Nobody._pdl-datastream._tcp/
expect_time "a name of three parts" 0 900
