#!/usr/bin/env bash
# Hints and find over a copy of the demonstration simulator, and over archives that nobody should trust.
# usage: find_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"
downloads=$WINEPREFIX/drive_c/Downloads
hostile=$work/hostile

# prints FILE: what was printed is the golden file, from its line "There are" on.
prints() {
  sed -e '0,/^There are/d' -e "s|$downloads|{DOWNLOADS}|g; s|$HOME/|~/|g" -e 's|bytes, [^,)]*|bytes|' "$work/out" |
    diff -a "$source/tests/golden/$1" - || fail "not $1"
}

mkdir "$HOME/Downloads"
expect 1 probe --hints
prints demo-hints.txt
grep -vE '^ {8}' "$work/out" | sed '/^Present only/,$d' | sed '$d' >"$work/names"
expect 1 probe
grep -vE '^ {8}' "$work/out" | diff - "$work/names" || fail 'hints changed the report'

# Search, dry run, installation, and what is missing then.
expect 1 find "$downloads"
cp "$work/out" "$work/found"
(echo There are; cat "$work/found") >"$work/out"
prints demo-find.txt
sums "$gauges" >"$work/before"
expect 1 find "C:\\Downloads" --install --dry-run
sums "$gauges" | diff - "$work/before" || fail 'a dry run installed something'
sed '1,/^Would install/d' "$work/out" >"$work/plan"
expect 1 find "$downloads" --install
sed '1,/^Installed/d; /^There are/,$d' "$work/out" | diff - "$work/plan" || fail 'installed otherwise'
for line in 'J900_FMC.gau for Jarrowby J-900, Jarrowby J-900 Freighter' 'Émetteur_Lacroix.cab for Étoile du Nord 210' \
  'Kittering_Tach.gau for kittering sprite, Tamsin T-1 Biplane (the newest of 2 with that name)'; do
  grep -qx "    $line" "$work/plan" || fail "no '$line' but: $(cat "$work/plan")"
done
comm -23 "$work/before" <(sums "$gauges") | grep . && fail 'something in Gauges was changed'
[ "$(stat -c %Y "$gauges/Corvane_TCAS.cab")" = "$(date -d '2002-11-05 18:30' +%s)" ] || fail 'date'
[ -z "$(find "$gauges" -name 'panelkit.moving*')" ] || fail 'half an installation'
sed -n '/^There are/,$p' "$work/out" | tail -n +2 | tr -d ' ' | paste -sd' ' |
  grep -qx 'Dunmere_Deice Jarrowby_Overhead NorthStar_Radios Regent_EFIS' ||
  fail "after the installation: $(cat "$work/out")"

# A near name is installed by the command that the search has told, and by no other.
expect 1 find "$downloads"
command=$(sed -n 's/.*"_" and "-" alone: panelkit-console //p' "$work/out")
eval "expect 1 $command"
grep -qx '    Dunmere_Deice.gau for Dunmere Packet' "$work/out" && [ -f "$gauges/Dunmere_Deice.gau" ] ||
  fail "of '$command': $(cat "$work/out")"
expect 2 find "$downloads" --install --as Dunmere_Deice
complains 'No panel misses a file Dunmere_Deice.'
expect 2 find "$downloads" --as Regent_EFIS

# The same as JSON.
# query STATUS FILTER ARGUMENT...: what the console prints, and says, is JSON that meets jq's FILTER.
query() {
  expect "$1" --format json "${@:3}"
  jq -es ".[0] | .panelkit_json == 1 and ($2)" "$work/out" >"$work/jq" 2>&1 ||
    fail "$2 of '${*:3}': $(head -c 900 "$work/out")"
  jq -es 'all(.error | length > 0)' "$work/err" >/dev/null || fail "errors: $(cat "$work/err")"
}
fresh
query 0 ".simulator.native_path == \"$fs\" and .is_there" where
query 0 ".simulators | length == 1 and .[0].aircraft == 14 and .[0].gauges == 34 and .[0].native_path == \"$fs\"" \
  where --all
prefix=$WINEPREFIX
WINEPREFIX=$work/none query 0 ".simulator.native_path == \"$fs\"" where --prefix "$prefix"
query 1 '(.missing | length) == 13 and .missing[12].name == "Étoile_Dépression" and
  ([.panels[].windows[].gauges[] | select(.missing)] | length) == 21' probe
query 1 '[.missing[].hints[].kind] | unique == ["damaged-cabinet", "elsewhere", "lacks-entry", "near-name",
  "not-a-cabinet", "other-extension"]' probe --hints
