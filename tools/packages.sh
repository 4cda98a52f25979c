# shellcheck shell=bash
# Debian packages. Sourced by ./dev.

native_packages=(cmake ninja-build g++ libgtest-dev liberfa-dev ccache)
lint_packages=(clang-format clang-tidy clang lld python3)
windows_packages=(g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix llvm)
wine_packages=(wine wine32:i386 wine64 fonts-wine fonts-ipafont-gothic fonts-liberation locales xvfb xdotool imagemagick
    procps)
calendar_packages=(python3-gi gir1.2-ical-3.0) # an independent reader of calendar files: libical
paper_packages=(ghostscript poppler-utils) # printed pages into pictures and facts

# need_packages PACKAGE...: installs those that are missing; asks apt for nothing when none is.
need_packages() {
    local missing
    if ! command -v dpkg-query >/dev/null; then
        need_programs
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        die "Some Debian packages are missing, and only root may install them. Please run this, then try again:
  $(apt_line "${missing[@]}")"
    fi
    step "Installing Debian packages: ${missing[*]}"
    with_lock packages install_packages "${missing[@]}"
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -eq 0 ] || die "After the installation these packages are still missing: ${missing[*]}."
}

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || printf '%s\n' "$package"
    done
}

# The line that a person without root rights hands to somebody who has them.
apt_line() {
    local before=""
    if [[ " $* " == *:i386* ]]; then
        before="dpkg --add-architecture i386 && "
    fi
    printf "sudo sh -c '%sapt-get update; apt-get install -y --no-install-recommends -t bookworm %s'" "$before" "$*"
}

install_packages() {
    export DEBIAN_FRONTEND=noninteractive
    local log
    log=$(log_file apt)
    : >"$log"
    if [[ " $* " == *:i386* ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
        dpkg --add-architecture i386
    fi
    # An index that does not load (a third-party source, say) is no reason to stop: the installation itself tells.
    apt-get -o DPkg::Lock::Timeout=300 update >>"$log" 2>&1 || warn "some package indexes did not load (see $log)"
    # One suite for all: the 32-bit and the 64-bit libraries under Wine must be of one version. Where that suite is not
    # the machine's, the machine's own choice is the next best.
    apt_install -t bookworm "$@" >>"$log" 2>&1 || apt_install "$@" >>"$log" 2>&1 || {
        tail -n 15 "$log" >&2
        die "The packages could not be installed; the whole output is in $log."
    }
    say "   installed ($(elapsed))"
}

apt_install() {
    apt-get -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 install -y --no-install-recommends "$@"
}

# On a system without Debian's package tools: at least say what is missing.
need_programs() {
    local program missing=()
    for program in cmake ninja g++ i686-w64-mingw32-g++-posix x86_64-w64-mingw32-g++-posix wine Xvfb xdotool import localedef; do
        command -v "$program" >/dev/null || missing+=("$program")
    done
    [ "${#missing[@]}" -eq 0 ] ||
        die "This is made for Debian 12; elsewhere please install these programs first: ${missing[*]}."
}

need_native_build() { need_packages "${native_packages[@]}"; }
need_windows_build() { need_packages "${native_packages[@]}" "${windows_packages[@]}"; }
need_wine() { need_packages "${native_packages[@]}" "${windows_packages[@]}" "${wine_packages[@]}"; }
