# kelmctl.sh : runs kelmctl; read after common.sh.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

KELMCTL=$BUILD/kelmctl

# run STATUS ARGUMENT... : kelmctl ends with STATUS; its output is in $W/out and $W/err
run() {
  wanted=$1
  shift
  status=0
  "$KELMCTL" "$@" >"$W/out" 2>"$W/err" || status=$?
  [ $status = "$wanted" ] || fail "kelmctl $*: status $status: $(cat "$W/err")"
}
