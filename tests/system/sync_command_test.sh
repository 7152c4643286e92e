#!/bin/sh
# kelmctl sync from beginning to end: the printer's answers, the update job, the queue's PPD, kelmctl settings,
# and the next print job; and what can go wrong on the way.
# Time limit: 180 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/kelmctl.sh
. "$HERE/lib/kelmctl.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

P=$HERE/printers
encoded() { printf '%s' "$1" | base64 -w 0; }

# expect_message PATTERN : the last run printed one line, which says why it failed
expect_message() {
  grep -q -e "^kelmctl: .*$1" "$W/err" || fail "no message '$1', but: $(cat "$W/err")"
  expect "the lines of the message" 1 "$(wc -l <"$W/err")"
  expect "standard output" '' "$(cat "$W/out")"
}

# keep : copies the queue's PPD; expect_unchanged : the PPD is still the same
keep() { cp "$(cups_queue_ppd kelm)" "$W/kept.ppd"; }
expect_unchanged() { cmp "$W/kept.ppd" "$(cups_queue_ppd kelm)" || fail "the PPD changed"; }

# settings CONDITION : the Python condition is true, with the stored settings as d
settings() {
  "$KELMCTL" settings kelm --json >"$W/settings.json"
  /usr/bin/python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
sys.exit(0 if eval(sys.argv[2]) else 1)' "$W/settings.json" "$1" ||
    fail "$(cut -c 1-200 "$W/settings.json"): not true: $1"
}

# play FILE... : from now on, the printer answers from these data files
play() {
  [ ! -e "$W/pids/agent" ] || stop agent
  printer_mib "$@" | agent_start agent 127.0.0.1
}

cups_setup
cups_start
printer_start 9100 "$W/printer.out"
cups_queue kelm socket://127.0.0.1 "$HERE/lib/queue.ppd"
play "$P/few_boxes.mib"

# A dry run shows what would be stored.
keep
run 0 sync kelm --dry-run
cat >"$W/expected" <<END
PPDOptionsUpdated=1
IsCustomSnmpCommunity=0
SnmpCommunityName=$(encoded public)
PrinterMacAddress=$(encoded 00:1b:a9:00:00:01)
PrinterIPAddress=$(encoded 127.0.0.1)
SharedBoxName0_Part1=$(encoded Einkauf)
SharedBoxName16_Part1=$(encoded 'Müller "intern"')
AdminLoginModeEnabled=0
PSFormName0_Part1=$(encoded Briefkopf)
PSFormName1_Part1=$(encoded 請求書)
BarcodeAreaDefName0_Part1=$(encoded 'Kopf links')
END
diff "$W/expected" "$W/out" || fail "the dry run shows something else"
expect_unchanged

# The sync stores the facts.
run 0 sync kelm
expect "standard error" '' "$(cat "$W/err")"
cat >"$W/expected" <<'END'
MAC address: (none) -> 00:1b:a9:00:00:01
IP address: (none) -> 127.0.0.1
Facts are complete: no -> yes
Administrator log-in: yes -> no
Shared boxes: 0 -> 2
  + 1  Einkauf
  + 17  Müller "intern"
Barcode areas: 0 -> 1
  + 1  Kopf links
Forms: 0 -> 2
  + 1  Briefkopf
  + 2  請求書
END
diff "$W/expected" "$W/out" || fail "the changes differ"
settings 'd["printerMacAddress"] == "00:1b:a9:00:00:01" and d["printerIPAddress"] == "127.0.0.1"'
settings 'd["snmpCommunityName"] == "public" and not d["isCustomSnmpCommunity"]'
settings 'd["sharedBoxes"] == ["Einkauf", "Müller \"intern\""]'
settings 'd["forms"] == ["Briefkopf", "請求書"] and d["barcodeAreas"] == ["Kopf links"]'
settings 'd["colorProfiles"] == [] and not d["adminLoginModeEnabled"] and d["ppdOptionsUpdated"]'
settings 'd["isWakeOnLan"] and not d["isOverTheRouter"] and not d["usePersonalFolder"]'
expect "what the printer got of it" '' "$(cat "$W/printer.out")"

# A print job with the changed PPD has the header and the feature sections.
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' \
  >"$W/page.ps"
