#!/usr/bin/env bash
# ./run as a newcomer meets it: help before there is anything built, the sample's pages for other files too, a word about
# a long build and none about nothing, and no promise where no sheet can be seen.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() { echo "$*" >&2 && exit 1; }

mkdir "$folder/new"
cp -r run cmake host "$folder/new"
for option in -h --help; do
    (cd "$folder/new" && ./run $option) >"$folder/help" || fail "./run $option fails"
    build/native/bin/tavrikhost $option >"$folder/of-host" || fail "tavrikhost $option fails"
    tail -n "$(grep -c '' "$folder/of-host")" "$folder/help" | cmp - "$folder/of-host" || fail "./run $option: other options"
done
[ ! -e "$folder/new/build" ] || fail "./run --help builds"

pages() { (cd "$folder/$1" && printf '%s ' *.png); }
cp host/samples/kraftcentral.settings "$folder/p.settings"
./run --screenshots "$folder/all" "$folder/p.settings" >"$folder/said" 2>&1 || fail "./run FILE: $(cat "$folder/said")"
[ ! -s "$folder/said" ] || fail "a build with nothing to do says: $(cat "$folder/said")"
[[ $(pages all) == *Pro.png*Forbind.png* ]] || fail "./run FILE does not show all pages: $(pages all)"
./run --screenshots "$folder/few" --optional-pages 0 "$folder/p.settings"
[[ $(pages few) != *Pro.png* ]] || fail "an option that is given does not count: $(pages few)"

DISPLAY=:4711 ./run >"$folder/said" 2>&1 || fail "./run without a display: $(cat "$folder/said")"
head -n 2 "$folder/said" | cmp -s - <(echo "tavrikhost: no display answers (DISPLAY is ':4711')" &&
    echo "Playing a sample scenario on build/pictures/played.settings instead.") || fail "it says: $(cat "$folder/said")"

. cmake/packages.sh
nproc() { echo 2; }
said=$(printf '%s\n' '[0/2] Re-checking globbed directories...' '[1/200] a' '[49/200] b' '[50/200] c' '[200/200] d' |
    show_progress 2>&1)
[ "$said" = $'Building, 200 steps; this takes about 2 minutes.\n50 of 200\n200 of 200' ] || fail "progress: $said"
