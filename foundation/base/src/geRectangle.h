// GeRectangle: an axis-aligned rectangle kept as x1, x2, y1, y2. x2 and y2 are exclusive
// (half open), y grows upward with the origin at the bottom left.
#pragma once

#include "gePoint2.h"

#include <algorithm>
#include <ostream>

namespace Zr {

template <class T>
struct GeRectangle {
    T x1{}, x2{}, y1{}, y2{};

    GeRectangle() = default;
    GeRectangle(T x1_, T x2_, T y1_, T y2_) : x1(x1_), x2(x2_), y1(y1_), y2(y2_) {}
    static GeRectangle fromSize(T x, T y, T w, T h) { return {x, x + w, y, y + h}; }

    bool operator==(GeRectangle const&) const = default;

    T getXMin() const { return x1; }
    T getXMax() const { return x2; }
    T getYMin() const { return y1; }
    T getYMax() const { return y2; }
    T width() const { return x2 - x1; }
    T height() const { return y2 - y1; }
    GePoint2<T> getMin() const { return {x1, y1}; }
    bool isEmpty() const { return !(x1 < x2) || !(y1 < y2); }

    bool contains(GePoint2<T> const& p) const { return p.x >= x1 && p.x < x2 && p.y >= y1 && p.y < y2; }
    // True if `r` lies wholly inside; an empty `r` lies inside nothing.
    bool contains(GeRectangle const& r) const {
        return !r.isEmpty() && r.x1 >= x1 && r.x2 <= x2 && r.y1 >= y1 && r.y2 <= y2;
    }
    bool intersects(GeRectangle const& r) const { return !intersection(r).isEmpty(); }

    GeRectangle intersection(GeRectangle const& r) const {
        return {std::max(x1, r.x1), std::min(x2, r.x2), std::max(y1, r.y1), std::min(y2, r.y2)};
    }
    GeRectangle& intersect(GeRectangle const& r) { return *this = intersection(r); }
    // The bounding box; an empty operand doesn't count.
    GeRectangle united(GeRectangle const& r) const {
        if (r.isEmpty())
            return *this;
        if (isEmpty())
            return r;
        return {std::min(x1, r.x1), std::max(x2, r.x2), std::min(y1, r.y1), std::max(y2, r.y2)};
    }
    GeRectangle translated(T dx, T dy) const { return {x1 + dx, x2 + dx, y1 + dy, y2 + dy}; }
    GeRectangle& translate(T dx, T dy) { return *this = translated(dx, dy); }
    void setEmpty() { *this = GeRectangle(); }
};

struct GeRectangleUtil {
    // Grows each edge outward by `border` (shrinks for a negative border).
    template <class T>
    static GeRectangle<T> addBorder(GeRectangle<T> const& r, T border) {
        return {r.x1 - border, r.x2 + border, r.y1 - border, r.y2 + border};
    }
};

template <class T>
std::ostream& operator<<(std::ostream& os, GeRectangle<T> const& r) {
    return os << "[" << r.x1 << ", " << r.x2 << ") x [" << r.y1 << ", " << r.y2 << ")";
}

} // namespace Zr
