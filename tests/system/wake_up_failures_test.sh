#!/bin/sh
# Whatever goes wrong with the wake-up, the job is printed, and soon.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"

printf '%%!PS-Adobe-3.0\nshowpage\n%%%%EOF\n' >"$W/page.ps"
sed '/^\*cupsFilter/a *PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="' "$HERE/lib/queue.ppd" >"$W/wol.ppd"
sed '/^\*cupsFilter/a *PrinterMacAddress: "MDA6ODA6OTI="' "$HERE/lib/queue.ppd" >"$W/short_mac.ppd"
cups_setup
cups_start
cups_queue kelm socket://10.77.0.2 "$W/wol.ppd"
mkdir "$W/programs"
ln -s "$BUILD/kelmfilter" "$W/programs/kelm"

# run_filter PPD [SETPRIV_ARGUMENT...] : runs the filter as cupsd does for the queue kelm; the output is in
# $W/out, its status in $status, its time in $milliseconds
run_filter() {
  ppd=$1
  shift
  before=$(date +%s%N)
  status=0
  PPD=$ppd PATH=$W/programs:$PATH setpriv "$@" kelm 1 user title 1 '' "$W/page.ps" \
    >"$W/out" 2>"$W/filter_log" || status=$?
  milliseconds=$((($(date +%s%N) - before) / 1000000))
}

# expect_job WHAT LIMIT : the whole job was written, after LIMIT milliseconds at most
expect_job() {
  expect "exit status with $1" 0 "$status"
  sed -n '/^%!PS-Adobe/,$p' "$W/out" >"$W/arrived.ps"
  cmp "$W/page.ps" "$W/arrived.ps" || fail "the job is not complete with $1"
  [ "$milliseconds" -le "$2" ] || fail "the job took $milliseconds ms with $1"
}

run_filter "$W/wol.ppd" --no-new-privs
expect_job "no bus" 900

socat "UNIX-LISTEN:$W/mute.sock,fork" "SYSTEM:sleep 60" >"$W/mute_log" 2>&1 </dev/null &
started mute_bus $!
wait_until 5 test -S "$W/mute.sock" || fail "no bus that says nothing"
real_bus=$DBUS_SYSTEM_BUS_ADDRESS
DBUS_SYSTEM_BUS_ADDRESS=unix:path=$W/mute.sock
run_filter "$W/wol.ppd" --no-new-privs
expect_job "a bus that says nothing" 17900
stop mute_bus
DBUS_SYSTEM_BUS_ADDRESS=$real_bus

bus_start
run_filter "$W/wol.ppd" --no-new-privs
expect_job "no service on the bus" 900

bus_service /bin/false
run_filter "$W/wol.ppd" --no-new-privs
expect_job "a service that cannot be started" 1900

bus_wake_service
run_filter "$W/wol.ppd" --reuid=nobody --clear-groups
expect_job "a user whom the bus refuses" 900
[ ! -e "$W/service_pid" ] || fail "the service was started for a user whom the bus refuses"

# A MAC address of fewer than six parts ends the job before its first byte.
run_filter "$W/short_mac.ppd" --no-new-privs
expect "exit status with a short MAC address" 134 "$status"
expect "bytes of the job with a short MAC address" 0 "$(stat -c %s "$W/out")"

stop bus
status=0
"$BUILD/kelmctl" wake kelm >"$W/out" 2>"$W/err" || status=$?
expect "exit status of kelmctl wake without a bus" 1 "$status"
grep -q '^kelmctl: .*system bus' "$W/err" || fail "no reason: $(cat "$W/err")"
