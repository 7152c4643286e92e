#!/bin/sh
# Qt's own print dialog on a real queue: its controls for two sides are live, its page "Advanced" has the
# groups of the PPD, and what is chosen in it arrives in header and PostScript.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/desktop/desktop.sh
. "${0%/*}/desktop.sh"

desktop_start
QT_QPA_PLATFORM=xcb timeout 120 /usr/bin/python3 "$SOURCE/tests/desktop/qt_dialog.py" kelm \
  >"$W/dialog_log" 2>&1 || fail "the dialog: $(cat "$W/dialog_log")"
expect_a5_job
