#!/bin/sh
# A service that hangs or dies after the request: the job waits 240 steps and no longer, and is printed.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"

service_works() { [ -e "$W/service_log" ] && grep -q 'waking 192.0.2.9' "$W/service_log"; }

printer_is_asked() { asker=$(cat "/proc/$service/task/$service/children") && [ -n "$asker" ]; }

bus_start
bus_wake_service
sed '/^\*cupsFilter/a *PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="' "$HERE/lib/queue.ppd" >"$W/wol.ppd"
printf '%%!PS-Adobe-3.0\nshowpage\n%%%%EOF\n' >"$W/page.ps"
ln -s "$BUILD/tests/system/wake_up_limit" "$W/queue"
for signal in STOP KILL; do
  rm -f "$W/service_log"
  PPD=$W/wol.ppd PATH=$W:$PATH queue 1 user title 1 '' "$W/page.ps" >"$W/out" 2>"$W/steps" &
  started filter $!
  filter=$!
  wait_until 5 service_works || fail "the service was not asked"
  service=$(tail -n 1 "$W/service_pid")
  wait_until 5 printer_is_asked || fail "no process asks the printer"
  kill -$signal "$service"
  wait_until 20 gone "$filter" || fail "the wait does not end after SIG$signal"
  expect "steps of the wait after SIG$signal" "240" "$(cat "$W/steps")"
  sed -n '/^%!PS-Adobe/,$p' "$W/out" | cmp "$W/page.ps" - || fail "the job is not complete"
  [ $signal = KILL ] || kill -KILL "$service"
  wait_until 5 gone "${asker% }" || fail "the process that asks the printer outlives the service"
done
