#!/bin/sh
# A job that is sent to a queue arrives at the printer: first the header, then the page.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

has_page() { grep -qa '^showpage' "$W/printer.out"; }

cups_setup
cups_start
printer_start 9100 "$W/printer.out"
cups_queue kelm socket://127.0.0.1:9100 "$HERE/lib/queue.ppd"

printf '%%!PS-Adobe-3.0\n%%%%Pages: 1\n%%%%EndComments\n%%%%Page: 1 1\nshowpage\n%%%%EOF\n' >"$W/page.ps"
cups_job kelm "$W/page.ps" >"$W/job_id" || fail "the job did not leave the queue"

wait_until 5 has_page || fail "no page at the printer"
expect_line "$W/printer.out" '@PJL ENTER LANGUAGE=POSTSCRIPT'
expect_line "$W/printer.out" '%!PS-Adobe-3.0'
