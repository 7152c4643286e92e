#!/bin/sh
# GTK's own print dialog with a real queue: its controls for two sides, paper source, paper type and output tray
# work, each tab shows the right options, and what is chosen arrives in header and PostScript.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/desktop/desktop.sh
. "${0%/*}/desktop.sh"

desktop_start
GDK_BACKEND=x11 NO_AT_BRIDGE=1 timeout 120 /usr/bin/python3 "$SOURCE/tests/desktop/gtk_dialog.py" kelm \
  >"$W/dialog_log" 2>&1 || fail "the dialog: $(cat "$W/dialog_log")"
expect_a5_job
