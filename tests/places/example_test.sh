#!/bin/sh
# examples/job.ps is what CUPS makes of the example's document and options.
# SPDX-License-Identifier: Apache-2.0
set -eu

made=$(mktemp)
trap 'rm -f "$made"' EXIT
scripts/make-example "$made"
diff examples/job.ps "$made" && exit
echo "examples/job.ps is out of date: run scripts/make-example" >&2
exit 1
