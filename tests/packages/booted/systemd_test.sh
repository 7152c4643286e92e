#!/bin/sh
# systemd_test.sh DIRECTORY : installs, upgrades, removes and purges the packages in DIRECTORY where systemd runs
# and starts CUPS, the bus and the wake-up service. The units work, an upgrade and a removal stop the service,
# and a purge leaves no enabled unit.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/packages/lib/common.sh
. "${0%/*}/../lib/common.sh"

active() { systemctl is-active -q "$1"; }
main_pid() { systemctl show -P MainPID kelm-wol; }

install_packages "$W/version1"
office_queue
page "$W/page1"
expect_line "$W/page1" '@PJL SET QVSTAPLEMODE=1STAPLE'

# A request makes systemd start the service, which runs as its own user.
a_job_wakes
wait_until 10 active kelm-wol || fail "systemd did not start the service"
first=$(main_pid)
expect "the service's user" kelmwol "$(ps -o user= -p "$first")"
systemctl enable --now kelm-sync.timer 2>"$W/enable_log"
active kelm-sync.timer || fail "the timer does not run"

# An upgrade stops the service and gives the queue the new PPD.
install_packages "$W/version2"
if active kelm-wol; then fail "the old service still runs"; fi
[ ! -e "/proc/$first" ] || fail "the old service's process is still there"
expect_line /etc/cups/ppd/office.ppd '*FileVersion: "99.0"'
kelmctl settings office | diff "$W/facts" - || fail "the facts differ"
active kelm-sync.timer || fail "the upgrade stopped the timer"
page "$W/page2"
expect_line "$W/page2" '@PJL SET QVSTAPLEMODE=OFF'

# The nightly sync runs as its unit. The printer does not answer: the sync names the queue, and its facts stay.
systemctl start kelm-sync.service 2>"$W/sync_log" || :
journalctl -q -u kelm-sync.service >"$W/journal_log"
grep -q 'office' "$W/journal_log" || fail "the nightly sync does not name the queue"
systemctl reset-failed kelm-sync.service
kelmctl settings office | diff "$W/facts" - || fail "the nightly sync changed the facts"

# Removal stops the new service, too.
a_job_wakes
wait_until 10 active kelm-wol || fail "systemd did not start the new service"
second=$(main_pid)
apt-get remove -y -q printer-driver-kelm kelmctl kelm-wol >>"$W/apt_log" 2>&1 || fail "the packages cannot be removed"
[ ! -e "/proc/$second" ] || fail "the service runs after its removal"
if active kelm-sync.timer; then fail "the timer runs after its removal"; fi
[ -e /etc/cups/ppd/office.ppd ] || fail "a removal deletes the queue"

apt-get purge -y -q printer-driver-kelm kelmctl kelm-wol >>"$W/apt_log" 2>&1 || fail "the packages cannot be purged"
expect "what systemd still knows" '' \
  "$(find /etc/systemd /run/systemd /var/lib/systemd -name '*kelm-wol*' -o -name '*kelm-sync*')"
systemctl daemon-reload
expect "units" '' "$(systemctl list-units --all --plain --no-legend 'kelm-*')"
