#!/bin/sh
# A class over two print servers, one of which is killed in the middle and started again: counts the jobs that
# are printed, printed twice and lost. KELM_JOBS is the number of jobs (default: 100). KELM_ROUNDS lists the
# rounds, each as a printer-error-policy and a parameter for the device URIs. docs/scale.md has figures.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

JOBS=${KELM_JOBS:-100}
ROUNDS=${KELM_ROUNDS:-retry-job?waitjob=false}
FRONT=$W/front

# site NUMBER : a print server in its own network namespace, at 10.99.NUMBER.2, with the queue kelm. Its
# printer writes each job to a file TITLE.NUMBER.ID in $W/printed.
site() {
  unshare -n sh -c 'exec sleep 7200' &
  started "site$1" $!
  eval "SITE$1=$!"
  wait_until 5 is_apart $! || fail "no network namespace"
  ip link add "near$1" type veth peer name far
  ip link set far netns $!
  ip addr add "10.99.$1.1/24" dev "near$1"
  ip link set "near$1" up
  nsenter -t $! -n ip link set lo up
  nsenter -t $! -n ip addr add "10.99.$1.2/24" dev far
  nsenter -t $! -n ip link set far up
  CUPS=$W/site$1
  cups_setup
  sed -i -e 's/^LogLevel.*/LogLevel info/' -e 's/^DirtyCleanInterval.*/DirtyCleanInterval 0/' -e 's/Allow from 127.0.0.1/Allow from all/' \
    -e "s/^Listen 127.*/Listen 10.99.$1.2:631\nServerAlias */" "$CUPS/etc/cupsd.conf"
  # shellcheck disable=SC2016 # for the backend to expand
  printf '#!/bin/sh\ncat >"%s/printed/$3.%s.$1"\nsleep 0.05\n' "$W" "$1" >"$CUPS/bin/backend/keep"
  chmod 755 "$CUPS/bin/backend/keep"
  site_start "$1"
  lpadmin -h "10.99.$1.2" -p kelm -E -v keep://printer -P "$HERE/lib/queue.ppd" 2>"$W/lpadmin_log" ||
    fail "no queue at site $1"
}

is_apart() { [ "$(readlink /proc/$$/ns/net)" != "$(readlink "/proc/$1/ns/net")" ]; }

site_answers() { LC_ALL=C lpstat -h "10.99.$1.2" -r 2>/dev/null | grep -q 'is running'; }

site_start() {
  eval "namespace=\$SITE$1"
  # shellcheck disable=SC2154 # set by eval
  nsenter -t "$namespace" -n /usr/sbin/cupsd -f -c "$W/site$1/etc/cupsd.conf" \
    -s "$W/site$1/etc/cups-files.conf" >>"$W/site$1/log/stdout_log" 2>&1 </dev/null &
  started "cupsd$1" $!
  wait_until 10 site_answers "$1" || fail "site $1 does not start"
}

# front_class POLICY PARAMETER : the class "pool" over both sites; PARAMETER is added to the device URIs
front_class() {
  for number in 1 2; do
    lpadmin -p "to$number" -E -v "ipp://10.99.$number.2/printers/kelm$2" -o printer-error-policy="$1" \
      2>"$W/lpadmin_log" || fail "no queue to site $number"
    lpadmin -p "to$number" -c pool 2>"$W/lpadmin_log"
  done
  cupsaccept pool
  cupsenable pool
}

printed() { find "$W/printed" -type f | sed 's|.*/||; s/\..*//' | sort; }
at_least() { [ "$(printed | sort -u | wc -l)" -ge "$1" ]; }
nothing_waits() {
  [ -z "$(lpstat -W not-completed -o)" ] && [ -z "$(lpstat -h 10.99.1.2 -W not-completed -o)" ] &&
    [ -z "$(lpstat -h 10.99.2.2 -W not-completed -o)" ]
}

# round NAME : prints all jobs to the class, with server 2 killed and brought back
round() {
  rm -rf "$W/printed"
  install -d -m 1777 "$W/printed"
  begin=$(date +%s)
  job=0
  while [ $job -lt "$JOBS" ]; do
    job=$((job + 1))
    lp -d pool -t "$job" "$W/page.ps" >"$W/lp_log" || fail "job $job is refused"
    if [ $job = $((JOBS / 2)) ]; then
      kill -KILL "$(cat "$W/pids/cupsd2")"
      rm "$W/pids/cupsd2"
    fi
  done
  wait_until $((100 + JOBS * 2)) at_least $((JOBS * 6 / 10)) || fail "$(printed | sort -u | wc -l) jobs are printed"
  site_start 2
  wait_until $((200 + JOBS * 3)) nothing_waits || fail "jobs are left: $(lpstat -W not-completed -o)"
  printf '%s: %s jobs, %s printed, %s of them twice, %s lost, %s at server 1 and %s at server 2, %s s\n' \
    "$1" "$JOBS" "$(printed | sort -u | wc -l)" "$(printed | uniq -d | wc -l)" \
    $((JOBS - $(printed | sort -u | wc -l))) "$(find "$W/printed" -name '*.1.*' | wc -l)" \
    "$(find "$W/printed" -name '*.2.*' | wc -l)" $(($(date +%s) - begin))
  # The front server keeps a job until it is printed. With waitjob=false, server 2 may have accepted one job
  # that it had not saved yet.
  case $1 in
    *waitjob=false) least=$((JOBS - 1)) ;;
    *) least=$JOBS ;;
  esac
  at_least "$least" || fail "jobs are lost: $((JOBS - $(printed | sort -u | wc -l)))"
  # The jobs are whole, and went through the site's filter.
  for file in $(find "$W/printed" -type f | head -n 20); do
    expect_line "$file" '@PJL ENTER LANGUAGE=POSTSCRIPT'
    expect_line "$file" '%%EOF'
  done
}

printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' \
  >"$W/page.ps"
site 1
site 2
CUPS=$FRONT
cups_setup
sed -i 's/^MaxJobs.*/MaxJobs 0/; s/^LogLevel.*/LogLevel info/' "$CUPS/etc/cupsd.conf"
ln -sfn /usr/lib/cups/backend/ipp "$CUPS/bin/backend/ipp"
cups_start

for round in $ROUNDS; do
  policy=${round%%\?*}
  front_class "$policy" "${round#"$policy"}"
  round "$round"
done

# Outside a class, the policy decides what happens to the queue and the job if the backend fails.
printf '#!/bin/sh\ncat >/dev/null\nexit 1\n' >"$CUPS/bin/backend/broken"
chmod 755 "$CUPS/bin/backend/broken"
for policy in stop-printer abort-job retry-job retry-current-job; do
  lpadmin -p "$policy" -E -v broken://printer -o printer-error-policy=$policy 2>"$W/lpadmin_log"
  lp -d "$policy" "$W/page.ps" >"$W/lp_log"
done
is_stopped() { LC_ALL=C lpstat -p "$1" | grep -q "disabled since"; }
is_aborted() { [ -z "$(lpstat -W not-completed -o abort-job)" ]; }
wait_until 20 is_stopped stop-printer || fail "stop-printer stops no queue"
wait_until 20 is_aborted || fail "abort-job keeps the job"
for policy in stop-printer retry-job retry-current-job; do
  expect "jobs of $policy" 1 "$(lpstat -W not-completed -o "$policy" | wc -l)"
done
for policy in abort-job retry-job retry-current-job; do
  ! is_stopped $policy || fail "$policy stops the queue"
done
