#!/bin/sh
# kelmctl and queues that do not print with kelmfilter: raw ones, driverless ones that are permanent or
# temporary, and printers that CUPS knows from the network only. Each subcommand says what the queue is and what
# to do, and doing it helps.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/avahi.sh
. "$HERE/lib/avahi.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/kelmctl.sh
. "$HERE/lib/kelmctl.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

# expect_refused QUEUE MESSAGE : by every subcommand that takes a queue, with this one line
expect_refused() {
  for subcommand in sync wake settings explain refresh; do
    run 1 $subcommand "$1"
    label=
    [ $subcommand != refresh ] || label="$1: "
    expect "kelmctl $subcommand $1" "kelmctl: $label$2" "$(cat "$W/err")"
    expect "output of kelmctl $subcommand $1" '' "$(cat "$W/out")"
  done
}

# temporary_queue NAME URI : as CUPS makes one when somebody prints to a printer on the network
temporary_queue() {
  cat >"$W/create.test" <<END
{
  OPERATION CUPS-Create-Local-Printer
  GROUP operation-attributes-tag
  ATTR charset attributes-charset utf-8
  ATTR language attributes-natural-language en
  ATTR uri printer-uri ipp://localhost/
  GROUP printer-attributes-tag
  ATTR name printer-name $1
  ATTR uri device-uri "$2"
  STATUS successful-ok
}
END
  ipptool -t ipp://127.0.0.1/ "$W/create.test" >"$W/create_log" || fail "no temporary queue: $(cat "$W/create_log")"
  wait_for_ppd "$1"
}

has_ppd() { [ -s "$(cups_queue_ppd "$1")" ]; }
wait_for_ppd() { wait_until 60 has_ppd "$1" || fail "CUPS made no PPD for the queue $1"; }

hostname office-pc
mount -t tmpfs none /run
bus_start
avahi_start office lo
# Where the server looks for installed PPDs.
mkdir -p /usr/share/ppd
mount -t tmpfs none /usr/share/ppd
mkdir /usr/share/ppd/kelm
cp "$BUILD/ppd/kelm-ij.ppd" /usr/share/ppd/kelm/kelm-ij.ppd

# A print server that announces its queue, and a driverless printer.
cups_setup
for backend in ipp dnssd; do ln -sfn "/usr/lib/cups/backend/$backend" "$CUPS/bin/backend/$backend"; done
sed -i 's/^Browsing.*/Browsing On\nBrowseLocalProtocols dnssd\nServerAlias */; s/^Listen 127.*/Port 631/' \
  "$CUPS/etc/cupsd.conf"
cups_start
cups_queue kelm socket://127.0.0.1 "$BUILD/ppd/kelm-ij.ppd"
lpadmin -p kelm -o printer-is-shared=true
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
mkdir "$W/eve"
ippeveprinter -r off -p 8631 -n localhost -d "$W/eve" -M KELM -m IJ driverless >"$W/eve_log" 2>&1 &
started eve $!
wait_until 5 printer_listens 8631 || fail "no driverless printer"

# A raw queue. The same is said of a driverless queue whose printer is off: CUPS calls it raw as well.
model=', where lpinfo -m lists the models'
lpadmin -p raw -E -v socket://127.0.0.1 2>"$W/lpadmin_log"
expect_refused raw "the queue \"raw\" has no PPD: it is raw, or driverless with a printer that CUPS could not ask; give it the printer's PPD: lpadmin -p raw -m MODEL$model"
lpadmin -p off -E -v ipp://127.0.0.1:8632/ipp/print -m everywhere 2>"$W/lpadmin_log"
run 1 settings off
grep -q '"off" has no PPD: it is raw, or driverless with a printer that CUPS could not ask; ' "$W/err" || fail "$(cat "$W/err")"

# A permanent driverless queue of a printer, and one of another server's queue, whose facts are there.
lpadmin -p direct -E -v ipp://127.0.0.1:8631/ipp/print -m everywhere 2>"$W/lpadmin_log"
wait_for_ppd direct
driverless='does not print with kelmfilter: it is driverless, with a PPD that CUPS made'
expect_refused direct "the queue \"direct\" $driverless; give it the printer's PPD: lpadmin -p direct -m MODEL$model"
lpadmin -p everywhere -E -v ipp://127.0.0.1:631/printers/kelm -m everywhere 2>"$W/lpadmin_log"
wait_for_ppd everywhere
there='its jobs go to "kelm" on another print server; do this there: -h 127.0.0.1 kelm'
expect_refused everywhere "the queue \"everywhere\" $driverless; $there"
lpadmin -p forward -E -v ipp://127.0.0.1:631/printers/kelm 2>"$W/lpadmin_log"
expect_refused forward "the queue \"forward\" has no PPD: it is raw, or driverless with a printer that CUPS could not ask; $there"

