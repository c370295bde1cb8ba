// The drag-and-drop object every widget carries, and the hook through which a drag starts.
#include "uiDragAndDrop.h"

#include "uiWidget.h"

namespace Zr {

bool UiDragAndDrop::_pickAndStickActive = false;

namespace {
UiDragAndDrop::TransporterStarter& transporterStarter() {
    static UiDragAndDrop::TransporterStarter starter;
    return starter;
}
} // namespace

RCShdPtr<UiDragAndDrop> UiDragAndDrop::create() {
    return RCShdPtr<UiDragAndDrop>(new UiDragAndDrop());
}

bool UiDragAndDrop::willDrag(EvEvent&, RCShdPtr<UiWidget> const&) {
    return false;
}

void UiDragAndDrop::setTransporterStarter(TransporterStarter starter) {
    transporterStarter() = std::move(starter);
}

void UiDragAndDrop::startTransporter(UiWidget& widget, EvEvent& event, UiWidget& carrier,
                                     bool pickAndStick) {
    if (auto const& starter = transporterStarter())
        starter(widget, event, carrier, pickAndStick);
}

} // namespace Zr
