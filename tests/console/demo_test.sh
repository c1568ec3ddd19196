#!/usr/bin/env bash
# The console companion from end to end, over a copy of the demonstration simulator.
# usage: demo_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"
golden=$source/tests/golden

# wrote FILE PAGE: the file is the golden page with this test's folders in it, in Windows-1252.
wrote() {
  sed -e "s|{APP}|Z:${app//\//\\\\}|g" -e 's|{SITE}|https://www.panelkit.example|g' \
    -e 's|{HOST}|www.panelkit.example|g' -e 's|{FS}|C:\\Program Files\\Microsoft Games\\FS2002|g' \
    "$golden/$2" | diff -a - "$app/$1" || fail "$1 is not $2"
}

# An ordinary user who may write neither to the program's folder nor to a home, or to a home alone.
chmod 555 "$app"
as_user=("${ordinary[@]}")
expect 1 probe
diff -a "$golden/demo-probe.txt" "$work/out" || fail 'the report without a page'
complains 'GAUGES.HTM could not be written: '
complains 'Files that panels name in another way, which --careful lists: 2.'
[ "$(wc -l <"$work/err")" = 2 ] || fail "more than two warnings: $(cat "$work/err")"
[ ${#ordinary[@]} = 0 ] || chown 65534:65534 "$fs" "$fs/fs2002.cfg"
expect 0 brake off
complains 'BRAKES.HTM could not be written: '
grep -qx 'off: the red brake messages are hidden' "$work/out" || fail "brake: $(cat "$work/out")"
chmod 777 "$HOME"
expect 1 probe --careful
[ ! -s "$work/err" ] || fail "a page in the home is no fault: $(cat "$work/err")"
expect 0 where
own=$(sed -n 's/^  own files: \(.*\) (your own folder.*/\1/p' "$work/out")
[ -f "$own/GAUGES.HTM" ] && [ "${own#"$HOME"/}" != "$own" ] || fail "where: $(cat "$work/out")"
holds "$app" panelkit-console
chmod 0 "$fs/Aircraft"
expect 2 probe
complains 'No aircraft were found: the Aircraft folder cannot be read.'
chmod 755 "$fs/Aircraft"
chmod 0 "$fs/Aircraft/$(ls "$fs/Aircraft" | head -1)/Panel/panel.cfg"
expect 2 clean --careful
complains 'Nothing was moved: panels that could not be read: 1.'
expect 0 clean --dry-run
complains "The panel of $(ls "$fs/Aircraft" | head -1) could not be read."
mv "$fs" "$fs.away"
expect 2 show
grep -q '^There are 0 Required Files:$' "$work/out" || fail 'no empty report of a folder that is gone'
complains 'is not there.'
[ "$(wc -l <"$work/err")" = 1 ] || fail "said more than once: $(cat "$work/err")"
as_user=()
fresh
cd "$fs" || exit

# The three reports, on paper and as pages.
expect 0 where
grep -qxF "  on disk: $fs" "$work/out" || fail "where: $(cat "$work/out")"
expect 1 probe
diff -a "$golden/demo-probe.txt" "$work/out" || fail 'the printed probe'
wrote GAUGES.HTM demo-probe.htm
expect 1 --format html show --simulator .
wrote GAUGES.HTM demo-show.htm
cmp "$app/GAUGES.HTM" "$work/out" || fail 'the printed page'

# Clean, its dry run before, and the way back.
rm "$app/GAUGES.HTM"
expect 0 clean --dry-run
cp "$work/out" "$work/plan"
holds "$app" panelkit-console
expect 0 clean
wrote GAUGES.HTM demo-clean.htm
diff <(ls "$spare" | sed 's/^/    /') <(tail -n +2 "$work/plan") || fail 'moved otherwise'
expect 2 restore No_Such_Gauge
if works strace -o /dev/null true; then
  # Ctrl-C while the first gauge comes back: that one is finished, and the others are left. A leak checker
  # cannot work beside strace.
  ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0 strace -qq -o /dev/null -e inject=rename,renameat2:signal=INT:when=1 \
    "$app/panelkit-console" restore >"$work/out" 2>"$work/err"
  [ $? = 130 ] || fail "Ctrl-C in restore: $(cat "$work/err")"
  complains 'Interrupted.'
  [ "$(grep -c '^    ' "$work/out")" = 1 ] || fail "restored after Ctrl-C: $(cat "$work/out")"
fi
expect 0 restore
diff -r "$source/demo" "$WINEPREFIX" || fail 'restore did not bring everything back'

# The brake messages.
expect 0 brake
grep -qx 'on: the red brake messages are shown' "$work/out" || fail "brake: $(cat "$work/out")"
expect 0 brake off
grep -aqx $'show_brake_message=0\r' "$fs/fs2002.cfg" || fail 'the setting was not switched'
wrote BRAKES.HTM brake.htm
chmod 444 "$fs/fs2002.cfg"
expect 2 brake on
complains 'fs2002.cfg was not changed: '
grep -qx 'off: the red brake messages are hidden' "$work/out" || fail 'told a state that is not so'
grep -aqx $'show_brake_message=0\r' "$fs/fs2002.cfg" || fail 'a read-only file was changed'

# Cabinets.
cab=Gauges/NorthStar_Radios.cab
expect 0 cab extract $cab --output-path "$work/out dir/deep"
cabextract -q -d "$work/reference" $cab
diff -r "$work/reference" "$work/out dir/deep" || fail 'extracted otherwise'
expect 2 cab count Gauges/Jarrowby_Overhead.cab
complains 'Invalid data. (error 13)'
expect 2 cab extract $cab --output-path "$work/one" --output-file one
complains 'name the one to extract'
[ ! -e "$work/one" ] || fail 'a refused extraction wrote something'
expect 2 cab lst $cab

# A cabinet with names in UTF-8, one of them beyond the code page.
mkdir -p "$work/packed" "$fs/Aircraft/Packed/Panel"
printf '[Window Titles]\r\nWindow00=Main\r\n\r\n[Window00]\r\ngauge00=Packed!H\xf6he,0,0\r\n' \
  >"$fs/Aircraft/Packed/Panel/panel.cfg"
touch "$work/packed/Höhe.xml" "$work/packed/計器.xml"
(cd "$work/packed" && gcab -c "$gauges/Packed.cab" Höhe.xml 計器.xml)
expect 1 show
grep -qx ' *Packed!Höhe' "$work/out" || fail "a packed gauge is missing: $(grep Packed "$work/out")"
expect 0 cab list Gauges/Packed.cab 計器.xml
expect 0 cab extract Gauges/Packed.cab --output-path "$work/計"
holds "$work/計" Höhe.xml 計器.xml

# Each result says so where it cannot be written, also help; a reader that has read enough is no fault.
for arguments in where 'where --all' probe show 'clean --dry-run' restore brake 'find .' "cab list $cab" \
  "cab xml $cab" --help --version '--format html probe' '--format json where' '--format json find .'; do
  "$app/panelkit-console" $arguments >/dev/full 2>"$work/err"
  [ $? = 2 ] && grep -q 'The output could not be written.' "$work/err" || fail "full: $arguments"
done
"$app/panelkit-console" show --careful 2>"$work/err" | head -1 >"$work/out"
[ ! -s "$work/err" ] || fail "a closed pipe: $(cat "$work/err")"

# on_terminal COLUMNS ARGUMENTS: what the console prints on a terminal of that width.
on_terminal() { script -qec "stty cols $1; '$app/panelkit-console' $2" /dev/null </dev/null; }

# Names cannot control a terminal or forge a line there, nor on standard error; a file has them as they are.
aircraft=$'Forged\nThere are 0\e[2J'
mkdir -p "$fs/Aircraft/$aircraft/Panel" "$work/forged"
printf '[Window Titles]\r\nWindow00=\e]0;title\a\r\n\r\n[Window00]\r\ngauge00=Bell\x81\x7f,0,0\r\n' \
  >"$fs/Aircraft/$aircraft/Panel/panel.cfg"
python3 -c 'import sys, zipfile; zipfile.ZipFile(sys.argv[1], "w").writestr("a\nb\x1b/Bell\x81\x7f.gau", "x")' \
  "$work/forged/a.zip"
for arguments in show '--format html show' "find $work/forged" probe; do
  on_terminal 80 "$arguments 2>/dev/null" | tr -d '\r' >"$work/shown"
  ! grep -qP '[\x00-\x1f\x7f]|\xc2[\x80-\x9f]' "$work/shown" || fail "$arguments controls a terminal"
  case $arguments in
    find*) words='a?b?\Bell\x81?.gau' ;;
    *html*) words='Window00=\x1b]0;title\x07' ;;
    *) words='FORGED\x0aTHERE ARE 0\x1b[2J' ;;
  esac
  grep -qF -- "$words" "$work/shown" || fail "no word of $words in $arguments"
