// Repaint costs of toolkit windows on a real display (Xvfb and llvmpipe here): the full repaint
// of a 1920 x 1080 window of 2,000 widgets against the redraw after marking one of them, the
// time from an SDL click to a widget's activate callback, and the processor time of a window
// left idle for 5 s. The packages start with graphics, so run it under a display.
#include "zrUi.h"

#include "smGl.h"
#include "wsSdl.h"
#include "wsSdlInput.h"

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <chrono>
#include <thread>
#include <vector>

using namespace Zr;

namespace {

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// Dispatches what arrives for `ms` and redraws, as the loop does.
void pump(int ms) {
    UiApplication& app = UiApplication::getInstance();
    DtTimeIndex const until = DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
    do {
        while (OPtr<EvEvent> e = app.getNextEvent(DtRefTimeFactory::now() + 5000))
            app.processEvent(*e);
        for (auto const& [os, ui] : app.getWindowTable())
            ui->redraw();
    } while (DtRefTimeFactory::now() < until);
}

// A top level of `width` x `height` holding a grid of `count` framed widgets.
struct Scene {
    Scene(int width, int height, int count) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, width, 0, height});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        UiContainer* root = window->getRootContainer().get();
        int const columns = 50, rows = (count + columns - 1) / columns;
        int const w = width / columns, h = height / rows;
        RCShdPtr<UiFrame> frame = UiFrameRegistry::getInstance().create("PushOut");
        for (int i = 0; i < count; ++i) {
            int const x = (i % columns) * w, y = (i / columns) * h;
            RCShdPtr<UiWidget> widget = UiWidget::create(root, "cell");
            widget->setRect({x + 1, x + w - 1, y + 1, y + h - 1});
            widget->setColor(UiWidget::BackgroundColor,
                             CoRgbColor(0.2f + 0.6f * (i % 7) / 6.f, 0.4f, 0.5f));
            widget->setFrame(frame, UiWidget::DefaultFrame);
            widgets.push_back(widget);
        }
        window->show();
        pump(300);
    }
    ~Scene() {
        UiApplication::getInstance().clearCurrentWindow();
        widgets.clear();
        window->getRootContainer()->removeChildren();
    }
    // Redraws, then waits until OpenGL has finished, so the time is the drawing's own.
    void redraw() {
        window->redraw();
        SmGl::finish();
    }
    RCShdPtr<UiTopLevel> window;
    std::vector<RCShdPtr<UiWidget>> widgets;
};

bool haveDisplay(benchmark::State& state) {
    if (WsSdl::isActive())
        return true;
    state.SkipWithError(("no display: " + WsSdl::getLastError()).c_str());
    return false;
}

void BM_FullRepaint2000Widgets1080p(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    Scene scene(1920, 1080, 2000);
    for (auto _ : state) {
        scene.window->getRootContainer()->markForUpdate();
        scene.redraw();
    }
}
BENCHMARK(BM_FullRepaint2000Widgets1080p)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_RedrawOneMarkedOf2000Widgets1080p(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    Scene scene(1920, 1080, 2000);
    std::size_t i = 0;
    for (auto _ : state) {
        scene.widgets[i]->markForUpdate();
        scene.redraw();
        i = (i + 37) % scene.widgets.size();
    }
}
BENCHMARK(BM_RedrawOneMarkedOf2000Widgets1080p)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// An SDL button press and release over a widget (pushed onto SDL's queue as the window system
// would) until the widget's activate callback has run, through the event loop.
void BM_SdlClickToActivateCallback(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    Scene scene(200, 200, 0);
    UiContainer* root = scene.window->getRootContainer().get();
    RCShdPtr<UiWidget> target = UiWidget::create(root, "target");
    target->setRect({50, 150, 50, 150});
    bool pressed = false;
    CbFunction<EvEvent> arm([&](EvEvent&) { pressed = true; });
    CbFunction<EvEvent> disarm([&](EvEvent& e) {
        if (pressed)
            target->activate(e);
        pressed = false;
    });
    CbFunction<EvEvent> activated([&](EvEvent&) { UiApplication::getInstance().exitLoop(); });
    target->addArmCb(&arm);
    target->addDisarmCb(&disarm);
    target->addActivateCb(&activated);
    WsWindow& os = *scene.window->getOSWindow();
    UiApplication& app = UiApplication::getInstance();
    for (auto _ : state) {
        WsSdlInput::pushPointerButton(os, WsSdlInput::ButtonLeft, true, 100, 100);
        WsSdlInput::pushPointerButton(os, WsSdlInput::ButtonLeft, false, 100, 100);
        app.messageLoop();
    }
    target->removeArmCb(&arm);
    target->removeDisarmCb(&disarm);
    target->removeActivateCb(&activated);
}
BENCHMARK(BM_SdlClickToActivateCallback)->Unit(benchmark::kMicrosecond);

// A gallery-sized window with nothing changing, the loop running for 5 s: the processor time
// used, as a share of one core.
void BM_IdleWindowFiveSeconds(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    Scene scene(640, 400, 40);
    UiApplication& app = UiApplication::getInstance();
    double share = 0;
    for (auto _ : state) {
        auto const start = std::chrono::steady_clock::now();
        double const cpu0 = cpuSeconds();
        std::thread stopper([&app] {
            std::this_thread::sleep_for(std::chrono::seconds(5));
            app.exitLoop();
        });
        app.messageLoop();
        stopper.join();
        double const wall =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        share = (cpuSeconds() - cpu0) / wall;
    }
    state.counters["cpu_share_percent"] = share * 100.0;
}
BENCHMARK(BM_IdleWindowFiveSeconds)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    InInitGuard packages(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
