#!/bin/sh
# kelmctl explain says of every line of the header what it means and where its value comes from: cases
# written by hand, of ordinary jobs, of jobs with standard options and of the maker's dialog, in every
# language of the PPD.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"

# The computer's name is office-pc, and no user is logged in.
hostname office-pc
mount -t tmpfs none /run
python3 "$HERE/lib/explain_cases.py" "$BUILD/kelmctl" "$SOURCE/ppd/kelm-ij-dialog.ppd" \
  "$SOURCE/docs/pjl-header.md" "$HERE"/explain/*.txt || fail "explain says something else"
