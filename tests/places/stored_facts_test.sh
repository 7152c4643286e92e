#!/bin/sh
# Every stored fact about the printer is read, updated, shown, tested and described.
# SPDX-License-Identifier: Apache-2.0
set -eu

status=0
# expect_in FILE PATTERN : an extended regular expression that matches a line of FILE
expect_in() {
  grep -qE -- "$2" "$1" && return
  echo "$name ($place): $1 does not name it" >&2
  status=1
}

place=ppdsettings/stored_facts.hpp
names=$(sed -nE 's/^ *\{"([A-Za-z]+)", +(plain|base64),.*/\1/p' $place)
[ -n "$names" ] || { echo "no facts found in $place" >&2; exit 1; }
for name in $names; do
  expect_in ppdsettings/snmp_helper.cpp "storedFact\\(\"$name\"\\)"
  expect_in ppdsettings/update_job.cpp "storedFact\\(\"$name\"\\)"
  expect_in tests/unit/ppdsettings/snmp_helper_test.cpp "\"$name|\\*$name"
  expect_in tests/unit/ppdsettings/update_job_test.cpp "\"$name"
  expect_in tests/cases/update/every-fact-in-its-place/err "^PPD: $name"
  expect_in tests/system/stored_facts_test.sh "${name}[0-9_=]"
  expect_in docs/stored-facts.md "^\\| \`$name"
  expect_in docs/security.md "^\\| .*\`$name\`.* \\|"
done

place=ppdsettings/snmp_helper.hpp
names=$(sed -nE 's/^ *static .* ([A-Za-z]+_)\($/\1/p; s/^ *static .* ([A-Za-z]+_)\(ppd_file_t\*.*/\1/p' $place)
for name in $names; do
  expect_in ctl/stored_settings.cpp "Helper::$name,"
  expect_in tests/fuzz/stored_facts_fuzz.cpp "Helper::${name}[,}(]"
done

place=ctl/stored_settings.cpp
names=$(sed -nE 's/^ *\{"([A-Za-z]+)", +".*", +Helper::.*/\1/p; s/.*, "([A-Za-z]+)"\},$/\1/p' $place)
[ -n "$names" ] || { echo "no members found in $place" >&2; exit 1; }
for name in $names; do
  expect_in packaging/man/kelmctl.1.scd "[ 	]_${name}_"
  expect_in tests/unit/ctl/settings_command_test.cpp "\"$name\""
done

place=ppdsettings/update_job.hpp
names=$(sed -nE 's/^bool (Update[A-Za-z]+)\(.*/\1/p' $place)
[ -n "$names" ] || { echo "no updaters found in $place" >&2; exit 1; }
for name in $names; do expect_in filter/pipeline.cpp "ppdsettings::$name,"; done
exit $status
