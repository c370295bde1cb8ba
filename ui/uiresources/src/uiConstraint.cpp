// UiConstraint: evaluation of the four edges against a parent and its siblings, the grid, and
// the XML and text forms.
#include "uiConstraint.h"

#include "uiResNumberText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <cfloat>
#include <cmath>
#include <istream>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>

namespace Zr {

namespace {

char const* const EdgeNames[4] = {"X1", "Y1", "X2", "Y2"};

bool needsSibling(int target) {
    return target == UiConstraint::TargetSibling || target == UiConstraint::TargetSiblingOpposite;
}

bool parseType(std::string_view kw, UiConstraint::Type& type) {
    if (kw == "p")
        type = UiConstraint::TypePixel;
    else if (kw == "%")
        type = UiConstraint::TypePercent;
    else if (kw == "u")
        type = UiConstraint::TypeUnit;
    else if (kw == "uu")
        type = UiConstraint::TypeUnitNoGap;
    else
        return false;
    return true;
}

// Either keyword of a pair is accepted on either axis.
bool parseTarget(std::string_view kw, UiConstraint::Target& target) {
    if (kw == "l" || kw == "b")
        target = UiConstraint::TargetLow;
    else if (kw == "r" || kw == "t")
        target = UiConstraint::TargetHigh;
    else if (kw == "c")
        target = UiConstraint::TargetCenter;
    else if (kw == "w" || kw == "h")
        target = UiConstraint::TargetDimension;
    else if (kw == "s")
        target = UiConstraint::TargetSibling;
    else if (kw == "so")
        target = UiConstraint::TargetSiblingOpposite;
    else
        return false;
    return true;
}

// The rest of the current line, without the blanks in front: where a bad keyword stood.
std::string restOfLine(std::istream& is) {
    std::string rest;
    is.clear();
    std::getline(is, rest);
    std::size_t start = rest.find_first_not_of(" \t");
    return start == std::string::npos ? std::string() : rest.substr(start);
}

// A computed edge as a pixel: values beyond the range of int (a constraint may say "1e30 p l")
// stop at its ends, and a value that is not a number gives 0.
int toPixel(float edge) {
    constexpr float Low = -2147483648.f; // -2^31, exact in float
    constexpr float High = 2147483520.f; // the largest float below 2^31
    if (!(edge == edge))
        return 0;
    if (edge <= Low)
        return std::numeric_limits<int>::min();
    if (edge >= High)
        return static_cast<int>(High);
    return static_cast<int>(edge);
}

// One edge on one axis. `far` says whether the edge is computed second and so loses the gap of
// TypeUnit; `dimOrigin` is the origin of TargetDimension (the other edge, once computed).
int calcEdge(float v, UiConstraint::Type type, UiConstraint::Target target, bool lowEdge, bool far,
             float extent, float grid, float gap, float dimOrigin, int sibLow, int sibHigh) {
    float origin = 0.f;
    switch (target) {
    case UiConstraint::TargetLow:
        origin = 0.f;
        break;
    case UiConstraint::TargetHigh:
        origin = extent;
        break;
    case UiConstraint::TargetCenter:
        origin = (extent - 1.f) * 0.5f;
        break;
    case UiConstraint::TargetDimension:
        origin = dimOrigin;
        break;
    // "s" is the sibling's edge that faces this one: a low edge stands on the sibling's high.
    case UiConstraint::TargetSibling:
        origin = static_cast<float>(lowEdge ? sibHigh : sibLow);
        break;
    case UiConstraint::TargetSiblingOpposite:
        origin = static_cast<float>(lowEdge ? sibLow : sibHigh);
        break;
    }
    switch (type) {
    case UiConstraint::TypePixel:
        break;
    case UiConstraint::TypePercent:
        v *= extent / 100.f;
        break;
    case UiConstraint::TypeUnitNoGap:
        v *= grid;
        break;
    case UiConstraint::TypeUnit:
        v *= grid;
        // The far edge stops short of the grid line by the gap, leaving room between
        // neighbours; a size is shrunk toward 0 whichever its sign.
        if (far) {
            if (target == UiConstraint::TargetDimension)
                v = v > 0.f ? v - gap : v + gap;
            else
                v -= gap;
        }
        break;
    }
    return toPixel(std::floor(origin + v + 0.5f));
}

struct AxisResult {
    int low;
    int high;
};

// One axis: edges lo (X1 or Y1) and hi (X2 or Y2). Normally the low edge comes first; when it
// is a size (TargetDimension) the high edge is computed first and the low edge hangs below it.
AxisResult calcAxis(UiConstraint const& c, int lo, int hi, float lowValue, float highValue,
                    float extent, float grid, float gap, float dimBase,
                    GeRectangle<int> const& sibLo, GeRectangle<int> const& sibHi, bool xAxis) {
    int sibLoLow = xAxis ? sibLo.x1 : sibLo.y1;
    int sibLoHigh = xAxis ? sibLo.x2 : sibLo.y2;
    int sibHiLow = xAxis ? sibHi.x1 : sibHi.y1;
    int sibHiHigh = xAxis ? sibHi.x2 : sibHi.y2;
    AxisResult r{};
    if (c.target[lo] == UiConstraint::TargetDimension) {
        r.high = calcEdge(highValue, c.type[hi], c.target[hi], false, false, extent, grid, gap,
                          dimBase, sibHiLow, sibHiHigh);
        r.low = calcEdge(-lowValue, c.type[lo], c.target[lo], true, true, extent, grid, gap,
                         static_cast<float>(r.high), sibLoLow, sibLoHigh);
    } else {
        r.low = calcEdge(lowValue, c.type[lo], c.target[lo], true, false, extent, grid, gap,
                         dimBase, sibLoLow, sibLoHigh);
        r.high = calcEdge(highValue, c.type[hi], c.target[hi], false, true, extent, grid, gap,
                          static_cast<float>(r.low), sibHiLow, sibHiHigh);
    }
    return r;
}

float magnitude(float v) {
    float a = std::fabs(v);
    return std::isinf(a) ? 0.f : a;
}

bool nearlyEqual(float a, float b) {
    return std::fabs(a - b) <= FLT_EPSILON * std::max(magnitude(a), magnitude(b));
}

} // namespace

UiConstraint::UiConstraint() = default;

UiConstraint::UiConstraint(GeRectangle<int> const& rect, Target x1, Target y1, Target x2, Target y2)
    : initialized(true), X1(static_cast<float>(rect.x1)), Y1(static_cast<float>(rect.y1)),
      X2(static_cast<float>(rect.x2)), Y2(static_cast<float>(rect.y2)), target{x1, y1, x2, y2} {
    checkDimensions();
}

UiConstraint::UiConstraint(float x1, float y1, float x2, float y2, Type tx1, Type ty1, Type tx2,
                           Type ty2, Target gx1, Target gy1, Target gx2, Target gy2,
                           LiString const& sx1, LiString const& sy1, LiString const& sx2,
                           LiString const& sy2)
    : initialized(true), X1(x1), Y1(y1), X2(x2),
      Y2(y2), type{tx1, ty1, tx2, ty2}, target{gx1, gy1, gx2, gy2}, sibling{sx1, sy1, sx2, sy2} {
    checkDimensions();
}

bool UiConstraint::operator==(UiConstraint const& other) const {
    checkInitialized();
    other.checkInitialized();
    for (int i = 0; i < 4; ++i) {
        if (!nearlyEqual(getValue(i), other.getValue(i)))
            return false;
    }
    for (int i = 0; i < 4; ++i) {
        if (type[i] != other.type[i] || target[i] != other.target[i] ||
            !(sibling[i] == other.sibling[i]))
            return false;
    }
    return true;
}

void UiConstraint::checkInitialized() const {
    if (!initialized)
        throw UiResourceEx::UiConstraintEx::ExUninitialized(__FILE__, __LINE__);
}

void UiConstraint::checkDimensions() const {
    if ((target[EdgeX1] == TargetDimension && target[EdgeX2] == TargetDimension) ||
        (target[EdgeY1] == TargetDimension && target[EdgeY2] == TargetDimension))
        throw UiResourceEx::UiConstraintEx::ExBaseDimension(__FILE__, __LINE__);
}

float& UiConstraint::valueRef(int index) {
    switch (index) {
    case EdgeX1:
        return X1;
    case EdgeY1:
        return Y1;
    case EdgeX2:
        return X2;
    case EdgeY2:
        return Y2;
    }
    Assertions::throwProgramAborted(
        __FILE__, __LINE__, ("Unexpected constraint index : " + std::to_string(index)).c_str());
}

float UiConstraint::getValue(int index) const {
    return const_cast<UiConstraint*>(this)->valueRef(index);
}

LiString const& UiConstraint::getSibling(int index) const {
    if (index < 0 || index > 3)
        Assertions::throwProgramAborted(
            __FILE__, __LINE__, ("Unexpected constraint index : " + std::to_string(index)).c_str());
    return sibling[index];
}

UiConstraint::Type UiConstraint::getType(int index) const {
    getSibling(index);
    return type[index];
}

UiConstraint::Target UiConstraint::getTarget(int index) const {
    getSibling(index);
    return target[index];
}

GeRectangle<int> UiConstraint::calcRect(int w, int h, GeRectangle<int> const& sibX1,
                                        GeRectangle<int> const& sibY1,
                                        GeRectangle<int> const& sibX2,
                                        GeRectangle<int> const& sibY2) const {
    checkInitialized();
    GeVector2<float> const& grid = getUIGrid();
    GeVector2<float> const& gap = getUIGridGap();
    AxisResult x = calcAxis(*this, EdgeX1, EdgeX2, X1, X2, static_cast<float>(w), grid.x, gap.x,
                            0.f, sibX1, sibX2, true);
    AxisResult y = calcAxis(*this, EdgeY1, EdgeY2, Y1, Y2, static_cast<float>(h), grid.y, gap.y,
                            0.f, sibY1, sibY2, false);
    // Crossing edges give an empty rectangle at the low edge, never an inverted one.
    return {x.low, std::max(x.low, x.high), y.low, std::max(y.low, y.high)};
}

GeRectangle<int> UiConstraint::calcRect(int w, int h) const {
    GeRectangle<int> const zero;
    return calcRect(w, h, zero, zero, zero, zero);
}

void UiConstraint::calcRect(GeRectangle<int> const& base, int w, int h,
                            GeRectangle<int> const& sibX1, GeRectangle<int> const& sibY1,
                            GeRectangle<int> const& sibX2, GeRectangle<int> const& sibY2) {
    checkInitialized();
    GeVector2<float> const& grid = getUIGrid();
    GeVector2<float> const& gap = getUIGridGap();
    AxisResult x = calcAxis(*this, EdgeX1, EdgeX2, X1, X2, static_cast<float>(w), grid.x, gap.x,
                            static_cast<float>(base.x1), sibX1, sibX2, true);
    AxisResult y = calcAxis(*this, EdgeY1, EdgeY2, Y1, Y2, static_cast<float>(h), grid.y, gap.y,
                            static_cast<float>(base.y1), sibY1, sibY2, false);
    X1 = static_cast<float>(x.low);
    X2 = static_cast<float>(x.high);
    Y1 = static_cast<float>(y.low);
    Y2 = static_cast<float>(y.high);
}

GeVector2<float> const& UiConstraint::getUIGrid() {
    static GeVector2<float> const grid(7.f, 7.f);
    return grid;
}

GeVector2<float> const& UiConstraint::getUIGridGap() {
    static GeVector2<float> const gap(4.f, 3.f);
    return gap;
}

GeVector2<float> const& UiConstraint::getUIGridScale() {
    static GeVector2<float> const scale(1.f, 1.f);
    return scale;
}

GeVector2<float> UiConstraint::pixelsToUIUnits(GeVector2<float> const& pixels) {
    GeVector2<float> const& grid = getUIGrid();
    return {pixels.x / grid.x + 0.5f, pixels.y / grid.y + 0.5f};
}

GeRectangle<int> UiConstraint::clampAndConvertToUIGrid(GeRectangle<int> const& r) {
    GeVector2<float> const& grid = getUIGrid();
    GeVector2<float> const& gap = getUIGridGap();
    int w = r.x2 - r.x1;
    int h = r.y2 - r.y1;
    int x = static_cast<int>(std::floor(w / 7.0 * grid.x - gap.x + 0.5));
    int y = static_cast<int>(std::floor(h / 7.0 * grid.y - gap.y + 0.5));
    return {r.x1, std::max(x, r.x1) + r.x1, r.y1, std::max(y, r.y1) + r.y1};
}

char const* UiConstraint::typeKeyword(int t) {
    switch (t) {
    case TypePixel:
        return "p";
    case TypePercent:
        return "%";
    case TypeUnit:
        return "u";
    case TypeUnitNoGap:
        return "uu";
    }
    return "";
}

char const* UiConstraint::targetKeyword(int g, bool xAxis) {
    switch (g) {
    case TargetLow:
        return xAxis ? "l" : "b";
    case TargetHigh:
        return xAxis ? "r" : "t";
    case TargetCenter:
        return "c";
    case TargetDimension:
        return xAxis ? "w" : "h";
    case TargetSibling:
        return "s";
    case TargetSiblingOpposite:
        return "so";
    }
    return "";
}

void UiConstraint::dump(std::ostream& os) const {
    checkInitialized();
    os << "UiConstraint(";
    writeText(os);
    os << ")";
}

void UiConstraint::read(XmlElement const& element) {
    static std::string const edgeWhat[4] = {
        std::string("edge ") + EdgeNames[0], std::string("edge ") + EdgeNames[1],
        std::string("edge ") + EdgeNames[2], std::string("edge ") + EdgeNames[3]};
    UiConstraint c;
    for (int i = 0; i < 4; ++i) {
        pugi::xml_node const edge = element.getNode().child(EdgeNames[i]);
        pugi::xml_attribute const valueText = edge.attribute("Value");
        pugi::xml_attribute const typeText = edge.attribute("Type");
        pugi::xml_attribute const targetText = edge.attribute("Target");
        if (!valueText || !typeText || !targetText)
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
        float const value = parseWholeNumber<float>(valueText.value(), edgeWhat[i]);
        if (!parseType(typeText.value(), c.type[i]))
            throw UiResourceEx::UiConstraintEx::ExUnknownType(__FILE__, __LINE__, typeText.value());
        if (!parseTarget(targetText.value(), c.target[i]))
            throw UiResourceEx::UiConstraintEx::ExUnknownTarget(__FILE__, __LINE__,
                                                                targetText.value());
        if (needsSibling(c.target[i])) {
            pugi::xml_attribute const sibling = edge.attribute("Sibling");
            if (!sibling)
                throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
            c.sibling[i] = sibling.value();
        }
        c.valueRef(i) = value;
    }
    c.checkDimensions();
    c.initialized = true;
    *this = std::move(c);
}

void UiConstraint::read(std::istream& is) {
    UiConstraint c;
    for (int i = 0; i < 4; ++i) {
        std::string valueText;
        std::string typeText;
        std::string targetText;
        if (!(is >> valueText))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        float const value = parseWholeNumber<float>(valueText, std::string("edge ") + EdgeNames[i]);
        if (!(is >> typeText))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        if (!parseType(typeText, c.type[i]))
            throw UiResourceEx::UiConstraintEx::ExUnknownType(__FILE__, __LINE__, typeText,
                                                              restOfLine(is));
        if (!(is >> targetText))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        if (!parseTarget(targetText, c.target[i]))
            throw UiResourceEx::UiConstraintEx::ExUnknownTarget(__FILE__, __LINE__, targetText,
                                                                restOfLine(is));
        if (needsSibling(c.target[i])) {
            std::string name;
            if (!(is >> name))
                throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
            c.sibling[i] = name;
        }
        c.valueRef(i) = value;
    }
    c.checkDimensions();
    c.initialized = true;
    *this = c;
}

void UiConstraint::write(XmlWriter& writer) const {
    checkInitialized();
    for (int i = 0; i < 4; ++i) {
        XmlWriter::ElementGuard guard(writer, EdgeNames[i]);
        writer.writeAttrib("Value", getValue(i));
        writer.writeAttrib("Type", typeKeyword(type[i]));
        writer.writeAttrib("Target", targetKeyword(target[i], i == EdgeX1 || i == EdgeX2));
        if (needsSibling(target[i]))
            writer.writeAttrib("Sibling", sibling[i].str());
    }
}

void UiConstraint::writeText(std::ostream& os) const {
    checkInitialized();
    for (int i = 0; i < 4; ++i) {
        if (i > 0)
            os << ' ';
        writeShortestNumber(os, getValue(i));
        os << ' ' << typeKeyword(type[i]) << ' '
           << targetKeyword(target[i], i == EdgeX1 || i == EdgeX2);
        if (needsSibling(target[i]))
            os << ' ' << sibling[i];
    }
}

std::ostream& operator<<(std::ostream& os, UiConstraint const& c) {
    c.writeText(os);
    return os;
}

std::istream& operator>>(std::istream& is, UiConstraint& c) {
    c.read(is);
    return is;
}

UiFillConstraint::UiFillConstraint()
    : UiConstraint(0.f, 0.f, 0.f, 0.f, TypePixel, TypePixel, TypePixel, TypePixel, TargetLow,
                   TargetLow, TargetHigh, TargetHigh) {}

namespace {
// A first edge of 0 is the low side and a second edge of 0 the high side; negative values count
// back from the high side.
UiConstraint::Target firstTarget(float v) {
    return v >= 0.f ? UiConstraint::TargetLow : UiConstraint::TargetHigh;
}
UiConstraint::Target secondTarget(float v) {
    return v > 0.f ? UiConstraint::TargetLow : UiConstraint::TargetHigh;
}
} // namespace

UiHFillConstraint::UiHFillConstraint(float y1, float y2, Type t)
    : UiConstraint(0.f, y1, 0.f, y2, TypePixel, t, TypePixel, t, TargetLow, firstTarget(y1),
                   TargetHigh, secondTarget(y2)) {}

UiHFillDownConstraint::UiHFillDownConstraint(float y1, float y2, Type t)
    : UiConstraint(0.f, y1, 0.f, y2, TypePixel, t, TypePixel, t, TargetLow, firstTarget(y1),
                   TargetHigh, secondTarget(y2)) {}

UiVFillConstraint::UiVFillConstraint(float x1, float x2, Type t)
    : UiConstraint(x1, 0.f, x2, 0.f, t, TypePixel, t, TypePixel, firstTarget(x1), TargetLow,
                   secondTarget(x2), TargetHigh) {}

UiVFillLeftConstraint::UiVFillLeftConstraint(float x1, float x2, Type t)
    : UiConstraint(x1, 0.f, x2, 0.f, t, TypePixel, t, TypePixel, firstTarget(x1), TargetLow,
                   secondTarget(x2), TargetHigh) {}

UiRelConstraint::UiRelConstraint(float x1, float y1, float x2, float y2, Type t)
    : UiConstraint(x1, y1, x2, y2, t, t, t, t, firstTarget(x1), firstTarget(y1), secondTarget(x2),
                   secondTarget(y2)) {}

} // namespace Zr