# What is advised helps.
model=$(lpinfo -m | sed -n 's/^\([^ ]*kelm-ij[^ ]*\) .*/\1/p' | head -n 1)
for queue in raw direct; do
  lpadmin -p $queue -m "$model" 2>"$W/lpadmin_log" || fail "no model '$model'"
  run 0 sync $queue --address 127.0.0.1
  grep -q '^Shared boxes: 0 -> 2$' "$W/out" || fail "sync $queue: $(cat "$W/out")"
done
run 0 sync -h 127.0.0.1 kelm
grep -q '^Shared boxes: 0 -> 2$' "$W/out" || fail "sync -h 127.0.0.1 kelm: $(cat "$W/out")"

# A printer that this computer knows from the network: lpstat -e lists it, but it is no queue yet.
sed "s|$CUPS|$W/client|g; s/^Port 631/Listen 127.0.0.1:632/; s/^Browsing.*/Browsing Off/" "$CUPS/etc/cupsd.conf" \
  >"$W/client.conf"
sed "s|$CUPS|$W/client|g" "$CUPS/etc/cups-files.conf" >"$W/client-files.conf"
cp -a "$CUPS" "$W/client"
rm -r "$W/client/etc" "$W/client/cache"
mkdir -p "$W/client/etc/ppd" "$W/client/cache"
/usr/sbin/cupsd -f -c "$W/client.conf" -s "$W/client-files.conf" >"$W/client_log" 2>&1 </dev/null &
started client $!
wait_until 5 printer_listens 632 || fail "no second print server"
is_announced() { CUPS_SERVER=$W/client/state/cups.sock lpstat -e 2>"$W/lpstat_log" | grep -qx kelm_office; }
wait_until 20 is_announced || fail "no printer was found on the network"
for subcommand in sync wake settings explain refresh; do
  run 1 $subcommand kelm_office -h "$W/client/state/cups.sock"
  grep -q '"kelm_office" is not known to the print server .*; "lpstat -h /.*/cups.sock -v" lists its queues (those that only "lpstat -h /.*/cups.sock -e" lists do not exist yet)$' \
    "$W/err" || fail "kelmctl $subcommand kelm_office: $(cat "$W/err")"
done

# Its temporary queue, as CUPS makes it for a job.
temporary='does not print with kelmfilter: CUPS made it by itself, and will remove it'
temporary_queue kelm_office 'dnssd://kelm%20%40%20office._ipp._tcp.local/cups'
expect_refused kelm_office "the queue \"kelm_office\" $temporary; do this on the print server that announces \"kelm @ office\""
temporary_queue eve ipp://127.0.0.1:8631/ipp/print
expect_refused eve "the queue \"eve\" $temporary; make a queue for it: lpadmin -p NAME -E -v ipp://127.0.0.1:8631/ipp/print -m MODEL, where lpinfo -m lists the models"
lpadmin -p mine -E -v ipp://127.0.0.1:8631/ipp/print -m "$model" 2>"$W/lpadmin_log"
run 0 sync mine --address 127.0.0.1

# With --all, such queues are left out.
run 0 sync --all
sed -n 's/^\([a-z]*\): \(unchanged\|done\).*/\1/p' "$W/out" | sort | tr '\n' ' ' >"$W/synced"
expect "the queues of sync --all" 'direct kelm mine raw ' "$(cat "$W/synced")"
expect "lines of sync --all" 5 "$(wc -l <"$W/out")"
run 0 refresh --all
expect "lines of refresh --all" 4 "$(wc -l <"$W/out")"
expect "messages of refresh --all" '' "$(cat "$W/err")"

# A name is not a device URI.
run 1 address raw
expect "kelmctl address raw" 'kelmctl: "raw" is not a URI; "lpstat -v" shows those of queues' "$(cat "$W/err")"
