// UiConstraint: how a widget takes its place in its parent. Four edges X1, Y1, X2, Y2, each a
// value with a unit and an anchor, evaluated against the parent's size and named siblings.
#pragma once

#include "zrBase.h"

#include <iosfwd>

namespace Zr {

class XmlElement;
class XmlWriter;

class UiConstraint {
public:
    enum Type { TypePixel = 0, TypePercent = 1, TypeUnit = 2, TypeUnitNoGap = 3 };
    enum Target {
        TargetLow = 0,
        TargetHigh = 1,
        TargetCenter = 2,
        TargetDimension = 3,
        TargetSibling = 4,
        TargetSiblingOpposite = 5
    };
    // Edge indices: 0 X1, 1 Y1, 2 X2, 3 Y2.
    enum Edge { EdgeX1 = 0, EdgeY1 = 1, EdgeX2 = 2, EdgeY2 = 3 };

    UiConstraint();
    UiConstraint(GeRectangle<int> const& rect, Target x1, Target y1, Target x2, Target y2);
    UiConstraint(float x1, float y1, float x2, float y2, Type tx1, Type ty1, Type tx2, Type ty2,
                 Target gx1, Target gy1, Target gx2, Target gy2, LiString const& sx1 = {},
                 LiString const& sy1 = {}, LiString const& sx2 = {}, LiString const& sy2 = {});
    virtual ~UiConstraint() = default;
    UiConstraint(UiConstraint const&) = default;
    UiConstraint& operator=(UiConstraint const&) = default;

    bool isInitialized() const { return initialized; }
    GeRectangle<int> calcRect(int w, int h, GeRectangle<int> const& sibX1,
                              GeRectangle<int> const& sibY1, GeRectangle<int> const& sibX2,
                              GeRectangle<int> const& sibY2) const;
    GeRectangle<int> calcRect(int w, int h) const;
    // The sibling name of an edge by index; any other index aborts.
    LiString const& getSibling(int index) const;

    bool initialized = false;
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    Type type[4] = {TypePixel, TypePixel, TypePixel, TypePixel};
    Target target[4] = {TargetLow, TargetLow, TargetLow, TargetLow};
    LiString sibling[4];
};

// Fills the parent: "0 p l 0 p b 0 p r 0 p t".
class UiFillConstraint : public UiConstraint {
public:
    UiFillConstraint();
};

} // namespace Zr
