// Numbers in the text forms of resources: written as the shortest text that reads back to the
// same value, read by the same rules (so "inf", "nan" and subnormals come back too).
#pragma once

#include <charconv>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

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

} // namespace Zr
