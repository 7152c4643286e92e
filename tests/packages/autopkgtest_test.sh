#!/bin/sh
# autopkgtest_test.sh DIRECTORY : runs debian/tests with the packages in DIRECTORY, as Debian's test machines
# do. scripts/check-packages runs this test in a throw-away Debian.
# SPDX-License-Identifier: Apache-2.0
set -eu
ip link set lo up
autopkgtest --no-built-binaries "$1"/*.deb /source/ -- null
