# Shell functions that run and count the steps of ./test. To be read with ".".

steps_passed=0 steps_failed=0 steps_skipped=0

# step NAME COMMAND...: runs the command; its output is shown only when it fails.
step() {
    local name=$1 log start=$SECONDS
    shift
    log=build/step.log
    mkdir -p build
    if "$@" >"$log" 2>&1; then
        steps_passed=$((steps_passed + 1))
        printf 'ok      %s (%d s)\n' "$name" $((SECONDS - start))
        return 0
    fi
    steps_failed=$((steps_failed + 1))
    printf 'FAILED  %s (%d s)\n' "$name" $((SECONDS - start))
    sed 's/^/    /' "$log"
    return 1
}

skip() {
    steps_skipped=$((steps_skipped + 1))
    printf 'skipped %s: %s\n' "$1" "$2"
}

summary() {
    printf '%d passed, %d failed, %d skipped\n' $steps_passed $steps_failed $steps_skipped
    [ $steps_failed -eq 0 ]
}
