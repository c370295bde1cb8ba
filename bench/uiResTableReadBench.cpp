// Reading a generated 5 MB resource table end to end, as at start-up, beside pugixml's own parse
// of the same text. Kept apart from the benchmarks that count allocations: the counting hooks
// would add their own cost to every one of the reader's allocations.
#include "uiResTable.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace Zr {
namespace {

// One widget of the generated table: ten resources of mixed types, laid out as a person would
// write them; `pad` lengthens the two label strings to reach the wanted file size.
std::string generatedWidget(int i, std::size_t pad) {
    std::string const name = "widget" + std::to_string(i);
    std::string const previous = "widget" + std::to_string(i > 0 ? i - 1 : 0);
    std::string const words(pad, 'x');
    std::string const n = std::to_string(i % 97);
    return "  <Widget Name=\"" + name +
           "\">\n"
           "    <Rectangle><Coord X=\"" +
           n +
           "\" Y=\"4\" W=\"120\" H=\"21\"/></Rectangle>\n"
           "    <Layout>\n"
           "      <Constraint>\n"
           "        <X1 Value=\"1\" Type=\"u\" Target=\"s\" Sibling=\"" +
           previous +
           "\"/>\n"
           "        <Y1 Value=\"0\" Type=\"p\" Target=\"so\" Sibling=\"" +
           previous +
           "\"/>\n"
           "        <X2 Value=\"12.5\" Type=\"u\" Target=\"w\"/>\n"
           "        <Y2 Value=\"3\" Type=\"uu\" Target=\"h\"/>\n"
           "      </Constraint>\n"
           "    </Layout>\n"
           "    <Background><Color>LabelBackground</Color></Background>\n"
           "    <Foreground><Color R=\"200\" G=\"" +
           n +
           "\" B=\"40\" Format=\"Byte\"/></Foreground>\n"
           "    <Label><Text>Label of " +
           name + " " + words + "</Text><Text>Second line " + words +
           "</Text></Label>\n"
           "    <Steps><Int>1</Int><Int>2</Int><Int>5</Int><Int>10</Int><Int>20</Int><Int>50</Int>"
           "<Int>" +
           n +
           "</Int><Int>-7</Int></Steps>\n"
           "    <Scales><Double>0.25</Double><Double>1.5</Double><Double>-3.125</Double>"
           "<Double>1e-3</Double></Scales>\n"
           "    <Alignment><Align H=\"Left\" V=\"Center\" MH=\"4\" MV=\"2\"/></Alignment>\n"
           "    <Range><MinMax Min=\"-100\" Max=\"100\" Step=\"0.5\"/></Range>\n"
           "    <DefaultFrame><Frame>Bevel</Frame></DefaultFrame>\n"
           "  </Widget>\n";
}

// The table: `widgets` widgets, padded to about `bytes` bytes.
std::string generatedTable(int widgets, std::size_t bytes) {
    std::size_t base = 0;
    for (int i = 0; i < widgets; ++i)
        base += generatedWidget(i, 0).size();
    std::size_t const pad = bytes > base ? (bytes - base) / (2 * widgets) : 0;
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ResourceTable>\n";
    for (int i = 0; i < widgets; ++i)
        xml += generatedWidget(i, pad);
    xml += "</ResourceTable>\n";
    return xml;
}

// End to end: the file is opened, parsed and every resource made, as at start-up. The argument
// is the file's size in MB; 0 leaves the labels short, which gives the densest markup.
void BM_ResTableReadFile(benchmark::State& state) {
    std::string const xml =
        generatedTable(2000, static_cast<std::size_t>(state.range(0)) * 1000 * 1000);
    std::filesystem::path const path = std::filesystem::temp_directory_path() /
                                       ("zrBenchTable" + std::to_string(::getpid()) + ".xml");
    std::ofstream(path, std::ios::binary) << xml;
    OsFilePath const file(path);
    int resources = 0;
    for (auto _ : state) {
        UiResTable table(file, UiResource::LevelApplication);
        resources = 0;
        for (auto const& entry : table.getTable())
            resources += entry.second->size();
        benchmark::DoNotOptimize(resources);
    }
    std::filesystem::remove(path);
    state.counters["resources"] = resources;
    state.counters["file_MB"] = static_cast<double>(xml.size()) / 1e6;
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}
BENCHMARK(BM_ResTableReadFile)->Arg(5)->Arg(0)->Unit(benchmark::kMillisecond);

// For comparison: pugixml alone parsing the same text in memory.
void BM_PugixmlParse5MB(benchmark::State& state) {
    std::string const xml = generatedTable(2000, 5 * 1000 * 1000);
    for (auto _ : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_buffer(xml.data(), xml.size()));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}
BENCHMARK(BM_PugixmlParse5MB)->Unit(benchmark::kMillisecond);

// The same table in the text form, read from a string.
void BM_ResTableReadText(benchmark::State& state) {
    UiResTable source;
    source.readTable(LiString(generatedTable(2000, 5 * 1000 * 1000)), UiResource::LevelApplication);
    std::ostringstream os;
    source.writeTableText(os);
    LiString const text(os.str());
    for (auto _ : state) {
        UiResTable table;
        table.readTableText(text, UiResource::LevelApplication);
        benchmark::DoNotOptimize(table.getNbEntries());
    }
    state.counters["text_MB"] = static_cast<double>(text.str().size()) / 1e6;
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.str().size()));
}
BENCHMARK(BM_ResTableReadText)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Zr

BENCHMARK_MAIN();
