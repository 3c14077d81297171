#!/usr/bin/env bash
# One person at a real X server: the sheet is used with the mouse and the keyboard, and the settings file tells what
# came of it. Waits are for windows and for the keyboard focus, which the server tells; there is no window manager.
# In the end the server goes away under the sheet and what is open on it.
set -eu

host=$PWD/build/native/bin/tavrikhost
stranger=$PWD/build/native/bin/stranger
folder=$(mktemp -d)
settings=$folder/smoke.settings
host_id='' server_id=''

stop() {
    local status=$?
    [ -z "$host_id" ] || kill "$host_id" 2>/dev/null || true
    [ -z "$server_id" ] || kill "$server_id" 2>/dev/null || true
    rm -rf "$folder"
    exit "$status"
}
trap stop EXIT

fail() {
    echo "Failed: $*" >&2
    echo "Windows:" >&2
    xdotool search --onlyvisible --name . getwindowname %@ >&2 || true
    echo "The host said:" >&2
    cat "$folder/said" >&2
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds, five seconds at most.
wait_for() {
    local what=$1 end=$((SECONDS + 6))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || fail "no $what"
        sleep 0.01
    done
}
has_focus() { [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]; }
shows() { [ "$(xdotool search --onlyvisible --class Tavrik | wc -l)" -eq "$1" ]; }
host_ended() { ! kill -0 "$host_id"; }

# press X Y: a click in the sheet, in pixels from its upper left corner; negative ones from the lower right.
press() {
    local X=0 Y=0 WIDTH=0 HEIGHT=0
    eval "$(xdotool getwindowgeometry --shell "$sheet" | grep -E '^(X|Y|WIDTH|HEIGHT)=[0-9]+$')"
    xdotool mousemove $((X + $1 + ($1 < 0 ? WIDTH : 0))) $((Y + $2 + ($2 < 0 ? HEIGHT : 0))) click 1
}

# press_at X Y: a click on the page, in dialog units as its template has them. One is 6/4 by 13/8 pixels.
press_at() {
    local page_left=11 page_top=31
    press $((page_left + $1 * 6 / 4)) $((page_top + $2 * 13 / 8))
}
press_ok() { press -125 -20; }
press_general() { press 131 19; } # The second tab.

enter_wrong_number() {
    press_at 60 121 # X
    xdotool key Home key shift+End type '2,5'
    xdotool key Tab
    wait_for "message box" has_focus 'Felaktigt textfält'
}

caption='Inställningar på svenska'
# open_sheet [OPTION...]
open_sheet() {
    "$host" --caption "$caption" --designation 1 "$@" "$settings" >"$folder/said" 2>&1 &
    host_id=$!
    sheet_comes
}
sheet_comes() {
    wait_for "sheet with the focus" has_focus "$caption"
    sheet=$(xdotool getwindowfocus)
}

# sheet_ends STATUS: waits for the end of the program.
sheet_ends() {
    local status=0
    wait_for "end of the program" host_ended
    wait "$host_id" || status=$?
    host_id=
    [ "$status" -eq "$1" ] || fail "exit status $status instead of $1"
}

# expect_file FILE WHAT: byte for byte.
expect_file() {
    cmp -s "$1" "$settings" && return
    diff "$1" "$settings" >&2 || true
    fail "the file is not $2"
}

start_server() {
    : >"$folder/display"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$folder/display" >/dev/null 2>&1 &
    server_id=$!
    wait_for "X server" test -s "$folder/display"
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
    setxkbmap se
}

end_server() {
    kill -KILL "$server_id"
    wait "$server_id" 2>/dev/null || true
    server_id=
}

touch "$folder/said"
start_server

cat >"$folder/before" <<'END'
# Rökprov
STR_INCR=0
A2-A1=0
CCT_DIR=iec1082
X-COORD=20
Y-COORD=270
PHASE_DIST_VER=10
END
cp "$folder/before" "$settings"

# Everything once, and OK, however much another program disturbs.
open_sheet
"$stranger" litter 10000
press_general
press_at 18 35  # Uppräkning av postbeteckningar
press_at 152 35 # A2 - A1
press_at 123 78 # The arrow of Symbolstandard.
wait_for "drop-down list" shows 3
"$stranger" litter 1000
list=$(xdotool search --onlyvisible --class Tavrik | sort -n | tail -1)
"$stranger" destroy "$list"
wait_for "drop-down list that comes back" shows 3
press_at 40 99  # Its second entry.
wait_for "end of the drop-down list" shows 2
xdotool key End type 'åäö ÅÄÖ'
enter_wrong_number
xdotool key Return
wait_for "sheet after the message box" has_focus "$caption"
xdotool type '12.5'
xdotool key Tab key ctrl+c key Tab key ctrl+v key ctrl+Tab key Tab
press_ok
sheet_ends 0
sed 's/^STR_INCR=.*/STR_INCR=1/; s/^A2-A1=.*/A2-A1=1/; s/^CCT_DIR=.*/CCT_DIR=iec617åäö ÅÄÖ/
    s/^X-COORD=.*/X-COORD=12.5/; s/^PHASE_DIST_VER=.*/PHASE_DIST_VER=270/' "$folder/before" >"$folder/after"
expect_file "$folder/after" "what OK has written"
grep -qx 'changed X-COORD: "20" -> "12.5"' "$folder/said" || fail "the host does not name the change"
[ "$(grep -c '^[ac]' "$folder/said")" -eq 5 ] || fail "the host names other changes"

# Started without any standard stream: all is saved, but the host cannot tell.
"$host" --caption "$caption" "$settings" <&- >&- 2>&- &
host_id=$!
sheet_comes
press_general
press_at 18 35
press_ok
sheet_ends 2
sed -i 's/^STR_INCR=.*/STR_INCR=0/' "$folder/after"
expect_file "$folder/after" "what OK has written without standard streams"

# Changes that the person gives up with Esc, and with the close box.
open_sheet
press_general
press_at 18 35
xdotool key Escape
sheet_ends 1
expect_file "$folder/after" "what it was before Esc"
printf '%s\n' "The sheet is open on $settings. OK saves and lists the changes here." \
    'Cancelled; nothing was changed.' | cmp -s - "$folder/said" || fail "the host does not say what Esc did"

open_sheet
press_general
press_at 18 35
"$stranger" close "$sheet"
sheet_ends 1
expect_file "$folder/after" "what it was before the close box"

# Another program destroys the sheet, the box in front of it, or the host's window.
open_sheet
press_general
press_at 18 35
"$stranger" destroy "$sheet"
sheet_ends 1
open_sheet
press_general
enter_wrong_number
"$stranger" destroy "$(xdotool getwindowfocus)"
wait_for "sheet after the message box" has_focus "$caption"
"$stranger" destroy "$(xdotool search --name Tavrikhost)"
sheet_ends 1
expect_file "$folder/after" "what it was before a window was destroyed"

# The server goes away.
lose_the_server() {
    end_server
    sheet_ends 3
    expect_file "$folder/after" "what it was before the server was lost, with $1"
    grep -qx 'tavrikhost: the connection to the display was lost; .*' "$folder/said" || fail "the host does not say why"
    [ "$(grep -c "" "$folder/said")" -eq 2 ] || fail "more than one line about the lost server"
    start_server
}

change_something() {
    open_sheet
    press_general
    press_at 18 35
}
change_something
lose_the_server "the sheet"
change_something
press_at 123 78
wait_for "drop-down list" shows 3
lose_the_server "a drop-down list"
change_something
enter_wrong_number
lose_the_server "a message box"
open_sheet --optional-pages 1
press_at 39 182 # Databas
wait_for "file dialog" shows 3
lose_the_server "a file dialog"

build/native/bin/breakingconnection "/tmp/.X11-unix/X${DISPLAY#:}" || fail "a server that is lost while the sheet opens"
