#!/usr/bin/env bash
# The planner used without sight: a program in another process says what each view shows and acts on it, keys do the
# rest, the saved file tells what came of it. What was said of each view stays in FOLDER beside its picture.
#
# planner_reader.sh PLANNER.EXE SCREEN_READER.EXE FOLDER: needs Wine's environment and a display of its own.
set -euo pipefail

planner=$1
reader=$2
folder=$3
file=$folder/reader.ics
# shellcheck source=tests/outside/hands.sh
. "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

event() { printf '%s\r\n' BEGIN:VEVENT "UID:$1" "DTSTART$2" "DTEND$3" "SUMMARY:$4" END:VEVENT; }
rm -rf "$folder"
mkdir -p "$folder"
{
    printf '%s\r\n' BEGIN:VCALENDAR VERSION:2.0
    event meeting :20260415T093000 :20260415T103000 Meeting
    event trip ';VALUE=DATE:20260421' ';VALUE=DATE:20260424' Trip
    for i in 1 2 3 4 5 6 7 8 9; do
        event "crowd$i" ":20260417T1${i}0000" ":20260417T1${i}3000" "Crowd $i"
    done
    printf '%s\r\n' END:VCALENDAR
} >"$file"

say() { wine "$reader" reader.ics "$@" | tr -d '\r'; }
# does WHAT COMMAND...: the reader finds it and acts
does() {
    local what=$1 status=0 said
    shift
    said=$(say "$@") || status=1
    check "$what" "$status" "$said"
}
says() { say "${@:2}" >"$folder/said.txt" && grep -qE -- "$1" "$folder/said.txt"; }

start_planner "$planner" --view month --date 2026-04-15

# reads KEY NAME BEGIN LINE...: the view of a key, whose table is called BEGIN; each line is said
reads() {
    local key=$1 name=$2 begin=$3 line status
    shift 3
    xdotool key "$key"
    does "finds the $name view" hear "$begin"
    say read "$begin" >"$folder/$name.txt"
    import -window root "$folder/$name.png"
    for line in "$@"; do
        status=0
        grep -qF -- "$line" "$folder/$name.txt" || status=1
        check "$name: $line" "$status" "$folder/$name.txt"
    done
}
reads ctrl+6 month "Month calendar, April 2026" "Wednesday 15 April 2026, 1 item" \
    "9:30 to 10:30 Meeting" "All day Trip, ends on Thursday" "more items"
reads ctrl+7 month2 "Month calendar, April 2026" "9:30 to 10:30 Meeting"
reads ctrl+5 diary "Week calendar" "Wednesday 15 April 2026, 1 item" "9:30 to 10:30 Meeting"
reads ctrl+8 year "Year calendar" "April 2026, 11 items" "Wednesday 15 April 9:30 to 10:30 Meeting"
reads ctrl+3 week "Calendar of several days" "9:30 to 10:30 Meeting" "9:30, Wednesday 15 April"
reads ctrl+2 workweek "Calendar of several days, Monday 13 April to Friday 17 April 2026" "9:30 to 10:30 Meeting" \
    "7:30, Wednesday 15 April, outside working hours"
reads ctrl+4 days "Calendar of several days, Wednesday 15 April to Saturday 18 April 2026" "9:30 to 10:30 Meeting"
reads ctrl+9 agenda "Agenda" "Wednesday 15 April 2026, 1 item" "9:30 to 10:30 Meeting" "All day Trip, ends on Thursday"
reads ctrl+1 day "Day calendar, Wednesday 15 April 2026" "9:30 to 10:30 Meeting" "Whole day, Wednesday 15 April"
does "says which days are busy" hear "Wednesday 15 April 2026, marked"
xdotool key ctrl+6
does "finds the month again" hear "Month calendar, April 2026"

crowd=$(for i in 1 2 3 4 5 6 7 8 9; do echo "Crowd $i@20260417T1${i}0000/20260417T1${i}3000"; done | paste -s -d ' ')
trip=Trip@20260421/20260424
does "renames" rename Meeting Talk
expect "and the file has the name" "Talk@20260415T093000/20260415T103000 $crowd $trip"

does "selects" select Talk
xdotool key ctrl+Right ctrl+Right ctrl+Return
does "says where it went" hear "Moved to Friday 17 April"
expect "and the file has the day" "Talk@20260417T093000/20260417T103000 $crowd $trip"

does "opens what hides behind a mark" press "Month calendar" "$(say read "Month calendar" |
    grep -o '[0-9]* more items' | head -n 1)"
status=0
until_true says "Friday 17 April 19:00 to 19:30 Crowd 9" lists || status=1
check "and reads the list" "$status" "$(cat "$folder/said.txt")"
does "chooses from it" press Items "Friday 17 April 19:00 to 19:30 Crowd 9"
status=0
until_true says "Crowd 9.*[[]selected[]]" read "Month calendar" || status=1
check "and it is selected" "$status" "$folder/said.txt"

does "selects again" select Talk
xdotool key Delete
expect "deleted" "$crowd $trip"

does "pages the small calendar" press "Small calendar" "Next month"
does "chooses a day there" press "Small calendar" "Wednesday 20 May 2026"
does "and the view follows" hear "Month calendar, May 2026"

close_planner
print_totals