query 1 '[.panels[].windows[].gauges[]] | length > 22' show
query 1 '.found[0].candidates[0] | .inside == ["corvane\\Corvane_TCAS.cab"] and .exact_name and
  .modified == "2002-11-05T18:30:00Z" and (.satisfies | length) == 2' find "$downloads"
query 1 '.found[2].near[0].differs | length > 0' find "$downloads"
query 1 '(.installed | length) == 8 and (.missing | length) == 4 and .not_installed == [] and
  (.installed | all(.exact_name and (.satisfies | length) > 0 and (.aircraft | length) > 0)) and
  .installed[3].others == 1 and (.installed[3].choice | length) > 0' find "$downloads" --install
! grep -qP '[^\n -~]' "$work/out" || fail 'JSON beyond ASCII'
query 0 '.messages_shown' brake
query 0 '(.moved | length) > 0 and .dry_run' clean --dry-run
query 0 '.moved == [] or (.moved | length) > 0' clean
query 0 '(.restored | length) > 0 and .failed == []' restore
query 2 '.failed == ["None"]' restore None
query 0 '.command == "cab list" and .entries[0].name == "Comm1.xml" and (.entries | length) == 5' cab list "$gauges/NorthStar_Radios.cab"
query 2 '(.entries | length) == 2' cab list "$gauges/Jarrowby_Overhead.cab"
for wrong in 'probe --simulator /nowhere' 'probe --prefix /nowhere' 'find' 'cab count x.cab'; do
  expect 2 --format json $wrong
  [ ! -s "$work/out" ] && jq -e '.error | length > 0' "$work/err" >/dev/null || fail "error of '$wrong'"
done

# interrupted PATH OPEN ARGUMENT...: Ctrl-C where the path is opened for the OPEN-th time ends the command, which says so.
interrupted() {
  ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0 strace -qq -o /dev/null -P "$1" \
    -e inject=open,openat:signal=INT:when="$2" "$app/panelkit-console" "${@:3}" >"$work/out" 2>"$work/err"
  [ $? = 130 ] || fail "Ctrl-C in '${*:3}': $(cat "$work/err")"
  complains 'Interrupted.'
}
if strace -o /dev/null true; then  # A leak checker cannot work beside it.
  panel="$fs/Aircraft/Marlowe Dart/Panel/panel.cfg"
  fresh
  mkdir "$spare"  # Which hints alone look into.
  for place in "$panel" "$spare"; do
    for format in text json; do
      interrupted "$place" 1 probe --hints --format $format
      [ ! -s "$work/out" ] && { [ $format = text ] || jq -e .error "$work/err" >/dev/null; } ||
        fail "an interrupted probe as $format: $(cat "$work/out" "$work/err")"
    done
  done
  interrupted "$panel" 2 find "$downloads" --install
  sed '1,/^Installed/d' "$work/out" | diff - "$work/plan" || fail 'installed, and not told'
  fresh
  interrupted "$panel" 2 find "$downloads" --install --format json
  jq -e '(.installed | length) == 8 and .missing == null' "$work/out" >/dev/null || fail "JSON: $(cat "$work/out")"
fi

# Hostile archives: each would bring Étoile_Dépression or something else, none may.
fresh
mkdir "$hostile"
python3 - "$hostile" <<'PYTHON'
import io, pathlib, sys, tarfile, zipfile
folder = pathlib.Path(sys.argv[1])
name = 'Étoile_Dépression.gau'
x = b'MZ' + bytes(58) + b'\x40\0\0\0PE\0\0' + bytes(18) + b'\2\x21'  # A gauge file: a library for Windows.

with zipfile.ZipFile(folder / 'names.zip', 'w') as names:
    for hostile in ('../x/', '/x/', 'C:/x/', 'x:', '//server/share/', 'a/../../', '.. /', '..\\'):
        names.writestr(hostile + name, x)
    names.writestr('\x1b]0;' + name, x)
with tarfile.open(folder / 'kinds.tar.gz', 'w:gz') as kinds:
    for kind in (tarfile.SYMTYPE, tarfile.LNKTYPE, tarfile.CHRTYPE, tarfile.BLKTYPE, tarfile.FIFOTYPE,
                 tarfile.DIRTYPE):
        entry = tarfile.TarInfo(name)
        entry.type, entry.linkname = kind, '/etc/passwd'
        kinds.addfile(entry)

