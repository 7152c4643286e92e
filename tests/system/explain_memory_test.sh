#!/bin/sh
# kelmctl explain reads a printer stream of 1 GB to its end, with no more memory than for a short one.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"

printf '%%!PS-Adobe-3.0\n' >"$W/job.ps"
PPD=$SOURCE/tests/ppds/explain.ppd "$BUILD/kelmfilter" 1 miller report 1 QVDuplex=LongEdge "$W/job.ps" >"$W/front.prn"
python3 "$HERE/lib/long_stream.py" "$W/front.prn" "$BUILD/kelmctl" ||
  fail "a long stream takes more memory than a short one"