print_page() {
  : >"$W/printer.out"
  cups_job kelm "$W/page.ps" >"$W/job_id" || fail "the job did not leave the queue"
  wait_until 5 grep -qa '^%%EOF' "$W/printer.out" || fail "no page at the printer"
  expect_line "$W/printer.out" '@PJL ENTER LANGUAGE=POSTSCRIPT'
  expect_line "$W/printer.out" '%%BeginFeature: *PageSize A4'
}
print_page

# Facts that are stored already are not sent again.
lpstat -W completed -o >"$W/jobs"
run 0 sync kelm
expect "the second time" 'Nothing changed.' "$(cat "$W/out")"
lpstat -W completed -o | diff "$W/jobs" - || fail "an update job that changes nothing"

# A box with another number is shown as a change, with both numbers.
printf 'boxState 17 integer 0\nboxState 5 integer 1\nboxName 5 text Müller "intern"\n' |
  play "$P/few_boxes.mib" -
run 0 sync kelm
printf 'Shared boxes: 2 -> 2\n  - 17  Müller "intern"\n  + 5  Müller "intern"\n' |
  diff - "$W/out" || fail "a box that moves is shown differently"
play "$P/few_boxes.mib"
run 0 sync kelm --json
grep -q '"sharedBoxNumbers":{"before":\[1,5\],"after":\[1,17\]}' "$W/out" || fail "$(cat "$W/out")"

# Entries are added and removed. The longest text that fits takes six parts.
play "$P/few_boxes.mib" "$P/changed.mib"
run 0 sync kelm
settings 'd["sharedBoxes"] == ["Buchhaltung", 1038 * "n"] and d["forms"] == ["請求書"]'
settings 'd["barcodeAreas"] == ["Kopf links", "Fuß \"links\""] and d["adminLoginModeEnabled"]'
grep -q '^  - 1  Einkauf$' "$W/out" || fail "it does not say that Einkauf is gone"
expect "the longest line of the PPD" 255 "$(LC_ALL=C awk '/_Part/ && length > n { n = length }
  END { print n }' "$(cups_queue_ppd kelm)")"
print_page
play "$P/few_boxes.mib"
run 0 sync kelm
settings 'd["sharedBoxes"] == ["Einkauf", "Müller \"intern\""] and len(d["barcodeAreas"]) == 1'

# A text that is too long is refused by name, and nothing is stored.
keep
echo 'boxName 17 long 1039' | play "$P/few_boxes.mib" "$P/changed.mib" -
run 1 sync kelm
expect_message 'shared box 17 "nnnnnn.* of 1039 bytes is too long'
expect_unchanged

# A MAC address is stored in the form that jobs understand. An invalid one would end jobs, and is not stored.
echo 'macAddress 0 text 001BA9000002' | play "$P/few_boxes.mib" -
run 0 sync kelm
expect_line "$W/out" 'MAC address: 00:1b:a9:00:00:01 -> 00:1B:A9:00:00:02'
echo 'macAddress 0 text 00-1b-a9-00-00-01' | play "$P/few_boxes.mib" -
run 0 sync kelm
expect_line "$W/out" 'MAC address: 00:1B:A9:00:00:02 -> 00:1b:a9:00:00:01'
echo 'macAddress 0 text 00-1B-A9-00-00' | play "$P/few_boxes.mib" -
run 3 sync kelm
expect "the changes" 'Nothing changed.' "$(cat "$W/out")"
grep -q 'no MAC address of six hexadecimal parts' "$W/err" || fail "no message about the MAC address"
print_page

# A list that the printer does not give stays as it is stored.
printf 'formState 1-100 absent\n' | play "$P/few_boxes.mib" -
run 3 sync kelm
expect "the changes" 'Nothing changed.' "$(cat "$W/out")"
grep -q 'no complete list of its forms' "$W/err" || fail "no message about the forms"

# A single box that cannot be read is named and stays as it is stored. Any other list with such an entry is not
# stored at all, because the entries after it would get other numbers.
printf 'boxName 17 bytes ff\nboxState 2 integer 1\nboxName 2 text Neu\nformName 5 bytes ff\nformName 9 text Neu\n' |
  play "$P/few_boxes.mib" -
run 3 sync kelm
printf 'Shared boxes: 2 -> 3\n  + 2  Neu\n' | diff - "$W/out" || fail "the changes differ"
cat >"$W/expected" <<'END'
kelmctl: the printer gives no complete list of its forms; what is stored is not changed
kelmctl: the printer gives no readable shared box 17; what is stored is not changed
kelmctl: the printer gives no readable form 5; what is stored is not changed
END
diff "$W/expected" "$W/err" || fail "the messages differ"
settings 'd["forms"] == ["Briefkopf", "請求書"]'
printf 'areaName 1 bytes ff\nprofileState 2-3 integer 1\nprofileName 2 bytes ff\nprofileName 3 text Matt\n' |
  play "$P/few_boxes.mib" -
