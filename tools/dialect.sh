# shellcheck shell=bash
# The sources in the dialect of Visual C++, as far as clang speaks it: MinGW's headers and our MFC, Microsoft's rules of
# the language and its binary interface. It cannot see the genuine MFC or Microsoft's library. Sourced by ./dev.

# The product's own sources; mfc/ is not part of a build by Visual C++.
library_sources() { git -C "$ROOT" ls-files -- 'access/*.cpp' 'calc/*.cpp' 'core/*.cpp' 'pickers/*.cpp' 'printing/*.cpp' \
    'views/*.cpp'; }
dialect_sources() {
    library_sources
    git -C "$ROOT" ls-files -- 'ctl/*.cpp' 'ical/*.cpp' 'planner/*.cpp'
}

# Sets dialect_flags. The headers are MinGW's, which must not be read as Microsoft's. (clang forgets in precompiled headers
# that __is_pointer is a name of the library and not its own word.) The genuine MFC would be its DLL, of version 14.
make_dialect_flags() {
    local folder folders type
    dialect_flags=(--target=i686-pc-windows-msvc -std=c++17 -fms-compatibility -fms-extensions
        -fdelayed-template-parsing -nostdinc++)
    folders=$(i686-w64-mingw32-g++-posix -E -x c++ - -v </dev/null 2>&1 |
        sed -n '/<...> search starts/,/End of search/s/^ //p')
    for folder in $folders; do
        case $folder in
            *-posix/include | *-posix/include-fixed) ;; # the compiler's own
            *) dialect_flags+=(-isystem "$folder") ;;
        esac
    done
    for type in BOOL CHAR CHAR8_T CHAR16_T CHAR32_T WCHAR_T SHORT INT LONG LLONG POINTER; do
        dialect_flags+=("-D__GCC_ATOMIC_${type}_LOCK_FREE=2")
    done
    dialect_flags+=(-D__GCC_ATOMIC_TEST_AND_SET_TRUEVAL=1 -D__i386__ -D_X86_ -D__MINGW32__ -D__GNUC__=12
        -D__GNUC_MINOR__=2 -U_MSC_VER -D__is_pointer=is_pointer_trait '-D__declspec=__declspec' -D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -D_MBCS
        -DNOMINMAX -DSTRICT -D_MFC_VER=0x0E00 -D_AFXDLL -fno-threadsafe-statics
        -Wpedantic -Werror=gnu -Werror=vla-extension -Werror=c++20-designator
        -Werror=microsoft -Wno-microsoft-exception-spec -Werror=writable-strings -Wno-ignored-attributes
        -Wno-inconsistent-missing-override -I"$ROOT" -I"$ROOT/include" -I"$BUILD/native/include" -I"$ROOT/mfc/base"
        -I"$ROOT/mfc/win")
}

# Each of these is C++ of another compiler: a check that lets one of them pass is worth nothing.
dialect_plants=(
    'int f(int n) { int v[n]; return v[0]; }'
    'int f(int n) { return ({ int k = n; k; }); }'
    'struct S { int a, b; }; S f() { return {.a = 1, .b = 2}; }'
    'int f(int n) { return n ?: 3; }'
    'char* f() { return "text"; }'
    'template <class T> struct B { typedef int Kind; }; template <class T> struct D : B<T> { Missing m; };'
)
check_dialect_plants() {
    local plant
    for plant in "${dialect_plants[@]}"; do
        ! clang "${dialect_flags[@]}" -fsyntax-only -x c++ - <<<"$plant" 2>/dev/null ||
            die "The check of the dialect lets this pass: $plant"
    done
    clang "${dialect_flags[@]}" -fsyntax-only -x c++ - <<<'int f(int n) { return n; }' ||
        die "The check of the dialect refuses plain C++."
}

# Further warnings that count as errors; ./dev lint has some.
dialect_warnings=()

# dialect FILE...: a line for each error; fails when there is one. The headers are compiled once. Sources of the library
# leave their objects in build/visual/objects.
dialect() {
    local log out=$BUILD/visual library=() others=() status=0
    log=$(log_file dialect)
    mkdir -p "$out/objects"
    rm -f "$out/compiled"
    make_dialect_flags
    check_dialect_plants
    run_logged dialect "Reading the headers as Visual C++" \
        clang "${dialect_flags[@]}" -x c++-header "$ROOT/cmake/precompiled.h" -o "$out/headers.pch"
    printf '"%s"\n' "${dialect_flags[@]}" "${dialect_warnings[@]}" -D_AFXEXT -include-pch "$out/headers.pch" >"$out/flags"
    mapfile -t library < <(printf '%s\n' "$@" | grep -xF -f <(library_sources))
    mapfile -t others < <(printf '%s\n' "$@" | grep -vxF -f <(library_sources))
    {
        [ "${#library[@]}" -eq 0 ] || compile_as_visual "${library[@]}" || status=1
        [ "${#others[@]}" -eq 0 ] || (cd "$ROOT" && printf '%s\n' "${others[@]}" | xargs -P "$(nproc)" -I{} \
            clang "@$out/flags" -fsyntax-only {}) || status=1
    } >"$log" 2>&1
    [ "$status" -eq 0 ] || grep 'error:' "$log" | sort -u >&2
    [ "$status" -ne 0 ] || [ "${#library[@]}" -ne "$(library_sources | wc -l)" ] || visual_sum >"$out/compiled"
    return "$status"
}

# compile_as_visual FILE...: an object of each, with the flags of build/visual/flags.
compile_as_visual() {
    (cd "$ROOT" && printf '%s\n' "$@" | OUT=$BUILD/visual xargs -P "$(nproc)" -I{} sh -c \
        'exec clang "@$OUT/flags" -c "$1" -o "$OUT/objects/$(echo "$1" | tr / _).obj"' _ {})
}

command_dialect() {
    local files=("$@")
    need_packages "${native_packages[@]}" "${windows_packages[@]}" "${lint_packages[@]}"
    build native build.ninja >/dev/null
    [ $# -gt 0 ] || mapfile -t files < <(dialect_sources)
    dialect "${files[@]}" || die "Visual C++ would refuse some of it."
    say "${#files[@]} files pass."
    [ $# -gt 0 ] || build_visual
}
