# shellcheck shell=bash
# Configure, build, install. Sourced by ./dev.

check_preset() {
    case $1 in
        win32 | win64 | native | native-release | win32-ubsan) ;;
        *) die "There is no preset '$1'; there are win32, win64, native, native-release and win32-ubsan." ;;
    esac
}

need_build_of() {
    case $1 in
        native*) need_native_build ;;
        *) need_windows_build ;;
    esac
}

# build PRESET [TARGET...]: configures when needed, builds with progress, shows only what went wrong.
build() {
    local preset=$1
    shift
    check_preset "$preset"
    need_build_of "$preset"
    make_build_root
    with_lock "build-$preset" build_locked "$preset" "$@"
}

build_locked() {
    local preset=$1 dir=$BUILD/$1 log started=$SECONDS
    shift
    step "Building $preset${*:+: $*}"
    # What ccache asks for to keep objects that were made with a precompiled header.
    export CCACHE_SLOPPINESS=pch_defines,time_macros
    if [ ! -e "$dir/build.ninja" ]; then
        local launcher=()
        if command -v ccache >/dev/null; then
            launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
        fi
        run_logged "configure-$preset" "Configuring $preset" \
            cmake --preset "$preset" -S "$ROOT" -B "$dir" "${launcher[@]}"
    fi
    log=$(log_file "build-$preset")
    if ! NINJA_STATUS='[%f/%t] ' ninja -C "$dir" "$@" 2>&1 | tee "$log" | build_progress; then
        grep -A 60 -m 1 -E '^FAILED|error:' "$log" >&2 || tail -n 30 "$log" >&2
        die "Building $preset failed; the whole output is in $log."
    fi
    say "   built in $((SECONDS - started)) s"
}

# From ninja's [done/all] lines: one line for each tenth of the work.
build_progress() {
    awk '
        match($0, /^\[[0-9]+\/[0-9]+\]/) {
            split(substr($0, 2, RLENGTH - 2), count, "/")
            tenth = int(10 * count[1] / count[2])
            if (tenth > shown && count[2] > 10) { shown = tenth; printf "   %s of %s\n", count[1], count[2]; fflush() }
        }'
}

# Configures PRESET and asks whether its tree makes this target.
has_target() {
    build "$1" build.ninja >/dev/null
    ninja -C "$BUILD/$1" -t query "$2" >/dev/null 2>&1
}

command_build() {
    [ $# -ge 1 ] || die "Which preset? For example: ./dev build win32"
    build "$@"
}

command_install() {
    [ $# -eq 2 ] || die "Usage: ./dev install win32|win64|native PREFIX"
    local preset=$1 prefix
    case $preset in
        win32 | win64) ;;
        native) preset=native-release ;;
        *) die "'$1' cannot be installed; there are win32, win64 and native." ;;
    esac
    mkdir -p "$2" || die "The folder $2 cannot be made."
    prefix=$(cd "$2" && pwd)
    install_package "$preset" "$prefix"
    say "Dayvane is in $prefix; a CMake host finds it with -DCMAKE_PREFIX_PATH=$prefix"
}

install_package() {
    local preset=$1 prefix=$2 targets=(Dayvane DayvaneICal)
    [[ "$preset" != win* ]] || targets+=(DayvanePublic DayvaneWinMain DayvaneCtl) # what an application links, and the C interface
    build "$preset" "${targets[@]}"
    run_logged "install-$preset" "Installing $preset" cmake --install "$BUILD/$preset" --prefix "$prefix"
}
