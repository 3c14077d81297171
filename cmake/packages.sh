# Shell functions of ./run and ./test: packages, builds, display. To be read with "." from the repository's root.

native_packages="g++ cmake ninja-build pkg-config libx11-dev libfreetype-dev libfontconfig-dev fonts-liberation
    binutils-mingw-w64-x86-64"
test_packages="libgtest-dev libbenchmark-dev xvfb xauth xdotool"
windows_packages="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine wine64 xvfb xauth"

# Prints those of the named packages that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        case "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" in
            installed) ;;
            *) printf '%s ' "$package" ;;
        esac
    done
}

# Installs what is missing where that is allowed. Otherwise says what is missing and returns 1.
install_packages() {
    local missing as_root=
    command -v dpkg-query >/dev/null || { echo "Not a Debian system; needed are: $*" >&2; return 0; }
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            echo "Missing packages: $missing" >&2
            echo "Install them with: sudo apt-get install --no-install-recommends $missing" >&2
            return 1
        fi
        as_root=sudo
    fi
    echo "Installing: $missing"
    $as_root apt-get update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends $missing >/dev/null
}

# build_preset PRESET [TARGET...]: configures where needed and builds; quiet unless something is built or fails.
build_preset() {
    local preset=$1 log
    shift
    log=build/$preset.log
    mkdir -p build
    if ! { { [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"; } &&
        cmake --build "build/$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
        cat "$log" >&2
        echo "The build of '$preset' failed." >&2
        return 1
    fi
}

# Whether an X server answers.
display_answers() {
    [ -n "${DISPLAY:-}" ] && build/native/bin/tavrikhost --probe-display
}
