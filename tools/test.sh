# shellcheck shell=bash
# Tests, stress runs and benchmarks. Sourced by ./dev.
#
# Each build writes the list of its test programs (tests.list: name, file, arguments). One process runs one program; a
# log is kept of each, and one line of results:  passed failed skipped seconds label

# Longest time for one test program, in seconds; a program that needs longer hangs.
test_time_limit=${DAYVANE_TEST_LIMIT:-600}
default_test_presets=(native win32 win64)
stress_events_in_test=3000 # for each of the two systems, from seeds of their own

command_test() {
    local presets=() only="" preset
    while [ $# -gt 0 ]; do
        case $1 in
            --only)
                [ $# -ge 2 ] || die "--only needs the name of a test program, for example calc."
                only=$2
                shift
                ;;
            -*) die "./dev test knows no option '$1'." ;;
            *)
                check_preset "$1"
                presets+=("$1")
                ;;
        esac
        shift
    done
    [ "${#presets[@]}" -gt 0 ] || presets=("${default_test_presets[@]}")
    # All that is missing is asked for at once, before any work.
    [ -n "$only" ] || need_packages "${native_packages[@]}" "${lint_packages[@]}"
    if [[ " ${presets[*]} " == *" win"* ]]; then
        need_wine
    else
        need_native_build
    fi
    make_build_root
    results=$(mktemp "$BUILD/.results.XXXXXX")
    at_exit "rm -f '$results'"

    if [ -z "$only" ]; then
        step "Testing the reading of test results and the format of the sources"
        run_plain_program "dev results" bash "$ROOT/tests/dev/results_test.sh"
        run_plain_program "dev format" bash "$ROOT/dev" format --check
        run_plain_program "dev generate" bash "$ROOT/dev" generate --check
    fi
    local windows_presets=()
    for preset in "${presets[@]}"; do
        case $preset in
            native*)
                test_natively "$preset" "$only"
                if [ "$preset" = native ] && [ -z "$only" ]; then
                    # clang-tidy needs minutes of both cores, and more where others use them: no sign that it hangs.
                    test_time_limit=$((4 * test_time_limit)) run_plain_program "dev lint" bash "$ROOT/dev" lint
                fi
                ;;
            *) windows_presets+=("$preset") ;;
        esac
    done
    if [ "${#windows_presets[@]}" -gt 0 ]; then
        test_under_wine "$only" "${windows_presets[@]}"
    fi
    print_totals
}

# The builds that a full test of PRESET needs; --only leaves out what is not asked for.
build_tests() {
    local preset=$1 only=$2
    if [ "$only" = package ]; then
        [ "$preset" != win32 ] || build win32 planner dialog # are in the zip; the rest is built on the way
    elif [ "$only" = stress ]; then
        return # builds what it needs itself
    elif [ "$only" = drive ] || [ "$only" = week ]; then
        [ "$preset" != win32 ] || build win32 planner screen_reader
    elif [ "$only" = pictures ]; then
        [ "$preset" != win32 ] || build win32 master_pictures
    elif [ "$only" = visual ]; then
        return # is no target of CMake's
    elif [ "$only" = pages ]; then
        [ "$preset" != win32 ] || build win32 planner add_printer
    elif [ -n "$only" ]; then
        has_target "$preset" "test_$only" || die "There is no test program test_$only in $preset."
        build "$preset" "test_$only"
    else
        build "$preset"
    fi
}

test_natively() {
    local preset=$1 only=$2
    build_tests "$preset" "$only"
    step "Testing $preset"
    # A test that reads the locale or the time zone must not depend on whose machine this is.
    programs_at_a_time=$(nproc)
    run_tests_of "$preset" "$preset" "$only" env LC_ALL=C.UTF-8 TZ=UTC
    programs_at_a_time=1
    if [ -z "$only" ] || [ "$only" = package ]; then
        test_native_package
    fi
}

# All Windows builds, in two lanes at a time: one as a Japanese, one as a Western system, each with its own display.
test_under_wine() {
    local only=$1 preset system lanes=() lane status=0
    shift
    for preset in "$@"; do
        build_tests "$preset" "$only"
        if [ -z "$only" ] || [ "$only" = package ]; then
            build_package_host "$preset"
        fi
    done
    if { [ -z "$only" ] || [ "$only" = visual ]; } && [[ " $* " == *" win32 "* ]]; then
        need_packages "${lint_packages[@]}"
        build_visual
    fi
    local with_stress=no
    if { [ -z "$only" ] || [ "$only" = stress ]; } && [[ " $* " == *" win32 "* ]] && build_stress; then
        with_stress=yes
    fi
    step "Testing $* under Wine as a 932 and as a 1252 system"
    for system in 932 1252; do
        (
            set_traps
            test_lane "$system" "$only" "$with_stress" "$@"
        ) </dev/null &
        lanes+=($!)
        at_exit "kill $! 2>/dev/null; wait $! 2>/dev/null"
    done
    for lane in "${lanes[@]}"; do
        wait "$lane" || status=$?
    done
    [ "$status" -eq 0 ] || die "A test lane broke off (status $status)."
}

