// UiCalculatable: how a calculator or an input's context menu reaches one value without knowing
// the widget that shows it: read and write the number, its expression, where it is on screen.
#pragma once

#include "geRectangle.h"
#include "piExpression.h"
#include "rcBase.h"
#include "uiLabelHandler.h"

#include <string>

namespace Zr {

class UiCalculatable : public RCObject {
public:
    // The expression behind a value, shared between the input that owns it and a calculator
    // that shows or edits its text. PiExpression itself is not shared, so it is held here.
    class Expression : public RCObject {
    public:
        explicit Expression(std::string const& text) : _expression(text) {}
        PiExpression const& get() const { return _expression; }
        std::string const& getText() const { return _expression.getText(); }

    private:
        PiExpression _expression;
    };

    ~UiCalculatable() override = default;

    virtual void setValue(double value) = 0;
    virtual double getValue() const = 0;
    // Null when the value has no expression.
    virtual RCShdPtr<Expression const> getExpression() const = 0;
    // Whether the value may take an expression at all.
    virtual bool supportsExpressions() const = 0;
    // The widget's rectangle in screen coordinates, so a calculator can open next to it.
    virtual GeRectangle<int> getScreenRectangle() const = 0;
    // Null when the widget formats numbers itself.
    virtual RCShdPtr<UiLabelHandler const> getLabelHandler() const = 0;
};

} // namespace Zr
