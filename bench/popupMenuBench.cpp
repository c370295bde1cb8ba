// Opening a context menu: a right press on a widget, whose arm callback launches a popup menu
// of N rows (key names, toggles, separators and a cascading row with its submenu), up to the
// first drawn frame of the menu. Under a display (Xvfb and llvmpipe) it times the whole road
// with the drawing; with ZR_NO_GRAPHICS=1 it times the toolkit's part alone.
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace Zr;

namespace {

constexpr unsigned RightButton = 4;

struct Scene {
    explicit Scene(int rows) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 800, 0, 600});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        UiContainer* root = window->getRootContainer().get();
        trigger = UiWidget::create(root, "input");
        trigger->setRect({0, 800, 0, 600}, false);
        menu = UiPopupMenu::create(root, LiString("context"));
        for (int i = 0; i < rows; ++i) {
            std::string const text = "Command number " + std::to_string(i);
            if (i % 10 == 9)
                menu->appendSeparator();
            else if (i % 10 == 4)
                menu->appendToggle(LiString(text), i % 20 == 4, &selected, i);
            else if (i == 5)
                submenu(menu->appendCascade(LiString("Interpolation"), i)->getPopup());
            else
                menu->appendText(LiString(text), LiString("Ctrl+" + std::to_string(i % 10)),
                                 &selected, i);
        }
        trigger->addArmCb(&onPress);
        window->show();
        settle();
    }
    ~Scene() {
        menu->close();
        trigger->removeArmCb(&onPress);
        UiApplication::getInstance().clearCurrentWindow();
        window->getRootContainer()->removeChildren();
    }
    void submenu(RCShdPtr<UiPopupMenu> const& sub) {
        for (char const* name : {"Constant", "Linear", "Smooth", "Bezier", "Hermite"})
            sub->appendText(LiString(name), &selected);
    }
    void settle() {
        while (window->redraw()) {
        }
    }
    void press(bool down) {
        if (down) {
            EvPointerButtonDownEvent e;
            e.setWindowId(window->getOSWindow()->getId());
            e.setWCoord({200, 500});
            e.setTriggerButton(RightButton);
            e.setPointerState(EvPointerState(RightButton));
            UiApplication::getInstance().processEvent(e);
        } else {
            EvPointerButtonUpEvent e;
            e.setWindowId(window->getOSWindow()->getId());
            e.setWCoord({200, 500});
            e.setTriggerButton(RightButton);
            UiApplication::getInstance().processEvent(e);
        }
    }

    RCShdPtr<UiTopLevel> window;
    RCShdPtr<UiWidget> trigger;
    RCShdPtr<UiPopupMenu> menu;
    CbFunction<EvEvent> selected{[](EvEvent&) {}};
    CbFunction<EvEvent> onPress{[this](EvEvent& e) {
        auto* down = dynamic_cast<EvPointerButtonDownEvent*>(&e);
        if (down && down->getTriggerButton() == RightButton)
            menu->launch(down->getWCoord(), UiPopupMenu::BelowRight);
    }};
};

// From the right press to the menu's first frame; closing it again is not timed.
void BM_OpenContextMenu(benchmark::State& state) {
    Scene scene(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        scene.press(true);
        scene.window->redraw();
        state.PauseTiming();
        if (!scene.menu->isDisplayed())
            state.SkipWithError("the menu did not open");
        scene.press(false);
        scene.menu->close();
        scene.settle();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenContextMenu)->Arg(30)->Arg(300)->Arg(3000)->Unit(benchmark::kMicrosecond);

// The fixed cost of a frame in the same window: one small widget marked and redrawn, which
// with a display is mostly the swap.
void BM_RedrawSmallMark(benchmark::State& state) {
    Scene scene(30);
    RCShdPtr<UiWidget> dot = UiWidget::create(scene.window->getRootContainer().get(), "dot");
    dot->setRect({10, 20, 10, 20}, false);
    scene.settle();
    for (auto _ : state) {
        dot->markForUpdate();
        scene.window->redraw();
    }
}
BENCHMARK(BM_RedrawSmallMark)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
