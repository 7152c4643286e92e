#!/bin/sh
# mutants_test.sh : the lists in tests/mutants/ fit the tree. When you change a line that a list names,
# change the list too.
# SPDX-License-Identifier: Apache-2.0
set -eu
exec python3 tests/mutants/run.py --check
