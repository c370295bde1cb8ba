// The frames with chamfered corners drawn as one-pixel outlines: the tabs ("ActiveTab",
// "InactiveTab"), the boxes with a cut top ("LineTopCurve", "LineTopCurveI") and the boxes
// cut at all four corners ("Curve", "CurveI").
#pragma once

#include "uiFramePaint.h"

namespace Zr {

// An outline whose two top corners are cut like a bevel's: the cut pixels in the third colour,
// the top edge and the sides in dark, one diagonal pixel in dark joining them; optionally an
// inner top line in shadow and a line along the bottom.
class UiFrameTopCurve : public UiFrameInset {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;

protected:
    enum Bottom { NoBottom, DarkBottom, ShadowBottom };
    UiFrameTopCurve(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors,
                    bool innerTop, Bottom bottom);

    bool const _innerTop;
    Bottom const _bottom;
};

// The tab in front: open at the bottom, where it meets its page.
class UiFrameLineActiveTab : public UiFrameTopCurve {
public:
    explicit UiFrameLineActiveTab(UiFrameColors const& colors);
};

// A tab behind: the active tab's outline closed by a dark line along the bottom.
class UiFrameLineInactiveTab : public UiFrameTopCurve {
public:
    explicit UiFrameLineInactiveTab(UiFrameColors const& colors);
};

// A box with a cut top, two rows at the top and a bottom edge in shadow.
class UiFrameLineTopCurve : public UiFrameTopCurve {
public:
    explicit UiFrameLineTopCurve(UiFrameColors const& colors);
};

// The cut-top box with one row at the top: no inner top line.
class UiFrameLineTopCurveI : public UiFrameTopCurve {
public:
    explicit UiFrameLineTopCurveI(UiFrameColors const& colors);
};

// A one-pixel outline cut at all four corners: top and sides in dark, bottom in shadow.
class UiFrameCurve : public UiFrameInset {
public:
    explicit UiFrameCurve(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// Only the cut corners, in the third colour: rounds content that fills the whole rectangle.
class UiFrameCurveI : public UiFrameInset {
public:
    explicit UiFrameCurveI(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

} // namespace Zr
