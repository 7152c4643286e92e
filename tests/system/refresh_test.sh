#!/bin/sh
# kelmctl refresh: a queue gets a new version of its PPD and keeps its facts and defaults.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/kelmctl.sh
. "$HERE/lib/kelmctl.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

print_page() {
  : >"$W/printer.out"
  cups_job "$1" "$W/page.ps" >"$W/job_id" || fail "the job did not leave the queue"
  wait_until 5 grep -qa '^%%EOF' "$W/printer.out" || fail "no page at the printer"
  expect_line "$W/printer.out" '%%BeginFeature: *PageSize A3'
}

# Where the server looks for installed PPDs.
mkdir -p /usr/share/ppd
mount -t tmpfs none /usr/share/ppd
mkdir /usr/share/ppd/kelm
INSTALLED=/usr/share/ppd/kelm/test.ppd
cp "$BUILD/ppd/kelm-ij.ppd" "$INSTALLED"
NICK=$(sed -n 's/^\*NickName: *"\(.*\)"/\1/p' "$INSTALLED")
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' \
  >"$W/page.ps"

# Version 1: a queue with facts and its own defaults. Version 2 does not have the choice of one default.
cups_setup
cups_start
printer_start 9100 "$W/printer.out"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
cups_queue kelm socket://127.0.0.1 "$INSTALLED"
run 0 sync kelm
lpadmin -p kelm -o PageSize=A3 -o QVStapleMode=OneStaple 2>"$W/lpadmin_log"
PPD=$(cups_queue_ppd kelm)
expect_line "$PPD" '*DefaultPageSize: A3'
expect_line "$PPD" '*DefaultQVStapleMode: OneStaple'
print_page kelm
"$KELMCTL" settings kelm --json >"$W/facts"
run 0 refresh kelm KELM kelm
expect "output for a queue that is fresh" 'kelm: nothing to do, it has the installed PPD' "$(cat "$W/out")"

# Version 2 is installed: it has another FileVersion and one choice less.
sed -e 's/^\*FileVersion:.*/*FileVersion: "99.0"/' -e '/^\*QVStapleMode OneStaple/d' \
  "$BUILD/ppd/kelm-ij.ppd" >"$W/version2"
cp "$W/version2" "$INSTALLED"
cp "$PPD" "$W/before"
run 0 refresh --all --dry-run
grep -q '^kelm: would be refreshed, FileVersion .* -> 99.0, with [0-9]* stored lines' "$W/out" ||
  fail "no dry run: $(cat "$W/out")"
cmp "$PPD" "$W/before" || fail "a dry run changed the PPD"
run 0 refresh --all
expect_line "$W/out" 'kelm: the default OneStaple of QVStapleMode is gone; the new one is OFF'
grep -q '^kelm: refreshed, FileVersion .* -> 99.0' "$W/out" || fail "$(cat "$W/out")"
expect "standard error" '' "$(cat "$W/err")"
expect_line "$PPD" '*FileVersion: "99.0"'
expect_line "$PPD" '*DefaultPageSize: A3'
expect_line "$PPD" '*DefaultPaperDimension: A3'
expect_line "$PPD" '*DefaultQVStapleMode: OFF'
"$KELMCTL" settings kelm --json | diff "$W/facts" - || fail "the facts differ"
print_page kelm
run 0 refresh --all
expect "output for a queue that is fresh" 'kelm: nothing to do, it has the installed PPD' "$(cat "$W/out")"

# The largest PPD has 64 MB.
size=$(wc -c <"$W/version2")
{ cat "$W/version2" && yes "$(printf '*%% %99s' '')" | head -c $((67108864 - size)); } >"$W/large"
run 0 refresh kelm --ppd "$W/large" --dry-run
echo >>"$W/large"
run 1 refresh kelm --ppd "$W/large" --dry-run
grep -q '^kelmctl: kelm: the PPD file .* cannot be read to its end; ' "$W/err" || fail "$(cat "$W/err")"
rm "$W/large"

# Nothing changes if the new PPD cannot be read, or if the server fails.
cp "$PPD" "$W/before"
awk 'NR == 2 { x = sprintf("%300s", ""); gsub(/ /, "x", x); print "*Long: \"" x "\"" } { print }' \
  "$W/version2" >"$W/broken"
