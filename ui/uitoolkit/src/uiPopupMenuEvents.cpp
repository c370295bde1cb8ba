// The popup menu events: construction and copies.
#include "uiPopupMenuEvents.h"

#include "uiRow.h"

namespace Zr {

UiRowSelectedEvent::UiRowSelectedEvent(RCShdPtr<UiRow> const& row, GePoint2<int> const& coord)
    : _row(row), _coord(coord) {}
UiRowSelectedEvent::~UiRowSelectedEvent() = default;
UiRowSelectedEvent::UiRowSelectedEvent(UiRowSelectedEvent const&) = default;
UiRowSelectedEvent& UiRowSelectedEvent::operator=(UiRowSelectedEvent const&) = default;

int UiRowSelectedEvent::getId() const {
    return _row ? _row->getId() : -1;
}

UiPopulateReturnEvent::UiPopulateReturnEvent() = default;
UiPopulateReturnEvent::~UiPopulateReturnEvent() = default;
UiPopulateReturnEvent::UiPopulateReturnEvent(UiPopulateReturnEvent const&) = default;
UiPopulateReturnEvent& UiPopulateReturnEvent::operator=(UiPopulateReturnEvent const&) = default;

} // namespace Zr
