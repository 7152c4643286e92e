# Completion of kelmctl in bash; installed where bash-completion looks for the command's name.
# SPDX-License-Identifier: Apache-2.0

_kelmctl_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2"); }

_kelmctl_settings() {
  if [[ $2 == --ppd ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
  elif [[ $2 == -h || $2 == -U ]]; then
    return
  elif [[ $1 == -* ]]; then
    _kelmctl_words '--ppd --json -h -U --help' "$1"
  else
    _kelmctl_words "$(lpstat -e 2>/dev/null)" "$1"
  fi
}

_kelmctl_ppd() {
  if [[ $2 == --language ]]; then
    return
  elif [[ $1 == -* ]]; then
    _kelmctl_words '--language --json --help' "$1"
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
  fi
}

_kelmctl_explain() {
  case $2 in
    -o | -n | --title | -h | -U) return ;;
    --ppd | --stream | --html)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$1")
      return
      ;;
  esac
  if [[ $1 == -* ]]; then
    _kelmctl_words '--ppd -o -n --title --stream --all --changed --html --json -h -U --help' "$1"
  else
    _kelmctl_words "$(lpstat -e 2>/dev/null)" "$1"
  fi
}

_kelmctl_address() {
  if [[ $1 == -* ]]; then _kelmctl_words '--json --help' "$1"; fi
}

_kelmctl_wake() {
  case $2 in
    --mac | --address | --community | --jobs | -h | -U) return ;;
  esac
  if [[ $1 == -* ]]; then
    _kelmctl_words '--mac --address --community --over-router --jobs -h -U --help' "$1"
  else
    _kelmctl_words "$(lpstat -e 2>/dev/null)" "$1"
  fi
}

_kelmctl_printer() {
  if [[ $2 != --community && $2 != --jobs && $1 == -* ]]; then
    _kelmctl_words '--community --jobs --json --help' "$1"
  fi
}

_kelmctl_sync() {
  case $2 in
    --address | --community | --jobs | --wait | -h | -U) return ;;
  esac
  if [[ $1 == -* ]]; then
    _kelmctl_words '--all --address --community --dry-run --jobs --wait --json --quiet -h -U --help' "$1"
  else
    _kelmctl_words "$(lpstat -e 2>/dev/null)" "$1"
  fi
}

_kelmctl_refresh() {
  case $2 in
    --ppd)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$1")
      return
      ;;
    --wait | -h | -U) return ;;
  esac
  if [[ $1 == -* ]]; then
    _kelmctl_words '--all --ppd --dry-run --wait -h -U --help' "$1"
  else
    _kelmctl_words "$(lpstat -e 2>/dev/null)" "$1"
  fi
}

_kelmctl() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _kelmctl_words 'settings ppd printer sync refresh explain address wake --help --version' "$current"
  elif declare -F "_kelmctl_${COMP_WORDS[1]}" >/dev/null; then
    "_kelmctl_${COMP_WORDS[1]}" "$current" "$previous"
  fi
}

complete -F _kelmctl kelmctl
