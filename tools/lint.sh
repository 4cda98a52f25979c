# shellcheck shell=bash
# Formatting and static checks. Sourced by ./dev.

# The sources and headers that git knows or would add.
source_files() { git -C "$ROOT" ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' | sort -u; }

command_format() {
    need_packages "${lint_packages[@]}"
    local mode=${1:-} files=()
    mapfile -t files < <(cd "$ROOT" && source_files | while read -r file; do [ ! -e "$file" ] || printf '%s\n' "$file"; done)
    cd "$ROOT"
    case $mode in
        "") clang-format -i "${files[@]}" ;;
        --check)
            clang-format --dry-run --Werror "${files[@]}" || die "Some files differ from .clang-format; ./dev format mends them."
            say "${#files[@]} files are formatted."
            ;;
        *) die "./dev format knows only the option --check." ;;
    esac
}

# The documents: their code is cut from sources that the package test builds and runs.
snippet_documents() { (cd "$ROOT" && printf '%s\n' README.md docs/*.md); }

# snippets [--check]: puts the code of the documents in, or only says which differ from their sources.
command_snippets() {
    case ${1:-} in
        "")
            local document new
            cd "$ROOT"
            for document in $(snippet_documents); do
                new=$(awk -f tools/snippets.awk "$document") || die "$document stays as it is."
                printf '%s\n' "$new" >"$document"
            done
            ;;
        --check) check_snippets || die "./dev snippets puts the code of the sources in." ;;
        *) die "./dev snippets knows only the option --check." ;;
    esac
}

check_snippets() {
    local document status=0
    for document in $(snippet_documents); do
        (cd "$ROOT" && awk -f tools/snippets.awk "$document" | diff -u --label "$document" --label source \
            "$document" -) >&2 || status=1
    done
    for document in docs/settings.md docs/notifications.md docs/mini-calendars.md; do
        (cd "$ROOT" && awk -f tools/rows.awk "$document") || status=1
    done
    check_options_page || status=1
    return "$status"
}

# Each option has a row of its page, and each row is an option.
check_options_page() {
    diff <(sed -n 's/^    bool \([A-Za-z]*\) = false;.*/\1/p' "$ROOT/core/CalendarOptions.h" | sort) \
        <(sed -n 's/^| `\([A-Za-z]*\)` |.*/\1/p' "$ROOT/docs/options.md" | sort) >&2 ||
        { warn "docs/options.md (>) has other options than core/CalendarOptions.h (<)"; return 1; }
}

# What clang finds by the way when it reads the sources as Visual C++ would; for those that are built for Windows only
# clang-tidy would take minutes.
window_warnings=(-Wcomma -Wconditional-uninitialized -Wextra-semi -Wheader-hygiene -Wimplicit-fallthrough
    -Wdelete-non-virtual-dtor -Wrange-loop-analysis -Wshadow -Wunreachable-code -Wunused -Wunused-macros
    -Wunused-private-field -Wzero-as-null-pointer-constant)

# lint [FILE...]: the house rules for every file, clang-tidy for the pure sources, the dialect of Visual C++ with clang's
# warnings for all; of the files named only.
command_lint() {
    need_packages "${native_packages[@]}" "${windows_packages[@]}" "${lint_packages[@]}"
    local files=() all=() status=0
    build native build.ninja >/dev/null
    step "House rules"
    (cd "$ROOT" && source_files | xargs awk -f "$ROOT/tools/house_rules.awk") || status=1
    check_snippets || status=1
    in_subshell check_pages || status=1
    mapfile -t files < <(pure_sources | named_or_all "$@")
    mapfile -t all < <(dialect_sources | named_or_all "$@")
    step "clang-tidy"
    [ "${#files[@]}" -eq 0 ] || tidy "${files[@]}" || status=1
    step "The dialect of Visual C++, and warnings"
    dialect_warnings=("${window_warnings[@]/#-W/-Werror=}")
    [ "${#all[@]}" -eq 0 ] || dialect "${all[@]}" || status=1
    [ $# -gt 0 ] || in_subshell build_visual || status=1
    [ "$status" -eq 0 ] || die "There is something to mend."
    say "Nothing to mend."
}

# Of the lines read those that are arguments, too; all of them without arguments.
named_or_all() {
    if [ $# -eq 0 ]; then
        cat
    else
        grep -xF -f <(printf '%s\n' "$@") || true
    fi
}

# The product's own sources in the native build, relative to the root.
pure_sources() {
    sed -n 's/^ *"file": "\(.*\)",\?$/\1/p' "$BUILD/native/compile_commands.json" |
        sed -n "s|^$ROOT/||p" | grep -vE '^(tests|bench|build)/' | sort -u
}

# What clang-tidy reads for a source, as a sum: the bytes of every file that the compiler read for it, the flags, the
# settings and the version. A line for each source that the native build has compiled: SUM SOURCE.
tidy_sums() {
    local dir=$BUILD/native settings source sums
    settings=$({
        clang-tidy --version
        cat "$ROOT/.clang-tidy"
        sed -n 's/ -o .*//; s/^ *"command": //p' "$dir/compile_commands.json" | sed "s|$dir||g; s|$ROOT||g" | sort -u
    } | sha1sum)
    ninja -C "$dir" -t deps >"$BUILD/tidy.deps"
    sed -n 's/.* -o \([^ ]*\) -c \([^ "]*\)".*/\1: \2/p' "$dir/compile_commands.json" | sed "s|$ROOT/||" >"$BUILD/tidy.objects"
    sed -n 's/^ \+//p' "$BUILD/tidy.deps" | sort -u | (cd "$dir" && xargs -d '\n' sha1sum) >"$BUILD/tidy.bytes"
    awk '
        FILENAME ~ /objects$/ { source[$1] = $2; next }
        FILENAME ~ /bytes$/ { bytes[substr($0, 43)] = $1; next }
        /^[^ ]/ { of = /\(VALID\)$/ ? source[$1] : ""; next }
        NF && of != "" { sums[of] = sums[of] " " bytes[$1] }
        END { for (of in sums) print of sums[of] }' "$BUILD"/tidy.{objects,bytes,deps} |
        while read -r source sums; do
            printf '%s %s\n' "$(sha1sum <<<"$settings $source $sums" | cut -c1-40)" "$source"
        done
}

# One process for each core; only findings are shown. A source that passed is not read again while nothing that it
# includes has changed, as with ccache and objects: the finding of a file depends on nothing else.
tidy() {
    local log known=${XDG_CACHE_HOME:-${HOME:-$BUILD}/.cache}/dayvane/tidy
    log=$(log_file tidy)
    if ! mkdir -p "$known" 2>/dev/null; then
        known=$BUILD/tidy
        mkdir -p "$known"
    fi
    find "$known" -type f -mtime +30 -delete
    tidy_sums >"$BUILD/tidy.sums" || : >"$BUILD/tidy.sums"
    printf '%s\n' "$@" | awk -v known="$known/" '
        NR == FNR { sum[$2] = $1; next }
        { print known (($0 in sum) ? sum[$0] : "unknown") "\n" $0 }' "$BUILD/tidy.sums" - >"$BUILD/tidy.files"
    # shellcheck disable=SC2016  # a script of its own: PASSED SOURCE
    (cd "$ROOT" && xargs -a "$BUILD/tidy.files" -d '\n' -P "$(nproc)" -n 2 bash -c '
        if [ -e "$2" ]; then exit 0; fi
        clang-tidy --quiet --warnings-as-errors="*" -p "$1" "$3" || exit 1
        case $2 in *unknown) ;; *) : >"$2" ;; esac' tidy "$BUILD/native") >"$log" 2>"$log.errors" ||
        {
            grep -E 'warning:|error:' "$log" | sort -u >&2
            grep -E 'rror' "$log.errors" | grep -v 'treated as error' | sort -u >&2
            return 1
        }
}
