// Damage bookkeeping across the two buffers of a window: each marked rectangle carries a state
// saying in which buffers it is still to be drawn.
#pragma once

#include "zrBase.h"

#include <vector>

namespace Zr {

struct UiMarkedRectEx {
    ZR_DECLARE_EXCEPTION(ExUpdateTransition, ExBase);
    ZR_DECLARE_EXCEPTION(ExSwapTransition, ExBase);
};

class UiMarkedRect {
public:
    enum State : int {
        InvalidBoth = 0,     // "II ": to draw in both buffers
        DrawnOnce = 1,       // "IV ": drawn once, the other buffer is yet to be drawn
        InsideDrawnOnce = 2, // "DI ": inside a rectangle drawn once: skip now, draw once later
        ValidBoth = 3        // "VV ": valid in both buffers; removed
    };
    UiMarkedRect() = default;
    UiMarkedRect(GeRectangle<int> const& r, int state) : _state(state), _rect(r) {}
    int getState() const { return _state; }
    void setState(int s) { _state = s; }
    GeRectangle<int> const& getRect() const { return _rect; }
    void dump(std::ostream& os) const;

private:
    int _state = InvalidBoth;
    GeRectangle<int> _rect;
};

// The marks of one widget, in the order they were made: a vector of UiMarkedRect with the
// two operations that keep it minimal across the two buffers.
class UiMarkedRectList : public std::vector<UiMarkedRect> {
public:
    // Adds a rectangle to be drawn; entries it contains go, and one that contains it absorbs it.
    void mark(GeRectangle<int> const& rect);
    // After a draw: 0 and 2 become 1, 1 becomes 3 and leaves; anything else throws.
    void updateTransition();
    void dump(std::ostream& os) const;
};

} // namespace Zr
