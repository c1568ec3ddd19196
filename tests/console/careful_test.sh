#!/usr/bin/env bash
# The demonstration's unusual panels, which name gauges in ways that the reports do not read, one aircraft
# a way: what the commands say of them, and what Clean leaves and brings back.
# usage: careful_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"

# says FILE <<TEXT: the file in $work holds this text.
says() { diff -a - "$work/$1" || fail "$1 differs"; }

rm -r "${fs:?}"
mv "$WINEPREFIX/drive_c/Unusual Panels" "$fs"

expect 0 probe
complains 'Files that panels name in another way, which --careful lists: 6.'
cp "$work/out" "$work/probe"
expect 0 show
cp "$work/out" "$work/show"
cat >"$work/section" <<'TEXT'

FILES THAT PANELS NAME IN ANOTHER WAY: 6
    Blank_Fuel
        Blank_Fuel for Blank line: Aircraft\Blank line\Panel\panel.cfg, line 5
    Extra_Flap *** MISSING ***
        Extra_Flap for Extra window: Aircraft\Extra window\Panel\panel.cfg, line 6
    Indent_Clock
        Indent_Clock for Indented: Aircraft\Indented\Panel\panel.cfg, line 5
    Last_Speed
        Last_Speed!needle for Titles last: Aircraft\Titles last\Panel\panel.cfg, line 2
    Untitled_Horizon *** MISSING ***
        Untitled_Horizon for Untitled: Aircraft\Untitled\Panel\panel.cfg, line 2
    Variant_Map *** MISSING ***
        Variant_Map for Variant: Aircraft\Variant\Panel.vfr\panel.cfg, line 3
TEXT
echo 'No gauge is missing.' >"$work/find"
for command in probe show find; do
  folder=()
  [ $command != find ] || folder=("$work/home")
  expect 0 $command "${folder[@]}" --careful
  [ ! -s "$work/err" ] || fail "$command: $(cat "$work/err")"
  cat "$work/$command" "$work/section" | says out
done
expect 0 probe --hints
{
  cat "$work/probe"
  printf '\nPresent only because a longer name holds theirs:\n    Long in Longer (aircraft: 1)\n'
} | says out

# Clean takes Longer too: by its rule a key must occur in the name, not the name in the key.
expect 0 clean --dry-run
says err <<'TEXT'
panelkit-console: Blank_Fuel.gau is named for Blank line in Aircraft\Blank line\Panel\panel.cfg, line 5: clean --careful leaves it in Gauges.
panelkit-console: indent_clock.gau is named for Indented in Aircraft\Indented\Panel\panel.cfg, line 5: clean --careful leaves it in Gauges.
panelkit-console: LAST_SPEED.gau is named for Titles last in Aircraft\Titles last\Panel\panel.cfg, line 2: clean --careful leaves it in Gauges.
TEXT
expect 0 clean --dry-run --careful
[ ! -s "$work/err" ] || fail "the careful dry run: $(cat "$work/err")"
expect 0 clean
says err <<'TEXT'
panelkit-console: Done - 3 of the moved files are named by panels in another way
panelkit-console: Blank_Fuel.gau is named for Blank line in Aircraft\Blank line\Panel\panel.cfg, line 5: panelkit-console restore Blank_Fuel.gau brings it back.
panelkit-console: indent_clock.gau is named for Indented in Aircraft\Indented\Panel\panel.cfg, line 5: panelkit-console restore indent_clock.gau brings it back.
panelkit-console: LAST_SPEED.gau is named for Titles last in Aircraft\Titles last\Panel\panel.cfg, line 2: panelkit-console restore LAST_SPEED.gau brings it back.
TEXT
holds "$gauges" Plain.gau
expect 1 probe --hints
grep -qF 'SpareGauges has Longer.gau, whose name holds this one: panelkit-console restore Longer.gau' "$work/out" || fail 'no word of Longer'
expect 0 restore --list
[ "$(grep -c ' from /.*/Gauges, 20..-.* UTC$' "$work/out")" = 6 ] || fail "the list: $(cat "$work/out")"
expect 0 restore
expect 0 clean --careful
[ ! -s "$work/err" ] || fail "the careful run: $(cat "$work/err")"
holds "$gauges" Blank_Fuel.gau LAST_SPEED.gau Plain.gau indent_clock.gau

# The same as JSON, whole, one line a command; also of a Clean whose folder and one of whose panels are closed to
# the user, of one that Ctrl-C ends, and of a restore that finds a name taken, none, and another simulator's.
# json STATUS ARGUMENT...: with the test's folder as W and times as T.
json() {
  expect "$@" --format json
  jq -c . "$work/out" | sed -E -e "s|$work\|Z:${work//\//\\\\\\\\}|W|g" -e 's/"20[0-9-]{8}.[0-9:]{8}[^"]*"/"T"/g' >>"$work/json"
}
expect 0 restore
rm -r "$app/SpareGauges.txt"
json 0 probe --careful --hints
json 0 clean --dry-run
echo theirs >"$gauges/Held.gau"
if works strace -o /dev/null true; then
  chmod -R a+rwX "$work"
  as_user=("${ordinary[@]}")
  chmod a-w "$gauges"
  chmod 0 "$fs/Aircraft/Untitled/Panel/panel.cfg"
  json 2 clean
  chmod a+w "$gauges"
  chmod a+r "$fs/Aircraft/Untitled/Panel/panel.cfg"
  ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0
  as_user=(strace -qq -o /dev/null -e 'inject=rename,renameat2:signal=INT:when=3')
  json 130 clean
  as_user=()
  json 0 clean
  json 1 probe --hints
  sed -i -e 's|[^	]*	Held.gau|/elsewhere	HELD.gau|' -e /Comment/d "$app/SpareGauges.txt"
  json 0 restore --list
  echo >"$gauges/Idle.gau"
  json 2 restore '*' Gone
  diff "$source/tests/golden/careful-json.txt" "$work/json" || fail 'the JSON'
fi
finish
