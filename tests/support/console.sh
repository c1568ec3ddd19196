# Tests of the console companion. Sourced with the console and the sources as $1 and $2; gives a
# folder $work with the program in $app and the prefix that it sees, whose simulator is $fs.
console=$1
source=$2
work=$(mktemp -d)
trap 'umount "$work"/*/ 2>/dev/null; chmod -R u+rwX "$work" 2>/dev/null; rm -rf "$work"' EXIT
chmod 755 "$work"
app=$work/app
export HOME=$work/home WINEPREFIX=$work/prefix LC_ALL=C.UTF-8
fs="$work/prefix/drive_c/Program Files/Microsoft Games/FS2002"
export ASAN_OPTIONS=exitcode=99 UBSAN_OPTIONS=exitcode=99  # No status of the program's own.
failures=0

fail() {
  printf 'FAILED: %s\n' "$*"
  failures=$((failures + 1))
}

# expect STATUS ARGUMENT...: runs the console, by "${as_user[@]}"; its output is in $work/out and
# $work/err.
as_user=()
expect() {
  local wanted=$1 status=0
  shift
  "${as_user[@]}" "$app/panelkit-console" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
  [ "$status" = "$wanted" ] || fail "'$*' ended with $status, not $wanted: $(cat "$work/err")"
}

# complains WORDS: standard error holds WORDS.
complains() { grep -qF -- "$1" "$work/err" || fail "no word of '$1' but: $(cat "$work/err")"; }

# Runs a command as somebody whom permissions bind.
ordinary=()
[ "$(id -u)" != 0 ] || ordinary=(setpriv --reuid=65534 --regid=65534 --clear-groups)

finish() {
  [ $failures = 0 ] && echo 'All checks passed.'
  exit $((failures > 0))
}
