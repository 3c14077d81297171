# play FILE...: plays scenarios natively, in memory.
play() { build_preset native tavrikplayer && build/native/bin/tavrikplayer "$@"; }
