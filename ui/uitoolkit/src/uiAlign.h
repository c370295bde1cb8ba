// UiAlign: places content of a given size inside a bounding rectangle by an alignment and
// margins, keeping the content's position (x, y) up to date.
#pragma once

#include "geRectangle.h"

namespace Zr {

// Alignment codes are those of UiResAlign: 0 left, 1 center, 2 right, 3 top, 4 bottom. A margin
// applies on the aligned side only, and not at all when centred; top and bottom in the
// horizontal field, like left and right in the vertical one, fall to the low side.
class UiAlign {
public:
    UiAlign() = default;
    UiAlign(UiAlign const&) = default;
    UiAlign& operator=(UiAlign const&) = default;
    virtual ~UiAlign() = default;

    // Recomputes x and y from the rectangle, the content's size, the alignment and the margins.
    virtual void adjustPosition();

    // Each setter places the content again.
    void setAlignment(int horizontal, int vertical);
    void setAlignmentH(int horizontal);
    void setAlignmentV(int vertical);
    void setMargins(int horizontal, int vertical);
    void setRect(GeRectangle<int> const& rect);

    int getAlignmentH() const { return _alignmentH; }
    int getAlignmentV() const { return _alignmentV; }
    int getMarginH() const { return _marginH; }
    int getMarginV() const { return _marginV; }
    GeRectangle<int> const& getRect() const { return _rect; }
    int getWidth() const { return _width; }
    int getHeight() const { return _height; }
    // The content's lower-left corner (for text, x and the baseline).
    int getX() const { return _x; }
    int getY() const { return _y; }

protected:
    int _alignmentH = 0;
    int _alignmentV = 1;
    int _marginH = 0;
    int _marginV = 0;
    GeRectangle<int> _rect;
    int _width = 0;
    int _height = 0;
    int _x = 0;
    int _y = 0;
};

} // namespace Zr
