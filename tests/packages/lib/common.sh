# common.sh : the tests of the packages read it first:  . "${0%/*}/lib/common.sh". They run in a throw-away
# Debian whose whole file system they may change (scripts/check-packages). It sets W, the test's directory. In
# it, version1/ holds the packages, and version2/ the next version of them, whose PPD has another FileVersion and
# no choice OneStaple of QVStapleMode. This machine has the address 192.0.2.1; 192.0.2.9 never answers.
# shellcheck shell=sh disable=SC2034
# SPDX-License-Identifier: Apache-2.0
set -eu
[ -e /source/tests/packages/lib/common.sh ] || exit 2
W=/tmp/packages-test
mkdir "$W" "$W/version1" "$W/version2"
cp "$1"/*.deb "$W/version1"
install -d -m 1777 /run/lock
ip link set lo up
ip addr add 192.0.2.1/24 dev lo

fail() {
  echo "FAILED: $*" >&2
  tail -n 20 "$W"/*log /var/log/cups/error_log >&2
  [ ! -d /run/systemd/system ] || journalctl -q --no-hostname -n 40 -p notice >&2
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

# install_packages DIRECTORY : installs the packages in DIRECTORY as docs/install.md says
install_packages() {
  apt-get install -y -q -o Dpkg::Use-Pty=0 --no-install-recommends "$1"/*.deb >>"$W/apt_log" 2>&1 ||
    fail "the packages of $1 cannot be installed"
}

# office_queue : makes a queue that prints to $W/printed, with facts and defaults
office_queue() {
  socat -u TCP-LISTEN:9100,bind=127.0.0.1,reuseaddr,fork "OPEN:$W/printed,creat,append" &
  lpinfo -m >"$W/models"
  grep -q 'kelm-ij.ppd' "$W/models" || fail "CUPS does not list the driver"
  lpadmin -p office -E -v socket://127.0.0.1:9100 -m "$(sed -n 's/ .*//; /kelm-ij.ppd/p' "$W/models")" \
    2>"$W/lpadmin_log"
  lpadmin -p office -o PageSize=A3 -o QVStapleMode=OneStaple 2>"$W/lpadmin_log"
  lp -d office -o UpdatePPDOptions -o PPDOptionsUpdated=1 -o IsCustomSnmpCommunity=1 -o IsWakeOnLan=0 \
    -o SnmpCommunityName=c2VjcmV0 -o PrinterMacAddress=MDA6MTE6MjI6MzM6NDQ6NTU= "$W/page.ps" >"$W/lp_log"
  wait_until 20 facts_are_stored || fail "no facts are stored"
  kelmctl settings office >"$W/facts"
  expect_line "$W/facts" 'SNMP community            secret'
}
facts_are_stored() { kelmctl settings office | grep -q '00:11:22:33:44:55'; }

# page FILE : prints a page, and writes to FILE what the printer got
page() {
  : >"$W/printed"
  job=$(lp -d office -t Report "$W/page.ps" | sed 's/.*-\([0-9]*\) .*/\1/')
  wait_until 20 grep -qa '^%%EOF' "$W/printed" || fail "job $job did not arrive at the printer"
  mv "$W/printed" "$1"
}

# a_job_wakes : gives the wake-up service work for a minute
a_job_wakes() {
  kelmctl wake --mac 00:11:22:33:44:55 --address 192.0.2.9 >"$W/wake_log" 2>&1 &
}

printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/page.ps"
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
