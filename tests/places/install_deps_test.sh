#!/bin/sh
# install_deps_test.sh : if the release does not have a package, scripts/install-deps names it and installs
# nothing. Short scripts stand in for the package tools.
# SPDX-License-Identifier: Apache-2.0
set -eu
W=$(mktemp -d)
trap 'rm -rf "$W"' EXIT
PATH=$W:$PATH
export W

# tool NAME : makes a program NAME from the script on standard input
tool() {
  { echo '#!/bin/sh' && cat; } >"$W/$1"
  chmod 755 "$W/$1"
}
echo 'echo 0' | tool id
tool apt-get <<'END'
echo "$@" >>"$W/calls"
END
# All packages except two are installed, and one of the two is offered.
tool dpkg-query <<'END'
shift 3
for name; do
  [ "$name" = scdoc ] || [ "$name" = ninja-build ] || printf 'installed %s ' "$name"
done
END
tool apt-cache <<'END'
[ "$1" = policy ] || exit 0
case $2 in
scdoc) printf 'scdoc:\n  Installed: (none)\n  Candidate: (none)\n' ;;
ninja-build) printf 'ninja-build:\n  Installed: (none)\n  Candidate: 1.11.1-1\n' ;;
esac
END

if scripts/install-deps build >"$W/out" 2>&1; then
  echo "status 0 although a package is not offered" >&2
  exit 1
fi
grep -q '^install-deps: .* offers no package named: scdoc$' "$W/out" || {
  cat "$W/out" >&2
  exit 1
}
grep -q '^install-deps: on Ubuntu, .*snap install chromium' "$W/out"
[ "$(cat "$W/calls")" = update ] || {
  echo "apt-get was called for: $(cat "$W/calls")" >&2
  exit 1
}

# If nothing is missing, it prints nothing and does not call apt-get. Any chromium in PATH counts.
rm "$W/calls"
tool chromium </dev/null
tool dpkg-query <<'END'
shift 3
for name; do [ "$name" = chromium ] || printf 'installed %s ' "$name"; done
END
[ -z "$(scripts/install-deps build desktop 2>&1)" ]
[ ! -e "$W/calls" ]
