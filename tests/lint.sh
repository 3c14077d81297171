# Formatting and static analysis. Read with "." after steps.sh.

check_format() { git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror; }
# The analyser cannot read the compiler's precompiled header, so it gets commands without one. The files that are left out
# are not built natively, or not in this tree.
check_tidy() {
    cmake --preset native -B build/lint -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null &&
        git ls-files '*.cpp' ':!resources/embed.cpp' ':!*_windows.cpp' ':!framework/stack_guard.cpp' \
            ':!tests/other_abi' ':!tests/packages' |
            xargs -P 2 -n 4 clang-tidy --quiet -p build/lint
}

install_packages clang-format clang-tidy && {
    step "clang-format" check_format
    step "clang-tidy" check_tidy
}
