# snmp.sh : real snmpd processes as printers' SNMP agents; read after common.sh.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

# printer_mib FILE... : the snmpd.conf of the printer that the data files together describe ("-" is standard
# input; printer_mib.awk describes the format); its community is $COMMUNITY
COMMUNITY=public
printer_mib() {
  printf 'rocommunity %s\nrocommunity6 %s\nrwcommunity private\n' "$COMMUNITY" "$COMMUNITY"
  cat "$@" | awk -f "$HERE/lib/printer_mib.awk"
}

agent_answers() { snmpget -v1 -c "$COMMUNITY" -t 0.2 -r 0 "$1" .1.3.6.1.2.1.1.3.0 >/dev/null 2>&1; }

# agent_start NAME ADDRESS : an agent with the configuration on standard input. It listens on port 161 of
# ADDRESS (IPv4, or IPv6 in brackets) until the end of the test or "stop NAME".
agent_start() {
  [ -x /usr/sbin/snmpd ] || fail "no /usr/sbin/snmpd: install the package snmpd"
  mkdir -p "$W/$1/var"
  cat >"$W/$1/snmpd.conf"
  case $2 in
    \[*) transport=udp6 ;;
    *) transport=udp ;;
  esac
  MIBS='' SNMP_PERSISTENT_DIR=$W/$1/var SNMPCONFPATH=$W/$1 \
    /usr/sbin/snmpd -f -Lf "$W/$1/snmpd_log" -C -c "$W/$1/snmpd.conf" -I -smux,ifTable \
    "$transport:$2:161" >"$W/$1/out_log" 2>&1 </dev/null &
  started "$1" $!
  wait_until 5 agent_answers "$transport:$2" || fail "the agent $1 did not start"
}

# agent_set ADDRESS OBJECT INDEX COUNT : sets a settable text of the data file to COUNT times "n"
agent_set() {
  oid=$(echo "$2 $3 settable" | awk -f "$HERE/lib/printer_mib.awk" | cut -d' ' -f3)
  text=$(head -c "$4" /dev/zero | tr '\0' n)
  snmpset -v1 -c private -t 1 -r 0 "$1" "$oid" s "$text" >"$W/snmpset_log" 2>&1 ||
    fail "the agent at $1 does not let $2 $3 be set"
}

# odd_agent_start NAME ADDRESS BEHAVIOUR... : an agent that misbehaves; odd_agent.py lists the behaviours
odd_agent_start() {
  name=$1
  mkdir -p "$W/$name"
  shift
  /usr/bin/python3 "$HERE/lib/odd_agent.py" "$@" >"$W/$name/requests" 2>"$W/$name/odd_log" &
  started "$name" $!
  wait_until 5 test -s "$W/$name/requests" || fail "the agent $name did not start"
}

# fleet_agents_start : the agents of the printers listed on standard input; fleet_agent.py describes the
# format
fleet_agents_start() {
  mkdir -p "$W/fleet"
  cat >"$W/fleet/printers"
  /usr/bin/python3 "$HERE/lib/fleet_agent.py" "$W/fleet/printers" >"$W/fleet/out" \
    2>"$W/fleet/agents_log" &
  started fleet_agents $!
  wait_until 10 test -s "$W/fleet/out" || fail "the agents did not start"
}
