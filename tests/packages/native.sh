#!/usr/bin/env bash
# What is installed suffices for a host elsewhere, which finds it by CMake or by pkg-config, also after it was moved.
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
