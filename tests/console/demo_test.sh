#!/usr/bin/env bash
# The console companion from end to end, over a copy of the demonstration simulator.
# usage: demo_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"
golden=$source/tests/golden

# same FILE FILE WHAT
same() { cmp -s "$1" "$2" || { fail "$3 differs:"; diff -a "$1" "$2" | head -n 20; }; }

# is TEXT WHAT: standard output is exactly TEXT.
is() { [ "$(cat "$work/out")" = "$1" ] || fail "$2: $(cat "$work/out")"; }

# page NAME: the golden page NAME with this test's folders in it. Pages are in Windows-1252.
page() {
  sed -e "s|{APP}|Z:${work//\//\\\\}\\\\app|g" -e 's|{SITE}|https://www.panelkit.example|g' \
    -e 's|{HOST}|www.panelkit.example|g' -e 's|{FS}|C:\\Program Files\\Microsoft Games\\FS2002|g' \
    "$golden/$1" >"$work/page"
}

fresh() {
  rm -rf "$work/app" "$work/prefix" "$work/home"
  mkdir "$work/app" "$work/home"
  cp -r "$source/demo" "$work/prefix"
  cp "$console" "$work/app/panelkit-console"
}

# The three reports, on paper and as pages.
fresh
expect 0 where
is "C:\\Program Files\\Microsoft Games\\FS2002
  on disk: $fs
  found by: Wine prefix $work/prefix (WINEPREFIX)" where
expect 1 probe
same "$golden/demo-probe.txt" "$work/out" 'the printed probe'
page demo-probe.htm
same "$work/page" "$work/app/GAUGES.HTM" 'the page of the probe'
expect 1 --format html show
same "$work/app/GAUGES.HTM" "$work/out" 'the printed page'
page demo-show.htm
same "$work/page" "$work/app/GAUGES.HTM" 'the page of all gauges'
[ "$(ls "$work/app")" = $'GAUGES.HTM\npanelkit-console' ] || fail "left behind: $(ls "$work/app")"
[ -z "$(diff -r "$source/demo" "$work/prefix")" ] || fail 'a report changed the simulator'

# Clean, its dry run before, and the way back.
rm "$work/app/GAUGES.HTM"
expect 0 clean --dry-run
is "Would move to Z:${work//\//\\}\\app\\SpareGauges:
    AuxFuel.gau
    Fenwold_Vario.gau
    LegacyAdf.gau
    Marlowe_Dart.gau
    OilTempF.gau
    Quillon_Envoy.gau
    sunbeam_autopilot.cab" 'the dry run'
[ "$(ls "$work/app")" = panelkit-console ] || fail 'the dry run wrote something'
expect 0 clean
page demo-clean.htm
same "$work/page" "$work/app/GAUGES.HTM" 'the page of Clean Gauges'
[ "$(ls "$work/app/SpareGauges" | wc -l)" = 7 ] || fail "archived: $(ls "$work/app/SpareGauges")"
expect 0 clean
[ -e "$work/app/SpareGauges/Fuel.gau" ] || fail 'the second run left Fuel.gau'
expect 0 restore auxfuel
[ -e "$fs/Gauges/AuxFuel.gau" ] || fail 'AuxFuel.gau did not come back'
expect 2 restore No_Such_Gauge
expect 0 restore
mv "$fs/Gauges/sunbeam_autopilot.cab" "$fs/Gauges/Sunbeam_Autopilot.cab"
[ -z "$(diff -r "$source/demo" "$work/prefix")" ] || fail 'restore did not bring everything back'

# The brake messages.
expect 0 brake
is 'on: the red brake messages are shown' brake
grep -aqx $'show_brake_message=1\r' "$fs/fs2002.cfg" || fail 'the setting was not added'
same "$source/demo/drive_c/Program Files/Microsoft Games/FS2002/fs2002.cfg" \
  <(head -c -2 "$work/app/Backups/FS2002.cfg") 'the backup'
expect 0 brake off
grep -aqx $'show_brake_message=0\r' "$fs/fs2002.cfg" || fail 'the setting was not switched'
page brake.htm
same "$work/page" "$work/app/BRAKES.HTM" 'the brake page'
chmod 444 "$fs/fs2002.cfg"
expect 2 brake on
complains 'cannot be written'
expect 2 brake sideways

# Cabinets.
cab="$fs/Gauges/NorthStar_Radios.cab"
expect 0 cab count "$cab"
is "$(cabextract -l "$cab" | grep -c ' | ' | awk '{print $1 - 1}')" 'the number of entries'
expect 0 cab extract "$cab" --output-path "$work/out dir/deep"
cabextract -q -d "$work/reference" "$cab"
diff -r "$work/reference" "$work/out dir/deep" >/dev/null || fail 'extracted otherwise'
expect 2 cab count "$fs/Gauges/Jarrowby_Overhead.cab"
complains 'Invalid data. (error 13)'
expect 2 cab list "$cab" No_Such_Entry
expect 2 cab xml "$work/none.cab"
complains 'The system cannot find the file specified. (error 2)'

# What a user would do wrong.
expect 2 probe --simulator "$work/nowhere"
complains 'is not there'
expect 2 frobnicate
expect 0 --version
is 'panelkit-console 1.10' version
(cd "$fs" && exec "$work/app/panelkit-console" probe --simulator . >"$work/out") ||
  same "$golden/demo-probe.txt" "$work/out" 'the probe by a relative path'
sed -i '20,$d' "$work/prefix/system.reg"
head -c 100000 /dev/urandom >>"$work/prefix/system.reg"
"$work/app/panelkit-console" where >"$work/out" 2>&1
[ $? -le 2 ] || fail 'a hive full of noise'
rm "$work/prefix/system.reg"
expect 2 probe
complains 'No simulator is registered'
WINEPREFIX=$work/none expect 2 where

# A program folder that an ordinary user cannot write to.
fresh
chmod -R a+rX "$work/prefix" "$work/app"
chmod 777 "$work"
chmod 555 "$work/app"
as_user=("${ordinary[@]}")
expect 2 probe
complains "GAUGES.HTM could not be written in the program's folder."
[ "$(ls "$work/app")" = panelkit-console ] || fail 'something was written all the same'

finish