def zipped(name, data):
    buffer = io.BytesIO()
    with zipfile.ZipFile(buffer, 'w', zipfile.ZIP_DEFLATED) as archive:
        archive.writestr(name, data)
    return buffer.getvalue()

zeros = bytes(100 << 20)
(folder / 'bomb.zip').write_bytes(zipped('Étoile_Dépression.cab', zeros))
(folder / 'solid.tar.bz2').write_bytes(b'')
with tarfile.open(folder / 'solid.tar.bz2', 'w:bz2') as solid:
    for entry_name, data in (('skipped.bin', zeros), (name, x)):
        entry = tarfile.TarInfo(entry_name)
        entry.size = len(data)
        solid.addfile(entry, io.BytesIO(data))
huge = bytearray(zipped(name, x))   # Says that it unpacks to 3.75 GiB.
central = huge.rindex(b'PK\1\2')
huge[central + 24:central + 28] = huge[22:26] = b'\0\0\0\xf0'
(folder / 'huge.zip').write_bytes(huge)
locked = bytearray(zipped(name, x))  # Says that it is encrypted.
central = locked.rindex(b'PK\1\2')
locked[6] |= 1
locked[central + 8] |= 1
(folder / 'locked.zip').write_bytes(locked)
(folder / 'deep.zip').write_bytes(zipped('1.zip', zipped('2.zip', zipped(name, x))))
(folder / 'text.zip').write_bytes(b'no archive at all')
(folder / 'empty.7z').write_bytes(b'')
PYTHON
mkfifo "$hostile/pipe.zip"
ln -s "$hostile" "$hostile/ring"
sums "$gauges" >"$work/before"
find "$work" -newer "$hostile/empty.7z" -type f >"$work/files"
expect 1 find "$hostile" --install
grep -qx 'Not found:' "$work/out" && grep -q '^Nothing was installed' "$work/out" || fail "hostile: $(cat "$work/out")"
sums "$gauges" | diff - "$work/before" || fail 'a hostile archive changed Gauges'
for words in 'names.zip > ..\x\Étoile_Dépression.gau: its name leads out' '(and 7 more)' \
  'kinds.tar.gz > Étoile_Dépression.gau: it is a link or no file (and 4 more)' \
  'bomb.zip > Étoile_Dépression.cab: it would unpack to far more' \
  'solid.tar.bz2: it would unpack to far more' 'huge.zip > Étoile_Dépression.gau: it would unpack' \
  'locked.zip > Étoile_Dépression.gau: it is encrypted' 'deep.zip > 1.zip > 2.zip: it lies too deep' \
  'text.zip: it is no archive' 'empty.7z: it is no archive' '?]0;Étoile_Dépression.gau: its name is none'; do
  grep -qF "$words" "$work/out" || fail "no word of '$words' but: $(cat "$work/out")"
done

# What people really have, one file each: what is offered of it, or what it is told to be.
fresh
people=$work/people
mkdir "$people"
cp "$downloads/old drive/Kittering_Tach.gau" "$work/gauge"
python3 - "$people" "$work/gauge" <<'PYTHON'
import pathlib, sys, zipfile
folder, gauge = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).read_bytes()

def packed(name, bytes_name):
    """A zip archive without the flag that says UTF-8."""
    entry = '#' * len(bytes_name)
    with zipfile.ZipFile(folder / name, 'w', zipfile.ZIP_DEFLATED) as archive:
        archive.writestr(entry, gauge)
    (folder / name).write_bytes((folder / name).read_bytes().replace(entry.encode(), bytes_name))

packed('dos.zip', 'panel/Étoile_Dépression.gau'.encode('cp437'))
packed('unix.zip', 'panel/Étoile_Dépression.gau'.encode())
packed('ansi.zip', 'panel/Étoile_Dépression.gau'.encode('cp1252'))
whole = (folder / 'unix.zip').read_bytes()
# A program for Windows whose one section ends with the header.
program = (b'MZ' + bytes(58) + b'\x40\0\0\0PE\0\0\x4c\1\1\0' + bytes(12) + b'\xe0\0\2\1' + bytes(240) +
           b'\0\2\0\0' + bytes(20)).ljust(512, b'\0')
