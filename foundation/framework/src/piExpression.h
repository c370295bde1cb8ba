// PiExpression: the compiled text of one input's expression, evaluated with muparser. Other
// inputs are read by their full names ("Blur1.radius", "Grade1.gain.Red"); `time` is the time
// of the evaluation in seconds and `frame` the same time in frames of the graph's rate.
#pragma once

#include "rcBase.h"

#include <functional>
#include <string>
#include <vector>

namespace Zr {

class PiExpression {
public:
    // Reads the value of variable `index` of getVariables() at the time of the evaluation.
    // Throws PiExpressionEx::ExEvaluation with a user-readable reason when the variable names no
    // input or the read runs into a cycle; evaluate() passes that on.
    using Resolver = std::function<double(int index)>;

    // Compiles `text`. A text that doesn't parse gives an invalid expression with the parser's
    // message; it never throws.
    explicit PiExpression(std::string const& text);
    ~PiExpression();
    PiExpression(PiExpression const&) = delete;
    PiExpression& operator=(PiExpression const&) = delete;

    std::string const& getText() const;
    bool isValid() const;
    // Empty for a valid expression; otherwise the reason, such as
    // "Unexpected end of expression at position 4".
    std::string const& getErrorMessage() const;

    // The input names the expression reads, in order of first appearance, without "time" and
    // "frame".
    std::vector<std::string> const& getVariables() const;

    // Evaluates at `time` (seconds) with `rate` frames per second. An invalid expression throws
    // PiExpressionEx::ExEvaluation with getErrorMessage() as reason.
    double evaluate(double time, double rate, Resolver const& resolver) const;

private:
    struct Imp;
    OPtr<Imp> _imp;
};

struct PiExpressionEx {
    ZR_DECLARE_EXCEPTION(ExEvaluation, ExBase);
};

} // namespace Zr
