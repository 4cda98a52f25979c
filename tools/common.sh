# shellcheck shell=bash
# Messages, logs, and the ending of what was started. Sourced by ./dev.

say() { printf '%s\n' "$*"; }
step() { printf '== %s\n' "$*"; }
warn() { printf 'warning: %s\n' "$*" >&2; }

# One sentence for a person, then the end.
die() {
    printf 'dev: %s\n' "$*" >&2
    exit 1
}

# Seconds since the start of this command, for progress lines.
elapsed() { printf '%d:%02d' $((SECONDS / 60)) $((SECONDS % 60)); }

log_file() {
    mkdir -p "$BUILD/logs"
    printf '%s/logs/%s.log' "$BUILD" "$1"
}

# run_logged NAME WHAT COMMAND...: runs the command into the log NAME; when it fails, shows the end of the log and ends.
run_logged() {
    local log what=$2
    log=$(log_file "$1")
    shift 2
    if ! "$@" >"$log" 2>&1; then
        tail -n 30 "$log" >&2
        die "$what failed; the whole output is in $log."
    fi
}

# The program that is being waited for; it ends with ./dev.
running_program=""

# Whatever is started registers how it ends; all of it happens in reverse order when ./dev ends for whatever reason.
cleanup_steps=()
at_exit() { cleanup_steps=("$1" "${cleanup_steps[@]}"); }
run_cleanup() {
    local status=$? action
    trap - EXIT
    [ -z "$running_program" ] || kill "$running_program" 2>/dev/null || true
    for action in "${cleanup_steps[@]}"; do
        eval "$action" || true
    done
    exit "$status"
}
set_traps() {
    cleanup_steps=()
    running_program=""
    trap run_cleanup EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
}
set_traps

# in_subshell COMMAND...: the command with its own cleanup, so that what it starts ends with it.
in_subshell() (
    set_traps
    "$@"
)

# Two ./dev commands may share one build folder: the steps that write to it take turns.
# with_lock NAME COMMAND...   (Programs started by the command do not hold the lock.)
with_lock() {
    local name=$1 status=0
    shift
    mkdir -p "$BUILD"
    exec 8>"$BUILD/.$name.lock"
    if ! flock -n 8; then
        say "Waiting for another ./dev that is busy with $name ..."
        flock 8
    fi
    "$@" 8>&- || status=$?
    exec 8>&-
    return "$status"
}

command_clean() {
    [ -e "$BUILD" ] || return 0
    # Only a folder that ./dev made is removed, whatever DAYVANE_BUILD says.
    [ -e "$BUILD/.made-by-dev" ] || die "$BUILD was not made by ./dev; remove it yourself if you mean it."
    rm -rf "$BUILD"
}

make_build_root() {
    mkdir -p "$BUILD"
    touch "$BUILD/.made-by-dev"
}
