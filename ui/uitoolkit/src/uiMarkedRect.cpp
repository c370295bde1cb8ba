// Damage bookkeeping across the two buffers of a window: marking, the update transition after
// a draw, and the dump of the states.
#include "uiMarkedRect.h"

#include <algorithm>
#include <ostream>

namespace Zr {

namespace {

char const* stateLetters(int state) {
    switch (state) {
    case UiMarkedRect::InvalidBoth:
        return "II ";
    case UiMarkedRect::DrawnOnce:
        return "IV ";
    case UiMarkedRect::InsideDrawnOnce:
        return "DI ";
    case UiMarkedRect::ValidBoth:
        return "VV ";
    default:
        return "?? ";
    }
}

char const* const InvalidTransition = "Invalid state transition.";

} // namespace

void UiMarkedRect::dump(std::ostream& os) const {
    os << stateLetters(_state) << _rect;
}

void UiMarkedRectList::mark(GeRectangle<int> const& rect) {
    if (rect.isEmpty())
        return;

    // An entry that still has to be drawn in both buffers covers the new one completely. One
    // drawn once covers it in the buffer just drawn: the new one then only needs the other.
    int newState = UiMarkedRect::InvalidBoth;
    for (UiMarkedRect const& entry : *this) {
        if (!entry.getRect().contains(rect))
            continue;
        if (entry.getState() == UiMarkedRect::InvalidBoth)
            return;
        if (entry.getState() == UiMarkedRect::DrawnOnce && !(entry.getRect() == rect))
            newState = UiMarkedRect::InsideDrawnOnce;
    }

    std::erase_if(*this, [&rect](UiMarkedRect const& e) { return rect.contains(e.getRect()); });
    emplace_back(rect, newState);
}

void UiMarkedRectList::updateTransition() {
    for (auto it = rbegin(); it != rend(); ++it) {
        switch (it->getState()) {
        case UiMarkedRect::InvalidBoth:
        case UiMarkedRect::InsideDrawnOnce:
            it->setState(UiMarkedRect::DrawnOnce);
            break;
        case UiMarkedRect::DrawnOnce:
            it->setState(UiMarkedRect::ValidBoth);
            break;
        default:
            throw UiMarkedRectEx::ExUpdateTransition(__FILE__, __LINE__, InvalidTransition);
        }
    }
    std::erase_if(*this,
                  [](UiMarkedRect const& e) { return e.getState() == UiMarkedRect::ValidBoth; });
}

void UiMarkedRectList::dump(std::ostream& os) const {
    for (UiMarkedRect const& entry : *this) {
        entry.dump(os);
        os << "\n";
    }
}

} // namespace Zr
