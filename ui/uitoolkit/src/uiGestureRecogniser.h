// UiGestureRecogniser: watches a widget's events and says when a sequence of them forms a
// gesture. UiGestureDrag recognises a press followed by a move that turns into a drag;
// UiGestureDrop the release that ends one.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiGestureRecogniser : public CbHandler<EvEvent> {
public:
    ~UiGestureRecogniser() override = default;
    // Looks at one event; a subclass calls setGestureRecognised when its gesture completes.
    void call(EvEvent&) override {}
    // Forgets a recognised gesture, so that the next one can be seen.
    virtual void reset() { _recognised = false; }
    // A fresh recogniser of the same kind and settings.
    virtual OPtr<UiGestureRecogniser> createSimilar() const {
        return std::make_unique<UiGestureRecogniser>();
    }
    bool isRecognised() const { return _recognised; }
    // Feeds the event and returns whether the gesture is now recognised.
    bool feed(EvEvent& event) {
        call(event);
        return _recognised;
    }

protected:
    void setGestureRecognised() { _recognised = true; }

private:
    bool _recognised = false;
};

// A press of `button` (with `modifier` held, unless it is None) followed by a move of the held
// pointer by more than `threshold` pixels along x or y from where the press was. With a
// threshold of 0 the press itself is the gesture.
class UiGestureDrag : public UiGestureRecogniser {
public:
    static constexpr int DefaultThreshold = 5;

    explicit UiGestureDrag(EvPointerState::ButtonID button = EvPointerState::Left,
                           EvKeyboardState::KeyModifierID modifier = EvKeyboardState::None,
                           int threshold = DefaultThreshold)
        : _button(button), _modifier(modifier), _threshold(threshold) {}

    void call(EvEvent& event) override;
    // Also forgets the press: a new drag needs a new press.
    void reset() override;
    OPtr<UiGestureRecogniser> createSimilar() const override;

    EvPointerState::ButtonID getButton() const { return _button; }
    void setButton(EvPointerState::ButtonID button) { _button = button; }
    EvKeyboardState::KeyModifierID getModifier() const { return _modifier; }
    void setModifier(EvKeyboardState::KeyModifierID modifier) { _modifier = modifier; }
    int getThreshold() const { return _threshold; }
    // A negative threshold counts as 0.
    void setThreshold(int pixels) { _threshold = pixels < 0 ? 0 : pixels; }
    // Whether a press is being watched, and where it was, in window coordinates.
    bool isPressed() const { return _pressed; }
    GePoint2<int> getStart() const { return {_startX, _startY}; }

private:
    // The button, and the modifier if one is asked for, are held in this event's states.
    bool isHeld(EvPointerEvent const& event) const;

    EvPointerState::ButtonID _button;
    EvKeyboardState::KeyModifierID _modifier;
    int _threshold;
    int _startX = 0;
    int _startY = 0;
    bool _pressed = false;
};

// The end of a held drag: a button release.
class UiGestureDrop : public UiGestureRecogniser {
public:
    void call(EvEvent& event) override;
    OPtr<UiGestureRecogniser> createSimilar() const override;
};

} // namespace Zr
