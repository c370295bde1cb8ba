// UiSlider: the handle's geometry and its standard look, the orientation resource, and the
// press, drag and release that set the value from the pointer.
#include "uiSlider.h"

#include "uiGrab.h"
#include "uiResFrame.h"
#include "uiResSet.h"
#include "uiResText.h"

#include "smGl.h"

#include <algorithm>
#include <cmath>

namespace Zr {

// The handlers bound to the slider.
class UiSliderImp : public RCObject {
public:
    explicit UiSliderImp(UiSlider* owner)
        : arm(owner, &UiSlider::onArm), disarm(owner, &UiSlider::onDisarm),
          userDraw(owner, &UiSlider::onUserDraw), mmove(owner, &UiSlider::onMmove) {}

    CbMethod<UiSlider, EvEvent> arm;
    CbMethod<UiSlider, EvEvent> disarm;
    CbMethod<UiSlider, EvEvent> userDraw;
    CbMethod<UiSlider, EvEvent> mmove;
    bool interacting = false;
};

namespace {
// Pixels left free at each side of the cross interval for the handle's box.
constexpr int CrossInset = 5;
} // namespace

SliderOrientation sliderOrientFromString(std::string const& text) {
    return text == "HORIZONTAL_SLIDER" ? HORIZONTAL_SLIDER : VERTICAL_SLIDER;
}

std::vector<std::pair<int, int>> cellDivide(std::pair<int, int> interval, int count, int gap) {
    std::vector<std::pair<int, int>> cells;
    if (count < 1)
        return cells;
    auto const [lo, hi] = interval;
    int const room = hi - count * gap - (gap + lo);
    int const cell = room / count;
    int start = (room - count * cell) / 2 + gap + lo;
    for (int i = 0; i < count; ++i) {
        cells.emplace_back(start, std::max(start, start + cell));
        start += gap + cell;
    }
    return cells;
}

// --- the handle ----------------------------------------------------------------------------

void UiSliderHandle::vertex(int along, int across) const {
    if (orientation == HORIZONTAL_SLIDER)
        SmGl::vertex2i(along, across);
    else
        SmGl::vertex2i(across, along);
}

void UiSliderHandle::drawGrip(CoRgbColor const& color) const {
    if (shape != 0)
        return;
    SmGl::color3fv(color.data());
    int const p = position;
    if (orientation == HORIZONTAL_SLIDER)
        SmGl::recti(p - 2, crossStart + 1, p + 3, crossEnd);
    else
        SmGl::recti(crossStart + 1, p - 2, crossEnd, p + 3);
}

void UiSliderHandle::drawOutline(CoRgbColor const& color) const {
    SmGl::color3fv(color.data());
    int const p = position;
    int const h = (crossEnd - crossStart) / 2;
    int const c0 = crossStart;
    int const c1 = crossEnd;
    if (shape == 0) {
        SmGl::begin(Gl::LINES);
        vertex(p, spanStart);
        vertex(p, spanEnd + 1);
        SmGl::end();
        SmGl::begin(Gl::LINE_LOOP);
        vertex(p - 3, c0);
        vertex(p + 3, c0);
        vertex(p + 3, c1);
        vertex(p - 3, c1);
        SmGl::end();
        return;
    }
    // An arrow head: its tip at the position, its back h pixels behind it.
    int const back = shape == 1 ? p + h : p - h;
    int const edge = shape == 1 ? p + h + 1 : p - h - 1;
    int const corners[6][2] = {{edge, c0},  {back, c0}, {p, c0 + h},
                               {p, c1 - h}, {back, c1}, {edge, c1}};
    SmGl::begin(Gl::LINE_LOOP);
    // Horizontal sliders run the same loop from the other side.
    for (int i = 0; i < 6; ++i) {
        int const k = orientation == HORIZONTAL_SLIDER ? 5 - i : i;
        vertex(corners[k][0], corners[k][1]);
    }
    SmGl::end();
}

void UiSliderHandle::drawShadow(CoRgbColor const& color) const {
    SmGl::color3fv(color.data());
    int const p = position;
    int const h = (crossEnd - crossStart) / 2;
    int const c0 = crossStart;
    int const c1 = crossEnd;
    bool const horizontal = orientation == HORIZONTAL_SLIDER;
    if (shape == 0) {
        int const line = horizontal ? p + 1 : p - 1;
        SmGl::begin(Gl::LINES);
        vertex(line, spanStart);
        vertex(line, spanEnd + 1);
        SmGl::end();
    }
    std::vector<std::pair<int, int>> strip;
    if (shape == 0 && horizontal)
        strip = {{p + 4, c1 - 1}, {p + 4, c0 - 1}, {p - 3, c0 - 1}};
    else if (shape == 0)
        strip = {{p - 4, c0 + 1}, {p - 4, c1 + 1}, {p + 3, c1 + 1}};
    else if (horizontal && shape == 1)
        strip = {{p + h + 2, c1 - 1}, {p + h + 2, c0 - 1}, {p + h, c0 - 1}};
    else if (horizontal)
        strip = {{p - h, c0 - 1}, {p - h - 1, c0 - 1}, {p - 1, c0 + h - 1}, {p - 1, c1 - h - 1}};
    else if (shape == 1)
        strip = {
            {p - 1, c0 + h + 1}, {p - 1, c1 - h + 1}, {p + h - 1, c1 + 1}, {p + h + 1, c1 + 1}};
    else
        strip = {{p - h - 1, c1 + 1}, {p - h - 2, c1 + 1}, {p - h - 2, c0}};
    SmGl::begin(Gl::LINE_STRIP);
    for (auto const& [along, across] : strip)
        vertex(along, across);
    SmGl::end();
}

// --- the slider ----------------------------------------------------------------------------

UiSlider::UiSlider(UiContainer* parent, LiString const& name)
    : UiRange(parent, name), _sliderImp(new UiSliderImp(this)) {
    addArmCb(&_sliderImp->arm);
    addDisarmCb(&_sliderImp->disarm);
    addUserDrawCb(&_sliderImp->userDraw);
    addMmoveCb(&_sliderImp->mmove);
}

UiSlider::~UiSlider() = default;

void UiSlider::setDefaultResources(UiResSet& set) {
    UiRange::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "Line")));
    set.set(RCShdPtr<UiResource>(new UiResText("Orientation", "vertical")));
}

