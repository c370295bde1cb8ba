// Tests of animation curves: evaluation, key editing and navigation, copies, the editable curve
// and the simplification of sampled curves.
#include "tcTimeCurve.h"
#include "tcTimeCurveUtils.h"
#include "tmTimeCurve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;
using Interp = TmKeyframe::Interpolation;

namespace {

TmTimeCurve threeKeys(Interp interpolation) {
    TmTimeCurve c;
    c.setKey(TmKeyframe(1.0, 10.0, interpolation));
    c.setKey(TmKeyframe(2.0, 20.0, interpolation));
    c.setKey(TmKeyframe(4.0, 0.0, interpolation));
    return c;
}

// The keys as "time=value" with C, L or S for the interpolation, in order.
std::string keys(TmTimeCurve const& c) {
    std::ostringstream os;
    for (TmKeyframe const& k : c.getKeys())
        os << (os.tellp() > 0 ? " " : "") << k.getTime() << "=" << k.getValue()
           << "CLS"[int(k.getInterpolation())];
    return os.str();
}

} // namespace

TEST(CurveEval, EmptyCurveIsZeroAndHasNoKeyTimes) {
    TmTimeCurve c;
    EXPECT_EQ(c.evaluate(3.0), 0.0);
    EXPECT_FALSE(c.getFirstKeyTime());
    EXPECT_FALSE(c.getLastKeyTime());
    EXPECT_FALSE(c.getNextKeyTime(0.0));
    EXPECT_FALSE(c.getPreviousKeyTime(0.0));
}

TEST(CurveEval, HoldsEndValuesOutsideTheKeysAndHitsEveryKey) {
    for (Interp i : {Interp::Constant, Interp::Linear, Interp::Smooth}) {
        TmTimeCurve c = threeKeys(i);
        EXPECT_EQ(c.evaluate(-100.0), 10.0);
        EXPECT_EQ(c.evaluate(100.0), 0.0);
        EXPECT_EQ(c.evaluate(1.0), 10.0);
        EXPECT_EQ(c.evaluate(2.0), 20.0);
        EXPECT_EQ(c.evaluate(4.0), 0.0);
        EXPECT_EQ(c.evaluate(std::numeric_limits<double>::quiet_NaN()), 10.0);
    }
    TmTimeCurve one;
    one.setKey(5.0, 7.0);
    EXPECT_EQ(one.evaluate(0.0), 7.0);
    EXPECT_EQ(one.evaluate(9.0), 7.0);
}

TEST(CurveEval, ConstantAndLinearSegments) {
    TmTimeCurve c = threeKeys(Interp::Constant);
    EXPECT_EQ(c.evaluate(1.999), 10.0);
    EXPECT_EQ(c.evaluate(3.5), 20.0);

    TmTimeCurve l = threeKeys(Interp::Linear);
    EXPECT_DOUBLE_EQ(l.evaluate(1.5), 15.0);
    EXPECT_DOUBLE_EQ(l.evaluate(3.0), 10.0);
    EXPECT_DOUBLE_EQ(l.evaluate(3.5), 5.0);
}

TEST(CurveEval, TheEarlierKeyChoosesTheSegmentsInterpolation) {
    TmTimeCurve c;
    c.setKey(TmKeyframe(0.0, 0.0, Interp::Linear));
    c.setKey(TmKeyframe(1.0, 10.0, Interp::Constant));
    c.setKey(TmKeyframe(2.0, 0.0, Interp::Linear));
    EXPECT_DOUBLE_EQ(c.evaluate(0.5), 5.0);
    EXPECT_EQ(c.evaluate(1.5), 10.0);
}

