# Shell functions for programs under Wine. To be read with ".".

# Starts an X server of its own and a Wine prefix below build/, once for all programs that follow.
start_wine() {
    local display_file=build/wine-display
    export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= LC_ALL=C.UTF-8
    rm -f "$display_file"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$display_file" >/dev/null 2>&1 &
    xvfb_of_wine=$!
    trap stop_wine EXIT
    local tries=0
    until [ -s "$display_file" ]; do
        tries=$((tries + 1))
        [ $tries -lt 100 ] || { echo "Xvfb does not start" >&2; return 1; }
        sleep 0.1
    done
    export DISPLAY=:$(cat "$display_file")
    if [ ! -d "$WINEPREFIX/drive_c/windows" ]; then
        wineboot -i >/dev/null 2>&1 </dev/null
        # Without a window manager, managed windows wait two seconds for one each time they are hidden.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null
    fi
}

stop_wine() {
    wineserver -k >/dev/null 2>&1
    kill "$xvfb_of_wine" 2>/dev/null
}
