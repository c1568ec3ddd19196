#!/usr/bin/env bash
# Kills the console companion at random moments: nothing is lost, and nothing stands half written
# under its name.
# usage: kill_test.sh CONSOLE SOURCE_DIR [ROUNDS [SEED]]
set -u
. "$2/tests/support/console.sh"
rounds=${3:-20}
seed=${4:-$RANDOM}
RANDOM=$seed
changes='write pwrite64 rename unlink mkdir fsync'
strace -o /dev/null true || { echo 'Left out: kills before each change (strace).' && changes=; }
gauges=$fs/Gauges
spare=$app/SpareGauges
unpacked=$work/unpacked
config=$fs/fs2002.cfg
backup=$app/Backups/FS2002.cfg

# sums FOLDER...: content and name of each file in them, without what a killed run was writing.
sums() {
  find "$@" -type f ! -name '.panelkit-*' ! -name panelkit.moving -exec sha256sum {} + |
    sed -E 's|  .*/|  |' | sort -u
}

# killed CHECK ARGUMENT...: in each round, prepares and runs the command and kills it, at a random
# moment of what a whole run takes, then before each of its first changes to the disk; runs CHECK
# each time.
killed() {
  local check=$1 start=${EPOCHREALTIME/./} took moment cut=0
  shift
  expect 0 "$@"
  took=$((${EPOCHREALTIME/./} - start))
  for ((round = 0; round < rounds; ++round)); do
    prepare
    "$app/panelkit-console" "$@" >"$work/out" 2>&1 </dev/null &
    moment=$(((RANDOM * 32768 + RANDOM) % took))
    sleep $((moment / 1000000)).$(printf %06d $((moment % 1000000)))
    { kill -9 $! && wait $!; } 2>/dev/null
    [ $? != 137 ] || cut=$((cut + 1))
    $check || fail "$*: round $round of seed $seed"
  done
  echo "$*: $cut of $rounds runs were cut short"
  [ $cut -gt 0 ] || fail 'every kill came too late'
  cut=0
  for change in $changes; do
    for nth in {1..8}; do
      prepare
      strace -qq -o /dev/null -e trace=$change -e inject=$change:signal=KILL:when=$nth \
        "$app/panelkit-console" "$@" >"$work/out" 2>&1 </dev/null
      [ $? = 137 ] || break
      cut=$((cut + 1))
      $check || fail "$*: before $change number $nth"
    done
  done 2>/dev/null
  echo "$*: cut short before $cut changes"
  [ $cut -gt 9 ] || [ -z "$changes" ] || fail 'too few changes'
}

mkdir -p "$HOME" "$gauges" "$fs/Aircraft" "$app" "$work/in"
cp "$console" "$app"
cp "$source/demo/system.reg" "$work/prefix"
for i in {1..25}; do head -c $((RANDOM * 9)) /dev/urandom >"$gauges/gauge $i.gau"; done
chmod 444 "$gauges/gauge 7.gau"
cp "$source/demo/drive_c/Program Files/Microsoft Games/FS2002/Gauges/SKERRY.CAB" "$gauges/s.cab"
all=$(sums "$gauges")
nothing_lost() { [ "$(sums "$gauges" "$spare")" = "$all" ]; }
prepare() { "$app/panelkit-console" restore >"$work/out" 2>&1; }
killed nothing_lost clean
prepare() { "$app/panelkit-console" clean >"$work/out" 2>&1; }
killed nothing_lost restore
prepare
[ -z "$(ls -A "$gauges")" ] || fail "left behind: $(ls -A "$gauges")"
expect 0 restore
[ "$(sums "$gauges")" = "$all" ] && [ -z "$(ls -A "$spare")" ] || fail 'restore did not end it'

{ echo SYSCLOCK=1; seq -f 'setting_%06.0f=as it was' 30000; } | sed 's/$/\r/' >"$work/old"
prepare() { cp "$work/old" "$config"; rm -rf "$app/Backups"; }
prepare
expect 0 brake
cp "$config" "$work/added"
expect 0 brake off
cp "$config" "$work/set"
cp "$backup" "$work/backup"
prepare
old_or_new() {
  if [ -e "$backup" ]; then
    cmp -s "$backup" "$work/backup" && { cmp -s "$config" "$work/old" ||
      cmp -s "$config" "$work/added" || cmp -s "$config" "$work/set"; }
  else
    cmp -s "$config" "$work/old"
  fi
}
killed old_or_new brake off

for i in {1..20}; do head -c $((RANDOM * 9)) "$work/old" >"$work/in/$i.xml"; done
(cd "$work/in" && gcab -cz ../packed.cab *.xml)
prepare() { rm -rf "$unpacked"; }
only_whole() { [ -z "$(comm -13 <(sums "$work/in") <(sums "$unpacked" 2>/dev/null))" ]; }
killed only_whole cab extract "$work/packed.cab" --output-path "$unpacked"
expect 0 cab extract "$work/packed.cab" --output-path "$unpacked"
[ "$(sums "$unpacked")" = "$(sums "$work/in")" ] || fail 'extracted otherwise'
finish
