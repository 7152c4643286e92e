#!/bin/sh
# The filter's PostScript is valid: Ghostscript runs it without an error and gives the same pages as for the
# filter's input. And every code line of the PPD stores its value.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"

PPD=$SOURCE/ppd/kelm-ij-dialog.ppd
PSTOPS=/usr/lib/cups/filter/pstops
[ -x "$PSTOPS" ] || fail "no $PSTOPS: install the package cups-filters"
export PPD

# pages FILE DIRECTORY : FILE's pages as pictures in DIRECTORY, and the interpreter's messages in DIRECTORY/log
pages() {
  mkdir "$2"
  gs -dSAFER -dBATCH -dNOPAUSE -q -r30 -sDEVICE=ppmraw "-sOutputFile=$2/%d.ppm" "$1" \
    >"$2/log" 2>&1 || fail "$1: $(cat "$2/log")"
  expect "messages of the interpreter" "" "$(cat "$2/log")"
}

# stored FILE KEYWORD... : the values that FILE stores for the printer, one per line; "-" for none
stored() {
  file=$1
  shift
  for keyword; do
    echo "userdict /$keyword known {userdict /$keyword get =} {(-) =} ifelse"
  done >"$W/probe.ps"
  gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=nullpage "$file" "$W/probe.ps"
}

# job NAME OPTIONS PAGES : compares the pages of the example document with OPTIONS before and after the
# filter
job() {
  "$PSTOPS" 7 miller Report 1 "$2" "$SOURCE/examples/document.ps" >"$W/$1.before" 2>"$W/$1.log"
  "$BUILD/kelmfilter" 7 miller Report 1 "$2" <"$W/$1.before" >"$W/$1.prn"
  sed '1,/^@PJL ENTER LANGUAGE=POSTSCRIPT$/d' "$W/$1.prn" >"$W/$1.after"
  pages "$W/$1.before" "$W/$1.pages_before" &
  before=$!
  pages "$W/$1.after" "$W/$1.pages_after"
  wait $before || fail "$1: not printed before the filter"
  expect "$1: pages" "$3" "$(find "$W/$1.pages_after" -name '*.ppm' | wc -l)"
  diff -r "$W/$1.pages_before" "$W/$1.pages_after" >&2 || fail "$1: the pages differ"
}

# An empty page would prove nothing.
has_ink() { [ "$(tail -c +20 "$1" | tr -d '\377' | wc -c)" -gt 1000 ]; }

TEXTS='QVOwnerNameInfo=Custom.M\ Miller QVJobNameInfo=Custom.Report\ (2) QVSecretNumInfo=Custom.0042
  QVJobComment=Custom.Hello\ World QVBarcodeSelection=Custom.a(b QVOutputProfileSelection=Custom.My_1
  QVFormSelect1=Custom.Head QVFormSelect2=Custom.Grüße QVZoomRate=Custom.141
  QVImageShiftFrontV=Custom.-150 QVGCCyan=Custom.90'

# The example job, and the document as the maker's dialog would send it.
job plain "$(cat "$SOURCE/examples/options")" 3
for picture in "$W"/plain.pages_after/*.ppm; do
  has_ink "$picture" || fail "$picture is empty"
done
job dialog "PrintPDE QVDuplex=LongEdge QVTargetPaperSize=Custom QVPageNumPrintPSValue=On
  QVTextInfoTextValueUTF8=54657874 QVJobCommentTextValueUTF8=436F6D QVPageTrayStandardTrayValue=1-2" 3
expect "values of the dialog" "On 54657874 436F6D 1-2 8" \
  "$(stored "$W/dialog.after" QVPageNumPrint QVTextInfo QVJobComment QVPageTrayStandard \
    QVStampPageSize | xargs)"

# Every custom text, parentheses included, and custom numbers.
job texts "$TEXTS" 3
expect "typed values" "4D204D696C6C6572 5265706F727420283229 0042 48656C6C6F20576F726C64 612862 \
4D795F31 48656164 4772C3BCC39F65 141 -150 90 On -" \
  "$(stored "$W/texts.after" QVOwnerNameInfo QVJobNameInfo QVSecretNumInfo QVJobComment \
    QVBarcodeSelection QVOutputProfileSelection QVFormSelect1 QVFormSelect2 QVZoomRate \
    QVImageShiftFrontV QVGCCyan QVBarcodeArea QVPageNumPrint | xargs)"

# Wide paper of 842 x 595 points; the page device is asked for its size in 1/100 mm.
job wide 'media=Custom.842x595 PageSize=Custom.842x595 QVOrientation=Landscape' 3
expect "page size" "29704 20990 Landscape" \
  "$(stored "$W/wide.after" QVPAGESizeWidth QVPAGESizeHeight QVOrientation | xargs)"

# Each code line of the PPD alone stores a string and leaves nothing on the stack. (In a job, pstops hides
# errors of feature code.)
awk '
  /^\*(Custom)?QV[A-Za-z0-9]+ [^:]*: "..*"$/ {
    keyword = substr($1, 2)
    custom = sub(/^Custom/, "", keyword)
    code = $0
    sub(/^[^:]*: "/, "", code)
    sub(/"$/, "", code)
    print "userdict /" keyword " undef count"
    if (custom && code ~ /^20 string/) print "-1234"
    print code
    print "count 1 sub ne userdict /" keyword " 2 copy known {get type /stringtype ne} {pop pop true} ifelse or"
    print "{(wrong: " keyword ") =} if"
    ++lines
  }
  END { print "(" lines " lines) =" }' "$PPD" >"$W/lines.ps"
expect "code lines" "472 lines" \
  "$(gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=nullpage "$W/lines.ps" 2>&1)"
