// UiGestureRecogniser: watches a widget's events and says when a sequence of them forms a
// gesture, such as a press followed by a move that turns into a drag.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiGestureRecogniser : public CbHandler<EvEvent> {
public:
    ~UiGestureRecogniser() override = default;
    // Looks at one event; a subclass calls setGestureRecognised when its gesture completes.
    void call(EvEvent&) override {}
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

} // namespace Zr
