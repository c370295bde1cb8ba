#!/usr/bin/env bash
# Builds the benchmarks of costs that must follow the work and not the size of the tree (a
# Release build in build-bench), runs them, and prints each figure beside the one measured
# before the toolkit's redraw, marking and building stopped walking every child (2026-11-24,
# same machine; "-" where the benchmark came later). Processor time, medians of three runs.
# The click and the repaints with a display need one: without DISPLAY they run under Xvfb, or
# are left out.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
build=${ZR_BENCH_BUILD_DIR:-build-bench}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZR_SANITIZE=OFF -DZR_BUILD_TESTS=OFF \
  -DZR_BUILD_BENCH=ON >/dev/null
cmake --build "$build" -j"$(nproc)" --target uiScaleBench uiEventLoopBench uiRedrawBench \
  uiResTableReadBench >/dev/null
export ZR_RESOURCES_DIR=$PWD/resources LIBGL_ALWAYS_SOFTWARE=1 SDL_VIDEODRIVER=x11
bench="$build/bench"
median() { # program [arguments]: "name cpu unit counter" lines of the medians
  "$@" --benchmark_repetitions=3 --benchmark_report_aggregates_only=true 2>/dev/null |
    awk '$1 ~ /_median$/ { n = $1; sub(/_median$/, "", n); sub(/\/min_time:.*/, "", n);
                           c = $NF; sub(/.*=/, "", c); print n, $4, $5, c }'
}
{
  median "$bench/uiScaleBench"
  median "$bench/uiEventLoopBench" --benchmark_filter=BM_ClickThroughLoop
  median "$bench/uiResTableReadBench" --benchmark_filter='File/5|Pugixml'
  if [ -n "${DISPLAY:-}" ]; then
    median "$bench/uiRedrawBench" --benchmark_filter='Click|OneMarked|KMarked|FullRepaint'
  elif command -v xvfb-run >/dev/null; then
    median xvfb-run -a -s "-screen 0 1920x1080x24 -nolisten tcp" "$bench/uiRedrawBench" \
      --benchmark_filter='Click|OneMarked|KMarked|FullRepaint'
  fi
} | awk '
BEGIN {
  # Before: processor time per iteration, in the unit the benchmark prints.
  b["BM_RedrawOneMarked/200"] = "6.91 us";  b["BM_RedrawOneMarked/2000"] = "67.0 us"
  b["BM_RedrawOneMarked/20000"] = "1250 us"
  b["BM_RedrawKMarkedOf2000/20"] = "0.242 ms"; b["BM_RedrawKMarkedOf2000/200"] = "1.58 ms"
  b["BM_RedrawKMarkedOf2000/2000"] = "16.8 ms"; b["BM_FullRepaintOf2000"] = "0.369 ms"
  b["BM_BuildConstrained/100"] = "0.135 ms"; b["BM_BuildConstrained/1000"] = "6.53 ms"
  b["BM_BuildConstrained/10000"] = "381 ms"
  b["BM_PlainWidgetHeap/1000/iterations:3"] = "816 bytes/widget"
  b["BM_ClickThroughLoop"] = "1.64 us"; b["BM_SdlClickToActivateCallback"] = "7.09 us"
  b["BM_RedrawOneMarkedOf2000Widgets1080p"] = "0.208 ms"
  b["BM_ResTableReadFile/5"] = "25 ms"; b["BM_PugixmlParse5MB"] = "2.4 ms"
  # Measured with marks never merged (the code of 2026-11-25 otherwise): what the merge saves.
  b["BM_RedrawOverlappingMarksOf2000"] = "2.0 ms"
  printf "%-40s %-18s %s\n", "benchmark", "before", "after"
}
{
  after = sprintf("%.3g %s", $2, $3)
  if ($1 ~ /PlainWidgetHeap/) after = sprintf("%.0f bytes/widget", $4)
  printf "%-40s %-18s %s\n", $1, ($1 in b ? b[$1] : "-"), after
}'
