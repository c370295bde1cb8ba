#!/usr/bin/env bash
# Builds every libFuzzer target with clang (in build-fuzz) and runs each for SECONDS (default
# 600), one after the other, from its seed corpus in fuzz/corpus/<target> into a scratch
# corpus in build-fuzz/work/<target>. Prints a table of targets, runs and findings; a finding
# leaves its input as build-fuzz/work/<target>-crash-* and the log in build-fuzz/<target>.log.
# Usage: scripts/fuzz.sh [SECONDS]    (ZR_FUZZ_TARGETS="a b" runs only those targets)
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-600}
build=${ZR_FUZZ_BUILD_DIR:-build-fuzz}
all="resTable constraint expression widgetDefinition hotkeyString hotkeyFile messageFile
     variables fontDescription image toolFile uuidRational storedValue textField nodeDescription"
targets=${ZR_FUZZ_TARGETS:-$all}

CC=clang CXX=clang++ cmake -S . -B "$build" -DZR_BUILD_FUZZ=ON -DZR_BUILD_TESTS=OFF \
  -DZR_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null || exit 2
names=()
for t in $targets; do names+=("fuzz_$t"); done
cmake --build "$build" -j"$(nproc)" --target "${names[@]}" >/dev/null || exit 2

# Inputs the size of a real file; tables and definitions may be larger than libFuzzer's default.
declare -A maxLen=([resTable]=4096 [widgetDefinition]=8192 [hotkeyFile]=8192 [toolFile]=8192
                   [image]=16384 [nodeDescription]=8192)
printf '%-18s %12s %10s %9s\n' target runs "runs/s" findings
found=0
for t in $targets; do
  work="$build/work/$t"
  mkdir -p "$work"
  seeds=fuzz/corpus/$t
  [ -d "$seeds" ] || seeds=
  "$build/fuzz/fuzz_$t" -max_total_time="$seconds" -max_len="${maxLen[$t]:-4096}" \
    -artifact_prefix="$work-" -print_final_stats=1 "$work" $seeds >"$build/$t.log" 2>&1
  status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$build/$t.log" | tail -1)
  findings=$(ls "$work"-crash-* "$work"-leak-* "$work"-timeout-* "$work"-oom-* 2>/dev/null | wc -l)
  [ "$status" -ne 0 ] && [ "$findings" -eq 0 ] && findings=1
  found=$((found + findings))
  printf '%-18s %12s %10s %9s\n' "$t" "${runs:-0}" "$(( ${runs:-0} / seconds ))" "$findings"
done
[ "$found" -eq 0 ]
