#!/usr/bin/env bash
# Each binary has the protections that the compiler and the linker offer, and does not tell where it was built.
# Usage: hardening.sh native|win32|win64
set -eu
bin=build/$1/bin
failed=

# expect BINARY WHAT TEXT PATTERN: the text has a line with the pattern.
expect() { grep -qE -- "$4" <<<"$3" || { echo "$bin/$1: $2"; failed=yes; }; }

expect_no_path() {
    ! grep -qF -- "$PWD" "$bin/$1" || { echo "$bin/$1: has the path $PWD in it"; failed=yes; }
}

# Whether a function checks its stack, a call of the C library its buffer, and a container its index.
check_elf() {
    local headers symbols landings
    headers=$(readelf -lWd "$bin/$1")
    symbols=$(nm -D "$bin/$1")
    expect "$1" "is not bound at once" "$headers" 'FLAGS_1.* NOW'
    expect "$1" "has no part that is read-only after linking" "$headers" GNU_RELRO
    expect "$1" "has an executable stack" "$headers" 'GNU_STACK .* RW +0x'
    expect "$1" "has functions without a guarded stack" "$symbols" '__stack_chk_fail@'
    expect "$1" "does not check buffers of the C library" "$symbols" '__[a-z]+_chk@'
    expect "$1" "does not check the use of containers" "$symbols" '__glibcxx_assert_fail'
    ! grep -E 'R(UN)?PATH' <<<"$headers" | grep -vE '\[\$ORIGIN[^:]*(:\$ORIGIN[^:]*)*\]' || { echo "$bin/$1: other run path"; failed=yes; }
    if [ "$(uname -m)" = x86_64 ]; then
        landings=$(objdump -d --no-show-raw-insn "$bin/$1" | grep -c endbr64) || true
        [ "$landings" -gt 100 ] || { echo "$bin/$1: indirect calls have no marked targets"; failed=yes; }
    fi
    expect_no_path "$1"
}

# Some of the run time library is linked in, so what it needs does not tell of the project's own code.
check_pe() {
    local headers
    headers=$("$tools-objdump" -p "$bin/$1")
    expect "$1" "is not placed anywhere" "$headers" DYNAMIC_BASE
    expect "$1" "cannot be placed elsewhere, for want of relocations" "$("$tools-objdump" -h "$bin/$1")" ' \.reloc '
    expect "$1" "lets data be executed" "$headers" NX_COMPAT
    [ "$tools" = i686-w64-mingw32 ] || expect "$1" "is not placed high" "$headers" HIGH_ENTROPY_VA
    expect "$1" "has functions without a guarded stack" "$("$tools-nm" "$bin/$1")" ' _{2,3}stack_chk_fail$'
    expect_no_path "$1"
}

case $1 in
    native)
        for binary in libtavrikwindow.so libtavrikconfig.so tavrikhost tavrikplayer; do
            check_elf $binary
        done
        for binary in tavrikhost tavrikplayer; do
            expect $binary "is not placed anywhere" "$(readelf -d "$bin/$binary")" 'FLAGS_1.* PIE'
        done
        ;;
    win32 | win64)
        tools=$([ "$1" = win32 ] && echo i686-w64-mingw32 || echo x86_64-w64-mingw32)
        for binary in tavrikconfig.dll tavrikhost.exe tavrikplayer.exe; do
            check_pe $binary
        done
        ;;
esac
[ -z "$failed" ]
