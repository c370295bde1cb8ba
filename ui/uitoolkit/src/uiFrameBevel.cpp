// The bevelled frames: sunken field, push buttons, toggle and radio buttons, scroll sliders.
#include "uiFrameBevel.h"

#include "smGl.h"

#include <utility>

namespace Zr {

UiFrameIn::UiFrameIn(UiFrameColors const& colors)
    : UiFrameInset("In", {2, 3, 1, 1, 2, 1}, colors) {}

void UiFrameIn::draw(GeRectangle<int> const& r, CoRgbColor const&, CoRgbColor const& dark) {
    // The bevel without its inner top line: the field's content reaches up to the top edge.
    UiFramePaint::cornerPoints(r, dark);
    UiFramePaint::bevelLines(r, _colors.dark, _colors.dark, _colors.dark, _colors.shadow, true);
    UiFramePaint::bevelPoints(r, _colors.dark, _colors.dark, _colors.shadow, true);
}

UiFramePushOut::UiFramePushOut(UiFrameColors const& colors)
    : UiFrameInset("PushOut", {2, 4, 1, 1, 2, 2}, colors) {}

void UiFramePushOut::draw(GeRectangle<int> const& r, CoRgbColor const& background,
                          CoRgbColor const& dark) {
    UiFramePaint::bevel(r, false, background, dark, _colors);
}

UiFramePushIn::UiFramePushIn(UiFrameColors const& colors)
    : UiFrameInset("PushIn", {2, 4, 1, 1, 2, 2}, colors) {}

void UiFramePushIn::draw(GeRectangle<int> const& r, CoRgbColor const& background,
                         CoRgbColor const& dark) {
    UiFramePaint::bevel(r, true, background, dark, _colors);
}

UiFrameStripBevel::UiFrameStripBevel(LiString type, UiFrameColors const& colors,
                                     CoRgbColor const& stripColor, bool pushedIn)
    : UiFrameInset(std::move(type),
                   {UiFramePaint::StripWidth + 2, 4, 1, UiFramePaint::StripWidth + 1, 2, 2},
                   colors),
      _stripColor(stripColor), _pushedIn(pushedIn) {
    _yOffset = 1;
}

void UiFrameStripBevel::draw(GeRectangle<int> const& r, CoRgbColor const& background,
                             CoRgbColor const& dark) {
    UiFramePaint::strip(r, _strip, _stripColor);
    UiFramePaint::bevel(r, _pushedIn, background, dark, _colors);
}

UiFrameToggleIn::UiFrameToggleIn(UiFrameColors const& colors)
    : UiFrameStripBevel("ToggleIn", colors, colors.toggleOn, true) {}

UiFrameToggleOut::UiFrameToggleOut(UiFrameColors const& colors)
    : UiFrameStripBevel("ToggleOut", colors, colors.toggleOff, false) {}

UiFrameRadioIn::UiFrameRadioIn(UiFrameColors const& colors)
    : UiFrameStripBevel("RadioIn", colors, colors.radioOn, true) {}

UiFrameRadioOut::UiFrameRadioOut(UiFrameColors const& colors)
    : UiFrameStripBevel("RadioOut", colors, colors.radioOff, false) {}

UiFrameScroll::UiFrameScroll(LiString type, UiFrameInsets const& insets,
                             UiFrameColors const& colors, bool vertical, bool inverted)
    : UiFrameInset(std::move(type), insets, colors), _vertical(vertical), _inverted(inverted) {}

void UiFrameScroll::draw(GeRectangle<int> const& r, CoRgbColor const& background,
                         CoRgbColor const& dark) {
    UiFramePaint::bevel(r, _inverted, background, dark, _colors);

    // The grip spans fourteen rows (columns) about the middle; it is left out when it would
    // reach the bevel's two outer rows (columns) on either side.
    int const lo = _vertical ? r.y1 : r.x1;
    int const hi = _vertical ? r.y2 : r.x2;
    int const m = lo + (hi - lo) / 2;
    if (m - 6 < lo + 2 || m + 7 > hi - 3)
        return;
    CoRgbColor const bright = UiFramePaint::highlight(background);
    SmGl::begin(Gl::LINES);
    for (int pass = 0; pass < 2; ++pass) {
        UiFramePaint::color(pass == 0 ? bright : _colors.dark);
        for (int offset : {6, 2, -2, -6}) {
            int const at = m + offset + pass;
            if (_vertical)
                UiFramePaint::line(r.x1 + 2, at, r.x2 - 3, at);
            else
                UiFramePaint::line(at, r.y1 + 2, at, r.y2 - 3);
        }
    }
    SmGl::end();
}

UiFrameScrollHor::UiFrameScrollHor(UiFrameColors const& colors)
    : UiFrameScroll("ScrollHor", {2, 2, 1, 1, 1, 1}, colors, false, false) {}

UiFrameScrollHorI::UiFrameScrollHorI(UiFrameColors const& colors)
    : UiFrameScroll("ScrollHorI", {2, 1, 1, 1, 1, 0}, colors, false, true) {}

UiFrameScrollVer::UiFrameScrollVer(UiFrameColors const& colors)
    : UiFrameScroll("ScrollVer", {2, 2, 1, 1, 1, 1}, colors, true, false) {}

UiFrameScrollVerI::UiFrameScrollVerI(UiFrameColors const& colors)
    : UiFrameScroll("ScrollVerI", {1, 2, 0, 1, 1, 1}, colors, true, true) {}

} // namespace Zr
