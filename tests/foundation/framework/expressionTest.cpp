// Tests of expressions: compiling, the names they read, evaluation with time and frame, and
// the reasons given for texts that don't compile or evaluations that fail.
#include "piExpression.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>

using namespace Zr;

namespace {

// Resolves variables from a table by name; unknown names fail as an input lookup would.
struct Inputs {
    std::map<std::string, double> values;
    std::vector<int> asked;

    PiExpression::Resolver resolverFor(PiExpression const& e) {
        return [this, &e](int i) {
            asked.push_back(i);
            std::string const& name = e.getVariables().at(static_cast<std::size_t>(i));
            auto it = values.find(name);
            if (it == values.end())
                throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__, "Unknown input: " + name);
            return it->second;
        };
    }
};

double noInputs(int) {
    ADD_FAILURE() << "no variable expected";
    return 0.0;
}

} // namespace

TEST(Expression, ArithmeticFunctionsTimeAndFrame) {
    struct Case {
        char const* text;
        double time, rate, value;
    } const cases[] = {
        {"1+2*3", 0, 25, 7.0},
        {"(1+2)*3", 0, 25, 9.0},
        {"2^10", 0, 25, 1024.0},
        {"-3 + 5", 0, 25, 2.0},
        {"sqrt(16) + abs(-2)", 0, 25, 6.0},
        {"min(4, 2, 8)", 0, 25, 2.0},
        {"1 < 2 ? 10 : 20", 0, 25, 10.0},
        {"exp(0) * 4", 0, 25, 4.0},
        {" 7 ", 0, 25, 7.0},
        {"sin(0) + cos(0)", 0, 25, 1.0},
        {"time", 1.5, 24, 1.5},
        {"frame", 1.5, 24, 36.0},
        {"frame", 2.0, 30000.0 / 1001.0, 2.0 * 30000.0 / 1001.0},
    };
    for (auto const& c : cases) {
        PiExpression e(c.text);
        ASSERT_TRUE(e.isValid()) << c.text << ": " << e.getErrorMessage();
        EXPECT_EQ(e.getErrorMessage(), "");
        EXPECT_TRUE(e.getVariables().empty()) << c.text;
        EXPECT_DOUBLE_EQ(e.evaluate(c.time, c.rate, noInputs), c.value) << c.text;
    }
    EXPECT_DOUBLE_EQ(
        PiExpression("Blur1.radius * 2 + sin(time)").evaluate(0.5, 25.0, [](int) { return 4.0; }),
        8.0 + std::sin(0.5));
    // Division by zero is a value, not an error; callers decide what to do with it.
    EXPECT_TRUE(std::isinf(PiExpression("1/0").evaluate(0.0, 25.0, noInputs)));
    EXPECT_TRUE(std::isnan(PiExpression("sqrt(-1)").evaluate(0.0, 25.0, noInputs)));
    EXPECT_TRUE(std::isnan(PiExpression("a.b * 2").evaluate(
        0.0, 25.0, [](int) { return std::numeric_limits<double>::quiet_NaN(); })));
}

TEST(Expression, VariablesAreInputFullNamesInOrderOfFirstUse) {
    PiExpression e("Grade1.gain.Red * 2 + Blur1.radius - Grade1.gain.Red + time + frame + "
                   "Group1.Blur_2.radius");
    ASSERT_TRUE(e.isValid()) << e.getErrorMessage();
    std::vector<std::string> const expected{"Grade1.gain.Red", "Blur1.radius",
                                            "Group1.Blur_2.radius"};
    EXPECT_EQ(e.getVariables(), expected);

    Inputs in;
    in.values = {{"Grade1.gain.Red", 3.0}, {"Blur1.radius", 5.0}, {"Group1.Blur_2.radius", 0.5}};
    // 3*2 + 5 - 3 + 2 + 50 + 0.5
    EXPECT_DOUBLE_EQ(e.evaluate(2.0, 25.0, in.resolverFor(e)), 60.5);
    // Every variable is read once per evaluation, in order.
    EXPECT_EQ(in.asked, (std::vector<int>{0, 1, 2}));

    in.values["Blur1.radius"] = 6.0;
    EXPECT_DOUBLE_EQ(e.evaluate(2.0, 25.0, in.resolverFor(e)), 61.5);
}

TEST(Expression, InvalidTextsGiveTheParsersReasonWithoutThrowing) {
    struct Case {
        char const* text;
        char const* message;
    } const cases[] = {
        {"", "Empty expression"},
        {"  \t\n", "Empty expression"},
        {"1+", "Unexpected end of expression at position 3"},
        {"(1", "Missing parenthesis"},
        {"1)", "Unexpected parenthesis \")\" at position 1"},
        {"2 3", "Unexpected value \"3\" found at position 2"},
        {"foo(1)", "Unexpected parenthesis \"(\" at position 3"},
        {"sum()", "Too few parameters for function \"sum\" at expression position 5"},
        {"1e400", "Invalid function-, variable- or constant name: \"1e400\"."},
        {"Blur1.radius + .x", "Invalid function-, variable- or constant name: \".x\"."},
    };
    for (auto const& c : cases) {
        std::optional<PiExpression> e;
        ASSERT_NO_THROW(e.emplace(c.text)) << c.text;
        EXPECT_FALSE(e->isValid()) << c.text;
        EXPECT_EQ(e->getErrorMessage(), c.message) << c.text;
        EXPECT_EQ(e->getText(), c.text);
        EXPECT_TRUE(e->getVariables().empty()) << c.text;
        EXPECT_EQ(TestSupport::reasonOf<PiExpressionEx::ExEvaluation>(
                      [&] { e->evaluate(0.0, 25.0, noInputs); }),
                  c.message);
    }
}

TEST(Expression, UnknownNamesAreTheResolversToReport) {
    // The expression accepts any name; the resolver decides what names an input.
    PiExpression e("Nowhere.value + Blur1.radius");
    ASSERT_TRUE(e.isValid());
    Inputs in;
    in.values = {{"Blur1.radius", 1.0}};
    EXPECT_EQ(TestSupport::reasonOf<PiExpressionEx::ExEvaluation>(
                  [&] { e.evaluate(0.0, 25.0, in.resolverFor(e)); }),
              "Unknown input: Nowhere.value");
    // Any exception of the resolver passes through unchanged.
    EXPECT_THROW(e.evaluate(0.0, 25.0, [](int) -> double { throw std::runtime_error("x"); }),
                 std::runtime_error);
    // The expression is still usable afterwards.
    in.values["Nowhere.value"] = 2.0;
    EXPECT_DOUBLE_EQ(e.evaluate(0.0, 25.0, in.resolverFor(e)), 3.0);
}
