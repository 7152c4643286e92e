#!/bin/sh
# No value of an update job's option makes cupsd store a keyword that is hidden in the value, or breaks the
# queue for later jobs: the PPD does not change, and the system log names the keyword that was left out.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/system_log.sh
. "$HERE/lib/system_log.sh"

printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"
system_log_start "$W/syslog"
cups_setup
cups_start
cups_queue kelm file:/dev/null "$HERE/lib/queue.ppd"
cp "$(cups_queue_ppd kelm)" "$W/before.ppd"

log_names() { grep -qa "PPD keyword $1 not updated: ${2-its value could forge}" "$W/syslog"; }

# refused WHAT KEYWORD OPTION-TEXT [REASON] : OPTION-TEXT is KEYWORD=VALUE as lp reads it
refused() {
  : >"$W/syslog"
  cups_job kelm -o UpdatePPDOptions -o "$3" "$W/page.ps" >"$W/job_id" || fail "$1: the job did not end"
  cmp "$W/before.ppd" "$(cups_queue_ppd kelm)" >&2 || fail "$1: the queue's PPD changed"
  wait_until 2 log_names "$2" ${4+"$4"} || fail "$1: the system log does not name $2"
  if grep -qa Forged "$W/syslog"; then fail "$1: the value is in the system log"; fi
}

refused "line feed" IsWakeOnLan 'IsWakeOnLan="1
PPD:Forged=1"'
refused "space" IsWakeOnLan 'IsWakeOnLan="1 Forged=1"'
refused "tab" IsWakeOnLan "$(printf 'IsWakeOnLan="1\tForged=1"')"
refused "quotation mark" PrinterIPAddress 'PrinterIPAddress=QQ\"Forged=1'
refused "apostrophe" PrinterIPAddress "PrinterIPAddress=QQ\\'Forged=1"
refused "backslash" SharedBoxName0_Part1 'SharedBoxName0_Part1=QQ\\Forged=1'
refused "control character" SelSharedBoxIndex0 "$(printf 'SelSharedBoxIndex0=1\001Forged=1')"
refused "non-ASCII" UsePersonalFolder 'UsePersonalFolder=ü'
# cupsd reads everything after the 2047th byte of a line as another message.
refused "cut line" PrinterIPAddress \
  "PrinterIPAddress=$(printf '%02025d' 0)PPD:Forged=1" "CUPS could not read the PPD"

# A PPD line of more than 255 bytes, and a MAC address of five parts: both would break every later job.
refused "long community" SnmpCommunityName "SnmpCommunityName=$(printf '%0300d' 0)" \
  "CUPS could not read the PPD"
refused "short MAC address" PrinterMacAddress \
  "PrinterMacAddress=$(printf 00:11:22:33:44 | base64)" "its value is not a MAC address"

# cupsd itself splits the job's options at a carriage return: the filter sees a second option, which
# is not one of its keywords.
cups_job kelm -o UpdatePPDOptions -o "$(printf 'PSFormName0_Part1="QQ==\rForged=1"')" "$W/page.ps" \
  >"$W/job_id" || fail "carriage return: the job did not end"
expect_line "$(cups_queue_ppd kelm)" '*PSFormName0_Part1: QQ=='
if grep -qi forged "$(cups_queue_ppd kelm)"; then fail "carriage return: a keyword was forged"; fi

# The same keywords with valid values are stored.
cups_job kelm -o UpdatePPDOptions -o IsWakeOnLan=1 "$W/page.ps" >"$W/job_id" || fail "the job did not end"
expect_line "$(cups_queue_ppd kelm)" '*IsWakeOnLan: 1'