run 1 refresh kelm --ppd "$W/broken"
grep -q '^kelmctl: kelm: the PPD file .* cannot be read: .*on line' "$W/err" || fail "$(cat "$W/err")"
cmp "$PPD" "$W/before" || fail "an unreadable PPD changed the queue's"
sed 's/99.0/100.0/' "$W/version2" >"$W/version3"
mount --bind "$CUPS/etc/ppd" "$CUPS/etc/ppd"
mount -o remount,bind,ro "$CUPS/etc/ppd"
run 1 refresh kelm --ppd "$W/version3"
grep -q '^kelmctl: kelm: .*; it has its old PPD$' "$W/err" || fail "$(cat "$W/err")"
umount "$CUPS/etc/ppd"
cmp "$PPD" "$W/before" || fail "a server that fails changed the queue's PPD"

# A PPD that cannot be read is a failure also with --all, and no sign of another driver.
for subcommand in refresh sync; do
  TMPDIR=/nonexistent run 1 $subcommand --all
  grep -q '"kelm" cannot be read: no temporary file (TMPDIR) can be written: No such file or directory' "$W/err" "$W/out" ||
    fail "kelmctl $subcommand --all: $(cat "$W/out" "$W/err")"
done

# Nothing changes if the lock against other processes cannot be taken.
mount --bind /run/lock /run/lock
mount -o remount,bind,ro /run/lock
run 1 refresh kelm --ppd "$W/version3"
grep -q '^kelmctl: kelm: the lock file /run/lock/kelmctl.lock cannot be opened' "$W/err" ||
  fail "$(cat "$W/err")"
run 0 refresh kelm --ppd "$W/version3" --dry-run
umount /run/lock
cmp "$PPD" "$W/before" || fail "the queue's PPD was changed without a lock"

# A job that is being printed is not disturbed.
install -d -m 1777 "$W/hung"
printf '#!/bin/sh\ncat >/dev/null\n: >"%s/read"\nexec sleep 30\n' "$W/hung" >"$CUPS/bin/backend/hang"
chmod 755 "$CUPS/bin/backend/hang"
cups_queue busy hang://127.0.0.1 "$W/version2"
lp -d busy "$W/page.ps" >"$W/lp_log"
wait_until 5 test -e "$W/hung/read" || fail "no job in the busy queue"
run 1 refresh busy --ppd "$W/version3" --wait 1
grep -q '^kelmctl: busy: it is printing' "$W/err" || fail "$(cat "$W/err")"
expect "the job is still there" 1 "$(lpstat -W not-completed -o busy | wc -l)"
cancel -a busy
run 0 refresh kelm --ppd "$W/version3"
expect_line "$PPD" '*FileVersion: "100.0"'

# A PPD that is not installed, a queue with another driver, an unknown queue.
sed "s/$NICK/KELM Unknown/" "$BUILD/ppd/kelm-ij.ppd" >"$W/unknown.ppd"
cups_queue unknown socket://127.0.0.1 "$W/unknown.ppd"
run 1 refresh unknown
grep -q 'has no PPD for "KELM Unknown.* installed; give one with --ppd' "$W/err" || fail "$(cat "$W/err")"
sed 's/ kelmfilter/ -/' "$BUILD/ppd/kelm-ij.ppd" >"$W/other.ppd"
cups_queue other socket://127.0.0.1 "$W/other.ppd"
run 1 refresh other
grep -q '^kelmctl: other: the queue "other" does not print with kelmfilter: its PPD is "KELM IJ' "$W/err" || fail "$(cat "$W/err")"
run 3 refresh kelm nothere
# With several servers, each line names the server.
run 3 refresh kelm -h 127.0.0.1:631 -h 127.0.0.1:632
expect "the first server" '127.0.0.1:631/kelm: nothing to do, it has the installed PPD' "$(cat "$W/out")"
grep -q '^kelmctl: 127.0.0.1:632/kelm: the print server 127.0.0.1:632 does not answer; start it' "$W/err" ||
  fail "$(cat "$W/err")"
run 2 refresh
