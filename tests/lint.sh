# Formatting and static analysis. Read with "." after steps.sh.

check_format() { git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror; }
check_tidy() { git ls-files '*.cpp' ':!resources/embed.cpp' | xargs -P 2 -n 4 clang-tidy --quiet -p build/native; }

install_packages clang-format clang-tidy && {
    step "clang-format" check_format
    step "clang-tidy" check_tidy
}
