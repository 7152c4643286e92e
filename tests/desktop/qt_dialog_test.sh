#!/bin/sh
# Qt's own print dialog with a real queue: its controls for two sides work, its page "Advanced" has the PPD's
# groups, and what is chosen arrives in header and PostScript.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/desktop/desktop.sh
. "${0%/*}/desktop.sh"

desktop_start
QT_QPA_PLATFORM=xcb timeout 120 /usr/bin/python3 "$SOURCE/tests/desktop/qt_dialog.py" kelm \
  >"$W/dialog_log" 2>&1 || fail "the dialog: $(cat "$W/dialog_log")"
expect_a5_job
