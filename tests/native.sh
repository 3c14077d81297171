# The native part of ./test. Read with "." after steps.sh and packages.sh.

run_ctest() { ctest --test-dir "build/$1" --output-on-failure -j 2 --timeout 120; }

step "who includes whom" tests/rooms.sh
if step "build, native" build_preset native; then
    step "tests, native" run_ctest native
    step "one visible symbol" tests/visible_symbols.sh build/native/bin/libtavrikconfig.so
    step "protections, native" tests/hardening.sh native
    step "installed, for hosts elsewhere" tests/packages/native.sh
    step "./run" tests/host/run_script.sh
    step "a person at an X server" tests/smoke/x_server.sh
    step "random user, native" tests/random/run.sh native $((seeds * 4))
fi
if step "build, sanitizers" build_preset asan; then
    step "tests, sanitizers" run_ctest asan
    step "random user, sanitizers" tests/random/run.sh asan $((seeds * 2))
fi
