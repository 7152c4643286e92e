#!/bin/sh
# GTK's own print dialog on a real queue: its controls for two sides, paper source, paper type and
# output tray are live, and what is chosen in it arrives in header and PostScript.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/../system/lib/common.sh"
HERE=$SOURCE/tests/system
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

command -v Xvfb >/dev/null || fail "no Xvfb: run scripts/install-deps desktop"
hostname office-pc
mount -t tmpfs none /run
cups_setup
cups_start
printer_start 9100 "$W/printer.out"
cups_queue kelm socket://127.0.0.1:9100 "$BUILD/ppd/kelm-ij.ppd"

Xvfb :77 -screen 0 1024x768x24 -nolisten tcp >"$W/xvfb_log" 2>&1 &
started xvfb $!
display_is_there() { [ -S /tmp/.X11-unix/X77 ]; }
wait_until 10 display_is_there || fail "no display"
DISPLAY=:77 GDK_BACKEND=x11 NO_AT_BRIDGE=1 timeout 60 /usr/bin/python3 "$SOURCE/tests/desktop/gtk_dialog.py" \
  kelm >"$W/dialog_log" 2>&1 || fail "the dialog: $(cat "$W/dialog_log")"

all_there() { grep -qa '%%EOF' "$W/printer.out"; }
wait_until 20 all_there || fail "nothing was printed"
tr -d '\004' <"$W/printer.out" >"$W/printed"
for line in DUPLEX=ON BINDING=LONGEDGE COPIES=3 QVPAGESIZE=A5 MEDIASOURCE=TRAY2; do
  expect_line "$W/printed" "@PJL SET $line"
done
for line in 'QVDuplex LongEdge' 'QVInputSlot FeedTray2' 'QVCollate False' 'PageSize A5'; do
  expect_line "$W/printed" "%%BeginFeature: *$line"
done
if grep -qaE 'NumCopies [2-9]|RBINumCopies: [2-9]' "$W/printed"; then
  fail "the PostScript asks for copies too"
fi
