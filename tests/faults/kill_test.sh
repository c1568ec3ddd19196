#!/usr/bin/env bash
# Kills the console companion at many moments: nothing is lost, and nothing stands half written
# under its name.
# usage: kill_test.sh CONSOLE SOURCE_DIR [ROUNDS [KILLER...]], how often each command is killed at a
# random moment, and for a console of Windows the commands that run it and end it early
set -u
rounds=${3:-9}
killers=("${@:4}")
. "$2/tests/support/console.sh"
unpacked=$work/unpacked
config=$fs/fs2002.cfg
# Not what a killed run was writing, or was about to replace.
written=(! -name '.panelkit-*' ! -name 'panelkit.moving*' ! -name '*.panelkit-older')

# At random moments of the first 12 milliseconds, and before each of the first changes to the disk that a
# command makes.
ways=()
for ((i = 0; i < rounds; i++)); do
  ways+=("timeout -s KILL $(printf 0.%05d $((RANDOM % 1200 + 1)))")
done
ways+=("${killers[@]}")
changes=(write pwrite64 ftruncate rename unlink mkdir fsync)
traced=0
[ ${#killers[@]} != 0 ] || ! works strace -o /dev/null true || traced=1

# before_changes ARGUMENT...: ways that kill the command before the first eight of each of its changes
before_changes() {
  local change number
  prepare
  strace -qq -o "$work/made" -e trace="$(IFS=, && echo "${changes[*]}")" \
    "${as_user[@]}" "$app/panelkit-console" "$@" >"$work/out" 2>&1
  for change in "${changes[@]}"; do
    for ((number = 1; number <= 8 && number <= $(grep -c "^$change(" "$work/made"); number++)); do
      echo "strace -qq -o /dev/null -e inject=$change:signal=KILL:when=$number"
    done
  done
}

# killed CHECK ARGUMENT...: for each way, prepares, runs the command, kills it, and runs CHECK.
killed() {
  local cut=0 certain=() status
  expect 0 "${@:2}"
  ((traced)) && mapfile -t certain < <(before_changes "${@:2}")
  for way in "${ways[@]}" "${certain[@]}"; do
    prepare
    $way "${as_user[@]}" "$app/panelkit-console" "${@:2}" >"$work/out" 2>&1
    status=$?
    [ $status != 137 ] || cut=$((cut + 1))
    $1 || fail "${*:2}, killed by $way"
    # Where it has come to its end, it makes no later change either.
    [ $status = 137 ] || [ ${#killers[@]} = 0 ] || break
  done 2>/dev/null
  [ $cut -gt 9 ] || [ $left_out != 0 ] || fail "${*:2}: only $cut runs were cut short"
}

rm -r "${fs:?}/Aircraft"/* "${gauges:?}"/*
for i in {1..25}; do head -c $((RANDOM * 9)) /dev/urandom >"$gauges/gauge $i.gau"; done
chmod 444 "$gauges/gauge 1.gau"
cp "$source/demo/drive_c/Program Files/Microsoft Games/FS2002/Gauges/SKERRY.CAB" "$gauges/s.cab"
all=$(sums "$gauges")
# All gauges are there, and the ledger knows of each one in the archive.
nothing_lost() {
  [ "$(sums "$gauges" "$spare" "${written[@]}" | uniq)" = "$all" ] &&
    [ -z "$(comm -13 <(tr -d '\r' <"$app/SpareGauges.txt" 2>/dev/null | cut -f3 | sort) \
      <(cd "$spare" && find . -type f "${written[@]}" -printf '%P\n' | sort))" ]
}
prepare() {
  "$app/panelkit-console" restore >"$work/out" 2>&1
  rm -rf "$app/SpareGauges.txt" "$spare"
}
killed nothing_lost clean
expect 0 clean
expect 0 restore
[ "$(sums "$gauges")" = "$all" ] && [ -z "$(ls -A "$spare")" ] || fail 'restore did not end it'
prepare() { "$app/panelkit-console" clean >"$work/out" 2>&1; }
killed nothing_lost restore
expect 0 clean
[ -z "$(ls -A "$gauges")" ] || fail "left behind: $(ls -A "$gauges")"

# As it was, with the setting added, and with it switched: these files are whole, and so are the
# backup and the entries of a cabinet.
{ echo SYSCLOCK=1; seq -f 'setting_%06.0f=as it was' 30000; } | sed 's/$/\r/' >"$work/old"
prepare() { cp "$work/old" "$config"; rm -rf "$app/Backups"; }
# shellcheck disable=SC2218 # It is defined for each part.
prepare
for state in where brake 'brake off'; do
  expect 0 $state
  install -D "$config" "$work/whole/$state/fs2002.cfg"
done
cp "$app/Backups/FS2002.cfg" "$work/whole"
for i in {1..20}; do head -c $((RANDOM * 9)) "$work/old" >"$work/whole/$i.xml"; done
(cd "$work/whole" && gcab -cz ../packed.cab *.xml)
only_whole() {
  sums "$config" "$app/Backups" "$unpacked" "${written[@]}" >"$work/found"
  grep -q ' fs2002.cfg$' "$work/found" && [ -z "$(comm -13 <(sums "$work/whole") "$work/found")" ]
}
# The next run removes what these left half written.
tidied() {
  expect 0 "$@"
  [ -z "$(find "$work" -name '.panelkit-*')" ] || fail "$*: $(find "$work" -name '.panelkit-*')"
}
killed only_whole brake off
# shellcheck disable=SC2218 # It is the one above.
prepare
tidied brake off
# Also where the killed run's parent does not wait for it, so that its process number stays in use.
if ((traced)); then
  prepare
  sh -c '"$@" & echo $! >"$0"; exec sleep 1000' "$work/killed" strace -D -qq -o /dev/null \
    -e inject=rename:signal=KILL "$app/panelkit-console" brake off &
  parent=$!
  until grep -qs '^State:.Z' "/proc/$(cat "$work/killed" 2>/dev/null)/status"; do sleep 0.01; done
  [ -n "$(find "$work" -name '.panelkit-*')" ] || fail 'nothing was left half written'
  tidied brake off
  { kill $parent && wait $parent; } 2>/dev/null
fi
prepare() { rm -rf "$unpacked/1.xml"; }
killed only_whole cab extract "$work/packed.cab" --output-path "$unpacked"
tidied cab extract "$work/packed.cab" --output-path "$unpacked"

# An archived gauge gives way to the newer one of its name only when that one has left Gauges.
rm -rf "${gauges:?}"/*
prepare() {
  rm -rf "$spare"
  install -D "$work/older" "$spare/1.gau"
  cp "$work/newer" "$gauges/1.gau"
}
echo older | tee "$work/older" >"$work/1.gau"
echo newer >"$work/newer"
none_lost() {
  if [ -e "$gauges/1.gau" ]; then
    cmp -s "$work/newer" "$gauges/1.gau" && cat "$spare"/1.gau* "$spare"/Older/1.gau* | grep -q older ||
      return 1
  fi
  expect 0 clean
  holds "$spare" 1.gau Older
  cmp -s "$work/newer" "$spare/1.gau" && cmp -s "$work/older" "$spare/Older"/1.gau.* && holds "$gauges"
}
killed none_lost clean
prepare() {
  rm -rf "$spare" "${gauges:?}"/*
  for i in {1..4}; do install -D "$work/older" "$spare/Older/$i.gau.2026-01-01 00.00.00"; done
}
older_back() {
  for i in {1..4}; do cat "$gauges/$i.gau" "$spare/Older/$i.gau."* 2>/dev/null | sort -u | cmp -s - "$work/older" || return 1; done
}
# shellcheck disable=SC2218 # It is the one above.
prepare
killed older_back restore --older {1..4}

# A configuration whose folder takes no new file, or that cannot be replaced, is rewritten in place;
# the next run that reads it makes it whole.
chmod -R a+rwX "$app" "$HOME"
prepare() {
  cat "$work/old" >"$config"
  rm -rf "$app/Backups"
}
prepare
chmod 666 "$config"
as_user=(env PANELKIT_KEEPS=fs2002.cfg)
options=()
if [ ${#killers[@]} = 0 ]; then
  as_user=("${ordinary[@]}")
  options=(--prefix "$WINEPREFIX")
  chmod a-w "$fs"
fi
made_whole() {
  expect 0 "${options[@]}" brake
  only_whole && [ -z "$(find "$work" -name '*.rewrite')" ]
}
killed made_whole brake off

# Half a file is made whole. What another program has written since stays as it is, and the record
# goes with the next rewrite.
halve() {
  printf 'show_brake_message=1, and more than the new line\r\n' >"$config"
  strace -qq -o /dev/null -e inject=ftruncate:signal=KILL \
    "${as_user[@]}" "$app/panelkit-console" brake off
  grep -q '=0' "$config" && grep -q 'new line' "$config" ||
    fail "no half file to begin with: $(cat "$config")"
}
# leaves CONTENT RECORDS: the next run leaves the file and so many records so.
leaves() {
  expect 0 "${options[@]}" brake
  [ "$(cat "$config")" = "$1" ] || fail "not $1 but $(cat "$config")"
  [ "$(find "$work" -name '*.rewrite' | wc -l)" = "$2" ] || fail "not $2 records beside $1"
}
if ((traced)); then
  halve
  leaves $'show_brake_message=0\r\n\r' 0
  halve
  printf 'show_brake_message=1\r\n' >"$config"
  leaves $'show_brake_message=1\r' 1
  expect 0 brake off
  leaves $'show_brake_message=0\r\n\r' 0
fi 2>/dev/null
[ $failures = 0 ]
