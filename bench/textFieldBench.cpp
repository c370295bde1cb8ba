// Typing into a text field whose text is 30, 300, 3,000 and 30,000 characters long (1, 10, 100
// and 1,000 times a usual entry): each character rebuilds the glyph table of the whole text
// and scrolls, so the cost per character grows with the length; the figures say how fast.
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace Zr;

namespace {

// One typed character at the end of a text of state.range(0) characters: insert, then remove
// it again, so the length stays put.
void BM_TypeAtEnd(benchmark::State& state) {
    auto const length = static_cast<int>(state.range(0));
    RCShdPtr<UiTextField> field = UiTextField::create(nullptr, "field");
    field->setRect({0, 210, 0, 28}, false);
    field->setBufLength(length + 2);
    field->setString(std::string(static_cast<std::size_t>(length), 'w').c_str());
    UiGrab::keyboard().grab(field->getEventHandler()); // an edit in progress: characters go in
    for (auto _ : state) {
        EvCharEvent typed(U'x');
        field->processEvent(typed);
        field->deleteChar();
        field->setCursorPos(length);
    }
    UiGrab::keyboard().clear();
    state.counters["us_per_char"] = benchmark::Counter(
        1, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_TypeAtEnd)->Arg(30)->Arg(300)->Arg(3000)->Arg(30000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
