#!/usr/bin/env bash
# The planner used by keys alone, in every view: an item is made, moved, made longer, copied, renamed and deleted; the
# saved file tells what came of each.
#
# planner_keys.sh PLANNER.EXE FOLDER: needs Wine's environment and a display of its own; works in the folder.
set -euo pipefail

planner=$1
folder=$2
file=$folder/keys.ics
# shellcheck source=tests/outside/hands.sh
. "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

has_window() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
has_no_window() { ! has_window "$1"; }
go_to() {
    xdotool key ctrl+g
    until_true has_window 'Go to date'
    xdotool search --onlyvisible --name '^Go to date$' windowfocus --sync 2>/dev/null || true
    type_enter "$1"
    until_true has_no_window 'Go to date'
}

# in_view VIEW KEY MADE MOVED LONGER COPY: the times of the item after each step. It is made on 15 April, then moved by
# a step down; its end is moved by a step down, too; the copy is put on 20 April.
in_view() {
    local view=$1 made=$3 moved=$4 longer=$5 copy=$6
    xdotool key "$2"
    go_to 2026-04-15
    xdotool key Return
    type_enter One
    expect "$view: made" "One@$made"
    xdotool key ctrl+Down ctrl+Return
    expect "$view: moved" "One@$moved"
    xdotool key ctrl+shift+Down ctrl+Return
    expect "$view: made longer" "One@$longer"
    xdotool key ctrl+c
    go_to 2026-04-20
    xdotool key ctrl+v
    expect "$view: copied" "$(printf '%s\n' "One@$longer" "One@$copy" | sort -t @ -k 2 | paste -s -d ' ')"
    xdotool key F2
    type_enter Two
    expect "$view: renamed" "$(printf '%s\n' "One@$longer" "Two@$copy" | sort -t @ -k 2 | paste -s -d ' ')"
    xdotool key Delete
    expect "$view: deleted" "One@$longer"
    go_to "${moved:0:4}-${moved:4:2}-${moved:6:2}"
    xdotool key Tab Delete
    expect "$view: found with Tab and deleted" ""
}

# details: the dialog of the chosen item, the keys that are given, Enter
details() {
    xdotool key "$1"
    until_true has_window Item
    shift
    for each in "$@"; do
        case $each in
        alt+*) xdotool key "$each" ;;
        *) xdotool type --delay 0 "$each" ;;
        esac
    done
    xdotool key Return
    until_true has_no_window Item
}

# in_agenda: the list has no places to move an item to; its times are typed
in_agenda() {
    xdotool key ctrl+9
    go_to 2026-04-15
    details Insert One
    expect "agenda: made" "One@20260415/20260416"
    details ctrl+Return alt+s 2026-04-16
    expect "agenda: moved" "One@20260416/20260417"
    details ctrl+Return alt+e 2026-04-18
    expect "agenda: made longer" "One@20260416/20260419"
    xdotool key ctrl+c
    go_to 2026-04-20
    xdotool key ctrl+v
    expect "agenda: copied" "One@20260416/20260419 One@20260420/20260423"
    details F2 Two
    expect "agenda: renamed" "One@20260416/20260419 Two@20260420/20260423"
    xdotool key Delete
    expect "agenda: deleted" "One@20260416/20260419"
    go_to 2026-04-16
    xdotool key Tab Delete
    expect "agenda: found with Tab and deleted" ""
}

rm -rf "$folder"
mkdir -p "$folder"
printf '%s\r\n' BEGIN:VCALENDAR VERSION:2.0 END:VCALENDAR >"$file"
start_planner "$planner" --view month --date 2026-04-15

days=20260422/20260430
in_view month ctrl+6 20260415/20260416 20260422/20260423 $days 20260420/20260428
in_view month2 ctrl+7 20260415/20260416 20260422/20260423 $days 20260420/20260428
in_view diary ctrl+5 20260415/20260416 20260419/20260420 20260419/20260424 20260420/20260425
in_view year ctrl+8 20260415/20260416 20261015/20261016 20261015/20270416 20260420/20261020
half=20260415T080000/20260415T083000 next=20260415T083000/20260415T090000 hour=20260415T083000/20260415T093000
in_view week ctrl+3 $half $next $hour 20260420T080000/20260420T090000
in_view workweek ctrl+2 $half $next $hour 20260420T080000/20260420T090000
in_view days ctrl+4 $half $next $hour 20260420T080000/20260420T090000
in_view day ctrl+1 $half $next $hour 20260420T080000/20260420T090000
in_agenda

close_planner
print_totals
