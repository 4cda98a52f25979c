#!/usr/bin/env bash
# build.sh PREFIX win32|win64 OUT: builds the C hosts against an installed Dayvane: with MinGW as strict C89, and in the
# binary interface of Visual C++ with clang and lld. They use nothing but the header, the import library and the DLL.
set -euo pipefail
prefix=$1 out=$3
here=$(cd "$(dirname "$0")" && pwd)
case $2 in
    win32) machine=i686 entry=_HostEntry defines=(-D_X86_ -D__i386__) linker=(/safeseh:no) ;;
    *) machine=x86_64 entry=HostEntry defines=(-D_AMD64_ -D__x86_64__) linker=() ;;
esac
mingw=$machine-w64-mingw32
mkdir -p "$out"
cp "$prefix/bin/DayvaneCtl.dll" "$out"

c89=("$mingw-gcc-posix" -std=c89 -pedantic -Wall -Wextra -Werror -I "$prefix/include" -nostdlib -Wl,-e,$entry)
system=(-lgdi32 -luser32 -lkernel32 -lmsvcrt)
"${c89[@]}" "$here/CHost.c" "$prefix/lib/libDayvaneCtl.dll.a" "${system[@]}" -o "$out/c_host.exe"
"$mingw-windres" "$here/dialog.rc" "$out/dialog.o"
# This one by what pkg-config says of the package.
read -ra flags < <(PKG_CONFIG_LIBDIR=$prefix/lib/pkgconfig pkg-config --cflags --libs dayvane-ctl)
"${c89[@]}" "$here/DialogHost.c" "$out/dialog.o" "${flags[@]}" "${system[@]}" -o "$out/dialog_host.exe"

# MinGW's headers, told that they are read for another compiler. The entry point is ours, so no C runtime is needed.
clang --target="$machine-pc-windows-msvc" -fms-compatibility -fms-extensions -fno-stack-protector -O1 \
    -isystem /usr/share/mingw-w64/include -I "$prefix/include" -D__MINGW32__ -D__GNUC__=12 -U_MSC_VER "${defines[@]}" \
    '-D__declspec=__declspec' -Wno-everything -c "$here/CHost.c" -o "$out/abi_host.obj"
libraries=()
for name in kernel32 user32 gdi32 msvcrt; do
    libraries+=("/usr/$mingw/lib/lib$name.a")
done
lld-link /subsystem:console /entry:HostEntry /nodefaultlib "${linker[@]}" "$out/abi_host.obj" \
    "$prefix/lib/DayvaneCtl.lib" "${libraries[@]}" "/out:$out/abi_host.exe"
