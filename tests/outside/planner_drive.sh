#!/usr/bin/env bash
# The planner used by hand, from outside: pointer, wheel and keys go through the display, the saved file tells what came
# of it. Nothing waits a fixed time; whatever is expected is asked for until it is there or its time is over.
#
# planner_drive.sh PLANNER.EXE FOLDER: needs Wine's environment and a display of its own; works in the folder.
set -euo pipefail

planner=$1
folder=$2
file=$folder/drive.ics
# shellcheck source=tests/outside/hands.sh
. "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

# Where the month lies in a window of 1000 x 800 without the side pane, pixels.
grid_left=5 grid_top=119 column=138 row=108
bar_y=25     # from a cell's top: the first item
blank_y=85   # and where no item is
caption=300x30+10+72

original() {
    printf '%s\r\n' BEGIN:VCALENDAR VERSION:2.0 'X-UNKNOWN;a="b;c":kept  as it is' BEGIN:VEVENT UID:meeting \
        DTSTART:20260415T093000 DTEND:20260415T103000 SUMMARY:Meeting X-ALSO:kept BEGIN:X-PART 'Y:1,2;3' END:X-PART \
        END:VEVENT BEGIN:VEVENT UID:trip 'DTSTART;VALUE=DATE:20260421' 'DTEND;VALUE=DATE:20260424' SUMMARY:Trip \
        END:VEVENT END:VCALENDAR
}

at() { printf '%d %d' $((grid_left + $1 * column + ${3:-60})) $((grid_top + $2 * row + $4)); }
# Column and row from 0, pixels from the cell's left edge.
blank() { at "$1" "$2" "${3:-60}" $blank_y; }
bar() { at "$1" "$2" "${3:-60}" $bar_y; }
# shellcheck disable=SC2046  # two words: x and y
click() { xdotool mousemove $("$@") click 1; }
look() { import -window root -crop "$1" +repage rgb:- | cksum; }
looks() { [ "$(look "$1")" = "$2" ]; }
bar_area() { printf '100x16+%d+%d' $((grid_left + $1 * column + 20)) $((grid_top + $2 * row + bar_y - 8)); }

# moves the pointer on, a little to and fro, until the picture has changed there: the item follows the pointer
shake_until_changed() {
    # shellcheck disable=SC2046
    xdotool mousemove $(blank "$3" "$4" $((50 + RANDOM % 20)))
    ! looks "$1" "$2"
}
# pull FROM-COLUMN ROW PIXELS TO-COLUMN ROW: takes the item and holds it over the other day
pull() {
    local area
    area=$(bar_area "$1" "$2")
    click bar "$1" "$2" "$3"
    save
    wait_until_still "$area"
    held_look=$still
    # shellcheck disable=SC2046
    xdotool mousemove $(bar "$1" "$2" $(($3 + 20))) mousedown 1
    until_true shake_until_changed "$area" "$held_look" "$4" "$5"
}
is_still() {
    local before=${still:-}
    still=$(look "$1")
    [ "$still" = "$before" ]
}
wait_until_still() {
    still=""
    until_true is_still "$1"
}
rm -rf "$folder"
mkdir -p "$folder"
original >"$file"
start_planner "$planner" --view month --date 2026-04-15
xdotool key ctrl+b # without the side pane
wait_until_still 960x700+0+60

meeting=20260415T093000/20260415T103000
moved=20260417T093000/20260417T103000
trip=Trip@20260421/20260424
lunch=Lunch@20260408/20260409
course=Course@20260406/20260409

click blank 3 1
xdotool key Return
type_enter Lunch
expect "a new item on the day clicked" "$lunch Meeting@$meeting $trip"

click blank 1 1
xdotool key shift+Right shift+Right Return
type_enter Course
expect "a new item over days taken with Shift" "$course $lunch Meeting@$meeting $trip"

click bar 3 2
xdotool key F2
type_enter Talk
expect "renamed with F2" "$course $lunch Talk@$meeting $trip"
xdotool key F2
xdotool type --delay 0 Nonsense
xdotool key Escape
expect "Escape leaves the name" "$course $lunch Talk@$meeting $trip"

status=0
pull 3 2 30 5 2 || status=1
xdotool mouseup 1
check "the item follows the pointer" "$status" "no change of the picture"
expect "dragged to another day" "$course $lunch Talk@$moved $trip"
xdotool key ctrl+z
expect "undone" "$course $lunch Talk@$meeting $trip"
xdotool key ctrl+y
expect "done again" "$course $lunch Talk@$moved $trip"

status=0
pull 5 2 30 1 2 && xdotool key Escape && until_true looks "$(bar_area 5 2)" "$held_look" || status=1
xdotool mouseup 1
check "Escape puts the dragged item back" "$status" "another picture than before the drag"
expect "and nothing is changed" "$course $lunch Talk@$moved $trip"

# shellcheck disable=SC2046
xdotool mousemove $(blank 2 5)
april=$(look $caption)
xdotool click --repeat 4 --delay 20 5
click blank 3 0
xdotool key Return
type_enter Late
expect "four weeks on by the wheel" "$course $lunch Talk@$moved $trip Late@20260429/20260430"
xdotool click --repeat 4 --delay 20 4
status=0
until_true looks $caption "$april" || status=1
check "and back" "$status" "another caption"

close_planner

# What it did not understand, and what nobody touched, is there byte for byte; new items come behind.
status=0
original | sed "s/20260415T/20260417T/; s/SUMMARY:Meeting/SUMMARY:Talk/" | head -n -1 >"$folder/expected"
cmp <(head -c "$(wc -c <"$folder/expected")" "$file") "$folder/expected" || status=1
check "the rest of the file is as it was" "$status" "$(cat -A "$file")"

print_totals
