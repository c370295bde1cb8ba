// Numbers in the text forms of resources: the shortest text that reads back to the same value,
// so that a resource written as text and read again compares equal.
#pragma once

#include <charconv>
#include <ostream>
#include <string_view>

namespace Zr {

template <class T>
void writeShortestNumber(std::ostream& os, T value) {
    char buffer[40];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    os << std::string_view(buffer, ec == std::errc() ? static_cast<std::size_t>(end - buffer) : 0);
}

} // namespace Zr
