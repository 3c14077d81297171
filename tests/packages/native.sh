#!/usr/bin/env bash
# What is installed suffices for a host elsewhere, which finds it by CMake or by pkg-config, also after it was moved. The
# Debian packages install a host program that runs, and leave nothing behind.
set -eu
top=$PWD
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() { echo "$*" >&2 && exit 1; }

cmake --install build/native --prefix "$folder/first" >/dev/null
mv "$folder/first" "$folder/moved to"
cd "$folder"
installed="$folder/moved to" said='without a store 0, accepted 1, stored 1'
! grep -rlF -e "$top" -e "$folder/first" "$installed" || fail "these tell where they were built"

cp -r "$top/tests/packages/consumer" by-cmake
cmake -S by-cmake -B by-cmake/build -DCMAKE_PREFIX_PATH="$installed" >/dev/null && cmake --build by-cmake/build >/dev/null
[ "$(timeout 20 by-cmake/build/consumer)" = "$said" ] || fail "the host built by CMake does not work"

pc=$(dirname "$(find "$installed" -name tavrikconfig.pc)")
mapfile -t flags < <(PKG_CONFIG_PATH=$pc pkg-config --cflags --libs tavrikconfig tavrikstore tavrikwindow | xargs printf '%s\n')
g++ by-cmake/host.cpp -o by-pkg-config "${flags[@]}"
[ "$(LD_LIBRARY_PATH=${pc%/*} timeout 20 ./by-pkg-config)" = "$said" ] || fail "the host built by pkg-config does not work"

(cd "$top" && packaging/debian) >packages || fail "packaging/debian: $(cat packages)"
sed -i "s,^,$top/," packages
grep -q 'libtavrikconfig1 (= .*libstdc++6' <(dpkg-deb -f "$(grep tavrikhost_ packages)" Depends) || fail "tavrikhost's needs"
grep -q 'libfontconfig1.*libx11-6' <(dpkg-deb -f "$(grep config1_ packages)" Depends) || fail "the library's needs"

# A root of its own, where the scripts' only command says that it was called.
mkdir -p root/var/lib/dpkg/{info,updates} bin
touch root/var/lib/dpkg/{status,available}
printf '#!/bin/sh\necho called >>"%s/ldconfig"\n' "$folder" >bin/ldconfig
chmod +x bin/ldconfig
in_root() {
    PATH=$folder/bin:$PATH:/sbin:/usr/sbin dpkg --root="$folder/root" --log=/dev/null --force-depends --force-not-root \
        --force-script-chrootless "$@" >log 2>&1 || fail "dpkg $*: $(cat log)"
}
files() { find root -path root/var -prune -o -mindepth 1 -print; }
mapfile -t packages <packages
in_root --install "${packages[@]}"
[ -s ldconfig ] || fail "the linker's cache is not renewed"

host=root/usr/bin/tavrikhost manual=root/usr/share/man/man1/tavrikhost.1
cp root/usr/share/tavrikhost/kraftcentral.settings p.settings
timeout 60 $host --memory --scenario root/usr/share/tavrikhost/phase_lines.scn p.settings >log 2>&1 || fail "$(cat log)"
grep -q '^X-COORD=12.5' p.settings || fail "the installed host has not saved"
for option in $($host --help | sed -n 's/^  \(-h, \)\{0,1\}\(--[a-z-]*\).*/\2/p'); do
    sed 's/\\//g' $manual | grep -q -- "$option" || fail "the manual page does not have $option"
done

# shellcheck disable=SC1091
. root/usr/share/bash-completion/completions/tavrikhost
COMP_WORDS=(tavrikhost --s) COMP_CWORD=1
_tavrikhost $host
[ "${COMPREPLY[*]}" = "--scenario --screenshots" ] || fail "--s is completed to: ${COMPREPLY[*]}"

in_root --purge tavrikhost libtavrikconfig-dev libtavrikconfig1
[ -z "$(files)" ] || fail "left behind: $(files)"
