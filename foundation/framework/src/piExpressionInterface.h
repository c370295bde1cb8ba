// PiExpressionInterface: access to the expression of one input: its text, a setter, whether it
// evaluates and why not.
#pragma once

#include <string>

namespace Zr {

class PiExpressionInterface {
public:
    virtual ~PiExpressionInterface() = default;
    // Empty when there is none.
    virtual std::string getExpression() const = 0;
    // An empty text removes the expression.
    virtual void setExpression(std::string const& text) = 0;
    // False when the expression does not compile or its last evaluation failed.
    virtual bool isValid() const = 0;
    virtual std::string getErrorMessage() const = 0;
};

} // namespace Zr
