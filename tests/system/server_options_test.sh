#!/bin/sh
# The options that name print servers and users: -h, -U, -E, and a server that asks for a password.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

KELMCTL=$BUILD/kelmctl

# on_terminal [PROMPT ANSWER]... -- COMMAND... : runs a command on a terminal; sets $status, and what the
# terminal showed is in $W/terminal
on_terminal() {
  status=0
  /usr/bin/python3 "$HERE/lib/on_terminal.py" "$@" >"$W/terminal" 2>"$W/terminal_log" || status=$?
}

# A user with a password, who exists only in the test's mount namespace.
cp /etc/passwd /etc/shadow "$W"
echo 'clerk:x:61718:65534:Print clerk:/:/usr/sbin/nologin' >>"$W/passwd"
echo "clerk:$(openssl passwd -6 'open sesame'):19000:0:99999:7:::" >>"$W/shadow"
mount --bind "$W/passwd" /etc/passwd
mount --bind "$W/shadow" /etc/shadow

# A job needs the user's password, everything else none. cupsd makes its certificates in etc/ssl.
cups_setup
install -d -m 700 "$CUPS/etc/ssl"
sed -i 's|^DefaultAuthType.*|DefaultAuthType Basic|; s|^  <Limit All>|  <Limit Create-Job Send-Document Print-Job>\n    AuthType Basic\n    Require user clerk\n    Order deny,allow\n    Allow from all\n  </Limit>\n&|' "$CUPS/etc/cupsd.conf"
cups_start
cups_queue kelm socket://127.0.0.1 "$HERE/lib/queue.ppd"
printer_start 9100 "$W/printer.out"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
printer_mib "$HERE/printers/few_boxes.mib" | agent_start second 127.0.0.2
cups_queue other socket://127.0.0.1 "$HERE/lib/queue.ppd"

# The password is read from the terminal once for all queues of a server, and is not shown.
on_terminal 'Password for clerk on 127.0.0.1? ' 'open sesame' -- "$KELMCTL" sync kelm other -U clerk
expect "status with the password" 0 "$status"
expect "questions" 1 "$(grep -c 'Password for clerk' "$W/terminal")"
! grep -q sesame "$W/terminal" || fail "the password is shown"
expect "queues that are done" 2 "$(grep -c '[a-z]*: done, [0-9]* settings changed' "$W/terminal")"

# Standard output has only the results. The user may also come from the environment.
KELM_OUTPUT=$W/out CUPS_USER=clerk on_terminal 'Password for clerk' 'open sesame' -- \
  "$KELMCTL" sync kelm --address 127.0.0.2 --json
expect "status with CUPS_USER" 0 "$status"
expect "lines" 1 "$(wc -l <"$W/out")"
grep -q '^{"server":"127.0.0.1","queue":"kelm","status":"done"' "$W/out" || fail "$(cat "$W/out")"

# After a wrong password kelmctl asks again, three times in all.
on_terminal 'Password for' wrong 'Password for' 'open sesame' -- "$KELMCTL" sync kelm -U clerk
expect "status with the second password" 0 "$status"
on_terminal 'Password for' wrong 'Password for' wrong 'Password for' wrong 'Password for' wrong \
  'Password for' wrong 'Password for' wrong -- \
  "$KELMCTL" sync kelm -U clerk --address 127.0.0.2
expect "status with a wrong password" 1 "$status"
expect "questions" 3 "$(grep -c 'Password for' "$W/terminal")"
grep -q 'the print server refuses the update job for the queue "kelm": ' "$W/terminal" ||
  fail "no message about it: $(cat "$W/terminal")"
on_terminal 'Password for' '' -- "$KELMCTL" sync kelm -U clerk --address 127.0.0.2
expect "status without a password" 1 "$status"

# Two servers on one computer: each has its own prompt, with its name, and its own count of attempts.
cp -a "$CUPS" "$W/second_server"
sed -i "s|$CUPS|$W/second_server|g; s/127.0.0.1:631/127.0.0.1:632/" "$W/second_server/etc/cupsd.conf" \
  "$W/second_server/etc/cups-files.conf"
/usr/sbin/cupsd -f -c "$W/second_server/etc/cupsd.conf" -s "$W/second_server/etc/cups-files.conf" \
  >"$W/second_log" 2>&1 </dev/null &
started second_server $!
wait_until 5 printer_listens 632 || fail "no second server"
two_servers='--jobs 1 -U clerk --address 127.0.0.2 -h 127.0.0.1:631 -h 127.0.0.1:632'
# shellcheck disable=SC2086
on_terminal 'for clerk on 127.0.0.1:631? ' wrong 'on 127.0.0.1:631? ' wrong 'on 127.0.0.1:631? ' wrong \
  'Password for clerk on 127.0.0.1:632? ' 'open sesame' -- "$KELMCTL" sync kelm $two_servers
