#!/usr/bin/env bash
# Runs the conformance program natively and under Wine and compares the traces section by section. They may differ just
# as differences.txt says: one that it does not list fails, and so does one that it lists and that is gone. The sums must
# be those in expected.txt; with --refresh they are written there instead.
# Needs WINEPREFIX and DISPLAY (tests/wine.sh).
set -eu
here=tests/conformance
native=build/trace-native.txt wine=build/trace-wine.txt listed=build/trace-listed.txt
found=build/trace-found.txt unlisted=build/trace-unlisted.txt sums=build/trace-sums.txt

# differences NATIVE WINE: the lines of one system alone, below the headings of their sections. Each section is compared
# by itself, so that what is listed of it does not change with another one.
differences() {
    local name
    diff <(grep -a '^= ' "$1") <(grep -a '^= ' "$2") | sed -n 's/^[<>] = [^ ]* //p' | awk '!seen[$0]++' |
        while read -r name; do
            printf '[%s]\n' "$name"
            diff <(section "$1" "$name") <(section "$2" "$name") | grep -a '^[<>]' || true
        done
}
section() { awk -v heading="[$2]" '/^\[/ { inside = $0 == heading } inside && !/^=/' "$1"; }

# run TRACE COMMAND...: through a file, because what Wine leaves running would keep a pipe open.
run() {
    local trace=$1 status=0
    shift
    timeout 120 "$@" >"$trace.crlf" </dev/null || status=$?
    tr -d '\r' <"$trace.crlf" >"$trace"
    [ $status -eq 0 ] || { echo "$1 ended with $status; the last lines of $trace:"; tail "$trace"; return 1; }
}
run $native build/native/bin/tavrikconformance

unexplained=$(awk '/^\[/ && last !~ /^#/ { print } { last = $0 }' $here/differences.txt)
[ -z "$unexplained" ] || { printf '%s gives no reason for:\n%s\n' $here/differences.txt "$unexplained"; exit 1; }
grep -vE '^(#|$)' $here/differences.txt >$listed || true
# Windows of Wine's own services come at any time, and then the order and the activation are others: such a run is
# done once more.
for attempt in first second; do
    run $wine wine build/win64/bin/tavrikconformance.exe
    differences $native $wine >$found
    ! diff $listed $found >$unlisted || break
    [ $attempt = second ] || cp $wine ${wine%.txt}-first.txt
done
if [ -s $unlisted ]; then
    echo "'<' is listed in $here/differences.txt and gone, '>' is a difference that is not listed:"
    cat $unlisted
    echo "Native and Wine's trace:"
    diff -U 4 $native $wine
    exit 1
fi

# A section that differs has a sum of each system.
sed -n 's/^= //p' $native $wine | awk '!seen[$0]++' >$sums
if ! diff $here/expected.txt $sums >$unlisted; then
    echo "Sections that are new, changed or gone:"
    sed -n 's/^[<>] [^ ]* /  /p' $unlisted | sort -u
    [ "${1-}" = --refresh ] || exit 1
    cp $sums $here/expected.txt
fi
