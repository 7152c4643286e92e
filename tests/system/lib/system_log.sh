# system_log.sh : a private system log; read after common.sh.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

# system_log_start FILE : appends to FILE what programs send to the system log. The test's mount namespace
# gets its own /dev for that.
system_log_start() {
  mkdir "$W/dev"
  mount -t tmpfs none "$W/dev"
  for device in null zero full random urandom; do
    : >"$W/dev/$device"
    mount --bind "/dev/$device" "$W/dev/$device"
  done
  ln -s /proc/self/fd "$W/dev/fd"
  mount --move "$W/dev" /dev
  : >"$1"
  socat -u UNIX-RECV:/dev/log,mode=666 "OPEN:$1,append" &
  started system_log $!
  wait_until 5 test -S /dev/log || fail "no system log"
}
