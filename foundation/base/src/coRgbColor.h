// Colours: CoRgbColorTyped holds three components from 0 to 1, CoRgbaColorTyped four.
#pragma once

#include <istream>
#include <ostream>

namespace Zr {

template <class T>
struct CoRgbColorTyped {
    T r{}, g{}, b{};
    CoRgbColorTyped() = default;
    CoRgbColorTyped(T r_, T g_, T b_) : r(r_), g(g_), b(b_) {}
    bool operator==(CoRgbColorTyped const&) const = default;
    T const* data() const { return &r; }
    void read(std::istream& is) { is >> r >> g >> b; }
    void dump(std::ostream& os) const { os << r << " " << g << " " << b; }
};

template <class T>
struct CoRgbaColorTyped {
    T r{}, g{}, b{}, a{1};
    CoRgbaColorTyped() = default;
    CoRgbaColorTyped(T r_, T g_, T b_, T a_) : r(r_), g(g_), b(b_), a(a_) {}
    bool operator==(CoRgbaColorTyped const&) const = default;
    T const* data() const { return &r; }
};

using CoRgbColor = CoRgbColorTyped<float>;

struct CoUtils {
    // The colour scaled in brightness by `factor`, each component kept within 0 to 1.
    static CoRgbColorTyped<float> calcLuminance(CoRgbColorTyped<float> const& c, float factor) {
        auto clamp = [](float v) { return v < 0.f ? 0.f : (v > 1.f ? 1.f : v); };
        return {clamp(c.r * factor), clamp(c.g * factor), clamp(c.b * factor)};
    }
};

template <class T>
std::ostream& operator<<(std::ostream& os, CoRgbColorTyped<T> const& c) {
    c.dump(os);
    return os;
}

} // namespace Zr
