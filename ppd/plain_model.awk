# plain_model.awk : makes the default model of the queue's PPD from the one for jobs of the KELM dialog.
#
#   awk -f plain_model.awk kelm-ij-dialog.ppd kelm-ij-dialog.ppd >kelm-ij.ppd
#
# Options and groups between "*% Begin: jobs of the KELM dialog only" and "*% End" do nothing in
# other jobs: they are removed, with their translations. Options between "*% Begin: no choice for
# people" and "*% End" only carry a value that the filter works out, or repeat a standard option with
# the same choices: they move into the group InstallableOptions, which print dialogs do not show. The
# file is read twice: first for the names of what is removed.
# SPDX-License-Identifier: Apache-2.0
BEGIN {
  group["de"] = "Nicht in Druckdialogen"
  group["fr"] = "Absentes des dialogues d'impression"
  group["ja"] = "印刷ダイアログに表示しない"
}
/^\*% Begin: jobs of the KELM dialog only/ { block = "gone"; next }
/^\*% Begin: no choice for people/ { block = "hidden"; next }
/^\*% End$/ { block = ""; next }

NR == FNR {
  if (block == "gone" && match($0, /^\*Open(UI \*|Group: )[A-Za-z0-9]+/)) {
    name = substr($0, 1, RLENGTH)
    sub(/.*[ *]/, "", name)
    gone[name] = 1
  }
  next
}

block == "gone" { next }
block == "hidden" { hidden = hidden $0 "\n"; next }
/^\*% Hidden options/ {
  print "*% Options that only carry a value which the filter works out, or repeat a standard option; print"
  print "*% dialogs do not show this group."
  print "*OpenGroup: InstallableOptions/Not in print dialogs\n"
  printf "%s", hidden
  print "*CloseGroup: InstallableOptions"
  next
}
/^\*[a-z][a-z]\./ {
  name = $0
  sub(/^\*[a-z][a-z]\.(Translation |ParamCustom|Custom)?/, "", name)
  sub(/[ \/].*/, "", name)
  if (name in gone) next
  if (name == "General") {
    language = substr($0, 2, 2)
    print "*" language ".Translation InstallableOptions/" group[language] ": \"\""
  }
}
/^\*NickName:/ { sub(/, for jobs of the KELM dialog/, "") }
/^\*PCFileName:/ { sub(/KELMIJD/, "KELMIJ") }
# One empty line where a block was removed.
/^$/ { if (empty++) next }
/./ { empty = 0 }
{ print }
