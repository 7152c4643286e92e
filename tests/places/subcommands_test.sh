#!/bin/sh
# Every subcommand of kelmctl is described in the manual and run by a test. (The completions read the help.)
# SPDX-License-Identifier: Apache-2.0
set -eu

status=0
# expect_in FILE WHAT PATTERN : an extended regular expression that matches a line of FILE
expect_in() {
  grep -qE -- "$3" "$1" && return
  echo "kelmctl $name (ctl/commands.hpp): $1 has no $2" >&2
  status=1
}

names=$(sed -n 's/^ *{"\([a-z-]*\)", ".*", declare.*/\1/p' ctl/commands.hpp)
[ -n "$names" ] || { echo "no subcommands found in ctl/commands.hpp" >&2; exit 1; }
for name in $names; do
  manual=packaging/man/kelmctl.1.scd
  expect_in $manual "line under SYNOPSIS" "^\\*kelmctl $name\\*"
  expect_in $manual "section under SUBCOMMANDS" "^## $name\$"
  grep -qiE "kelmctl\" $name( |\$)|run [0-9] $name( |\$)|runKelmctl\(\{\"$name\"" tests/system/*_test.sh tests/unit/ctl/*_test.cpp && continue
  echo "kelmctl $name (ctl/commands.hpp): no test runs it; write tests/system/${name}_command_test.sh" >&2
  status=1
done
exit $status
