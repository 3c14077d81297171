#!/usr/bin/env bash
# What is said of scenarios that fail in each way there is, and of those that pass.
# Usage: verdicts.sh PLAYER
set -eu
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
printf 'records 0\nopen\ncancel\nresult 0\n' >"$folder/passing.scn"
cp tests/player/failing.scn "$folder"
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
expect 1 "$1" failing.scn malformed.scn missing.scn passing.scn <<'END'
failing.scn:4: expected an open sheet, got none
failing.scn:5: expected result 0, got no run yet
failing.scn:10: expected no message box, got "Felaktigt textfält" ",är ogiltigt!"
failing.scn:12: expected control 1043 checked, got unchecked
failing.scn:13: expected control 1089 to be a check box or radio button, got class Edit
failing.scn:14: expected a control 4711 in "Inställningar", got none
failing.scn:16: expected no message box, got "Felaktigt textfält" ",är ogiltigt!"
failing.scn:17: expected A "x", got "1"
failing.scn:20: expected message box "Fel" "annan text", got "Felaktigt textfält" ",är ogiltigt!"
failing.scn:22: expected text of 1089 "8", got "7"
failing.scn:23: expected a conversion of dates, got %H
failing.scn:24: expected control 1060 to be enabled, got it disabled
failing.scn:25: expected an entry "delta", got "" "iec1082" "iec617"
failing.scn:26: expected an entry @10, got 3 entries
failing.scn:27: expected control 1089 to be a combo box, got class Edit
failing.scn:28: expected focus on 1090, got 1089
failing.scn:29: expected the sheet to be closed, got it open
failing.scn:34: expected a position from 0 to 100, got 101
failing.scn:37: expected cell 0 1 "first", got "  1"
failing.scn:38: expected rows of 2042 1, got 255
failing.scn:39: expected row 5 checked, got unchecked
failing.scn:40: expected a row 255, got 255 of them
failing.scn:41: expected a column 2, got 2 of them
failing.scn:42: expected control 10047 to be a list view, got class Edit
failing.scn:43: expected control 2042 to be a track bar, got class SysListView32
failing.scn:44: expected a tab "Nix", got none
failing.scn:44: expected the sheet to be closed at the end, got it open
2 passed, 27 failed
malformed.scn:2: unknown command 'fly'
malformed.scn:3: 'click': argument 1 must be a number
0 passed, 2 failed
missing.scn: cannot be read: No such file or directory
0 passed, 1 failed
2 passed, 0 failed
4 passed, 30 failed
END
# A player that ends before it can say anything.
expect 1 false passing.scn <<'END'
passing.scn: the player ended with status 1
0 passed, 1 failed
0 passed, 1 failed
END
