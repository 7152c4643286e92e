#!/bin/sh
# upgrade_test.sh DIRECTORY : installs the packages in DIRECTORY and makes a queue, then upgrades, removes,
# installs and purges the packages. Upgrade and removal lose nothing, and a purge leaves nothing.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/packages/lib/common.sh
. "${0%/*}/lib/common.sh"

cups_start() {
  mkdir -p /run/cups
  cupsd -f >"$W/cupsd_log" 2>&1 </dev/null &
  cupsd=$!
  wait_until 20 cups_answers || fail "cupsd did not start"
}
cups_stop() {
  kill $cupsd
  wait $cupsd || :
}

# files FILE : lists every file of the system, except those that any package and any print job may leave
files() {
  set -- "$1" -path /proc
  for directory in /sys /dev /run /tmp /packages /source /var/cache /var/log /var/lib/apt /var/lib/dpkg \
    /var/lib/systemd /var/lib/ucf /var/spool/cups /etc/cups; do
    set -- "$@" -o -path "$directory"
  done
  list=$1
  shift
  find / \( "$@" \) -prune -o -print | sort >"$list"
}
service() { grep -lx KelmWoLServices /proc/[0-9]*/comm 2>/dev/null; }

localedef -i de_DE -f UTF-8 de_DE.UTF-8
files "$W/before"
dpkg-query -W -f '${Package}\n' | sort >"$W/packages_before"
mkdir -p /run/dbus
dbus-daemon --system --nofork --nopidfile >"$W/bus_log" 2>&1 &
wait_until 5 test -S /run/dbus/system_bus_socket || fail "no system bus"
cups_start

# Version 1, a queue with facts and defaults, a page.
install_packages "$W/version1"
dbus-send --system --dest=org.freedesktop.DBus / org.freedesktop.DBus.ReloadConfig
office_queue
page "$W/page1"
expect_line "$W/page1" '@PJL SET QVSTAPLEMODE=1STAPLE'
expect_line "$W/page1" '%%BeginFeature: *PageSize A3'

# The wake-up service is at work while it is upgraded.
a_job_wakes
wait_until 10 service >"$W/service1" || fail "the bus did not start the service"

# Version 2. The administrator's language is German, and this machine's clients use another server.
if LC_ALL=de_DE.UTF-8 lpstat -r | grep 'is running'; then fail "CUPS does not speak German"; fi
(
  export LC_ALL=de_DE.UTF-8 CUPS_SERVER=192.0.2.9
  install_packages "$W/version2"
)
expect "version of the driver" 99.0-1 "$(dpkg-query -W -f '${Version}' printer-driver-kelm)"
[ ! -e "$(cat "$W/service1")" ] || fail "the old service still runs"
expect_line /etc/cups/ppd/office.ppd '*FileVersion: "99.0"'
expect_line /etc/cups/ppd/office.ppd '*DefaultPageSize: A3'
expect_line "$W/apt_log" 'office: the default OneStaple of QVStapleMode is gone; the new one is OFF'
kelmctl settings office | diff "$W/facts" - || fail "the facts differ"
page "$W/page2"
expect_line "$W/page2" '@PJL SET QVSTAPLEMODE=OFF'
expect_line "$W/page2" '%%BeginFeature: *PageSize A3'
a_job_wakes
wait_until 10 service >"$W/service2" || fail "the bus did not start the new service"

# Without a server, an upgrade leaves the queue as it is and does not fail.
cups_stop
dpkg -i "$W"/version1/printer-driver-kelm_*.deb >>"$W/apt_log" 2>&1 || fail "version 1 cannot be installed again"
dpkg -i "$W"/version2/printer-driver-kelm_*.deb >>"$W/apt_log" 2>&1 || fail "no upgrade without a server"
cups_start
expect_line /etc/cups/ppd/office.ppd '*FileVersion: "99.0"'

# After a removal without a purge, the queue and its facts stay, and the queue prints again when the driver is
# back. Nothing else stays. (Libraries that nothing else needs are purged: they have their own configuration.)
cp -p /etc/cups/ppd/office.ppd "$W/office.ppd"
apt-get remove -y -q printer-driver-kelm kelmctl kelm-wol >>"$W/apt_log" 2>&1 || fail "the packages cannot be removed"
expect "the service" gone "$(service || echo gone)"
apt-get autoremove --purge -y -q >>"$W/apt_log" 2>&1 || fail "no automatic removal"
files "$W/after"
diff "$W/before" "$W/after" || fail "files stay after a removal"
cmp "$W/office.ppd" /etc/cups/ppd/office.ppd || fail "a removal changes the queue"
LC_ALL=C lpstat -v office >"$W/lpstat_log"
expect_line "$W/lpstat_log" 'device for office: socket://127.0.0.1:9100'
install_packages "$W/version2"
kelmctl settings office | diff "$W/facts" - || fail "the facts differ after a removal"
page "$W/page3"
expect_line "$W/page3" '%%BeginFeature: *PageSize A3'

# After a purge, nothing stays.
lpadmin -x office
apt-get purge -y -q printer-driver-kelm kelmctl kelm-wol >>"$W/apt_log" 2>&1 || fail "the packages cannot be purged"
apt-get autoremove --purge -y -q >>"$W/apt_log" 2>&1 || fail "no automatic removal"
dpkg-query -W -f '${Package}\n' | sort | diff "$W/packages_before" - || fail "other packages stay"
files "$W/after"
diff "$W/before" "$W/after" || fail "files stay"
expect "PPDs of queues" "" "$(ls /etc/cups/ppd)"
if dpkg-query -W 'kelm*' printer-driver-kelm 2>/dev/null | grep .; then fail "dpkg knows the packages"; fi
cups_stop
