#!/usr/bin/env bash
# The shared object offers the export and nothing else.
set -eu
found=$(nm -D --defined-only --format=just-symbols "$1")
[ "$found" = _Z12TavrikconfigP6HWND__PKcP4CMdbiii ] || { echo "Visible in $1: $found"; exit 1; }
