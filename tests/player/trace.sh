#!/usr/bin/env bash
# trace.sh PLAYER: what the environment asks of the message trace, and nothing else, is in it.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
printf 'open\ntab "Allmänt"\nfocus 1089\ncancel\nresult 0\n' >"$folder/open.scn"
TAVRIK_TRACE=$folder/trace TAVRIK_TRACE_CLASSES=Edit,SysTabControl32 TAVRIK_TRACE_MESSAGES=WM_SETFOCUS \
    "$1" "$folder/open.scn" >/dev/null
if [ "$(grep -vc -E '^(Edit|SysTabControl32) [0-9]+ WM_SETFOCUS |^ *-> ' "$folder/trace")" -ne 0 ] ||
    ! grep -q '^Edit 1089 WM_SETFOCUS SysTabControl32 12320$' "$folder/trace"; then
    cat "$folder/trace"
    exit 1
fi
"$1" "$folder/open.scn" 2>"$folder/errors" >/dev/null
[ ! -s "$folder/errors" ]
