#!/bin/sh
# A real queue with the printer's PPD: what is chosen with lp arrives in the header and in the PostScript.
# Every choice of every option is printed, and every line of the header and of the feature sections is
# compared. The jobs, and what the printer must get, are in queue/.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

# The computer's name is office-pc, and no user is logged in.
hostname office-pc
mount -t tmpfs none /run

PPD=$SOURCE/ppd/kelm-ij-dialog.ppd
mkdir "$W/jobs"
awk -v from="$HERE/queue" -v cases="$SOURCE/tests/cases" -v to="$W/jobs" -f "$HERE/lib/queue_jobs.awk" || fail "no jobs"
jobs=$(find "$W/jobs" -name '*.name' | wc -l)

# Every choice that can be named is among the jobs' options.
sort "$W"/jobs/*.arguments | sed -n 's/^QV/*QV/p' | sort -u >"$W/printed"
sed -n 's/^\(\*QV[^ ]*\) \([^/]*\)\/.*: "..*/\1=\2/p' "$PPD" | sort >"$W/choices"
[ -s "$W/choices" ] || fail "the PPD has no choices"
expect "choices that no job in tests/system/queue has" "" "$(comm -13 "$W/printed" "$W/choices")"

# lp_job N LP-ARGUMENT... : submits the job N; its own arguments follow these
lp_job() {
  file=$W/jobs/$1
  shift
  if [ -e "$file.arguments" ]; then
    while read -r argument; do set -- "$@" "$argument"; done <"$file.arguments"
  fi
  # The environment is NAME=VALUE or nothing at all.
  # shellcheck disable=SC2046
  env $(cat "$file.env") lp -d kelm -t Report "$@" "$W/page.ps" >"$file.id" 2>&1 ||
    fail "lp refused job $file: $(cat "$file.id")"
}

no_job_left() { [ -z "$(lpstat -W not-completed -o kelm)" ]; }

# sections FILE : the feature sections of the PostScript, one per line
sections() {
  awk '/^%%BeginFeature: / { sub(/^%%BeginFeature: /, ""); section = $0; next }
       /^%%EndFeature/ { print section; section = ""; next }
       section != "" { section = section "|" $0 }' "$1"
}

cups_setup
cups_start
printer_start 9100 "$W/printer.out"
cups_queue kelm socket://127.0.0.1:9100 "$PPD"
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/page.ps"

job=1
while [ $job -le "$jobs" ]; do
  lp_job $job
  job=$((job + 1))
done
wait_until 30 no_job_left || fail "jobs are left in the queue"

# A job begins with its UEL, which is nowhere else. pstops ends the job before with Ctrl-D.
awk -v to="$W/jobs" '/^\004?\033%-12345X@PJL$/ { file = to "/" ++job ".printed"; next } { print > file }' \
  "$W/printer.out"
wrong=0
job=1
while [ $job -le "$jobs" ]; do
  file=$W/jobs/$job
  sed '/^@PJL ENTER/q' "$file.printed" >"$file.header_printed"
  sed '1,/^@PJL ENTER/d' "$file.printed" >"$file.postscript"
  sections "$file.postscript" >"$file.sections_printed"
  for part in header sections; do
    diff "$file.$part" "$file.${part}_printed" >"$file.difference" && continue
    wrong=$((wrong + 1))
    echo "job $job, $(cat "$file.name"): $part (<: expected, >: printed)" >&2
    cat "$file.difference" >&2
  done
  job=$((job + 1))
done
expect "headers and sections that are wrong" 0 "$wrong"

# Header and PostScript agree: kelmctl finds nothing wrong with the streams except what jobs.txt says.
job=1
while [ $job -le "$jobs" ]; do
  file=$W/jobs/$job
  { printf '\033%%-12345X@PJL\n' && tr -d '\004' <"$file.printed"; } >"$file.prn"
  status=0
  "$BUILD/kelmctl" explain --stream "$file.prn" >"$file.explained" 2>&1 || status=$?
  sed -n 's/^WRONG at byte [0-9]*: /WRONG /p' "$file.explained" >"$file.findings_printed"
  [ -s "$file.findings" ] && wanted=1 || wanted=0
  if ! diff "$file.findings" "$file.findings_printed" >"$file.difference" || [ "$status" != "$wanted" ]; then
    wrong=$((wrong + 1))
    echo "job $job, $(cat "$file.name"): explain has status $status (<: expected, >: found)" >&2
    cat "$file.difference" >&2
  fi
  job=$((job + 1))
done
expect "streams that kelmctl explain judges wrongly" 0 "$wrong"

