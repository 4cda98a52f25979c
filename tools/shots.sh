# shellcheck shell=bash
# The pictures of docs/shots, made again from one table. Sourced by ./dev.

shots_folder=$ROOT/docs/shots

# Where calendars lie that are not samples of ours; their pictures are left as they are where it is not given.
calendars_folder=${DAYVANE_CALENDARS:-}

# Windows: name, calendar, views, date, theme, scale in per cent, size, language, system. {view} in the name stands for
# each of the views; "all" are all of them. The first eight rows show every view in light and dark, at 100 and 200 per
# cent, in Japanese and English; the next two at 150 per cent.
list_windows() {
    sed 's/ all / day,workweek,week,diary,month,month2,year,agenda /' <<'TABLE'
planner-{view}             office          all         2026-11-20 light    100 1180x860 ja 932
planner-en-{view}          office          all         2026-11-20 light    100 1180x860 en 932
planner-200-ja-{view}      office          all         2026-11-20 light    200 1360x960 ja 932
planner-200-{view}         office          all         2026-11-20 light    200 1360x960 en 932
planner-dark-ja-{view}     office          all         2026-11-20 dark     100 1180x860 ja 932
planner-dark-{view}        office          all         2026-11-20 dark     100 1180x860 en 932
planner-dark-200-{view}    office          all         2026-11-20 dark     200 1360x960 ja 932
planner-dark-200-en-{view} office          all         2026-11-20 dark     200 1360x960 en 932
planner-150-{view}         office          all         2026-11-20 light    150 1360x960 en 932
planner-dark-150-{view}    office          all         2026-11-20 dark     150 1360x960 ja 932
planner-classic-{view}     office          month,week  2026-11-20 classic  100 1180x860 ja 932
planner-contrast-{view}    office          month       2026-11-20 contrast 100 1180x860 ja 932
planner-1252-{view}        conference-2017 month       2017-04-25 light    100 1180x860 en 1252
planner-conference-{view}  conference-2017 day,week    2017-04-25 light    100 1180x860 en 932
TABLE
}

# Dialogs of the planner: name, dialogs, theme, scale, language, system. {dialog} in the name stands for each of them.
list_dialogs() {
    cat <<'TABLE'
dialog-{dialog}          item,series,find,date,reminders,changed,pages,new,question,progress light 100 en 932
dialog-ja-{dialog}       item,series,find,date,reminders,changed,pages,new,question,progress light 150 ja 932
dialog-dark-{dialog}     item,series,find,date,reminders,changed,pages,new,question,progress dark  150 en 932
dialog-dark-ja-{dialog}  item,series,find,date,reminders,changed,pages,new,question,progress dark  100 ja 932
TABLE
}

# Months with all that can be said of their days: name, date, language. Among them the change of the emperor, the moved
# holidays of 2020 and the autumn of 2033, where simple rules put the leap month wrong.
list_days() {
    cat <<'TABLE'
days-2026-02  2026-02-10 ja
days-2026-08  2026-08-10 en
days-2026-12  2026-12-10 ja
days-2019-05  2019-05-10 ja
days-2020-07  2020-07-10 ja
days-2033-09  2033-09-10 ja
days-2033-12  2033-12-10 en
TABLE
}

# Printed pages: name, calendar, view, date, paper, language, and how many of the sheets are kept.
list_pages() {
    cat <<'TABLE'
page-month            office           month     2026-11-20  A4               ja 2
page-december         office           month     2026-12-10  A4               ja 1
page-letter           office           month     2026-12-10  Letter-portrait  en 1
page-list             office           list      2026-11-20  A4               ja 1
page-december-list    office           list      2026-12-10  Letter           en 1
page-year             office           year      2026-11-20  A4               ja 1
page-workweek         office           workweek  2026-11-20  A4               ja 1
page-diary            office           diary     2026-11-20  A4               ja 1
page-day              office           day       2026-11-20  A4               ja 1
page-conference       conference-2017  month     2017-04-25  A4               en 2
page-conference-week  conference-2017  week      2017-04-25  A4               en 1
page-conference-day   conference-2017  day       2017-04-25  A4               en 1
TABLE
}

