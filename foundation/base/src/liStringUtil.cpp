// String helpers.
#include "liStringUtil.h"

#include <charconv>
#include <system_error>

namespace Zr {

namespace {
bool isAsciiLetter(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isAsciiDigit(unsigned char c) {
    return c >= '0' && c <= '9';
}
bool isNameChar(unsigned char c) {
    return isAsciiLetter(c) || isAsciiDigit(c) || c == '_';
}
bool isBlank(int c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}
} // namespace

std::string LiStringUtil::convertNb(double value) {
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    if (result.ec != std::errc())
        return std::to_string(value);
    return std::string(buffer, result.ptr);
}

std::string LiStringUtil::convertNb(int value) {
    return std::to_string(value);
}

std::string LiStringUtil::substitute(std::string const& text, std::string const& from,
                                     std::string const& to) {
    if (from.empty())
        return text;
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    for (std::size_t hit; (hit = text.find(from, pos)) != std::string::npos;
         pos = hit + from.size()) {
        out.append(text, pos, hit - pos);
        out += to;
    }
    out.append(text, pos, std::string::npos);
    return out;
}

std::string LiStringUtil::toLowerCase(std::string const& text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

std::string LiStringUtil::trimLeadingSpaces(std::string const& text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(static_cast<unsigned char>(text[i])))
        ++i;
    return text.substr(i);
}

std::string LiStringUtil::sanitizeComponentName(std::string const& name) {
    std::string out;
    out.reserve(name.size() + 1);
    for (std::size_t i = 0; i < name.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(name[i]);
        if (c < 0x80) {
            out += isNameChar(c) ? static_cast<char>(c) : getReplacementChar();
            continue;
        }
        // One replacement for a whole multibyte character: skip its continuation bytes.
        out += getReplacementChar();
        while (i + 1 < name.size() && (static_cast<unsigned char>(name[i + 1]) & 0xC0) == 0x80)
            ++i;
    }
    if (out.empty() || isAsciiDigit(static_cast<unsigned char>(out[0])))
        out.insert(out.begin(), '_');
    return out;
}

bool LiStringUtil::checkComponentNameValidity(std::string const& name) {
    if (name.empty() || isAsciiDigit(static_cast<unsigned char>(name[0])))
        return false;
    for (char c : name) {
        unsigned char u = static_cast<unsigned char>(c);
        if (!isNameChar(u))
            return false;
    }
    return true;
}

bool LiStringParser::readToken(std::istream& is, std::string& token, char quote) {
    token.clear();
    int c;
    while ((c = is.peek()) != std::char_traits<char>::eof() && isBlank(c))
        is.get();
    if (c == std::char_traits<char>::eof())
        return false;
    if (c == static_cast<unsigned char>(quote)) {
        is.get();
        while ((c = is.get()) != std::char_traits<char>::eof()) {
            if (c == static_cast<unsigned char>(quote))
                return true;
            if (c == '\\') {
                int next = is.peek();
                if (next == static_cast<unsigned char>(quote) || next == '\\') {
                    token += static_cast<char>(is.get());
                    continue;
                }
            }
            token += static_cast<char>(c);
        }
        is.clear(is.rdstate() & ~std::ios::failbit); // an unterminated phrase is kept
        return true;
    }
    while ((c = is.peek()) != std::char_traits<char>::eof() && !isBlank(c))
        token += static_cast<char>(is.get());
    return true;
}

std::string LiStringParser::readToken(std::istream& is, char quote) {
    std::string token;
    readToken(is, token, quote);
    return token;
}

void LiStringSubstituter::registerPattern(std::string const& pattern,
                                          std::string const& replacement) {
    if (!pattern.empty())
        _patterns[pattern] = replacement;
}

bool LiStringSubstituter::unregisterPattern(std::string const& pattern) {
    return _patterns.erase(pattern) != 0;
}

std::string LiStringSubstituter::substitute(std::string const& text) const {
    if (_patterns.empty())
        return text;
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::map<std::string, std::string>::const_iterator best = _patterns.end();
        for (auto it = _patterns.begin(); it != _patterns.end(); ++it) {
            if (text.compare(pos, it->first.size(), it->first) == 0 &&
                (best == _patterns.end() || it->first.size() > best->first.size()))
                best = it;
        }
        if (best == _patterns.end()) {
            out += text[pos++];
        } else {
            out += best->second;
            pos += best->first.size();
        }
    }
    return out;
}

char WideStringUtil::_defaultReplaceChar = '?';

namespace {
constexpr char32_t replacementCharacter = 0xFFFD;

void appendWide(std::wstring& out, char32_t c) {
    if constexpr (sizeof(wchar_t) >= 4) {
        out += static_cast<wchar_t>(c);
    } else if (c >= 0x10000) { // UTF-16 platforms: a surrogate pair
        c -= 0x10000;
        out += static_cast<wchar_t>(0xD800 + (c >> 10));
        out += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
    } else {
        out += static_cast<wchar_t>(c);
    }
}
} // namespace

std::string WideStringUtil::narrowMB(std::wstring const& text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) < 4) {
            if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size()) {
                char32_t low = static_cast<char32_t>(text[i + 1]);
                if (low >= 0xDC00 && low <= 0xDFFF) {
                    c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        WideStringUtil::appendUtf8(out, c);
    }
    return out;
}

std::string WideStringUtil::narrowReplace(std::wstring const& text, char replace) {
    std::string out;
    out.reserve(text.size());
    for (wchar_t c : text)
        out += (c >= 0 && c < 0x80) ? static_cast<char>(c) : replace;
    return out;
}

std::wstring WideStringUtil::widen(std::string const& utf8) {
    std::wstring out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    auto byte = [&utf8](std::size_t k) { return static_cast<unsigned char>(utf8[k]); };
    while (i < utf8.size()) {
        unsigned char lead = byte(i);
        int extra;
        char32_t c;
        if (lead < 0x80) {
            extra = 0;
            c = lead;
        } else if (lead >= 0xC2 && lead < 0xE0) {
            extra = 1;
            c = lead & 0x1F;
        } else if (lead >= 0xE0 && lead < 0xF0) {
            extra = 2;
            c = lead & 0x0F;
        } else if (lead >= 0xF0 && lead < 0xF5) {
            extra = 3;
            c = lead & 0x07;
        } else {
            appendWide(out, replacementCharacter);
            ++i;
            continue;
        }
        std::size_t k = 1;
        for (; k <= static_cast<std::size_t>(extra); ++k) {
            if (i + k >= utf8.size() || (byte(i + k) & 0xC0) != 0x80)
                break;
            c = (c << 6) | (byte(i + k) & 0x3F);
        }
        bool complete = k == static_cast<std::size_t>(extra) + 1;
        // Overlong forms, surrogates and values past U+10FFFF are malformed too.
        bool valid = complete && !(extra == 2 && c < 0x800) && !(extra == 3 && c < 0x10000) &&
                     !(c >= 0xD800 && c <= 0xDFFF) && c <= 0x10FFFF;
        appendWide(out, valid ? c : replacementCharacter);
        i += k; // a broken sequence resumes at the byte that broke it
    }
    return out;
}

void WideStringUtil::appendUtf8(std::string& out, char32_t c) {
    if (c >= 0xD800 && c <= 0xDFFF)
        c = replacementCharacter;
    if (c > 0x10FFFF)
        c = replacementCharacter;
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

} // namespace Zr
