// The hot paths of a value editor: a pointer move while it is dragged, posted to the event queue
// and run through the loop to the value-changed callback, with the redraw that follows touching
// the editor alone; and the formatting of a number for display. Runs without a display.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <vector>

using namespace Zr;

namespace {

// A top level with a row of value editors; the first is pressed and dragged, its neighbours
// count their draws.
struct Panel {
    static constexpr int Editors = 8;

    Panel() {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 1120, 0, 200});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        UiContainer* root = window->getRootContainer().get();
        for (int i = 0; i < Editors; ++i) {
            RCShdPtr<UiValueEditor> editor = UiValueEditor::create(root, "editor");
            editor->setRect({i * 112, i * 112 + 98, 0, 21}, false);
            editor->setRange(-1e9, 1e9, false);
            editor->setIncrement(1.0);
            editor->addUserDrawCb(i == 0 ? &draggedDraw : &neighbourDraw);
            editors.push_back(editor);
        }
        editors[0]->addValueChangedCb(&listener);
        window->show();
        settle();
        // The press, then a move past the drag threshold: the drag is under way, and counts
        // from there.
        EvPointerButtonDownEvent down;
        down.setWindowId(window->getOSWindow()->getId());
        down.setWCoord({50, 10});
        down.setTriggerButton(1);
        down.setPointerState(EvPointerState(1));
        UiApplication::getInstance().processEvent(down);
        EvPointerMoveEvent move;
        move.setWindowId(window->getOSWindow()->getId());
        move.setWCoord({54, 10});
        move.setPointerState(EvPointerState(1));
        UiApplication::getInstance().processEvent(move);
        settle();
        draws = neighbourDraws = 0;
    }
    ~Panel() {
        EvPointerButtonUpEvent up;
        up.setWindowId(window->getOSWindow()->getId());
        up.setWCoord({50, 10});
        up.setTriggerButton(1);
        UiApplication::getInstance().processEvent(up);
        editors[0]->removeValueChangedCb(&listener);
        for (int i = 0; i < Editors; ++i)
            editors[i]->removeUserDrawCb(i == 0 ? &draggedDraw : &neighbourDraw);
        UiApplication::getInstance().clearCurrentWindow();
        editors.clear();
        window->getRootContainer()->removeChildren();
    }
    void settle() {
        while (window->redraw()) {
        }
    }
    // Posts a move to the event queue and runs the loop until the value-changed callback; a
    // move that changes nothing would leave the loop waiting, so every move crosses pixels.
    void moveThroughLoop(int x) {
        auto event = std::make_unique<EvPointerMoveEvent>();
        event->setWindowId(window->getOSWindow()->getId());
        event->setWCoord({x, 10});
        event->setPointerState(EvPointerState(1));
        WsEventQ::getInstance().postEvent(std::move(event));
        changed = false;
        UiApplication::getInstance().localMessageLoop(&changed, &appExit);
    }

    RCShdPtr<UiTopLevel> window;
    std::vector<RCShdPtr<UiValueEditor>> editors;
    int changes = 0;
    int draws = 0;
    int neighbourDraws = 0;
    bool volatile changed = false;
    bool volatile appExit = false;
    CbFunction<EvEvent> listener{[this](EvEvent&) {
        ++changes;
        changed = true;
    }};
    CbFunction<EvEvent> draggedDraw{[this](EvEvent&) { ++draws; }};
    CbFunction<EvEvent> neighbourDraw{[this](EvEvent&) { ++neighbourDraws; }};
};

// One drag of 1,000 moves, each posted alone and run through the loop (slice, top level, grab,
// motion handler, range) to the value-changed callback; the window repaints after each, outside
// the timing. The time reported is per move.
void BM_DragMoveThroughLoop(benchmark::State& state) {
    Panel panel;
    int x = 60;
    for (auto _ : state) {
        x = x == 60 ? 100 : 60;
        auto const start = std::chrono::steady_clock::now();
        panel.moveThroughLoop(x);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        panel.settle();
    }
    auto const moves = static_cast<double>(state.iterations());
    if (panel.changes < moves)
        state.SkipWithError("a move did not change the value");
    if (panel.neighbourDraws != 0)
        state.SkipWithError("a move redrew a neighbour of the editor");
    state.counters["editorDraws/move"] = panel.draws / moves;
}
BENCHMARK(BM_DragMoveThroughLoop)
    ->Iterations(1000)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// The display text of a value: an ordinary number, a negative million (exponent form) and a
// tiny one, with the default and a fixed format.
void BM_FormatString(benchmark::State& state) {
    static constexpr double values[] = {3.14159265, -1234567.0, 0.0000512, 42.0};
    std::string const format = state.range(0) == 0 ? "%.7g" : "%.2f";
    std::string const stringFormat = "%.7s";
    size_t i = 0;
    for (auto _ : state) {
        std::string text = UiValueEditor::formatString(values[i++ & 3], format, stringFormat);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(BM_FormatString)->Arg(0)->Arg(1)->Unit(benchmark::kNanosecond);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
