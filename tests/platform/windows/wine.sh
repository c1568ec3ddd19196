# What run and run-32bit share; sourced. They set:
#   place  the command that precedes every program of the system that Wine runs on (none, or a chroot)
#   wine   Wine's loader, as that system names it
#   build  the folder with the build "test" for Linux

here=$PWD/tests/platform/windows
work=$(mktemp -d)
export WINEPREFIX=$work/prefix WINEDEBUG=-all LC_ALL=C.UTF-8
# No .NET and no HTML engine: Wine would ask to download them. The pane stays white.
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='

in_wine() { "${place[@]}" "$wine" "$@"; }
end_session() { "${place[@]}" wineserver -k && "${place[@]}" wineserver -w; }

clean_up() {
  end_session || true
  [ -z "${screen-}" ] || kill "$screen"
  rm -rf "$work"
}

# A screen of its own, whose number the server chooses, and a fresh prefix with the simulator's entry.
start_wine() {
  exec 3<>"$work/display"
  "${place[@]}" Xvfb -displayfd 3 -screen 0 1024x768x24 >/dev/null 2>&1 &
  screen=$!
  until [ -s "$work/display" ]; do
    kill -0 $screen
    sleep 0.05
  done
  export DISPLAY=:$(head -n 1 "$work/display")
  in_wine wineboot -i >/dev/null 2>&1
  in_wine reg add 'HKLM\Software\Microsoft\DirectPlay\Applications\Microsoft Flight Simulator 2002' \
    /v Path /d 'C:\Program Files\Microsoft Games\FS2002' /reg:32 >/dev/null
  # In the session that makes a prefix, later programs wait in vain for a service.
  end_session
}

# test_all TESTS SHIPPED: everything, with the tests of one build and the programs of another. Gives 77 where the
# installer cannot be made.
test_all() {
  say 'Unit tests'
  unit_tests "$1"
  say 'The check kit: the tests of files, services and the window'
  check_kit "$1"
  say 'The console companion, against the Linux one over the same files'
  compare_consoles "$build/test/src/console/panelkit-console" "$2/src/console/panelkit-console.exe"
  say 'The console companion, killed'
  kill_test "$1"
  say 'The installer'
  if ! command -v makensis >/dev/null; then
    say 'NSIS is not installed here, so the installer was not tested'
    return 77
  fi
  (cd "$2" && cpack -G NSIS -B "$work/packages" >/dev/null)
  installer_test "$work"/packages/panelkit-*.exe
}

# unit_tests BUILD: the test programs that are not in the check kit, and what the kit leaves out so that it changes
# nothing on its user's machine.
unit_tests() {
  local program
  for program in program pane; do
    say "test_$program"
    # Wine's cabinet service, unlike Windows', tells nothing of a cabinet that is damaged.
    in_wine "$1/tests/test_$program.exe" --test-case-exclude='a damaged cabinet *'
  done
  for program in windows win32; do
    say "test_$program: the registry"
    PANELKIT_EXE="Z:$1/src/app/Panelkit.exe" in_wine "$1/tests/platform/$program/test_$program.exe" \
      --test-case='*registry*'
  done
}

# check_kit BUILD: the check kit, as a user starts it.
check_kit() {
  local table
  cmake --install "$1" --prefix "$work/kit" >/dev/null
  cmake --install "$1" --component check --prefix "$work/kit" >/dev/null
  PANELKIT_UNATTENDED=1 in_wine cmd /c "Z:${work//\//\\}\\kit\\check.cmd" || stop 'The check kit says that something fails'
  table=$(echo "$work"/kit/table-*.txt)
  ! grep -q FAILS "$table" || stop 'Its exit status says nothing of what fails'
  [ "$(grep -c '^holds' "$table")" -gt 50 ] || stop 'The check kit has looked at too little'
  say "Left out of the check kit under Wine: $(grep -c '^not applicable' "$table")"
}

