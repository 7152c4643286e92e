#!/bin/sh
# The pages of kelmctl explain in a real browser: they load nothing else, fit a phone and a large screen, are
# readable in light and dark, and show the pages that were printed. With KELM_KEEP, screenshots of them are left
# in the test's directory.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/../system/lib/common.sh"

command -v chromium >/dev/null || fail "no chromium: run scripts/install-deps desktop"
command -v gs >/dev/null || fail "no gs: run scripts/install-deps check"
PPD=$BUILD/ppd/kelm-ij.ppd
OPTIONS=$(cat "$SOURCE/examples/options")
cp "$SOURCE/tests/desktop/page_probe.html" "$W/probe.html"

# browser LIGHT_OR_DARK ARGUMENT... : runs Chromium, for which 1 means light and 0 dark
browser() {
  word=$([ "$1" = dark ] && echo 0 || echo 1)
  shift
  status=0
  timeout 120 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync --disable-dev-shm-usage \
    --user-data-dir="$W/profile" --allow-file-access-from-files --hide-scrollbars \
    --blink-settings=preferredColorScheme="$word" --virtual-time-budget=10000 "$@" 2>"$W/browser_log" || status=$?
  rm -rf "$W/profile"  # its logs are not text
  return "$status"
}

# check PAGE LIGHT_OR_DARK WIDTH LINE... : the probe's result for the page has these lines
check() {
  page=$1 scheme=$2 width=$3
  shift 3
  browser "$scheme" --dump-dom "file://$W/probe.html?$page,$width" >"$W/dom" || fail "the browser did not end"
  expect_line "$W/dom" "dark: $([ "$scheme" = dark ] && echo true || echo false)"
  for line in 'wider than the screen: false' 'from elsewhere: 0' 'readable: true' "$@"; do
    grep -qxF -e "$line" "$W/dom" || fail "$page, $scheme, $width: not \"$line\": $(sed -n '/^title/,$p' "$W/dom")"
  done
  [ -z "${KELM_KEEP-}" ] || browser "$scheme" --screenshot="$W/$page-$scheme-$width.png" \
    --window-size="$width",2000 "file://$W/probe.html?$page,$width" >"$W/screenshot_log"
}

# A job before printing, with a choice that the printer does not have.
"$BUILD/kelmctl" explain --ppd "$PPD" --title 'Quarterly report' -o "$OPTIONS" -o QVPunchMode=SixHoles \
  --html "$W/job.html" >"$W/job.txt" 2>"$W/job_log" && fail "six holes are no choice"
check job.html light 390 'title: Quarterly report' 'pictures: 0 of 0' 'wrong settings: 1'
check job.html dark 1200 'wrong settings: 1'

# A printer stream, with and without a section that disagrees with the header.
PPD=$PPD "$BUILD/kelmfilter" 1 miller "$(cat "$SOURCE/examples/title")" 1 "$OPTIONS" \
  <"$SOURCE/examples/job.ps" >"$W/good.prn"
sed 's/^(LongEdge) userdict exch .QVDuplex exch put/(OFF) userdict exch \/QVDuplex exch put/' "$W/good.prn" \
  >"$W/bad.prn"
cmp -s "$W/good.prn" "$W/bad.prn" && fail "no section could be changed"
"$BUILD/kelmctl" explain --stream "$W/bad.prn" --ppd "$PPD" --html "$W/stream.html" >"$W/stream.txt" &&
  fail "the disagreement was not found"
check stream.html light 390 'pictures: 3 of 3' 'wrong settings: 2'
check stream.html dark 390 'pictures: 3 of 3'
check stream.html light 1200 'pictures: 3 of 3' 'wrong settings: 2'

# A stream that Ghostscript cannot render gets no pictures, but is explained all the same.
sed 's/^%!PS-Adobe-3.0$/%!PS-Adobe-3.0\nquit/' "$W/good.prn" >"$W/blank.prn"
"$BUILD/kelmctl" explain --stream "$W/blank.prn" --ppd "$PPD" --html "$W/blank.html" >"$W/blank.txt" ||
  fail "nothing is wrong with the stream"
check blank.html light 1200 'pictures: 0 of 0' 'wrong settings: 0'
[ -z "$(find "${TMPDIR:-/tmp}" -maxdepth 1 -name 'kelmctl.*' -newer "$W/probe.html" 2>/dev/null)" ] ||
  fail "the directory of the pictures is still there"
