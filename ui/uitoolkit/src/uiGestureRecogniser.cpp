// The drag and drop gesture recognisers: press-and-move past a threshold, and the release.
#include "uiGestureRecogniser.h"

#include <cstdlib>

namespace Zr {

bool UiGestureDrag::isHeld(EvPointerEvent const& event) const {
    if (!event.getPointerState().isEnabled(_button))
        return false;
    return _modifier == EvKeyboardState::None || event.getKeyboardState().isEnabled(_modifier);
}

void UiGestureDrag::call(EvEvent& event) {
    if (auto* down = evCast<EvPointerButtonDownEvent>(event)) {
        if (!isHeld(*down))
            return;
        if (_threshold <= 0) {
            setGestureRecognised();
            return;
        }
        // Window coordinates: they don't change when the event is rebased for a widget.
        GePoint2<int> p = down->getWCoord();
        _startX = p.x;
        _startY = p.y;
        _pressed = true;
        return;
    }
    if (auto* move = evCast<EvPointerMoveEvent>(event)) {
        if (!_pressed)
            return;
        if (!isHeld(*move)) {
            // The button went up somewhere we didn't see: this press is over.
            _pressed = false;
            return;
        }
        GePoint2<int> p = move->getWCoord();
        if (std::abs(p.x - _startX) > _threshold || std::abs(p.y - _startY) > _threshold) {
            _pressed = false;
            setGestureRecognised();
        }
        return;
    }
    if (evCast<EvPointerButtonUpEvent>(event))
        _pressed = false;
}

void UiGestureDrag::reset() {
    UiGestureRecogniser::reset();
    _pressed = false;
}

OPtr<UiGestureRecogniser> UiGestureDrag::createSimilar() const {
    return std::make_unique<UiGestureDrag>(_button, _modifier, _threshold);
}

void UiGestureDrop::call(EvEvent& event) {
    if (evCast<EvPointerButtonUpEvent>(event))
        setGestureRecognised();
}

OPtr<UiGestureRecogniser> UiGestureDrop::createSimilar() const {
    return std::make_unique<UiGestureDrop>();
}

} // namespace Zr
