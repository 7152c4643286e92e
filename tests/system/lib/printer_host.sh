# printer_host.sh : a second machine, the printer's, at the other end of a wire; read after common.sh.
# The test has the addresses 10.77.0.1 and fd77::1, the printer 10.77.0.2 and fd77::2. The printer also has
# 10.88.0.2, an address in another network, as if it were beyond a router.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

# printer_host_start : makes the machine and the wire
printer_host_start() {
  unshare -n -m sh -c 'mount -t tmpfs none /run; exec sleep 600' &
  started printer_host $!
  PRINTER_HOST=$!
  wait_until 5 printer_host_is_apart || fail "no second network namespace"
  ip link add near type veth peer name far
  ip link set far netns "$PRINTER_HOST"
  ip addr add 10.77.0.1/24 dev near
  ip addr add fd77::1/64 dev near nodad
  ip link set near up
  ip route add 10.88.0.0/24 via 10.77.0.2
  at_printer ip link set lo up
  at_printer ip addr add 10.77.0.2/24 dev far
  at_printer ip addr add fd77::2/64 dev far nodad
  at_printer ip addr add 10.88.0.2/32 dev lo
  at_printer ip link set far up
}

printer_host_is_apart() {
  [ "$(readlink /proc/$$/ns/net)" != "$(readlink "/proc/$PRINTER_HOST/ns/net")" ] &&
    at_printer mountpoint -q /run
}

# at_printer COMMAND... : runs the command on the printer's machine
at_printer() { nsenter -t "$PRINTER_HOST" -n -m "$@"; }

# at_printer_start NAME COMMAND... : runs the command there in the background until the end of the test or
# "stop NAME"
at_printer_start() {
  name=$1
  shift
  nsenter -t "$PRINTER_HOST" -n -m "$@" &
  started "$name" $!
}

# magic_packets_start ADDRESS : appends the payloads that arrive at UDP port 9 of ADDRESS (0.0.0.0: of any
# address) to $W/packets
magic_packets_start() {
  : >"$W/packets"
  at_printer_start magic_packets \
    socat -u "UDP4-RECV:9,bind=$1" "OPEN:$W/packets,append"
  wait_until 5 magic_port_is_open || fail "no process listens on UDP port 9"
}

magic_port_is_open() { at_printer ss -lun 'sport = :9' | grep -q ':9 '; }

packets_arrived() { [ "$(stat -c %s "$W/packets")" -ge $((102 * $1)) ]; }

# printer_agent_start : wakes the printer: starts a real SNMP agent that says the sleep mode is 0
printer_agent_start() {
  [ -x /usr/sbin/snmpd ] || fail "no /usr/sbin/snmpd: install the package snmpd"
  mkdir -p "$W/agent/var"
  printf 'rocommunity public default\nrocommunity6 public default\noverride .1.3.6.1.4.1.47193.1.2.1.1.6.0 integer 0\n' \
    >"$W/agent/snmpd.conf"
  at_printer_start agent env MIBS='' "SNMP_PERSISTENT_DIR=$W/agent/var" "SNMPCONFPATH=$W/agent" \
    /usr/sbin/snmpd -f -Lf "$W/agent/snmpd_log" -C -c "$W/agent/snmpd.conf" -I -smux,ifTable udp:161 \
    udp6:161 \
    >"$W/agent/out_log" 2>&1 </dev/null
}

# wake STATUS ARGUMENT... : kelmctl wake ends with STATUS; its output is in $W/out and $W/err
wake() {
  wanted=$1
  shift
  status=0
  "$BUILD/kelmctl" wake "$@" >"$W/out" 2>"$W/err" || status=$?
  expect "exit status of kelmctl wake $*" "$wanted" "$status"
}
