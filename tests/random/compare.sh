#!/usr/bin/env bash
# The random user on both systems: results, boxes and the host's store must be the same for every seed.
# Usage: compare.sh SEEDS; needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
. tests/wine.sh
seeds=$1 half=$((($1 + 1) / 2))

# play_under_wine FIRST COUNT FILE. Not through a pipe: what Wine leaves running would keep it open.
play_under_wine() { [ "$2" -eq 0 ] || wine build/win64/bin/tavrikrandom.exe "$1" "$2" >"$3" </dev/null; }

# Nearly all the time goes into Wine, and one processor at a time is busy with a desktop: so two desktops.
rm -f build/random-wine-?.txt
(
    start_wine wine-second
    play_under_wine $((half + 1)) $((seeds - half)) build/random-wine-2.txt
) &
second=$!
play_under_wine 1 $half build/random-wine-1.txt
wait $second
cat build/random-wine-?.txt | tr -d '\r' >build/random-wine.txt
build/native/bin/tavrikrandom 1 "$seeds" >build/random-native.txt
cmp -s build/random-native.txt build/random-wine.txt && exit 0

diff -U 3 build/random-native.txt build/random-wine.txt | head -n 60
seed=$(diff build/random-native.txt build/random-wine.txt | sed -n 's/^[<>] seed-\([0-9]*\):.*/\1/p' | head -n 1)
if [ -n "$seed" ]; then
    build/native/bin/tavrikrandom --print "$seed" >"build/seed-$seed.scn"
    echo "The first seed that differs is $seed; its scenario, also in build/seed-$seed.scn:"
    cat "build/seed-$seed.scn"
fi
exit 1
