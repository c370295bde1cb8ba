#!/usr/bin/env bash
# Builds the test configuration (Debug, AddressSanitizer and UndefinedBehaviorSanitizer)
# and runs every test under a virtual X display, so windows and pixels are tested for real.
# Usage: scripts/test.sh [extra ctest arguments]
# GTEST_SHUFFLE=1 runs every test binary's tests in a random order (the tests must not depend
# on each other's order); CI runs the suite once that way.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
build=${ZR_TEST_BUILD_DIR:-build-test}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DZR_SANITIZE=ON -DZR_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
# Mesa, SDL and fontconfig keep some allocations until exit; only those libraries are named.
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/scripts/lsan.supp:print_suppressions=0}
export SDL_VIDEODRIVER=${SDL_VIDEODRIVER:-x11}
export LIBGL_ALWAYS_SOFTWARE=1
# GoogleTest reads GTEST_SHUFFLE (and GTEST_RANDOM_SEED, to rerun an order) from the
# environment; each binary prints the seed it used.
[ -n "${GTEST_SHUFFLE:-}" ] && export GTEST_SHUFFLE
cd "$build"
if [ -z "${DISPLAY:-}" ] && command -v xvfb-run >/dev/null; then
  exec xvfb-run -a -s "-screen 0 1920x1080x24 -nolisten tcp" ctest --output-on-failure "$@"
fi
exec ctest --output-on-failure "$@"
