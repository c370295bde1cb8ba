// UiTrackSlider: the groove, the filled part and the handle, and the reports of a drag.
#include "uiTrackSlider.h"

#include "uiColorRegistry.h"
#include "uiResSet.h"
#include "uiResText.h"

#include "smContext.h"
#include "smGl.h"

namespace Zr {

namespace {

// Half the handle's box and its shadow: the handle stands this far inside the canvas at the
// ends of its travel.
constexpr int EndRoom = 5;
// The groove's half width across the slider.
constexpr int GrooveHalf = 2;

struct TrackShades {
    CoRgbColor groove, grooveLight, fill, fillLight, shadow, grip, gripActive, outline;
};

TrackShades const& shades() {
    static TrackShades const s = [] {
        UiColorRegistry const& colors = UiColorRegistry::getInstance();
        return TrackShades{colors.getColor("Grey35"),  colors.getColor("Grey100"),
                           colors.getColor("Blue1"),   colors.getColor("Cyan1"),
                           colors.getColor("Grey25"),  colors.getColor("Grey145"),
                           colors.getColor("Grey190"), colors.getColor("Grey200")};
    }();
    return s;
}

} // namespace

RCShdPtr<UiTrackSlider> UiTrackSlider::create(UiContainer* parent, LiString const& name,
                                              UiResTable const* table) {
    RCShdPtr<UiTrackSlider> widget(new UiTrackSlider(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiTrackSlider::UiTrackSlider(UiContainer* parent, LiString const& name) : UiSlider(parent, name) {
    // No key moves it, so Tab passes it by.
    setKeyboardFocusable(false);
}

UiTrackSlider::~UiTrackSlider() = default;

void UiTrackSlider::setDefaultResources(UiResSet& set) {
    UiSlider::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResText("Orientation", "horizontal")));
}

std::pair<int, int> UiTrackSlider::travel() const {
    auto const [lo, hi] = UiSlider::travel();
    return hi - lo > 2 * EndRoom ? std::pair(lo + EndRoom, hi - EndRoom - 1)
                                 : std::pair((lo + hi) / 2, (lo + hi) / 2);
}

void UiTrackSlider::updateValue() {
    UiSlider::updateValue();
    if (_dragging)
        fireValueChanged();
}

void UiTrackSlider::startInteraction() {
    _dragging = true;
    callPreEditCb();
}

void UiTrackSlider::endInteraction() {
    _dragging = false;
    callPostEditCb();
}

void UiTrackSlider::drawTrack() {
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    UiSliderHandle const& handle = getHandle();
    bool const horizontal = handle.orientation == HORIZONTAL_SLIDER;
    auto const [lo, hi] = travel();
    int const middle = (handle.spanStart + handle.spanEnd) / 2;
    // A rectangle given along and across the slider.
    auto rect = [horizontal](int a0, int c0, int a1, int c1) {
        if (horizontal)
            SmGl::recti(a0, c0, a1, c1);
        else
            SmGl::recti(c0, a0, c1, a1);
    };
    SmGl::color3fv(shades().grooveLight.data());
    rect(lo - 1, middle - GrooveHalf - 1, hi + 2, middle + GrooveHalf + 1);
    SmGl::color3fv(shades().groove.data());
    rect(lo - 1, middle - GrooveHalf, hi + 1, middle + GrooveHalf + 1);
    // The filled part runs from the minimum's end: left, or bottom.
    SmGl::color3fv(shades().fill.data());
    rect(lo, middle - GrooveHalf, handle.position, middle + GrooveHalf);
    SmGl::color3fv(shades().fillLight.data());
    rect(lo, middle + GrooveHalf - 1, handle.position, middle + GrooveHalf);
}

void UiTrackSlider::drawHandle(UiSliderHandle const& handle) {
    handle.drawShadow(shades().shadow);
    handle.drawGrip(_dragging ? shades().gripActive : shades().grip);
    handle.drawOutline(shades().outline);
}

} // namespace Zr
