#!/bin/sh
# Where "make install" puts the files, and that they find each other.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"

ROOT=$W/root
PREFIX=$(sed -n 's/^CMAKE_INSTALL_PREFIX:PATH=//p' "$BUILD/CMakeCache.txt")
DESTDIR=$ROOT cmake --install "$BUILD" >"$W/install_log"
rm -f "$BUILD/install_manifest.txt"

(cd "$ROOT" && find . -type f | sed 's|^\.||' | sort) >"$W/installed"
sed "s|^PREFIX|$PREFIX|" <<'END' | sort >"$W/expected"
/usr/lib/cups/filter/kelmfilter
/usr/share/dbus-1/system.d/com.kelm.KelmWoLServices.conf
/usr/share/ppd/kelm/kelm-ij-dialog.ppd
/usr/share/ppd/kelm/kelm-ij.ppd
PREFIX/bin/kelmctl
PREFIX/lib/systemd/system/kelm-sync.service
PREFIX/lib/systemd/system/kelm-sync.timer
PREFIX/lib/systemd/system/kelm-wol.service
PREFIX/lib/sysusers.d/kelm-wol.conf
PREFIX/libexec/kelm/KelmWoLServices
PREFIX/share/bash-completion/completions/kelmctl
PREFIX/share/dbus-1/system-services/com.kelm.KelmWoLServices.service
PREFIX/share/man/man1/kelmctl.1
PREFIX/share/man/man8/KelmWoLServices.8
PREFIX/share/man/man8/kelmfilter.8
PREFIX/share/metainfo/com.kelm.kelmfilter.metainfo.xml
PREFIX/share/zsh/vendor-completions/_kelmctl
END
diff "$W/expected" "$W/installed" || fail "other files are installed"

# The bus and systemd start the installed program, as the user that is created.
unit=$ROOT$PREFIX/lib/systemd/system/kelm-wol.service
for file in "$unit" "$ROOT$PREFIX/share/dbus-1/system-services/com.kelm.KelmWoLServices.service"; do
  program=$(sed -n 's/^Exec\(Start\)\{0,1\}=//p' "$file")
  [ -x "$ROOT$program" ] || fail "$file starts $program, which is not installed"
  expect_line "$file" User=kelmwol
done
mkdir "$ROOT/etc"
systemd-sysusers --root="$ROOT" "$ROOT$PREFIX/lib/sysusers.d/kelm-wol.conf" 2>"$W/sysusers_log"
grep -q '^kelmwol:' "$ROOT/etc/passwd" || fail "the service's user is not created"

# man prepares the tables of the pages.
for page in "$ROOT$PREFIX"/share/man/man*/*; do
  expect "the first line of $page" "'\\\" t" "$(head -n 1 "$page")"
done

# systemd understands every line of the units.
for name in kelm-wol kelm-sync; do
  sed "s|^ExecStart=|&$ROOT|" "$ROOT$PREFIX/lib/systemd/system/$name.service" >"$W/$name.service"
  systemd-analyze verify --man=no "$W/$name.service" >"$W/verify_log" 2>&1 ||
    fail "systemd refuses the unit $name"
  expect "what systemd says of the unit" '' "$(grep "$name" "$W/verify_log" || :)"
  exposure=$(systemd-analyze security --offline=true "$W/$name.service" |
    sed -n "s/^.*exposure level for $name.service: \([0-9]*\)\.\([0-9]\).*/\1\2/p")
  [ "$exposure" -le 11 ] || fail "the exposure level of $name is $exposure tenths, not 1.1"
done
systemd-analyze verify --man=no "$W/kelm-sync.service" \
  "$ROOT$PREFIX/lib/systemd/system/kelm-sync.timer" >"$W/verify_log" 2>&1 ||
  fail "systemd refuses the timer"
expect_line "$ROOT$PREFIX/lib/systemd/system/kelm-sync.service" \
  "ExecStart=$PREFIX/bin/kelmctl sync --all --quiet"
[ -x "$ROOT$PREFIX/bin/kelmctl" ] || fail "the timer starts a program that is not installed"

# The installed filter prints.
printf '%%!PS\n' | "$ROOT/usr/lib/cups/filter/kelmfilter" 1 user title 1 '' >"$W/out"
expect_line "$W/out" '@PJL ENTER LANGUAGE=POSTSCRIPT'
