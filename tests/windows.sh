# The Windows part of ./test. Read with "." after steps.sh and packages.sh.
. tests/wine.sh

if step "build, 32-bit Windows" build_preset win32; then
    step "exports and imports, 32 bit" tests/dll_interface.sh win32
    step "protections, 32 bit" tests/hardening.sh win32
fi
if step "build, 64-bit Windows" build_preset win64; then
    step "exports and imports, 64 bit" tests/dll_interface.sh win64
    step "protections, 64 bit" tests/hardening.sh win64
    if step "Wine" start_wine; then
        step "scripted user under Wine" tests/play.sh build/win64/bin/tavrikplayer.exe tests/automation/commands.scn
        step "verdicts of the player under Wine" tests/player/verdicts.sh build/win64/bin/tavrikplayer.exe
        step "host program under Wine" tests/host/windows.sh
        step "the zip, for hosts elsewhere" tests/packages/windows.sh
        step "scenarios under Wine" tests/play.sh build/win64/bin/tavrikplayer.exe tests/scenarios/*.scn
        step "fields left under Wine" tests/leaving/wine.sh
        step "dialog templates under Wine" wine build/win64/bin/tavriktemplates.exe
        step "conformance of the window layer" tests/conformance/compare.sh
        step "random user, native against Wine" tests/random/compare.sh "$seeds"
    fi
fi
