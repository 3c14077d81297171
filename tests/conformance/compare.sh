#!/usr/bin/env bash
# Runs the conformance program natively and under Wine and compares the traces line by line. A difference fails unless
# differences.txt names it. Needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
here=tests/conformance
native=build/trace-native.txt wine=build/trace-wine.txt
timeout 60 build/native/bin/tavrikconformance >$native
# Through a file: what Wine leaves running would keep a pipe open.
timeout 120 wine build/win64/bin/tavrikconformance.exe >$wine.crlf </dev/null
tr -d '\r' <$wine.crlf >$wine
[ "$(wc -l <$native)" -gt 4000 ] || { echo "The native trace is too short."; exit 1; }

unnamed=$(diff $native $wine | grep '^[<>]' | grep -vxF -f <(grep '^[<>]' "$here/differences.txt") || true)
if [ -n "$unnamed" ]; then
    echo "Differences ('<' native, '>' Wine) that $here/differences.txt does not name:"
    diff -U 4 $native $wine
    exit 1
fi
