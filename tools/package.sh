# shellcheck shell=bash
# The package that is handed out. Sourced by ./dev.

package_packages=(zip unzip nsis pkg-config)

# package: build/dist/dayvane-VERSION-win.zip and -setup.exe with both Windows builds, the planner, a sample and the
# documents, and beside them what debuggers read. The installer and the start page are tried under Wine.
command_package() {
    local preset out name
    out=$BUILD/dist
    need_packages "${package_packages[@]}" "${docs_packages[@]}"
    need_wine
    make_docs || die "The documents are not as they should be."
    rm -rf "$out"
    for preset in win32 win64; do
        build "$preset" planner dialog
        install_package "$preset" "$out/installed-$preset"
        stage_build "$out/dayvane" "$preset" "$out/installed-$preset"
    done
    cp -r "$BUILD/html" "$out/dayvane/html"
    name=$out/dayvane-$(library_version)-win
    make_zip "$out/dayvane" "$name.zip"
    make_zip "$out/dayvane-debug" "$name-debug.zip"
    make_installer "$out/dayvane" "$name-setup.exe"
    step "Trying the package under Wine"
    in_subshell try_package "$out" "$name"
    say "The package is $name.zip ($(du -h "$name.zip" | cut -f1)) and $name-setup.exe; $name-debug.zip is for debuggers."
    (cd "$out" && sha256sum ./*.zip ./*.exe)
}

try_package() {
    local out=$1 name=$2
    need_packages "${lint_packages[@]}" # the start page's clang
    start_system 932
    run_logged package-installer "Installing" bash "$ROOT/tests/outside/installer.sh" "$name-setup.exe" "$out/dayvane"
    run_logged package-start "Following the start page" bash "$ROOT/tests/outside/ten_minutes.sh" "$name.zip" "$out/ten-minutes"
}

# The time that everything in the package has: that of the commit.
commit_time() { git -C "$ROOT" log -1 --format=%ct; }

# stage_build FOLDER PRESET PREFIX: an installed build as FOLDER/PRESET, and what goes beside it. DLLs and programs are
# stripped; what was taken out of ours goes into FOLDER-debug/PRESET.
stage_build() {
    local folder=$1 preset=$2 prefix=$3 file program
    mkdir -p "$folder/$preset" "$folder/licenses" "$folder/samples"
    cp -r "$prefix/." "$folder/$preset"
    cp "$ROOT/cmake/toolchain-$preset.cmake" "$folder/$preset/toolchain.cmake"
    for program in planner dialog; do
        file=$BUILD/$preset/bin/$program.exe
        [ ! -e "$file" ] || cp "$file" "$folder/$preset/bin"
    done
    for file in "$folder/$preset"/bin/*; do
        strip_file "$preset" "$file" "$folder-debug/$preset"
    done
    cp -r "$ROOT/docs" "$ROOT/README.md" "$ROOT/CHANGELOG.md" "$ROOT/LICENSE" "$folder"
    cp -r "$ROOT/samples/dialog" "$ROOT/samples/start" "$folder/samples"
    mkdir -p "$folder/samples/data"
    cp "$ROOT/samples/data/office.ics" "$folder/samples/data"
    # The compiler's runtime DLLs beside Dayvane.dll, and what of them is inside DayvaneCtl.dll.
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licenses/gcc-runtime.txt"
    cp /usr/share/doc/mingw-w64-common/copyright "$folder/licenses/mingw-w64.txt"
    cp /usr/share/common-licenses/GPL-3 "$folder/licenses/gpl-3.txt" # which the first one names
}

# strip_file PRESET FILE DEBUGFOLDER: what only debuggers read goes into a file of its own, which the first one names. The
# compiler's DLLs have none.
strip_file() {
    local tools=i686-w64-mingw32 file=$2 debug
    local -x SOURCE_DATE_EPOCH # these tools write a time into what they write
    SOURCE_DATE_EPOCH=$(commit_time)
    [ "$1" = win32 ] || tools=x86_64-w64-mingw32
    case $(basename "$file") in
        lib*) "$tools-strip" --strip-unneeded "$file" && return ;;
    esac
    debug=$3/$(basename "$file").debug
    mkdir -p "$3"
    "$tools-objcopy" --only-keep-debug "$file" "$debug"
    "$tools-strip" --strip-unneeded "$file"
    (cd "$3" && "$tools-objcopy" "--add-gnu-debuglink=$(basename "$debug")" "$file")
}

# make_zip FOLDER FILE: the same bytes for the same files, in order of their names and with the time of the commit.
make_zip() {
    local folder=$1 zip=$2
    rm -f "$zip"
    stamp_files "$folder"
    (cd "$(dirname "$folder")" && find "$(basename "$folder")" -type f | LC_ALL=C sort |
        TZ=UTC zip -q -X -9 "$zip" -@)
}

# Times are those of the commit, and rights do not tell whose machine this is.
stamp_files() {
    local stamp
    stamp=$(commit_time)
    find "$1" -exec touch -h -d "@$stamp" {} +
    find "$1" -type d -exec chmod 755 {} +
    find "$1" -type f -exec chmod 644 {} +
}

# make_installer FOLDER FILE: an installer of the folder's files.
make_installer() {
    local folder=$1 setup=$2 lists
    lists=$(dirname "$2")/installer
    mkdir -p "$lists"
    stamp_files "$folder"
    (cd "$folder" && find . -type f | LC_ALL=C sort) | awk -v folder="$folder" '
        { sub(/^\.\//, ""); path = $0; dir = path
          if (!sub(/\/[^\/]*$/, "", dir)) { dir = "" }
          windows = path; gsub(/\//, "\\", windows); gsub(/\//, "\\", dir)
          if (NR == 1 || dir != last) { print "SetOutPath \"$INSTDIR" (dir == "" ? "" : "\\" dir) "\""; last = dir }
          print "File \"" folder "/" path "\"" }' >"$lists/files.nsh"
    {
        (cd "$folder" && find . -type f | LC_ALL=C sort) | sed 's|^\./||; s|/|\\|g; s|.*|Delete "$INSTDIR\\&"|'
        (cd "$folder" && find . -mindepth 1 -type d | LC_ALL=C sort -r) | sed 's|^\./||; s|/|\\|g; s|.*|RMDir "$INSTDIR\\&"|'
    } >"$lists/removals.nsh"
    run_logged installer "Making the installer" makensis -NOCD "-DVERSION=$(library_version)" "-DOUT=$setup" \
        "-DFILES=$lists/files.nsh" "-DREMOVALS=$lists/removals.nsh" "$ROOT/tools/installer.nsi"
}
