#!/bin/sh
# autopkgtest_test.sh DIRECTORY : runs debian/tests with the packages in DIRECTORY, as Debian's test machines
# do. scripts/check-packages runs this test in a throw-away Debian.
# SPDX-License-Identifier: Apache-2.0
set -eu
ip link set lo up
# The throw-away Debian is the container that debian/tests/control asks for; Debian 13's autopkgtest does not
# know that.
autopkgtest --no-built-binaries --ignore-restrictions isolation-container "$1"/*.deb /source/ -- null
