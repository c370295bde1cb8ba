// Frames: the decorator base that forwards to the frame it wraps, the border decorator that
// draws the focus outline, and the registry of shared frame instances with the standard set.
#include "uiFrame.h"

#include "lkSingleton.h"
#include "smGl.h"
#include "uiFrameBevel.h"
#include "uiFrameLine.h"
#include "uiFrameTab.h"
#include "uiResourceEx.h"

namespace Zr {

RCShdPtr<UiFrame> UiFrame::decorate(RCShdPtr<UiFrame> const&) {
    return nullptr;
}

void UiFrameDecorator::draw(GeRectangle<int> const& rect, CoRgbColor const& background,
                            CoRgbColor const& dark) {
    _inner->draw(rect, background, dark);
}

GeRectangle<int> UiFrameDecorator::getCanvas(GeRectangle<int> const& rect) const {
    ZR_ASSERT(!_inner.isNull());
    return _inner->getCanvas(rect);
}

int UiFrameDecorator::getXOffset() const {
    return _inner->getXOffset();
}

int UiFrameDecorator::getYOffset() const {
    return _inner->getYOffset();
}

RCShdPtr<UiFrame> UiFrameDecorator::decorate(RCShdPtr<UiFrame> const& inner) {
    _inner = inner;
    return RCShdPtr<UiFrame>(this);
}

void UiFrameBorderDecorator::draw(GeRectangle<int> const& rect, CoRgbColor const& background,
                                  CoRgbColor const& dark) {
    UiFrameDecorator::draw(rect, background, dark);
    drawBorder(rect);
}

GeRectangle<int> UiFrameBorderDecorator::getCanvas(GeRectangle<int> const& rect) const {
    if (rect.width() > 2 && rect.height() > 2)
        return GeRectangleUtil::addBorder(rect, -1);
    return rect;
}

void UiFrameBorderDecorator::drawBorder(GeRectangle<int> const& r) const {
    // One-pixel outline with its corners cut, so it sits inside the chamfered frames.
    SmGl::color3fv(_borderColor.data());
    SmGl::begin(Gl::LINE_LOOP);
    SmGl::vertex2i(r.x1 + 3, r.y1 + 1);
    SmGl::vertex2i(r.x2 - 3, r.y1 + 1);
    SmGl::vertex2i(r.x2 - 1, r.y1 + 3);
    SmGl::vertex2i(r.x2 - 1, r.y2 - 3);
    SmGl::vertex2i(r.x2 - 3, r.y2 - 1);
    SmGl::vertex2i(r.x1 + 2, r.y2 - 1);
    SmGl::vertex2i(r.x1, r.y2 - 3);
    SmGl::vertex2i(r.x1, r.y1 + 3);
    SmGl::end();
}

UiFrameRegistry& UiFrameRegistry::getInstance() {
    return LkSingleton<UiFrameRegistry>::getInstance();
}

UiFrameRegistry::UiFrameRegistry() = default;
UiFrameRegistry::~UiFrameRegistry() = default;

void UiFrameRegistry::registerDefaultFrames() {
    UiFrameRegistry& registry = getInstance();
    registry.registerType(makeShared<UiFrameNone>());
    // The shared colours are read once, here: frames keep what the registry holds now.
    UiFrameColors const colors = UiFrameColors::fromRegistry();
    registry.registerType(makeShared<UiFrameIn>(colors));
    registry.registerType(makeShared<UiFramePushIn>(colors));
    registry.registerType(makeShared<UiFramePushOut>(colors));
    registry.registerType(makeShared<UiFrameSelected>(colors));
    registry.registerType(makeShared<UiFrameToggleIn>(colors));
    registry.registerType(makeShared<UiFrameToggleOut>(colors));
    registry.registerType(makeShared<UiFrameRadioIn>(colors));
    registry.registerType(makeShared<UiFrameRadioOut>(colors));
    registry.registerType(makeShared<UiFrameScrollHor>(colors));
    registry.registerType(makeShared<UiFrameScrollHorI>(colors));
    registry.registerType(makeShared<UiFrameScrollVer>(colors));
    registry.registerType(makeShared<UiFrameScrollVerI>(colors));
    registry.registerType(makeShared<UiFrameLine>(colors));
    registry.registerType(makeShared<UiFrameLineToggle>(colors, true));
    registry.registerType(makeShared<UiFrameLineToggle>(colors, false));
    registry.registerType(makeShared<UiFrameLineTop>(colors));
    registry.registerType(makeShared<UiFrameLineBottom>(colors));
    registry.registerType(makeShared<UiFrameLineLeftBottomRight>(colors));
    registry.registerType(makeShared<UiFrameLineLeftTopRight>(colors));
    registry.registerType(makeShared<UiFrameNoneToggleIn>(colors));
    registry.registerType(makeShared<UiFrameNoneToggleOut>(colors));
    registry.registerType(makeShared<UiFrameLineActiveTab>(colors));
    registry.registerType(makeShared<UiFrameLineInactiveTab>(colors));
    registry.registerType(makeShared<UiFrameLineTopCurve>(colors));
    registry.registerType(makeShared<UiFrameLineTopCurveI>(colors));
    registry.registerType(makeShared<UiFrameLineLeftRight>(colors));
    registry.registerType(makeShared<UiFrameCurve>(colors));
    registry.registerType(makeShared<UiFrameCurveI>(colors));
    registry.registerType(makeShared<UiFrameDoubleTop>(colors));
    registry.registerType(makeShared<UiFrameDoubleBottom>(colors));
    registry.registerType(makeShared<UiFrameBorderDecorator>());
}

void UiFrameRegistry::registerType(RCShdPtr<UiFrame> const& frame) {
    _frames[frame->getType()] = frame;
}

bool UiFrameRegistry::isRegisteredType(LiString const& name) const {
    return _frames.find(name) != _frames.end();
}

RCShdPtr<UiFrame> UiFrameRegistry::create(LiString const& name) const {
    auto it = _frames.find(name);
    if (it == _frames.end())
        throw UiResourceEx::UiInvalidFrameEx(__FILE__, __LINE__, name);
    return it->second;
}

void UiFrameRegistry::clear() {
    _frames.clear();
}

} // namespace Zr
