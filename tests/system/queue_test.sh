#!/bin/sh
# A real queue with the printer's PPD: what people choose with lp arrives in the header and in the
# PostScript. Every choice of every option is printed, and every line of both is compared: the jobs
# and what the printer gets are in queue/.
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

# The computer's name is office-pc, and nobody sits at it.
hostname office-pc
mount -t tmpfs none /run

PPD=$SOURCE/ppd/kelm-ij.ppd
mkdir "$W/jobs"
awk -v from="$HERE/queue" -v to="$W/jobs" -f "$HERE/lib/queue_jobs.awk" || fail "no jobs"
jobs=$(find "$W/jobs" -name '*.name' | wc -l)

# Each choice that a person can name is among the jobs' options.
sort "$W"/jobs/*.arguments | sed -n 's/^QV/*QV/p' | sort -u >"$W/printed"
sed -n 's/^\(\*QV[^ ]*\) \([^/]*\)\/.*: "..*/\1=\2/p' "$PPD" | sort >"$W/choices"
expect "choices of the PPD" 451 "$(wc -l <"$W/choices")"
expect "choices that no job has" "" "$(comm -13 "$W/printed" "$W/choices")"

# lp_job N LP-ARGUMENTS... : submits the job N with its own arguments behind these
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

# What follows the header: the feature sections, a line each.
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

# A job begins with its UEL, which stands nowhere else; pstops ends the one before with Ctrl-D.
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

# job_named WHAT : the number of the job
job_named() {
  found=$(grep -lxF "$1" "$W"/jobs/*.name) || fail "no job '$1'"
  basename "$found" .name
}

# Copies that the print system makes are asked for in the PostScript, and no other job has them.
copies=$W/jobs/$(job_named 'three copies').postscript
expect_line "$copies" '%RBINumCopies: 3'
expect_line "$copies" '%RBIBeginNonPPDFeature: *NumCopies 3'
expect "jobs with copies" "$copies" "$(grep -l 'NumCopies 3' "$W"/jobs/*.postscript)"

# An update job prints nothing.
before=$(wc -c <"$W/printer.out")
cups_job kelm -o UpdatePPDOptions -o IsWakeOnLan=0 "$W/page.ps" >"$W/job_id" ||
  fail "the update job did not end"
wait_until 5 grep -q '^\*IsWakeOnLan: 0$' "$(cups_queue_ppd kelm)" || fail "nothing was stored"
expect "bytes at the printer" "$before" "$(wc -c <"$W/printer.out")"

# printed_since BYTES : what the printer got behind them
printed_since() { tail -c "+$(($1 + 1))" "$W/printer.out"; }

# Defaults of the server and of its users travel with the job; one in the PPD reaches the PostScript
# alone.
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
expect_line "$W/defaults" '@PJL SET QVPUNCHMODE=OFF'
expect_line "$W/defaults" '%%BeginFeature: *QVPunchMode TwoHoles'

# The facts that an update stored are still there.
expect_line "$(cups_queue_ppd kelm)" '*IsWakeOnLan: 0'
