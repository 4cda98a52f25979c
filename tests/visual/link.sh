#!/usr/bin/env bash
# link.sh OUT VERSION HOST...: in OUT lie objects.list, the objects of Dayvane.dll in the binary interface of Visual C++, and
# flags, with which the rest is compiled. Makes Dayvane.dll and a program of each host of the package test. VERSION is the
# folder with dayvane/Version.h. What a DLL of C++ classes needs of its list of exports is checked on the way.
set -euo pipefail
out=$1 version=$2
shift 2
cd "$(dirname "$0")/../.."
lib=/usr/i686-w64-mingw32/lib
linker=(lld-link /nodefaultlib /safeseh:no /errorlimit:0)

# The list as CMake makes it on Windows for WINDOWS_EXPORT_ALL_SYMBOLS: every function that an object defines is in it.
cmake -E __create_def "$out/Dayvane.def" "$out/objects.list"
llvm-nm -g --defined-only "@$out/objects.list" >"$out/symbols"
missing=$(comm -23 <(sed -n 's/^.* T ?/?/p' "$out/symbols" | sort -u) \
    <(sed -n 's/^\t\([^ ]*\).*/\1/p' "$out/Dayvane.def" | sort -u))
[ -z "$missing" ] || { echo "not exported: $missing" && exit 1; }
[ "$(wc -l <"$out/Dayvane.def")" -lt 65535 ] || { echo "more exports than a DLL can have" && exit 1; }

# Data is what core/DataImport.h marks for hosts, what the compiler makes wherever it is needed, and what MFC's macros reach
# by functions.
data=$(sed -n 's/^\t\([^ ]*\) \t DATA$/\1/p' "$out/Dayvane.def" |
    grep -vE '^\?\?_R|^\?class([A-Za-z0-9]+)@\1@@2UCRuntimeClass@@A$')
for symbol in $data; do
    name=${symbol#\?}
    grep -qE "DAYVANE_DATA .*[ *&]${name%%@*};" ./*/*.h || { echo "hosts cannot reach $symbol without a mark" && exit 1; }
done
grep -q 'm_arDayColors@CCalendarCtrl@@' <<<"$data" || { echo "the table of day colours is not exported" && exit 1; }

clang "@$out/flags" -DRUNTIME_OF_DLL -c tests/visual/runtime.cpp -o "$out/runtime_of_dll.obj"
clang "@$out/flags" -c tests/visual/runtime.cpp -o "$out/runtime.obj"
clang --target=i686-pc-windows-msvc -fno-rtti -c tests/visual/type_info.cpp -o "$out/type_info.obj"
i686-w64-mingw32-windres -I . -I "$version" resources/Dayvane.rc -O res -o "$out/Dayvane.res"
llvm-dlltool -m i386 -k -d tests/visual/ntdll.def -l "$out/ntdll.lib"
libraries=("$lib/libmsvcr120.a" "$out/ntdll.lib")
for system in kernel32 user32 gdi32 comctl32 comdlg32 oleaut32 ole32 imm32 msimg32 advapi32 shell32 winspool uuid; do
    libraries+=("$lib/lib$system.a")
done
"${linker[@]}" /dll /entry:DllStart "/def:$out/Dayvane.def" "@$out/objects.list" "$out/runtime_of_dll.obj" \
    "$out/type_info.obj" "$out/Dayvane.res" "/out:$out/Dayvane.dll" "/implib:$out/Dayvane.lib" "${libraries[@]}"
for host; do
    clang "@$out/flags" -U_AFXEXT -DDAYVANE_DLL -c "tests/package/$host.cpp" -o "$out/$host.obj"
    "${linker[@]}" /subsystem:console /entry:ProgramStart "$out/$host.obj" "$out/runtime.obj" "$out/type_info.obj" \
        "$out/Dayvane.lib" "/out:$out/$host.exe" "${libraries[@]}"
done
