#!/usr/bin/env bash
# Some work of somebody in an office, played through the display: a reminder, a date that is typed, a weekly meeting by
# the event dialog, a crash with changes that were not saved, an item that is searched and moved, the pages looked at
# before printing. GNOME's reader (read_calendar.py) says what it finds in the saved file.
#
# planner_week.sh PLANNER.EXE FOLDER: needs Wine's environment and a display of its own; works in the folder.
set -euo pipefail

planner=$1
folder=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
file=$folder/week.ics
pid=""
# shellcheck source=tests/outside/hands.sh
. "$here/hands.sh"
deadline_seconds=20

found() { /usr/bin/python3 "$here/read_calendar.py" "$file" 2026-04-13 2026-05-09 | paste -s -d ';'; }
reads() { [ "$(found)" = "$1" ]; }
expect() {
    local status=0
    save && until_true reads "$2" || status=1
    check "$1" "$status" "$(found)"
}

has_window() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
has_no_window() { ! has_window "$1"; }
# open_window KEY TITLE
open_window() {
    xdotool key "$1"
    until_true has_window "$2"
    xdotool search --onlyvisible --name "^$2\$" windowfocus --sync 2>/dev/null || true
}
type_text() { xdotool type --delay 0 "$1"; }
windows_path() { local full; full=$(realpath "$1"); printf 'Z:%s' "${full//\//\\}"; }

start_planner() {
    wine "$planner" "$(windows_path "$file")" --view week --date 2026-04-15 --size 1000x800 --language en \
        --settings "$(windows_path "$folder")\\planner.ini" --copy-every 1 &
    pid=$!
    timeout 60 xdotool search --sync --onlyvisible --class planner.exe >/dev/null
}
trap 'kill $pid 2>/dev/null || true' EXIT

rm -rf "$folder"
mkdir -p "$folder"
now=$(date -u +%Y%m%dT%H%M00Z)
printf '%s\r\n' BEGIN:VCALENDAR VERSION:2.0 PRODID:-//office//EN BEGIN:VEVENT UID:call DTSTAMP:20260401T000000Z \
    "DTSTART:$now" SUMMARY:Call BEGIN:VALARM ACTION:DISPLAY DESCRIPTION:x TRIGGER:PT0S END:VALARM END:VEVENT \
    END:VCALENDAR >"$file"
start_planner
until_true is_painted || echo "the window stayed empty"

# The reminder of the call that begins now comes up by itself, within its 20 seconds.
deadline_seconds=45
status=0
until_true has_window Reminders || status=1
check "a reminder comes up" "$status" "no window"
# It has not taken the focus: typing goes on where it was.
xdotool mousemove --window "$(xdotool search --onlyvisible --name '^Reminders$' | head -n 1)" 62 160 click 1
status=0
until_true has_no_window Reminders || status=1
deadline_seconds=20
save || status=1
grep -q '^ACKNOWLEDGED:' "$file" || status=1
check "and is dismissed in the file" "$status" "$(cat "$file")"

# Monday: a meeting every week, by the dialog.
open_window ctrl+g 'Go to date'
type_text 13.4
xdotool key Return
until_true has_no_window 'Go to date'
open_window ctrl+Insert Item
type_text 'Team meeting'
xdotool key alt+s
type_text 2026-04-13
xdotool key Tab
xdotool key ctrl+a
type_text 9:00
xdotool key alt+e
type_text 2026-04-13
xdotool key Tab
xdotool key ctrl+a
type_text 10:30
xdotool key alt+p
type_text 'Room 4'
xdotool key alt+r
type_text W
xdotool key Return
until_true has_no_window Item
series='2026-04-13 09:00 90min Team meeting;2026-04-20 09:00 90min Team meeting'
series="$series;2026-04-27 09:00 90min Team meeting;2026-05-04 09:00 90min Team meeting"
expect "a weekly meeting by the dialog" "$series"

# A crash: what was changed and not saved is offered at the next start.
open_window ctrl+Insert Item
type_text Dentist
xdotool key alt+s
type_text 2026-04-16
xdotool key alt+e
type_text 2026-04-16
xdotool key Return
until_true has_no_window Item
status=0
until_true test -s "$file.autosave" || status=1
check "a copy of the unsaved changes" "$status" "$(ls "$folder")"
kill -9 "$(pgrep -P "$pid" 2>/dev/null | head -n 1)" "$pid" 2>/dev/null || kill -9 "$pid"
wait "$pid" 2>/dev/null || true
until_true has_no_window '.* - Planner'
start_planner
status=0
until_true has_window Planner || status=1
check "is offered after the crash" "$status" "no question"
xdotool key alt+y
until_true is_painted
expect "and is there again" "${series%%;*};2026-04-16 08:00 30min Dentist;${series#*;}"

# From another month: the search goes to the item, which is moved by its dialog, deleted, and brought back.
find_dentist() {
    open_window ctrl+g 'Go to date'
    type_text 2026-07-01
    xdotool key Return
    until_true has_no_window 'Go to date'
    open_window ctrl+f Find
    type_text dentist
    xdotool key Return Escape
    until_true has_no_window Find
}
find_dentist
open_window ctrl+Return Item
xdotool key alt+s
type_text 2026-04-17
xdotool key Return
until_true has_no_window Item
moved="${series%%;*};2026-04-17 08:00 30min Dentist;${series#*;}"
expect "an item that was searched is moved" "$moved"
find_dentist
xdotool key Delete
expect "deleted" "$series"
xdotool key ctrl+z
expect "and brought back" "$moved"

# The pages before printing: another picture, and Escape is the way back.
picture() { import -window root -crop 960x600+20+100 -depth 8 rgb:- | md5sum; }
differs_from() { [ "$(picture)" != "$1" ]; }
is_picture() { [ "$(picture)" = "$1" ]; }
calendar=$(picture)
xdotool key alt+f
sleep 0.3
xdotool key v
status=0
until_true differs_from "$calendar" || status=1
check "the pages are shown before they are printed" "$status" "the calendar"
xdotool key Escape
status=0
until_true is_picture "$calendar" || status=1
check "and Escape goes back to the calendar" "$status" "something else"
expect "the file is as it was" "$moved"

print_totals
