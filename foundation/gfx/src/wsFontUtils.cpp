// WsFontUtils: UTF-8 decoding and middle truncation.
#include "wsFontUtils.h"

#include "wsFont.h"

#include <vector>

namespace Zr {

char32_t WsFontUtils::decodeUtf8(std::string_view text, std::size_t& pos) {
    auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char const lead = byte(pos);
    if (lead < 0x80) {
        ++pos;
        return lead;
    }
    int length = 0;
    char32_t cp = 0;
    char32_t min = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        cp = lead & 0x1F;
        min = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        cp = lead & 0x0F;
        min = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        cp = lead & 0x07;
        min = 0x10000;
    } else {
        ++pos; // continuation byte, C0, C1 or F5..FF
        return ReplacementCharacter;
    }
    std::size_t i = pos + 1;
    for (int k = 1; k < length; ++k, ++i) {
        if (i >= text.size() || !isContinuationByte(text[i])) {
            pos = i;
            return ReplacementCharacter;
        }
        cp = (cp << 6) | (byte(i) & 0x3F);
        // Reject overlong forms, surrogates and values past U+10FFFF as soon as the second
        // byte shows them, so that the bytes after stay separate characters.
        if (k == 1) {
            char32_t const high = cp << (6 * (length - 2));
            if (high < min || high > 0x10FFFF || (high >= 0xD800 && high <= 0xDFFF)) {
                pos = i;
                return ReplacementCharacter;
            }
        }
    }
    pos = i;
    return cp;
}

std::size_t WsFontUtils::toCharacterStart(std::string_view text, std::size_t pos) {
    if (pos >= text.size())
        return text.size();
    // A lead byte is at most three bytes back; further back, the continuation bytes are stray
    // ones, each a character of its own.
    std::size_t start = pos;
    for (int back = 0; back < 3 && start > 0 && isContinuationByte(text[start]); ++back)
        --start;
    if (start == pos)
        return pos;
    std::size_t p = start;
    decodeUtf8(text, p);
    return p > pos ? start : pos;
}

std::size_t WsFontUtils::countCodePoints(std::string_view text) {
    std::size_t n = 0;
    for (std::size_t pos = 0; pos < text.size(); ++n)
        decodeUtf8(text, pos);
    return n;
}

std::string WsFontUtils::truncateInTheMiddle(WsFont const& font, std::string_view text,
                                             float width) {
    if (font.getStringWidth(text) <= width)
        return std::string(text);
    // The byte offset of each character start, and the end.
    std::vector<std::size_t> starts;
    for (std::size_t pos = 0; pos < text.size();) {
        starts.push_back(pos);
        decodeUtf8(text, pos);
    }
    std::size_t const n = starts.size();
    if (n == 0)
        return std::string(); // a negative width and no text
    starts.push_back(text.size());
    // Widths without the kerning across the cut, to find the candidate quickly; the candidate
    // is then measured whole and shortened further while it doesn't fit.
    std::vector<float> prefix;
    font.getCharacterPositions(text, prefix);
    float const ellipsis = font.getStringWidth(Ellipsis);
    auto assemble = [&](std::size_t kept) {
        std::size_t const head = (kept + 1) / 2;
        std::size_t const tail = kept / 2;
        std::string result(text.substr(0, starts[head]));
        result += Ellipsis;
        result += text.substr(starts[n - tail]);
        return result;
    };
    auto estimate = [&](std::size_t kept) {
        std::size_t const head = (kept + 1) / 2;
        std::size_t const tail = kept / 2;
        return prefix[head] + ellipsis + (prefix[n] - prefix[n - tail]);
    };
    std::size_t kept = n - 1;
    while (kept > 0 && estimate(kept) > width)
        --kept;
    for (;; --kept) {
        std::string candidate = assemble(kept);
        if (kept == 0 || font.getStringWidth(candidate) <= width)
            return candidate;
    }
}

std::string WsFontUtils::truncateInTheMiddle(RCShdPtr<WsFont> const& font, std::string_view text,
                                             float width) {
    return truncateInTheMiddle(*font, text, width);
}

} // namespace Zr
