#!/bin/sh
# kelmctl explain says what every line of the header means and where its value comes from. The cases are
# written by hand: ordinary jobs, jobs with standard options, and jobs of the maker's dialog, in every
# language of the PPD.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"

# The computer's name is office-pc, and no user is logged in.
hostname office-pc
mount -t tmpfs none /run
python3 "$HERE/lib/explain_cases.py" "$BUILD/kelmctl" "$SOURCE/ppd/kelm-ij-dialog.ppd" \
  "$SOURCE/docs/pjl-header.md" "$HERE"/explain/*.txt || fail "explain says something else"
