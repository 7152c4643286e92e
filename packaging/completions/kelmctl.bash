# Completion of kelmctl in bash; installed where bash-completion looks for the command's name.
# Subcommands, options and the kinds of their values come from the help of kelmctl itself.
# SPDX-License-Identifier: Apache-2.0

# _kelmctl_queues WORD : completes WORD to a queue's name. The names come from the print server: none is
# expanded, and each is inserted as one quoted word.
_kelmctl_queues() {
  local names=() name quoted
  mapfile -t names < <(lpstat -e 2>/dev/null)
  for name in "${names[@]}"; do
    printf -v quoted %q "$name"
    [[ $name == "$1"* || $quoted == "$1"* ]] && COMPREPLY+=("$quoted")
  done
}

# _kelmctl_values KIND WORD : completes WORD to a value that the help calls KIND
_kelmctl_values() {
  case $1 in
    FILE)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$2")
      ;;
    QUEUE) _kelmctl_queues "$2" ;;
    ADDRESS | HOST) mapfile -t COMPREPLY < <(compgen -A hostname -- "$2") ;;
    USER) mapfile -t COMPREPLY < <(compgen -u -- "$2") ;;
  esac
}

_kelmctl() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local subcommand=() options=() subcommands=() positional='' section='' line word kind
  local -A kinds=()
  ((COMP_CWORD > 1)) && subcommand=("${COMP_WORDS[1]}")
  COMPREPLY=()
  # A line of the help: "  --ppd FILE Excludes: QUEUE  A PPD file instead of a queue's"
  while IFS= read -r line; do
    case $line in
      [A-Z]*:) section=$line ;;
      '  '[!\ ]*)
        line=${line#  }
        line=${line%%  *}
        word=${line%% *}
        kind=${line#"$word"}
        kind=${kind# }
        kind=${kind%%[!A-Z]*}
        case $section in
          Positionals:) positional=${positional:-$word} ;;
          Subcommands:) subcommands+=("$word") ;;
          Options:)
            word=${word##*,}
            options+=("$word")
            ((${#kind} > 1)) && kinds[$word]=$kind
            ;;
        esac
        ;;
    esac
  done < <("${COMP_WORDS[0]}" "${subcommand[@]}" --help 2>/dev/null)

  if [[ -n ${kinds[$previous]-} ]]; then
    _kelmctl_values "${kinds[$previous]}" "$current"
  elif ((COMP_CWORD == 1)) || [[ $current == -* && ${#subcommands[@]} -eq 0 ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${subcommands[*]} ${options[*]}" -- "$current")
  elif [[ -n $positional ]]; then
    _kelmctl_values "$positional" "$current"
  fi
}

complete -F _kelmctl kelmctl