TEST(CurveEval, SmoothIsCatmullRomThroughTheKeys) {
    TmTimeCurve c = threeKeys(Interp::Smooth);
    // Slopes: one-sided 10 at t=1, (0-10)/(4-1) at t=2, one-sided -10 at t=4.
    auto hermite = [](double p0, double m0, double p1, double m1, double h, double s) {
        double const s2 = s * s, s3 = s2 * s;
        return (2 * s3 - 3 * s2 + 1) * p0 + (s3 - 2 * s2 + s) * h * m0 + (-2 * s3 + 3 * s2) * p1 +
               (s3 - s2) * h * m1;
    };
    EXPECT_NEAR(c.evaluate(1.5), hermite(10, 10, 20, -10.0 / 3, 1, 0.5), 1e-12);
    EXPECT_NEAR(c.evaluate(3.0), hermite(20, -10.0 / 3, 0, -10, 2, 0.5), 1e-12);
    // Past the middle key the curve overshoots a linear blend: it is not piecewise linear.
    EXPECT_GT(c.evaluate(2.2), 20.0 - 0.2 * 10.0);

    // Keys on a line give the line itself, also unevenly spaced.
    TmTimeCurve line;
    for (double t : {0.0, 0.3, 1.0, 1.1, 4.0})
        line.setKey(t, 2.0 * t + 1.0);
    for (double t = 0.0; t <= 4.0; t += 0.05)
        EXPECT_NEAR(line.evaluate(t), 2.0 * t + 1.0, 1e-12) << t;
}

TEST(CurveKeys, SetKeyKeepsOrderAndReplacesAtTheSameTime) {
    TmTimeCurve c;
    c.setKey(3.0, 30.0);
    c.setKey(1.0, 10.0);
    c.setKey(2.0, 20.0);
    EXPECT_EQ(keys(c), "1=10S 2=20S 3=30S");
    // The same time (within the tolerance): one key, new value and interpolation.
    c.setKey(TmKeyframe(2.0 + 1e-12, 25.0, Interp::Constant));
    EXPECT_EQ(keys(c), "1=10S 2=25C 3=30S");
    // Setting only a value keeps the key's interpolation.
    c.setKey(2.0, 26.0);
    EXPECT_EQ(keys(c), "1=10S 2=26C 3=30S");
    EXPECT_THROW(c.getKey(3), std::out_of_range);

    // Times that are not numbers have no place among the keys.
    try {
        c.setKey(std::numeric_limits<double>::quiet_NaN(), 1.0);
        ADD_FAILURE() << "no assertion";
    } catch (ExAssertionFailed const& ex) {
        EXPECT_EQ(ex.getReason(), "std::isfinite(time)");
    }
    EXPECT_THROW(c.setKey(TmKeyframe(std::numeric_limits<double>::infinity(), 1.0)),
                 ExAssertionFailed);
    EXPECT_EQ(c.getNbKeys(), 3);
}

TEST(CurveKeys, FindAndRemove) {
    TmTimeCurve c = threeKeys(Interp::Linear);
    ASSERT_NE(c.findKey(2.0), nullptr);
    EXPECT_EQ(c.findKey(2.0)->getValue(), 20.0);
    EXPECT_EQ(c.findKey(2.0 - 1e-12)->getValue(), 20.0);
    EXPECT_EQ(c.findKey(2.001), nullptr);

    EXPECT_FALSE(c.removeKey(3.0));
    EXPECT_EQ(c.getNbKeys(), 3);
    EXPECT_TRUE(c.removeKey(2.0));
    EXPECT_EQ(c.getNbKeys(), 2);
    EXPECT_EQ(c.findKey(2.0), nullptr);
    EXPECT_DOUBLE_EQ(c.evaluate(2.5), 5.0);
    c.clear();
    EXPECT_EQ(c.getNbKeys(), 0);
}

TEST(CurveKeys, NavigationAtAndBetweenKeys) {
    TmTimeCurve c = threeKeys(Interp::Smooth);
    EXPECT_EQ(*c.getFirstKeyTime(), 1.0);
    EXPECT_EQ(*c.getLastKeyTime(), 4.0);

    EXPECT_EQ(*c.getNextKeyTime(0.0), 1.0);
    EXPECT_EQ(*c.getNextKeyTime(1.0), 2.0);
    EXPECT_EQ(*c.getNextKeyTime(1.0 + 1e-12), 2.0);
    EXPECT_EQ(*c.getNextKeyTime(2.5), 4.0);
    EXPECT_FALSE(c.getNextKeyTime(4.0));

    EXPECT_EQ(*c.getPreviousKeyTime(5.0), 4.0);
    EXPECT_EQ(*c.getPreviousKeyTime(4.0), 2.0);
    EXPECT_EQ(*c.getPreviousKeyTime(2.0 - 1e-12), 1.0);
    EXPECT_EQ(*c.getPreviousKeyTime(1.5), 1.0);
    EXPECT_FALSE(c.getPreviousKeyTime(1.0));
}

