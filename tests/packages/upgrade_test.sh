#!/bin/sh
# upgrade_test.sh DIRECTORY : installs the packages of DIRECTORY with a queue, upgrades them, removes them.
# An upgrade loses nothing, and a purge leaves nothing. Run by scripts/check-packages, in a throw-away
# Debian whose whole file system the test may change.
# SPDX-License-Identifier: Apache-2.0
set -eu
[ -e /source/tests/packages/upgrade_test.sh ] || exit 2
W=/tmp/upgrade
mkdir "$W" "$W/version1" "$W/version2"
cp "$1"/*.deb "$W/version1"
install -d -m 1777 /run/lock
ip link set lo up
ip addr add 192.0.2.1/24 dev lo

fail() {
  echo "FAILED: $*" >&2
  tail -n 20 "$W"/*log /var/log/cups/error_log >&2
  exit 1
}
expect() { [ "$2" = "$3" ] || fail "$1: expected '$2', found '$3'"; }
expect_line() { grep -qaxF -e "$2" "$1" || fail "no line '$2' in $1"; }
wait_until() {
  turns=$(($1 * 10))
  shift
  while ! "$@"; do
    turns=$((turns - 1))
    [ $turns -gt 0 ] || return 1
    sleep 0.1
  done
}
cups_answers() { LC_ALL=C lpstat -h /run/cups/cups.sock -r 2>/dev/null | grep -q 'is running'; }

cups_start() {
  mkdir -p /run/cups
  cupsd -f >"$W/cupsd_log" 2>&1 </dev/null &
  cupsd=$!
  wait_until 20 cups_answers || fail "cupsd did not come up"
}
cups_stop() {
  kill $cupsd
  wait $cupsd || :
}

# files FILE : every file of the system, except those that stay from any package and any print job
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

# page FILE : prints a page, and FILE is what the printer got
page() {
  : >"$W/printed"
  job=$(lp -d office -t Report "$W/page.ps" | sed 's/.*-\([0-9]*\) .*/\1/')
  wait_until 20 grep -qa '^%%EOF' "$W/printed" || fail "job $job did not come to the printer"
  mv "$W/printed" "$1"
}

# install DIRECTORY : the packages of DIRECTORY, as docs/install.md says
install_packages() {
  apt-get install -y -q -o Dpkg::Use-Pty=0 --no-install-recommends "$1"/*.deb >>"$W/apt_log" 2>&1 ||
    fail "the packages of $1 cannot be installed"
}

# Version 2: another FileVersion, and one choice less.
for package in "$W"/version1/*.deb; do
  root=$W/root
  rm -rf "$root"
  dpkg-deb -R "$package" "$root"
  sed -i 's/^Version: .*/Version: 99.0-1/' "$root/DEBIAN/control"
  for ppd in "$root"/usr/share/ppd/kelm/*.ppd.gz; do
    [ -e "$ppd" ] || continue
    gunzip "$ppd"
    sed -i -e 's/^\*FileVersion:.*/*FileVersion: "99.0"/' -e '/^\*QVStapleMode OneStaple/d' "${ppd%.gz}"
    gzip -9n "${ppd%.gz}"
  done
  (cd "$root" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
  dpkg-deb --root-owner-group -b "$root" "$W/version2" >"$W/repack_log"
done

printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/page.ps"
localedef -i de_DE -f UTF-8 de_DE.UTF-8
files "$W/before"
dpkg-query -W -f '${Package}\n' | sort >"$W/packages_before"
socat -u TCP-LISTEN:9100,bind=127.0.0.1,reuseaddr,fork "OPEN:$W/printed,creat,append" &
mkdir -p /run/dbus
dbus-daemon --system --nofork --nopidfile >"$W/bus_log" 2>&1 &
wait_until 5 test -S /run/dbus/system_bus_socket || fail "no system bus"
cups_start

# Version 1, a queue with facts and defaults, a page.
install_packages "$W/version1"
dbus-send --system --dest=org.freedesktop.DBus / org.freedesktop.DBus.ReloadConfig
lpinfo -m >"$W/models"
grep -q 'kelm-ij.ppd' "$W/models" || fail "CUPS does not list the driver"
lpadmin -p office -E -v socket://127.0.0.1:9100 -m "$(sed -n 's/ .*//; /kelm-ij.ppd/p' "$W/models")" \
  2>"$W/lpadmin_log"
lpadmin -p office -o PageSize=A3 -o QVStapleMode=OneStaple 2>"$W/lpadmin_log"
lp -d office -o UpdatePPDOptions -o PPDOptionsUpdated=1 -o IsCustomSnmpCommunity=1 -o IsWakeOnLan=0 \
  -o SnmpCommunityName=c2VjcmV0 -o PrinterMacAddress=MDA6MTE6MjI6MzM6NDQ6NTU= "$W/page.ps" >"$W/lp_log"
facts_are_stored() { kelmctl settings office | grep -q '00:11:22:33:44:55'; }
wait_until 20 facts_are_stored || fail "no facts are stored"
kelmctl settings office >"$W/facts"
expect_line "$W/facts" 'SNMP community            secret'
page "$W/page1"
expect_line "$W/page1" '@PJL SET QVSTAPLEMODE=1STAPLE'
expect_line "$W/page1" '%%BeginFeature: *PageSize A3'

# The wake-up service is at work while it is upgraded: a printer that sleeps on.
service() { grep -lx KelmWoLServices /proc/[0-9]*/comm 2>/dev/null; }
kelmctl wake --mac 00:11:22:33:44:55 --address 192.0.2.9 >"$W/wake_log" 2>&1 &
wait_until 10 service >"$W/service1" || fail "the bus did not start the service"

# Version 2; the administrator's language is German, and the clients of this machine use another server.
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
kelmctl settings office | diff "$W/facts" - || fail "the facts are others"
page "$W/page2"
expect_line "$W/page2" '@PJL SET QVSTAPLEMODE=OFF'
expect_line "$W/page2" '%%BeginFeature: *PageSize A3'
kelmctl wake --mac 00:11:22:33:44:55 --address 192.0.2.9 >"$W/wake_log" 2>&1 &
wait_until 10 service >"$W/service2" || fail "the bus did not start the new service"

# Without a server, an upgrade leaves the queue as it is and does not fail.
cups_stop
dpkg -i "$W"/version1/printer-driver-kelm_*.deb >>"$W/apt_log" 2>&1 || fail "no way back to version 1"
dpkg -i "$W"/version2/printer-driver-kelm_*.deb >>"$W/apt_log" 2>&1 || fail "no upgrade without a server"
cups_start
expect_line /etc/cups/ppd/office.ppd '*FileVersion: "99.0"'

# Removal: packages that nothing else needs go with them.
lpadmin -x office
apt-get purge -y -q printer-driver-kelm kelmctl kelm-wol >>"$W/apt_log" 2>&1 || fail "no removal"
expect "the service" gone "$(service || echo gone)"
apt-get autoremove --purge -y -q >>"$W/apt_log" 2>&1 || fail "no automatic removal"
dpkg-query -W -f '${Package}\n' | sort | diff "$W/packages_before" - || fail "other packages stay"
files "$W/after"
diff "$W/before" "$W/after" || fail "files stay"
expect "PPDs of queues" "" "$(ls /etc/cups/ppd)"
if dpkg-query -W 'kelm*' printer-driver-kelm 2>/dev/null | grep .; then fail "dpkg knows the packages"; fi
cups_stop
