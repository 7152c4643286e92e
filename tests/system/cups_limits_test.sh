#!/bin/sh
# What cupsd does with values that are too long (docs/stored-facts.md), and that no update job sends them.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/system_log.sh
. "$HERE/lib/system_log.sh"

# zeros COUNT : that many zeros; "0000" is Base64 for D3 4D 34, which is not UTF-8
zeros() { printf "%0$1d" 0; }

# letters COUNT : COUNT characters (a multiple of 4) that are Base64 for "ABCABC..."
letters() { zeros "$(($1 / 4))" | sed 's/0/QUJD/g'; }

# update QUEUE OPTION
update() {
  cups_job "$1" -o UpdatePPDOptions -o "$2" "$W/page.ps" >"$W/job_id" || fail "$2: the job did not end"
}

# stored QUEUE KEYWORD : the value in the queue's PPD
stored() { sed -n "s/^\*$2: //p" "$(cups_queue_ppd "$1")"; }

# features QUEUE : the number of feature sections that CUPS writes into an ordinary job
features() {
  cups_job "$1" "$W/page.ps" >"$W/job_id" || fail "the job did not end"
  grep -ac '^%%BeginFeature' "$W/$1.out" || true
}

aborted() { grep -q "$1.*crashed on signal 6" "$CUPS/log/error_log"; }

printf '%%!PS-Adobe-3.0\n%%%%EndComments\nshowpage\n' >"$W/page.ps"
system_log_start "$W/syslog"
cups_setup
cups_start
for queue in fits cut abort; do
  cups_queue "$queue" "file:$W/$queue.out" "$HERE/lib/queue.ppd"
done
# The filter never writes such a line. This replacement writes the value of the option Careless.
cat >"$W/careless" <<'END'
#!/bin/sh
cat >/dev/null
value=${5#*Careless=}
echo "PPD: PrinterIPAddress=${value%% *}" >&2
END

# careless QUEUE VALUE : makes CUPS store the value
careless() {
  install -m 755 "$W/careless" "$CUPS/bin/filter/kelmfilter"
  cups_job "$1" -o "Careless=$2" "$W/page.ps" >"$W/job_id" || fail "the job did not end"
  install -m 755 "$BUILD/kelmfilter" "$CUPS/bin/filter/kelmfilter"
}

printer_start 9100 "$W/printer.out"
cups_queue long socket://127.0.0.1:9100 "$HERE/lib/queue.ppd"

# 252 bytes for keyword and value are the most that libcups reads back.
update fits "PrinterIPAddress=$(letters 236)"
expect "longest value" "$(letters 236)" "$(stored fits PrinterIPAddress)"
"$BUILD/kelmctl" settings fits >"$W/settings"
expect_line "$W/settings" "IP address                $(zeros 59 | sed 's/0/ABC/g')"
expect "feature sections" 1 "$(features fits)"

# A value that is one byte longer is left out: the queue keeps its value and its driver.
update fits "PrinterIPAddress=$(letters 236)="
expect "value left alone" "$(letters 236)" "$(stored fits PrinterIPAddress)"
wait_until 2 grep -qa 'PPD keyword PrinterIPAddress not updated: CUPS could not read' "$W/syslog" ||
  fail "the system log does not name the keyword"
expect "feature sections" 1 "$(features fits)"

# If it were stored, no program could read the queue's PPD any more. cupsd reads the PPD again if it is a
# second newer than cupsd's copy, and then treats the queue as one without a driver: documents go to the
# printer without the filter and without a header.
sleep 1.1
careless long "$(letters 236)="
expect "stored value" "$(letters 236)=" "$(stored long PrinterIPAddress)"
if "$BUILD/kelmctl" settings long >"$W/settings" 2>"$W/problem"; then fail "the PPD could be read"; fi
grep -q 'Line longer than the maximum allowed (255 characters)' "$W/problem" ||
  fail "kelmctl does not name the reason: $(cat "$W/problem")"
expect "bytes at the printer" 0 "$(wc -c <"$W/printer.out")"
cups_job long "$W/page.ps" >"$W/job_id" || fail "the job did not end"
wait_until 5 grep -qa '^showpage' "$W/printer.out" || fail "no page at the printer"
if grep -qa '@PJL' "$W/printer.out"; then fail "the filter was run"; fi

# No later update job can repair that, because its filter does not run. A valid PPD can.
update long PrinterIPAddress=MTkyLjAuMi43
expect "stored value" "$(letters 236)=" "$(stored long PrinterIPAddress)"
cups_queue long socket://127.0.0.1:9100 "$HERE/lib/queue.ppd"
update long PrinterIPAddress=MTkyLjAuMi43
"$BUILD/kelmctl" settings long >"$W/settings"
expect_line "$W/settings" 'IP address                192.0.2.7'

# cupsd cuts a message after 2047 bytes; "PPD: PrinterIPAddress=" takes 22 of them.
careless cut "$(zeros 3000)"
expect "cut value" "$(zeros 2025)" "$(stored cut PrinterIPAddress)"

# A line that does not fit into 4096 bytes ends the update job. The lines before it are stored.
lp -d abort -o UpdatePPDOptions -o IsWakeOnLan=0 -o "PrinterIPAddress=$(zeros 4073)" "$W/page.ps" \
  >"$W/job_id"
wait_until 10 aborted kelmfilter || fail "the update job did not abort"
wait_until 2 grep -qa 'PPD keyword PrinterIPAddress not updated: its value is too long' "$W/syslog" ||
  fail "the system log does not name the keyword"
wait_until 5 grep -q '^\*IsWakeOnLan: 0$' "$(cups_queue_ppd abort)" ||
  fail "the line before was not stored"
expect "too long value" "" "$(stored abort PrinterIPAddress)"
