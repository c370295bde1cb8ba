// Benchmarks of the resource side: constraint evaluation (which runs on every resize of every
// constrained widget and must not allocate), constraint parsing, and reading small resource
// tables. The 5 MB table file is read in uiResTableReadBench, without the allocation counting.
#include "uiConstraint.h"
#include "uiResTable.h"

#include <benchmark/benchmark.h>

#include "benchAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <sstream>
#include <string>

namespace Zr {
namespace {

UiConstraint parse(std::string const& text) {
    UiConstraint c;
    std::istringstream is(text);
    is >> c;
    return c;
}

// "allocs" must stay 0: calcRect allocates nothing.
void BM_ConstraintCalcRect(benchmark::State& state) {
    UiConstraint const c = parse("2 u s left 1 u b 10 u w -1 u so above");
    GeRectangle<int> const left(0, 40, 0, 10);
    GeRectangle<int> const above(0, 10, 60, 80);
    GeRectangle<int> const zero;
    long before = BenchAllocations::count.load();
    int w = 200;
    for (auto _ : state) {
        benchmark::DoNotOptimize(c.calcRect(w, 100, left, zero, zero, above));
        w = w == 200 ? 201 : 200;
    }
    state.counters["allocs"] = static_cast<double>(BenchAllocations::count.load() - before);
}
BENCHMARK(BM_ConstraintCalcRect);

void BM_ConstraintParse(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(parse("0 u l 0 p b 10 u w 0 p t"));
}
BENCHMARK(BM_ConstraintParse);

// A table of N widgets with four resources each, read from text.
void BM_ResTableRead(benchmark::State& state) {
    std::string xml = "<ResourceTable>";
    for (int i = 0; i < state.range(0); ++i) {
        xml += "<Widget Name='w" + std::to_string(i) +
               "'><Rectangle><Coord X='0' Y='0' W='60' H='20'/></Rectangle>"
               "<Background><Color>Background</Color></Background>"
               "<Label><Text>Label</Text></Label>"
               "<Layout><Constraint><X1 Value='0' Type='u' Target='l'/>"
               "<Y1 Value='0' Type='p' Target='b'/><X2 Value='3' Type='u' Target='w'/>"
               "<Y2 Value='0' Type='p' Target='t'/></Constraint></Layout></Widget>";
    }
    xml += "</ResourceTable>";
    LiString const text(xml);
    for (auto _ : state) {
        UiResTable table;
        table.readTable(text, UiResource::LevelApplication);
        benchmark::DoNotOptimize(table.getNbEntries());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ResTableRead)->Arg(10)->Arg(200);

} // namespace
} // namespace Zr

BENCHMARK_MAIN();
