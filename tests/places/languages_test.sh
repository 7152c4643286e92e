#!/bin/sh
# For every language of the PPD there is a case of kelmctl explain, and the documents name it.
# SPDX-License-Identifier: Apache-2.0
set -eu

# The names that the documents use.
names='en English
de German
fr French
ja Japanese'

status=0
codes=$(sed -n 's/^\*cupsLanguages: "\(.*\)"$/\1/p' ppd/kelm-ij-dialog.ppd)
[ -n "$codes" ] || { echo "ppd/kelm-ij-dialog.ppd has no *cupsLanguages" >&2; exit 1; }
for code in $codes; do
  if ! grep -q "^language $code" tests/system/explain/languages.txt; then
    echo "tests/system/explain/languages.txt has no case in the language $code" >&2
    status=1
  fi
  name=$(echo "$names" | sed -n "s/^$code //p")
  for file in ${name:+docs/queue.md README.md}; do
    grep -qw "$name" "$file" && continue
    echo "$file does not name the language $name" >&2
    status=1
  done
  if [ -z "$name" ]; then
    echo "tests/places/languages_test.sh has no name for the language $code" >&2
    status=1
  fi
done
exit $status