done
expect 1 show
grep -qF $'Window00=\e]0;title\a' "$work/out" || fail 'a file has escapes'
expect 2 probe --simulator $'/\e[2J\nnowhere'
complains '\x1b[2J\x0anowhere is not there.'

# Progress keeps within the terminal.
on_terminal 20 'probe --careful >/dev/null' | tr '\r' '\n' >"$work/shown"
grep -q '^\[#*\] 100%' "$work/shown" && ! grep -qE '.{20}' "$work/shown" || fail "progress: $(cat "$work/shown")"
on_terminal 80 'probe --hints >/dev/null' | grep -q 'Looking for hints: ' || fail 'no progress of hints'

# What a user would do wrong. A variable that is not set must not let another simulator be cleaned.
sums "$fs" >"$work/before"
for empty in --simulator --simulator= --prefix --prefix=; do
  case $empty in *=) expect 2 clean $empty ;; *) expect 2 clean $empty '' ;; esac
  complains "${empty%=} has an empty value."
done
expect 2 restore ''
sums "$fs" | diff "$work/before" - || fail 'a simulator that was not meant was cleaned'
for wrong in 'where --format html' 'clean --dry-run --format html' 'cab xml x --format json'; do
  expect 2 $wrong
  complains 'has no result as'
done
expect 2 probe --simulator "$work/nowhere"
complains 'is not there'
WINEPREFIX=$work/none expect 2 probe
complains 'No simulator is registered'
expect 2 probe --simulator /etc
complains 'has no Aircraft folder.'
expect 2 --simulator "$fs" porbe
complains 'Did you mean probe?'
expect 2 cab lsit "$cab"
complains 'There is no command cab lsit. Did you mean list?'
expect 2 cab frob x
complains 'There is no command cab frob.'
! grep -q 'Did you mean' "$work/err" || fail "$(cat "$work/err")"
expect 2 foo
complains 'There is no command foo.'
expect 0 clean --help
grep -q -- '--simulator' "$work/out" || fail 'clean --help does not show the common options'
expect 0 --version
finish
