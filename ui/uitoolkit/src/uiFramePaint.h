// UiFramePaint: the drawing pieces the standard frames are made of (cut corners, bevels, the
// colour strip, one-pixel edges), and UiFrameInset, the base of frames that measure by insets.
#pragma once

#include "uiFrame.h"

namespace Zr {

// The shared colours of the standard frames, read from the colour registry once when the frames
// are registered; a later change in the registry does not reach frames made before it.
struct UiFrameColors {
    CoRgbColor dark;
    CoRgbColor mid;
    CoRgbColor light;
    CoRgbColor shadow;
    CoRgbColor toggleOff;
    CoRgbColor toggleOn;
    CoRgbColor radioOff;
    CoRgbColor radioOn;

    // "Black", "Grey65", "White", "Grey115" and the toggle and radio colours, as they are now.
    static UiFrameColors fromRegistry();
};

// The room a frame takes: when the rectangle is wider than `minWidth` and taller than
// `minHeight`, these many pixels come off each side; otherwise nothing does. A minimum of -1
// means "always".
struct UiFrameInsets {
    int minWidth;
    int minHeight;
    int left;
    int right;
    int bottom;
    int top;
};

// A frame with a fixed name, a fixed inset and the shared colours. Subclasses only draw.
class UiFrameInset : public UiFrame {
public:
    GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const override;
    LiString getType() const override { return _type; }
    UiFrameInsets const& getInsets() const { return _insets; }

protected:
    // The border colour starts as the shared dark.
    UiFrameInset(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors);

    LiString const _type;
    UiFrameInsets const _insets;
    UiFrameColors const _colors;
};

// Immediate-mode drawing shared by the frames. x2 and y2 are exclusive: the last column is
// x2 - 1, the last row y2 - 1. Nothing here allocates.
struct UiFramePaint {
    // The width of the toggle frames' colour strip.
    static constexpr int StripWidth = 7;

    // The bright colour of a bevel: 1.79 times a neutral (grey) background, 1.4 times any other.
    static CoRgbColor highlight(CoRgbColor const& background);

    // The three pixels of each corner that a chamfered outline leaves out, in `color`, so the
    // cut corners take the parent's shade. One GL_POINTS pair.
    static void cornerPoints(GeRectangle<int> const& r, CoRgbColor const& color);
    // The same for the two top corners only.
    static void topCornerPoints(GeRectangle<int> const& r, CoRgbColor const& color);
    // The bevel's lines: in `a` the top edge and both sides, in `b` the inner bottom line,
    // unless `noInnerTop` in `c` the inner top line, in `d` the bottom edge. One GL_LINES pair.
    static void bevelLines(GeRectangle<int> const& r, CoRgbColor const& a, CoRgbColor const& b,
                           CoRgbColor const& c, CoRgbColor const& d, bool noInnerTop);
    // The bevel's single pixels: in `a` the four inner corners, unless `noInnerTop` in `b` the
    // two pixels under the inner top line's ends, in `c` the bottom chamfers. One GL_POINTS pair.
    static void bevelPoints(GeRectangle<int> const& r, CoRgbColor const& a, CoRgbColor const& b,
                            CoRgbColor const& c, bool noInnerTop);
    // A raised bevel (highlight on top) or, with `pushedIn`, a sunken one (highlight at the
    // bottom, shadow on top): corner points in `cornerColor`, lines, points.
    static void bevel(GeRectangle<int> const& r, bool pushedIn, CoRgbColor const& background,
                      CoRgbColor const& cornerColor, UiFrameColors const& colors);

    // The colour strip of the toggle frames: `width` + 1 columns at the right edge, filled in
    // `color`, brightened towards the top and dimmed towards the bottom over a quarter of the
    // height each, with smooth shading that is put back as the context had it.
    static void strip(GeRectangle<int> const& r, int width, CoRgbColor const& color);

    // Which edges of a one-pixel outline to draw; one GL_LINES pair in `color`.
    enum Edges : unsigned { Left = 1, Right = 2, Top = 4, Bottom = 8, All = 15 };
    static void edges(GeRectangle<int> const& r, unsigned which, CoRgbColor const& color);

    // A line across the rectangle's width at row y, and one up its height at column x, within
    // an open begin(GL_LINES).
    static void hLine(GeRectangle<int> const& r, int y) {
        vertex(r.x1, y);
        vertex(r.x2, y);
    }
    static void line(int xa, int ya, int xb, int yb) {
        vertex(xa, ya);
        vertex(xb, yb);
    }
    static void vertex(int x, int y);
    static void color(CoRgbColor const& c);
};

} // namespace Zr
