// PiAnimInterface: the controller kind that creates, removes and hands out the animation
// curves of a node's inputs.
#pragma once

#include "piInput.h"
#include "tmTimeCurve.h"

namespace Zr {

class PiAnimInterface {
public:
    virtual ~PiAnimInterface() = default;

    // Animates the input if it is not yet: a curve (a TcTimeCurve) with one key at `time`
    // holding the input's value there. Returns the input's live curve, recorded in the open
    // undo scope (see PiInput::editCurve); null when the input is not animatable.
    virtual RCShdPtr<TmTimeCurve> createCurve(RCShdPtr<PiInput> const& input, double time) = 0;
    // Removes animation and expression, keeping the value at `time` as the static value.
    virtual void removeCurve(RCShdPtr<PiInput> const& input, double time) = 0;
    // A copy of the input's curve; null when it is not animated.
    virtual RCShdPtr<TmTimeCurve> getCurve(RCShdPtr<PiInput const> const& input) const = 0;
    // Sets a copy of `curve` on the input; null removes the animation.
    virtual void setCurve(RCShdPtr<PiInput> const& input, RCShdPtr<TmTimeCurve> const& curve) = 0;
    // True when a key can be set on the input at `time`.
    virtual bool canCreateKey(RCShdPtr<PiInput const> const& input, double time) const = 0;
};

} // namespace Zr
