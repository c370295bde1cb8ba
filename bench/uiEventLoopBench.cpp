// The event loop's costs: a click from the queue to a widget's activate callback, callback
// dispatch without allocation, and the processor time of a loop left idle.
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include "benchAllocations.h"

#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <new>
#include <thread>

using namespace Zr;

namespace {

// Behaves as a push button: the press grabs the pointer, the release activates if inside.
class ClickTarget : public UiWidget {
public:
    static RCShdPtr<ClickTarget> create(UiContainer* parent, GeRectangle<int> const& rect) {
        RCShdPtr<ClickTarget> w(new ClickTarget(parent));
        w->resInit(nullptr);
        w->postInit();
        w->setRect(rect);
        return w;
    }

protected:
    explicit ClickTarget(UiContainer* parent)
        : UiWidget(parent, "target"),
          _grab([this](EvEvent&) { UiGrab::pointer().grab(getEventHandler()); }),
          _release([this](EvEvent& e) {
              UiGrab::pointer().release(getEventHandler());
              if (isInside(static_cast<EvPointerButtonUpEvent&>(e).getCoord()))
                  activate(e);
          }) {
        addArmCb(&_grab);
        addDisarmCb(&_release);
    }

private:
    CbFunction<EvEvent> _grab;
    CbFunction<EvEvent> _release;
};

OPtr<EvEvent> buttonEvent(bool down, WsWindowId id) {
    OPtr<EvPointerButtonEvent> e;
    if (down)
        e = std::make_unique<EvPointerButtonDownEvent>();
    else
        e = std::make_unique<EvPointerButtonUpEvent>();
    e->setWindowId(id);
    e->setWCoord({30, 30});
    e->setTriggerButton(1);
    e->setPointerState(EvPointerState(down ? 1u : 0u));
    return e;
}

// Posts a press and a release to WsEventQ and runs the loop until the activate callback has
// ended it: queue, slice, filter, top level, widget dispatch, arm stack, grab and callback.
void BM_ClickThroughLoop(benchmark::State& state) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("bench");
    top->show();
    RCShdPtr<ClickTarget> target =
        ClickTarget::create(top->getRootContainer().get(), {20, 90, 20, 50});
    WsWindowId id = top->getOSWindow()->getId();
    long activations = 0;
    bool volatile done = false;
    bool volatile appExit = false;
    CbFunction<EvEvent> onActivate([&](EvEvent&) {
        ++activations;
        done = true;
    });
    target->addActivateCb(&onActivate);
    // Paint once so that the clicks don't repaint the window.
    while (top->redraw()) {
    }
    WsEventQ& queue = WsEventQ::getInstance();
    for (auto _ : state) {
        done = false;
        queue.postEvent(buttonEvent(true, id));
        queue.postEvent(buttonEvent(false, id));
        app.localMessageLoop(&done, &appExit);
    }
    state.counters["activations"] = static_cast<double>(activations);
    target = nullptr;
    app.clearCurrentWindow();
}
BENCHMARK(BM_ClickThroughLoop);

// A dispatcher with 1 to 8 handlers allocates nothing per call.
void BM_DispatcherCallAllocations(benchmark::State& state) {
    int const n = static_cast<int>(state.range(0));
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> handlers;
    CbDispatcher<EvEvent> dispatcher;
    int calls = 0;
    for (int i = 0; i < n; ++i) {
        handlers.push_back(std::make_unique<CbFunction<EvEvent>>([&calls](EvEvent&) { ++calls; }));
        dispatcher.addHandler(handlers.back().get());
    }
    EvDefaultEvent event;
    long before = BenchAllocations::count.load();
    long iterations = 0;
    for (auto _ : state) {
        dispatcher.call(event);
        ++iterations;
    }
    state.counters["allocs_per_call"] =
        static_cast<double>(BenchAllocations::count.load() - before) /
        static_cast<double>(iterations);
    benchmark::DoNotOptimize(calls);
}
BENCHMARK(BM_DispatcherCallAllocations)->DenseRange(1, 8);

// Sets a flag on the loop's thread.
class SetFlagRequest : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(SetFlagRequest)
    explicit SetFlagRequest(bool volatile* flag) : _flag(flag) {}
    void execute() override { *_flag = true; }

private:
    bool volatile* _flag;
};

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * 1e-6;
}

// The loop with a window and nothing damaged, for three seconds: it must sleep in the queue.
void BM_IdleLoopProcessorTime(benchmark::State& state) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("idle");
    top->show();
    while (top->redraw()) {
    }
    for (auto _ : state) {
        bool volatile done = false;
        bool volatile appExit = false;
        std::thread stopper([&] {
            std::this_thread::sleep_for(std::chrono::seconds(3));
            app.postRequest(std::make_unique<SetFlagRequest>(&done));
        });
        double before = processorSeconds();
        app.localMessageLoop(&done, &appExit);
        double used = processorSeconds() - before;
        stopper.join();
        state.counters["cpu_ms_per_3s"] = used * 1000.0;
    }
    app.clearCurrentWindow();
}
BENCHMARK(BM_IdleLoopProcessorTime)->Iterations(1)->Unit(benchmark::kMillisecond);

// The floor under the idle loop: the same three seconds of display-period waits on the queue
// alone, without the loop's turn around them.
void BM_BareQueueWaitsProcessorTime(benchmark::State& state) {
    WsEventQ& queue = WsEventQ::getInstance();
    for (auto _ : state) {
        double before = processorSeconds();
        DtTimeIndex end = DtRefTimeFactory::now() + 3000000;
        while (DtRefTimeFactory::now() < end)
            queue.wait(1, DtRefTimeFactory::now() + TmGfxMsc::getUstPerMsc());
        state.counters["cpu_ms_per_3s"] = (processorSeconds() - before) * 1000.0;
    }
}
BENCHMARK(BM_BareQueueWaitsProcessorTime)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
