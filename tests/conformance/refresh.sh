#!/usr/bin/env bash
# Writes expected.txt anew when the native trace and Wine's agree; otherwise shows where they differ.
set -eu
cd "$(dirname "$0")/../.."
. cmake/packages.sh
. tests/wine.sh
build_preset native tavrikconformance
build_preset win64 tavrikconformance
start_wine
tests/conformance/compare.sh --refresh
