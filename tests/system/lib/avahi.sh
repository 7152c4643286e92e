# avahi.sh : mDNS daemons; read after common.sh and bus.sh. Each needs its own bus and its own /run.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

# avahi_configuration HOST INTERFACE
avahi_configuration() {
  cat <<END
[server]
host-name=$1
domain-name=local
use-ipv4=yes
use-ipv6=no
enable-dbus=yes
allow-interfaces=$2
[wide-area]
enable-wide-area=no
[publish]
publish-hinfo=no
publish-workstation=no
END
}

# avahi_start NAME INTERFACE [COMMAND...] : a daemon on the bus of DBUS_SYSTEM_BUS_ADDRESS, started through
# COMMAND (such as "nsenter ...")
avahi_start() {
  name=$1
  interface=$2
  shift 2
  [ -x /usr/sbin/avahi-daemon ] || fail "no avahi-daemon: install the package avahi-daemon"
  avahi_configuration "$name" "$interface" >"$W/$name.conf"
  "$@" /usr/sbin/avahi-daemon -f "$W/$name.conf" --no-drop-root --no-chroot --no-rlimits \
    --no-proc-title >"$W/${name}_log" 2>&1 </dev/null &
  started "$name" $!
  wait_until 5 avahi_answers || fail "the mDNS daemon $name did not start"
}

avahi_answers() {
  busctl --address="$DBUS_SYSTEM_BUS_ADDRESS" call org.freedesktop.DBus /org/freedesktop/DBus org.freedesktop.DBus \
    NameHasOwner s org.freedesktop.Avahi 2>"$W/busctl_err" | grep -qx 'b true'
}
