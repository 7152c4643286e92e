#!/bin/sh
# version_test.sh VERSION : all places that state the release's version agree.
# SPDX-License-Identifier: Apache-2.0
set -eu
version=$1

file_version=$(sed -n 's/^\*FileVersion: "\(.*\)"$/\1/p' ppd/kelm-ij-dialog.ppd)
if [ "$file_version" != "${version%.*}" ]; then
  echo "*FileVersion of ppd/kelm-ij-dialog.ppd is $file_version;" \
    "for version $version (CMakeLists.txt) it must be ${version%.*}" >&2
  exit 1
fi

package=$(sed -n '1s/^kelmfilter (\(.*\)-[^-]*) .*/\1/p' debian/changelog)
if [ "$package" != "$version" ]; then
  echo "the newest entry of debian/changelog is for version $package, not for $version" >&2
  exit 1
fi

metainfo=packaging/com.kelm.kelmfilter.metainfo.xml
release=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' $metainfo | head -n 1)
if [ "$release" != "$version" ]; then
  echo "the newest release in $metainfo is $release, not $version" >&2
  exit 1
fi

grep -qF -e "## [$version] - " -e "Version $version is being prepared." CHANGELOG.md && exit
echo "CHANGELOG.md has no section \"## [$version] - DATE\"" >&2
exit 1
