#!/bin/sh
# kelmctl and the wake-up service with some of the streams 0, 1 and 2 closed: they do their work, nothing
# hangs, and none of their files and sockets becomes a standard stream. streams_test.sh tests the filter.
# Time limit: 120 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/wake_up_site.sh
. "$HERE/lib/wake_up_site.sh"

KELMCTL=$BUILD/kelmctl

# closed REDIRECTIONS COMMAND... : runs the command with these streams closed, for 20 seconds at most. Sets
# $status; its output is in $W/out and $W/err, as far as these streams are open.
closed() {
  redirections=$1
  shift
  : >"$W/out"
  : >"$W/err"
  status=0
  timeout -k 1 20 sh -c "exec \"\$@\" $redirections" sh "$@" </dev/null >"$W/out" 2>"$W/err" || status=$?
}

wake_up_site_start
cups_queue kelm socket://10.77.0.2 "$HERE/lib/queue.ppd"
"$KELMCTL" settings kelm >"$W/settings"

for streams in '<&-' '>&-' '2>&-' '<&- >&-' '<&- 2>&-' '>&- 2>&-' '<&- >&- 2>&-'; do
  # A queue's settings come over a socket, which must not become the output.
  closed "$streams" "$KELMCTL" settings kelm
  expect "status of settings without $streams" 0 "$status"
  case $streams in
    *'>&-'*'2>&-'* | '>&-' | '<&- >&-') expect "output without $streams" '' "$(cat "$W/out")" ;;
    *) cmp "$W/settings" "$W/out" || fail "the settings differ without $streams" ;;
  esac
  # kelmctl asks a printer in child processes. Their pipes must not become standard streams either.
  closed "$streams" "$KELMCTL" wake --mac 00:80:92:12:34:56 --address 10.77.0.2
  expect "status of wake without $streams" 0 "$status"
  # Closed standard input counts as empty.
  closed "$streams" "$KELMCTL" explain --stream -
  expect "status of explain without $streams" 1 "$status"
  # A message does not go to standard output instead.
  closed "$streams" "$KELMCTL" settings nothere
  expect "status of a failure without $streams" 1 "$status"
  expect "output of a failure without $streams" '' "$(cat "$W/out")"
  closed "$streams" "$BUILD/KelmWoLServices" usage
  expect "status of the service without $streams" 2 "$status"
  expect "output of the service without $streams" '' "$(cat "$W/out")"
done
wait_until 15 service_is_gone || fail "the service does not end without work"

# The service also works without any standard stream: it opens the null device in their places.
cat >"$W/wake_service" <<END
#!/bin/sh
echo \$\$ >>"$W/service_pid"
exec setpriv --reuid=kelmwol --regid=nogroup --clear-groups --no-new-privs --bounding-set=-all \
  --inh-caps=-all "$BUILD/KelmWoLServices" <&- >&- 2>&-
END
wake 0 --mac 00:80:92:12:34:56 --address 10.77.0.2
pid=$(tail -n 1 "$W/service_pid")
for stream in 0 1 2; do
  expect "stream $stream of the service" /dev/null "$(readlink "/proc/$pid/fd/$stream")"
done
wait_until 15 service_is_gone || fail "the service does not end without work"
