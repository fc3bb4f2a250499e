#!/usr/bin/env bash
# Builds everything and runs all tests off-screen: tools/test.sh [--sanitize]. With --sanitize both under AddressSanitizer
# and UBSan.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh
preset=release
if [ "${1:-}" = --sanitize ]; then
    preset=sanitize
    # Without its look at dynamic thread storage: libsanitizer guesses the bounds of such a block from the words before it
    # when the block lies 16 bytes into a page, takes the allocator's own header for them and faults at exit, which happens
    # in one run of some thousands. What the blocks hold stays reachable through the loader's table of them.
    export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0:intercept_tls_get_addr=0}"
    export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"
    export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$PWD/tools/lsan.supp:print_suppressions=0}"
fi
tools/build.sh "$preset"
export QT_QPA_PLATFORM=offscreen
export LC_ALL=C.UTF-8
ctest --preset "$preset" -j "$(nproc)"
