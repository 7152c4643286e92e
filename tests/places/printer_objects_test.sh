#!/bin/sh
# Every object of the printer's MIB is tested, known to the tests' agents, and described.
# SPDX-License-Identifier: Apache-2.0
set -eu
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT

status=0
missing() {
  echo "$1: $2" >&2
  status=1
}

# "NAME OBJECT" for each object or family of objects, without the last number.
arc=.1.3.6.1.4.1.47193
tr '\n' ' ' <snmp/oid_tables.hpp | grep -oE '[A-Za-z]+ += +oid(Text|Table<[0-9]+>)\("[.0-9]+"\)' |
  sed -nE 's/^([A-Za-z]+) = +oidText\("(.*)\.[0-9]+"\)/\1 \2/p; s/^([A-Za-z]+) = +oidTable.*\("(.*)"\)/\1 \2/p' |
  grep -F " $arc" >"$W/objects"
[ -s "$W/objects" ] || missing snmp/oid_tables.hpp "no objects found"

# What the tests' agents call them: "NAME OBJECT".
agents=tests/system/lib/printer_mib.awk
sed -n 's/^ *oid\["\(.*\)"\] = .*/\1/p' $agents >"$W/names"
sed 's/$/ 0 integer 1/' "$W/names" | awk -f $agents | sed 's/^override  *\(.*\)\.0  *integer 1$/\1/' |
  paste -d ' ' "$W/names" - >"$W/played"

while read -r name object; do
  grep -qw "$name" tests/unit/snmp/oid_tables_test.cpp || missing "$name" "tests/unit/snmp/oid_tables_test.cpp does not name it"
  grep -qF "\`${object#"$arc"}." docs/printer-mib.md || missing "$name" "docs/printer-mib.md has no row for ${object#"$arc"}"
  played=$(awk -v object="$object" '$2 == object { print $1 }' "$W/played")
  [ -n "$played" ] || missing "$name" "$agents has no name for $object"
  [ -z "$played" ] || grep -qE "^$played [0-9]" tests/system/printers/*.mib ||
    missing "$name" "no file of tests/system/printers/ has $played"
done <"$W/objects"

# An operation that another one calls is tested together with it.
sed -nE 's/^ *static .* ([A-Za-z_]+)\(.*/\1/p' snmp/qv_snmp_helper.hpp >"$W/operations"
while read -r name; do
  [ "$(grep -c "$name(" snmp/qv_snmp_helper.cpp)" -gt 1 ] ||
    grep -q "$name" tests/unit/snmp/qv_snmp_helper_test.cpp tests/system/printer_queries.cpp ||
    missing "$name (snmp/qv_snmp_helper.hpp)" "neither tests/unit/snmp/qv_snmp_helper_test.cpp nor tests/system/printer_queries.cpp names it"
done <"$W/operations"
exit $status