run 3 sync kelm
printf 'Shared boxes: 3 -> 2\n  - 2  Neu\n' | diff - "$W/out" || fail "the changes differ"
cat >"$W/expected" <<'END'
kelmctl: the printer gives no complete list of its barcode areas; what is stored is not changed
kelmctl: the printer gives no complete list of its colour profiles; what is stored is not changed
kelmctl: the printer gives no readable barcode area 1; what is stored is not changed
kelmctl: the printer gives no readable colour profile 2; what is stored is not changed
END
diff "$W/expected" "$W/err" || fail "the messages differ"
settings 'd["barcodeAreas"] == ["Kopf links"] and d["colorProfiles"] == []'
play "$P/few_boxes.mib"
run 0 sync kelm

# An incomplete sync does not mark the facts as complete.
cups_queue fresh socket://127.0.0.1 "$HERE/lib/queue.ppd"
echo 'macAddress 0 absent' | play "$P/few_boxes.mib" -
run 3 sync fresh
! grep -q PPDOptionsUpdated "$(cups_queue_ppd fresh)" || fail "an incomplete sync is marked as complete"
play "$P/few_boxes.mib"
run 0 sync fresh
expect_line "$(cups_queue_ppd fresh)" '*PPDOptionsUpdated: 1'

# A missing answer changes no fact: here only the query for the log-in mode gets no answer.
printf '127.0.0.8 nologin\n127.0.0.7 printer\n' | fleet_agents_start
run 0 sync fresh --address 127.0.0.7
sed -i 's/^\*AdminLoginModeEnabled: 0/*AdminLoginModeEnabled: 1/' "$(cups_queue_ppd fresh)"
cp "$(cups_queue_ppd fresh)" "$W/on.ppd"
lpadmin -p fresh -P "$W/on.ppd" 2>"$W/lpadmin_log"
run 3 sync fresh --address 127.0.0.8
grep -q 'no administrator log-in mode' "$W/err" || fail "no message about the log-in mode"
expect_line "$(cups_queue_ppd fresh)" '*AdminLoginModeEnabled: 1'

# If jobs would derive another address from the device URI, kelmctl says so and names a device URI that works.
lpadmin -p fresh -v socket://127.0.0.1:9100 2>"$W/lpadmin_log"
run 0 sync fresh
grep -q '"socket://127.0.0.1:9100" makes jobs take .*; "socket://127.0.0.1" works$' "$W/err" ||
  fail "no advice: $(cat "$W/err")"
"$KELMCTL" address socket://127.0.0.1:9100 >"$W/out" 2>"$W/err"
grep -q '; "socket://127.0.0.1" works$' "$W/err" || fail "no advice: $(cat "$W/err")"

# The same for a link-local address: jobs need "+" before its zone. The device URI that is named works.
ip addr add fe80::1/64 dev lo nodad
printer_mib "$P/few_boxes.mib" | agent_start linklocal '[fe80::1%lo]'
printf '#!/bin/sh\nexec cat\n' >"$CUPS/bin/backend/ipp"
chmod 755 "$CUPS/bin/backend/ipp"
lpadmin -p fresh -v 'ipp://[fe80::1%25lo]/ipp/print' 2>"$W/lpadmin_log"
run 0 sync fresh
expect "the changes" 'IP address: 127.0.0.1 -> fe80::1%lo' "$(cat "$W/out")"
hint='; "ipp://[v1.fe80::1+lo]/ipp/print" works$'
grep -q "$(printf '%s' "$hint" | sed 's/[[]/\\[/g')" "$W/err" || fail "no advice: $(cat "$W/err")"
"$KELMCTL" address 'ipp://[fe80::1%25lo]/ipp/print' >"$W/out" 2>"$W/err"
grep -q "$(printf '%s' "$hint" | sed 's/[[]/\\[/g')" "$W/err" || fail "no advice: $(cat "$W/err")"
lpadmin -p fresh -v 'ipp://[v1.fe80::1+lo]/ipp/print' 2>"$W/lpadmin_log"
run 0 sync fresh
expect "with the device URI that works" 'Nothing changed.' "$(cat "$W/out" "$W/err")"
"$KELMCTL" address 'ipp://[v1.fe80::1+lo]/ipp/print' >"$W/out" 2>&1
expect "the address" 'fe80::1%lo (IPv6)' "$(cat "$W/out")"
lpadmin -p fresh -v socket://127.0.0.1:9100 2>"$W/lpadmin_log"

