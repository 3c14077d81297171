#!/usr/bin/env bash
# fonts.sh TEMPLATES HOST PLAYER: machines with other fonts than the usual one, and with none at all. No caption of a
# dialog may be cut off; without a font the host program says so and the library opens nothing.
set -euo pipefail
templates=$1 host=$2 player=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export FONTCONFIG_FILE=$folder/fonts.conf
echo "<fontconfig><dir>$folder/fonts</dir><cachedir>$folder/cache</cachedir></fontconfig>" >"$FONTCONFIG_FILE"
mkdir "$folder/fonts"

failed=0
fail() {
    echo "$*"
    failed=1
}

file_of() { env -u FONTCONFIG_FILE fc-match -f '%{file}' "$1"; }
for font in "DejaVu Sans" "DejaVu Sans:condensed" "DejaVu Sans Mono" "Liberation Serif" "Liberation Sans Narrow"; do
    rm -f "$folder"/fonts/*
    ln -s "$(file_of "$font")" "$folder/fonts"
    "$templates" --other-font >"$folder/output" || fail "$font: $(cat "$folder/output")"
done

rm -f "$folder"/fonts/*
printf 'X-COORD=10\n' >"$folder/p.settings"
printf 'open\nresult 0\nunchanged\n' >"$folder/open.scn"
status=0
"$host" --memory "$folder/p.settings" --scenario "$folder/open.scn" >"$folder/output" 2>&1 || status=$?
if [ $status -ne 2 ] || [ "$(wc -l <"$folder/output")" -ne 1 ] || ! grep -q "no font" "$folder/output"; then
    fail "without a font the host program ends with $status: $(cat "$folder/output")"
fi
"$player" "$folder/open.scn" >"$folder/output" 2>&1 || fail "without a font the library: $(cat "$folder/output")"
exit $failed