expect "status with one password of two" 3 "$status"
grep -q '127.0.0.1:631/kelm: failed: the print server refuses' "$W/terminal" || fail "$(cat "$W/terminal")"
grep -q '127.0.0.1:632/kelm: done, ' "$W/terminal" || fail "$(cat "$W/terminal")"
# shellcheck disable=SC2086
on_terminal 'on 127.0.0.1:631? ' 'open sesame' -- "$KELMCTL" sync kelm $two_servers
expect "status with the other password" 0 "$status"
expect "questions" 1 "$(grep -c 'Password for' "$W/terminal")"
stop second_server

# Without a terminal, kelmctl does not ask.
status=0
setsid -w "$KELMCTL" sync other --address 127.0.0.2 -U clerk >"$W/out" 2>"$W/err" </dev/null || status=$?
expect "status without a terminal" 1 "$status"
grep -q 'refuses the update job' "$W/err" || fail "no message about it: $(cat "$W/err")"
expect "jobs left" '' "$(lpstat -W not-completed -o)"

# With -E the connection is encrypted. A server without encryption gets no request.
encrypted() { grep -c 'Connection now encrypted' "$CUPS/log/error_log" || :; }
expect "connections that are encrypted" 0 "$(encrypted)"
"$KELMCTL" settings kelm -E >"$W/out" 2>"$W/err" || fail "not with -E: $(cat "$W/err")"
[ "$(encrypted)" -gt 0 ] || fail "the connection is not encrypted"
expect_line "$W/out" 'Shared boxes              1  Einkauf'
# On port 443, everything is encrypted. Another server there that does not encrypt is not asked.
sed -i 's/^Listen 127.*/&\nListen 127.0.0.1:443/' "$CUPS/etc/cupsd.conf"
kill -HUP "$(cat "$W/pids/cupsd")"
wait_until 5 printer_listens 443 || fail "no server on port 443"
before=$(encrypted)
for options in '' -E; do
  "$KELMCTL" settings kelm -h 127.0.0.1:443 $options >"$W/out" 2>"$W/err" || fail "not on port 443: $(cat "$W/err")"
  expect_line "$W/out" 'Shared boxes              1  Einkauf'
done
[ "$(encrypted)" -ge $((before + 2)) ] || fail "connections to port 443 are not encrypted"
(cd "$W/pids" && exec /usr/bin/python3 -m http.server 443 --bind 127.0.0.2 >"$W/plain443_log" 2>&1) &
started plain443 $!
plain443_listens() { ss -ltn 'src 127.0.0.2:443' | grep -q LISTEN; }
wait_until 5 plain443_listens || fail "no server on port 443 without encryption"
status=0
"$KELMCTL" settings kelm -h 127.0.0.2:443 >"$W/out" 2>"$W/err" || status=$?
expect "status of a server on port 443 without encryption" 1 "$status"
grep -q '^kelmctl: the print server 127.0.0.2:443 cannot be asked with encryption: ' "$W/err" ||
  fail "no message about it: $(cat "$W/err")"
# IPv6 addresses: with a port only in brackets, without a port also without them.
sed -i 's/^Listen 127.*/&\nListen [::1]:631/; s/Allow from 127.0.0.1/&\n  Allow from ::1/' "$CUPS/etc/cupsd.conf"
kill -HUP "$(cat "$W/pids/cupsd")"
ipv6_listens() { ss -ltn6 'sport = :631' | grep -q LISTEN; }
wait_until 5 ipv6_listens || fail "no server at ::1"
for name in '[::1]:631' '[::1]' ::1; do
  "$KELMCTL" settings kelm -h "$name" >"$W/out" 2>"$W/err" || fail "-h $name: $(cat "$W/err")"
  expect_line "$W/out" 'Shared boxes              1  Einkauf'
done
# A server that is named twice is asked once.
"$KELMCTL" sync kelm other --dry-run -h 127.0.0.1 -h 127.0.0.1 >"$W/out" 2>"$W/err" || fail "$(cat "$W/err")"
expect "lines for two queues, and a summary" 3 "$(wc -l <"$W/out")"
(cd "$W/pids" && exec /usr/bin/python3 -m http.server 8080 --bind 127.0.0.1 >"$W/plain_log" 2>&1) &
started plain $!
wait_until 5 printer_listens 8080 || fail "no server without encryption"
status=0
"$KELMCTL" settings kelm -E -h 127.0.0.1:8080 >"$W/out" 2>"$W/err" || status=$?
expect "status of a server without encryption" 1 "$status"
grep -q '^kelmctl: the print server 127.0.0.1:8080 cannot be asked with encryption: ' "$W/err" ||
  fail "no message about it: $(cat "$W/err")"
! grep -q kelm.ppd "$W/plain_log" || fail "it was asked without encryption"
