#!/bin/sh
# kelmctl explain says where each line of a header comes from, in the user's language, and what was sent
# to a printer.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

PPD=$SOURCE/tests/ppds/explain.ppd

# explain STATUS ARGUMENT... : ends with STATUS; the result is in $W/out, the messages are in $W/err
explain() {
  wanted=$1
  shift
  status=0
  timeout 20 "$BUILD/kelmctl" explain "$@" >"$W/out" 2>"$W/err" || status=$?
  expect "status of explain $*" "$wanted" "$status"
}

# With the PPD of a queue, in English and German.
cups_setup
cups_start
cups_queue office file:/dev/null "$PPD"
export LANG=C.UTF-8
explain 0 office -o QVStapleMode=OneStaple --changed
grep -q '^Staple: One, top left  *@PJL SET QVSTAPLEMODE=1STAPLE  *from QVStapleMode=OneStaple$' "$W/out" ||
  fail "no line about the staple: $(cat "$W/out")"
LANG=de_DE.UTF-8 explain 0 office -o QVStapleMode=OneStaple --changed
grep -q '^Heften: Eine, oben links ' "$W/out" || fail "not in German: $(cat "$W/out")"
explain 0 office --json
expect "lines that have changed" 0 "$(grep -c '"changed": true' "$W/out")"
explain 1 office -o QVStaplMode=OneStaple -o 'QVJobComment="Custom.a:b"'
grep -qF 'kelmctl: QVStaplMode=OneStaple is not an option of this printer; did you mean QVStapleMode?' \
  "$W/err" || fail "the unknown option is not named: $(cat "$W/err")"
grep -qF 'kelmctl: QVJobComment=Custom.a:b has the character ":", which the printer does not accept' \
  "$W/err" || fail "the character is not named: $(cat "$W/err")"

# The standard option also takes the printer's own names of trays.
explain 0 --ppd "$BUILD/ppd/kelm-ij.ppd" -o InputSlot=FeedTray2 --changed
grep -q '@PJL SET MEDIASOURCE=TRAY2 ' "$W/out" || fail "no line about the tray: $(cat "$W/out")"

# Standard options are right in any letter case. There are remarks on what CUPS would silently ignore.
explain 0 --ppd "$BUILD/ppd/kelm-ij.ppd" -n 3 -o collate=false -o MEDIA=A5 -o Duplex=duplexnotumble --changed
for line in COPIES=3 QVPAGESIZE=A5 DUPLEX=ON; do
  grep -q "@PJL SET $line " "$W/out" || fail "no line $line: $(cat "$W/out")"
done
explain 1 --ppd "$BUILD/ppd/kelm-ij.ppd" -o print-qualty=5
expect "messages" \
  "kelmctl: print-qualty=5 is not an option of this printer; did you mean print-quality?" "$(cat "$W/err")"
explain 1 --ppd "$BUILD/ppd/kelm-ij.ppd" -o finishings=5 -o media=C5 -o MediaType=Plain
expect "messages" \
  "kelmctl: finishings=5 cannot be used together with media=C5 (a constraint of the PPD)" "$(cat "$W/err")"

# A stream does not say whether the standard option or the own one was used.
printf '%%!PS-Adobe-3.0\nshowpage\n' >"$W/page.ps"
PPD=$BUILD/ppd/kelm-ij.ppd "$BUILD/kelmfilter" 1 miller report 1 'Duplex=DuplexNoTumble InputSlot=Tray2' \
  "$W/page.ps" >"$W/standard.prn"
explain 0 --stream "$W/standard.prn" --ppd "$BUILD/ppd/kelm-ij.ppd"
for line in 'Two-sided printing: Long edge .*DUPLEX=ON' 'Two-sided printing: Long edge .*BINDING=LONGEDGE' \
  'Paper source: Tray 2 .*AUTOSELECT=OFF' 'Paper source: Tray 2 .*MEDIASOURCE=TRAY2'; do
  grep -q "^$line\$" "$W/out" || fail "no line $line: $(cat "$W/out")"
done
if grep -q override "$W/out"; then fail "$(grep override "$W/out")"; fi

# Lines that no choice gives together are shown with their own values.
sed -e 's/SET BINDING=LONGEDGE/SET BINDING=OFF/' -e 's/SET MEDIASOURCE=TRAY2/SET MEDIASOURCE=AUTO/' \
  "$W/standard.prn" >"$W/contrary.prn"
explain 0 --stream "$W/contrary.prn" --ppd "$BUILD/ppd/kelm-ij.ppd"
for line in 'Two-sided printing: ON .*DUPLEX=ON' 'Paper source: OFF .*AUTOSELECT=OFF'; do
  grep -q "^$line\$" "$W/out" || fail "no line $line: $(cat "$W/out")"
done

# Defaults that lp would add are used and named: the user's, those of all users and the queue's.
CUPS_SERVERROOT=$CUPS/etc
export CUPS_SERVERROOT
mkdir "$W/.cups"
echo 'Dest office QVDuplex=LongEdge' >"$W/.cups/lpoptions"
echo 'Dest office QVStapleMode=TwoStaple QVDuplex=ShortEdge' >"$CUPS/etc/lpoptions"
lpadmin -p office -o QVJobComment-default=Custom.Hello -v "file:$W/office.prn" 2>"$W/lpadmin_log"
explain 0 office --changed --title report
for line in 'Two-sided printing: Long edge .* from QVDuplex=LongEdge (in ~/.cups/lpoptions)' \
  'Staple: Two .* from QVStapleMode=TwoStaple (in .*/lpoptions)' \
  "Job comment: Hello .* from QVJobComment=Custom.Hello (the queue's default)"; do
  grep -q "^$line\$" "$W/out" || fail "no line $line: $(cat "$W/out")"
