# shellcheck shell=bash
# The package that is handed out. Sourced by ./dev.

# package: build/dist/dayvane-VERSION-win.zip with both Windows builds, the planner and the documents, and beside it what
# debuggers read.
command_package() {
    local preset out name
    out=$BUILD/dist
    need_packages zip
    need_windows_build
    rm -rf "$out"
    for preset in win32 win64; do
        build "$preset" planner
        install_package "$preset" "$out/installed-$preset"
        stage_build "$out/dayvane" "$preset" "$out/installed-$preset"
        cp "$BUILD/$preset/bin/planner.exe" "$out/dayvane/$preset/bin"
        strip_file "$preset" "$out/dayvane/$preset/bin/planner.exe" "$out/dayvane-debug/$preset"
    done
    name=$out/dayvane-$(library_version)-win
    make_zip "$out/dayvane" "$name.zip"
    make_zip "$out/dayvane-debug" "$name-debug.zip"
    say "The package is $name.zip ($(du -h "$name.zip" | cut -f1)); $name-debug.zip is for debuggers."
}

# stage_build FOLDER PRESET PREFIX: an installed build as FOLDER/PRESET, and what goes beside it. The DLLs are stripped;
# what was taken out of them goes into FOLDER-debug/PRESET.
stage_build() {
    local folder=$1 preset=$2 prefix=$3 file
    mkdir -p "$folder/$preset" "$folder/licenses"
    cp -r "$prefix/." "$folder/$preset"
    cp "$ROOT/cmake/toolchain-$preset.cmake" "$folder/$preset/toolchain.cmake"
    for file in "$folder/$preset"/bin/*.dll; do
        strip_file "$preset" "$file" "$folder-debug/$preset"
    done
    cp -r "$ROOT/docs" "$ROOT/README.md" "$ROOT/CHANGELOG.md" "$ROOT/LICENSE" "$folder"
    # The compiler's runtime DLLs beside Dayvane.dll, and what of them is inside DayvaneCtl.dll.
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licenses/gcc-runtime.txt"
    cp /usr/share/doc/mingw-w64-common/copyright "$folder/licenses/mingw-w64.txt"
}

# strip_file PRESET FILE DEBUGFOLDER: what only debuggers read goes into a file of its own, which the first one names.
strip_file() {
    local tools=i686-w64-mingw32 file=$2 debug
    [ "$1" = win32 ] || tools=x86_64-w64-mingw32
    debug=$3/$(basename "$file").debug
    mkdir -p "$3"
    "$tools-objcopy" --only-keep-debug "$file" "$debug"
    "$tools-strip" --strip-unneeded "$file"
    (cd "$3" && "$tools-objcopy" "--add-gnu-debuglink=$(basename "$debug")" "$file")
}

# make_zip FOLDER FILE: the same bytes for the same files, in order of their names and with the time of the commit.
make_zip() {
    local folder=$1 zip=$2 stamp
    stamp=$(git -C "$ROOT" log -1 --format=%ct)
    rm -f "$zip"
    find "$folder" -exec touch -h -d "@$stamp" {} +
    (cd "$(dirname "$folder")" && find "$(basename "$folder")" -type f | LC_ALL=C sort |
        TZ=UTC zip -q -X -9 "$zip" -@)
}
