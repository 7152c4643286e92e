#!/bin/sh
# What kelmctl printer shows of a printer, with any SNMP settings of the machine.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

P=$HERE/printers
KELMCTL=$BUILD/kelmctl

# expect_json FILE CONDITION : the Python condition is true, with the JSON object in FILE as d
expect_json() {
  /usr/bin/python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
sys.exit(0 if eval(sys.argv[2]) else 1)' "$1" "$2" || fail "$(cat "$1"): not true: $2"
}

# status_of COMMAND... : prints the command's exit status; its output goes to $W/out and $W/err
status_of() {
  status=0
  "$@" >"$W/out" 2>"$W/err" || status=$?
  echo $status
}

for address in 10.77.0.1/24 10.77.0.2/24 10.77.0.3/24 fd77::1/64; do ip addr add $address dev lo; done
printer_mib "$P/many_boxes.mib" | agent_start many 10.77.0.1
printer_mib "$P/few_boxes.mib" | agent_start few '[fd77::1]'
printf 'boxState 2 integer 1\nboxName 2 bytes 411b5b324a42c29b\nformState 1 absent\nmacAddress 0 absent\n' |
  printer_mib "$P/few_boxes.mib" - | agent_start holes 10.77.0.2

# A full printer as JSON.
expect "the status for 10.77.0.1" 0 "$(status_of "$KELMCTL" printer 10.77.0.1 --json)"
expect "standard error" '' "$(cat "$W/err")"
expect_json "$W/out" 'list(d) == ["sharedBoxCount", "sharedBoxes", "forms", "barcodeAreas",
  "colorProfiles", "adminLoginModeEnabled", "sleepMode", "sleepModeStatus", "macAddress"]'
expect_json "$W/out" 'd["sharedBoxCount"] == 100 and len(d["sharedBoxes"]) == 100'
expect_json "$W/out" 'd["sharedBoxes"][1] == {"state": "0", "name": "Box 2"}'
expect_json "$W/out" 'd["sharedBoxes"][2] == {"state": "1", "name": "Lagerhaus Süd"}'
expect_json "$W/out" 'd["forms"] == ["Form %d" % n for n in range(1, 101) if n not in (2, 3)]'
expect_json "$W/out" 'd["barcodeAreas"][98:] == ["Area 99", "帳票"]'
expect_json "$W/out" 'd["colorProfiles"] == ["Profile %d" % n for n in range(1, 31)]'
expect_json "$W/out" 'd["adminLoginModeEnabled"] is True'
expect_json "$W/out" '(d["sleepMode"], d["sleepModeStatus"]) == (2, 0)'
expect_json "$W/out" 'd["macAddress"] == "00:1B:A9:0C:4D:5E"'

# An IPv6 address as people write it.
expect "the status for fd77::1" 0 "$(status_of "$KELMCTL" printer fd77::1 --json)"
expect_json "$W/out" 'd["sharedBoxCount"] == 30 and len(d["sharedBoxes"]) == 30'
expect_json "$W/out" 'd["forms"] == ["Briefkopf", "請求書"] and d["colorProfiles"] == []'
expect_json "$W/out" 'd["adminLoginModeEnabled"] is False and d["sleepMode"] == 0'

# As a table.
expect "the status of the table" 0 "$(status_of "$KELMCTL" printer fd77::1)"
cat >"$W/expected" <<'END'
MAC address           00:1b:a9:00:00:01
Sleep mode            0
Administrator log-in  off
Shared boxes          2 of 30 in use
    1  Einkauf
   17  Müller "intern"
Forms                 2
    1  Briefkopf
    2  請求書
Barcode areas         1
    1  Kopf links
Colour profiles       0
END
diff "$W/expected" "$W/out" || fail "the table differs"

# An incomplete list is not shown. A name cannot control the terminal.
expect "the status with holes" 0 "$(status_of "$KELMCTL" printer 10.77.0.2 --json)"
expect_json "$W/out" 'd["forms"] is None and d["macAddress"] is None'
expect_json "$W/out" 'd["sharedBoxes"][1] == {"state": "1", "name": "A\x1b[2JB\x9b"}'
expect "the status of the table with holes" 0 "$(status_of "$KELMCTL" printer 10.77.0.2)"
expect_line "$W/out" 'Forms                 not given by the printer'
expect_line "$W/out" 'MAC address           not given by the printer'
expect_line "$W/out" '    2  A\u001B[2JB\u009B'

# On a terminal, a line says what is being asked. The next line replaces it, and the last one is erased.
script -qec "'$KELMCTL' printer 10.77.0.1" /dev/null >"$W/terminal" </dev/null
tr '\r' '\n' <"$W/terminal" | tr '\033' '^' | sed -n 's/^^\[K//p' | head -n 8 >"$W/progress"
for question in 'sleep mode' 'MAC address' 'administrator log-in' 'number of shared boxes' \
  'shared boxes' forms 'barcode areas' 'colour profiles'; do
  echo "asking 10.77.0.1: $question"
done >"$W/expected"
diff "$W/expected" "$W/progress" || fail "the progress lines differ"
expect "lines that erase the one before" 9 "$(tr '\033' '^' <"$W/terminal" | grep -o '\^\[K' | wc -l)"

# SNMP settings of the user and the environment have no effect: no configuration file of the SNMP library is
# even looked for. Each query has its own socket.
mkdir -p "$W/home/.snmp" "$W/etc"
printf "defaultPort 9161\ndefVersion 3\nretries 0\ntimeout 1\nmibs +ALL\n" |
  tee "$W/home/.snmp/snmp.conf" >"$W/etc/snmp.conf"
