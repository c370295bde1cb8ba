// Fractions: lowest terms, exact arithmetic, parsing of rates and approximation of doubles.
#include "rational.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace Zr {
namespace {

TEST(RationalTest, LowestTermsAndExactArithmetic) {
    EXPECT_EQ(Rational(6, -4).toString(), "-3/2");
    EXPECT_EQ(Rational(50, 2).toString(), "25");
    EXPECT_EQ(Rational(0, -7), Rational(0));
    EXPECT_THROW(Rational(1, 0), RationalEx::ExInvalidRational);
    std::ostringstream os;
    os << Rational(30000, 1001);
    EXPECT_EQ(os.str(), "30000/1001");

    Rational third(1, 3), sixth(1, 6);
    EXPECT_EQ(third + sixth, Rational(1, 2));
    EXPECT_EQ(third - sixth, sixth);
    EXPECT_EQ(third * sixth, Rational(1, 18));
    EXPECT_EQ(third / sixth, Rational(2));
    EXPECT_EQ(-third, Rational(-1, 3));
    EXPECT_LT(Rational(30000, 1001), Rational(30));
    EXPECT_GT(Rational(-1, 3), Rational(-1, 2));
    EXPECT_THROW(third / Rational(0), RationalEx::ExInvalidRational);
    // Large terms go through wide intermediates and come back reduced.
    EXPECT_EQ(Rational(3000000000LL, 7) * Rational(7, 3000000000LL), Rational(1));
    EXPECT_DOUBLE_EQ(Rational(30000, 1001).toDouble(), 30000.0 / 1001.0);
}

TEST(RationalUtilTest, ReadsFractionTextAndRejectsTheRest) {
    EXPECT_EQ(RationalUtil::fromFractionString("30000/1001"), Rational(30000, 1001));
    EXPECT_EQ(RationalUtil::fromFractionString(" -3 / 4 "), Rational(-3, 4));
    EXPECT_EQ(RationalUtil::fromFractionString("48/2"), Rational(24));
    for (char const* bad : {"", "/", "1/", "x/2", "1/0", "1.5", "3/4/5", "12abc"})
        EXPECT_EQ(TestSupport::reasonOf<RationalEx::ExInvalidRational>(
                      [&] { RationalUtil::fromFractionString(bad); }),
                  std::string("Invalid fraction: ") + bad);
}

TEST(RationalUtilTest, FromFloatFindsTheSimpleFraction) {
    std::pair<double, Rational> const rows[] = {
        {0.5, Rational(1, 2)},
        {-0.75, Rational(-3, 4)},
        {25.0, Rational(25)},
        {0.0, Rational(0)},
        {1.0 / 3.0, Rational(1, 3)},
        {30000.0 / 1001.0, Rational(30000, 1001)},
        {24000.0 / 1001.0, Rational(24000, 1001)},
    };
    for (auto const& [value, fraction] : rows)
        EXPECT_EQ(RationalUtil::fromFloat(value), fraction) << value;
    EXPECT_EQ(RationalUtil::fromFloat(3.14159265358979, 100), Rational(22, 7));
    EXPECT_THROW(RationalUtil::fromFloat(std::nan("")), RationalEx::ExInvalidRational);
    EXPECT_THROW(RationalUtil::fromFloat(1e300), RationalEx::ExInvalidRational);
}

} // namespace
} // namespace Zr
