// The hot path of a slider: a pointer move while it is dragged, through the window's dispatch to
// the grabbed slider, its value-changed listener and the redraw of the handle, in a window of 4,
// 40, 400 and 4,000 sliders (1, 10, 100 and 1,000 times a usual panel); the same move posted to
// the event queue and run through the loop; and the move that changes nothing, which must stay
// silent. Runs without a display.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <vector>

using namespace Zr;

namespace {

// A top level holding `count` horizontal sliders in rows of 10, each 98 x 21 pixels, with a
// listener each; the one at the corner is pressed and held.
struct Panel {
    explicit Panel(int count) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 1120, 0, 1000});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        UiContainer* root = window->getRootContainer().get();
        for (int i = 0; i < count; ++i) {
            // The held slider, at the window's corner, is made last: the window finds the widget
            // under the pointer by a walk from the last child down, and this measures the slider.
            int const k = count - 1 - i;
            int const x = (k % 10) * 112, y = (k / 10) * 21; // most lie beyond the window
            RCShdPtr<UiTrackSlider> slider = UiTrackSlider::create(root, "slider");
            slider->setRect({x, x + 98, y, y + 21}, false);
            slider->addValueChangedCb(&listener);
            sliders.push_back(slider);
        }
        window->show();
        settle();
        press(10);
    }
    ~Panel() {
        EvPointerButtonUpEvent up;
        up.setWindowId(window->getOSWindow()->getId());
        up.setTriggerButton(1);
        UiApplication::getInstance().processEvent(up);
        for (auto& slider : sliders)
            slider->removeValueChangedCb(&listener);
        UiApplication::getInstance().clearCurrentWindow();
        sliders.clear();
        window->getRootContainer()->removeChildren();
    }
    void settle() {
        while (window->redraw()) {
        }
    }
    void press(int x) {
        EvPointerButtonDownEvent down;
        down.setWindowId(window->getOSWindow()->getId());
        down.setWCoord({x, 10});
        down.setTriggerButton(1);
        down.setPointerState(EvPointerState(1));
        UiApplication::getInstance().processEvent(down);
    }
    void move(int x) {
        EvPointerMoveEvent event;
        event.setWindowId(window->getOSWindow()->getId());
        event.setWCoord({x, 10});
        event.setPointerState(EvPointerState(1));
        UiApplication::getInstance().processEvent(event);
    }

    RCShdPtr<UiTopLevel> window;
    // Posts a move to the event queue and runs the loop until the value-changed callback.
    void moveThroughLoop(int x) {
        auto event = std::make_unique<EvPointerMoveEvent>();
        event->setWindowId(window->getOSWindow()->getId());
        event->setWCoord({x, 10});
        event->setPointerState(EvPointerState(1));
        WsEventQ::getInstance().postEvent(std::move(event));
        changed = false;
        UiApplication::getInstance().localMessageLoop(&changed, &appExit);
    }

    std::vector<RCShdPtr<UiTrackSlider>> sliders;
    int changes = 0;
    bool volatile changed = false;
    bool volatile appExit = false;
    CbFunction<EvEvent> listener{[this](EvEvent&) {
        ++changes;
        changed = true;
    }};
};

// Each move takes the handle to the other of two places, and the window repaints it.
void BM_DragMove(benchmark::State& state) {
    Panel panel(static_cast<int>(state.range(0)));
    int x = 20;
    for (auto _ : state) {
        x = x == 20 ? 80 : 20;
        panel.move(x);
        panel.settle();
    }
    if (panel.changes < static_cast<int>(state.iterations()))
        state.SkipWithError("a move did not change the value");
}
BENCHMARK(BM_DragMove)->Arg(4)->Arg(40)->Arg(400)->Arg(4000)->Unit(benchmark::kMicrosecond);

// The same move posted to the event queue and run through the loop (slice, filter, top level,
// grab) to the value-changed callback; the window repaints between moves, outside the timing.
void BM_DragMoveThroughLoop(benchmark::State& state) {
    Panel panel(static_cast<int>(state.range(0)));
    int x = 20;
    for (auto _ : state) {
        x = x == 20 ? 80 : 20;
        auto const start = std::chrono::steady_clock::now();
        panel.moveThroughLoop(x);
        auto const end = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
        panel.settle();
    }
    if (panel.changes < static_cast<int>(state.iterations()))
        state.SkipWithError("a move did not change the value");
}
BENCHMARK(BM_DragMoveThroughLoop)
    ->Arg(4)
    ->Arg(4000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// Moves across the slider that leave the value where it is: no callback, no mark, no redraw.
void BM_DragMoveUnchanged(benchmark::State& state) {
    Panel panel(static_cast<int>(state.range(0)));
    panel.move(50);
    panel.settle();
    int const before = panel.changes;
    for (auto _ : state) {
        panel.move(50);
        panel.settle();
    }
    if (panel.changes != before)
        state.SkipWithError("an unchanged move reported a change");
}
BENCHMARK(BM_DragMoveUnchanged)->Arg(4)->Arg(4000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