void UiSlider::setResource(RCShdPtr<UiResource> const& resource) {
    if (resource && resource->getNameRef() == "Orientation") {
        auto const* text = dynamic_cast<UiResText const*>(resource.get());
        if (!text || text->getNbStrings() != 1)
            return;
        std::string const value = text->getString(0);
        if (value == "horizontal")
            _handle.orientation = HORIZONTAL_SLIDER;
        else if (value == "vertical")
            _handle.orientation = VERTICAL_SLIDER;
        else
            return;
        computeExtents();
        computePosition();
        markForUpdate();
        return;
    }
    UiRange::setResource(resource);
}

void UiSlider::setOrientation(int orientation) {
    _handle.orientation = orientation == 1 ? HORIZONTAL_SLIDER : VERTICAL_SLIDER;
    computeExtents();
    computePosition();
    markForUpdate();
}

std::pair<int, int> UiSlider::travel() const {
    GeRectangle<int> const canvas = getCanvas();
    return _handle.orientation == HORIZONTAL_SLIDER ? std::pair(canvas.x1, canvas.x2)
                                                    : std::pair(canvas.y1, canvas.y2);
}

void UiSlider::computeExtents() {
    GeRectangle<int> const canvas = getCanvas();
    std::pair<int, int> const cross = _handle.orientation == HORIZONTAL_SLIDER
                                          ? std::pair(canvas.y1, canvas.y2)
                                          : std::pair(canvas.x1, canvas.x2);
    std::pair<int, int> const inner = cellDivide(cross, 1, CrossInset).front();
    _handle.spanStart = cross.first;
    _handle.spanEnd = cross.second;
    _handle.crossStart = inner.first;
    _handle.crossEnd = inner.second;
}

void UiSlider::computePosition() {
    auto const [lo, hi] = travel();
    _handle.position = static_cast<int>(std::trunc(lo + getRelativeValue() * (hi - lo)));
    _handle.shape = 0;
}

void UiSlider::adjustCoords() {
    UiRange::adjustCoords();
    computeExtents();
    computePosition();
}

void UiSlider::updateValue() {
    computePosition();
    markForUpdate();
}

void UiSlider::updateRange() {
    computePosition();
    markForUpdate();
}

// --- pointer -------------------------------------------------------------------------------

void UiSlider::valueFromPointer(EvEvent const& event) {
    auto const* device = evCast<EvPointerEvent>(event);
    if (!device)
        return;
    auto const [lo, hi] = travel();
    // The pointer in the coordinates of the parent's canvas, where the canvas lies.
    GePoint2<int> const at = device->getCoord();
    int const pointer = _handle.orientation == HORIZONTAL_SLIDER ? at.x : at.y;
    int const p = std::clamp(pointer, lo, std::max(lo, hi));
    float const relative = hi > lo ? static_cast<float>(p - lo) / static_cast<float>(hi - lo) : 0.f;
    setRelativeValue(relative, false);
    computePosition();
}

void UiSlider::onArm(EvEvent& event) {
    if (isLocked())
        return;
    UiGrab::pointer().grab(getEventHandler());
    _sliderImp->interacting = true;
    startInteraction();
    valueFromPointer(event);
    markForUpdate();
}

void UiSlider::onMmove(EvEvent& event) {
    if (!_sliderImp->interacting)
        return;
    // A new value marks the slider through updateValue; a stream of moves that leave the value
    // where it is stays silent and draws nothing.
    valueFromPointer(event);
}

void UiSlider::onDisarm(EvEvent& event) {
    if (!_sliderImp->interacting)
        return;
    valueFromPointer(event);
    _sliderImp->interacting = false;
    endInteraction();
    markForUpdate();
    UiGrab::pointer().release(getEventHandler());
}

void UiSlider::onUserDraw(EvEvent&) {
    drawTrack();
    drawHandle(_handle);
}

} // namespace Zr
