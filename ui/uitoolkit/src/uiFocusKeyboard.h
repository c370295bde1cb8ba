// UiFocusKeyboard: the widget that gets key events. Focus goes to the nearest keyboard-
// focusable ancestor of the widget asked for; focus-out and focus-in run along both chains.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiWidget;

class UiFocusKeyboard {
public:
    static UiFocusKeyboard& getInstance();
    void setFocus(RCShdPtr<UiWidget> const& widget);
    void setFocus(UiWidget* widget);
    // As setFocus, for tabbing: the target always gets the key press that starts an edit when
    // the old focus was an editor being edited.
    void cycleFocus(UiWidget* widget);
    UiWidget* getFocus() const { return _focus; }
    // Offers the event to the focus and then to its ancestors, up to but not including the root.
    void processEvent(EvKeyboardEvent& event);
    // Forgets a widget that is going away, without events.
    void forget(UiWidget* widget);

private:
    UiFocusKeyboard() = default;
    void changeFocus(UiWidget* widget, bool cycling);

    UiWidget* _focus = nullptr;
    bool _wasGrabbing = false;
};

} // namespace Zr
