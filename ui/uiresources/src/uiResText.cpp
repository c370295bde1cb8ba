// UiResText: the list of strings and the token reader shared by the text forms.
#include "uiResText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <cctype>
#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {
constexpr char Quote = '"';
}

bool UiResText::readToken(std::istream& is, std::string& token) {
    token.clear();
    is >> std::ws;
    int c = is.peek();
    if (c == std::char_traits<char>::eof())
        return false;
    if (c == Quote) {
        is.get();
        while ((c = is.get()) != std::char_traits<char>::eof()) {
            if (c == '\\' && is.peek() == Quote) {
                token += static_cast<char>(is.get());
                continue;
            }
            if (c == Quote)
                break;
            token += static_cast<char>(c);
        }
        is.clear(is.rdstate() & ~std::ios::failbit);
        return true;
    }
    while ((c = is.peek()) != std::char_traits<char>::eof() &&
           !std::isspace(static_cast<unsigned char>(c)))
        token += static_cast<char>(is.get());
    return true;
}

UiResText::UiResText(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResText::read(XmlElement const& element) {
    _strings.clear();
    for (XmlElement const& child : element.getElementsByTagName("Text"))
        _strings.emplace_back(child.getDataMB());
}

void UiResText::read(std::istream& is) {
    _strings.clear();
    std::string token;
    while (readToken(is, token))
        _strings.emplace_back(token);
}

void UiResText::write(XmlWriter& writer, bool) const {
    for (LiString const& s : _strings)
        writer.writeTag("Text", s.str());
}

void UiResText::write(std::ostream& os, bool flag) const {
    for (LiString const& s : _strings) {
        os << ' ';
        if (!s.empty() && s.str().find(' ') == std::string::npos)
            os << s;
        else if (flag)
            os << Quote << s << Quote;
        else
            os << '\\' << Quote << s << '\\' << Quote;
    }
}

char const* UiResText::getString(int index) const {
    ZR_ASSERT(index >= 0 && index < getNbStrings());
    return _strings[index].c_str();
}

void UiResText::append(char const* text) {
    _strings.emplace_back(text);
}

} // namespace Zr