test_lane() {
    local system=$1 only=$2 with_stress=$3 preset
    shift 3
    start_system "$system"
    for preset in "$@"; do
        run_tests_of "$preset" "$preset/$system" "$only" wine
        if [ -z "$only" ] || [ "$only" = package ]; then
            run_package_host "$preset" "$preset/$system" wine
            [ "$preset-$system" != win32-932 ] || follow_start_page "$system"
        fi
    done
    if { [ -z "$only" ] || [ "$only" = visual ]; } && [[ " $* " == *" win32 "* ]]; then
        run_visual_hosts "$system"
    fi
    if [ -z "$only" ] || [ "$only" = drive ]; then
        drive_planner "$system" "$@"
    fi
    if [ "$only" = week ]; then # needs another package and waits for a reminder: only when asked for
        play_week "$system" "$@"
    fi
    if [ -z "$only" ] || [ "$only" = pictures ]; then
        compare_pictures "$system" "$@"
    fi
    if [ -z "$only" ] || [ "$only" = pages ]; then
        check_pages "$system" "$@"
    fi
    if [ "$with_stress" = yes ]; then
        run_plain_program "win32-ubsan/$system stress" env WINEDEBUG=warn+heap wine "$(stress_program)" \
            "$stress_events_in_test" "$system"
    fi
}

# run_visual_hosts SYSTEM: programs and a Dayvane.dll in the binary interface of Visual C++.
run_visual_hosts() {
    local host
    for host in "${visual_hosts[@]}"; do
        run_plain_program "visual/$1 ${host%Host}" wine "$BUILD/visual/$host.exe"
    done
}

# drive_planner SYSTEM PRESET...: the planner used through the display, by hand, by keys alone and by a program that reads
# it aloud; the 32-bit one only, for it is about the input. What is read aloud is UTF-16, so one system is enough for that.
drive_planner() {
    local system=$1
    shift
    [[ " $* " == *" win32 "* ]] || return 0
    run_plain_program "win32/$system drive" bash "$ROOT/tests/outside/planner_drive.sh" \
        "$BUILD/win32/bin/planner.exe" "$BUILD/logs/drive-$system"
    run_plain_program "win32/$system keys" bash "$ROOT/tests/outside/planner_keys.sh" \
        "$BUILD/win32/bin/planner.exe" "$BUILD/logs/keys-$system"
    [ "$system" = 932 ] || run_plain_program "win32/$system reader" bash "$ROOT/tests/outside/planner_reader.sh" \
        "$BUILD/win32/bin/planner.exe" "$BUILD/win32/bin/screen_reader.exe" "$BUILD/logs/reader-$system"
}

# play_week SYSTEM PRESET...: a week of work with the planner, whose file another reader understands.
play_week() {
    local system=$1
    shift
    [[ " $* " == *" win32 "* ]] || return 0
    need_packages "${calendar_packages[@]}"
    run_plain_program "win32/$system week" bash "$ROOT/tests/outside/planner_week.sh" \
        "$BUILD/win32/bin/planner.exe" "$BUILD/logs/week-$system"
}

# compare_pictures SYSTEM PRESET...: views and date selectors, without texts, against the pictures kept of them.
compare_pictures() {
    local system=$1
    shift
    [[ " $* " == *" win32 "* ]] || return 0
    run_plain_program "win32/$system pictures" bash "$ROOT/tests/outside/master_pictures.sh" \
        "$BUILD/win32/bin/master_pictures.exe" "$ROOT/tests/pictures" "$BUILD/logs/pictures-$system"
}

# check_pages SYSTEM PRESET...: what the planner prints, through the PostScript driver.
check_pages() {
    local system=$1
    shift
    [[ " $* " == *" win32 "* ]] || return 0
    need_packages "${paper_packages[@]}"
    run_plain_program "win32/$system pages" bash "$ROOT/tests/outside/printed_pages.sh" \
        "$BUILD/win32/bin/planner.exe" "$BUILD/win32/bin/add_printer.exe" "$ROOT/tools/paper.ppd" \
        "$ROOT/samples/data/office.ics" "$BUILD/logs/pages-$system"
}

