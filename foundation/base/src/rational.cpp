// Fractions: normalising, arithmetic through 128-bit intermediates, parsing and approximation.
#include "rational.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <ostream>

namespace Zr {

namespace {
using Wide = __int128;

Rational fromWide(Wide num, Wide den) {
    if (den == 0)
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__, "Division by zero");
    if (den < 0) {
        num = -num;
        den = -den;
    }
    Wide a = num < 0 ? -num : num, b = den;
    while (b != 0) {
        Wide t = a % b;
        a = b;
        b = t;
    }
    if (a > 1) {
        num /= a;
        den /= a;
    }
    constexpr Wide limit = std::numeric_limits<std::int64_t>::max();
    if (num > limit || num < -limit || den > limit)
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__, "Rational overflow");
    return Rational(static_cast<std::int64_t>(num), static_cast<std::int64_t>(den));
}
} // namespace

Rational::Rational(std::int64_t numerator, std::int64_t denominator) {
    if (denominator == 0)
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__, "Zero denominator");
    if (numerator == std::numeric_limits<std::int64_t>::min() ||
        denominator == std::numeric_limits<std::int64_t>::min())
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__, "Rational overflow");
    std::int64_t g = std::gcd(numerator, denominator);
    _num = numerator / g;
    _den = denominator / g;
    if (_den < 0) {
        _num = -_num;
        _den = -_den;
    }
}

std::string Rational::toString() const {
    return _den == 1 ? std::to_string(_num) : std::to_string(_num) + "/" + std::to_string(_den);
}

std::strong_ordering Rational::operator<=>(Rational const& o) const {
    return Wide(_num) * o._den <=> Wide(o._num) * _den;
}

Rational Rational::operator+(Rational const& o) const {
    return fromWide(Wide(_num) * o._den + Wide(o._num) * _den, Wide(_den) * o._den);
}

Rational Rational::operator-(Rational const& o) const {
    return fromWide(Wide(_num) * o._den - Wide(o._num) * _den, Wide(_den) * o._den);
}

Rational Rational::operator*(Rational const& o) const {
    return fromWide(Wide(_num) * o._num, Wide(_den) * o._den);
}

Rational Rational::operator/(Rational const& o) const {
    return fromWide(Wide(_num) * o._den, Wide(_den) * o._num);
}

std::ostream& operator<<(std::ostream& os, Rational const& r) {
    return os << r.toString();
}

namespace {
bool parseInt(std::string_view text, std::int64_t& out) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    if (text.empty())
        return false;
    auto result = std::from_chars(text.data(), text.data() + text.size(), out);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}
} // namespace

Rational RationalUtil::fromFractionString(std::string const& text) {
    std::string_view view(text);
    std::size_t slash = view.find('/');
    std::int64_t num = 0, den = 1;
    bool ok = slash == std::string_view::npos
                  ? parseInt(view, num)
                  : parseInt(view.substr(0, slash), num) && parseInt(view.substr(slash + 1), den);
    if (!ok || den == 0)
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__, "Invalid fraction: " + text);
    return Rational(num, den);
}

Rational RationalUtil::fromFloat(double value, std::int64_t maxDenominator) {
    if (!std::isfinite(value) || std::fabs(value) >= 9.2e18)
        throw RationalEx::ExInvalidRational(__FILE__, __LINE__,
                                            "No fraction for " + std::to_string(value));
    if (maxDenominator < 1)
        maxDenominator = 1;
    // Continued fraction convergents p/q, stopping when close enough or when the next
    // denominator would pass the limit.
    double x = value;
    std::int64_t p0 = 0, q0 = 1, p1 = 1, q1 = 0;
    for (int step = 0; step < 64; ++step) {
        double a = std::floor(x);
        if (std::fabs(a) > 9.2e18)
            break;
        std::int64_t ai = static_cast<std::int64_t>(a);
        Wide q2 = Wide(ai) * q1 + q0;
        if (q2 > maxDenominator)
            break;
        Wide p2 = Wide(ai) * p1 + p0;
        if (p2 > std::numeric_limits<std::int64_t>::max() ||
            p2 < -std::numeric_limits<std::int64_t>::max())
            break;
        p0 = p1;
        q0 = q1;
        p1 = static_cast<std::int64_t>(p2);
        q1 = static_cast<std::int64_t>(q2);
        double approx = static_cast<double>(p1) / static_cast<double>(q1);
        if (std::fabs(approx - value) <= 1e-12 * std::fabs(value))
            break;
        double frac = x - a;
        if (frac <= 0.0)
            break;
        x = 1.0 / frac;
    }
    return Rational(p1, q1);
}

} // namespace Zr
