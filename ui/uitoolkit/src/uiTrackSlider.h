// UiTrackSlider: the toolkit's ready-made slider: a sunken groove, the part up to the value
// filled in blue, and the standard bar handle. Horizontal unless its "Orientation" resource
// says "vertical". While the user drags it reports each new value to the value-changed
// callbacks, bracketed by the pre-edit and post-edit callbacks.
#pragma once

#include "uiSlider.h"

namespace Zr {

class UiTrackSlider : public UiSlider {
public:
    static RCShdPtr<UiTrackSlider> create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table = nullptr);

protected:
    UiTrackSlider(UiContainer* parent, LiString const& name);
    ~UiTrackSlider() override;

    // As a slider's, but "Orientation" "horizontal".
    void setDefaultResources(UiResSet& set) override;
    void updateValue() override;
    void startInteraction() override;
    void endInteraction() override;
    void drawTrack() override;
    void drawHandle(UiSliderHandle const& handle) override;
    // The canvas less room for half a handle at each end, so the handle shows whole.
    std::pair<int, int> travel() const override;

private:
    bool _dragging = false;
};

} // namespace Zr
