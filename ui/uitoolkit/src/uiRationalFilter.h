// UiRationalFilter: a text field filter for numbers written as a decimal ("23.976") or a
// fraction ("30000/1001", "16:9"). UiRateFilter, for frame rates, shows " FPS" behind the value
// and demands one above zero; UiRatioFilter, for ratios, writes them with a colon.
#pragma once

#include "uiTextField.h"

namespace Zr {

class UiRationalFilter : public UiTextField::Filter {
public:
    // Digits, '.', '/' and ':'.
    bool isValid(char c) const override;
    // Reads the text into the numerator and denominator. A text that can't be read warns with
    // "MSG_SYNTAX_ERROR", a decimal too large with "MSG_FLOATING_OVERFLOW", an integer too
    // large with "MSG_INTEGER_OVERFLOW"; each gives false.
    bool isValid(LiString const& text) const override;
    // The text read by the last test, and its value.
    int getNumerator() const { return _numerator; }
    int getDenominator() const { return _denominator; }
    std::string const& getText() const { return _text; }

protected:
    // Reads without telling the user; the message id of the failure in `problem`.
    bool parse(std::string const& text, std::string& problem) const;
    // The parsed value as "numerator" when the denominator is 1, else "numerator<sep>denominator".
    std::string format(char separator) const;

    mutable int _numerator = 0;
    mutable int _denominator = 1;
    mutable std::string _text;
};

class UiRateFilter : public UiRationalFilter {
public:
    // As a rational, and above zero: else "MSG_VALUE_GREATER_ZERO" and false.
    bool isValid(LiString const& text) const override;
    // Takes " FPS" away for editing.
    LiString preFilter(LiString const& text) override;
    // "25 FPS", "24000/1001 FPS".
    LiString postFilter(LiString const& text) override;
};

class UiRatioFilter : public UiRationalFilter {
public:
    // As a rational, and above zero: else "MSG_VALUE_GREATER_ZERO" and false.
    bool isValid(LiString const& text) const override;
    // "16:9" for a fraction, "2" for a whole ratio; a decimal becomes its nearest fraction.
    LiString postFilter(LiString const& text) override;
};

} // namespace Zr
