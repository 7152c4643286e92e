# common.sh : every system test reads it first:  . "${0%/*}/lib/common.sh"
# shellcheck shell=sh disable=SC2034
# It moves the test into its own namespaces (network, mounts, host name), so that every port is free and
# nothing leaves the machine, and sets
#   W       the test's temporary directory (mode 755: filters run as another user); removed at the end,
#           unless KELM_KEEP is set
#   SOURCE  the top of the source tree
#   BUILD   the build directory (KELM_BUILD, by default SOURCE/build)
#   HERE    the directory of the tests, with lib/ in it
# SPDX-License-Identifier: Apache-2.0
set -eu

if [ -z "${KELM_ISOLATED-}" ]; then
  [ "$(id -u)" = 0 ] || exec sudo -n KELM_BUILD="${KELM_BUILD-}" KELM_KEEP="${KELM_KEEP-}" sh "$0" "$@"
  KELM_ISOLATED=1 exec unshare -n -m -u sh "$0" "$@"
fi

HERE=$(cd "${0%/*}" && pwd)
SOURCE=$(cd "$HERE/../.." && pwd)
BUILD=${KELM_BUILD:-$SOURCE/build}
umask 022
W=$(mktemp -d)
chmod 755 "$W"
mkdir "$W/pids"
# CUPS' commands keep a user's defaults in the home directory. Tests must not read or change the real one.
export HOME="$W"
ip link set lo up multicast on

# alive PID : succeeds if the process runs; a zombie does not count
alive() {
  state=$(sed -n 's/^State:[[:space:]]*\(.\).*/\1/p' "/proc/$1/status" 2>/dev/null) || return 1
  [ -n "$state" ] && [ "$state" != Z ]
}

# wait_until SECONDS COMMAND... : runs the command every 0.05 s until it succeeds; fails after SECONDS
wait_until() {
  turns=$(($1 * 20))
  shift
  while ! "$@"; do
    turns=$((turns - 1))
    [ $turns -gt 0 ] || return 1
    sleep 0.05
  done
}

# started NAME PID : the end of the test, or "stop NAME", stops PID
started() { echo "$2" >"$W/pids/$1"; }

gone() { ! alive "$1"; }

# stop NAME : sends TERM, and waits up to 5 s until the process is gone
stop() {
  pid=$(cat "$W/pids/$1")
  rm -f "$W/pids/$1"
  alive "$pid" || return 0
  kill "$pid" && wait_until 5 gone "$pid"
}

# fail TEXT : ends the test
fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# expect WHAT EXPECTED ACTUAL
expect() {
  [ "$2" = "$3" ] || fail "$1: expected '$2', found '$3'"
}

# expect_line FILE LINE : FILE has a line that is exactly LINE
expect_line() {
  grep -qaxF -e "$2" "$1" || fail "no line '$2' in $1"
}

clean_up() {
  status=$?
  trap - EXIT
  [ $status = 0 ] || show_logs
  for file in "$W"/pids/*; do
    [ ! -e "$file" ] || stop "${file##*/}" || echo "$file: still running" >&2
  done
  if [ -n "${KELM_KEEP-}" ]; then echo "kept: $W" >&2; else rm -rf "$W"; fi
  exit $status
}

# Shows the ends of all log files if a test fails.
show_logs() {
  find "$W" -path "$W/pids" -prune -o -name '*log*' -type f -size +0 -print | while read -r file; do
    echo "--- $file" >&2
    tail -n 40 "$file" >&2
  done
}

trap clean_up EXIT
trap 'exit 1' INT TERM HUP
