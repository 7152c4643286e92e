#!/bin/sh
# For the jobs in standard/jobs.txt, kelmctl explain says what the printer gets.
# Time limit: 300 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

CUPS_SERVERROOT=$W/cups/etc
export CUPS_SERVERROOT

cups_setup
cups_start
for queue in kelm other; do
  cups_queue "$queue" file:/dev/null "$BUILD/ppd/kelm-ij.ppd"
done
python3 "$HERE/lib/explained_jobs.py" "$HERE/standard/jobs.txt" kelm "$BUILD/kelmctl" ||
  fail "explain says something else than what is printed"
