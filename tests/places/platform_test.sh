#!/bin/sh
# Every interface to the operating system is implemented in all platforms and named in a test, and
# docs/macos.md names every file for macOS.
# SPDX-License-Identifier: Apache-2.0
set -eu

status=0
missing() {
  echo "$1" >&2
  status=1
}

sed -nE 's/^  ([A-Za-z]+)\* ([a-z][A-Za-z]+);/\1 \2/p' platform/platform.hpp |
  { while read -r type member; do
    for set in linux/system_platform macos/system_platform fake/fake_platform; do
      grep -q "\\.$member = &$member," platform/$set.cpp || missing "$type (platform/platform.hpp): platform/$set.cpp does not name it"
    done
    grep -rqi "$type" tests/unit --include='*_test.cpp' || missing "$type (platform/platform.hpp): no test in tests/unit names it"
    found=yes
  done
  [ "${found-}" = yes ] || missing "no interfaces found in platform/platform.hpp"
  for file in platform/macos/*.cpp; do
    [ "$file" != platform/macos/system_platform.cpp ] || continue
    grep -qF "${file##*/}" docs/macos.md || missing "docs/macos.md does not name $file"
  done
  exit $status; }
