#!/usr/bin/env bash
# What is said of scenarios that fail in each way there is, and of those that pass.
# Usage: verdicts.sh PLAYER
set -eu
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
printf 'records 0\nopen\ncancel\nresult 0\n' >"$folder/passing.scn"
printf 'records 1\nrecords 0\n' >"$folder/failing.scn"
printf 'open\nexpect caption "Inställningar"\n' >"$folder/open.scn"
printf 'open\nfly\nclick x\ncancel\n' >"$folder/malformed.scn"

# expect STATUS PLAYER FILE...: compares what is said with the standard input.
expect() {
    local wanted_status=$1 player=$2 said status=0
    shift 2
    said=$(tests/play.sh "$player" "${@/#/$folder/}") || status=$?
    if ! diff - <(sed "s|$folder/||" <<<"$said") || [ "$status" -ne "$wanted_status" ]; then
        echo "Wanted of $*: the lines with <, and status $wanted_status instead of $status"
        exit 1
    fi
}

expect 0 "$1" passing.scn passing.scn <<'END'
2 passed, 0 failed
2 passed, 0 failed
4 passed, 0 failed
END
expect 1 "$1" failing.scn open.scn malformed.scn missing.scn passing.scn <<'END'
failing.scn:1: expected records 1, got 0
1 passed, 1 failed
open.scn:2: expected the sheet to be closed at the end, got it open
1 passed, 1 failed
malformed.scn:2: unknown command 'fly'
malformed.scn:3: 'click': argument 1 must be a number
0 passed, 2 failed
missing.scn: cannot be read: No such file or directory
0 passed, 1 failed
2 passed, 0 failed
4 passed, 5 failed
END
# A player that ends before it can say anything.
expect 1 false passing.scn <<'END'
passing.scn: the player ended with status 1
0 passed, 1 failed
0 passed, 1 failed
END
