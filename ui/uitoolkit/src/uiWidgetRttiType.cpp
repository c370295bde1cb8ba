// Registration of the widget types, bases first, and their removal in the reverse order, so
// that no type outlives the type it derives from.
#include "uiWidgetRttiType.h"

namespace Zr {

void UiWidgetTypes::registerTypes() {
    Widget::registerType("UiWidget");
    Container::registerType("UiContainer");
    Window::registerType("UiWindow");
    DualState::registerType("UiDualState");
    Range::registerType("UiRange");
    TextField::registerType("UiTextField");
    ValueEditor::registerType("UiValueEditor");
    PopupMenu::registerType("UiPopupMenu");
}

void UiWidgetTypes::deregisterTypes() {
    PopupMenu::deregisterType();
    ValueEditor::deregisterType();
    TextField::deregisterType();
    Range::deregisterType();
    DualState::deregisterType();
    Window::deregisterType();
    Container::deregisterType();
    Widget::deregisterType();
}

} // namespace Zr
