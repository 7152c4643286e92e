#!/bin/sh
# The policy that docs/security.md recommends: users who must not print on a queue cannot change its facts.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

# The policy from the document; here the group is lp.
policy() {
  sed -n '/^    <Policy kelm-office>/,/^    <\/Policy>/p' "$SOURCE/docs/security.md" | sed 's/@office/@lp/'
}

# submit USER : sends an update job over the local socket, on which cupsd knows the user
submit() {
  runuser -u "$1" -- env CUPS_SERVER="$CUPS/state/cups.sock" CUPS_STATEDIR="$CUPS/state" HOME="$W/home" \
    lp -d office -o UpdatePPDOptions -o IsWakeOnLan=0 "$W/page.ps" </dev/null >"$W/submitted" 2>&1
}

stored() { grep -q '^\*IsWakeOnLan: 0$' "$(cups_queue_ppd office)"; }

printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"
install -d -m 777 "$W/home"
cups_setup
sed -i 's/^DefaultAuthType None/DefaultAuthType Basic/' "$CUPS/etc/cupsd.conf"
policy >>"$CUPS/etc/cupsd.conf"
grep -q '<Policy kelm-office>' "$CUPS/etc/cupsd.conf" || fail "no policy in docs/security.md"
cups_start
cups_queue office file:/dev/null "$HERE/lib/queue.ppd"

# Without the policy, any user's update job changes the PPD.
submit nobody || fail "nobody could not print: $(cat "$W/submitted")"
wait_until 10 stored || fail "the fact was not stored"
lpadmin -x office
cups_queue office file:/dev/null "$HERE/lib/queue.ppd"
if stored; then fail "the new queue has the fact"; fi

lpadmin -p office -o printer-op-policy=kelm-office 2>"$W/lpadmin_log" || fail "lpadmin refused the policy"
if submit nobody; then fail "a user outside the group could send an update job"; fi
expect "new jobs" "" "$(lpstat -W not-completed -o office)"
if stored; then fail "the fact was stored"; fi

# A member of the group can.
submit lp || fail "a member of the group could not print: $(cat "$W/submitted")"
wait_until 10 stored || fail "the member's fact was not stored"
