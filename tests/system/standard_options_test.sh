#!/bin/sh
# What people choose in any program reaches header and PostScript, and the two never disagree: the
# default model on a real queue. The jobs and what the printer gets are in standard/jobs.txt.
# Time limit: 900 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

# Every choice of the standard options and every finishing is printed both ways in.
choices=$(sed -nE 's/^\*(Duplex|InputSlot|MediaType|ColorModel|OutputBin|Collate) ([A-Za-z0-9]+)\/.*/\1 \2/p
  s/^\*cupsIPPFinishings ([0-9]+)\/.*/finishings \1/p' "$BUILD/ppd/kelm-ij.ppd")
[ "$(echo "$choices" | wc -l)" -gt 40 ] || fail "the PPD has no standard options"
echo "$choices" | while read -r option choice; do
  for way in "lp .*-o $option=$choice( |\$)" "ipp (name|enum) $option $choice\$"; do
    grep -qE "^$way" "$HERE/standard/jobs.txt" || fail "no job in standard/jobs.txt has '$way'"
  done
done || exit 1

hostname office-pc
mount -t tmpfs none /run
CUPS_SERVERROOT=$W/cups/etc
export CUPS_SERVERROOT

cups_setup
cups_start
printer_start 9100 "$W/printer.out"
for queue in kelm other; do
  cups_queue "$queue" socket://127.0.0.1:9100 "$BUILD/ppd/kelm-ij.ppd"
done

# Two pages: CUPS prints a single page on one side whatever is asked for.
printf '%%!PS-Adobe-3.0\n%%%%Pages: 2\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%Page: 2 2\nshowpage\n%%%%EOF\n' \
  >"$W/document.ps"
gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=pdfwrite "-sOutputFile=$W/document.pdf" "$W/document.ps"
seq 1 100 >"$W/document.txt"

python3 "$HERE/lib/standard_jobs.py" "$HERE/standard/jobs.txt" "$W" kelm "$BUILD/kelmctl" || fail "a job went wrong"

# What the queue tells clients that it can do.
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
  DISPLAY job-password-supported
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

# A driverless queue made from the shared one offers two sides, trays and types, and prints right.
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
before=$(wc -c <"$W/printer.out")
lp -d everywhere -t Report -o sides=two-sided-long-edge -o media=A5 -o InputSlot=Tray2 \
  -o MediaType=MattCoated -o Collate=False -n 2 "$W/document.pdf" >"$W/job_id" ||
  fail "the driverless queue refused a job"
everywhere_printed() { tail -c "+$((before + 1))" "$W/printer.out" | grep -qa '%%EOF'; }
wait_until 60 everywhere_printed || fail "the driverless queue printed nothing"
tail -c "+$((before + 1))" "$W/printer.out" | tr -d '\004' >"$W/driverless"
for line in DUPLEX=ON BINDING=LONGEDGE QVPAGESIZE=A5 MEDIASOURCE=TRAY2 MEDIATYPE=HCMATTED COPIES=2; do
  expect_line "$W/driverless" "@PJL SET $line"
done
"$BUILD/kelmctl" explain --stream "$W/driverless" >"$W/explanation" ||
  fail "header and PostScript disagree: $(grep WRONG "$W/explanation")"