TEST(CurveKeys, CopiesAndClonesAreIndependent) {
    TmTimeCurve a = threeKeys(Interp::Linear);
    TmTimeCurve b(a);
    EXPECT_TRUE(a == b);
    b.setKey(2.0, 99.0);
    EXPECT_EQ(a.findKey(2.0)->getValue(), 20.0);
    EXPECT_FALSE(a == b);
    a = b;
    EXPECT_TRUE(a == b);

    RCShdPtr<TmTimeCurve> shared(new TmTimeCurve(a));
    RCShdPtr<TmTimeCurve> clone = shared->clone();
    EXPECT_EQ(clone->getReferenceCount(), 1);
    EXPECT_TRUE(*clone == *shared);
    clone->removeKey(1.0);
    EXPECT_EQ(shared->getNbKeys(), 3);
}

TEST(CurveEditable, AddKeyUsesTheDefaultInterpolationAndGivesTheIndex) {
    TcTimeCurve c;
    EXPECT_EQ(c.getDefaultInterpolation(), Interp::Smooth);
    EXPECT_EQ(c.addKey(2.0, 20.0), 0);
    EXPECT_EQ(c.addKey(1.0, 10.0), 0);
    c.setDefaultInterpolation(Interp::Linear);
    EXPECT_EQ(c.addKey(3.0, 30.0), 2);
    EXPECT_EQ(c.addKey(1.5, 15.0), 1);
    EXPECT_EQ(c.addKey(2.0, 21.0), 2);
    EXPECT_EQ(keys(c), "1=10S 1.5=15L 2=21L 3=30L");
    c.setInterpolation(Interp::Constant);
    EXPECT_EQ(keys(c), "1=10C 1.5=15C 2=21C 3=30C");
    EXPECT_EQ(c.evaluate(2.5), 21.0);
}

TEST(CurveEditable, CloneStaysEditable) {
    TcTimeCurve c(Interp::Constant);
    c.addKey(1.0, 1.0);
    RCShdPtr<TmTimeCurve> clone = c.clone();
    auto editable = dynamicCast<TcTimeCurve>(clone);
    ASSERT_FALSE(editable.isNull());
    EXPECT_EQ(editable->getDefaultInterpolation(), Interp::Constant);
    editable->addKey(2.0, 2.0);
    EXPECT_EQ(c.getNbKeys(), 1);
}

namespace {

// Samples f at `count` times from 0 to `end` into a fresh curve; returns the sample times.
std::vector<double> sample(TcTimeCurve& c, int count, double end, double (*f)(double)) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        double const t = end * i / (count - 1);
        c.addKey(t, f(t));
        times.push_back(t);
    }
    return times;
}

} // namespace

TEST(CurveSimplify, ASineStaysWithinTheTolerance) {
    for (double tolerance : {0.1, 0.01, 0.001}) {
        TcTimeCurve c;
        auto times = sample(c, 200, 2.0, [](double t) { return std::sin(6.0 * t); });
        TcTimeCurve const before(c);
        int const removed = TcTimeCurveUtils::simplify(c, times, tolerance, 0.001);
        EXPECT_GT(removed, 100) << tolerance;
        EXPECT_LT(removed, 198) << tolerance;
        for (double t = 0.0; t <= 2.0; t += 0.005)
            EXPECT_NEAR(c.evaluate(t), before.evaluate(t), tolerance * 1.5)
                << tolerance << " " << t;
        for (double t : times)
            EXPECT_NEAR(c.evaluate(t), before.evaluate(t), tolerance) << tolerance << " " << t;
    }
}