# job_named WHAT : the number of the job
job_named() {
  found=$(grep -lxF "$1" "$W"/jobs/*.name) || fail "no job '$1'"
  basename "$found" .name
}

# The header asks for the copies, and the PostScript for each page once.
for what in 'three copies' 'three copies in sets'; do
  copies=$W/jobs/$(job_named "$what").postscript
  expect "$what: pages" 1 "$(grep -c '^%%Page:' "$copies")"
done
expect "jobs whose PostScript asks for copies" "" \
  "$(grep -liE 'NumCopies [2-9]|RBINumCopies: [2-9]|numcopies\(' "$W"/jobs/*.postscript)"

# Outside the sections the PostScript is as pstops wrote it. For comparison, a queue without the filter
# prints the same job.
sed 's/^\(\*cupsFilter: "application.vnd.cups-postscript 0\) kelmfilter"$/\1 -"/' "$PPD" >"$W/no_filter.ppd"
cups_queue unfiltered socket://127.0.0.1:9101 "$W/no_filter.ppd"
printer_start 9101 "$W/unfiltered.out"
texts=$(job_named 'custom texts with spaces')
set --
while read -r argument; do set -- "$@" "$argument"; done <"$W/jobs/$texts.arguments"
cups_job unfiltered -t Report "$@" "$W/page.ps" >"$W/job_id" || fail "the job did not end"
# outside_sections FILE : the PostScript without sections and without the Ctrl-D at the end
outside_sections() {
  sed -e '/^%%BeginFeature: /,/^%%EndFeature/d' "$1" | tr -d '\004'
}
outside_sections "$W/unfiltered.out" >"$W/unfiltered"
[ "$(wc -l <"$W/unfiltered")" -gt 100 ] || fail "no job arrived without the filter"
outside_sections "$W/jobs/$texts.postscript" >"$W/filtered"
diff "$W/unfiltered" "$W/filtered" || fail "the filter changed something outside the sections"
sections "$W/unfiltered.out" | grep -q XXX || fail "the filter had nothing to fill"

# printed_since BYTES : what the printer got after the first BYTES
printed_since() { tail -c "+$(($1 + 1))" "$W/printer.out"; }

# A PDF, which most dialogs send, gives the same header and the same sections as PostScript.
gs -dSAFER -dBATCH -dNOPAUSE -q -sDEVICE=pdfwrite "-sOutputFile=$W/page.pdf" "$W/page.ps"
before=$(wc -c <"$W/printer.out")
cups_job kelm -t Report "$@" "$W/page.pdf" >"$W/job_id" || fail "the PDF did not end"
printed_since "$before" | tr -d '\004' >"$W/pdf.printed"
sed -n '2,/^@PJL ENTER/p' "$W/pdf.printed" | diff "$W/jobs/$texts.header" - || fail "the header of a PDF"
sed '1,/^@PJL ENTER/d' "$W/pdf.printed" >"$W/pdf.postscript"
sections "$W/pdf.postscript" | diff "$W/jobs/$texts.sections" - || fail "the sections of a PDF"

# An update job prints nothing.
before=$(wc -c <"$W/printer.out")
cups_job kelm -o UpdatePPDOptions -o IsWakeOnLan=0 "$W/page.ps" >"$W/job_id" ||
  fail "the update job did not end"
wait_until 5 grep -q '^\*IsWakeOnLan: 0$' "$(cups_queue_ppd kelm)" || fail "nothing was stored"
expect "bytes at the printer" "$before" "$(wc -c <"$W/printer.out")"

# Defaults of the queue and of users come with the job; the filter reads those in the PPD.
lpadmin -p kelm -o QVStapleMode-default=TwoStaple -o QVPunchMode=TwoHoles 2>"$W/lpadmin_log"
CUPS_SERVERROOT=$CUPS/etc
export CUPS_SERVERROOT
lpoptions -p kelm -o QVJog=Set
cups_job kelm "$W/page.ps" >"$W/job_id" || fail "the job did not end"
printed_since "$before" >"$W/defaults"
expect_line "$W/defaults" '@PJL SET QVSTAPLEMODE=2STAPLES'
expect_line "$W/defaults" '%%BeginFeature: *QVStapleMode TwoStaple'
expect_line "$W/defaults" '@PJL SET QVJOG=SET'
expect_line "$W/defaults" '%%BeginFeature: *QVJog Set'
expect_line "$W/defaults" '@PJL SET QVPUNCHMODE=2HOLES'
expect_line "$W/defaults" '%%BeginFeature: *QVPunchMode TwoHoles'

# The facts that an update stored are still there.
expect_line "$(cups_queue_ppd kelm)" '*IsWakeOnLan: 0'
