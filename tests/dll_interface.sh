#!/usr/bin/env bash
# The Windows library exports one function under the name that hosts bind to, needs system libraries only, and takes the
# memory that it shares with the host from msvcrt.dll.
# Usage: dll_interface.sh win32|win64
set -eu
case "$1" in
    win32) tool=i686-w64-mingw32-objdump export='?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z' ;;
    win64) tool=x86_64-w64-mingw32-objdump export='?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z' ;;
esac
dll=build/$1/bin/tavrikconfig.dll
headers=$("$tool" -p "$dll")

exports=$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p' <<<"$headers")
[ "$exports" = "$export" ] || { printf 'Exports of %s:\n%s\n' "$dll" "$exports"; exit 1; }

others=$(sed -n 's/^.*DLL Name: //p' <<<"$headers" | tr 'A-Z' 'a-z' |
    grep -vxE '(kernel32|user32|gdi32|comctl32|comdlg32|msvcrt)\.dll' || true)
[ -z "$others" ] || { printf '%s needs: %s\n' "$dll" "$others"; exit 1; }

shared=$(awk '/DLL Name:/ { library = tolower($3) } library == "msvcrt.dll" { print $3 }' <<<"$headers")
for function in malloc free; do
    grep -qx $function <<<"$shared" || { echo "$dll does not take $function from msvcrt.dll"; exit 1; }
done
