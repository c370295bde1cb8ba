// Building a panel of 1,000 widgets from one definition: 100 row containers of 9 widgets each,
// every widget with a colour and a constraint on its left sibling. Reports the time and the heap
// bytes per widget, counted by a replacement of the global allocation functions.
#include "zrUi.h"

#include "uiWidgetFactory.h"

#include <benchmark/benchmark.h>

#include "benchAllocations.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

using namespace Zr;

namespace {

int const Rows = 100;
int const WidgetsPerRow = 9;
// Every row container and every widget in it.
int const WidgetCount = Rows * (WidgetsPerRow + 1);

std::string edge(char const* tag, int value, char const* type, char const* target,
                 std::string const& sibling = {}) {
    std::string e = std::string("<") + tag + " Value=\"" + std::to_string(value) + "\" Type=\"" +
                    type + "\" Target=\"" + target + "\"";
    if (!sibling.empty())
        e += " Sibling=\"" + sibling + "\"";
    return e + "/>";
}

std::string panelDefinition() {
    std::string xml = "<Container><Widget Name=\"panel\">"
                      "<Rectangle><Coord X=\"0\" Y=\"0\" W=\"900\" H=\"2200\"/></Rectangle>"
                      "<Background><Color>Grey60</Color></Background>"
                      "</Widget><Group Type=\"Children\">";
    for (int r = 0; r < Rows; ++r) {
        std::string const row = "row" + std::to_string(r);
        xml += "<Container><Widget Name=\"" + row + "\"><Layout><Constraint>" +
               edge("X1", 0, "p", "l") + edge("Y1", r * 22, "p", "b") + edge("X2", 0, "p", "r") +
               edge("Y2", 3, "u", "h") + "</Constraint></Layout>" +
               "<Background><Color>LabelBackground</Color></Background></Widget>" +
               "<Group Type=\"Children\">";
        for (int c = 0; c < WidgetsPerRow; ++c) {
            std::string const name = row + "_" + std::to_string(c);
            std::string const x1 = c == 0
                                       ? edge("X1", 0, "u", "l")
                                       : edge("X1", 0, "p", "s", row + "_" + std::to_string(c - 1));
            xml += "<Widget><Widget Name=\"" + name + "\"><Layout><Constraint>" + x1 +
                   edge("Y1", 0, "p", "b") + edge("X2", 10, "u", "w") + edge("Y2", 0, "p", "t") +
                   "</Constraint></Layout>" +
                   (c % 2 ? "<Background><Color>Red</Color></Background>"
                          : "<Foreground><Color R=\"0.2\" G=\"0.4\" B=\"0.6\"/></Foreground>") +
                   "</Widget></Widget>";
        }
        xml += "</Group></Container>";
    }
    return xml + "</Group></Container>";
}

// Builds the panel from a parsed definition; the time per widget is the figure to watch.
void BM_BuildPanelFromDefinition(benchmark::State& state) {
    XmlDocument const document(panelDefinition(), "panel.xml");
    XmlElement const root = document.getRoot();
    double bytesPerWidget = 0;
    for (auto _ : state) {
        long const before = BenchAllocations::liveBytes.load();
        RCShdPtr<UiWidget> panel = UiWidgetFactory::createWidget(nullptr, root);
        state.PauseTiming();
        bytesPerWidget =
            static_cast<double>(BenchAllocations::liveBytes.load() - before) / WidgetCount;
        panel = nullptr;
        state.ResumeTiming();
    }
    state.counters["widgets"] = WidgetCount;
    state.counters["us_per_widget"] = benchmark::Counter(
        WidgetCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["heap_bytes_per_widget"] = bytesPerWidget;
}
BENCHMARK(BM_BuildPanelFromDefinition)->Unit(benchmark::kMillisecond);

// The same with the parsing of the definition text counted in.
void BM_ParseAndBuildPanel(benchmark::State& state) {
    std::string const text = panelDefinition();
    for (auto _ : state) {
        RCShdPtr<UiWidget> panel =
            UiWidgetFactory::createWidgetFromText(nullptr, text, "panel.xml");
        benchmark::DoNotOptimize(panel.get());
    }
    state.counters["us_per_widget"] = benchmark::Counter(
        WidgetCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseAndBuildPanel)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages;
    UiWidgetFactory::registerToolkitFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
