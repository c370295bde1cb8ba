// UiMotionHandler: turns pointer travel into a new value for a widget being dragged.
// UiLinearMotionHandler follows the horizontal travel; UiCircularMotionHandler follows the
// pointer circling around the point where the drag began, so a value can keep changing without
// the pointer leaving the screen.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiWidget;

class UiMotionHandler {
public:
    virtual ~UiMotionHandler() = default;

    // The horizontal travel from `start` (both in window coordinates, getWCoord) times the
    // factor the held modifiers choose: Control 10, Control+Shift 100, Alt 0.1, Alt+Shift 0.01.
    virtual double computeMagnitudeOfMotion(EvPointerEvent& event, GePoint2<int> const& start,
                                            RCShdPtr<UiWidget> widget, double scale);
    virtual double computeNewValue(EvPointerEvent& event, double currentValue, double magnitude,
                                   double step, RCShdPtr<UiWidget> widget) = 0;

    // The speed factor of the modifier bits of a keyboard state.
    static double modifierFactor(unsigned modifiers);
    // A result within 1e-14 of zero is zero, so that a drag through zero lands on it.
    static double snapToZero(double value);
};

class UiLinearMotionHandler : public UiMotionHandler {
public:
    // currentValue + magnitude * step, snapped to zero.
    double computeNewValue(EvPointerEvent& event, double currentValue, double magnitude,
                           double step, RCShdPtr<UiWidget> widget) override;
};

class UiCircularMotionHandler : public UiMotionHandler {
public:
    UiCircularMotionHandler() = default;

    // The distance from `start`, rounded up, times the modifier factor; the direction of the
    // pointer from `start` becomes the present direction (unchanged while it stands on it).
    double computeMagnitudeOfMotion(EvPointerEvent& event, GePoint2<int> const& start,
                                    RCShdPtr<UiWidget> widget, double scale) override;
    // Moves the value by the magnitude in the present sense of rotation. The sense follows the
    // pointer: three turning steps one way set it, a jump across the centre reverses it.
    double computeNewValue(EvPointerEvent& event, double currentValue, double magnitude,
                           double step, RCShdPtr<UiWidget> widget) override;

private:
    double _presentX = 0.0;
    double _presentY = 0.0;
    double _previousX = 0.0;
    double _previousY = 0.0;
    bool _hasPrevious = false;
    int _rotation = 1;
    int _turnCount = 0;
};

} // namespace Zr
