#!/usr/bin/env bash
# The archive of Clean: what programs that run at once leave of it and of its ledger, what a damaged
# ledger does, and what comes back to which simulator.
# usage: archive_test.sh CONSOLE SOURCE_DIR
set -u
. "$2/tests/support/console.sh"
ledger=$app/SpareGauges.txt
other=$work/other
cp -r "$WINEPREFIX" "$other"
theirs=$other/${gauges#"$WINEPREFIX/"}

# Two simulators that name their folder alike, each cleaned twice at once: of three files of a name none is
# lost, each is in the archive once, and the ledger knows whose the newest is.
for round in {1..5}; do
  rm -rf "$spare" "$ledger" "${gauges:?}"/* "${theirs:?}"/*
  mkdir "$spare"
  for i in {1..12}; do
    echo "older $i" >"$spare/idle$i.gau"
    echo "own $i" >"$gauges/idle$i.gau"
    echo "their $i" >"$theirs/idle$i.GAU"
  done
  all=$(cat "$spare"/* "$gauges"/* "$theirs"/* | sort)
  for run in {1..4}; do
    prefix=$WINEPREFIX
    [ $((run % 2)) = 0 ] || prefix=$other
    "$app/panelkit-console" clean --prefix "$prefix" >"$work/out$run" 2>&1 || fail "clean: $(cat "$work/out$run")" &
  done
  wait
  cat "$work"/out[1-4] | grep -i stayed && fail 'what another Clean has moved has stayed'
  holds "$gauges"
  holds "$theirs"
  [ "$(find "$spare" -type f -exec cat {} + | sort)" = "$all" ] || fail "round $round: $(cd "$spare" && grep . -r .)"
  [ "$(grep -c "^20.* .*$gauges	idle[0-9]*.gau"$'\r$' "$ledger")" = 12 ] &&
    [ "$(grep -c "^20.* .*$theirs	idle[0-9]*.GAU"$'\r$' "$ledger")" = 12 ] || fail "the ledger: $(cat "$ledger")"
  newest_own=$(cat "$spare"/*.gau | grep -c own)
  expect 0 restore
  [ "$(cat "$gauges"/* 2>/dev/null | grep -c own)" = "$newest_own" ] &&
    [ "$(find "$gauges" -type f | wc -l)" = "$newest_own" ] || fail "restored: $(cd "$gauges" && grep . -r .)"
  expect 0 restore --prefix "$other"
  [ "$(find "$spare" -maxdepth 1 -type f)" = '' ] || fail "still there: $(ls "$spare")"
done

# A damaged ledger stops no move and loses no bytes, and its readable lines still count.
damage=("" "torn	C:\\Ga" $'\xff\xfe\t\t\t\n\t\n\n' "$(printf '%s\t%s\t%s\r\n2026-01-01 00:0' '2026-01-01 00:00:00' '/elsewhere' idle_b.gau)")
for bytes in "${damage[@]}"; do
  rm -rf "$spare" "${gauges:?}"/*
  printf %s "$bytes" >"$ledger"
  echo a >"$gauges/idle_a.gau"
  expect 0 clean
  echo b | install -D /dev/stdin "$spare/idle_b.gau"
  cmp -n ${#bytes} <(printf %s "$bytes") "$ledger" || fail "the ledger: $(cat "$ledger")"
  expect 0 restore --list
  grep -qF "idle_a.gau from $gauges, 20" "$work/out" || fail "the list: $(cat "$work/out")"
  expect 0 restore
  case $bytes in
    *elsewhere*) holds "$gauges" idle_a.gau ;;
    *) holds "$gauges" idle_a.gau idle_b.gau ;;
  esac
  expect 0 restore --all
  holds "$gauges" idle_a.gau idle_b.gau
done
rm -rf "$ledger" && mkdir "$ledger"
expect 0 clean
expect 0 restore
holds "$gauges" idle_a.gau idle_b.gau
rmdir "$ledger"

# A move that cannot be made leaves the record of the file that stays in the archive.
rm -rf "$spare" "${gauges:?}"/*
echo theirs >"$theirs/idle_a.gau"
expect 0 clean --prefix "$other"
echo own >"$gauges/idle_a.gau"
if [ ${#ordinary[@]} != 0 ]; then
  chmod -R a+rwX "$work"
  chmod a-w "$gauges"
  as_user=("${ordinary[@]}")
  expect 2 clean --prefix "$WINEPREFIX"
  as_user=()
  expect 0 restore --prefix "$other"
  [ "$(cat "$theirs/idle_a.gau")" = theirs ] || fail 'the record of a file that stayed is lost'
fi

# A newer file of the name: the older one is kept, and can be had back.
rm -rf "$spare" "${gauges:?}"/*
for bytes in older newer; do
  echo $bytes >"$gauges/Idle.gau"
  expect 0 clean
done
holds "$spare" Idle.gau Older
expect 0 restore --older idle
[ "$(cat "$gauges/Idle.gau" "$spare/Idle.gau")" = $'older\nnewer' ] || fail 'not the older one'

# While one program is in the middle of an installation, another one installs another file of that name, and a
# third cleans: none takes the half copy for a killed run's, and no file goes over another.
if works strace -o /dev/null true; then
  fresh
  for folder in one two; do
    install -D "$WINEPREFIX/drive_c/Downloads/old drive/Kittering_Tach.gau" "$work/$folder/J900_FMC.gau"
  done
  echo two >>"$work/two/J900_FMC.gau"
  ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0 strace -qq -o /dev/null -e inject=rename,renameat2:delay_enter=500000 \
    "$app/panelkit-console" find "$work/one" --install >"$work/out1" 2>&1 &
  until ls "$gauges"/panelkit.moving* >/dev/null 2>&1; do kill -0 $! || break; done
  "$app/panelkit-console" find "$work/two" --install >"$work/out2" 2>&1 &
  expect 0 clean
  wait
  cmp "$work/one/J900_FMC.gau" "$gauges/J900_FMC.gau" && [ "$(grep -h '^Installed' "$work"/out[12] | wc -l)" = 1 ] ||
    fail "two installations: $(cat "$work"/out[12])"
fi
finish
