// WidgetRttiType: the family of the widgets' run-time types; the registry that holds them; and
// UiWidgetTypes, the record of each widget class that has a type of its own, with the start-up
// and exit steps that fill and empty the registry.
#pragma once

#include "rttiTypeRegistry.h"

namespace Zr {

class UiContainer;
class UiDualState;
class UiPopupMenu;
class UiRange;
class UiTextField;
class UiValueEditor;
class UiWidget;
class UiWindow;

// The tag of the widget types: getNodeType answers with an RttiType<WidgetRttiType>.
struct WidgetRttiType {};

using UiWidgetTypeRegistry = RttiTypeRegistryImp<WidgetRttiType>;

// A class without an entry here answers getNodeType with the type of its nearest base that has
// one (a toggle button is a UiDualState). A client asks whether a widget is of a kind with
// `widget.getNodeType().isA(UiWidgetTypes::DualState::getType())`.
struct UiWidgetTypes {
    using Widget = RttiGenType0<UiWidget, WidgetRttiType>;
    using Container = RttiGenType1<UiContainer, Widget, WidgetRttiType>;
    using Window = RttiGenType1<UiWindow, Container, WidgetRttiType>;
    using DualState = RttiGenType1<UiDualState, Widget, WidgetRttiType>;
    using Range = RttiGenType1<UiRange, Widget, WidgetRttiType>;
    using TextField = RttiGenType1<UiTextField, Widget, WidgetRttiType>;
    using ValueEditor = RttiGenType1<UiValueEditor, Range, WidgetRttiType>;
    using PopupMenu = RttiGenType1<UiPopupMenu, Widget, WidgetRttiType>;

    // The toolkit's start-up registers the types, each under its class name, bases first; its
    // exit deregisters them in reverse, which leaves the registry empty.
    static void registerTypes();
    static void deregisterTypes();
};

} // namespace Zr
