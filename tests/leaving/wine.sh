#!/usr/bin/env bash
# The matrix of leaving under Wine, half of the ways on each of two desktops. Needs WINEPREFIX and DISPLAY
# (tests/wine.sh).
# Usage: wine.sh [--all]; without the option a third of the fields is left in each way.
set -u
fields=--third
[ "${1:-}" != --all ] || fields=
. tests/wine.sh

# Not through a pipe: what Wine leaves running would keep it open.
play() { wine build/win64/bin/tavrikleaving.exe "--$1" $fields >"build/leaving-$1.txt" 2>&1 </dev/null; }
(
    start_wine wine-second
    play odd
) &
second=$!
status=0
play even || status=1
wait $second || status=1
cat build/leaving-even.txt build/leaving-odd.txt
exit $status
