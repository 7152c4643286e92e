#!/bin/sh
# Standard options on a real queue with the default model: what is chosen reaches header and PostScript, and
# the two never disagree. The jobs, and what the printer must get, are in standard/jobs.txt.
# Time limit: 900 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

python3 "$HERE/lib/standard_coverage.py" "$BUILD/ppd/kelm-ij.ppd" "$SOURCE/stdoptions/standard_choices.hpp" \
  "$HERE/standard/attributes.txt" "$HERE/standard/jobs.txt" || fail "standard/jobs.txt lacks jobs"

hostname office-pc
mount -t tmpfs none /run
CUPS_SERVERROOT=$W/cups/etc
export CUPS_SERVERROOT

cups_setup
cups_start
# Two queues print the jobs at the same time, each to its own printer.
printer_start 9100 "$W/kelm.out"
printer_start 9101 "$W/second.out"
cups_queue kelm socket://127.0.0.1:9100 "$BUILD/ppd/kelm-ij.ppd"
cups_queue second socket://127.0.0.1:9101 "$BUILD/ppd/kelm-ij.ppd"
cups_queue other file:/dev/null "$BUILD/ppd/kelm-ij.ppd"

{ printf '%%!PS-Adobe-3.0\n%%%%Pages: 2\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n'
  printf '%%%%Page: 2 2\nshowpage\n%%%%EOF\n'; } >"$W/document.ps"
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/one_page.ps"
printf 'first page\fsecond page\n' >"$W/document.txt"
echo 'the only page' >"$W/one_page.txt"
for name in document one_page; do
  gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=pdfwrite "-sOutputFile=$W/$name.pdf" "$W/$name.ps"
done

gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=jpeg -r30 "-sOutputFile=$W/photo.jpg" "$W/one_page.ps"
# The format that phones send by AirPrint. A page has 827 x 1169 white pixels at 100 dpi; the lines are encoded
# as 4 times 256 and once 145.
urf_page() {
  printf '\010\000\001\004\000\000\000\000\000\000\000\000\000\000\003\073\000\000\004\221\000\000\000\144'
  printf '\000\000\000\000\000\000\000\000\377\200\377\200\377\200\377\200\220\200'
}
{ printf 'UNIRAST\000\000\000\000\002'; urf_page; urf_page; } >"$W/document.urf"

python3 "$HERE/lib/standard_jobs.py" "$HERE/standard/jobs.txt" "$W" "$BUILD/tests/system/stream_problems" kelm second ||
  fail "a job went wrong"

# The queue offers clients the right attributes.
cat >"$W/attributes.test" <<'END'
{
  OPERATION Get-Printer-Attributes
  GROUP operation-attributes-tag
  ATTR charset attributes-charset utf-8
  ATTR language attributes-natural-language en
  ATTR uri printer-uri $uri
  STATUS successful-ok
  DISPLAY sides-supported
  DISPLAY media-source-supported
  DISPLAY media-type-supported
  DISPLAY output-bin-supported
  DISPLAY finishings-supported
  DISPLAY print-quality-supported
  DISPLAY print-color-mode-supported
  DISPLAY urf-supported
  DISPLAY multiple-document-handling-supported
  DISPLAY job-password-supported
  DISPLAY job-password-encryption-supported
}
END
ipptool -t ipp://127.0.0.1/printers/kelm "$W/attributes.test" >"$W/attributes" || fail "no attributes"
while read -r name values; do
  line=$(grep "^ *$name " "$W/attributes" | head -n 1)
  for value in $values; do
    printf '%s\n' "$line" | tr ' ,=' '\n' | grep -qxF -e "$value" ||
      fail "$name lacks $value: $line"
  done
done <"$HERE/standard/attributes.txt"

# A driverless queue for the shared queue offers two sides, trays and paper types, and prints correctly.
ln -sfn /usr/lib/cups/backend/ipp "$CUPS/bin/backend/ipp"
lpadmin -p everywhere -E -v ipp://127.0.0.1:631/printers/kelm -m everywhere 2>"$W/everywhere_log" ||
  fail "no driverless queue: $(cat "$W/everywhere_log")"
# cupsd asks the shared queue in the background.
has_ppd() { [ -s "$(cups_queue_ppd everywhere)" ]; }
wait_until 60 has_ppd || fail "the driverless queue has no PPD"
lpoptions -p everywhere -l >"$W/everywhere_options"
for choices in 'Duplex None DuplexNoTumble DuplexTumble' \
  'InputSlot Auto Tray1 Tray2 Tray3 Main LargeCapacity' \
  'MediaType Stationery Ijpaper MattCoated HighQuality Cardstock Ijlight CrimpedPaper'; do
  option=${choices%% *}
  for choice in ${choices#* }; do
    grep -qE "^$option/.* \*?$choice( |\$)" "$W/everywhere_options" ||
      fail "the driverless queue lacks $option=$choice: $(cat "$W/everywhere_options")"
  done
done
before=$(wc -c <"$W/kelm.out")
lp -d everywhere -t Report -o sides=two-sided-long-edge -o media=A5 -o InputSlot=Tray2 \
  -o MediaType=MattCoated -o Collate=False -n 2 "$W/document.pdf" >"$W/job_id" ||
  fail "the driverless queue refused a job"
everywhere_printed() { tail -c "+$((before + 1))" "$W/kelm.out" | grep -qa '%%EOF'; }
wait_until 60 everywhere_printed || fail "the driverless queue printed nothing"
tail -c "+$((before + 1))" "$W/kelm.out" | tr -d '\004' >"$W/driverless"
for line in DUPLEX=ON BINDING=LONGEDGE QVPAGESIZE=A5 MEDIASOURCE=TRAY2 MEDIATYPE=HCMATTED COPIES=2; do
  expect_line "$W/driverless" "@PJL SET $line"
done
"$BUILD/kelmctl" explain --stream "$W/driverless" >"$W/explanation" ||
  fail "header and PostScript disagree: $(grep WRONG "$W/explanation")"
