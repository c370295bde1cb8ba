// UiResText: the list of strings and the token reader shared by the text forms.
#include "uiResText.h"

#include "liStringUtil.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {
constexpr char Quote = '"';
constexpr char Backslash = '\\';
} // namespace

bool UiResText::readToken(std::istream& is, std::string& token) {
    token.clear();
    is >> std::ws;
    int c = is.peek();
    if (c == std::char_traits<char>::eof())
        return false;
    if (c == Quote) {
        is.get();
        while ((c = is.get()) != std::char_traits<char>::eof()) {
            if (c == Backslash && (is.peek() == Quote || is.peek() == Backslash)) {
                token += static_cast<char>(is.get());
                continue;
            }
            if (c == Quote)
                break;
            token += static_cast<char>(c);
        }
        // A phrase cut off by the end of the stream counts as read.
        is.clear(is.rdstate() & ~std::ios::failbit);
        return true;
    }
    while ((c = is.peek()) != std::char_traits<char>::eof() &&
           !std::isspace(static_cast<unsigned char>(c)))
        token += static_cast<char>(is.get());
    return true;
}

bool UiResText::needsQuotes(std::string const& text) {
    if (text.empty() || text.front() == Quote)
        return true;
    for (char c : text) {
        if (std::isspace(static_cast<unsigned char>(c)))
            return true;
    }
    return false;
}

void UiResText::writeToken(std::ostream& os, std::string const& text) {
    if (!needsQuotes(text)) {
        os << text;
        return;
    }
    os << Quote;
    for (char c : text) {
        if (c == Quote || c == Backslash)
            os << Backslash;
        os << c;
    }
    os << Quote;
}

UiResText::UiResText(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

namespace {

// Whether every byte is below 0x80. Long labels are the bulk of a resource table, so the test
// ors blocks of bytes together (a loop the compiler turns into vector code) instead of stopping
// at each byte.
bool isAscii(std::string const& text) {
    unsigned char const* p = reinterpret_cast<unsigned char const*>(text.data());
    std::size_t n = text.size();
    constexpr std::size_t Block = 64;
    for (; n >= Block; n -= Block, p += Block) {
        unsigned char bits = 0;
        for (std::size_t i = 0; i < Block; ++i)
            bits |= p[i];
        if (bits & 0x80)
            return false;
    }
    unsigned char bits = 0;
    for (std::size_t i = 0; i < n; ++i)
        bits |= p[i];
    return (bits & 0x80) == 0;
}

} // namespace

std::string UiResText::toValidUtf8(std::string text) {
    if (isAscii(text))
        return text;
    return WideStringUtil::narrowMB(WideStringUtil::widen(text));
}

void UiResText::read(XmlElement const& element) {
    _strings.clear();
    element.forEachElementByTagName("Text", [this](XmlElement const& child) {
        _strings.emplace_back(toValidUtf8(child.getDataMB()));
    });
}

void UiResText::read(std::istream& is) {
    _strings.clear();
    std::string token;
    while (readToken(is, token))
        _strings.emplace_back(toValidUtf8(std::move(token)));
}

void UiResText::write(XmlWriter& writer, bool) const {
    for (LiString const& s : _strings)
        writer.writeTag("Text", s.str());
}

void UiResText::write(std::ostream& os, bool flag) const {
    for (LiString const& s : _strings) {
        os << ' ';
        if (flag || !needsQuotes(s.str()))
            writeToken(os, s.str());
        else
            os << Backslash << Quote << s << Backslash << Quote;
    }
}

char const* UiResText::getString(int index) const {
    ZR_ASSERT(index >= 0 && index < getNbStrings());
    return _strings[index].c_str();
}

void UiResText::append(char const* text) {
    _strings.emplace_back(toValidUtf8(text));
}

} // namespace Zr