expect "the status with settings" 0 "$(status_of env HOME="$W/home" SNMPCONFPATH="$W/etc" MIBS=+ALL \
  ASAN_OPTIONS=detect_leaks=0 strace -f -o "$W/trace" -e trace=openat,open,stat,access,socket \
  "$KELMCTL" printer 10.77.0.1 --json)"
expect_json "$W/out" 'd["sleepMode"] == 2 and len(d["forms"]) == 98'
! grep -i 'snmp\|mibs' "$W/trace" | grep -v 'libnetsnmp\.so\|\.gcda"' || fail "it looks for SNMP settings"
expect "sockets" 12 "$(grep -c 'socket(AF_INET, SOCK_DGRAM' "$W/trace")"

# No answer: the message says what to do, and the status is 1.
expect "the status for a wrong community" 1 \
  "$(status_of "$KELMCTL" printer 10.77.0.1 --community wrong --json)"
grep -q '"10.77.0.1" does not answer .*"wrong".*--community' "$W/err" || fail "$(cat "$W/err")"
expect_json "$W/out" '(d["sleepMode"], d["sleepModeStatus"], d["sharedBoxes"]) == (-1, 2, None)'
expect_json "$W/out" 'd["adminLoginModeEnabled"] is None and d["sharedBoxCount"] is None'
expect "the status for an unknown host" 1 "$(status_of "$KELMCTL" printer no.such.host.invalid)"
grep -q '"no.such.host.invalid" cannot be asked' "$W/err" || fail "$(cat "$W/err")"
expect "output for an unknown host" '' "$(cat "$W/out")"

# An answer from another port does not count.
odd_agent_start elsewhere 10.77.0.3 elsewhere
expect "the status for an answer from elsewhere" 1 "$(status_of "$KELMCTL" printer 10.77.0.3)"
grep -q '"10.77.0.3" does not answer' "$W/err" || fail "$(cat "$W/err")"
[ "$(wc -l <"$W/elsewhere/requests")" -gt 2 ] || fail "the agent elsewhere was not asked"

# Several printers: one line for each, in the order asked for.
expect "the status of two printers" 0 "$(status_of "$KELMCTL" printer 10.77.0.1 '[fd77::1]' --json)"
expect "lines" 2 "$(wc -l <"$W/out")"
sed -n 1p "$W/out" >"$W/first"
sed -n 2p "$W/out" >"$W/second"
expect_json "$W/first" 'd["address"] == "10.77.0.1" and len(d["forms"]) == 98'
expect_json "$W/second" 'd["address"] == "fd77::1" and d["forms"] == ["Briefkopf", "請求書"]'
expect "the status of one in two printers" 3 "$(status_of "$KELMCTL" printer fd77::1 10.77.0.3)"
expect_line "$W/out" 'fd77::1'

# If interrupted, it says which printers were not asked to the end, also as JSON.
"$KELMCTL" printer 10.77.0.1 10.77.0.3 --json >"$W/out" 2>"$W/err" &
started interrupted $!
interrupted=$!
sleep 2
kill -INT $interrupted
status=0
wait $interrupted || status=$?
expect "the status of interrupted questions" 3 "$status"
expect "lines" 2 "$(wc -l <"$W/out")"
sed -n 2p "$W/out" >"$W/second"
expect_json "$W/second" '(d["address"], d["sleepModeStatus"], d["forms"]) == ("10.77.0.3", 1, None)'
expect "the message" 'kelmctl: the printer "10.77.0.3" was not asked everything' "$(cat "$W/err")"

# Arguments that make no sense.
expect "the status without an address" 2 "$(status_of "$KELMCTL" printer)"
expect "the status for no address" 2 "$(status_of "$KELMCTL" printer '')"
expect "the status for a path" 2 "$(status_of "$KELMCTL" printer /run/agent.sock)"

# Addresses that no printer can have: this computer, a group, all computers, none.
for address in 127.0.0.1 127.8.9.10 ::1 ::ffff:127.0.0.1 224.0.0.1 ff02::1%lo 255.255.255.255 0.0.0.0 ::; do
  expect "the status for $address" 2 "$(status_of "$KELMCTL" printer 10.77.0.1 "$address")"
  grep -qF "no printer can have the address \"$address\"" "$W/err" || fail "$address: $(cat "$W/err")"
  expect "the output for $address" '' "$(cat "$W/out")"
done

# A host name that leads to such an address.
cp /etc/hosts "$W/hosts"
printf '224.0.0.1 group\n127.0.0.9 myself\n10.77.0.1 printer\n' >>"$W/hosts"
mount --bind "$W/hosts" /etc/hosts
expect "the status for a name of a group" 1 "$(status_of "$KELMCTL" printer group)"
expect "the output for a name of a group" '' "$(cat "$W/out")"
expect "the message" 'kelmctl: no printer can have the address "224.0.0.1" of the host "group"' "$(cat "$W/err")"
expect "the status for a name of this computer" 1 "$(status_of "$KELMCTL" printer myself)"
expect "the message" 'kelmctl: no printer can have the address "127.0.0.9" of the host "myself"' "$(cat "$W/err")"
expect "the status for several" 3 "$(status_of "$KELMCTL" printer group printer myself --quiet)"
expect "the messages" 2 "$(grep -c '^kelmctl: no printer can have the address "[0-9.]*" of the host "[a-z]*"$' "$W/err")"
expect "lines" 2 "$(cat "$W/out" "$W/err" | wc -l)"
