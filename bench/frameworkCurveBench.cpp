// Costs of animation: evaluating a smooth curve at scattered times, evaluating and compiling an
// expression, and simplifying a sampled expression into few keys. Allocations per iteration are
// reported as the counter "allocs".
#include "benchAllocations.h"

#include "piExpression.h"
#include "tcTimeCurve.h"
#include "tcTimeCurveUtils.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

using namespace Zr;

namespace {

// A curve of `n` smooth keys unevenly spread over 0 to 10 seconds.
TcTimeCurve smoothCurve(int n) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> jitter(-0.3, 0.3);
    TcTimeCurve c;
    for (int i = 0; i < n; ++i) {
        double const t = 10.0 * (i + 0.5 + jitter(rng)) / n;
        c.addKey(t, std::sin(t) * 100.0 + jitter(rng));
    }
    return c;
}

// Times across the curve and a little beyond it, in no order, so that every lookup searches.
std::vector<double> scatteredTimes() {
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> time(-0.5, 10.5);
    std::vector<double> times(4096);
    for (double& t : times)
        t = time(rng);
    return times;
}

void reportAllocations(benchmark::State& state, long before) {
    state.counters["allocs"] =
        benchmark::Counter(static_cast<double>(BenchAllocations::count.load() - before),
                           benchmark::Counter::kAvgIterations);
}

void BM_CurveEvaluateSmooth(benchmark::State& state) {
    TcTimeCurve const c = smoothCurve(static_cast<int>(state.range(0)));
    std::vector<double> const times = scatteredTimes();
    std::size_t i = 0;
    long const before = BenchAllocations::count.load();
    for (auto _ : state) {
        benchmark::DoNotOptimize(c.evaluate(times[i]));
        i = (i + 1) & (times.size() - 1);
    }
    reportAllocations(state, before);
}
BENCHMARK(BM_CurveEvaluateSmooth)->Arg(10)->Arg(100)->Arg(10000);

void BM_ExpressionEvaluate(benchmark::State& state) {
    PiExpression const e("Blur1.radius * 2 + sin(time)");
    PiExpression::Resolver const resolver = [](int) { return 3.0; };
    double time = 0.0;
    long const before = BenchAllocations::count.load();
    for (auto _ : state) {
        benchmark::DoNotOptimize(e.evaluate(time, 25.0, resolver));
        time += 0.04;
    }
    reportAllocations(state, before);
}
BENCHMARK(BM_ExpressionEvaluate);

void BM_ExpressionCompile(benchmark::State& state) {
    for (auto _ : state) {
        PiExpression const e("Blur1.radius * 2 + sin(time)");
        benchmark::DoNotOptimize(e.isValid());
    }
}
BENCHMARK(BM_ExpressionCompile);

// An expression sampled twice per frame at 25 frames per second for `range(0)` frames, then
// simplified as converting an expression to keys does; "keysLeft" counts the keys it keeps.
void BM_SimplifySampledSine(benchmark::State& state) {
    int const samples = static_cast<int>(state.range(0)) * 2;
    std::size_t keys = 0;
    for (auto _ : state) {
        state.PauseTiming();
        TcTimeCurve c;
        std::vector<double> times;
        for (int i = 0; i < samples; ++i) {
            double const t = i / 50.0;
            c.addKey(t, std::sin(t));
            times.push_back(t);
        }
        state.ResumeTiming();
        TcTimeCurveUtils::simplify(c, times, 0.001, 0.001);
        keys = c.getKeys().size();
    }
    state.counters["keysLeft"] = static_cast<double>(keys);
}
BENCHMARK(BM_SimplifySampledSine)->Arg(250)->Arg(2500)->Arg(25000)->Unit(benchmark::kMillisecond);

void BM_SimplifySampledLine(benchmark::State& state) {
    int const samples = static_cast<int>(state.range(0)) * 2;
    std::size_t keys = 0;
    for (auto _ : state) {
        state.PauseTiming();
        TcTimeCurve c;
        std::vector<double> times;
        for (int i = 0; i < samples; ++i) {
            double const t = i / 50.0;
            c.addKey(t, 2.0 * t);
            times.push_back(t);
        }
        state.ResumeTiming();
        TcTimeCurveUtils::simplify(c, times, 0.001, 0.001);
        keys = c.getKeys().size();
    }
    state.counters["keysLeft"] = static_cast<double>(keys);
}
BENCHMARK(BM_SimplifySampledLine)->Arg(250)->Arg(2500)->Arg(25000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
