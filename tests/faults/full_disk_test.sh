#!/usr/bin/env bash
# Fills the disk under the console companion: it says so, and what was whole stays whole.
# usage: full_disk_test.sh CONSOLE SOURCE_DIR
set -u
# Mounts are seen by this process alone, and go with it.
own='unshare --mount'
[ "$(id -u)" = 0 ] || own+=' --map-root-user'
if [ -z "${IN_OWN_MOUNTS-}" ]; then
  $own true && IN_OWN_MOUNTS=1 exec $own "$0" "$@"
  echo 'Left out: this user may not mount a small disk.'
  exit 77
fi
. "$2/tests/support/console.sh"

# small_disk FOLDER KIB: a disk of its own for FOLDER. fill FOLDER: leaves no room in it.
small_disk() { mkdir -p "$1" && mount -t tmpfs -o size="$2k" none "$1"; }
fill() { head -c 1M /dev/zero >"$1/filling" 2>/dev/null; }

# contents FOLDER...: each file in them but the filling, and the ledger, which may end anywhere.
contents() { sums "$@" ! -name filling ! -name SpareGauges.txt; }

rm -r "${gauges:?}"/*
for i in {1..9}; do head -c 20000 /dev/urandom >"$gauges/spare_$i.gau"; done
all=$(contents "$gauges")
(cd "$gauges" && gcab -c "$work/x.cab" *)
cp "$fs/fs2002.cfg" "$work"
small_disk "$app" $(($(stat -c %s "$console") / 1024 + 200))
cp "$console" "$app"
expect 1 probe

fill "$app"
before=$(contents "$app" "$gauges")
expect 2 clean
complains 'files that stayed in Gauges: 9'
[ "$(contents "$app" "$gauges")" = "$before" ] || fail 'moved, half a page, or half a copy'

truncate -s -100K "$app/filling"
expect 2 clean
complains 'files that stayed in Gauges: '
[ -n "$(ls "$spare")" ] || fail 'no gauge fitted'
[ "$(contents "$gauges" "$spare")" = "$all" ] || fail 'a gauge is lost, double or half'

# Without room for the backup the setting is added all the same, to the whole file.
fill "$app"
expect 0 brake off
complains 'without a backup: the disk is full'
[ ! -e "$app/Backups/FS2002.cfg" ] || fail 'half a backup'
diff <(sed 's/^SYSCLOCK.*/&\nshow_brake_message=0\r/I' "$work/fs2002.cfg"; printf '\r\n\r\n') \
  "$fs/fs2002.cfg" || fail 'edited otherwise'

# Without room for the configuration it stays as it was.
small_disk "$work/full" 100
cp "$work/fs2002.cfg" "$work/full"
fill "$work/full"
expect 2 brake off --simulator "$work/full"
complains 'the disk is full'
[ "$(contents "$work/full")" = "$(sums "$work/fs2002.cfg")" ] || fail 'the configuration changed'

small_disk "$work/unpacked" 100
expect 2 cab extract "$work/x.cab" --output-path "$work/unpacked"
complains 'There is not enough space on the disk. (error 112)'
[ -z "$(comm -13 <(echo "$all") <(sums "$work/unpacked"))" ] || fail 'half a file'
mapfile -t written < <(sed 's|.*/||' "$work/out")
holds "$work/unpacked" "${written[@]}"
# A disk that is write-protected: no file on it changes.
before=$(contents "$work/full" "$work/unpacked")
mount -o remount,ro "$work/full"
mount -o remount,ro "$work/unpacked"
expect 2 brake off --simulator "$work/full"
complains 'it is read-only'
expect 2 cab extract "$work/x.cab" --output-path "$work/unpacked"
complains '(error 19)'
[ "$(contents "$work/full" "$work/unpacked")" = "$before" ] || fail 'a write-protected file changed'
finish
