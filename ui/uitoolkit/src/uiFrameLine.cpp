// The one-pixel line frames, the double lines, and the strip frames without a bevel.
#include "uiFrameLine.h"

#include "smGl.h"

#include <utility>

namespace Zr {

namespace {
constexpr int None = -1;
constexpr int Strip = UiFramePaint::StripWidth;
} // namespace

UiFrameEdges::UiFrameEdges(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors,
                           unsigned edges)
    : UiFrameInset(std::move(type), insets, colors), _edges(edges) {}

void UiFrameEdges::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const&) {
    UiFramePaint::edges(r, _edges, getLineColor());
}

UiFrameLine::UiFrameLine(UiFrameColors const& colors)
    : UiFrameEdges("Line", {2, 2, 1, 1, 1, 1}, colors, UiFramePaint::All) {}

UiFrameSelected::UiFrameSelected(UiFrameColors const& colors)
    : UiFrameEdges("Selected", {2, 2, 1, 1, 1, 1}, colors, UiFramePaint::All) {}

UiFrameLineTop::UiFrameLineTop(UiFrameColors const& colors)
    : UiFrameEdges("LineTop", {None, 1, 0, 0, 0, 1}, colors, UiFramePaint::Top) {}

UiFrameLineBottom::UiFrameLineBottom(UiFrameColors const& colors)
    : UiFrameEdges("LineBottom", {None, 1, 0, 0, 1, 0}, colors, UiFramePaint::Bottom) {}

UiFrameLineLeftBottomRight::UiFrameLineLeftBottomRight(UiFrameColors const& colors)
    : UiFrameEdges("LineLeftBottomRight", {2, 1, 1, 1, 1, 0}, colors,
                   UiFramePaint::Left | UiFramePaint::Right | UiFramePaint::Bottom) {}

UiFrameLineLeftTopRight::UiFrameLineLeftTopRight(UiFrameColors const& colors)
    : UiFrameEdges("LineLeftTopRight", {2, 1, 1, 1, 0, 1}, colors,
                   UiFramePaint::Left | UiFramePaint::Right | UiFramePaint::Top) {}

UiFrameLineLeftRight::UiFrameLineLeftRight(UiFrameColors const& colors)
    : UiFrameEdges("LineLeftRight", {None, None, 1, 1, 0, 0}, colors,
                   UiFramePaint::Left | UiFramePaint::Right) {}

UiFrameDoubleTop::UiFrameDoubleTop(UiFrameColors const& colors)
    : UiFrameInset("DoubleTop", {2, 2, 0, 0, 0, 2}, colors) {}

void UiFrameDoubleTop::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const&) {
    SmGl::begin(Gl::LINES);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::hLine(r, r.y2 - 2);
    UiFramePaint::color(_colors.shadow);
    UiFramePaint::hLine(r, r.y2 - 1);
    SmGl::end();
}

UiFrameDoubleBottom::UiFrameDoubleBottom(UiFrameColors const& colors)
    : UiFrameInset("DoubleBottom", {2, 2, 0, 0, 2, 0}, colors) {}

void UiFrameDoubleBottom::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const&) {
    SmGl::begin(Gl::LINES);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::hLine(r, r.y1 + 1);
    UiFramePaint::color(_colors.shadow);
    UiFramePaint::hLine(r, r.y1);
    SmGl::end();
}

UiFrameLineToggle::UiFrameLineToggle(UiFrameColors const& colors, bool on)
    : UiFrameInset(on ? "LineToggleIn" : "LineToggleOut", {Strip + 2, 2, 1, Strip + 1, 1, 1},
                   colors),
      _stripColor(on ? colors.toggleOn : colors.toggleOff) {}

void UiFrameLineToggle::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const&) {
    UiFramePaint::strip(r, _strip, _stripColor);
    UiFramePaint::edges(r, UiFramePaint::All, _borderColor);
}

UiFrameNoneToggle::UiFrameNoneToggle(LiString type, UiFrameColors const& colors,
                                     CoRgbColor const& stripColor)
    : UiFrameInset(std::move(type), {None, None, 0, Strip, 0, 0}, colors), _stripColor(stripColor) {
    _yOffset = 1;
}

void UiFrameNoneToggle::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const&) {
    UiFramePaint::strip(r, _strip, _stripColor);
}

UiFrameNoneToggleIn::UiFrameNoneToggleIn(UiFrameColors const& colors)
    : UiFrameNoneToggle("LineLBRTOggleIn", colors, colors.toggleOn) {}

UiFrameNoneToggleOut::UiFrameNoneToggleOut(UiFrameColors const& colors)
    : UiFrameNoneToggle("LineLBRTOggleOut", colors, colors.toggleOff) {}

} // namespace Zr
