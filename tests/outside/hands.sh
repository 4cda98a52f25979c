# What the scripts share that use the planner from outside: they set `folder` and `file` and source this. Nothing waits
# a fixed time; whatever is expected is asked for until it is there or its time is over.
deadline_seconds=15
passed=0
failed=0

until_true() {
    local end=$((SECONDS + deadline_seconds))
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}

# check WHAT STATUS SEEN
check() {
    if [ "$2" -eq 0 ]; then
        passed=$((passed + 1))
        echo "ok      $1"
    else
        failed=$((failed + 1))
        echo "FAILED  $1; seen: $3"
        import -window root "$folder/failed-$failed.png" && echo "        picture: $folder/failed-$failed.png"
    fi
}

# The items of the file: SUMMARY@DTSTART/DTEND, by start.
items() {
    [ -e "$file" ] || return 0
    tr -d '\r' <"$file" | sed -n 's/^\(DTSTART\|DTEND\|SUMMARY\)[^:]*:\(.*\)/\1 \2/p; s/^END:VEVENT/end/p' |
        awk '/^end/ { print v["SUMMARY"] "@" v["DTSTART"] "/" v["DTEND"]; next } { k = $1; sub(/^[^ ]* /, ""); v[k] = $0 }' |
        sort -t @ -k 2 | paste -s -d ' '
}
# One save, and the wait for its file: with it all that was done before has been done, too.
file_state() { stat -c '%i %z' "$file"; }
is_saved() { [ "$(file_state)" != "$1" ]; }
save() {
    local before
    before=$(file_state)
    xdotool key ctrl+s
    until_true is_saved "$before"
}
has_items() { [ "$(items)" = "$1" ]; }
expect() {
    local status=0
    save && until_true has_items "$2" || status=1
    check "$1" "$status" "$(items)"
}
type_enter() { xdotool type --delay 0 "$1" && xdotool key Return; }
is_painted() { [ "$(import -window root -crop 960x700+0+60 -format %k info:-)" -ge 16 ]; }

# start_planner PLANNER.EXE OPTION...: opens the file, with settings of its own, and waits for its picture. Sets pid.
start_planner() {
    local program=$1 full_name folder_name
    shift
    full_name=$(realpath "$file")
    folder_name=$(realpath "$folder")
    wine "$program" "Z:${full_name//\//\\}" --size 1000x800 --language en --days none \
        --settings "Z:${folder_name//\//\\}\\planner.ini" "$@" &
    pid=$!
    trap 'kill $pid 2>/dev/null || true' EXIT
    timeout 60 xdotool search --sync --onlyvisible --class planner.exe >/dev/null || {
        echo "the planner shows no window"
        exit 1
    }
    until_true is_painted || echo "the window stayed empty"
}

is_gone() { ! kill -0 "$pid" 2>/dev/null; }
close_planner() {
    local status=0
    xdotool key alt+F4
    until_true is_gone && wait "$pid" || status=1
    check "closed with Alt+F4" "$status" "the program still runs or failed"
}

print_totals() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}
