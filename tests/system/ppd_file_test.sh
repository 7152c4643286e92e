#!/bin/sh
# The PPD is valid, CUPS finds it where it is installed, and a queue can be made with it.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

PPD=$BUILD/ppd/kelm-ij.ppd
DIALOG=$SOURCE/ppd/kelm-ij-dialog.ppd

# cupstestppd looks for the filter below another root. It may only make the listed remarks. They are about
# names that the printer determines: names of papers, and keywords with a common beginning.
install -D -m 755 "$BUILD/kelmfilter" "$W/root/usr/lib/cups/filter/kelmfilter"
for model in "$PPD" "$DIALOG"; do
  cupstestppd -R "$W/root" -W none "$model" >"$W/report" || fail "cupstestppd: $(cat "$W/report")"
  expect_line "$W/report" "$model: PASS"
  grep -v -e ': PASS$' -e '^ *REF: Page 15, section 3\.2\.$' "$W/report" | sed 's/^ *WARN *//' |
    LC_ALL=C sort >"$W/remarks"
  [ "$model" = "$PPD" ] || cp "$W/remarks" "$W/remarks_of_the_dialog_model"
  LC_ALL=C comm -13 "$HERE/queue/cupstestppd_remarks.txt" "$W/remarks" >"$W/others"
  [ ! -s "$W/others" ] || fail "cupstestppd makes other remarks: $(cat "$W/others")"
done
diff "$HERE/queue/cupstestppd_remarks.txt" "$W/remarks_of_the_dialog_model" ||
  fail "cupstestppd no longer makes a remark that is listed"

# Installed as "make install" does it.
mount -t tmpfs none /usr/share/ppd
cmake -P "$BUILD/ppd/cmake_install.cmake" >"$W/install_log"
cups_setup
cups_start
lpinfo -m >"$W/models"
name=$(sed -n 's/ KELM IJ PostScript$//p' "$W/models" | grep 'kelm/kelm-ij.ppd$') ||
  fail "lpinfo -m does not list the printer"
grep -q 'kelm/kelm-ij-dialog.ppd KELM IJ PostScript, for jobs of the KELM dialog$' "$W/models" ||
  fail "lpinfo -m does not list the model for jobs of the KELM dialog"
lpadmin -p office -E -v socket://127.0.0.1:9100 -m "$name" 2>"$W/lpadmin_log" ||
  fail "lpadmin refused the model $name"
cmp "$PPD" "$(cups_queue_ppd office)" || fail "the queue's PPD differs"

# lpoptions lists the printer's options.
lpoptions -p office -l >"$W/options"
for option in Duplex InputSlot MediaType ColorModel OutputBin; do
  grep -q "^$option/" "$W/options" || fail "no option $option"
done
expect_line "$W/options" 'QVStapleMode/Staple: *OFF OneStaple TwoStaple Left1 Right1'
expect_line "$W/options" 'QVJobComment/Job comment: *OFF Custom.STRING'
expect_line "$W/options" 'QVGCCyan/Colour balance, cyan: *100 Custom.INTEGER'
