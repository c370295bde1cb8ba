// UiRationalFilter, UiRateFilter and UiRatioFilter: reading decimals and fractions, the warnings
// of the texts they refuse, and the " FPS" and colon forms they write.
#include "uiRationalFilter.h"

#include "liStringUtil.h"
#include "msgProtocol.h"
#include "rational.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace Zr {

namespace {

char const* const Fps = " FPS";

void warn(std::string const& id) {
    MsgProtocol::display(MsgWarning(MsgSubscription(id)));
}

// A whole int from the whole of `text`: no sign, no blanks.
bool readInt(std::string_view text, int& value, std::string& problem) {
    if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) {
        problem = "MSG_SYNTAX_ERROR";
        return false;
    }
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range) {
        problem = "MSG_INTEGER_OVERFLOW";
        return false;
    }
    return ec == std::errc() && end == text.data() + text.size();
}

} // namespace

bool UiRationalFilter::isValid(char c) const {
    return (c >= '0' && c <= '9') || c == '.' || c == '/' || c == ':';
}

bool UiRationalFilter::parse(std::string const& text, std::string& problem) const {
    _text = text;
    std::size_t separator = text.find(':');
    if (separator == std::string::npos)
        separator = text.find('/');
    if (separator != std::string::npos) {
        int numerator = 0, denominator = 0;
        if (!readInt(std::string_view(text).substr(0, separator), numerator, problem) ||
            !readInt(std::string_view(text).substr(separator + 1), denominator, problem))
            return false;
        if (denominator == 0) {
            problem = "MSG_SYNTAX_ERROR";
            return false;
        }
        _numerator = numerator;
        _denominator = denominator;
        return true;
    }
    // A decimal: digits with at most one point, at least one digit.
    if (text.empty() || text.find_first_not_of("0123456789.") != std::string::npos ||
        text.find('.') != text.rfind('.') || text == ".") {
        problem = "MSG_SYNTAX_ERROR";
        return false;
    }
    double value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range || !std::isfinite(value) ||
        value > std::numeric_limits<int>::max()) {
        problem = "MSG_FLOATING_OVERFLOW";
        return false;
    }
    if (ec != std::errc() || end != text.data() + text.size()) {
        problem = "MSG_SYNTAX_ERROR";
        return false;
    }
    Rational const r = RationalUtil::fromFloat(value, 100000);
    if (r.getNumerator() > std::numeric_limits<int>::max()) {
        problem = "MSG_FLOATING_OVERFLOW";
        return false;
    }
    _numerator = static_cast<int>(r.getNumerator());
    _denominator = static_cast<int>(r.getDenominator());
    return true;
}

bool UiRationalFilter::isValid(LiString const& text) const {
    std::string problem;
    if (parse(text.str(), problem))
        return true;
    warn(problem);
    return false;
}

std::string UiRationalFilter::format(char separator) const {
    std::string out = std::to_string(_numerator);
    if (_denominator != 1)
        out += separator + std::to_string(_denominator);
    return out;
}

bool UiRateFilter::isValid(LiString const& text) const {
    // A committed rate carries its unit: the number before it is what is tested.
    if (!UiRationalFilter::isValid(LiString(LiStringUtil::substitute(text.str(), Fps, ""))))
        return false;
    if (_numerator > 0)
        return true;
    warn("MSG_VALUE_GREATER_ZERO");
    return false;
}

LiString UiRateFilter::preFilter(LiString const& text) {
    return LiString(LiStringUtil::substitute(text.str(), Fps, ""));
}

LiString UiRateFilter::postFilter(LiString const& text) {
    std::string problem;
    std::string const bare = preFilter(text).str();
    if (!parse(bare, problem))
        return LiString(bare); // the test that follows reports it
    return LiString(format('/') + Fps);
}

bool UiRatioFilter::isValid(LiString const& text) const {
    if (!UiRationalFilter::isValid(text))
        return false;
    if (_numerator > 0)
        return true;
    warn("MSG_VALUE_GREATER_ZERO");
    return false;
}

LiString UiRatioFilter::postFilter(LiString const& text) {
    std::string problem;
    if (!parse(text.str(), problem))
        return text;
    return LiString(format(':'));
}

} // namespace Zr
