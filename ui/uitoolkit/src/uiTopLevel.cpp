// UiTopLevel: construction over a new system window, and the routing of raw pointer and key
// events to grabs, handlers and focus.
#include "uiTopLevel.h"

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiWindowImp.h"

#include "wsEvents.h"
#include "wsWinMgr.h"

#include <algorithm>

namespace Zr {

RCShdPtr<UiTopLevel> UiTopLevel::create(std::string const& title) {
    return create(title, nullptr);
}

RCShdPtr<UiTopLevel> UiTopLevel::create(std::string const& title, UiResTable const* table) {
    WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle(getDefaultGeometry());
    style.setMainWindow(UiApplication::getInstance().getMainWindow() == nullptr);
    return create(title, table, style);
}

RCShdPtr<UiTopLevel> UiTopLevel::create(std::string const& title, UiResTable const* table,
                                        WsWindowStyle const& style) {
    RCShdPtr<UiTopLevel> topLevel(new UiTopLevel(title, style));
    topLevel->buildRoot(table);
    topLevel->resInit(table);
    topLevel->postInit();
    topLevel->buildTopLevel(table);
    return topLevel;
}

UiTopLevel::UiTopLevel(std::string const& title, WsWindowStyle const& style)
    : UiWindow(nullptr, "top_level", style, 0), _title(title) {}

UiTopLevel::~UiTopLevel() = default;

void UiTopLevel::buildTopLevel(UiResTable const*) {
    ZR_ASSERT(getOSWindow().isNull());
    WsWindowStyle const& style = UiWindow::_imp->_style;
    RCShdPtr<WsWindow> window = WsWinMgr::getInstance().createWindow(_title, _title, style);
    setOSWindow(window);
    UiApplication& app = UiApplication::getInstance();
    bool isMain = style.isMainWindow();
    if (isMain) {
        app.setMainWindow(this);
        window->setMainWindow(true);
    }
    setWindowName(isMain ? "MainWindow" : "SecondaryWindow");
    setName("top_level");
    app.updateCurrentWindow(this);
    UiContainer::setRect(window->getGeometry(), true);
}

void UiTopLevel::setWindowTitle(std::string const& title) {
    _title = title;
    if (getOSWindow())
        getOSWindow()->setTitle(title);
}

void UiTopLevel::setIconTitle(std::string const&) {
    // The window layer knows one title per window; the icon shows the window's.
}

UiWidget* UiTopLevel::findWidgetAt(GePoint2<int> const& p) {
    RCShdPtr<UiContainer> const& root = getRootContainer();
    if (!root)
        return nullptr;
    UiWidget* widget = root->findWidgetAt(p);
    return widget ? widget : root.get();
}

void UiTopLevel::processEvent(EvEvent& event) {
    _imp._mainHandlers.call(event);
    if (event.isProcessed())
        return;
    if (auto* pointer = evCast<EvPointerEvent>(event))
        pointerEvent(*pointer);
    else if (auto* keyboard = evCast<EvKeyboardEvent>(event))
        keyboardEvent(*keyboard);
    else if (auto* configure = dynamic_cast<WsConfigureEvent*>(&event))
        UiContainer::setRect(configure->getWindowRegion(), true);
    else
        UiWindow::processEvent(event);
}

void UiTopLevel::pointerEvent(EvPointerEvent& event) {
    UiWidget* widget = findWidgetAt(event.getWCoord());
    UiFocusPointer& focus = UiFocusPointer::getInstance();
    focus.updatePointer(widget, true);

    UiGrab& grab = UiGrab::pointer();
    if (UiGrabHandler* handler = grab.getCurrent()) {
        // Coordinates are given in the grabber's space, wherever the pointer is.
        event.setOrigin(handler->getProcessOrigin());
        bool handlerAllows = handler->allowPtrHandlingInGrab();
        handler->processEvent(event);
        if (!event.isProcessed() && _allowPtrHandling && handlerAllows)
            _imp._pointerHandlers.call(event);
        if (!grab.getCurrent())
            focus.updateFocus(widget);
        return;
    }

    _imp._pointerHandlers.call(event);
    if (event.isProcessed())
        return;
    focus.updateFocus(widget);
    UiWidget* target = focus.getFocus();
    if (auto* move = evCast<EvPointerMoveEvent>(event))
        if (feedPressedWidget(*move, target))
            return;
    if (target && target != this) {
        event.setOrigin(target->getEventHandler()->getProcessOrigin());
        target->processEvent(event);
    }
}

bool UiTopLevel::feedPressedWidget(EvPointerMoveEvent& move, UiWidget const* target) {
    // A held button belongs to the widget it pressed (the top of the arm stack). Without a grab
    // the move goes to the widget under the pointer, so a quick drag that leaves the pressed
    // widget before passing its recogniser's threshold would be lost: the pressed widget's
    // recogniser sees the move too, wherever the pointer is.
    if (UiArmStack::empty())
        return false;
    UiWidget* pressed = UiArmStack::top()._widget;
    if (!pressed || pressed->getWindow() != this)
        return false;
    for (UiWidget const* w = target; w; w = w->getParent())
        if (w == pressed)
            return false; // the move reaches it through the target anyway
    RCShdPtr<UiWidget> keep = pressed->makeSender();
    move.setOrigin(pressed->getEventHandler()->getProcessOrigin());
    return pressed->interceptDrag(move);
}

void UiTopLevel::keyboardEvent(EvKeyboardEvent& event) {
    if (UiGrabHandler* handler = UiGrab::keyboard().getCurrent()) {
        event.setOrigin(handler->getProcessOrigin());
        handler->processEvent(event);
    }
    if (!event.isProcessed())
        _imp._keyHandlers.call(event);
    if (!event.isProcessed())
        UiFocusKeyboard::getInstance().processEvent(event);
}

void UiTopLevel::otherEvent(EvEvent& event) {
    UiWindow::processEvent(event);
}

void UiTopLevel::setRect(GeRectangle<int> const& rect, bool notify) {
    RCShdPtr<WsWindow> const& window = getOSWindow();
    if (!window) {
        UiContainer::setRect(rect, notify);
        return;
    }
    GeRectangle<int> r = rect;
    r.x2 = std::max(r.x2, r.x1 + 1);
    r.y2 = std::max(r.y2, r.y1 + 1);
    window->setSize(r);
}

void UiTopLevel::minimizeWindow() {
    if (getOSWindow())
        getOSWindow()->iconify();
}

void UiTopLevel::toggleFullScreen() {
    WsWindowStyle& style = UiWindow::_imp->_style;
    style.setFullscreen(!style.isFullscreen());
    if (getOSWindow())
        getOSWindow()->setFullscreen(style.isFullscreen());
}

} // namespace Zr
