// The gallery, for now a console program: it builds a small widget tree in a top-level window
// over the headless window layer, sends a click through the event loop and prints what the
// widgets' callbacks saw. It is also the toolkit's hello-world.
#include "zrUi.h"

#include <iostream>
#include <string>

using namespace Zr;

namespace {

// A widget that behaves as a push button: the press takes the pointer grab, the release gives
// it back and activates the widget if the pointer is still on it.
class GalleryButton : public UiWidget {
public:
    static RCShdPtr<GalleryButton> create(UiContainer* parent, LiString const& name,
                                          GeRectangle<int> const& rect) {
        RCShdPtr<GalleryButton> button(new GalleryButton(parent, name));
        button->resInit(nullptr);
        button->postInit();
        button->setRect(rect);
        return button;
    }

protected:
    GalleryButton(UiContainer* parent, LiString const& name)
        : UiWidget(parent, name),
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

OPtr<EvEvent> button(bool down, WsWindowId window, GePoint2<int> at) {
    OPtr<EvPointerButtonEvent> e;
    if (down)
        e = std::make_unique<EvPointerButtonDownEvent>();
    else
        e = std::make_unique<EvPointerButtonUpEvent>();
    e->setWindowId(window);
    e->setWCoord(at);
    e->setTriggerButton(EvPointerState::Left);
    e->setPointerState(EvPointerState(down ? EvPointerState::Left : EvPointerState::NoButton));
    return e;
}

} // namespace

int main(int argc, char** argv) {
    InInitGuard packages(argc, argv);
    UiApplication& app = UiApplication::getInstance();
    int redraws = 0;
    {
        // The tree: a top level, and in its root container two buttons.
        RCShdPtr<UiTopLevel> window = UiTopLevel::create("ZRui gallery");
        UiContainer* root = window->getRootContainer().get();
        RCShdPtr<GalleryButton> ok = GalleryButton::create(root, "ok", {20, 90, 20, 50});
        RCShdPtr<GalleryButton> cancel = GalleryButton::create(root, "cancel", {110, 180, 20, 50});
        window->show();

        // Prints what a callback saw and on which widget.
        struct Say : CbHandler<EvEvent> {
            Say(std::string what, std::string widget)
                : _text(std::move(what) + " " + std::move(widget)) {}
            void call(EvEvent&) override { std::cout << _text << "\n"; }
            std::string _text;
        };
        Say okArm("arm", "ok"), okDisarm("disarm", "ok"), okActivate("activate", "ok");
        Say cancelActivate("activate", "cancel");
        ok->addArmCb(&okArm);
        ok->addDisarmCb(&okDisarm);
        ok->addActivateCb(&okActivate);
        cancel->addActivateCb(&cancelActivate);
        // Called after each turn that repainted: the first repaint ends the loop.
        CbFunction<DtTimeIndex const> countRedraws([&](DtTimeIndex const&) {
            if (++redraws == 1)
                app.exitLoop();
        });
        app.addCallback(&countRedraws);

        // A click on "ok": the loop dispatches it in its slice, then repaints the window.
        WsWindowId id = window->getOSWindow()->getId();
        app.postEvent(button(true, id, {40, 30}));
        app.postEvent(button(false, id, {42, 31}));
        app.messageLoop();
        app.removeCallback(&countRedraws);
        std::cout << "redraws " << redraws << ", swaps " << window->getSwapCount() << "\n";
        app.clearCurrentWindow();
    }
    return 0;
}
