# shellcheck shell=bash
# Dayvane.dll and the package's hosts in the binary interface of Visual C++, from the objects of tools/dialect.sh: the DLL
# exports what CMake lists for WINDOWS_EXPORT_ALL_SYMBOLS, the hosts import it with DAYVANE_DLL. Our MFC is part of the DLL
# here, and tests/visual/runtime.cpp takes the place of Microsoft's library. Sourced by ./dev.

visual_hosts=(WindowHost GuideHost CookbookHost PrintHost)

# Everything that the objects are made of, as a sum.
visual_sum() {
    (cd "$ROOT" && git ls-files -co --exclude-standard -- '*.cpp' '*.h' '*.rc' '*.def' '*.cmake' '*CMakeLists.txt' 'tests/visual/*' tools/dialect.sh tools/visual.sh |
        sort -u | xargs sha1sum | sha1sum)
}

# Makes build/visual/Dayvane.dll and a program of each host, unless nothing has changed since.
build_visual() {
    local out=$BUILD/visual sum sources=()
    sum=$(visual_sum)
    [ "$(cat "$out/done" 2>/dev/null)" != "$sum" ] || return 0
    build native build.ninja >/dev/null
    mapfile -t sources < <(library_sources)
    if [ "$(cat "$out/compiled" 2>/dev/null)" != "$sum" ]; then
        step "Compiling the library as Visual C++"
        dialect "${sources[@]}" || die "Visual C++ would refuse some of it."
    fi
    mapfile -t sources < <(git -C "$ROOT" ls-files -- 'mfc/*.cpp' ':!mfc/win/winmain.cpp')
    printf '"%s"\n' -w -I"$ROOT/tests/visual" >>"$out/flags"
    run_logged visual "Compiling our MFC as Visual C++" compile_as_visual "${sources[@]}" cmake/ExtensionModule.cpp
    { library_sources; printf '%s\n' "${sources[@]}" cmake/ExtensionModule.cpp; } | sed "s|/|_|g; s|.*|$out/objects/&.obj|" \
        >"$out/objects.list"
    run_logged visual "Linking Dayvane.dll and its hosts as Visual C++" bash "$ROOT/tests/visual/link.sh" \
        "$out" "$BUILD/native/include" "${visual_hosts[@]}"
    run_logged visual "Configuring for Visual C++" bash "$ROOT/tests/visual/configure.sh" "$out/configured"
    printf '%s\n' "$sum" >"$out/done"
}
