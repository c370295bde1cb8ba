// Costs that must follow the work, not the size of the tree: a redraw of one marked widget among
// 200, 2,000 and 20,000; a redraw of k marked widgets against one full repaint; building n
// widgets each constrained against the one before; the heap of a plain widget. It runs without
// a display (headless windows, OpenGL calls that do nothing), so the figures are the toolkit's
// own processor time, whatever the graphics driver costs.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include "benchAllocations.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;

namespace {

// A 1920 x 1080 top level holding a grid of `count` widgets, painted once. (Without graphics the
// frame registry is empty: the widgets are plain.)
struct Scene {
    explicit Scene(int count) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 1920, 0, 1080});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        UiContainer* root = window->getRootContainer().get();
        int columns = 1;
        while (columns * columns * 16 < count * 9)
            ++columns; // cells about as wide as high
        int const rows = (count + columns - 1) / columns;
        int const w = std::max(2, 1920 / columns), h = std::max(2, 1080 / rows);
        for (int i = 0; i < count; ++i) {
            int const x = (i % columns) * w, y = (i / columns) * h;
            RCShdPtr<UiWidget> widget = UiWidget::create(root, "cell");
            widget->setRect({x, x + w - 1, y, y + h - 1});
            widget->setColor(UiWidget::BackgroundColor,
                             CoRgbColor(0.2f + 0.1f * (i % 7), 0.4f, 0.5f));
            widgets.push_back(widget);
        }
        window->show();
        settle();
    }
    ~Scene() {
        UiApplication::getInstance().clearCurrentWindow();
        widgets.clear();
        window->getRootContainer()->removeChildren();
    }
    // Redraws until both buffers hold the picture and nothing is left to draw.
    void settle() {
        while (window->redraw()) {
        }
    }
    RCShdPtr<UiTopLevel> window;
    std::vector<RCShdPtr<UiWidget>> widgets;
};

// One widget marked, then the redraws that paint it into both buffers.
void BM_RedrawOneMarked(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    std::size_t i = 0;
    long const allocationsBefore = BenchAllocations::count.load();
    for (auto _ : state) {
        scene.widgets[i]->markForUpdate();
        scene.settle();
        i = (i + 37) % scene.widgets.size();
    }
    state.counters["allocs_per_redraw"] =
        static_cast<double>(BenchAllocations::count.load() - allocationsBefore) /
        static_cast<double>(state.iterations());
}
BENCHMARK(BM_RedrawOneMarked)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);

// The same widget marked and redrawn each time: the toolkit's own work with the widget's
// records in cache, against BM_RedrawOneMarked where each widget comes cold from memory.
void BM_RedrawSameMarked(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    UiWidget* const widget = scene.widgets[scene.widgets.size() / 2].get();
    for (auto _ : state) {
        widget->markForUpdate();
        scene.settle();
    }
}
BENCHMARK(BM_RedrawSameMarked)->Arg(200)->Arg(20000)->Unit(benchmark::kMicrosecond);

// k of 2,000 widgets marked one by one, then redrawn; k = 2,000 is every widget.
void BM_RedrawKMarkedOf2000(benchmark::State& state) {
    Scene scene(2000);
    std::size_t const k = static_cast<std::size_t>(state.range(0));
    std::size_t const step = scene.widgets.size() / k;
    for (auto _ : state) {
        for (std::size_t i = 0; i < k; ++i)
            scene.widgets[i * step]->markForUpdate();
        scene.settle();
    }
}
BENCHMARK(BM_RedrawKMarkedOf2000)
    ->Arg(20)
    ->Arg(200)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);

// 64 marks over the 2,000 widgets, each a quarter of the window at a different place, then
// redrawn: the marks overlap, and each reaches some 500 widgets.
void BM_RedrawOverlappingMarksOf2000(benchmark::State& state) {
    Scene scene(2000);
    UiContainer* root = scene.window->getRootContainer().get();
    for (auto _ : state) {
        for (int i = 0; i < 64; ++i)
            root->markRegion(GeRectangle<int>::fromSize(i % 8 * 120, i / 8 * 67, 960, 540));
        scene.settle();
    }
}
BENCHMARK(BM_RedrawOverlappingMarksOf2000)->Unit(benchmark::kMillisecond);

// The whole window marked at once and redrawn: what the k marks are held against.
void BM_FullRepaintOf2000(benchmark::State& state) {
    Scene scene(2000);
    for (auto _ : state) {
        scene.window->getRootContainer()->markForUpdate();
        scene.settle();
    }
}
BENCHMARK(BM_FullRepaintOf2000)->Unit(benchmark::kMillisecond);

// The widget under the pointer, found over the bottom-most of n children (the last a walk from
// the top would reach), as every pointer move does.
void BM_FindWidgetAt(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    UiContainer* root = scene.window->getRootContainer().get();
    GeRectangle<int> const first = scene.widgets.front()->getRect();
    GePoint2<int> const p(first.x1 + 1, first.y1 + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(root->findWidgetAt(p));
    if (root->findWidgetAt(p) != scene.widgets.front().get())
        state.SkipWithError("the pointer is not over the first widget");
}
BENCHMARK(BM_FindWidgetAt)->Arg(200)->Arg(2000)->Arg(20000);

UiConstraint rightOf(std::string const& previous) {
    UiConstraint c;
    std::istringstream text(previous.empty() ? "0 p l 0 p b 10 p w 10 p h"
                                             : "1 p s " + previous + " 0 p b 10 p w 10 p h");
    c.read(text);
    return c;
}

// n widgets in one container, each placed to the right of the one made before it.
void BM_BuildConstrained(benchmark::State& state) {
    int const n = static_cast<int>(state.range(0));
    std::vector<std::string> names;
    std::vector<UiConstraint> constraints;
    for (int i = 0; i < n; ++i) {
        names.push_back("w" + std::to_string(i));
        constraints.push_back(rightOf(i ? names[i - 1] : std::string()));
    }
    for (auto _ : state) {
        state.PauseTiming();
        RCShdPtr<UiContainer> panel = UiContainer::create(nullptr, "panel");
        panel->setRect({0, 100000, 0, 100}, false);
        state.ResumeTiming();
        for (int i = 0; i < n; ++i)
            UiWidget::create(panel.get(), LiString(names[i]))->setConstraint(constraints[i]);
        state.PauseTiming();
        panel->removeChildren();
        panel = nullptr;
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_BuildConstrained)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// Heap bytes that stay per plain widget made in a container.
void BM_PlainWidgetHeap(benchmark::State& state) {
    int const n = static_cast<int>(state.range(0));
    double perWidget = 0;
    for (auto _ : state) {
        RCShdPtr<UiContainer> panel = UiContainer::create(nullptr, "panel");
        long const before = BenchAllocations::liveBytes.load();
        for (int i = 0; i < n; ++i)
            UiWidget::create(panel.get(), "w");
        perWidget = static_cast<double>(BenchAllocations::liveBytes.load() - before) / n;
        panel->removeChildren();
    }
    state.counters["bytes_per_widget"] = perWidget;
}
BENCHMARK(BM_PlainWidgetHeap)->Arg(1000)->Iterations(3);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
