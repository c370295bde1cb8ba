// UiFocusPointer: which widget is under the pointer and which has the pointer focus.
#include "uiFocusPointer.h"

#include "lkSingleton.h"
#include "uiWidget.h"

namespace Zr {

UiFocusPointer& UiFocusPointer::getInstance() {
    return LkSingleton<UiFocusPointer>::getInstance();
}

void UiFocusPointer::updateFocus(UiWidget* widget) {
    if (_focus == widget)
        return;
    if (UiWidget* old = _focus) {
        EvFocusOutEvent out;
        out.setDeviceType(1);
        old->processEvent(out);
    }
    _focus = widget;
    if (widget) {
        EvFocusInEvent in;
        in.setDeviceType(1);
        widget->processEvent(in);
    }
}

void UiFocusPointer::updatePointer(UiWidget* widget, bool notify) {
    if (_pointer == widget)
        return;
    if (notify && _pointer)
        _pointer->setPointerFocus(false);
    _pointer = widget;
    if (notify && widget)
        widget->setPointerFocus(true);
}

void UiFocusPointer::forget(UiWidget* widget) {
    if (_focus == widget)
        _focus = nullptr;
    if (_pointer == widget)
        _pointer = nullptr;
}

} // namespace Zr