# compare_consoles LINUX WINDOWS: all commands of the two companions over the same files.
compare_consoles() {
  end_session # Wine writes the registry to disk, where the Linux companion reads it.
  mkdir "$work/app"
  cp "$1" "$2" "$work/app"
  "$here/console_round" "$work/linux" "$work/app" "$WINEPREFIX/drive_c" UTF-8 \
    "$work/app/panelkit-console"
  "$here/console_round" "$work/windows" "$work/app" "$WINEPREFIX/drive_c" CP1252 \
    "${place[@]}" "$wine" "$work/app/panelkit-console.exe"
  diff -ra "$work/linux" "$work/windows" || stop 'The two companions differ'
  [ "$(grep -rl 'status 0' "$work/windows" | wc -l)" -gt 10 ] || stop 'Too few commands succeeded'
  say "$(ls "$work/windows" | wc -l) commands: same output, pages, folders and exit statuses"
}

# kill_test BUILD: the console companion, ended at each of the first changes that it makes to the disk.
kill_test() {
  # As the test starts the one for Linux. It finds the test's simulator, and lies where its own files are to.
  cat >"$work/cut_console" <<END
#!/usr/bin/env bash
console=\$(dirname "\$0")/console.exe
simulator="\$WINEPREFIX/drive_c/Program Files/Microsoft Games/FS2002"
[ -e "\$console" ] || cp '$1/tests/platform/windows/cut_console.exe' "\$console"
unset TMPDIR # Where Wine looks for the server of its session.
WINEPREFIX=$WINEPREFIX exec ${place[*]} $wine "\$console" --simulator "\$simulator" "\${@/#\//Z:/}"
END
  chmod +x "$work/cut_console"
  # Keeps the session, which would end after each run and take a second to start again.
  in_wine cmd /c 'ping -n 999 127.0.0.1' >/dev/null 2>&1 &
  TMPDIR=$work tests/faults/kill_test.sh "$work/cut_console" "$PWD" 0 'env PANELKIT_ENDS_AT='{1..24} ||
    stop 'A kill has lost something'
}

# installer_test SETUP: installs the program, runs it and removes it, without and with files of the user's own,
# which alone stay. Expects the simulator that compare_consoles leaves.
installer_test() {
  local folder own file left i
  in_drive() { (cd "$WINEPREFIX/drive_c" && find . -path './users/*/Temp' -prune -o -print | sort); }
  in_drive >"$work/before"
  for own in '' SpareGauges/own.gau; do
    in_wine "$1" /S || stop 'The installer failed'
    folder=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/Panelkit)
    for file in Panelkit.exe panelkit-console.exe easy.gif LICENSE.txt; do
      [ -s "$folder/$file" ] || stop "The installer has left out $file"
    done
    ls "$WINEPREFIX"/drive_c/users/*/AppData/Roaming/Microsoft/Windows/{Start\ Menu/Programs,SendTo}/Panelkit.lnk >/dev/null
    in_wine reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Panelkit' >/dev/null
    if [ "$own" ]; then
      in_wine "$folder/panelkit-console.exe" probe >/dev/null 2>&1 || [ $? -eq 1 ]
      mkdir "$folder/SpareGauges"
      touch "$folder/$own"
    fi
    in_wine "$folder/Uninstall.exe" /S
    # It goes on in a copy of itself.
    for ((i = 0; i < 600; i++)); do
      [ -e "$folder/Uninstall.exe" ] || { [ -z "$own" ] && [ -e "$folder" ]; } || break
      sleep 0.1
    done
    ! in_wine reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Panelkit' >/dev/null 2>&1 ||
      stop 'The uninstaller has left its entry'
  done
  left=$(in_drive | comm -13 "$work/before" - | sed 's|.*/Local/Programs/*||' | tr '\n' ' ')
  [ "$left" = ' Panelkit Panelkit/GAUGES.HTM Panelkit/SpareGauges Panelkit/SpareGauges/own.gau ' ] ||
    stop "The uninstaller has left: $left"
}
