#!/bin/sh
# A job for a sleeping printer: the printer gets the magic packet and wakes up, and only then gets the job.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

# Six bytes FF, then sixteen times 00:80:92:12:34:56
magic_packet_hex() {
  printf 'ffffffffffff'
  for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16; do printf '008092123456'; done
}

hex() { od -An -v -tx1 | tr -d ' \n'; }

job_has_ended() { grep -qa '^%%EOF' "$W/printer.out"; }

printer_host_start
bus_start
bus_wake_service
magic_packets_start 0.0.0.0

# The facts as the print dialog stores them, with the MAC address in Base64.
sed '/^\*cupsFilter/a *IsWakeOnLan: "1"\n*PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="' \
  "$HERE/lib/queue.ppd" >"$W/wol.ppd"
cups_setup
echo "SetEnv DBUS_SYSTEM_BUS_ADDRESS $DBUS_SYSTEM_BUS_ADDRESS" >>"$CUPS/etc/cups-files.conf"
cups_start
: >"$W/printer.out"
at_printer_start printer socat -u TCP-LISTEN:9100,reuseaddr,fork "OPEN:$W/printer.out,append"
cups_queue kelm socket://10.77.0.2 "$W/wol.ppd"

{
  printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\n'
  seq 20000
  printf 'showpage\n%%%%EOF\n'
} >"$W/page.ps"
lp -d kelm -o document-format=application/vnd.cups-postscript "$W/page.ps" >"$W/lp_out"

wait_until 5 packets_arrived 3 || fail "no magic packets"
expect "the magic packet" "$(magic_packet_hex)" "$(head -c 102 "$W/packets" | hex)"
expect "the third magic packet" "$(magic_packet_hex)" "$(tail -c +205 "$W/packets" | head -c 102 | hex)"
sleep 1.5
expect "packets in the first two seconds" 306 "$(stat -c %s "$W/packets")"
expect "bytes of the job at the sleeping printer" 0 "$(stat -c %s "$W/printer.out")"
expect "call-backs so far" 0 "$(grep -c ' after ' "$W/service_log" || :)"

printer_agent_start
wait_until 10 job_has_ended || fail "the job did not arrive"
grep -q '10.77.0.2 answers after' "$W/service_log" || fail "the service did not call back for an answer"
expect_line "$W/printer.out" '@PJL ENTER LANGUAGE=POSTSCRIPT'
sed -n '/^%!PS-Adobe/,$p' "$W/printer.out" >"$W/arrived.ps"
cmp "$W/page.ps" "$W/arrived.ps" || fail "the job is not complete"

# The same by hand, with the printer awake and with the service already running.
"$BUILD/kelmctl" wake kelm >"$W/ctl_out" 2>"$W/ctl_err" || fail "kelmctl wake: $(cat "$W/ctl_err")"
grep -q '^kelm: woken after [01] s$' "$W/ctl_out" ||
  fail "kelmctl wake said: $(cat "$W/ctl_out")"

wait_until 15 service_is_gone || fail "the service does not end without work"
