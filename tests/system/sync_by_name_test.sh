#!/bin/sh
# A queue whose device URI has a service's name: kelmctl sync finds the printer that announces this name.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/avahi.sh
. "$HERE/lib/avahi.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

published() { grep -q Established "$W/publish_log"; }
has_box() { "$BUILD/kelmctl" settings kelm | grep -q '^Shared boxes  *[^ (]'; }

mount -t tmpfs none /run
bus_start
avahi_start printer lo
avahi-publish-service "My.Printer 2" _pdl-datastream._tcp 9100 ty=KELM >"$W/publish_log" 2>&1 &
started publish $!
wait_until 10 published || fail "the service was not published"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1

cups_setup
cat >"$CUPS/bin/backend/dnssd" <<'END'
#!/bin/sh
exec cat
END
chmod 755 "$CUPS/bin/backend/dnssd"
cups_start
cups_queue kelm 'dnssd://My.Printer%202._pdl-datastream._tcp.local/' "$HERE/lib/queue.ppd"

"$BUILD/kelmctl" sync kelm >"$W/out" 2>"$W/err" || fail "kelmctl sync: $(cat "$W/err")"
has_box || fail "no shared box is stored: $(cat "$W/out")"

# With --address, the name is not looked up.
lpadmin -p kelm -v dnssd://Nobody._pdl-datastream._tcp.local/ 2>"$W/lpadmin_log"
before=$(date +%s%N)
"$BUILD/kelmctl" sync kelm --address 127.0.0.1 --dry-run >"$W/out" 2>"$W/err" ||
  fail "kelmctl sync --address: $(cat "$W/err")"
[ $((($(date +%s%N) - before) / 1000000)) -le 2500 ] || fail "the name was looked up in spite of --address"
