# bus.sh : a private system bus; read after common.sh. It has the policy of a real one: it refuses method
# calls and names unless the packaged file allows them. The service's user, whom an installation creates,
# exists only in the test's mount namespace.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

DBUS_SYSTEM_BUS_ADDRESS=unix:path=$W/bus.sock
export DBUS_SYSTEM_BUS_ADDRESS

# bus_start : a bus with the packaged policy
bus_start() {
  command -v dbus-daemon >"$W/which" || fail "no dbus-daemon: install the package dbus-daemon"
  mkdir -p "$W/services"
  cp /etc/passwd "$W/passwd"
  echo 'kelmwol:x:61717:65534:KELM wake-up service:/:/usr/sbin/nologin' >>"$W/passwd"
  chmod 644 "$W/passwd"
  mount --bind "$W/passwd" /etc/passwd
  bus_configuration >"$W/bus.conf"
  dbus-daemon --config-file="$W/bus.conf" --nofork --nopidfile --nosyslog \
    >"$W/bus_log" 2>&1 </dev/null &
  started bus $!
  wait_until 5 test -S "$W/bus.sock" || fail "the bus did not start"
}

bus_configuration() {
  cat <<END
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=$W/bus.sock</listen>
  <auth>EXTERNAL</auth>
  <servicedir>$W/services</servicedir>
  <limit name="service_start_timeout">5000</limit>
  <policy context="default">
    <allow user="*"/>
    <deny own="*"/>
    <deny send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow receive_type="signal"/>
    <allow send_destination="org.freedesktop.DBus" send_interface="org.freedesktop.DBus"/>
    <allow send_destination="org.freedesktop.DBus" send_interface="org.freedesktop.DBus.Peer"/>
    <allow own="org.freedesktop.Avahi"/>
    <allow send_destination="org.freedesktop.Avahi"/>
  </policy>
  <include>$SOURCE/packaging/com.kelm.KelmWoLServices.conf</include>
</busconfig>
END
}

# bus_service PROGRAM : the packaged activation file, with PROGRAM instead of the installed one. The bus
# runs as root, and starts it as root.
bus_service() {
  sed "s|^Exec=.*|Exec=$1|" "$BUILD/packaging/com.kelm.KelmWoLServices.service" \
    >"$W/services/com.kelm.KelmWoLServices.service"
}

# bus_wake_service : the real service, which runs as its own user; its messages are in $W/service_log
bus_wake_service() {
  cat >"$W/wake_service" <<END
#!/bin/sh
echo \$\$ >>"$W/service_pid"
exec setpriv --reuid=kelmwol --regid=nogroup --clear-groups --no-new-privs --bounding-set=-all \
  --inh-caps=-all "$BUILD/KelmWoLServices" 2>>"$W/service_log"
END
  chmod 755 "$W/wake_service"
  bus_service "$W/wake_service"
}

service_is_gone() { gone "$(tail -n 1 "$W/service_pid")"; }