TEST(CurveSimplify, OnlyListedKeysGoAndNeverTheEnds) {
    TcTimeCurve c;
    auto times = sample(c, 11, 1.0, [](double t) { return t; });
    // Only the key near 0.5 is a candidate, given a little off its time; the end keys are
    // listed but stay.
    EXPECT_EQ(TcTimeCurveUtils::simplify(c, {0.0, 0.5004, 1.0}, 0.001, 0.001), 1);
    EXPECT_EQ(c.getNbKeys(), 10);
    EXPECT_EQ(c.findKey(0.5), nullptr);
    // A time farther than the time tolerance from every key names none.
    EXPECT_EQ(TcTimeCurveUtils::simplify(c, {0.3 + 0.01}, 0.001, 0.001), 0);

    // A step is needed everywhere: nothing goes.
    TcTimeCurve step(Interp::Constant);
    for (int i = 0; i < 5; ++i)
        step.addKey(i, i % 2);
    EXPECT_EQ(TcTimeCurveUtils::simplify(step, {1, 2, 3}, 0.001, 0.001), 0);
    EXPECT_EQ(step.getNbKeys(), 5);
}

TEST(CurveSimplify, KeysThatAreNotNumbersStay) {
    TcTimeCurve c;
    c.addKey(0.0, 0.0);
    c.addKey(1.0, std::numeric_limits<double>::quiet_NaN());
    c.addKey(2.0, 2.0);
    c.addKey(3.0, 3.0);
    TcTimeCurveUtils::simplify(c, {1.0, 2.0}, 0.001, 0.001);
    ASSERT_NE(c.findKey(1.0), nullptr);
    EXPECT_TRUE(std::isnan(c.findKey(1.0)->getValue()));
}

TEST(CurveSimplify, ALongLineCollapsesToItsEndKeys) {
    TcTimeCurve c;
    auto times = sample(c, 100000, 4000.0, [](double t) { return 0.5 - 2.0 * t; });
    EXPECT_EQ(TcTimeCurveUtils::simplify(c, times, 0.001, 0.001), 99998);
    EXPECT_EQ(keys(c), "0=0.5S 4000=-7999.5S");
    EXPECT_NEAR(c.evaluate(1234.5), 0.5 - 2.0 * 1234.5, 1e-6);

    // A key that is not a candidate stays, and the line collapses on either side of it.
    TcTimeCurve d(Interp::Linear);
    times = sample(d, 1001, 10.0, [](double t) { return t; });
    times.erase(times.begin() + 300);
    EXPECT_EQ(TcTimeCurveUtils::simplify(d, times, 0.001, 0.001), 998);
    EXPECT_EQ(keys(d), "0=0L 3=3L 10=10L");
}

namespace {

bool agreesWithin(double a, double b, double tolerance) {
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b || std::abs(a - b) <= tolerance;
}

// Keys equal in time, interpolation and value, a value that is not a number matching another.
bool sameKey(TmKeyframe const& a, TmKeyframe const& b) {
    return a.getTime() == b.getTime() && a.getInterpolation() == b.getInterpolation() &&
           agreesWithin(a.getValue(), b.getValue(), 0.0);
}

// The original key times and the midpoints between them, where a simplified curve must agree.
std::vector<double> checkTimes(TmTimeCurve const& c) {
    std::vector<double> times;
    for (int i = 0; i < c.getNbKeys(); ++i) {
        times.push_back(c.getKey(i).getTime());
        if (i + 1 < c.getNbKeys())
            times.push_back(0.5 * (c.getKey(i).getTime() + c.getKey(i + 1).getTime()));
    }
    return times;
}

} // namespace

