# Tests of the console companion. Sourced with the console and the sources as $1 and $2; gives a
# folder $work with the program in $app and the prefix that it sees, whose simulator is $fs. A test
# ends with `finish`.
console=$1
source=$2
work=$(mktemp -d)
trap 'umount "$work"/*/ 2>/dev/null; chmod -R u+rwX "$work" 2>/dev/null; rm -rf "$work"' EXIT
chmod 755 "$work"
umask 022
app=$work/app
export HOME=$work/home WINEPREFIX=$work/prefix LC_ALL=C.UTF-8
fs="$work/prefix/drive_c/Program Files/Microsoft Games/FS2002"
gauges=$fs/Gauges
spare=$app/SpareGauges
export ASAN_OPTIONS=exitcode=99 UBSAN_OPTIONS=exitcode=99  # No status of the program's own.
failures=0
left_out=0

fail() {
  printf 'FAILED: %s\n' "$*"
  failures=$((failures + 1))
}

# works COMMAND...: whether this helper of a test works here. Where it does not, the test leaves a part out.
works() {
  "$@" >/dev/null 2>&1 || {
    echo "Left out: what needs $1."
    left_out=77
    return 1
  }
}

# finish: ends the test, with 77 where it failed nowhere but left something out.
finish() {
  [ $failures = 0 ] || exit 1
  exit $left_out
}

# fresh: the program and the demonstration simulator as they are delivered, for any user to read.
fresh() {
  chmod -R u+rwX "$work"
  rm -rf "$app" "$WINEPREFIX"
  install -D "$console" "$app/panelkit-console"
  cp -r --no-preserve=mode "$source/demo" "$WINEPREFIX"
  as_user=()
}

# expect STATUS ARGUMENT...: runs the console, by "${as_user[@]}"; its output is in $work/out and
# $work/err.
expect() {
  local wanted=$1 status=0
  shift
  "${as_user[@]}" "$app/panelkit-console" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
  [ "$status" = "$wanted" ] || fail "'$*' ended with $status, not $wanted: $(cat "$work/err")"
}

# complains WORDS: standard error holds WORDS.
complains() { grep -qF -- "$1" "$work/err" || fail "no word of '$1' but: $(cat "$work/err")"; }

# holds FOLDER NAME...: it holds these entries alone.
holds() { [ "$(ls "$1")" = "$(printf '%s\n' "${@:2}")" ] || fail "in $1: $(ls "$1" | head)"; }

# sums FOLDER... [CONDITION...]: content and name of each file in them, hidden ones too, that meets
# the conditions of find.
sums() { find "$@" -type f -exec sha256sum {} + | sed -E 's|  .*/|  |' | sort; }

# Runs a command as somebody whom permissions bind.
ordinary=()
[ "$(id -u)" != 0 ] || ordinary=(setpriv --reuid=65534 --regid=65534 --clear-groups)

mkdir "$HOME"
fresh
