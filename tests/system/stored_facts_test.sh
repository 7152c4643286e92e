#!/bin/sh
# An update job makes CUPS store every kind of fact about the printer in the queue's PPD. kelmctl reads the
# same facts back, from the server and from the file.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

encoded() { printf '%s' "$1" | base64 -w 0; }

# update OPTION... : sends an update job with a document that is not read
update() {
  for option; do
    set -- "$@" -o "$option"
    shift
  done
  cups_job kelm -o UpdatePPDOptions "$@" "$W/large.ps" >"$W/job_id" || fail "the job did not end"
  grep -q "\[Job $(cat "$W/job_id")\] Job completed" "$CUPS/log/error_log" ||
    fail "the update job did not complete"
}

cups_setup
cups_start
printer_start 9100 "$W/printer.out"
cups_queue kelm socket://127.0.0.1:9100 "$HERE/lib/queue.ppd"

# The document is larger than a pipe's buffer: the job must end although the filter does not read it.
{
  printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\n'
  yes '100 100 moveto 200 200 lineto stroke' | head -n 20000
  printf 'showpage\n%%%%EOF\n'
} >"$W/large.ps"

# "Poststelle Süd" is UG9zdHN0ZWxsZSBTw7xk in Base64; its parts end within encoded characters. Box 1 is
# missing, box 7 has a gap in its parts, box 99 is the last one.
update PPDOptionsUpdated=1 IsCustomSnmpCommunity=1 IsWakeOnLan=0 IsOverTheRouter=1 \
  UsePersonalFolder=1 AdminLoginModeEnabled=0 \
  "SnmpCommunityName=$(encoded 'Büro Süd')" \
  "PrinterMacAddress=$(encoded '00:11:22:33:44:55')" \
  "PrinterIPAddress=$(encoded '192.0.2.7')" \
  SharedBoxName0_Part1=UG9zdHN SharedBoxName0_Part2=0ZWxsZSBTw SharedBoxName0_Part3=7xk \
  "SharedBoxName7_Part1=$(encoded 'abc')" "SharedBoxName7_Part6=$(encoded '共有ボックス')" \
  "SharedBoxName99_Part1=$(encoded 'last')" \
  "SharedBoxName100_Part1=$(encoded 'beyond')" \
  "SelSharedBoxName3_Part1=$(encoded '共有ボックス')" \
  SelSharedBoxIndex0=7 SelSharedBoxIndex12=99 \
  "BarcodeAreaDefName1_Part1=$(encoded '"Etikett" \ links')" \
  "ColorProfileName29_Part1=$(encoded 'Öl & Wasser')" \
  "ColorProfileName30_Part1=$(encoded 'beyond')" \
  "PSFormName0_Part1=$(encoded 'Brief')" "PSFormName50_Part1=$(encoded '請求書')"

cat >"$W/expected.json" <<'END'
{
  "isCustomSnmpCommunity": true,
  "snmpCommunityName": "Büro Süd",
  "isWakeOnLan": false,
  "printerMacAddress": "00:11:22:33:44:55",
  "isOverTheRouter": true,
  "printerIPAddress": "192.0.2.7",
  "ppdOptionsUpdated": true,
  "usePersonalFolder": true,
  "adminLoginModeEnabled": false,
  "sharedBoxes": [
    "Poststelle Süd",
    "abc共有ボックス",
    "last"
  ],
  "sharedBoxNumbers": [
    1,
    8,
    100
  ],
  "selectedSharedBoxes": [
    "共有ボックス"
  ],
  "selectedSharedBoxIndexes": [
    7,
    99
  ],
  "barcodeAreas": [
    "\"Etikett\" \\ links"
  ],
  "colorProfiles": [
    "Öl & Wasser"
  ],
  "forms": [
    "Brief",
    "請求書"
  ]
}
END
mkdir "$W/tmp"
TMPDIR=$W/tmp "$BUILD/kelmctl" settings kelm --json >"$W/queue.json"
diff "$W/expected.json" "$W/queue.json" >&2 || fail "the queue's facts are not what was sent"
expect "copies of the PPD left over" "" "$(ls "$W/tmp")"
"$BUILD/kelmctl" settings --ppd "$(cups_queue_ppd kelm)" --json >"$W/file.json"
diff "$W/expected.json" "$W/file.json" >&2 || fail "the file's facts are not what was sent"
expect "bytes at the printer" 0 "$(wc -c <"$W/printer.out")"

# The keywords as CUPS stores them.
expect_line "$(cups_queue_ppd kelm)" '*IsWakeOnLan: 0'
expect_line "$(cups_queue_ppd kelm)" '*SharedBoxName0_Part2: 0ZWxsZSBTw'
if grep -q 'UpdatePPDOptions\|SharedBoxName100\|ColorProfileName30' "$(cups_queue_ppd kelm)"; then
  fail "a keyword was stored that is not a fact about the printer"
fi

# A later update replaces what it names and keeps the rest.
update IsWakeOnLan=1 SharedBoxName7_Part6=
"$BUILD/kelmctl" settings kelm >"$W/settings"
expect_line "$W/settings" 'Wake-on-LAN               yes'
expect_line "$W/settings" 'SNMP community            Büro Süd'
expect_line "$W/settings" '                          8  abc'

# An ordinary job of the same queue prints.
cups_job kelm "$W/large.ps" >"$W/job_id" || fail "the job did not end"
wait_until 5 grep -qa '^showpage' "$W/printer.out" || fail "no page at the printer"
