// Benchmarks of text and images: measuring a label (which runs on every layout and must not
// allocate once its glyphs are cached), drawing it, truncating a path in the middle, and
// reading an icon-sized PNG.
#include "wsFont.h"
#include "wsFontRegistry.h"
#include "wsFontUtils.h"
#include "wsManagedImage.h"

#include <benchmark/benchmark.h>

#include "benchAllocations.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>

namespace Zr {
namespace {

char const* const Label = "Blur Radius (px) \xE2\x80\x94 \xC3\xA9\xC3\xA8 AVAWAY";

// "allocs" must stay 0: measuring cached glyphs allocates nothing.
void BM_FontMeasure(benchmark::State& state) {
    RCShdPtr<WsFont> const font =
        WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
    font->getStringWidth(Label); // caches the glyphs
    long const before = BenchAllocations::count.load();
    for (auto _ : state)
        benchmark::DoNotOptimize(font->getStringWidth(Label));
    state.counters["allocs"] = static_cast<double>(BenchAllocations::count.load() - before);
}
BENCHMARK(BM_FontMeasure);

void BM_FontCharacterIndex(benchmark::State& state) {
    RCShdPtr<WsFont> const font =
        WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
    float const width = font->getStringWidth(Label);
    long const before = BenchAllocations::count.load();
    for (auto _ : state)
        benchmark::DoNotOptimize(font->getCharacterIndexAt(Label, width / 2.f));
    state.counters["allocs"] = static_cast<double>(BenchAllocations::count.load() - before);
}
BENCHMARK(BM_FontCharacterIndex);

// Through the backend that does nothing: the cost of the toolkit's side of a label.
void BM_FontDraw(benchmark::State& state) {
    RCShdPtr<WsFont> const font =
        WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
    font->drawString(Label, 10, 10);
    long const before = BenchAllocations::count.load();
    for (auto _ : state)
        font->drawString(Label, 10, 10);
    state.counters["allocs"] = static_cast<double>(BenchAllocations::count.load() - before);
}
BENCHMARK(BM_FontDraw);

void BM_FontTruncateInTheMiddle(benchmark::State& state) {
    RCShdPtr<WsFont> const font =
        WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
    std::string const path = "/projects/show/sequence/shot0420/comp/v012/renders/beauty.0001.tif";
    float const width = font->getStringWidth(path) / 2.f;
    for (auto _ : state)
        benchmark::DoNotOptimize(WsFontUtils::truncateInTheMiddle(font, path, width));
}
BENCHMARK(BM_FontTruncateInTheMiddle);

void BM_ImageLoadPng(benchmark::State& state) {
    RCShdPtr<IxTile> tile(new IxTile(32, 32, 4));
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            for (int c = 0; c < 4; ++c)
                tile->setValue(x, y, c, static_cast<std::uint8_t>(x * 8 + y + c));
    OsFilePath const file(std::filesystem::temp_directory_path() /
                          ("zrFontBench" + std::to_string(::getpid()) + ".png"));
    WsManagedImage::writePng(*tile, file);
    for (auto _ : state)
        benchmark::DoNotOptimize(WsManagedImage::loadFromFile(file));
    std::filesystem::remove(file.getPath());
}
BENCHMARK(BM_ImageLoadPng);

} // namespace
} // namespace Zr

BENCHMARK_MAIN();
