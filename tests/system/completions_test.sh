#!/bin/sh
# bash and zsh complete the arguments of kelmctl, including the names of queues.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"

COMPLETIONS=$SOURCE/packaging/completions
PATH=$BUILD:$PATH # the completions ask kelmctl for its help

# in_bash WORD... : what bash offers for the last word, on one line
in_bash() {
  bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _kelmctl; echo "${COMPREPLY[*]}"' \
    bash "$COMPLETIONS/kelmctl.bash" kelmctl "$@"
}

# in_zsh TEXT : what the command line TEXT becomes after a tab
in_zsh() {
  timeout 20 zsh -f "$HERE/lib/zsh_tab.zsh" "$COMPLETIONS" "$W/zsh_dump" "$1"
}

cups_setup
cups_start
cups_queue office file:/dev/null "$HERE/lib/queue.ppd"
cups_queue lobby file:/dev/null "$HERE/lib/queue.ppd"
cd "$W"
: >sample.ppd

# In the order of the help text, which is the table's order.
names=$(sed -n 's/^ *{"\([a-z-]*\)", ".*", declare.*/\1/p' "$SOURCE/ctl/commands.hpp" | tr '\n' ' ')
[ -n "$names" ] || fail "no subcommands found in ctl/commands.hpp"
expect "bash: subcommands" "$names--help --version" "$(in_bash '')"
expect "bash: subcommand" "settings" "$(in_bash se)"
expect "bash: queues" "lobby office" "$(in_bash settings '')"
expect "bash: queue" "office" "$(in_bash settings of)"
expect "bash: options" "--ppd --json --help" "$(in_bash settings --)"
expect "bash: files" "sample.ppd" "$(in_bash settings --ppd sam)"
expect "bash: PPD files" "sample.ppd" "$(in_bash ppd sam)"
expect "bash: queue to wake" "office" "$(in_bash wake of)"
expect "bash: queue to store in" "lobby" "$(in_bash sync lo)"
expect "bash: queue after a queue" "office" "$(in_bash sync lobby of)"
expect "bash: PPD to refresh with" "sample.ppd" "$(in_bash refresh --ppd sam)"
expect "bash: queue to explain" "office" "$(in_bash explain of)"
expect "bash: stream to explain" "sample.ppd" "$(in_bash explain --stream sam)"
expect "bash: options of printer" "--help --community --jobs --json --quiet" "$(in_bash printer --)"
expect "bash: option that only one subcommand has" "--over-router" "$(in_bash wake --ov)"
expect "bash: no value for a number" "" "$(in_bash sync --jobs '')"
expect "bash: unknown subcommand" "" "$(in_bash frobnicate '')"

expect "zsh: subcommand" "kelmctl settings " "$(in_zsh 'kelmctl se')"
expect "zsh: PPD file" "kelmctl ppd sample.ppd " "$(in_zsh 'kelmctl ppd sam')"
expect "zsh: queue" "kelmctl settings office " "$(in_zsh 'kelmctl settings of')"
expect "zsh: queue to wake" "kelmctl wake office " "$(in_zsh 'kelmctl wake of')"
expect "zsh: stream to explain" "kelmctl explain --stream sample.ppd " \
  "$(in_zsh 'kelmctl explain --stream sam')"
expect "zsh: option" "kelmctl settings --json " "$(in_zsh 'kelmctl settings --j')"
expect "zsh: queue to store in" "kelmctl sync lobby " "$(in_zsh 'kelmctl sync lo')"
expect "zsh: queue to refresh" "kelmctl refresh office " "$(in_zsh 'kelmctl refresh of')"
expect "zsh: option of kelmctl" "kelmctl --version " "$(in_zsh 'kelmctl --ver')"
expect "zsh: queue after a queue" "kelmctl sync lobby office " "$(in_zsh 'kelmctl sync lobby of')"
expect "zsh: file" "kelmctl settings --ppd sample.ppd " "$(in_zsh 'kelmctl settings --ppd sam')"

# The names of queues come from the print server. They are words, never commands.
mkdir "$W/hostile"
cat >"$W/hostile/lpstat" <<'END'
#!/bin/sh
printf '%s\n' 'x$(touch${IFS}pwned)' 'y`touch${IFS}pwned`' 'a;id' 'two words' office
END
chmod 755 "$W/hostile/lpstat"
PATH=$W/hostile:$PATH
# shellcheck disable=SC2016 # the names as bash quotes them
expect "bash: names with the shell's characters" \
  'x\$\(touch\$\{IFS\}pwned\) y\`touch\$\{IFS\}pwned\` a\;id two\ words office' "$(in_bash settings '')"
expect "bash: a name with a semicolon" 'a\;id' "$(in_bash settings a)"
expect "bash: a name that is quoted already" 'a\;id' "$(in_bash settings 'a\;')"
expect "bash: a name with a space" 'two\ words' "$(in_bash settings tw)"
expect "zsh: a name with an expansion" 'kelmctl settings x\$\(touch\$\{IFS\}pwned\) ' \
  "$(in_zsh 'kelmctl settings x')"
expect "zsh: a name with a semicolon" 'kelmctl settings a\;id ' "$(in_zsh 'kelmctl settings a')"
[ ! -e pwned ] || fail "a queue's name ran a command"
