#!/bin/sh
# The contents of the package that packaging/macos/build-package makes. A script that only copies them stands
# in for pkgbuild; neither pkgbuild nor CUPS on macOS is tested.
# SPDX-License-Identifier: Apache-2.0
set -eu
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
mkdir -p "$W/bin" "$W/build/ppd"
cat >"$W/bin/pkgbuild" <<'END'
#!/bin/sh
while [ $# -gt 1 ]; do
  case $1 in
  --root) root=$2 ;;
  --version) echo "$2" ;;
  esac
  shift
done
cp -R "$root" "$1"
END
chmod +x "$W/bin/pkgbuild"
echo filter >"$W/build/kelmfilter"
echo ctl >"$W/build/kelmctl"
cp ppd/kelm-ij-dialog.ppd "$W/build/ppd/kelm-ij.ppd"

fail() {
  echo "macos_package: $*" >&2
  exit 1
}
version=$(PATH=$W/bin:$PATH packaging/macos/build-package "$W/build" "$W/package")
[ "$version" = "$1" ] || fail "the version is $version, not $1"
filter=/Library/Printers/KELM/Filters/kelmfilter
[ "$(cat "$W/package$filter")" = filter ] || fail "no filter"
[ "$(cat "$W/package/usr/local/bin/kelmctl")" = ctl ] || fail "no kelmctl"
for ppd in kelm-ij kelm-ij-dialog; do
  file=$W/package/Library/Printers/PPDs/Contents/Resources/$ppd.ppd
  line=$(grep '^\*cupsFilter' "$file")
  [ "$line" = "*cupsFilter: \"application/vnd.cups-postscript 0 $filter\"" ] ||
    fail "$ppd.ppd has the line $line"
done
[ -f "$W/package/Library/LaunchDaemons/com.kelm.KelmWoLServices.plist" ] || fail "no launchd entry"
open=$(find "$W/package" -perm /022)
[ -z "$open" ] || fail "others can write:" "$open"
