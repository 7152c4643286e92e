#!/bin/sh
# Too little memory ends kelmctl and the wake-up service with one line and status 1, never by a signal.
# streams_test.sh tests the filter.
# Time limit: 180 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"

KELMCTL=$BUILD/kelmctl
PPD=$BUILD/ppd/kelm-ij.ppd

# within KILOBYTES COMMAND... : runs the command with a limit on its memory; sets $status, and its output is in
# $W/out and $W/err
within() {
  status=0
  (
    # shellcheck disable=SC3045 # dash has it
    ulimit -v "$1"
    shift
    exec timeout -k 1 20 "$@"
  ) >"$W/out" 2>"$W/err" || status=$?
}

# least COMMAND... : the least size in KB, to within 8, with which the command is loaded and ends with 0 or 2.
# Smaller sizes are not tested, because the dynamic loader may crash with them. Prints nothing if 4 GB are too
# little, as for a program with a sanitizer, which needs terabytes of addresses.
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

# try LINE STATUSES START STEP COMMAND... : runs the command with 40 sizes from START on. It must end with one
# of STATUSES, or with 1 and LINE as its last message; the latter at least once.
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
      expect "times that $* says so" 1 "$(grep -cF "$line" "$W/err")"
      tried=$((tried + 1))
    else
      case " $statuses " in
        *" $status "*) ;;
        *) fail "$* ends with $status with $size KB: $(cat "$W/err")" ;;
      esac
    fi
    size=$((size + step))
  done
  [ $tried -gt 0 ] || fail "no size was too little for $*"
}

least=$(least "$KELMCTL" --version)
if [ -n "$least" ]; then
  line='kelmctl: out of memory; only what was reported is finished'
  try "$line" 0 "$least" 30 "$KELMCTL" settings --ppd "$PPD"
  try "$line" 0 "$least" 600 "$KELMCTL" ppd "$PPD"
  try "$line" 0 "$least" 150 "$KELMCTL" explain --ppd "$PPD" -o QVDuplex=LongEdge
fi

# The wake-up service gets a request of 1.4 MB. If it has enough memory for it, the test stops it.
cat >"$W/wake_service" <<END
#!/bin/sh
ulimit -v "\$(cat "$W/size")"
setpriv --reuid=kelmwol --regid=nogroup --clear-groups --no-new-privs "$BUILD/KelmWoLServices" 2>>"$W/service_log" &
echo \$! >"$W/service_pid"
status=0
wait \$! || status=\$?
echo \$status >"$W/service_status"
exit \$status  # after 0, the bus would go on waiting for the service
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
