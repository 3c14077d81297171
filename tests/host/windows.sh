#!/usr/bin/env bash
# The Windows programs load the library from their own folder alone, and save as the native ones do. Under Wine, whose X
# server the caller has started.
set -eu
bin=$PWD/build/win64/bin
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
program="$folder/Ö ä 日本" current=$folder/current
mkdir "$program" "$current"
cp "$bin"/tavrik{host.exe,player.exe,config.dll} "$program"
cd "$current"
cp "$bin/tavrikconfig.dll" . # Stands for anybody's.
printf 'X-COORD=10\r' >p.settings
printf 'open\ntab "Allmänt"\ntype 1089 "12.5"\npress TAB\nok\nresult 1\n' >x.scn

fail() { echo "$*" >&2 && cat said >&2 && exit 1; }

# expect STATUS PATTERN PROGRAM ARGUMENT...: what is printed has a line with the pattern.
expect() {
    local expected=$1 pattern=$2 status=0
    shift 2
    timeout 60 wine "$program/$1" "${@:2}" >said 2>&1 </dev/null || status=$?
    [ "$status" -eq "$expected" ] || fail "$*: status $status"
    grep -q -- "$pattern" said || fail "$*: prints something else"
}
expect_content() { printf "$1" | cmp -s - p.settings || fail "p.settings is: $(od -c p.settings)"; }
play=(tavrikhost.exe p.settings --scenario x.scn)

expect 0 '^changed X-COORD: "10" -> "12.5"' "${play[@]}"
expect_content 'X-COORD=12.5\r'
printf 'X-COORD=7' >p.settings
ln p.settings other
expect 0 '^changed' "${play[@]}"
expect_content 'X-COORD=12.5'
[ p.settings -ef other ] || fail "the other name has not got the change"
rm other

expect 2 'is a device, not a file' tavrikhost.exe NUL
expect 2 'is a folder, not a file' tavrikhost.exe .
[ -z "$(find . -name '*.new-*' -o -name '*.before-*')" ] || fail "files are left"

rm "$program/tavrikconfig.dll"
export WINEPATH=$current
expect 2 'tavrikconfig.dll: cannot be loaded (error 126)' "${play[@]}"
expect 2 'tavrikconfig.dll: cannot be loaded (error 126)' tavrikplayer.exe x.scn
