// Numbers in the text forms of resources: written as the shortest text that reads back to the
// same value, read by the same rules (so "inf", "nan" and subnormals come back too).
#pragma once

#include "uiResourceEx.h"

#include <cctype>
#include <charconv>
#include <istream>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Zr {

template <class T>
void writeShortestNumber(std::ostream& os, T value) {
    char buffer[40];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    os << std::string_view(buffer, ec == std::errc() ? static_cast<std::size_t>(end - buffer) : 0);
}

// Whether `word` is wholly a number of type T (a leading '+' allowed); if so it goes to `value`.
template <class T>
bool parseNumber(std::string_view word, T& value) {
    char const* first = word.data();
    char const* const last = first + word.size();
    if (first != last && *first == '+')
        ++first;
    T read{};
    auto [end, ec] = std::from_chars(first, last, read);
    if (ec != std::errc() || end != last || first == last)
        return false;
    value = read;
    return true;
}

// Reads the next blank-separated word as a number of type T; a word that is not wholly a number
// sets the stream's failbit and leaves `value` untouched.
template <class T>
bool readNumber(std::istream& is, T& value) {
    std::string word;
    if (!(is >> word))
        return false;
    if (parseNumber(word, value))
        return true;
    is.setstate(std::ios::failbit);
    return false;
}

// Coordinates and sizes in resources lie within plus or minus this many pixels, so that a
// corner plus a size, or a sum of two such, stays far inside an int.
inline constexpr int MaxResourceCoordinate = 1000000;

// `text` wholly as a T; otherwise UiResourceEx::ExBadNumber naming `what`. An integer too
// large for T is reported with T's range.
template <class T>
T parseWholeNumber(std::string_view text, std::string const& what) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())))
        text.remove_prefix(1);
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back())))
        text.remove_suffix(1);
    T value{};
    if (parseNumber(text, value))
        return value;
    if constexpr (std::numeric_limits<T>::is_integer) {
        long long wide = 0;
        auto const [end, ec] = std::from_chars(text.data(), text.data() + text.size(), wide);
        if (ec == std::errc::result_out_of_range ||
            (ec == std::errc() && end == text.data() + text.size()))
            throw UiResourceEx::ExBadNumber(__FILE__, __LINE__, what, std::string(text),
                                            std::to_string(std::numeric_limits<T>::lowest()) +
                                                " and " +
                                                std::to_string(std::numeric_limits<T>::max()));
    }
    throw UiResourceEx::ExBadNumber(__FILE__, __LINE__, what, std::string(text));
}

// `text` wholly as a T within [min, max]; otherwise UiResourceEx::ExBadNumber naming `what`.
template <class T>
T parseNumberIn(std::string_view text, T min, T max, std::string const& what) {
    // Integers are read wide, so a number past T's own range is told the stated range too.
    using Wide = std::conditional_t<std::numeric_limits<T>::is_integer, long long, T>;
    Wide const value = parseWholeNumber<Wide>(text, what);
    if (!(value >= min && value <= max)) { // NaN lies outside too
        std::ostringstream range;
        writeShortestNumber(range, min);
        range << " and ";
        writeShortestNumber(range, max);
        throw UiResourceEx::ExBadNumber(__FILE__, __LINE__, what, std::string(text), range.str());
    }
    return static_cast<T>(value);
}

// Reads the numbers up to the end of the stream; a word that is not wholly a number raises
// UiResourceEx::ExBadNumber naming `what`.
template <class T>
void readAllNumbers(std::istream& is, std::vector<T>& values, std::string const& what) {
    std::string word;
    while (is >> word)
        values.push_back(parseWholeNumber<T>(word, what));
}

} // namespace Zr
