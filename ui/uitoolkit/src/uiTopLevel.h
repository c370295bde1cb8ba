// UiTopLevel: a window with a title on the desktop. It takes raw pointer and key events and
// routes them to grabs, the pointer focus and the keyboard focus.
#pragma once

#include "uiWindow.h"

namespace Zr {

// The three handler lists of a top level, in the order they are offered an event.
class UiTopLevelImp {
public:
    CbDispatcher<EvEvent> _keyHandlers;
    CbDispatcher<EvEvent> _pointerHandlers;
    CbDispatcher<EvEvent> _mainHandlers;
};

class UiTopLevel : public UiWindow {
public:
    // The default geometry of a top level made without a style.
    static GeRectangle<int> getDefaultGeometry() { return {0, 640, 0, 480}; }

    // A normal window of the default geometry; the first top level of the application
    // becomes its main window.
    static RCShdPtr<UiTopLevel> create(std::string const& title);
    static RCShdPtr<UiTopLevel> create(std::string const& title, UiResTable const* table);
    // The style decides, among the rest, whether this is the main window.
    static RCShdPtr<UiTopLevel> create(std::string const& title, UiResTable const* table,
                                       WsWindowStyle const& style);

    void setWindowTitle(std::string const& title);
    void setIconTitle(std::string const& title);
    std::string const& getWindowTitle() const { return _title; }

    // Under a grab the grabber gets the event; otherwise the pointer handlers, then the widget
    // under the pointer.
    void pointerEvent(EvPointerEvent& event);
    // The keyboard grab, then the key handlers, then the keyboard focus and its ancestors.
    void keyboardEvent(EvKeyboardEvent& event);
    void otherEvent(EvEvent& event);

    void addKeyHandler(CbHandler<EvEvent>* h) { _imp._keyHandlers.addHandler(h); }
    void removeKeyHandler(CbHandler<EvEvent>* h) { _imp._keyHandlers.removeHandler(h); }
    void addPointerHandler(CbHandler<EvEvent>* h) { _imp._pointerHandlers.addHandler(h); }
    void removePointerHandler(CbHandler<EvEvent>* h) { _imp._pointerHandlers.removeHandler(h); }
    void addMainHandler(CbHandler<EvEvent>* h) { _imp._mainHandlers.addHandler(h); }
    void removeMainHandler(CbHandler<EvEvent>* h) { _imp._mainHandlers.removeHandler(h); }
    // With it set, an event the grabber left unprocessed may go on to the pointer handlers.
    void setPtrHandlingInGrab(bool allow) { _allowPtrHandling = allow; }

    void minimizeWindow();
    void toggleFullScreen();

    UiWidget* findWidgetAt(GePoint2<int> const& p) override;
    void processEvent(EvEvent& event) override;
    void setRect(GeRectangle<int> const& rect, bool notify = true) override;

protected:
    UiTopLevel(std::string const& title, WsWindowStyle const& style);
    ~UiTopLevel() override;
    // Creates the system window and makes this the current (and perhaps main) window.
    void buildTopLevel(UiResTable const* table);

private:
    // Lets the widget holding a pressed button see a move that lands elsewhere; true when it
    // started a drag.
    bool feedPressedWidget(EvPointerMoveEvent& move, UiWidget const* target);

    UiTopLevelImp _imp;
    bool _allowPtrHandling = false;
    std::string _title;
};

} // namespace Zr
