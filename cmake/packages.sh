# shellcheck shell=bash disable=SC2034
# Shell functions of ./run and ./test: packages and builds. To be read with "."; the functions work in the
# repository's root.

# The first list is what configuring and building need, the tests' programs included.
native_packages=(g++ cmake ninja-build pkg-config libx11-dev libfreetype-dev libfontconfig-dev fonts-liberation
    binutils-mingw-w64-x86-64 libgtest-dev)
# For tools/coverage.
coverage_packages=(clang llvm)
# For packaging/debian, and for the test of its packages.
packaging_packages=(dpkg-dev file)
test_packages=(libbenchmark-dev fonts-dejavu xvfb xauth x11-xkb-utils xdotool)
windows_build_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix lld)
windows_packages=("${windows_build_packages[@]}" clang wine wine64 xvfb xauth)

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

# show_progress: of a build's output, how far it is, on standard error. Nothing where there was nothing to do.
show_progress() {
    local line total=0 done_before=0 step='^\[([0-9]+)/([0-9]+)\] ' seconds_of_a_file=1.2
    while IFS= read -r line; do
        # The checks before the build count for themselves.
        [[ $line =~ $step && $line != *'] Re-'* ]] || continue
        if [ $total -ne "${BASH_REMATCH[2]}" ]; then
            total=${BASH_REMATCH[2]} done_before=0
            awk -v n="$total" -v cpus="$(nproc)" -v each=$seconds_of_a_file 'BEGIN {
                minutes = n * each / cpus / 60
                print "Building, " n " steps" (minutes < 0.5 ? "." : sprintf("; this takes about %d minute%s.",
                    minutes + 0.5, minutes < 1.5 ? "" : "s"))
            }' >&2
        fi
        if [ -t 2 ]; then
            printf '\r%d of %d' "${BASH_REMATCH[1]}" "$total" >&2
            [ "${BASH_REMATCH[1]}" -ne "$total" ] || printf '\r\033[K' >&2
        elif [ $((BASH_REMATCH[1] * 4 / total)) -gt $((done_before * 4 / total)) ]; then
            printf '%d of %d\n' "${BASH_REMATCH[1]}" "$total" >&2
        fi
        done_before=${BASH_REMATCH[1]}
    done
}

configure_and_build() {
    is_configured "$1" || cmake --preset "$1" || return
    cmake --build "build/$1" "${@:2}"
}

# build_preset [--progress] PRESET [TARGET...]: configures where needed and builds. Quiet, except for what took place when
# it fails and, where that is wanted, for how far it is.
build_preset() {
    local progress=
    [ "$1" != --progress ] || { progress=yes && shift; }
    local preset=$1 targets=() log=build/$1.log
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    mkdir -p build
    if ! if [ -n "$progress" ]; then
        (set -o pipefail && configure_and_build "$preset" "${targets[@]}" 2>&1 | tee "$log" | show_progress)
    else
        configure_and_build "$preset" "${targets[@]}" >"$log" 2>&1
    fi; then
        [ -z "$progress" ] || echo >&2
        cat "$log" >&2
        echo "The build of '$preset' failed." >&2
        return 1
    fi
}
