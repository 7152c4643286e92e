#!/bin/sh
# Too little memory ends kelmctl and the wake-up service with one line and status 1, never by a signal; the
# filter's part is in streams_test.sh.
# Time limit: 180 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"

KELMCTL=$BUILD/kelmctl
PPD=$BUILD/ppd/kelm-ij.ppd

# within KILOBYTES COMMAND... : its status, with so much memory at most; its output is in $W/out and $W/err
within() {
  status=0
  (
    # shellcheck disable=SC3045 # dash has it
    ulimit -v "$1"
    shift
    exec timeout -k 1 20 "$@"
  ) >"$W/out" 2>"$W/err" || status=$?
}

# Sizes with which a program cannot even be loaded do not count: the dynamic loader has faults of its own
# then. least COMMAND... : the least size in KB, up to 8 more, with which the command is loaded and ends by 0
# or 2; nothing when 4 GB are too little, as for a program with a sanitizer, which takes terabytes of
# addresses.
least() {
  within 4000000 "$@"
  [ "$status" = 0 ] || [ "$status" = 2 ] || return 0
  low=1000
  high=4000000
  while [ $((high - low)) -gt 8 ]; do
    middle=$(((low + high) / 2))
    within $middle "$@"
    if [ "$status" = 0 ] || [ "$status" = 2 ]; then high=$middle; else low=$middle; fi
  done
  echo $high
}

# try LINE STATUSES START STEP COMMAND... : the command, with 40 sizes from START on, ends by one of STATUSES,
# or by 1 with LINE as the last of its messages, and does so at least once
try() {
  line=$1
  statuses=$2
  size=$3
  step=$4
  shift 4
  tried=0
  for _ in $(seq 40); do
    within "$size" "$@"
    if [ "$(tail -n 1 "$W/err")" = "$line" ]; then
      expect "status of $* with $size KB" 1 "$status"
      expect "times that it says so" 1 "$(grep -cF "$line" "$W/err")"
      tried=$((tried + 1))
    else
      case " $statuses " in
        *" $status "*) ;;
        *) fail "$* ends by $status with $size KB: $(cat "$W/err")" ;;
      esac
    fi
    size=$((size + step))
  done
  [ $tried -gt 0 ] || fail "no size was too little for $*"
}

least=$(least "$KELMCTL" --version)
if [ -n "$least" ]; then
  line='kelmctl: out of memory; what was not reported was not finished'
  try "$line" 0 "$least" 30 "$KELMCTL" settings --ppd "$PPD"
  try "$line" 0 "$least" 600 "$KELMCTL" ppd "$PPD"
  try "$line" 0 "$least" 150 "$KELMCTL" explain --ppd "$PPD" -o QVDuplex=LongEdge
fi

# The wake-up service gets a request of 1.4 MB. The one that has memory for it is told to end.
cat >"$W/wake_service" <<END
#!/bin/sh
ulimit -v "\$(cat "$W/size")"
setpriv --reuid=kelmwol --regid=nogroup --clear-groups --no-new-privs "$BUILD/KelmWoLServices" 2>>"$W/service_log" &
echo \$! >"$W/service_pid"
status=0
wait \$! || status=\$?
echo \$status >"$W/service_status"
exit \$status  # by 0, the bus would go on waiting for the service
END
chmod 755 "$W/wake_service"
has_ended() { test -s "$W/service_status"; }
serve() {
  echo "$1" >"$W/size"
  rm -f "$W/service_status"
  : >"$W/service_log"
  long=$(head -c 100000 /dev/zero | tr '\0' x)
  set --
  for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14; do set -- "$@" "string:$long"; done
  timeout 5 dbus-send --bus="$DBUS_SYSTEM_BUS_ADDRESS" --print-reply --reply-timeout=3000 \
    --dest=com.kelm.KelmWoLServices /com/kelm/KelmWoLServices \
    com.kelm.KelmWoLServiceProtocol.XpcSnmpWakeUpOnLan "$@" >"$W/reply" 2>&1 || :
  if ! wait_until 1 has_ended; then
    kill "$(cat "$W/service_pid")" 2>"$W/kill_log" || :  # it may have ended just now
    wait_until 5 has_ended || fail "the service does not end"
  fi
  status=$(cat "$W/service_status")
}

least=$(least "$BUILD/KelmWoLServices" usage)
if [ -n "$least" ]; then
  bus_start
  bus_service "$W/wake_service"
  tried=0
  for more in $(seq 100 300 2800); do
    serve $((least + more))
    if [ "$(tail -n 1 "$W/service_log")" = 'KelmWoLServices: out of memory' ]; then
      expect "status of the service with $more KB more" 1 "$status"
      tried=$((tried + 1))
    else
      expect "status of the service with $more KB more" 0 "$status"
    fi
  done
  [ $tried -gt 0 ] || fail "no size was too little for the service"
fi
