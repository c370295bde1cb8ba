// The widget event family: the sender reference, and dumping and reading of the payloads.
#include "uiWidgetEvent.h"

#include "uiWidget.h"

#include <istream>
#include <ostream>

namespace Zr {

UiWidgetEvent::UiWidgetEvent(RCShdPtr<UiWidget> const& w) : _widget(w) {}
UiWidgetEvent::~UiWidgetEvent() = default;
UiWidgetEvent::UiWidgetEvent(UiWidgetEvent const&) = default;
UiWidgetEvent& UiWidgetEvent::operator=(UiWidgetEvent const&) = default;

void UiWidgetEvent::setWidget(RCShdPtr<UiWidget> const& w) {
    _widget = w;
}

void UiWidgetEvent::dump(std::ostream& os) const {
    EvEvent::dump(os);
    os << " widget " << (_widget ? _widget->getName().str() : std::string("-"));
}

void UiStateChanged::dump(std::ostream& os) const {
    UiWidgetEvent::dump(os);
    os << " state " << (_state ? 1 : 0);
}

// Reading takes the fields that follow the sender; the sender itself can't be read back.
void UiStateChanged::read(std::istream& is) {
    EvEvent::read(is);
    std::string key, widget;
    int state = 0;
    is >> key >> widget >> key >> state;
    _state = state != 0;
}

namespace {
void dumpRegion(std::ostream& os, GeRectangle<int> const& r) {
    os << " region " << r.x1 << " " << r.x2 << " " << r.y1 << " " << r.y2;
}
void readRegion(std::istream& is, GeRectangle<int>& r) {
    std::string key, widget;
    is >> key >> widget >> key >> r.x1 >> r.x2 >> r.y1 >> r.y2;
}
} // namespace

void UiRegionEvent::dump(std::ostream& os) const {
    UiWidgetEvent::dump(os);
    dumpRegion(os, _region);
}

void UiRegionEvent::read(std::istream& is) {
    EvEvent::read(is);
    readRegion(is, _region);
}

void UiValueChanged::dump(std::ostream& os) const {
    UiWidgetEvent::dump(os);
    os << " value " << _value;
}

void UiValueChanged::read(std::istream& is) {
    EvEvent::read(is);
    std::string key, widget;
    is >> key >> widget >> key >> _value;
}

} // namespace Zr
