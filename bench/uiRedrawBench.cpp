// Repaint costs of toolkit windows on a real display (Xvfb and llvmpipe here): the full repaint
// of a 1920 x 1080 window of 2,000 widgets against the redraw after marking one or k of them, the
// time from an SDL click to a widget's activate callback, and the processor time of a window
// left idle for 5 s. The packages start with graphics, so run it under a display.
#include "zrUi.h"

#include "smGl.h"
#include "wsSdl.h"
#include "wsSdlInput.h"

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <algorithm>
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
        int const columns = 50, rows = std::max(1, (count + columns - 1) / columns);
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

// k of the 2,000 marked one by one, then redrawn: past the share of the window where marks
// merge, the whole window is painted, which is what the merge costs with a display.
void BM_RedrawKMarkedOf2000Widgets1080p(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    Scene scene(1920, 1080, 2000);
    std::size_t const k = static_cast<std::size_t>(state.range(0));
    std::size_t const step = scene.widgets.size() / k;
    for (auto _ : state) {
        for (std::size_t i = 0; i < k; ++i)
            scene.widgets[i * step]->markForUpdate();
        scene.redraw();
    }
}
BENCHMARK(BM_RedrawKMarkedOf2000Widgets1080p)
    ->Arg(200)
    ->Arg(500)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2.0);

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

// A panel of 1,000 widgets built from one definition: 40 rows of 24 framed widgets, each placed
// by a constraint on its left sibling, in a 1920 x 1080 window.
std::string definedPanel() {
    auto edge = [](char const* tag, int value, char const* type, char const* target,
                   std::string const& sibling = {}) {
        std::string e = std::string("<") + tag + " Value=\"" + std::to_string(value) +
                        "\" Type=\"" + type + "\" Target=\"" + target + "\"";
        return e + (sibling.empty() ? "" : " Sibling=\"" + sibling + "\"") + "/>";
    };
    std::string xml = "<Container><Widget Name=\"panel\"><Layout><Constraint>" +
                      edge("X1", 0, "p", "l") + edge("Y1", 0, "p", "b") + edge("X2", 0, "p", "r") +
                      edge("Y2", 0, "p", "t") + "</Constraint></Layout>" +
                      "<Background><Color>Grey60</Color></Background></Widget>" +
                      "<Group Type=\"Children\">";
    for (int r = 0; r < 40; ++r) {
        for (int c = 0; c < 24; ++c) {
            std::string const name = "w" + std::to_string(r) + "_" + std::to_string(c);
            std::string const left = "w" + std::to_string(r) + "_" + std::to_string(c - 1);
            xml += "<Widget><Widget Name=\"" + name + "\"><Layout><Constraint>" +
                   (c == 0 ? edge("X1", 1, "u", "l") : edge("X1", 0, "u", "s", left)) +
                   edge("Y1", r * 26 + 2, "p", "b") + edge("X2", 11, "u", "w") +
                   edge("Y2", 24, "p", "h") + "</Constraint></Layout>" + "<Background><Color>" +
                   (c % 2 ? "Blue1" : "LabelBackground") +
                   "</Color></Background><Default><Frame>PushOut</Frame></Default>" +
                   "</Widget></Widget>";
        }
    }
    return xml + "</Group></Container>";
}

// The first draw of that panel: built (untimed), then one full redraw, finished by OpenGL.
void BM_FirstDrawOfDefinedPanel1000Widgets(benchmark::State& state) {
    if (!haveDisplay(state))
        return;
    UiWidgetFactory::registerToolkitFactories();
    Scene scene(1920, 1080, 0);
    std::string const text = definedPanel();
    RCShdPtr<UiContainer> const& root = scene.window->getRootContainer();
    for (auto _ : state) {
        state.PauseTiming();
        RCShdPtr<UiWidget> panel = UiWidgetFactory::createWidgetFromText(root, text, "panel.xml");
        state.ResumeTiming();
        scene.redraw();
        state.PauseTiming();
        root->removeChildren();
        scene.redraw();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_FirstDrawOfDefinedPanel1000Widgets)->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    InInitGuard packages(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
