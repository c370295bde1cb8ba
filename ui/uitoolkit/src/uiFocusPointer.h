// UiFocusPointer: the widget under the pointer (`getPointer`) and the widget that has the
// pointer focus (`getFocus`), which receives focus-in and focus-out events.
#pragma once

#include "zrBase.h"

namespace Zr {

template <class T>
class LkSingleton;
class UiWidget;

class UiFocusPointer {
public:
    static UiFocusPointer& getInstance();
    UiWidget* getFocus() const { return _focus; }
    UiWidget* getPointer() const { return _pointer; }
    // Delivers EvFocusOutEvent to the old focus and EvFocusInEvent to the new one.
    void updateFocus(UiWidget* widget);
    // With notify, moves the pointer focus frame from the old widget to the new.
    void updatePointer(UiWidget* widget, bool notify);
    // Forgets a widget that is going away, without events.
    void forget(UiWidget* widget);

private:
    friend class LkSingleton<UiFocusPointer>;
    UiFocusPointer() = default;
    UiWidget* _focus = nullptr;
    UiWidget* _pointer = nullptr;
};

} // namespace Zr