# The most that a printer can have: 330 entries in one job, and 100 names of 600 bytes in another.
play "$P/many_boxes.mib"
run 0 sync kelm
settings '(len(d["sharedBoxes"]), len(d["forms"])) == (99, 98)'
settings '(len(d["barcodeAreas"]), len(d["colorProfiles"])) == (100, 30)'
settings 'd["sharedBoxes"][1] == "Lagerhaus Süd" and d["barcodeAreas"][99] == "帳票"'
echo 'formName 1-100 long 600' | play "$P/few_boxes.mib" "$P/many_boxes.mib" -
run 0 sync kelm
settings 'd["forms"] == 98 * [600 * "n"]'
print_page
keep
printf 'formName 1-100 long 600\nareaName 1-100 long 500\n' | play "$P/many_boxes.mib" -
run 1 sync kelm
expect_message 'lists take [0-9]* bytes.*shorten names'
expect_unchanged

# Another community is stored and used the next time. --address replaces the address.
COMMUNITY=secret
play "$P/few_boxes.mib"
run 0 sync kelm --community secret
settings 'd["snmpCommunityName"] == "secret" and d["isCustomSnmpCommunity"]'
settings 'd["sharedBoxes"] == ["Einkauf", "Müller \"intern\""] and d["colorProfiles"] == []'
run 0 sync kelm
expect "with the stored community" 'Nothing changed.' "$(cat "$W/out")"
printer_mib "$P/few_boxes.mib" | agent_start ipv6 '[::1]'
run 0 sync kelm --address ::1
expect "with another address" 'IP address: 127.0.0.1 -> ::1' "$(cat "$W/out")"

run 0 sync kelm --address '[::1]'
expect "with brackets" 'Nothing changed.' "$(cat "$W/out")"

# A host name that has only an IPv6 address.
ip addr add fd77::9/128 dev lo nodad
printer_mib "$P/few_boxes.mib" | agent_start six '[fd77::9]'
cp /etc/hosts "$W/hosts"
echo 'fd77::9 six.example' >>"$W/hosts"
mount --bind "$W/hosts" /etc/hosts
lpadmin -p kelm -v socket://six.example 2>"$W/lpadmin_log"
run 0 sync kelm
expect "a host name with an IPv6 address" 'IP address: ::1 -> fd77::9' "$(cat "$W/out")"

# kelmctl asks no address that no printer can have, and no name with such an address.
printf '224.0.0.1 group.example\n127.0.0.1 forwarded.example\n' >>"$W/hosts"
for address in 224.0.0.1 ff02::1 255.255.255.255 0.0.0.0 ::; do
  run 1 sync kelm --address $address
  expect_message "no printer can have the address \"$address\"\$"
done
run 1 sync kelm --address group.example
expect_message 'no printer can have the address "224.0.0.1" of the host "group.example"'
lpadmin -p kelm -v socket://group.example 2>"$W/lpadmin_log"
run 1 sync kelm
expect_message 'no printer can have the address "224.0.0.1"'
# It does ask this computer's own addresses, because a printer's port may be forwarded to one.
run 0 sync kelm --address forwarded.example --dry-run
lpadmin -p kelm -v socket://127.0.0.1 2>"$W/lpadmin_log"

# Errors of the printer, the queue and the print server.
keep
odd_agent_start foreign 127.0.0.9 error 2
run 1 sync kelm --address 127.0.0.9
expect_message '"127.0.0.9" answers, but not as a KELM IJ printer'
stop agent
run 1 sync kelm
expect_message '"127.0.0.1" does not answer .*"secret"'
run 1 sync nothere --address ::1
expect_message '"nothere" is not known to the print server'
lpadmin -p raw -E -v socket://127.0.0.1 2>"$W/lpadmin_log"
run 1 sync raw
expect_message '"raw" has no PPD: it is raw, or '
lpadmin -p kelm -c class 2>"$W/lpadmin_log"
run 1 sync class
expect_message '"class" is a class; name its queues'
for subcommand in wake settings explain; do
  run 1 $subcommand class
  expect_message '"class" is a class; name its queues, "lpstat -c class" lists them'
