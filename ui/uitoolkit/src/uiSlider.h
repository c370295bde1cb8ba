// UiSlider: the abstract range that the pointer sets by pressing and dragging along its canvas,
// and UiSliderHandle, the geometry and the standard look of its handle. A subclass paints the
// track and the handle.
#pragma once

#include "uiRange.h"

#include <utility>
#include <vector>

namespace Zr {

class UiSliderImp;

enum SliderOrientation { VERTICAL_SLIDER = 0, HORIZONTAL_SLIDER = 1 };

// "HORIZONTAL_SLIDER" gives HORIZONTAL_SLIDER; anything else VERTICAL_SLIDER.
SliderOrientation sliderOrientFromString(std::string const& text);

// Splits [lo, hi] into `count` equal cells with `gap` pixels between them and at both ends;
// each cell is (start, end). A count below 1 gives none.
std::vector<std::pair<int, int>> cellDivide(std::pair<int, int> interval, int count, int gap);

// Where the handle stands, in the coordinates of the slider's parent canvas: the span is the
// whole cross interval of the canvas, the cross interval the same less 5 pixels at each side.
// Shape 0 is a bar, 1 and 2 arrow heads pointing one way or the other.
class UiSliderHandle : public RCObject {
public:
    UiSliderHandle() = default;
    UiSliderHandle(UiSliderHandle const&) = default;
    UiSliderHandle& operator=(UiSliderHandle const&) = default;
    ~UiSliderHandle() override = default;

    // The filled middle of a bar (shape 0 only).
    void drawGrip(CoRgbColor const& color) const;
    void drawOutline(CoRgbColor const& color) const;
    // The dark edge that lifts the handle off the track.
    void drawShadow(CoRgbColor const& color) const;

    int spanStart = 0;
    int spanEnd = 0;
    int crossStart = 0;
    int crossEnd = 0;
    SliderOrientation orientation = HORIZONTAL_SLIDER;
    int position = 0;
    int shape = 3;

private:
    // A vertex given along and across the slider.
    void vertex(int along, int across) const;
};

class UiSlider : public UiRange {
public:
    int getOrientation() const { return _handle.orientation; }
    // 1 horizontal, 0 (or anything else) vertical; recomputes the handle and redraws.
    void setOrientation(int orientation);
    UiSliderHandle const& getHandle() const { return _handle; }

    void adjustCoords() override;

protected:
    UiSlider(UiContainer* parent, LiString const& name);
    ~UiSlider() override;

    // Frame "Default" "Line", "Orientation" "vertical".
    void setDefaultResources(UiResSet& set) override;
    // "Orientation": "horizontal" or "vertical"; any other text is ignored.
    void setResource(RCShdPtr<UiResource> const& resource) override;

    void updateValue() override;
    void updateRange() override;
    // Bracket the user's drag, from press to release; they do nothing here.
    virtual void startInteraction() {}
    virtual void endInteraction() {}
    // Called by the user-draw callback in this order.
    virtual void drawTrack() = 0;
    virtual void drawHandle(UiSliderHandle const& handle) = 0;

    // The interval the handle travels along: the canvas's x interval for horizontal, its y
    // interval for vertical. A subclass may keep the handle clear of the ends.
    virtual std::pair<int, int> travel() const;

private:
    friend class UiSliderImp;
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onUserDraw(EvEvent& event);
    void onMmove(EvEvent& event);
    void computeExtents();
    void computePosition();
    // Sets the value, silently, from where the pointer of `event` stands along the travel.
    void valueFromPointer(EvEvent const& event);

    RCShdPtr<UiSliderImp> _sliderImp;
    UiSliderHandle _handle;
};

} // namespace Zr
