#!/bin/sh
# version_test.sh VERSION : the release's version is the same wherever it is written down.
# SPDX-License-Identifier: Apache-2.0
set -eu
version=$1

file_version=$(sed -n 's/^\*FileVersion: "\(.*\)"$/\1/p' ppd/kelm-ij-dialog.ppd)
if [ "$file_version" != "${version%.*}" ]; then
  echo "*FileVersion of ppd/kelm-ij-dialog.ppd is $file_version;" \
    "for version $version (CMakeLists.txt) it must be ${version%.*}" >&2
  exit 1
fi
