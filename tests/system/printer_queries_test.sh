#!/bin/sh
# The answers of real agents over IPv4 and IPv6, and of agents that misbehave. Every agent has its own
# loopback address, so that the waits for silent ones can run in parallel.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/snmp.sh
. "$HERE/lib/snmp.sh"

P=$HERE/printers
ip -6 addr add fe80::1/64 dev lo nodad

# ask SUITE ADDRESS : runs one suite of printer_queries.cpp with the printer at ADDRESS
ask() {
  PRINTER=$2 "$BUILD/tests/system/printer_queries" "--gtest_filter=$1.*" >"$W/ask_log.$1.$2" 2>&1 ||
    return 1
  grep -q 'PASSED.* [1-9][0-9]* test' "$W/ask_log.$1.$2"
}

# ask_meanwhile SUITE ADDRESS : does the same in the background; all_asked waits for the result
asked=''
ask_meanwhile() {
  ask "$1" "$2" &
  asked="$asked $1:$!"
}

all_asked() {
  for each in $asked; do wait "${each#*:}" || fail "${each%:*}"; done
}

printer_mib "$P/many_boxes.mib" | agent_start many 127.0.0.1
printer_mib "$P/few_boxes.mib" "$P/odd_values.mib" | agent_start odd_values 127.0.0.2
agent_set 127.0.0.2 formName 1 4095
agent_set 127.0.0.2 areaName 50 4096
printer_mib "$P/many_boxes.mib" "$P/long_names.mib" | agent_start long_names 127.0.0.3
printer_mib "$P/few_boxes.mib" | agent_start few 127.0.0.4
printer_mib "$P/many_boxes.mib" | agent_start many_ipv6 '[fe80::1%lo]'
printer_mib "$P/few_boxes.mib" | agent_start few_ipv6 '[::1]'
COMMUNITY=secret
printer_mib "$P/few_boxes.mib" | agent_start secret 127.0.0.5
odd_agent_start never 127.0.0.20 never
odd_agent_start late 127.0.0.21 late 1.4
odd_agent_start late_of_many 127.0.0.31 late 1.4
odd_agent_start second_of_many 127.0.0.32 after 1
odd_agent_start second30 127.0.0.22 after 1
odd_agent_start second100 127.0.0.23 after 1
odd_agent_start dropping 127.0.0.24 fewer 1
odd_agent_start thirty 127.0.0.25 fewer 70
odd_agent_start doubling 127.0.0.26 doubled
odd_agent_start garbling 127.0.0.27 garbled
odd_agent_start too_big 127.0.0.28 error 1

OTHER_PRINTER=127.0.0.23
export OTHER_PRINTER
ask_meanwhile SecondRequest 127.0.0.22
ask_meanwhile Silence 127.0.0.20
ask_meanwhile SilenceTimes 127.0.0.20
ask_meanwhile WrongCommunity 127.0.0.5
ask_meanwhile LateAgent 127.0.0.21
ask_meanwhile LongNames 127.0.0.3
ask_meanwhile ManyAtATime 127.0.0.1

for suite in ManyBoxes FullLists SingleFacts TestValue; do
  ask $suite 127.0.0.1 || fail "$suite over IPv4"
  ask $suite 'fe80::1%lo' || fail "$suite over IPv6"
done
for suite in FewBoxes SparseLists; do
  ask $suite 127.0.0.4 || fail "$suite over IPv4"
  ask $suite '[::1]' || fail "$suite over IPv6"
done
ask OddValues 127.0.0.2 || fail OddValues
ask DroppedVariable 127.0.0.24 || fail DroppedVariable
ask ThirtyInsteadOfAHundred 127.0.0.25 || fail ThirtyInsteadOfAHundred
ask DoubledAnswer 127.0.0.26 || fail DoubledAnswer
ask GarbledAnswer 127.0.0.27 || fail GarbledAnswer
ask AgentError 127.0.0.28 || fail AgentError
ask PlainIPv6Address ::1 || fail PlainIPv6Address
all_asked

# A whole family goes into one request, which does not fit into one Ethernet frame.
size=$(sed -n '2s/ .*//p' "$W/dropping/requests")
[ "$size" -gt 2200 ] || fail "a request for 100 forms of only $size bytes"

# The test query goes to this machine: version 2c (1), community "public", one GET of sysName.0.
stop many
odd_agent_start local 127.0.0.1 doubled
ask TestValue 127.0.0.1 || fail "TestValue with the odd agent"
expect "requests of the test query" 1 "$(sed 1d "$W/local/requests" | wc -l)"
sed -n 2p "$W/local/requests" | grep -q ' 30..02010104067075626c6963a0.*300e300c06082b060102010105000500$' ||
  fail "not the test query: $(sed -n 2p "$W/local/requests")"
