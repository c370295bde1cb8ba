// XML reading speed: a resource table of about 5 MB parsed and walked the way a table reader
// does (every element, its name, typed attributes and text). Target: at least 60 MB/s.
#include "xmlDocument.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace Zr;

namespace {

std::string makeTable(std::size_t targetBytes) {
    std::string text = "<?xml version=\"1.0\"?>\n<UiResTable name=\"bench\">\n";
    int n = 0;
    while (text.size() < targetBytes) {
        std::string id = std::to_string(n++);
        text += "  <Widget name=\"panel" + id +
                "\" type=\"UiPushButton\">\n"
                "    <Resource name=\"width\" type=\"int\">" +
                id +
                "</Resource>\n"
                "    <Resource name=\"scale\" type=\"float\" value=\"1.25\"/>\n"
                "    <Resource name=\"constraint\" type=\"constraint\">left: parent 7; top: "
                "prev 0</Resource>\n"
                "    <Resource name=\"label\" type=\"string\">Button &amp; " +
                id +
                "</Resource>\n"
                "  </Widget>\n";
    }
    text += "</UiResTable>\n";
    return text;
}

void BM_ParseAndWalkResourceTable(benchmark::State& state) {
    std::string const text = makeTable(5 * 1024 * 1024);
    for (auto _ : state) {
        XmlDocument doc(text, "bench.xml");
        long sum = 0;
        for (XmlElement const& widget : doc.getRoot().getChildren()) {
            sum += static_cast<long>(widget.getAttributeView("name").size());
            for (XmlElement const& res : widget.getChildren()) {
                int i = 0;
                float f = 0;
                if (res.getData(i))
                    sum += i;
                if (res.getAttribute("value", f))
                    sum += static_cast<long>(f);
                sum += static_cast<long>(res.getAttributeView("type").size());
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ParseAndWalkResourceTable)->Unit(benchmark::kMillisecond);

void BM_LineOfEveryElement(benchmark::State& state) {
    std::string const text = makeTable(1024 * 1024);
    for (auto _ : state) {
        XmlDocument doc(text, "bench.xml");
        long sum = 0;
        for (XmlElement const& e : doc.getRoot().getAllElementsByTagName("Resource"))
            sum += e.getLine();
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_LineOfEveryElement)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
