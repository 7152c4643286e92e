# desktop.sh : a real queue and a display for desktop programs; their tests read it first, instead of common.sh.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/../system/lib/common.sh"
HERE=$SOURCE/tests/system
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

display_is_there() { [ -s "$W/display" ]; }

# desktop_start : starts cupsd with the queue "kelm", and a display
desktop_start() {
  command -v Xvfb >/dev/null || fail "no Xvfb: run scripts/install-deps desktop"
  hostname office-pc
  mount -t tmpfs none /run
  mkdir -m 700 "$W/runtime"
  XDG_RUNTIME_DIR=$W/runtime
  export XDG_RUNTIME_DIR
  cups_setup
  cups_start
  printer_start 9100 "$W/printer.out"
  cups_queue kelm socket://127.0.0.1:9100 "$BUILD/ppd/kelm-ij.ppd"
  # Xvfb takes the first free display and prints its number.
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$W/display" >"$W/xvfb_log" 2>&1 &
  started xvfb $!
  wait_until 20 display_is_there || fail "no display"
  DISPLAY=:$(cat "$W/display")
  export DISPLAY
}

# Parts of the PostScript may end with %%EOF, too.
all_there() { tail -c 100 "$W/printer.out" | grep -qa '%%EOF'; }

# expect_job LINE... : the printer got a job with these lines in its header, and its PostScript agrees with them
expect_job() {
  wait_until 40 all_there || fail "nothing was printed"
  tr -d '\004' <"$W/printer.out" >"$W/printed"
  for line in "$@"; do expect_line "$W/printed" "@PJL SET $line"; done
  "$BUILD/kelmctl" explain --stream "$W/printed" >"$W/explanation" ||
    fail "header and PostScript disagree: $(grep WRONG "$W/explanation")"
}

# expect_stored KEYWORD=VALUE... : the PostScript of that job stores these values
expect_stored() {
  for pair in "$@"; do
    expect_line "$W/printed" "(${pair#*=}) userdict exch /${pair%%=*} exch put"
  done
}

# expect_a5_job : the printer got a job on A5, two-sided, from tray 2, with three uncollated copies; header and
# PostScript say so
expect_a5_job() {
  expect_job DUPLEX=ON BINDING=LONGEDGE COPIES=3 QVPAGESIZE=A5 MEDIASOURCE=TRAY2
  expect_stored QVDuplex=LongEdge QVInputSlot=FeedTray2 QVCollate=False
  expect_line "$W/printed" '%%BeginFeature: *PageSize A5'
}
