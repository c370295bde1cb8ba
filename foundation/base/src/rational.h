// Rational: an exact fraction of two 64-bit integers, kept in lowest terms with a positive
// denominator; frame rates such as 30000/1001 are written this way. RationalUtil reads one
// from text or approximates a double.
#pragma once

#include "exBase.h"

#include <compare>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace Zr {

struct RationalEx {
    // A zero denominator, text that is no fraction, or a number with no fraction (NaN, inf).
    ZR_DECLARE_EXCEPTION(ExInvalidRational, ExBase);
};

class Rational {
public:
    Rational() = default;
    Rational(std::int64_t numerator, std::int64_t denominator = 1);

    std::int64_t getNumerator() const { return _num; }
    std::int64_t getDenominator() const { return _den; }
    double toDouble() const { return static_cast<double>(_num) / static_cast<double>(_den); }
    // "30000/1001", or "25" for a whole number.
    std::string toString() const;

    bool operator==(Rational const& o) const = default;
    std::strong_ordering operator<=>(Rational const& o) const;

    Rational operator+(Rational const& o) const;
    Rational operator-(Rational const& o) const;
    Rational operator*(Rational const& o) const;
    // Division by zero raises RationalEx::ExInvalidRational.
    Rational operator/(Rational const& o) const;
    Rational operator-() const { return Rational(-_num, _den); }

private:
    std::int64_t _num = 0;
    std::int64_t _den = 1;
};

std::ostream& operator<<(std::ostream& os, Rational const& r);

class RationalUtil {
public:
    // "30000/1001", "25", " -3 / 4 "; anything else raises RationalEx::ExInvalidRational.
    static Rational fromFractionString(std::string const& text);
    // The simplest fraction within a relative 1e-12 of `value` whose denominator does not
    // exceed `maxDenominator`: 0.5 -> 1/2, 29.97002997 -> 30000/1001.
    static Rational fromFloat(double value, std::int64_t maxDenominator = 1000000);
};

} // namespace Zr
