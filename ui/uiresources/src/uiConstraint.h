// UiConstraint: how a widget takes its place in its parent. Four edges X1, Y1, X2, Y2, each a
// value with a unit and an anchor, evaluated against the parent's size and named siblings.
#pragma once

#include "zrBase.h"

#include "uiResourceEx.h"

#include <iosfwd>

namespace Zr {

class XmlElement;
class XmlWriter;

// Text form, four groups in the order X1 Y1 X2 Y2, each "value type target [sibling]":
// "0 u l 0 p b 10 u w 0 p t" is a widget 10 grid units wide at the parent's left, full height.
// Types: p pixels, % percent of the parent, u grid units less the gap on the far edge, uu grid
// units. Targets: l/b low side, r/t high side, c centre, w/h the other edge of this widget,
// s the facing edge of a sibling, so the sibling's edge away from this one.
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

    // Uninitialised: every evaluation, comparison or write raises ExUninitialized.
    UiConstraint();
    // The rectangle's x1, y1, x2, y2 as pixel values measured from the given targets.
    UiConstraint(GeRectangle<int> const& rect, Target x1, Target y1, Target x2, Target y2);
    UiConstraint(float x1, float y1, float x2, float y2, Type tx1, Type ty1, Type tx2, Type ty2,
                 Target gx1, Target gy1, Target gx2, Target gy2, LiString const& sx1 = {},
                 LiString const& sy1 = {}, LiString const& sx2 = {}, LiString const& sy2 = {});
    virtual ~UiConstraint() = default;
    UiConstraint(UiConstraint const&) = default;
    UiConstraint& operator=(UiConstraint const&) = default;

    // Values compare within a relative FLT_EPSILON; types, targets and siblings exactly.
    bool operator==(UiConstraint const& other) const;
    bool operator!=(UiConstraint const& other) const { return !(*this == other); }

    bool isInitialized() const { return initialized; }

    // The rectangle in a parent of w by h pixels, given the rectangles of the siblings named
    // by X1, Y1, X2, Y2 (zero rectangles for edges without a sibling). Allocates nothing.
    GeRectangle<int> calcRect(int w, int h, GeRectangle<int> const& sibX1,
                              GeRectangle<int> const& sibY1, GeRectangle<int> const& sibX2,
                              GeRectangle<int> const& sibY2) const;
    GeRectangle<int> calcRect(int w, int h) const;
    // The editor's form: the same evaluation, with a first-computed edge of TargetDimension
    // measured from `base`; the four pixel edges replace the values X1, Y1, X2, Y2 (types and
    // targets stay), so that the constraint can then be edited in pixels.
    void calcRect(GeRectangle<int> const& base, int w, int h, GeRectangle<int> const& sibX1,
                  GeRectangle<int> const& sibY1, GeRectangle<int> const& sibX2,
                  GeRectangle<int> const& sibY2);

    // The sibling name of an edge by index; any other index aborts.
    LiString const& getSibling(int index) const;
    float getValue(int index) const;
    Type getType(int index) const;
    Target getTarget(int index) const;

    virtual void dump(std::ostream& os) const;
    // Reads the element "Constraint" holding X1, Y1, X2, Y2 children.
    virtual void read(XmlElement const& element);
    // Reads the text form.
    virtual void read(std::istream& is);
    // Writes the X1, Y1, X2, Y2 elements into the element the caller has opened.
    virtual void write(XmlWriter& writer) const;
    // Writes the text form, tokens separated by one blank.
    void writeText(std::ostream& os) const;

    // The grid on which "u" and "uu" count: 7 by 7 pixels, a gap of 4 by 3 pixels.
    static GeVector2<float> const& getUIGrid();
    static GeVector2<float> const& getUIGridGap();
    static GeVector2<float> const& getUIGridScale();
    static GeVector2<float> pixelsToUIUnits(GeVector2<float> const& pixels);
    static GeRectangle<int> clampAndConvertToUIGrid(GeRectangle<int> const& r);

    // Keywords of the text and XML forms; "" for a value out of range.
    static char const* typeKeyword(int type);
    static char const* targetKeyword(int target, bool xAxis);

    bool initialized = false;
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    Type type[4] = {TypePixel, TypePixel, TypePixel, TypePixel};
    Target target[4] = {TargetLow, TargetLow, TargetLow, TargetLow};
    LiString sibling[4];

private:
    void checkInitialized() const;
    void checkDimensions() const;
    float& valueRef(int index);
};

std::ostream& operator<<(std::ostream& os, UiConstraint const& c);
std::istream& operator>>(std::istream& is, UiConstraint& c);

// Fills the parent: "0 p l 0 p b 0 p r 0 p t".
class UiFillConstraint : public UiConstraint {
public:
    UiFillConstraint();
};

// Full width; y1 counts from the bottom when >= 0, y2 from the bottom when > 0, else from the top.
class UiHFillConstraint : public UiConstraint {
public:
    UiHFillConstraint(float y1, float y2, Type t);
};

// The same edges as UiHFillConstraint, for callers that fill downward.
class UiHFillDownConstraint : public UiConstraint {
public:
    UiHFillDownConstraint(float y1, float y2, Type t);
};

// Full height; x1 counts from the left when >= 0, x2 from the left when > 0, else from the right.
class UiVFillConstraint : public UiConstraint {
public:
    UiVFillConstraint(float x1, float x2, Type t);
};

// The same edges as UiVFillConstraint, for callers that fill leftward.
class UiVFillLeftConstraint : public UiConstraint {
public:
    UiVFillLeftConstraint(float x1, float x2, Type t);
};

// Four edges of one type; a negative value counts back from the parent's high side, and a
// second edge of 0 means the high side, so (0, 0, 0, 0) fills the parent.
class UiRelConstraint : public UiConstraint {
public:
    UiRelConstraint(float x1, float y1, float x2, float y2, Type t);
};

} // namespace Zr
