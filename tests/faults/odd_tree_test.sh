#!/usr/bin/env bash
# Trees that no installer makes: the console companion comes to its end and keeps every file.
# usage: odd_tree_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"
aircraft=$fs/Aircraft

# A simulator with a needed gauge and a spare one.
small() {
  fresh
  chmod 777 "$app"
  rm -r "${aircraft:?}"/* "${gauges:?}"/*
  panel plain good
  echo 'gauge good' >"$gauges/good.gau"
  echo 'gauge spare' >"$gauges/spare.gau"
}

# panel AIRCRAFT ENTRY...: writes its panel.
panel() {
  mkdir -p "$aircraft/$1/Panel"
  { printf '[Window Titles]\r\nWindow00=Main\r\n\r\n[Window00]\r\n'
    printf 'gauge00=%s,1,1\r\n' "${@:2}"; } >"$aircraft/$1/Panel/panel.cfg"
}

# Panels that cannot be read, and links that lead nowhere or back up, stop no one.
small
mkdir -p "$aircraft/folder/Panel/panel.cfg" "$aircraft"/{pipe,long,ring}/Panel
mkfifo "$aircraft/pipe/Panel/panel.cfg"
head -c 100M /dev/zero | tr '\0' g >"$aircraft/long/Panel/panel.cfg"
ln -s panel.cfg "$aircraft/ring/Panel/panel.cfg"
ln -s loop "$aircraft/loop"
ln -s loop.gau "$gauges/loop.gau"
ln -s .. "$aircraft/up"
ln -s ../.. "$aircraft/Panel"
panel closed hidden
panel shut hidden
chmod 0 "$aircraft"/{closed/Panel/panel.cfg,shut/Panel}
# Nor do thousands of entries, the longest names, and names that no code page holds. Names that are
# no text stay.
longest=$(printf 'n%.0s' {1..250})
mkdir "$aircraft/plane "{1..3000}
# shellcheck disable=SC1083 # The braces make names.
touch "$gauges/gauge "{1..3000}.gau "$gauges"/{a$longest,b$longest,$'\u6F22\u5B57',$'\xFF'}.gau
panel $'\u6F22\u5B57' 'gauge '{1..3000} 'missing '{1..3000}
panel "$longest.AIRS" "a$longest!x"
chmod 777 "$gauges"
as_user=("${ordinary[@]}" timeout 600)
expect 1 show
[ "$(grep -acE '^AIRCRAFT:| MISSING ' "$work/out")" = 3003 ] || fail 'not 3 aircraft, 3000 missing'
expect 0 clean
holds "$spare" "b$longest.gau" spare.gau $'\u6F22\u5B57.gau'
expect 0 restore
holds "$spare"
[ "$(ls "$gauges" | wc -l)" = 3007 ] || fail 'a gauge is lost'

# Long paths work; one that a cabinet's walk cannot name is an error and leaves no file.
small
deep=$work/prefix/$(printf 'd%.0s' {1..200})/$(printf 'e%.0s' {1..200})
mkdir -p "$deep"
cp -r "$fs" "$deep/fs"
expect 0 clean --simulator "$deep/fs"
holds "$spare" spare.gau
expect 2 cab extract "$source/tests/fuzz/seeds/stored.cab" --output-path "$deep/out"
complains '(error 9)'
holds "$deep/out"

# What cannot be moved stays whole in Gauges: the archive is Gauges itself or a file, the folder is
# closed to us, another program is writing the gauge. An older one of its name stays archived.
older() {
  mkdir -m 777 "$spare"
  echo older >"$spare/spare.gau"
}
for hindrance in 'ln -s "$gauges" "$spare"' 'touch "$spare"' \
  'older; chmod a-w "$gauges"; as_user=("${ordinary[@]}")' 'older; exec 7>>"$gauges/spare.gau"'; do
  small
  eval "$hindrance"
  expect 2 clean
  complains 'files that stayed in Gauges: 1'
  "$app/panelkit-console" restore >"$work/out" 2>&1
  holds "$gauges" good.gau spare.gau
  [ "$(cat "$gauges/spare.gau")" = 'gauge spare' ] || fail "$hindrance: the gauge is not whole"
  [[ $hindrance != older* ]] || [ "$(cat "$spare"/*)" = older ] || fail "$hindrance: the older one"
done

# Aircraft that vanish, and panels that grow and shrink, between two looks. One stays as it is.
small
panel staying 'of one'
panel changing {1..200}
cp "$aircraft/changing/Panel/panel.cfg" "$work/whole"
panel fleeting 'of one that left'
while mv "$aircraft/fleeting" "$work" && mv "$work/fleeting" "$aircraft"; do
  head -c $((RANDOM % 5000)) "$work/whole" >"$aircraft/changing/Panel/panel.cfg"
done &
changes=$!
for i in {1..30}; do
  "$app/panelkit-console" probe >"$work/out" 2>"$work/err"
  [ $? -le 1 ] && [ ! -s "$work/err" ] || fail "while files changed: $(cat "$work/err")"
  grep -F '*** MISSING' "$work/out" >"$work/missing"
  grep -qE '^ {8}of one ' "$work/missing" || fail 'the aircraft that stays is not whole'
  grep -vE '^ {8}([0-9]+|of one|of one that left|gauge0*) ' "$work/missing" && fail 'made up'
done
{ kill $changes && wait $changes; } 2>/dev/null
finish
