#!/bin/sh
# A job for a sleeping printer without a CUPS server, as in a printer application: the printer's address comes
# from DEVICE_URI.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

# No server answers, neither here nor at the address in the machine's configuration.
mount -t tmpfs none /run
export CUPS_SERVER=127.0.0.1:631

printer_host_start
bus_start
bus_wake_service
magic_packets_start 0.0.0.0
sed '/^\*cupsFilter/a *IsWakeOnLan: "1"\n*PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="' \
  "$HERE/lib/queue.ppd" >"$W/wol.ppd"
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' \
  >"$W/page.ps"

# job [NAME=VALUE] : runs the filter as the application does. The user is CUPS' user, lp, whom the bus allows to
# call the service.
job() {
  install -m 755 "$BUILD/kelmfilter" "$W/office"
  env PPD="$W/wol.ppd" "$@" setpriv --reuid=lp --regid=lp --clear-groups \
    "$W/office" 1 user title 1 '' "$W/page.ps" >"$W/out" 2>"$W/filter_log"
}
whole_job() { sed -n '/^%!PS-Adobe/,$p' "$W/out" | cmp "$W/page.ps" -; }

job DEVICE_URI=socket://10.77.0.2 &
started job $!
wait_until 10 packets_arrived 3 || fail "no magic packets"
expect "bytes of the job before the printer is awake" 0 "$(stat -c %s "$W/out")"
printer_agent_start
wait_until 10 gone "$(cat "$W/pids/job")" || fail "the job does not end"
grep -q '10.77.0.2 answers after' "$W/service_log" || fail "the service did not wake the printer"
whole_job || fail "the job is not complete"

# Without the variable there is no address: the service refuses the request, and the job is written.
wait_until 15 service_is_gone || fail "the service does not end without work"
: >"$W/service_log"
job
whole_job || fail "the job without an address is not complete"
grep -q 'refused a request' "$W/service_log" || fail "the service did not refuse: $(cat "$W/service_log")"