done
explain 0 office --all --title report
sed -n 's/.*  \(@PJL SET [^ ]*\)  .*/\1/p' "$W/out" | grep -v QVHOSTNAME >"$W/explained"
[ "$(wc -l <"$W/explained")" -gt 80 ] || fail "no header: $(cat "$W/out")"
printf '%%!PS\nshowpage\n' >"$W/page.ps"
cups_job office -t report "$W/page.ps" >"$W/job_id" || fail "the job did not end"
sed -n 's/^\(@PJL SET .*\)$/\1/p' "$W/office.prn" | grep -Fxf "$W/explained" | diff "$W/explained" - ||
  fail "lp printed something other than explain says"
explain 0 office --changed -o QVDuplex=OFF
if grep -q DUPLEX "$W/out"; then fail "the job's own option does not win: $(cat "$W/out")"; fi
rm "$W/.cups/lpoptions" "$CUPS/etc/lpoptions"
lpadmin -p office -R QVJobComment-default 2>"$W/lpadmin_log"

# cupsd accepts any default for a queue.
lpadmin -p office -o QVStapleMode-default=Three -o media-default=iso_a4_210x297mm 2>"$W/lpadmin_log"
explain 1 office -o PageSize=A4
expect "messages" \
  "kelmctl: QVStapleMode=Three (the queue's default) is not a choice of this option; the choices are OFF OneStaple TwoStaple" \
  "$(cat "$W/err")"
# PageSize wins over media, so a job can override a default media with it.
explain 0 office -o PageSize=A3 -o QVStapleMode=OFF
echo 'Dest office PageSize=A3' >"$W/.cups/lpoptions"
explain 1 office -o QVStapleMode=OFF -o media=iso_a4_210x297mm
expect "messages" "kelmctl: media=iso_a4_210x297mm is not the same paper as PageSize=A3" "$(cat "$W/err")"
rm "$W/.cups/lpoptions"
lpadmin -p office -R QVStapleMode-default -R media-default 2>"$W/lpadmin_log"

# Choices that the PPD forbids together.
explain 1 office -o QVStapleMode=TwoStaple -o QVDuplex=ShortEdge
expect_line "$W/err" \
  'kelmctl: QVDuplex=ShortEdge cannot be used together with QVStapleMode=TwoStaple (a constraint of the PPD)'

# What the filter writes for the same options is what explain says.
PPD=$PPD "$BUILD/kelmfilter" 1 miller report 1 'QVDuplex=LongEdge media=A3' </dev/null >"$W/header.prn"
explain 0 office --title report -o QVDuplex=LongEdge -o media=A3 --json
sed -n -e 's/^ *"variable": "\(.*\)",$/\1/p' "$W/out" >"$W/variables"
sed -n -e 's/^@PJL SET \([^=]*\)=.*/\1/p' "$W/header.prn" >"$W/sent"
diff "$W/sent" "$W/variables" || fail "explain and the filter name other variables"

# A stream that is right, on standard input and from a file, and one that disagrees.
{
  cat "$W/header.prn"
  printf '%%!PS-Adobe-3.0\n%%%%BeginFeature: *QVDuplex LongEdge\n'
  printf '(LongEdge) userdict exch /QVDuplex exch put\n%%%%EndFeature\nshowpage\n'
} >"$W/good.prn"
explain 0 --stream "$W/good.prn"
explain 0 --stream - <"$W/good.prn"
explain 0 --stream "$W/good.prn" --ppd "$PPD" --changed
grep -q '@PJL SET DUPLEX=ON$' "$W/out" || fail "no changed line: $(cat "$W/out")"
if grep -q -e QVJOG -e '^PostScript' "$W/out"; then fail "lines without changes: $(cat "$W/out")"; fi
sed 's/(LongEdge) userdict/(OFF) userdict/' "$W/good.prn" >"$W/bad.prn"
explain 1 --stream "$W/bad.prn"
grep -qF 'the PostScript says QVDuplex is "OFF", and the header says DUPLEX=ON' "$W/out" ||
  fail "the disagreement is not shown: $(cat "$W/out")"
printf '\033]0;title\007' >"$W/odd.prn"
explain 1 --stream "$W/odd.prn"
expect "control characters on the terminal" 0 "$(LC_ALL=C grep -c "$(printf '\033')" "$W/out" || true)"
printf '\033%%-12345X@PJL SET \033]0;title\007=\033[31m\n' >"$W/odd.prn"
explain 1 --stream "$W/odd.prn"
expect "control characters in a name" 0 "$(LC_ALL=C grep -c "$(printf '\033')" "$W/out" || true)"
explain 1 --ppd "$BUILD/ppd/kelm-ij.ppd" -o "$(printf -- '-x=\033[31m')"
expect "control characters in an option" 0 "$(LC_ALL=C cat "$W/out" "$W/err" | grep -c "$(printf '\033')" || true)"
explain 1 --stream "$W"
grep -q 'cannot be read to its end: Is a directory' "$W/err" || fail "no message about the read error: $(cat "$W/err")"
explain 1 --stream "$W/none.prn"
explain 2 --stream "$W/good.prn" -n 2
