// Benchmark of constraint layout on resize: a container of 10,000 constrained children laid out
// in rows, each child placed against the sibling before it (chains of sibling constraints), is
// resized through parentResize, which works from the stored sibling pointers.
#include "zrUi.h"

#include "inInitGuard.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;

namespace {

UiConstraint parse(std::string const& text) {
    UiConstraint c;
    std::istringstream is(text);
    is >> c;
    return c;
}

// Rows of `perRow` widgets: the first of a row stands at the left, on top of the row's first
// widget below it; each further one to the right of its predecessor, 2 units wide.
struct Layout {
    RCShdPtr<UiContainer> root;
    RCShdPtr<UiContainer> panel;

    explicit Layout(int count, int perRow) {
        root = UiContainer::create(nullptr, "root");
        root->setRect({0, 2000, 0, 2000}, false);
        panel = UiContainer::create(root.get(), "panel");
        panel->setConstraint(UiFillConstraint());
        std::string previousRowStart;
        std::string previous;
        for (int i = 0; i < count; ++i) {
            std::string const name = "w" + std::to_string(i);
            RCShdPtr<UiWidget> w = UiWidget::create(panel.get(), LiString(name));
            std::string text;
            if (i % perRow == 0) {
                text = previousRowStart.empty()
                           ? "0 u l 0 u b 2 u w 1 u h"
                           : "0 u l 0 p s " + previousRowStart + " 2 u w 1 u h";
                previousRowStart = name;
            } else {
                text = "0 p s " + previous + " 0 p so " + previous + " 5 % w 0 p so " + previous;
            }
            w->setConstraint(parse(text));
            previous = name;
        }
    }
};

void BM_ParentResizeSiblingChains(benchmark::State& state) {
    Layout layout(static_cast<int>(state.range(0)), 100);
    int w = 1400;
    for (auto _ : state) {
        layout.panel->parentResize(w, 1000);
        w = w == 1400 ? 1401 : 1400;
    }
    // The last widget's place depends on the whole chain of its row and the row starts below.
    state.counters["last_x2"] =
        layout.panel->findWidget(LiString("w" + std::to_string(state.range(0) - 1)))->getRect().x2;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ParentResizeSiblingChains)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    InInitGuard packages(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
