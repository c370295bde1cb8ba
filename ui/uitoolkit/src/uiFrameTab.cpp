// The tab and curve frames: one-pixel outlines with chamfered corners.
#include "uiFrameTab.h"

#include "smGl.h"

#include <utility>

namespace Zr {

UiFrameTopCurve::UiFrameTopCurve(LiString type, UiFrameInsets const& insets,
                                 UiFrameColors const& colors, bool innerTop, Bottom bottom)
    : UiFrameInset(std::move(type), insets, colors), _innerTop(innerTop), _bottom(bottom) {}

void UiFrameTopCurve::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const& dark) {
    UiFramePaint::topCornerPoints(r, dark);
    SmGl::begin(Gl::LINES);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::line(r.x1 + 2, r.y2 - 1, r.x2 - 2, r.y2 - 1);
    UiFramePaint::line(r.x1, r.y1, r.x1, r.y2 - 2);
    UiFramePaint::line(r.x2 - 1, r.y1, r.x2 - 1, r.y2 - 2);
    if (_innerTop) {
        UiFramePaint::color(_colors.shadow);
        UiFramePaint::line(r.x1 + 2, r.y2 - 2, r.x2 - 2, r.y2 - 2);
    }
    if (_bottom != NoBottom) {
        UiFramePaint::color(_bottom == DarkBottom ? _colors.dark : _colors.shadow);
        UiFramePaint::hLine(r, r.y1);
    }
    SmGl::end();
    // The diagonal pixel between each side and the top edge.
    SmGl::begin(Gl::POINTS);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::vertex(r.x1 + 1, r.y2 - 2);
    UiFramePaint::vertex(r.x2 - 2, r.y2 - 2);
    SmGl::end();
}

UiFrameLineActiveTab::UiFrameLineActiveTab(UiFrameColors const& colors)
    : UiFrameTopCurve("ActiveTab", {2, 1, 1, 1, 0, 2}, colors, true, NoBottom) {}

UiFrameLineInactiveTab::UiFrameLineInactiveTab(UiFrameColors const& colors)
    : UiFrameTopCurve("InactiveTab", {2, 1, 1, 1, 0, 2}, colors, true, DarkBottom) {}

UiFrameLineTopCurve::UiFrameLineTopCurve(UiFrameColors const& colors)
    : UiFrameTopCurve("LineTopCurve", {2, 3, 1, 1, 1, 2}, colors, true, ShadowBottom) {}

UiFrameLineTopCurveI::UiFrameLineTopCurveI(UiFrameColors const& colors)
    : UiFrameTopCurve("LineTopCurveI", {2, 2, 1, 1, 1, 1}, colors, false, ShadowBottom) {}

UiFrameCurve::UiFrameCurve(UiFrameColors const& colors)
    : UiFrameInset("Curve", {2, 2, 1, 1, 1, 1}, colors) {}

void UiFrameCurve::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const& dark) {
    UiFramePaint::cornerPoints(r, dark);
    SmGl::begin(Gl::LINES);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::line(r.x1 + 2, r.y2 - 1, r.x2 - 2, r.y2 - 1);
    UiFramePaint::line(r.x1, r.y1 + 2, r.x1, r.y2 - 2);
    UiFramePaint::line(r.x2 - 1, r.y1 + 2, r.x2 - 1, r.y2 - 2);
    UiFramePaint::color(_colors.shadow);
    UiFramePaint::line(r.x1 + 2, r.y1, r.x2 - 2, r.y1);
    SmGl::end();
    // The diagonal pixel of each cut: dark above, shadow below, like the edges they join.
    SmGl::begin(Gl::POINTS);
    UiFramePaint::color(_colors.dark);
    UiFramePaint::vertex(r.x1 + 1, r.y2 - 2);
    UiFramePaint::vertex(r.x2 - 2, r.y2 - 2);
    UiFramePaint::color(_colors.shadow);
    UiFramePaint::vertex(r.x1 + 1, r.y1 + 1);
    UiFramePaint::vertex(r.x2 - 2, r.y1 + 1);
    SmGl::end();
}

UiFrameCurveI::UiFrameCurveI(UiFrameColors const& colors)
    : UiFrameInset("CurveI", {-1, -1, 0, 0, 0, 0}, colors) {}

void UiFrameCurveI::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const& dark) {
    UiFramePaint::cornerPoints(r, dark);
}

} // namespace Zr
