# shellcheck shell=bash disable=SC2034
# Shell functions of ./run and ./test: packages and builds. To be read with "."; the functions work in the
# repository's root.

# The first list is what configuring and building need, the tests' programs included.
native_packages=(g++ cmake ninja-build pkg-config libx11-dev libfreetype-dev libfontconfig-dev fonts-liberation
    binutils-mingw-w64-x86-64 libgtest-dev)
test_packages=(libbenchmark-dev fonts-dejavu xvfb xauth x11-xkb-utils xdotool)
windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine wine64 xvfb xauth)

# Prints those of the named packages that are not installed, one a line.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

# Installs what is missing where that is allowed. Otherwise says what is missing and returns 1.
install_packages() {
    local missing as_root=()
    command -v dpkg-query >/dev/null || { echo "Not a Debian system; needed are: $*" >&2; return 0; }
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them with: sudo apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -qq -y --no-install-recommends "${missing[@]}" >/dev/null
}

# Whether a preset is configured, and no package has come or gone since that might have been looked for.
is_configured() { [ -f "build/$1/build.ninja" ] && [ "build/$1/build.ninja" -nt /var/lib/dpkg/status ]; }

# build_preset PRESET [TARGET...]: configures where needed and builds. Quiet, except for what took place when it fails.
build_preset() {
    local preset=$1 targets=() log=build/$1.log
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    mkdir -p build
    if ! { { is_configured "$preset" || cmake --preset "$preset"; } &&
        cmake --build "build/$preset" "${targets[@]}"; } >"$log" 2>&1; then
        cat "$log" >&2
        echo "The build of '$preset' failed." >&2
        return 1
    fi
}
