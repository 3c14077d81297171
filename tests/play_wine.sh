# play FILE...: plays scenarios against the Windows library.
. tests/wine.sh
play() {
    install_packages "${windows_packages[@]}" && build_preset win64 tavrikplayer tavrikconfig && start_wine || return 2
    wine build/win64/bin/tavrikplayer.exe "$@"
}