# shots [NAME|tests]: all pictures, or those whose name begins so; or the pictures in tests/pictures.
command_shots() {
    if [ "${1:-}" = tests ]; then
        in_subshell keep_pictures
        return
    fi
    local wanted=${1:-} name file views view date theme scale size language system paper kept calendar picture number
    while read -r -u 3 name file views date theme scale size language system; do
        for view in ${views//,/ }; do
            shoot_if_wanted "$wanted" "${name//\{view\}/$view}" "$file" --view "$view" \
                --date "$date" --theme "$theme" --scale "$scale" --size "$size" --language "$language" \
                --system "$system"
        done
    done 3< <(list_windows)
    while read -r -u 3 name views theme scale language system; do
        for view in ${views//,/ }; do
            shoot_if_wanted "$wanted" "${name//\{dialog\}/$view}" office --view week --date 2026-11-20 \
                --theme "$theme" --scale "$scale" --language "$language" --system "$system" --dialog "$view"
        done
    done 3< <(list_dialogs)
    while read -r -u 3 name date language; do
        shoot_if_wanted "$wanted" "$name" office --view month --date "$date" --size 1360x960 --language "$language" \
            --days names,terms,seasonal,rokuyo,lunar,moon,weeks,eras
    done 3< <(list_days)
    case selectors in "$wanted"* | ${wanted%%-*})
        in_subshell shoot_selectors || die "The date selectors could not be drawn."
        ;;
    esac
    case pickers-dialog in "$wanted"*)
        in_subshell shoot_dialog "$shots_folder/pickers-dialog.png" || die "The dialog could not be photographed."
        shrink_pictures "$shots_folder/pickers-dialog.png"
        ;;
    esac
    while read -r -u 3 name file view date paper language kept; do
        case $name in "$wanted"*) ;; *) continue ;; esac
        calendar=$(calendar_named "$file") || continue
        in_subshell command_run "$calendar" --view "$view" --date "$date" --paper "$paper" \
            --language "$language" --pages "$shots_folder/$name" || die "The pages $name could not be made."
        for picture in "$shots_folder/$name"-[0-9]*.png; do
            number=${picture%.png}
            [ "${number##*-}" -le "$kept" ] || rm -f "$picture"
        done
        shrink_pictures "$shots_folder/$name"-[0-9]*.png
    done 3< <(list_pages)
}

# The date selectors in every theme, scale and language of the views' pictures.
shoot_selectors() {
    local folder=$BUILD/shots/selectors drawn picture
    need_wine
    build win32 selector_pictures
    start_system 932
    rm -rf "$folder"
    mkdir -p "$folder"
    run_windows "$BUILD/win32/bin/selector_pictures.exe" "$(winepath_of "$folder")" >"$(log_file selectors)" 2>&1 || return
    for drawn in "$folder"/*.bmp; do
        picture=$shots_folder/$(basename "$drawn" .bmp).png
        convert "$drawn" "$picture"
        shrink_pictures "$picture"
    done
}

# The date selectors in a dialog: a day and a month are picked, the chooser is open.
shoot_dialog() {
    local picture=$1 pid window place
    need_wine
    build win32 dialog
    start_system 932
    step "Showing the sample dialog in a virtual display"
    wine "$BUILD/win32/bin/dialog.exe" >"$(log_file dialog)" 2>&1 9>&- &
    pid=$!
    at_exit "kill $pid 2>/dev/null"
    wait_until "$planner_time_limit" window_of_program dialog.exe >/dev/null || die "The dialog showed no window."
    window=$(window_of_program dialog.exe)
    for place in "118 124" "76 281" "312 239"; do # pixels of the window
        wait_until "$planner_time_limit" is_painted root || die "The dialog stayed empty."
        # shellcheck disable=SC2086  # two numbers
        xdotool mousemove --window "$window" $place click 1
    done
    wait_until "$planner_time_limit" is_painted root || die "The chooser stayed empty."
    eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=')"
    mkdir -p "$(dirname "$picture")"
    # The chooser reaches a little below the dialog.
    convert "$BUILD/shots/.now.png" -crop "${WIDTH}x$((HEIGHT + 2))+$X+$Y" +repage "$picture"
}

# What ./dev test compares views and date selectors with.
keep_pictures() {
    need_wine
    build win32 master_pictures
    start_system 932
    bash "$ROOT/tests/outside/master_pictures.sh" "$BUILD/win32/bin/master_pictures.exe" "$ROOT/tests/pictures" \
        "$BUILD/logs/pictures-kept" keep || die "The pictures could not be drawn."
}

# The file of a calendar; 1 where it is not here.
calendar_named() {
    local folder
    for folder in "$ROOT/samples/data" "$calendars_folder"; do
        if [ -n "$folder" ] && [ -r "$folder/$1.ics" ]; then
            say "$folder/$1.ics"
            return 0
        fi
    done
    warn "There is no calendar $1.ics here; its pictures stay as they are."
    return 1
}

# shoot_if_wanted WANTED NAME CALENDAR ARGUMENT...
shoot_if_wanted() {
    local wanted=$1 picture=$shots_folder/$2.png calendar
    case $2 in "$wanted"*) ;; *) return 0 ;; esac
    calendar=$(calendar_named "$3") || return 0
    shift 3
    in_subshell command_run "$calendar" "$@" --shot "$picture" || die "The picture $picture could not be made."
    shrink_pictures "$picture"
}

# Windows and pages have few colours.
shrink_pictures() {
    mogrify -strip +dither -colors 255 -define png:compression-level=9 "$@"
}
