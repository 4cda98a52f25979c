#!/usr/bin/env bash
# ten_minutes.sh ZIP WORK: from the zip alone, follows the page start.md that is in it: writes the files it shows, runs
# its commands as they stand, and takes a picture of the window that each of its programs shows. Needs a display.
set -euo pipefail
zip=$1 work=$2
rm -rf "$work"
mkdir -p "$work"
cd "$work"
unzip -q "$zip"

# The page as a script: each file that it shows, then the lines of its sh blocks, in their order.
awk '
    /^`[A-Za-z.]+`:$/ { name = $0; gsub(/[`:]/, "", name) }
    /^```/ && !inside {
        kind = substr($0, 4)
        inside = 1
        if (name != "") { printf "cat >%s <<\"END OF FILE\"\n", name }
        next
    }
    /^```/ {
        if (name != "") { print "END OF FILE" }
        inside = 0
        name = ""
        next
    }
    inside && (name != "" || kind == "sh") { print }
' dayvane/docs/start.md >page.sh

# Where the page starts a program, its window is awaited and photographed, and the program ended.
wine() {
    local picture=$work/$(basename "$1" .exe).png colors program deadline=$((SECONDS + 60))
    command wine "$@" &
    program=$!
    until xdotool search --name '^Hello$' >/dev/null 2>&1; do
        kill -0 "$program" 2>/dev/null || { echo "$1 ended by itself" && exit 1; }
        [ "$SECONDS" -lt "$deadline" ] || { echo "$1 shows no window" && exit 1; }
        sleep 0.1
    done
    # Within its frame a calendar has many colours; a window that is not painted has one.
    until import -window root "$picture" && colors=$(convert "$picture" -crop 700x500+60+80 -format %k info:) &&
        [ "$colors" -gt 20 ]; do
        [ "$SECONDS" -lt "$deadline" ] || { echo "$1 shows no calendar: $colors colours" && exit 1; }
        sleep 0.2
    done
    kill "$program"
    wait "$program" 2>/dev/null || true
    while xdotool search --name '^Hello$' >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$deadline" ] || { echo "the window of $1 stays" && exit 1; }
        sleep 0.1
    done
    echo "$1 shows a calendar"
    shown=$((shown + 1))
}

shown=0
# shellcheck source=/dev/null
source page.sh
[ "$shown" -eq 3 ] || { echo "the page showed $shown programs, not 3" && exit 1; }
