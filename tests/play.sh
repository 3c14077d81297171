#!/usr/bin/env bash
# Plays scenario files, each in a process of its own, several at a time. What a file's play prints stays together, in
# the order of the files; the last line has the totals of all. Exit status 1 when anything failed, which a play does too
# that does not end as it should.
# Usage: play.sh PLAYER FILE...; a PLAYER.exe is run under Wine.
set -u
[ $# -gt 1 ] || { sed -n '2,/^set/{/^#/s/^# \{0,1\}//p}' "$0" && exit 2; }
player=$1
shift
files=("$@")
longest_seconds=300

# Each lane plays one file after the other. Windows on one desktop take the focus from one another, so under Wine a lane
# is a desktop.
case $player in
    *.exe)
        . "$(dirname "$0")/wine.sh"
        desktops=(wine wine-second)
        lanes=${#desktops[@]}
        ;;
    *)
        desktops=()
        lanes=$(nproc)
        ;;
esac
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT

# play_lane LANE: says the exit status of each play. What Wine leaves running does not get the pipe that this goes to.
play_lane() {
    local i run=()
    if [ ${#desktops[@]} -gt 0 ] && [ "$1" -lt ${#files[@]} ]; then
        start_wine "${desktops[$1]}" || return
        run=(wine)
    fi
    for ((i = $1; i < ${#files[@]}; i += lanes)); do
        timeout "$longest_seconds" "${run[@]}" "$player" "${files[i]}" >"$output/$i" 2>&1 </dev/null
        echo $?
    done
}

# report FILE OUTPUT STATUS: prints what the play printed, and adds to the totals what it says itself or, when it could
# not, that it failed.
report() {
    local totals='^([0-9]+) passed, ([0-9]+) failed$' lines=() of_play=(0 0) ended=
    [ ! -f "$2" ] || mapfile -t lines < <(sed 's/\r$//' "$2")
    if [ ${#lines[@]} -gt 0 ] && [[ ${lines[-1]} =~ $totals ]]; then
        of_play=("${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}")
        unset 'lines[-1]'
        [ "$3" != $((of_play[1] > 0)) ] || ended=yes
    fi
    [ ${#lines[@]} -eq 0 ] || printf '%s\n' "${lines[@]}"
    if [ -z "$ended" ]; then
        echo "$1: the player ended with status $3"
        of_play[1]=$((of_play[1] + 1))
    fi
    echo "${of_play[0]} passed, ${of_play[1]} failed"
    passed=$((passed + of_play[0])) failed=$((failed + of_play[1]))
}

pipes=() lane_ids=() passed=0 failed=0
for ((lane = 0; lane < lanes; lane++)); do
    exec {pipe}< <(play_lane "$lane")
    pipes+=("$pipe") lane_ids+=($!)
done
for i in "${!files[@]}"; do
    read -r -u "${pipes[i % lanes]}" status || status=unknown
    report "${files[i]}" "$output/$i" "$status"
done
wait "${lane_ids[@]}"
echo "$passed passed, $failed failed"
[ $failed -eq 0 ]
