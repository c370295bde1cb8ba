// The motion handlers: modifier factors, linear travel, and the turn counting of a circling
// pointer.
#include "uiMotionHandler.h"

#include "uiWidget.h"

#include <algorithm>
#include <cmath>

namespace Zr {

namespace {
constexpr double ZeroSnap = 1e-14;
constexpr double DegreesPerRadian = 57.29577951308232;
// Directions closer than this in both components count as the same: no turn is counted.
constexpr double SameDirection = 0.01;
// A turn larger than this between two events is the pointer jumping across the centre.
constexpr double JumpDegrees = 100.0;
} // namespace

double UiMotionHandler::modifierFactor(unsigned modifiers) {
    bool const shift = modifiers & EvKeyboardState::Shift;
    if (modifiers & EvKeyboardState::Control)
        return shift ? 100.0 : 10.0;
    if (modifiers & EvKeyboardState::Alt)
        return shift ? 0.01 : 0.1;
    return 1.0;
}

double UiMotionHandler::snapToZero(double value) {
    return std::fabs(value) <= ZeroSnap ? 0.0 : value;
}

double UiMotionHandler::computeMagnitudeOfMotion(EvPointerEvent& event, GePoint2<int> const& start,
                                                 RCShdPtr<UiWidget>, double) {
    return (event.getWCoord().x - start.x) * modifierFactor(event.getKeyboardState().getState());
}

double UiLinearMotionHandler::computeNewValue(EvPointerEvent&, double currentValue,
                                              double magnitude, double step, RCShdPtr<UiWidget>) {
    return snapToZero(currentValue + magnitude * step);
}

double UiCircularMotionHandler::computeMagnitudeOfMotion(EvPointerEvent& event,
                                                         GePoint2<int> const& start,
                                                         RCShdPtr<UiWidget>, double) {
    double const dx = event.getWCoord().x - start.x;
    double const dy = event.getWCoord().y - start.y;
    double const length = std::ceil(std::sqrt(dx * dx + dy * dy));
    // On the starting point there is no direction; the last one stays.
    if (length > 0.0) {
        _presentX = dx / length;
        _presentY = dy / length;
    }
    return length * modifierFactor(event.getKeyboardState().getState());
}

double UiCircularMotionHandler::computeNewValue(EvPointerEvent&, double currentValue,
                                                double magnitude, double step, RCShdPtr<UiWidget>) {
    double value = currentValue;
    if (_hasPrevious) {
        if (std::fabs(_presentX - _previousX) <= SameDirection &&
            std::fabs(_presentY - _previousY) <= SameDirection) {
            value = currentValue + _rotation * magnitude * step;
        } else {
            double const dot =
                std::clamp(_presentX * _previousX + _presentY * _previousY, -1.0, 1.0);
            if (std::acos(dot) * DegreesPerRadian > JumpDegrees) {
                _rotation = -_rotation;
                _turnCount = -_turnCount;
            } else {
                // The sign of the cross product tells the sense of the turn; it has no seam
                // where the angle wraps.
                bool const positive = _previousY * _presentX - _previousX * _presentY > 0.0;
                bool moved = true;
                if (positive) {
                    moved = _turnCount >= 0;
                    _turnCount = moved ? _turnCount + 1 : 0;
                } else {
                    moved = _turnCount <= 0;
                    _turnCount = moved ? _turnCount - 1 : 0;
                }
                if (moved && _turnCount < -2)
                    _rotation = -1;
                else if (moved && _turnCount >= 3)
                    _rotation = 1;
                value = currentValue + _rotation * magnitude * step;
            }
        }
    }
    _previousX = _presentX;
    _previousY = _presentY;
    _hasPrevious = true;
    return snapToZero(value);
}

} // namespace Zr
