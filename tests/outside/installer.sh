#!/usr/bin/env bash
# installer.sh SETUP FOLDER: the installer for one user and for the machine, without windows; what it copies is what
# FOLDER has, the planner runs from there, and after its uninstaller nothing of it is left. Needs a display.
set -euo pipefail
export LANGUAGE=C # of the messages that are read here
setup=$1 folder=$2
registry='Software\Microsoft\Windows\CurrentVersion\Uninstall\Dayvane'
menu() { find "$WINEPREFIX/drive_c" -path '*Start Menu*' -ipath '*dayvane*'; }
registered() { wine reg query "$1\\$registry" >/dev/null 2>&1; }
fail() { echo "$*"; exit 1; }

# wait_for SECONDS COMMAND...
wait_for() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
        sleep 0.2
    done
}
shows_planner() { xdotool search --onlyvisible --class planner.exe >/dev/null 2>&1; }

for mode in CurrentUser AllUsers; do
    root=HKCU
    [ "$mode" = CurrentUser ] || root=HKLM
    target=$WINEPREFIX/drive_c/Dayvane$mode
    wine "$setup" /S "/$mode" "/D=C:\\Dayvane$mode"
    [ "$(diff -r --brief "$folder" "$target" 2>&1)" = "Only in $target: uninstall.exe" ] ||
        fail "$mode: other files than the package's: $(diff -r --brief "$folder" "$target" 2>&1 | head -5)"
    [ -e "$target/uninstall.exe" ] || fail "$mode: no uninstaller"
    registered "$root" || fail "$mode: not in the list of programs"
    [ "$(menu | wc -l)" -eq 3 ] || fail "$mode: the start menu has $(menu)"

    wine "$target/win32/bin/planner.exe" "$(winepath -w "$target/samples/data/office.ics")" &
    planner=$!
    wait_for 60 shows_planner || fail "$mode: the planner shows no window"
    kill "$planner"
    wait "$planner" 2>/dev/null || true

    wine "$target/uninstall.exe" /S "/$mode"
    gone() { [ ! -e "$target" ] && ! registered "$root"; }
    wait_for 60 gone || fail "$mode: left behind: $(find "$target" 2>/dev/null | head -5)"
    [ -z "$(menu)" ] || fail "$mode: left in the start menu: $(menu)"
    [ -z "$(find "$WINEPREFIX/drive_c/users" -iname '*dayvane*')" ] || fail "$mode: left in the user's folder"
    echo "$mode: installed, used, removed"
done