# run_tests_of PRESET LABEL ONLY RUNNER...: every program of the build's list. Programs under Wine share a desktop and
# run one after the other; native ones share nothing.
programs_at_a_time=1
run_tests_of() {
    local preset=$1 label=$2 only=$3 list=$BUILD/$1/tests.list name file arguments beside=() program
    shift 3
    [[ ! "$only" =~ ^(package|stress|drive|week|pages|pictures|visual)$ ]] || return 0
    while IFS=$'\t' read -r name file arguments; do
        if [ -z "$only" ] || [ "$only" = "$name" ]; then
            if [ "$programs_at_a_time" -gt 1 ]; then
                [ "$(jobs -rp | wc -l)" -lt "$programs_at_a_time" ] || wait -n || true
                # shellcheck disable=SC2086  # the arguments of the list are words
                in_subshell run_test_program "$label $name" "$@" "$file" $arguments &
                beside+=($!)
                at_exit "kill $! 2>/dev/null"
            else
                # shellcheck disable=SC2086
                run_test_program "$label $name" "$@" "$file" $arguments
            fi
        fi
    done <"$list"
    for program in "${beside[@]}"; do
        wait "$program" || die "The running of a test program of $label broke off."
    done
}

# run_test_program LABEL COMMAND...: runs it, counts its results, prints one line.
run_test_program() {
    local label=$1 log status=0 started=$SECONDS counts
    shift
    log=$(log_file "test-$(tr ' /' '--' <<<"$label")")
    run_guarded "$log" "$@" || status=$?
    counts=$(count_results "$log" "$status")
    report_program "$label" "$log" "$((SECONDS - started))" "$counts"
}

# run_guarded LOG COMMAND...: with the time limit, and so that it ends at once when ./dev is told to end.
run_guarded() {
    local log=$1 status=0
    shift
    timeout -k 20 "$test_time_limit" "$@" >"$log" 2>&1 </dev/null 9>&- &
    running_program=$!
    wait "$running_program" || status=$?
    running_program=""
    return "$status"
}

# From a GoogleTest log and the exit status: "passed failed skipped remark". A program that crashed, hung, stopped early
# or ran nothing counts as one more failure.
count_results() {
    tr -d '\r' <"$1" | awk -v status="$2" -v limit="$test_time_limit" '
        /^\[ RUN      \]/ { running = $0; sub(/^\[ RUN      \] /, "", running) }
        /\[       OK \] .*\([0-9]+ ms\)$/ { passed++; running = "" }
        /\[  FAILED  \] .*\([0-9]+ ms\)$/ { failed++; running = "" }
        /\[  SKIPPED \] .*\([0-9]+ ms\)$/ { skipped++; running = "" }
        /^\[==========\] [0-9]+ tests? from .* ran\./ { ran = $2; finished = 1 }
        END {
            counted = passed + failed + skipped
            where = running == "" ? "" : " in " running
            if (status == 124 || status == 137) remark = "hung" where " (ended after " limit " s)"
            else if (!finished) remark = "crashed" where " (exit status " status ")"
            else if (ran != counted) remark = "reports " ran " tests but shows " counted
            else if (counted == 0) remark = "ran no test"
            else if (status != 0 && failed == 0) remark = "passed its tests but ended with status " status
            if (remark != "") failed++
            printf "%d %d %d %s\n", passed, failed, skipped, remark
        }'
}

# report_program LABEL LOG SECONDS "passed failed skipped remark"
report_program() {
    local label=$1 log=$2 seconds=$3 passed failed skipped remark
    read -r passed failed skipped remark <<<"$4"
    printf '%s %s %s\n' "$passed" "$failed" "$skipped" >>"$results"
    local line
    line=$(printf '   %-28s %5d passed' "$label" "$passed")
    [ "$failed" -eq 0 ] || line+=", $failed FAILED"
    [ "$skipped" -eq 0 ] || line+=", $skipped skipped"
    line+="  (${seconds} s)"
    [ -z "$remark" ] || line+="  $remark"
    if [ "$failed" -gt 0 ]; then
        line+=$'\n'$(grep -a -B 25 -E '\[  FAILED  \] .*\([0-9]+ ms\)' "$log" | tail -n 120 || true)
        [ -z "$remark" ] || line+=$'\n'$(tail -n 40 "$log")
        line+=$'\n'"   the whole output: $log"
    fi
    printf '%s\n' "$line"
}

