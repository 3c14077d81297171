#!/usr/bin/env bash
# The random user on both systems: what is chosen, what is seen and what the host's store holds must be the same for
# every seed.
# Usage: compare.sh SEEDS; needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
. tests/wine.sh
seeds=$1 half=$((($1 + 1) / 2))

# play_under_wine FIRST COUNT FILE. Not through a pipe: what Wine leaves running would keep it open.
play_under_wine() { [ "$2" -eq 0 ] || wine build/win64/bin/tavrikrandom.exe "$1" "$2" >"$3" </dev/null; }

# Nearly all the time goes into Wine, and one processor at a time is busy with a desktop: so two desktops.
rm -f build/random-wine-?.txt
failed=
(
    start_wine wine-second
    play_under_wine $((half + 1)) $((seeds - half)) build/random-wine-2.txt
) &
second=$!
play_under_wine 1 $half build/random-wine-1.txt || failed=yes
wait $second || failed=yes
cat build/random-wine-?.txt | tr -d '\r' >build/random-wine.txt
build/native/bin/tavrikrandom 1 "$seeds" >build/random-native.txt || failed=yes

if ! difference=$(cmp build/random-native.txt build/random-wine.txt 2>&1); then
    line=${difference##* }
    seed=$(head -n "$line" build/random-native.txt | sed -n 's/^# seed //p' | tail -n 1)
    for system in native wine; do
        sed -n "/^# seed $seed\$/,/^# seed $((seed + 1))\$/p" build/random-$system.txt >"build/seed-$seed-$system.scn"
    done
    echo "The first seed that differs is $seed; it is in build/seed-$seed-native.scn and build/seed-$seed-wine.scn:"
    diff -U 10 "build/seed-$seed-native.scn" "build/seed-$seed-wine.scn" | head -n 60
    exit 1
fi
[ -z "$failed" ] || { grep '^# seed-' build/random-native.txt | head -n 20; exit 1; }
