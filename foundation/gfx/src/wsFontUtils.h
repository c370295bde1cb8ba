// WsFontUtils: UTF-8 decoding for the fonts, and fitting a text into a width by cutting out
// its middle.
#pragma once

#include "rcBase.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Zr {

class WsFont;

struct WsFontUtils {
    static constexpr char32_t ReplacementCharacter = 0xFFFD;
    // What replaces the middle of a truncated text: three full stops, which every font has
    // and which measure predictably.
    static constexpr char const* Ellipsis = "...";

    // The code point that starts at text[pos]; moves pos past it. A byte that does not start
    // a valid sequence (a stray continuation byte, a truncated, overlong or surrogate sequence,
    // or one beyond U+10FFFF) gives U+FFFD and moves pos past the lead byte and those
    // continuation bytes that still fitted, so every bad spot is one replacement character.
    static char32_t decodeUtf8(std::string_view text, std::size_t& pos);
    static bool isContinuationByte(char c) {
        return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    }
    // The start of the character that holds byte `pos` (pos itself at a boundary); never
    // inside a sequence. `pos` past the end gives the size.
    static std::size_t toCharacterStart(std::string_view text, std::size_t pos);
    // The number of code points, each bad spot counting as one.
    static std::size_t countCodePoints(std::string_view text);

    // The text itself if it fits into `width` pixels in `font`; otherwise the text with as few
    // characters as possible taken out of its middle and replaced by "...", keeping the first
    // and last characters as long as anything fits (the start keeps the extra character when
    // the count is odd). Cuts fall between whole UTF-8 sequences. When not even "..." fits,
    // the result is "...", so that a reader still sees that something is missing.
    static std::string truncateInTheMiddle(WsFont const& font, std::string_view text, float width);
    static std::string truncateInTheMiddle(RCShdPtr<WsFont> const& font, std::string_view text,
                                           float width);
};

} // namespace Zr
