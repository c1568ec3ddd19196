#!/usr/bin/env bash
# The manual page, the completions and README name each command and each option that --help names, and the
# manual page no other; the completion for bash offers them.
# usage: documents_test.sh CONSOLE SOURCE_DIR [WINDOW]
set -euo pipefail
documents=$2/packaging/Linux
readme=$2/README.md
failures=0

fail() {
  printf 'FAILED: %s\n' "$*"
  failures=$((failures + 1))
}

# helped WORD...: the help of this command.
helped() { "$program" "$@" --help; }
commands() { helped "$@" | awk '/^Subcommands:/ { on = 1; next } /^[^ ]/ { on = 0 } on && /^  [a-z]/ { print $1 }'; }
options() { helped "$@" | grep -oE '^ +-.*' | grep -oE '^ +(-[a-z], *)?--[a-z-]+' | grep -oE -- '--[a-z-]+'; }

# plain FILE: its text with the escapes of manual pages undone.
plain() { sed 's/\\-/-/g; s/\\f[A-Z]//g' "$1"; }

# named WORD FILE: the word stands in the file by itself, or as an option of fish.
named() {
  grep -qE -- "(^|[^a-z-])$1([^a-z-]|\$)" <(plain "$2") ||
    { [ "${2##*.}" = fish ] && grep -qE -- "-l ${1#--}( |\$)" "$2"; } || fail "$2 has no word of $1"
}

# offered WORD LINE...: the completion for bash offers the word at the end of the line.
offered() {
  COMP_WORDS=("${@:2}" '')
  COMP_CWORD=$(($# - 1))
  "_${COMP_WORDS[0]/-/_}"
  [[ " ${COMPREPLY[*]} " == *" $1 "* ]] || fail "bash offers no $1 behind '${*:2}'"
}
compopt() { :; }

# documented PROGRAM: what the program's help names, and its manual page names no other.
documented() {
  program=$1
  local name=${program##*/} all=() command words word file
  # shellcheck source=/dev/null
  . "$documents/$name.bash"
  while read -r -a command; do
    mapfile -t words < <(commands "${command[@]}"; options "${command[@]}")
    [ ${#words[@]} -gt 0 ] || fail "nothing in the help of '$name ${command[*]}'"
    for word in "${words[@]}"; do
      for file in "$documents/$name".{1,bash,zsh,fish}; do named "$word" "$file"; done
      case $word in --help | --version) ;; *) named "$word" "$readme" ;; esac
      offered "$word" "$name" "${command[@]}"
    done
    all+=("${words[@]}")
  done < <(
    echo
    commands
    commands cab | sed 's/^/cab /'
  )
  plain "$documents/$name.1" | grep -oE -- '--[a-z-]+' | sort -u |
    comm -23 - <(printf '%s\n' "${all[@]}" | sort -u) | { ! grep .; } || fail 'named in the manual page alone'
}
for each in "$1" "${@:3}"; do documented "$each"; done

offered json panelkit-console probe --format =
XDG_DATA_HOME=$(mktemp -d)
export XDG_DATA_HOME
mkdir -p "$XDG_DATA_HOME/panelkit/SpareGauges"
touch "$XDG_DATA_HOME/panelkit/SpareGauges/Old gauge.gau"
offered 'Old gauge.gau' panelkit-console restore
rm -r "$XDG_DATA_HOME"
[ $failures = 0 ]
