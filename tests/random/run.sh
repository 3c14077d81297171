#!/usr/bin/env bash
# The random user alone, on a native build: the library survives, and every command can be carried out.
# Usage: run.sh native|asan SEEDS
set -eu
trace=build/random-$1.txt
"build/$1/bin/tavrikrandom" 1 "$2" >"$trace" || {
    grep '^# seed-' "$trace" | head -n 20
    tail -n 30 "$trace"
    exit 1
}