# The last line is for people and for machines alike.
print_totals() {
    local passed failed skipped
    read -r passed failed skipped < <(awk '{ p += $1; f += $2; s += $3 } END { print p + 0, f + 0, s + 0 }' "$results")
    if [ $((passed + failed + skipped)) -eq 0 ]; then
        die "No test ran."
    fi
    say "== All of it took $(elapsed) minutes"
    if [ "$skipped" -gt 0 ]; then
        say "$passed passed, $failed failed, $skipped skipped"
    else
        say "$passed passed, $failed failed"
    fi
    [ "$failed" -eq 0 ] || exit 1
}

# The package test: install, then build a host project that knows nothing but find_package(Dayvane), then run it.
build_package_host() {
    local preset=$1 toolchain=() others=() prefix=$BUILD/package/$1 host=$BUILD/package/$1-host
    [ "$preset" != win32 ] || others=(-DDAYVANE_OTHER_PACKAGE="$BUILD/package/native-release")
    case $preset in
        win32*) toolchain=(-DCMAKE_TOOLCHAIN_FILE="$ROOT/cmake/toolchain-win32.cmake") ;;
        win64*) toolchain=(-DCMAKE_TOOLCHAIN_FILE="$ROOT/cmake/toolchain-win64.cmake") ;;
    esac
    check_snippets || die "A document shows other code than its sources; ./dev snippets puts it in."
    rm -rf "$prefix" "$host"
    install_package "$preset" "$prefix"
    run_logged "package-$preset" "Configuring a host of the $preset package" cmake -G Ninja \
        -S "$ROOT/tests/package" -B "$host" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_FIND_ROOT_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release "${toolchain[@]}" "${others[@]}"
    run_logged "package-$preset" "Building a host of the $preset package" ninja -C "$host"
    case $preset in
        win*)
            need_packages "${lint_packages[@]}" "${package_packages[@]}" # clang and lld among them
            run_logged "package-$preset-c" "Building the C hosts of the $preset package" \
            bash "$ROOT/tests/package/c/build.sh" "$prefix" "$preset" "$host/c"
            check_static_refusal "$preset" "$prefix" "${toolchain[@]}"
            check_exports "$prefix/bin/Dayvane.dll"
            check_c_library "$prefix/bin/DayvaneCtl.dll"
            ;;
    esac
}

# A host that asks for a runtime of its own is told why that cannot be.
check_static_refusal() {
    local log preset=$1 prefix=$2
    shift 2
    log=$(log_file "package-$preset-static")
    if cmake -G Ninja -S "$ROOT/tests/package" -B "$BUILD/package/$preset-static" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_FIND_ROOT_PATH="$prefix" \
        -DCMAKE_EXE_LINKER_FLAGS=-static "$@" >"$log" 2>&1 || ! grep -q 'linked with.*-static' "$log"; then
        die "A host with -static is not refused, or not for that reason; see $log."
    fi
}

# The headers, imports and exports of a DLL for 32 or 64 bits.
facts_of_dll() { x86_64-w64-mingw32-objdump -p "$1"; }
# The version resource stands for all of them: without it marks and cursors are missing, too.
check_resources() { strings -el "$1" | grep -x "$(library_version)" >/dev/null || die "$1 has not its resources."; }

