# shellcheck shell=bash
# Showing the planner. Sourced by ./dev.

# Longest time from the start of the planner to its finished window, in seconds.
planner_time_limit=60
# Fewer colours than this: the window is still empty.
painted_colors=16
pages_dpi=110 # of the pictures of printed pages

command_run() {
    local file="" shot="" pages="" dialog="" system=932 planner_arguments=()
    while [ $# -gt 0 ]; do
        case $1 in
            --view | --date | --size | --shot | --pages | --paper | --theme | --scale | --days | --zone | --holidays | --dialog | \
                --language | --system)
                [ $# -ge 2 ] || die "$1 needs a value; ./dev help tells which."
                case $1 in
                    --shot) shot=$2 ;;
                    --pages) pages=$2 ;;
                    --system) system=$2 ;;
                    --dialog)
                        dialog=$2
                        planner_arguments+=("$1" "$2")
                        ;;
                    --holidays) planner_arguments+=(--holidays "$(winepath_of "$2")") ;;
                    *) planner_arguments+=("$1" "$2") ;;
                esac
                shift
                ;;
            -*) die "./dev run knows no option '$1'." ;;
            *) file=$1 ;;
        esac
        shift
    done
    check_system "$system"
    file=${file:-$ROOT/samples/data/office.ics}
    [ -r "$file" ] || die "There is no calendar file $file."
    need_wine
    has_target win32 planner || die "The planner is not part of this tree yet."
    build win32 planner
    export FONTCONFIG_FILE=$ROOT/tools/fonts.conf
    planner_arguments=("$(winepath_of "$file")" "${planner_arguments[@]}")

    if [ -n "$pages" ]; then
        print_pages "$system" "$pages" "${planner_arguments[@]}"
    elif [ -n "${DISPLAY:-}" ] && [ -z "$shot" ]; then
        start_system desktop
        step "The planner is open; close its window to end"
        run_windows "$BUILD/win32/bin/planner.exe" "${planner_arguments[@]}"
    else
        shoot_planner "$system" "${shot:-$BUILD/shots/planner.png}" "${planner_arguments[@]}"
    fi
}

# shoot_planner SYSTEM PICTURE ARGUMENT...: the planner in a virtual display, a picture of its window, its end.
shoot_planner() {
    local system=$1 picture=$2 log pid window
    shift 2
    mkdir -p "$(dirname "$picture")" || die "The folder of $picture cannot be made."
    start_system "$system"
    log=$(log_file planner)
    step "Showing the planner in a virtual display"
    wine "$BUILD/win32/bin/planner.exe" "$@" >"$log" 2>&1 9>&- &
    pid=$!
    at_exit "kill $pid 2>/dev/null"
    if ! wait_until "$planner_time_limit" window_of_planner_or_end "$pid" || ! kill -0 "$pid" 2>/dev/null; then
        show_planner_log "$system" "$log" >&2
        die "The planner showed no window; its output is in $log."
    fi
    # A dialog that is asked for opens after the window, and is what the picture shows.
    [ -z "${dialog:-}" ] || wait_until "$planner_time_limit" has_dialog || die "The planner showed no dialog."
    window=$(planner_window)
    wait_until "$planner_time_limit" is_painted "$window" || die "The planner's window stayed empty."
    mv "$BUILD/shots/.now.png" "$picture"
    show_planner_log "$system" "$log"
    say "The planner's window is in $picture"
}

# print_pages SYSTEM PREFIX ARGUMENT...: what the view prints, by the PostScript driver, as PREFIX-1.png, ...
print_pages() {
    local system=$1 prefix=$2 log postscript=$BUILD/shots/.pages.ps
    shift 2
    need_packages "${paper_packages[@]}"
    build win32 add_printer
    mkdir -p "$(dirname "$prefix")" "$(dirname "$postscript")" || die "The folder of $prefix cannot be made."
    start_system "$system"
    log=$(log_file pages)
    run_windows "$BUILD/win32/bin/add_printer.exe" "$(winepath_of "$ROOT/tools/paper.ppd")" >"$log" 2>&1 ||
        die "The printer could not be added; see $log."
    rm -f "$postscript" "$prefix"-[0-9]*.png
    run_guarded "$log" wine "$BUILD/win32/bin/planner.exe" "$@" --pages "$(winepath_of "$postscript")" ||
        { show_planner_log "$system" "$log" >&2; die "Nothing was printed."; }
    # Landscape pages lie on their side in the file, with the left edge down.
    gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=png16m -r"$pages_dpi" -dTextAlphaBits=4 -dGraphicsAlphaBits=4 \
        -dAutoRotatePages=/None -sOutputFile="$prefix-%d.png" "$postscript" >>"$log" 2>&1 ||
        die "ghostscript refuses the pages; see $log."
    if grep -q '^%%Orientation: Landscape' "$postscript"; then
        mogrify -rotate 90 "$prefix"-[0-9]*.png
    fi
    show_planner_log "$system" "$log"
    say "The pages are in $prefix-1.png and so on"
}

# What the planner wrote, from its system's code page.
show_planner_log() { tail -n 20 "$2" | iconv -c -f "CP$1" -t UTF-8 | tr -d '\r'; }

window_of_program() { xdotool search --onlyvisible --class "$1" 2>/dev/null | tail -n 1 | grep .; }
planner_window() { window_of_program planner.exe; }
has_dialog() { [ "$(xdotool search --onlyvisible --class planner.exe 2>/dev/null | wc -l)" -ge 2 ]; }
window_of_planner_or_end() { planner_window >/dev/null || ! kill -0 "$1" 2>/dev/null; }

# Painted: there is something in it, and the next picture is the same.
is_painted() {
    local before=${last_signature:-} colors
    mkdir -p "$BUILD/shots"
    import -window "$1" "$BUILD/shots/.now.png" 2>/dev/null || return 1
    read -r last_signature colors < <(identify -format '%# %k\n' "$BUILD/shots/.now.png")
    [ "$colors" -ge "$painted_colors" ] && [ "$last_signature" = "$before" ]
}
