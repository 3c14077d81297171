#!/usr/bin/env bash
# The random user on both systems: results, boxes and the host's store must be the same for every seed.
# Usage: compare.sh SEEDS; needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
build/native/bin/tavrikrandom 1 "$1" >build/random-native.txt
wine build/win64/bin/tavrikrandom.exe 1 "$1" | tr -d '\r' >build/random-wine.txt
cmp -s build/random-native.txt build/random-wine.txt && exit 0

diff -U 3 build/random-native.txt build/random-wine.txt | head -n 60
seed=$(diff build/random-native.txt build/random-wine.txt | sed -n 's/^[<>] seed-\([0-9]*\):.*/\1/p' | head -n 1)
if [ -n "$seed" ]; then
    build/native/bin/tavrikrandom --print "$seed" >"build/seed-$seed.scn"
    echo "The first seed that differs is $seed; its scenario, also in build/seed-$seed.scn:"
    cat "build/seed-$seed.scn"
fi
exit 1
