#!/usr/bin/env bash
# Fills the disk under the console companion: it says so, and what was whole stays whole.
# usage: full_disk_test.sh CONSOLE SOURCE_DIR
set -u
# Mounts are seen by this process alone, and go with it.
own=(unshare --mount)
[ "$(id -u)" = 0 ] || own+=(--map-root-user)
if [ -z "${IN_OWN_MOUNTS-}" ] && "${own[@]}" true; then
  IN_OWN_MOUNTS=1 exec "${own[@]}" "$0" "$@"
elif [ -z "${IN_OWN_MOUNTS-}" ]; then
  echo 'Left out: this user may not mount a small disk.'
  exit 0
fi
. "$2/tests/support/console.sh"
demo="$source/demo/drive_c/Program Files/Microsoft Games/FS2002"

# small_disk FOLDER KIB: a disk of its own for FOLDER. fill FOLDER: leaves no room in it.
small_disk() { mkdir -p "$1" && mount -t tmpfs -o size="$2k" none "$1"; }
fill() { head -c 1M /dev/zero >"$1/filling" 2>/dev/null; }

# contents FOLDER...: each file in them but the filling, hidden ones too.
contents() { find "$@" -type f ! -name filling -exec sha256sum {} + | sed 's|/.*/||' | sort; }

mkdir -p "$HOME" "$fs"
cp -r "$demo/." "$fs"
cp "$source/demo/system.reg" "$work/prefix"
rm "$fs/Gauges"/*
for i in {1..9}; do head -c 20000 /dev/urandom >"$fs/Gauges/spare_$i.gau"; done
all=$(contents "$fs/Gauges")
small_disk "$app" $(($(stat -c %s "$console") / 1024 + 200))
cp "$console" "$app"
expect 1 probe

fill "$app"
before=$(contents "$app")
expect 2 probe
complains "GAUGES.HTM could not be written in the program's folder."
expect 2 clean
[ "$(contents "$app")" = "$before" ] || fail 'a page on a full disk changed the folder'
[ "$(contents "$fs/Gauges")" = "$all" ] || fail 'moved without a page'

truncate -s -100K "$app/filling"
expect 2 clean
complains 'files that stayed in Gauges: '
moved=$(ls "$app/SpareGauges" | wc -l)
[ "$moved" -gt 0 ] && [ "$moved" -lt 9 ] || fail "$moved gauges fitted"
[ "$(contents "$fs/Gauges" "$app/SpareGauges")" = "$all" ] || fail 'a gauge is lost, double or half'

# Without room for the backup the setting is added all the same, to the whole file.
fill "$app"
expect 2 brake off
complains 'BRAKES.HTM could not be written'
[ ! -e "$app/Backups/FS2002.cfg" ] || fail 'half a backup'
diff <(cat "$demo/fs2002.cfg"; printf '\r\n\r\n') "$fs/fs2002.cfg" >"$work/out"
[ "$(tail -n +2 "$work/out")" = $'> show_brake_message=0\r' ] || fail "edited: $(cat "$work/out")"
umount "$app"
cp "$console" "$app"

# Without room for the configuration it stays as it was.
mkdir "$work/full"
small_disk "$work/full" 100
cp "$demo/fs2002.cfg" "$work/full"
fill "$work/full"
expect 2 brake off --simulator "$work/full"
complains 'cannot be written'
[ "$(contents "$work/full")" = "$(contents "$demo/fs2002.cfg")" ] || fail 'the configuration changed'
cmp -s "$app/Backups/FS2002.cfg" <(cat "$demo/fs2002.cfg"; printf '\r\n') || fail 'no backup'

mkdir "$work/in"
for i in {1..9}; do head -c 20000 /dev/urandom >"$work/in/$i.xml"; done
(cd "$work/in" && gcab -c ../x.cab *.xml)
small_disk "$work/unpacked" 100
expect 2 cab extract "$work/x.cab" --output-path "$work/unpacked"
complains 'There is not enough space on the disk. (error 112)'
[ "$(contents "$work/unpacked")" = "$(cd "$work/in" && contents $(sed 's|.*/||' "$work/out"))" ] ||
  fail 'half a file, or one that was not told'
finish
