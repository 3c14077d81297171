#!/usr/bin/env bash
# The random user alone, on a native build: it must survive, that is all.
# Usage: run.sh native|asan SEEDS
set -eu
"build/$1/bin/tavrikrandom" 1 "$2" >"build/random-$1.txt" || { tail -n 30 "build/random-$1.txt"; exit 1; }
