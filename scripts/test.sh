#!/usr/bin/env bash
# Builds the test configuration (Debug, AddressSanitizer and UndefinedBehaviorSanitizer)
# and runs every test. Usage: scripts/test.sh [extra ctest arguments]
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
build=${ZR_TEST_BUILD_DIR:-build-test}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DZR_SANITIZE=ON -DZR_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
cd "$build" && ctest --output-on-failure "$@"
