// Hello, world: a window with a push button; activating it prints a line and ends the program.
// With --click the program presses its own button once the window has drawn.
#include "zrUi.h"
#include <iostream>
#include <string_view>
#include <utility>

using namespace Zr;

int main(int argc, char** argv) {
    InInitGuard packages(argc, argv); // starts the ui, uiresources, uitoolkit packages
    UiApplication& app = UiApplication::getInstance();

    RCShdPtr<UiTopLevel> window = UiTopLevel::create("Hello");
    RCShdPtr<UiPushButton> hello = UiPushButton::create(window->getRootContainer().get(), "hello");
    hello->setRect({21, 112, 21, 49});
    hello->getLabel().setString("Hello");

    CbFunction<EvEvent> onActivate([&](EvEvent&) { // a click: pressed and released over it
        std::cout << "activated " << hello->getName() << "\n";
        app.exitLoop();
    });
    hello->addActivateCb(&onActivate);

    bool click = argc > 1 && std::string_view(argv[1]) == "--click";
    CbFunction<DtTimeIndex const> afterDraw([&](DtTimeIndex const&) { // a turn that drew
        if (std::exchange(click, false))
            UiPushButton::activateButton(*hello, nullptr);
    });
    app.addCallback(&afterDraw);

    window->show();
    app.messageLoop(); // returns after exitLoop
    app.removeCallback(&afterDraw);
    app.clearCurrentWindow();
}
