# zsh_tab.zsh DIRECTORY DUMP TEXT : prints what the command line TEXT becomes after a tab, in an interactive zsh
# with the completions in DIRECTORY. zsh keeps what it found there, and in its own directories, in the file DUMP.
# SPDX-License-Identifier: Apache-2.0
zmodload zsh/zpty
zpty shell zsh -f -i
# The line is printed between two marks, so that the terminal's control sequences stay outside.
zpty -w shell "PS1= RPS1=; unsetopt zle_bracketed_paste prompt_cr prompt_sp; TERM=dumb"
zpty -w shell "fpath=(${(q)1} \$fpath); autoload -Uz compinit; compinit -u -d ${(q)2}"
zpty -w shell 'show() { print -rn -- "<<<$BUFFER>>>"; zle kill-buffer; zle accept-line }'
zpty -w shell 'tab() { zle complete-word; show }; zle -N tab; bindkey "^I" tab; echo rea""dy'
line=
zpty -r -m shell line '*ready*'
zpty -w -n shell "$3"$'\t'
zpty -r -m shell line '*<<<*>>>*'
zpty -d shell
print -r -- "${${line##*<<<}%%>>>*}"
