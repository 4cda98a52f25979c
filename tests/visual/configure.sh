#!/usr/bin/env bash
# configure.sh OUT: CMake with the presets for Visual C++, clang in the compiler's place: nothing is built, but what would be
# run is looked at. A compiler without Microsoft's library cannot be tried by CMake, so it is told what it would find.
set -euo pipefail
out=$1
cd "$(dirname "$0")/../.."
mkdir -p "$out"
cat >"$out/compiler.cmake" <<'TEXT'
set(CMAKE_CXX_COMPILE_FEATURES cxx_std_98 cxx_std_11 cxx_std_14 cxx_std_17)
set(CMAKE_SIZEOF_VOID_P 4)
TEXT
clang=$(command -v clang-cl || compgen -c clang-cl- | head -n 1)

# configure NAME OPTION...: leaves OUT/NAME/build.ninja.
configure() {
    local name=$1
    shift
    rm -rf "${out:?}/$name"
    cmake --preset vc-win32 -S . -B "$out/$name" -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_CXX_COMPILER="$clang" \
        -DCMAKE_CXX_COMPILER_TARGET=i686-pc-windows-msvc -DCMAKE_CXX_COMPILER_WORKS=1 -DCMAKE_RC_COMPILER_WORKS=1 \
        -DCMAKE_RC_COMPILER="$(command -v llvm-rc)" -DCMAKE_LINKER="$(command -v lld-link)" -DCMAKE_MT="$(command -v true)" \
        -DCMAKE_PROJECT_INCLUDE="$out/compiler.cmake" "$@"
}

# rule NAME OUTPUT: how an output is made, in one line.
rule() {
    awk -v output="$2" '/^build / { inside = index($0, output) > 0 } inside { printf "%s ", $0 }' "$out/$1/build.ninja"
}

# expect NAME OUTPUT WORD...: the words are in the rule, but for those that begin with "!".
expect() {
    local text word where="$1: $2"
    text=$(rule "$1" "$2")
    shift 2
    for word; do
        case $word in
            !*) ! grep -qE -- "${word#!}" <<<"$text" || { echo "$where has ${word#!}" && exit 1; } ;;
            *) grep -qE -- "$word" <<<"$text" || { echo "$where has no $word" && exit 1; } ;;
        esac
    done
}

common=('/source-charset:utf-8' '/execution-charset:[.]932' '! -(Wall|finput-charset|fexec-charset|msse2)')
configure shared
expect shared 'Dayvane.dir/core/CalendarCtrl.cpp.obj:' "${common[@]}" '-MD' '-D_AFXDLL' '-D_AFXEXT' '!DAYVANE_DLL'
expect shared 'build bin/Dayvane.dll ' 'exports[.]def' '__create_def' 'ExtensionModule' '!/mfc/'
expect shared 'DayvaneCtl.dir/CtlItems.cpp.obj:' "${common[@]}" '-MT' '-D_USRDLL' '!_AFX(DLL|EXT)'
expect shared 'build bin/DayvaneCtl.dll ' 'DayvaneCtl[.]def' '!__create_def' '!Dayvane.dir/core'
configure static -DBUILD_SHARED_LIBS=OFF
expect static 'Dayvane.dir/core/CalendarCtrl.cpp.obj:' "${common[@]}" '-MT' '!_AFX(DLL|EXT)'
expect static 'build Dayvane.lib:' 'STATIC_LIBRARY' '!/mfc/'
