// Heap bytes that one plain widget costs inside a container, counted by a replacement of the
// global allocation functions.
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include "benchAllocations.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

using namespace Zr;

namespace {

// Creates `count` plain widgets in one container and reports the heap bytes per widget that
// stay allocated while they live.
void BM_PlainWidgetHeapBytes(benchmark::State& state) {
    int const count = static_cast<int>(state.range(0));
    RCShdPtr<UiContainer> parent = UiContainer::create(nullptr, "parent");
    double perWidget = 0;
    for (auto _ : state) {
        std::vector<RCShdPtr<UiWidget>> keep;
        keep.reserve(static_cast<std::size_t>(count));
        long before = BenchAllocations::liveBytes.load();
        for (int i = 0; i < count; ++i)
            keep.push_back(UiWidget::create(parent.get(), "w"));
        perWidget = static_cast<double>(BenchAllocations::liveBytes.load() - before) / count;
        state.PauseTiming();
        parent->removeChildren();
        keep.clear();
        state.ResumeTiming();
    }
    state.counters["bytes_per_widget"] = perWidget;
}
BENCHMARK(BM_PlainWidgetHeapBytes)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