# Of Dayvane.dll only what its headers name: nothing of the compiler's library, no class of a header that stays here.
check_exports() {
    local names
    names=$(facts_of_dll "$1" | sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/p')
    grep -q 'CCalendarCtrl13m_arDayColors' <<<"$names" || die "$1 does not export CCalendarCtrl::m_arDayColors."
    ! grep -oE '_ZN?K?St.*|[0-9]__gnu_cxx.*|_ZN7dayvane(14PointerTracker|9TextCache).*' <<<"$names" ||
        die "$1 exports names that are not its own or not public."
    check_resources "$1"
}

# DayvaneCtl.dll exports the functions of its list and needs the system's DLLs only.
check_c_library() {
    local facts
    facts=$(facts_of_dll "$1")
    diff <(sed -n 's/^\t\[ *[0-9]*\] \([A-Za-z]*\)$/\1/p' <<<"$facts" | sort) <(sed -n 's/^ \+//p' "$ROOT/ctl/DayvaneCtl.def" | sort) ||
        die "$1 exports other names (<) than ctl/DayvaneCtl.def (>)."
    ! grep 'DLL Name: lib' <<<"$facts" || die "$1 needs a DLL of the compiler."
    check_resources "$1"
}

# follow_start_page SYSTEM: the start page, from a zip of the installed 32-bit build alone, and where the planner is built
# its installer.
follow_start_page() {
    local folder=$BUILD/package/zip-$1
    rm -rf "$folder"
    mkdir -p "$folder"
    stage_build "$folder/dayvane" win32 "$BUILD/package/win32"
    make_zip "$folder/dayvane" "$folder/dayvane.zip"
    run_plain_program "win32/$1 start page" bash "$ROOT/tests/outside/ten_minutes.sh" "$folder/dayvane.zip" "$folder/work"
    if [ -e "$folder/dayvane/win32/bin/planner.exe" ]; then
        make_installer "$folder/dayvane" "$folder/setup.exe"
        run_plain_program "win32/$1 installer" bash "$ROOT/tests/outside/installer.sh" "$folder/setup.exe" "$folder/dayvane"
        # The same build packed once more, elsewhere and later.
        stage_build "$folder/again/dayvane" win32 "$BUILD/package/win32"
        make_zip "$folder/again/dayvane" "$folder/again/dayvane.zip"
        make_installer "$folder/again/dayvane" "$folder/again/setup.exe"
        run_plain_program "win32/$1 same bytes" bash "$ROOT/tests/outside/same_bytes.sh" "$folder" "$folder/again" "$ROOT"
    fi
}

# run_package_host PRESET LABEL RUNNER...
run_package_host() {
    local preset=$1 label=$2 host program
    shift 2
    for program in package_host ical_host guide_host cookbook_host print_host; do
        host=$BUILD/package/$preset-host/$program
        [ -e "$host" ] || host=$host.exe
        [ -e "$host" ] || [[ "$program" != @(guide|cookbook|print)_host ]] || continue # they are about windows
        run_plain_program "$label package ${program%_host}" "$@" "$host"
    done
    for program in c_host dialog_host abi_host; do
        host=$BUILD/package/$preset-host/c/$program.exe
        [ ! -e "$host" ] || run_plain_program "$label package ${program%_host}" "$@" "$host"
    done
}

# run_plain_program LABEL COMMAND...: one result, told by the exit status.
run_plain_program() {
    local label=$1 log status=0 started=$SECONDS counts="1 0 0"
    shift
    log=$(log_file "test-$(tr ' /' '--' <<<"$label")")
    run_guarded "$log" "$@" || status=$?
    case $status in
        0) ;;
        124 | 137) counts="0 1 0 hung (ended after $test_time_limit s)" ;;
        *) counts="0 1 0 ended with status $status" ;;
    esac
    report_program "$label" "$log" "$((SECONDS - started))" "$counts"
}

# The native package is the optimised pure layer, without sanitizers.
test_native_package() {
    build_package_host native-release
    run_package_host native-release native env LC_ALL=C.UTF-8
}

# Random input, in the build that traps undefined behaviour and under the checks of Wine's heap.
build_stress() {
    has_target win32-ubsan dayvane-stress || return 1
    build win32-ubsan dayvane-stress
}

stress_program() { printf '%s/win32-ubsan/bin/dayvane-stress.exe' "$BUILD"; }

command_stress() {
    local events=${1:-$stress_events_in_test} seed=${2:-1}
    shift $(($# < 2 ? $# : 2))
    need_wine
    build_stress || die "The program dayvane-stress is not part of this tree yet."
    export DAYVANE_WINEDEBUG=warn+heap
    start_system 932
    step "$events random events from seed $seed"
    run_windows "$(stress_program)" "$events" "$seed" "$@"
}

# Arguments go to the benchmark of the views; without any, or with --cases, --save or --compare, it prints the table of
# cases. One of them fills a 4K screen.
command_bench() {
    local arguments=("$@") i
    for ((i = 1; i < ${#arguments[@]}; i++)); do
        case ${arguments[i - 1]} in
            --save | --compare) arguments[i]=$(winepath_of "${arguments[i]}") ;;
        esac
    done
    export DAYVANE_SCREEN=${DAYVANE_SCREEN:-3860x2180x24}
    need_wine
    build native-release dayvane-calc-bench
    build win32 dayvane-bench
    start_system 932
    step "Calendar arithmetic, native"
    "$BUILD/native-release/bin/dayvane-calc-bench"
    step "Views, 32-bit under Wine"
    run_windows "$BUILD/win32/bin/dayvane-bench.exe" "${arguments[@]}"
}
