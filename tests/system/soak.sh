#!/bin/sh
# soak.sh [JOBS [SECONDS]] : JOBS jobs (default: 2,000) of all kinds on 10 queues of a private cupsd, spread
# over SECONDS (default: 300), with cancels, restarts of cupsd, full devices and update jobs mixed in.
# Afterwards every job that was not cancelled has the right bytes, and no process, temporary file, descriptor
# or memory is left over. "make soak" runs it; it is not part of "make check".
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

JOBS=${1:-2000}
SECONDS_IN_ALL=${2:-300}
OUTSTANDING=20

# The backend of the queues: it keeps each complete job in a file with its number; "full" loses all jobs.
write_device() {
  cat >"$CUPS/bin/backend/keep" <<END
#!/bin/sh
[ \$# -gt 0 ] || { echo 'direct keep "Unknown" "keep"'; exit 0; }
case \$DEVICE_URI in
  */full) cat >/dev/full 2>/dev/null || : ;;
  *) cat >"$W/jobs/\$1.part" && mv "$W/jobs/\$1.part" "$W/jobs/\$1" ;;
esac
END
  chmod 755 "$CUPS/bin/backend/keep"
}

# submit QUEUE KIND : prints the job's number
submit() {
  case $2 in
    plain) set -- "$1" -o QVDuplex=LongEdge "$W/page.ps" ;;
    custom) set -- "$1" -o media=Custom.400x600 -o 'QVJobComment="Custom.For the board"' "$W/page.ps" ;;
    dialog) set -- "$1" -o PrintPDE=1 -o QVPageNumStartNumValue=5 -o QVBookletBinding=ON "$W/page.ps" ;;
    large) set -- "$1" "$W/large.ps" ;;
    update) set -- "$1" -o UpdatePPDOptions -o IsWakeOnLan=0 -o SnmpCommunityName=c2VjcmV0 "$W/page.ps" ;;
  esac
  queue=$1
  shift
  lp -d "$queue" -t soak "$@" 2>"$W/lp_err" | sed 's/.*-\([0-9]*\) (.*/\1/'
}

waiting() { lpstat -W not-completed -o 2>/dev/null | wc -l; }
few_wait() { [ "$(waiting)" -lt "$OUTSTANDING" ]; }
none_wait() { [ "$(waiting)" -eq 0 ]; }
filters() { find /proc -maxdepth 2 -name exe -lname "$CUPS/bin/filter/kelmfilter" 2>/dev/null | wc -l; }
cupsd_pid() { cat "$W/pids/cupsd"; }
memory() { sed -n 's/^VmRSS:[[:space:]]*\([0-9]*\).*/\1/p' "/proc/$(cupsd_pid)/status"; }
descriptors() { find "/proc/$(cupsd_pid)/fd" -mindepth 1 | wc -l; }

cups_setup
# The server keeps the history of jobs in memory, so it must be short.
sed -i 's/^LogLevel.*/LogLevel warn/; s/^MaxJobs.*/MaxJobs 200/' "$CUPS/etc/cupsd.conf"
write_device
install -d -o lp -g lp -m 755 "$W/jobs"
printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/page.ps"
{
  printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\n'
  yes '100 100 moveto 200 200 lineto stroke' | head -n 50000
  printf 'showpage\n%%%%EOF\n'
} >"$W/large.ps"
cups_start
for number in 0 1 2 3 4 5 6 7 8 9; do
  device=keep:/jobs
  [ $number != 9 ] || device=keep:/full
  cups_queue "soak$number" $device "$HERE/lib/queue.ppd"
  lpadmin -p "soak$number" -o printer-error-policy=retry-current-job 2>"$W/lpadmin_log"
done

# One job of each kind is printed alone. The other jobs are compared with these.
for kind in plain custom dialog large; do
  id=$(submit soak0 $kind)
  wait_until 30 test -e "$W/jobs/$id" || fail "the first job of the kind $kind did not arrive"
  mv "$W/jobs/$id" "$W/right.$kind"
  head -c 9 "$W/right.$kind" | grep -qa '%-12345X' || fail "no header in a job of the kind $kind"
  grep -qa '^showpage' "$W/right.$kind" || fail "no end in a job of the kind $kind"
done
: >"$W/submitted"
descriptors_before=$(descriptors)
memory_before=0

start=$(date +%s)
number=0
while [ $number -lt "$JOBS" ]; do
  number=$((number + 1))
  case $((number % 7)) in
    0) kind=update ;;
    1 | 2) kind=custom ;;
    3 | 4) kind=dialog ;;
    5) kind=large ;;
    *) kind=plain ;;
  esac
  id=$(submit "soak$((number % 10))" "$kind")
  [ -n "$id" ] || fail "job $number was not taken: $(cat "$W/lp_err")"
  fate=kept
  [ $((number % 10)) != 9 ] || fate=lost
  [ $kind != update ] || fate=lost
  if [ $((number % 23)) = 0 ]; then
    fate=cancelled
    cancel "$id" 2>"$W/cancel_err" || :
  fi
  echo "$id $kind $fate" >>"$W/submitted"
  # Asking for the queue takes as long as a job.
  [ $((number % 5)) != 0 ] || wait_until 60 few_wait || fail "the queue does not get shorter: $(waiting) wait"
  if [ $((number % 250)) = 0 ]; then
    echo "$number jobs, $(memory) KB in cupsd, $(descriptors) descriptors"
    [ "$memory_before" != 0 ] || memory_before=$(memory)
    memory_after=$(memory)
    cups_stop
    cups_start
  fi
  while [ $(($(date +%s) - start)) -lt $((number * SECONDS_IN_ALL / JOBS)) ]; do sleep 0.1; done
done
wait_until 120 none_wait || fail "$(waiting) jobs do not end"
echo "$number jobs in $(($(date +%s) - start)) seconds"

wrong=0
cut=0
while read -r id kind fate; do
  case $fate in
    kept) cmp -s "$W/right.$kind" "$W/jobs/$id" || { echo "job $id ($kind) is wrong" >&2; wrong=$((wrong + 1)); } ;;
    cancelled) [ "$kind" = update ] || cmp -s "$W/right.$kind" "$W/jobs/$id" || cut=$((cut + 1)) ;;
  esac
done <"$W/submitted"
expect "wrong jobs" 0 $wrong
echo "$(grep -c ' cancelled$' "$W/submitted") jobs cancelled, $cut of them cut or not printed"
wait_until 5 sh -c "[ \$(find /proc -maxdepth 2 -name exe -lname '$CUPS/bin/filter/kelmfilter' 2>/dev/null | wc -l) = 0 ]" ||
  fail "$(filters) filters still run"
expect "temporary files" "" "$(find "$CUPS/spool/tmp" -mindepth 1 -type f)"
sleep 1
[ "$(descriptors)" -le $((descriptors_before + 2)) ] || fail "$(descriptors) descriptors, $descriptors_before before"
[ $((${memory_after:-0} * 100)) -le $((memory_before * 120)) ] ||
  fail "cupsd grew from $memory_before to $memory_after KB"
echo "every job has the right bytes; no process, file or descriptor is left over"
