#!/bin/sh
# start_up_cost_test.sh FILTER PPD... : a job without options takes at most 3 % more instructions with
# "*KelmStandardOptions: True" in the PPD than without that line. valgrind counts them, so other work on the
# machine does not matter.
# SPDX-License-Identifier: Apache-2.0
set -eu
filter=$1
shift
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
printf '%%!PS-Adobe-3.0\n%%%%EOF\n' >"$W/job.ps"

# instructions PPD : the number that the filter takes for the job
instructions() {
  env -i PATH="$PATH" LANG=C PPD="$1" valgrind --tool=callgrind --callgrind-out-file="$W/counted" \
    "$filter" 1 user title 1 '' "$W/job.ps" >"$W/printed" 2>"$W/log" || { cat "$W/log" >&2; exit 1; }
  grep -q '^@PJL ENTER LANGUAGE=POSTSCRIPT$' "$W/printed" || { echo "nothing was printed" >&2; exit 1; }
  sed -n 's/^totals: //p' "$W/counted"
}

for ppd; do
  sed '/^\*KelmStandardOptions: True$/d' "$ppd" >"$W/without.ppd"
  ! cmp -s "$ppd" "$W/without.ppd" || { echo "$ppd does not ask for standard options" >&2; exit 1; }
  with=$(instructions "$ppd")
  without=$(instructions "$W/without.ppd")
  echo "${ppd##*/}: $with instructions, $without without standard options"
  [ $((with * 100)) -le $((without * 103)) ] || { echo "more than 3 % more instructions" >&2; exit 1; }
done
