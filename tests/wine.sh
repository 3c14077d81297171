# Shell functions for programs under Wine. To be read with ".".

# start_wine [PREFIX]: starts an X server and makes a Wine prefix below build/, for all programs of this shell that
# follow. A second prefix is a desktop of its own: programs there do not take the focus from those in the first one.
start_wine() {
    export WINEPREFIX=$PWD/build/${1:-wine} WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml,winedbg.exe= LC_ALL=C.UTF-8
    start_display "$WINEPREFIX-display" || return 1
    [ ! -f "$WINEPREFIX/ready" ] || return 0
    rm -rf "$WINEPREFIX"
    if [ -f build/wine/ready ]; then
        cp -a build/wine "$WINEPREFIX"
        return
    fi
    wineboot -i >/dev/null 2>&1 </dev/null
    # Without a window manager, managed windows wait two seconds for one each time they are hidden.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null
    # The registry is written when the server ends.
    wineserver -k -w
    touch "$WINEPREFIX/ready"
}

# start_display FILE: the server's number goes into the file.
start_display() {
    local tries=0
    rm -f "$1"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$1" >/dev/null 2>&1 &
    xvfb_of_wine=$!
    trap stop_wine EXIT
    until [ -s "$1" ]; do
        tries=$((tries + 1))
        [ $tries -lt 100 ] || { echo "Xvfb does not start" >&2; return 1; }
        sleep 0.1
    done
    export DISPLAY=:$(cat "$1")
}

stop_wine() {
    wineserver -k >/dev/null 2>&1
    kill "$xvfb_of_wine" 2>/dev/null
}
