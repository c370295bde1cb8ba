// The time from an SDL event (pushed onto SDL's queue, as the window system would) to its
// arrival from WsEventQ on the loop's thread: pushed by the loop's thread itself, and pushed
// by another thread while the loop is blocked in the queue. Run under a display (Xvfb).
#include "evEvent.h"
#include "wsEventQ.h"
#include "wsSdl.h"
#include "wsSdlInput.h"
#include "wsWinMgr.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdint>
#include <thread>

using namespace Zr;

namespace {

RCShdPtr<WsWindow> openWindow() {
    if (!WsSdl::initialize())
        return nullptr;
    auto w = WsWinMgr::getInstance().createWindow(
        "bench", "bench", WsWindowStyleUtils::getNormalWindowStyle({0, 64, 0, 64}));
    w->map();
    // Let SDL's own window events go by.
    while (WsEventQ::getInstance().getNextEvent(DtRefTimeFactory::now() + 200000)) {
    }
    return w;
}

DtTimeIndex inOneSecond() {
    return DtRefTimeFactory::now() + 1000000;
}

void BM_SdlEventToQueueSameThread(benchmark::State& state) {
    RCShdPtr<WsWindow> w = openWindow();
    if (!w) {
        state.SkipWithError(("no display: " + WsSdl::getLastError()).c_str());
        return;
    }
    WsEventQ& queue = WsEventQ::getInstance();
    for (auto _ : state) {
        WsSdlInput::pushPointerMove(*w, 10, 10);
        OPtr<EvEvent> e = queue.getNextEvent(inOneSecond());
        benchmark::DoNotOptimize(e.get());
    }
    w = nullptr;
    WsSdl::shutdown();
}
BENCHMARK(BM_SdlEventToQueueSameThread);

// Another thread pushes one event at a time and waits until the loop has taken it; the loop
// is blocked in getNextEvent (inside SDL's wait) when each arrives. The time measured is from
// the push to the event's return from getNextEvent.
void BM_SdlEventToBlockedLoopFromOtherThread(benchmark::State& state) {
    RCShdPtr<WsWindow> w = openWindow();
    if (!w) {
        state.SkipWithError(("no display: " + WsSdl::getLastError()).c_str());
        return;
    }
    WsEventQ& queue = WsEventQ::getInstance();
    std::atomic<int> taken{0};
    std::atomic<bool> stop{false};
    std::atomic<std::int64_t> pushedAt{0};
    std::thread pusher([&] {
        int pushed = 0;
        while (!stop.load()) {
            if (taken.load() == pushed) {
                // Give the loop time to block before the push.
                std::this_thread::sleep_for(std::chrono::microseconds(200));
                pushedAt.store(DtRefTimeFactory::now().getTicks());
                WsSdlInput::pushPointerMove(*w, 10, 10);
                ++pushed;
            }
        }
    });
    for (auto _ : state) {
        OPtr<EvEvent> e = queue.getNextEvent(inOneSecond());
        std::int64_t const latencyUs = DtRefTimeFactory::now().getTicks() - pushedAt.load();
        benchmark::DoNotOptimize(e.get());
        state.SetIterationTime(static_cast<double>(latencyUs) * 1e-6);
        taken.fetch_add(1);
    }
    stop.store(true);
    pusher.join();
    w = nullptr;
    WsSdl::shutdown();
}
BENCHMARK(BM_SdlEventToBlockedLoopFromOtherThread)->UseManualTime();

// The wake-up alone: another thread posts straight to the queue while the loop waits in SDL.
void BM_PostFromOtherThreadWakesSdlWait(benchmark::State& state) {
    RCShdPtr<WsWindow> w = openWindow();
    if (!w) {
        state.SkipWithError(("no display: " + WsSdl::getLastError()).c_str());
        return;
    }
    WsEventQ& queue = WsEventQ::getInstance();
    std::atomic<int> taken{0};
    std::atomic<bool> stop{false};
    std::atomic<std::int64_t> pushedAt{0};
    std::thread poster([&] {
        int posted = 0;
        while (!stop.load()) {
            if (taken.load() == posted) {
                std::this_thread::sleep_for(std::chrono::microseconds(200));
                pushedAt.store(DtRefTimeFactory::now().getTicks());
                queue.postEvent(std::make_unique<EvDefaultEvent>());
                ++posted;
            }
        }
    });
    for (auto _ : state) {
        OPtr<EvEvent> e = queue.getNextEvent(inOneSecond());
        std::int64_t const latencyUs = DtRefTimeFactory::now().getTicks() - pushedAt.load();
        benchmark::DoNotOptimize(e.get());
        state.SetIterationTime(static_cast<double>(latencyUs) * 1e-6);
        taken.fetch_add(1);
    }
    stop.store(true);
    poster.join();
    w = nullptr;
    WsSdl::shutdown();
}
BENCHMARK(BM_PostFromOtherThreadWakesSdlWait)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