(folder / 'setup.exe').write_bytes(b'MZ' + bytes(5000) + whole)
(folder / 'plain.exe').write_bytes(program + bytes(2000))
(folder / 'installer.exe').write_bytes(program + bytes(5000))
(folder / 'cut.exe').write_bytes(program + b'settings' + whole[:120])
(folder / 'cut.zip').write_bytes(whole[:120])
(folder / 'Étoile_Dépression (1).gau').write_bytes(gauge)
(folder / 'Copy of Étoile_Dépression.gau').write_bytes(gauge)
(folder / 'étoile_dépression.GAU.txt').write_bytes(gauge)
(folder / 'notes.txt').write_bytes(b'notes')
for name, content in (('empty', b''), ('page', b'<!DOCTYPE html><html>'), ('text', b'Hello\r\n'), ('zip', whole),
                      ('program', gauge.replace(b'\2\x21', b'\2\1'))):
    (folder / name).mkdir()
    (folder / name / 'Étoile_Dépression.gau').write_bytes(content)
PYTHON
mkdir "$work/panel"
cp "$work/gauge" "$work/panel/Étoile_Dépression.gau"
tar -C "$work/panel" -czf "$people/dot.tgz" .
(cd "$work/panel" && 7z a -mm=Deflate64 "$people/deflate64.zip" . && 7z a -ptop "$people/locked.zip" . &&
  7z a -m0=Deflate64 "$people/deflate64.7z" . &&
  7z a -m0=BZip2 "$people/bzip2.7z" . && 7z a "$people/lzma.7z" . && 7z a -sfx "$people/7z.exe" .) >/dev/null || fail '7z'
head -c 100 "$people/lzma.7z" >"$people/cut.7z"
xz -c "$work/panel/Étoile_Dépression.gau" | head -c 60 >"$people/cut.tar.xz"
touch "$work/panel/Display.xml" "$work/panel/Control.xml"
(cd "$work/panel" && gcab -c "$people/Corvane_TCAS.cab" Display.xml Control.xml Étoile_Dépression.gau) || fail gcab
genisoimage -quiet -J -o "$people/disk.iso" "$work/panel" || fail 'genisoimage'
for case in 'dos.zip|> panel\Étoile_Dépression.gau  (' 'unix.zip|> panel\Étoile_Dépression.gau  (' \
  'ansi.zip|.gau  (' 'setup.exe|> panel\Étoile_Dépression.gau  (' 'plain.exe|Not found' 'cut.zip|: it is cut off' \
  'installer.exe|: it is an installer' 'cut.exe|: it is cut off' '7z.exe|> Étoile_Dépression.gau  (' 'cut.7z|: it is cut off' \
  'cut.tar.xz|: it is cut off' \
  'dot.tgz|> Étoile_Dépression.gau  (' 'deflate64.zip|: it is packed by a method that cannot be read here' \
  'deflate64.7z|: it is packed by a method that cannot be read here' \
  'locked.zip|: it is encrypted' 'bzip2.7z|> Étoile_Dépression.gau  (' 'lzma.7z|> Étoile_Dépression.gau  (' \
  'Corvane_TCAS.cab|> Étoile_Dépression.gau  (' 'disk.iso|> Étoile_Dépression.gau  (' 'Étoile_Dépression (1).gau|, as Étoile_Dépression.gau' \
  'Copy of Étoile_Dépression.gau|, as Étoile_Dépression.gau' 'étoile_dépression.GAU.txt|, as étoile_dépression.GAU' \
  '*(1).gau|, as Étoile_Dépression.gau' 'notes.txt|: by its name it is no gauge' \
  'empty|: it is empty, and no gauge' 'page|: it is a web page, and no gauge' 'text|: it is a text, and no gauge' \
  'zip|: it is a zip archive, and no gauge' 'program|: it is a program, which gauge files are not'; do
  expect 1 find "$people/${case%%|*}"
  grep -qF "${case#*|}" "$work/out" || fail "of ${case%%|*} no word of '${case#*|}' but: $(cat "$work/out")"
done
expect 1 find "$people/text" "$people/empty" --install
grep -qx 'Nothing was installed.' "$work/out" || fail "installed: $(cat "$work/out")"
expect 1 find "$people/Étoile_Dépression (1).gau" --install
cmp "$work/gauge" "$gauges/Étoile_Dépression.gau" || fail 'installed under another name'

# What cannot be done is an error, and what is there stays.
expect 2 find "$work/nowhere"
complains 'There is no folder or file'
expect 2 find
cp "$downloads/old drive/Kittering_Tach.gau" "$hostile"
as_user=("${ordinary[@]}")
chmod 777 "$app"
rm "$app/GAUGES.HTM"
expect 2 find "$hostile" --install
complains 'Kittering_Tach.gau was not installed: it could not be copied'
finish