done
cups_queue 'un;synced' socket://127.0.0.1 "$HERE/lib/queue.ppd"
run 1 wake 'un;synced' -h 127.0.0.1
expect_message "does not know its printer.s MAC address; store it: kelmctl sync -h 127.0.0.1 'un;synced'\$"
cups_queue usb 'file:/dev/null' "$HERE/lib/queue.ppd"
run 1 sync usb
expect_message 'no address of a printer .*"file:/dev/null" .*--address'
sed 's/kelmfilter/-/' "$HERE/lib/queue.ppd" >"$W/other.ppd"
cups_queue other 'file:/dev/null' "$W/other.ppd"
run 1 sync other --address ::1 --community secret
expect_message '"other" does not print with kelmfilter'
# As JSON, each of these is an object with its message.
run 1 sync nothere raw class usb other kelm --json
/usr/bin/python3 -c 'import json, sys
objects = [json.loads(line) for line in open(sys.argv[1])]
assert [d["queue"] for d in objects] == ["nothere", "raw", "class", "usb", "other", "kelm"], objects
for d in objects:
    assert d["status"] == "failed" and d["message"] and d["changes"] == {} and d["missing"] == [], d' \
  "$W/out" || fail "the objects differ"
cupsreject kelm
run 1 sync kelm --address ::1
expect_message 'refuses the update job .*"kelm": .*not accepting jobs'
cupsaccept kelm
cupsdisable kelm
run 1 sync kelm --address ::1
expect_message '"kelm" is stopped; start it: cupsenable kelm$'
run 1 sync kelm --address ::1 -h 127.0.0.1
expect_message '"kelm" is stopped; start it: cupsenable -h 127.0.0.1 kelm$'
cupsenable kelm
expect "jobs left" '' "$(lpstat -W not-completed -o)"
expect_unchanged

# An update job that is cancelled while its backend hangs: kelmctl shows what it has stored nevertheless.
install -d -m 1777 "$W/hung"
printf '#!/bin/sh\ncat >"%s/job"\n: >"%s/read"\nexec sleep 30\n' "$W/hung" "$W/hung" \
  >"$CUPS/bin/backend/hang"
chmod 755 "$CUPS/bin/backend/hang"
cups_queue hung hang://127.0.0.1 "$HERE/lib/queue.ppd"
"$KELMCTL" sync hung --address ::1 --community secret >"$W/out" 2>"$W/err" &
hung=$!
wait_until 5 test -e "$W/hung/read" || fail "no update job for the hung queue"
cancel -a hung
status=0
wait $hung || status=$?
expect "exit status for a cancelled update job" 1 "$status"
grep -q 'the update job hung-[0-9]* was stopped' "$W/err" || fail "no message about it: $(cat "$W/err")"
expect_line "$W/out" 'IP address: (none) -> ::1'

# Another job blocks the queue: after --wait, the update job is cancelled.
cups_queue busy hang://127.0.0.1 "$HERE/lib/queue.ppd"
rm -f "$W/hung/read"
lp -d busy "$W/page.ps" >"$W/lp_log"
wait_until 5 test -e "$W/hung/read" || fail "no job in the busy queue"
run 1 sync busy --address ::1 --community secret --wait 1
expect_message 'the update job busy-[0-9]* did not end in time and is cancelled; see what holds the queue up: lpstat -o busy (or'
expect "jobs in the busy queue" 1 "$(lpstat -W not-completed -o busy | wc -l)"

# Two processes for one queue: the second says that it waits for the first, and gives up after --wait.
"$KELMCTL" sync busy --address ::1 --community secret --wait 4 >"$W/first_out" 2>&1 &
first=$!
sleep 1
run 1 sync busy --address ::1 --community secret --wait 1
grep -q "^kelmctl: process $first is updating the queue \"busy\"; waiting for it\$" "$W/err" ||
  fail "no message about the other process: $(cat "$W/err")"
wait $first || :
cancel -a busy

run 2 sync
run 2 sync kelm --address 'not an address'
run 2 sync kelm --all
run 2 sync kelm other --address ::1
run 2 sync kelm --jobs 0
run 2 sync kelm --jobs 901
run 2 sync kelm --wait 86401
run 2 sync kelm --community ''
run 2 sync kelm --community "$(printf 'a\377')"
