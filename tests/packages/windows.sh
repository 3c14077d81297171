#!/usr/bin/env bash
# The Windows zip suffices for hosts of both families of compilers: each is built for both architectures from what is in
# the zip, and the ones of 64 bit run. Under Wine, whose X server the caller has started.
set -eu
top=$PWD
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() { echo "$*" >&2 && exit 1; }

packaging/windows_zip >"$folder/zip" 2>&1 || fail "packaging/windows_zip: $(cat "$folder/zip")"
cd "$folder"
cmake -E tar xf "$top/$(tail -n 1 zip)"
cd tavrikconfig-*-windows
mkdir shim
echo '#include <stddef.h>' >shim/cstddef # All that the header takes from a standard library.

# imports TOOLS PROGRAM: what the program takes from the library.
imports() {
    "$1-objdump" -p "$2" | awk '/DLL Name:/ { library = $3 } library == "tavrikconfig.dll" && NF == 3 && $3 ~ /^[?]/ { print $3 }'
}

# build FOLDER TOOLS EXPORT LINKER_OPTION...: the hosts for one architecture.
build() {
    local to=$1 tools=$2-w64-mingw32 target=$2-pc-windows-msvc export=$3 libraries=/usr/$2-w64-mingw32/lib
    "$tools-g++-posix" -std=c++17 -static -I. -Iinclude "$top/tests/packages/consumer/host.cpp" store/*.cpp \
        "$to/libtavrikconfig.dll.a" -o "$to/gnu_host.exe"
    "$tools-g++-posix" -std=c++17 -static -I. -Iinclude doc/minimal_host.cpp store/*.cpp -o "$to/minimal_host.exe"
    clang++ "--target=$target" -std=c++17 -fsyntax-only -Ishim -include include/tavrikconfig.h -x c++ - </dev/null
    clang++ "--target=$target" -std=c++17 -O2 -I"$top" -c "$top/tests/other_abi/host.cpp" -o "$to/host.obj"
    lld-link /entry:Start /subsystem:console /nodefaultlib "${@:4}" "/out:$to/other_host.exe" "$to/host.obj" \
        "$to/tavrikconfig.lib" "$libraries"/lib{user32,kernel32,msvcrt}.a
    for host in gnu_host other_host; do
        [ "$(imports "$tools" "$to/$host.exe")" = "$export" ] || fail "$to/$host.exe binds to another name"
    done
}
build x64 x86_64 '?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z'
build x86 i686 '?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z' /safeseh:no

run() { timeout 60 wine "x64/$1.exe" "${@:2}" >said 2>&1 </dev/null || fail "$1: status $?: $(cat said)"; }
run gnu_host
grep -q 'without a store 0, accepted 1, stored 1' said || fail "gnu_host says: $(cat said)"
run other_host
run tavrikhost --scenario samples/phase_lines.scn samples/kraftcentral.settings
grep -q '^X-COORD=12.5' samples/kraftcentral.settings || fail "the packed host has not saved"
