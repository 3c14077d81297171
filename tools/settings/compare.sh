#!/usr/bin/env bash
# compare.sh PROGRAM: docs/settings.md and docs/keyboard.md are what the program prints, and the first has every key that a page names.
set -euo pipefail
cd "$(dirname "$0")/../.."
"$1" --keyboard | diff docs/keyboard.md - ||
    { echo "To write it anew: build/native/bin/tavriksettingsdoc --keyboard >docs/keyboard.md" >&2; exit 1; }
"$1" | diff docs/settings.md - || { echo "To write it anew: build/native/bin/tavriksettingsdoc >docs/settings.md" >&2; exit 1; }
missing=0
for key in $(grep -ohE '"[A-Z0-9]+(_[A-Z0-9]+|-COORD|-A1)+"|"WH[A-Z0-9]+"' pages/*/*.cpp core/setting_keys.h | tr -d '"' | sort -u); do
    grep -q "\b$key" docs/settings.md || { echo "docs/settings.md lacks $key" >&2; missing=1; }
done
exit $missing
