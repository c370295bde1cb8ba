// GePoint2 and GeVector2: 2D positions and displacements.
#pragma once

#include <ostream>

namespace Zr {

template <class T>
struct GeVector2 {
    T x{}, y{};
    GeVector2() = default;
    GeVector2(T x_, T y_) : x(x_), y(y_) {}
    bool operator==(GeVector2 const&) const = default;
    GeVector2 operator+(GeVector2 const& o) const { return {x + o.x, y + o.y}; }
    GeVector2 operator-(GeVector2 const& o) const { return {x - o.x, y - o.y}; }
};

template <class T>
struct GePoint2 {
    T x{}, y{};
    GePoint2() = default;
    GePoint2(T x_, T y_) : x(x_), y(y_) {}
    bool operator==(GePoint2 const&) const = default;
    GePoint2 operator+(GeVector2<T> const& v) const { return {x + v.x, y + v.y}; }
    GePoint2 operator-(GeVector2<T> const& v) const { return {x - v.x, y - v.y}; }
    GeVector2<T> operator-(GePoint2 const& o) const { return {x - o.x, y - o.y}; }
    GePoint2& operator+=(GeVector2<T> const& v) {
        x += v.x;
        y += v.y;
        return *this;
    }
};

template <class T>
std::ostream& operator<<(std::ostream& os, GePoint2<T> const& p) {
    return os << "(" << p.x << ", " << p.y << ")";
}

} // namespace Zr
