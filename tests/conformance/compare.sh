#!/usr/bin/env bash
# Runs the conformance program natively and under Wine and compares the traces line by line. A difference fails unless
# differences.txt names it. Needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
here=tests/conformance
build/native/bin/tavrikconformance >build/trace-native.txt
wine build/win64/bin/tavrikconformance.exe | tr -d '\r' >build/trace-wine.txt
[ "$(wc -l <build/trace-native.txt)" -gt 100 ] || { echo "The native trace is too short."; exit 1; }

unnamed=$(diff build/trace-native.txt build/trace-wine.txt | grep '^[<>]' |
    grep -vxF -f <(grep '^[<>]' "$here/differences.txt") || true)
if [ -n "$unnamed" ]; then
    echo "Differences ('<' native, '>' Wine) that $here/differences.txt does not name:"
    diff -U 4 build/trace-native.txt build/trace-wine.txt
    exit 1
fi
