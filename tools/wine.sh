# shellcheck shell=bash
# Wine: locale, prefixes, displays, running programs. Sourced by ./dev.
#
# A "system" is a Wine prefix with its code page: 932 (Japanese) or 1252 (Western), both for virtual displays, and
# "desktop" (932) for a person's own display, where a window manager draws the frames if there is one.

# Changes of these settings or of tools/wine.reg make the prefixes anew.
wine_settings_version=4

check_system() {
    case $1 in
        932 | 1252 | desktop) ;;
        *) die "There is no system '$1'; there are 932 and 1252." ;;
    esac
}

# The Japanese locale, compiled into the build folder: nothing of the machine's own locales is touched.
make_locale() {
    [ ! -e "$BUILD/locale/ja_JP.utf8/LC_CTYPE" ] || return 0
    mkdir -p "$BUILD/locale"
    run_logged locale "Compiling the Japanese locale" localedef -i ja_JP -f UTF-8 "$BUILD/locale/ja_JP.utf8"
}

# use_system SYSTEM: points the environment of everything that follows at this prefix and code page.
use_system() {
    export WINEPREFIX=$BUILD/wine/$1 LOCPATH=$BUILD/locale
    # wineboot must not offer to fetch its browser engine and its .NET.
    export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
    export WINEDEBUG=${DAYVANE_WINEDEBUG:--all} WINEARCH=win64
    unset LANGUAGE LANG
    case $1 in
        1252) export LC_ALL=C.UTF-8 ;;
        *) export LC_ALL=ja_JP.UTF-8 ;;
    esac
}

# start_system SYSTEM: prefix, its server and a display, ready for programs. Ended when ./dev ends.
start_system() {
    local system=$1
    check_system "$system"
    need_wine
    make_build_root
    with_lock locale make_locale
    use_system "$system"
    take_system "$system"
    if [ "$system" != desktop ]; then
        start_display
    fi
    at_exit "wineserver -k; timeout 20 wineserver -w" # before the display goes
    make_prefix "$system"
    start_server
    if [ "$system" = desktop ]; then
        if has_window_manager; then set_managed Y; else set_managed N; fi
    fi
}

# One ./dev at a time uses a system: its programs share a desktop and a keyboard. What is started later must not hold
# the lock (9>&-), for it may live longer than ./dev.
take_system() {
    mkdir -p "$BUILD/wine"
    exec 9>"$BUILD/wine/.$1.lock"
    if ! flock -n 9; then
        say "Waiting for another ./dev that uses the system $1 ..."
        flock 9
    fi
    # A server that a ./dev left behind when it was killed would still show its windows on a display that is gone.
    wineserver -k 2>/dev/null 9>&- || true
}

# A virtual display of our own, on whatever number is free.
start_display() {
    local number_file log pid
    number_file=$(mktemp)
    log=$(log_file xvfb)
    Xvfb -displayfd 3 -screen 0 "${DAYVANE_SCREEN:-1400x1000x24}" -nolisten tcp 3>"$number_file" >>"$log" 2>&1 9>&- &
    pid=$!
    at_exit "kill $pid 2>/dev/null; wait $pid 2>/dev/null"
    wait_until 20 test -s "$number_file" || die "The virtual display (Xvfb) did not start; see $log."
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
}

# wait_until SECONDS COMMAND...: polls until the command succeeds.
wait_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
        sleep 0.1
    done
}

settings_of_prefix() { printf '%s %s' "$wine_settings_version" "$(cksum <"$ROOT/tools/wine.reg")"; }

make_prefix() {
    local system=$1 wanted face
    wanted=$(settings_of_prefix)
    [ "$(cat "$WINEPREFIX/.dayvane" 2>/dev/null)" != "$wanted" ] || return 0
    step "Making the Wine prefix for $system (once)"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    run_logged "wineboot-$system" "Making the Wine prefix" timeout -k 10 300 wineboot --init 9>&-
    # Debian keeps Wine's own faces (the window buttons' symbols among them) where its Wine does not look.
    for face in marlett symbol wingding webdings tahoma tahomabd; do
        cp "/usr/share/wine/fonts/$face.ttf" "$WINEPREFIX/drive_c/windows/Fonts/"
    done
    # regedit reads UTF-16; the list of faces is kept in UTF-8 for people.
    { printf '\xff\xfe' && iconv -f UTF-8 -t UTF-16LE "$ROOT/tools/wine.reg"; } >"$WINEPREFIX/settings.reg"
    run_logged "wineboot-$system" "Setting up the Wine prefix" wine regedit /S "$(winepath_of "$WINEPREFIX/settings.reg")" 9>&-
    set_managed N
    # The settings reach the disk, and programs that were running with the old ones end.
    wineserver -k 9>&- || true
    wineserver -w || true
    printf '%s' "$wanted" >"$WINEPREFIX/.dayvane"
    say "   made ($(elapsed))"
}

# set_managed Y|N: does a window manager look after the windows? Where there is none, Wine draws the frames itself; told
# otherwise, every window would wait for the one that is not there.
set_managed() {
    run_logged wine-settings "Setting up the Wine prefix" \
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /t REG_SZ /d "$1" /f 9>&-
}

has_window_manager() { xdotool get_num_desktops >/dev/null 2>&1; }

# The name under which a Windows program sees a file of this machine.
winepath_of() { printf 'Z:%s' "$(realpath -m "$1" | tr / '\\')"; }

# Keeps the prefix's server alive, so that programs start at once.
start_server() {
    # The server and its service programs live on: they must hold neither our lock nor our output.
    wineserver -p >/dev/null 2>&1 9>&-
    timeout -k 10 120 wine cmd /c exit >/dev/null 2>&1 9>&- ||
        die "Wine does not start in $WINEPREFIX; ./dev clean makes it anew."
}

# run_windows PROGRAM ARGUMENT...: a Windows program in the system in use.
run_windows() { wine "$@" 9>&-; }

command_setup() {
    local system
    need_wine
    for system in 932 1252; do
        in_subshell start_system "$system"
    done
    say "Everything is set up."
}

command_wine() {
    local system=932
    if [ "${1:-}" = --system ]; then
        system=$2
        shift 2
    fi
    [ $# -ge 1 ] || die "Which program? For example: ./dev wine build/win32/bin/test_core.exe"
    start_system "$system"
    run_windows "$@"
}
