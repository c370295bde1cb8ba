// Opening a node's panel: a tool of n double inputs whose description (one labelled, bound value
// editor per input, as the generic panel gives it) is already cached, so that the cost is the
// making of the widgets; the same with the description read and parsed on each open; and the
// heap a panel of bound inputs keeps. It runs without a display, so the figures are the
// toolkit's own processor time.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include "benchAllocations.h"
#include "piGraph.h"
#include "piTimePath.h"
#include "piToolRegistry.h"
#include "uiGenericNodeUi.h"
#include "uiNodeWidgetFactory.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

using namespace Zr;

namespace {

// The generic panel's rows with plain widgets: a label and an unbound value editor per input,
// the floor under what binding adds.
std::string plainDescription(int inputs) {
    std::string text = "<Container><Widget Name='panel'/><Group Type='Children'>";
    for (int i = 0; i < inputs; ++i) {
        std::string const n = std::to_string(i), top = std::to_string(-7 - 28 * i),
                          bottom = std::to_string(-28 - 28 * i);
        std::string const rows = "<Y1 Value='" + bottom + "' Type='p' Target='t'/><Y2 Value='" +
                                 top + "' Type='p' Target='t'/>";
        text +=
            "<Label><Widget Name='label" + n +
            "'><Layout><Constraint><X1 Value='7' Type='p' Target='l'/>" + rows +
            "<X2 Value='35' Type='%' Target='l'/></Constraint></Layout><LabelString><Text>Input " +
            n + "</Text></LabelString></Widget></Label>";
        text += "<ValueEditor><Widget Name='in" + n +
                "'><Layout><Constraint><X1 Value='35' Type='%' Target='l'/>" + rows +
                "<X2 Value='-7' Type='p' Target='r'/></Constraint></Layout></Widget></ValueEditor>";
    }
    return text + "</Group></Container>";
}

// A graph with one node of a tool of `inputs` double inputs, described by its generic panel
// (bound input widgets), or by plain widgets when `plain` is set.
struct Scene {
    explicit Scene(int inputs, bool plain = false) {
        std::string const name = (plain ? "BenchPlainTool" : "BenchTool") + std::to_string(inputs);
        if (PiToolRegistry::getInstance().findTool(name).isNull()) {
            auto tool = makeShared<PiTool>(name, Uuid::generate());
            for (int i = 0; i < inputs; ++i) {
                PiTool::InputDeclaration d;
                d.name = "in" + std::to_string(i);
                d.displayName = "Input " + std::to_string(i);
                d.maximum = 100;
                tool->addInputDeclaration(d);
            }
            PiToolRegistry::getInstance().registerTool(tool);
            node = graph->createNode(name);
            tool->setXmlDescription(plain ? plainDescription(inputs)
                                          : UiGenericNodeUi::createDescription(node));
        } else {
            node = graph->createNode(name);
        }
        timePath = PiTimePath::create(graph->getTimeClient());
    }
    Iterator<UiNodeWidgetFactory::Item> open() const {
        return UiNodeWidgetFactory::create(node, timePath);
    }
    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> node;
    RCShdPtr<PiTimePath const> timePath;
};

int countWidgets(UiWidget const& widget) {
    int n = 1;
    if (auto const* c = dynamic_cast<UiContainer const*>(&widget))
        for (auto const& child : c->getChildrenList())
            n += countWidgets(*child);
    return n;
}

void report(benchmark::State& state, Scene const& scene) {
    auto items = scene.open();
    state.counters["widgets"] = countWidgets(*items->getWidget());
    state.counters["per_widget"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * state.counters["widgets"],
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Opening the panel with its description cached; the panel is dropped outside the timing.
void BM_OpenCachedPanel(benchmark::State& state) {
    Scene const scene(static_cast<int>(state.range(0)), state.range(1) != 0);
    scene.open();
    for (auto _ : state) {
        auto items = scene.open();
        benchmark::DoNotOptimize(items);
        state.PauseTiming();
        items = Iterator<UiNodeWidgetFactory::Item>();
        state.ResumeTiming();
    }
    report(state, scene);
}
BENCHMARK(BM_OpenCachedPanel)
    ->ArgNames({"inputs", "plain"})
    ->ArgsProduct({{5, 50, 500}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

// The same with the caches emptied first: the description is read and parsed on each open.
void BM_OpenUncachedPanel(benchmark::State& state) {
    Scene const scene(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        UiNodeWidgetFactory::finalize();
        state.ResumeTiming();
        auto items = scene.open();
        benchmark::DoNotOptimize(items);
        state.PauseTiming();
        items = Iterator<UiNodeWidgetFactory::Item>();
        state.ResumeTiming();
    }
    report(state, scene);
}
BENCHMARK(BM_OpenUncachedPanel)->Arg(50)->Unit(benchmark::kMicrosecond);

// Heap bytes an open panel keeps, its description cached.
void BM_PanelHeap(benchmark::State& state) {
    Scene const scene(static_cast<int>(state.range(0)), state.range(1) != 0);
    scene.open();
    double bytes = 0;
    // Per input: the bound form has a label container, a label and an editor, the plain form a
    // label and an editor.
    for (auto _ : state) {
        long const before = BenchAllocations::liveBytes.load();
        auto items = scene.open();
        bytes = static_cast<double>(BenchAllocations::liveBytes.load() - before);
    }
    state.counters["panel_bytes"] = bytes;
    state.counters["bytes_per_input"] = bytes / static_cast<double>(state.range(0));
}
BENCHMARK(BM_PanelHeap)->ArgNames({"inputs", "plain"})->ArgsProduct({{50}, {0, 1}})->Iterations(3);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
