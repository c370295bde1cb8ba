// Benchmarks of editing and reading node inputs through their typed proxies: a set inside an undo
// scope (one entry per set), and the read of an animated input at a moving time.
#include "piGraph.h"
#include "piInputValue.h"
#include "piToolRegistry.h"
#include "piUndoGuard.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Zr;

// A tool with a few double inputs, made in code so that the benchmark needs no resources.
std::string const& benchToolName() {
    static std::string const name = [] {
        auto tool = makeShared<PiTool>("InputBenchTool", Uuid::generate());
        for (char const* input : {"radius", "gain", "offset", "angle", "mix"}) {
            PiTool::InputDeclaration d;
            d.name = input;
            d.minimum = -1e9;
            d.maximum = 1e9;
            tool->addInputDeclaration(d);
        }
        PiToolRegistry::getInstance().registerTool(tool);
        return tool->getName();
    }();
    return name;
}

struct BenchGraph {
    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> node = graph->createNode(benchToolName(), "Bench1");
    RCShdPtr<PiTimePath const> timePath = PiTimePath::create(graph->getTimeClient());
    RCShdPtr<PiInput> radius = node->findInput("radius");
    RCShdPtr<PiInputValue<double>> value = PiInputValue<double>::createTyped(radius, timePath);
};

// One undo entry per set, a different value each time, the stack at its default limit (so that
// from the thousandth set on, every log also drops the oldest entry).
void BM_InputValueSetInUndoGuard(benchmark::State& state) {
    BenchGraph b;
    CbFunction<CbEmptyType> observer([] {});
    b.value->addValueObserver(&observer);
    auto stack = b.graph->getCommandStack();
    double v = 0.0;
    for (auto _ : state) {
        v += 1.0;
        PiUndoGuard guard(stack, "Set radius");
        benchmark::DoNotOptimize(b.value->setValue(v));
    }
    state.counters["entries"] = stack->getNbUndo();
}
BENCHMARK(BM_InputValueSetInUndoGuard);

// The same set with no undo scope, to tell the proxy and input from the undo machinery.
void BM_InputValueSetWithoutUndo(benchmark::State& state) {
    BenchGraph b;
    double v = 0.0;
    for (auto _ : state) {
        v += 1.0;
        benchmark::DoNotOptimize(b.value->setValue(v));
    }
}
BENCHMARK(BM_InputValueSetWithoutUndo);

// An animated input with 100 keys read at a moving time: each step moves the time client (which
// tells the proxy) and reads the value, which evaluates the curve at the new time.
void BM_InputValueGetAnimatedMovingTime(benchmark::State& state) {
    BenchGraph b;
    for (int i = 0; i < 100; ++i)
        b.radius->setKey(i * 0.04, (i * 37) % 11);
    CbFunction<CbEmptyType> observer([] {});
    b.value->addValueObserver(&observer);
    auto client = b.graph->getTimeClient();
    double t = 0.0;
    for (auto _ : state) {
        t += 0.013;
        if (t > 4.0)
            t = 0.0;
        client->setTime(t);
        benchmark::DoNotOptimize(b.value->getValue());
    }
}
BENCHMARK(BM_InputValueGetAnimatedMovingTime);

// The same with an explicit evaluate() before the read, as editors do after a change.
void BM_InputValueEvaluateThenGet(benchmark::State& state) {
    BenchGraph b;
    for (int i = 0; i < 100; ++i)
        b.radius->setKey(i * 0.04, (i * 37) % 11);
    auto client = b.graph->getTimeClient();
    double t = 0.0;
    for (auto _ : state) {
        t += 0.013;
        if (t > 4.0)
            t = 0.0;
        client->setTime(t);
        b.value->evaluate();
        benchmark::DoNotOptimize(b.value->getValue());
    }
}
BENCHMARK(BM_InputValueEvaluateThenGet);

// The cached read: no change, no time move.
void BM_InputValueGetCached(benchmark::State& state) {
    BenchGraph b;
    for (int i = 0; i < 100; ++i)
        b.radius->setKey(i * 0.04, (i * 37) % 11);
    b.value->evaluate();
    for (auto _ : state)
        benchmark::DoNotOptimize(b.value->getValue());
}
BENCHMARK(BM_InputValueGetCached);

} // namespace

BENCHMARK_MAIN();