TEST(CurveSimplify, NoisyCurvesHoldTheToleranceAtEveryKeyAndMidpoint) {
    std::mt19937 rng(5);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    std::uniform_int_distribution<int> kind(0, 2);
    Interp const kinds[] = {Interp::Constant, Interp::Linear, Interp::Smooth};
    // Interpolations: each kind alone, then mixed at random; the last round has values that
    // are not finite among the keys.
    for (int round = 0; round < 5; ++round) {
        for (double const tolerance : {0.1, 0.03, 0.005}) {
            TcTimeCurve c;
            std::vector<double> candidates;
            std::vector<TmKeyframe> fixed;
            double t = 0.0;
            for (int i = 0; i < 3000; ++i) {
                t += 0.01 + 0.02 * (noise(rng) + 1.0);
                double value = std::sin(t) + 0.05 * noise(rng);
                if (round == 4 && i % 401 == 200)
                    value = i % 802 == 200 ? std::numeric_limits<double>::infinity()
                                           : std::numeric_limits<double>::quiet_NaN();
                Interp const interp = round < 3 ? kinds[round] : kinds[kind(rng)];
                c.setKey(TmKeyframe(t, value, interp));
                // Every 31st key is not a candidate; the others are named slightly off.
                if (i % 31 == 3)
                    fixed.push_back(c.getKey(i));
                else
                    candidates.push_back(t + 0.0004 * noise(rng));
            }
            TcTimeCurve const before(c);
            int const removed = TcTimeCurveUtils::simplify(c, candidates, tolerance, 0.001);
            std::string const where =
                "round " + std::to_string(round) + " tolerance " + std::to_string(tolerance);
            EXPECT_GT(removed, 0) << where;
            EXPECT_EQ(removed, before.getNbKeys() - c.getNbKeys()) << where;

            EXPECT_EQ(c.getKeys().front(), before.getKeys().front()) << where;
            EXPECT_EQ(c.getKeys().back(), before.getKeys().back()) << where;
            for (TmKeyframe const& key : fixed) {
                TmKeyframe const* kept = c.findKey(key.getTime());
                ASSERT_NE(kept, nullptr) << where << " " << key.getTime();
                EXPECT_TRUE(sameKey(*kept, key)) << where << " " << key.getTime();
            }
            // Kept keys are original keys, unchanged.
            for (TmKeyframe const& key : c.getKeys()) {
                TmKeyframe const* original = before.findKey(key.getTime());
                ASSERT_NE(original, nullptr) << where;
                EXPECT_TRUE(sameKey(key, *original)) << where << " " << key.getTime();
            }
            int failures = 0;
            for (double const time : checkTimes(before))
                if (!agreesWithin(c.evaluate(time), before.evaluate(time), tolerance) &&
                    ++failures <= 5)
                    ADD_FAILURE() << where << " at " << time << ": " << c.evaluate(time)
                                  << " instead of " << before.evaluate(time);
            EXPECT_EQ(failures, 0) << where;
        }
    }
}

TEST(CurveSimplify, RepeatedOrStrayTimesChangeNothingElse) {
    TcTimeCurve c;
    auto times = sample(c, 50, 1.0, [](double t) { return t * t; });
    TcTimeCurve const before(c);
    // Times listed twice, out of order, not numbers or far from any key.
    std::vector<double> listed(times.rbegin(), times.rend());
    listed.insert(listed.end(), times.begin(), times.end());
    listed.push_back(std::numeric_limits<double>::quiet_NaN());
    listed.push_back(-5.0);
    listed.push_back(7.0);
    int const removed = TcTimeCurveUtils::simplify(c, listed, 0.001, 0.001);
    EXPECT_GT(removed, 10);
    EXPECT_EQ(c.getNbKeys(), 50 - removed);
    for (double const time : checkTimes(before))
        EXPECT_NEAR(c.evaluate(time), before.evaluate(time), 0.001) << time;

    // Nothing to remove: no times, or too few keys.
    TcTimeCurve const simplified(c);
    EXPECT_EQ(TcTimeCurveUtils::simplify(c, {}, 0.001, 0.001), 0);
    EXPECT_EQ(c, simplified);
    TcTimeCurve two;
    two.addKey(0.0, 1.0);
    two.addKey(1.0, 5.0);
    EXPECT_EQ(TcTimeCurveUtils::simplify(two, {0.0, 1.0}, 10.0, 0.001), 0);
    EXPECT_EQ(two.getNbKeys(), 2);
}
