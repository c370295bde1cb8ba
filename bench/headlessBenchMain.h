// The main of the benchmarks that run without a display: no graphics, the packages started once
// (after Google Benchmark has taken its own flags off the command line), then every benchmark.
#pragma once

#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace Zr {

inline int runHeadlessBenchmarks(int argc, char** argv) {
    setenv("ZR_NO_GRAPHICS", "1", 1);
    benchmark::Initialize(&argc, argv);
    InInitGuard packages(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace Zr
