// XmlWriter: escaping, lazy closing of start tags, indentation and shortest round-trip numbers.
#include "xmlWriter.h"

#include "exBase.h"

#include <charconv>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {

template <class T>
std::string shortest(T value) {
    char buffer[64];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return ec == std::errc() ? std::string(buffer, end) : std::string();
}

} // namespace

XmlWriter::XmlWriter(std::ostream& os, int indent) : _os(os), _indent(indent < 0 ? 0 : indent) {}

XmlWriter::~XmlWriter() {
    while (!_open.empty())
        closeTag();
}

void XmlWriter::writeDeclaration() {
    ZR_ASSERT(!_written);
    _os << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    _written = true;
}

void XmlWriter::startLine(std::size_t depth) {
    if (_written)
        _os << '\n';
    for (std::size_t i = 0; i < depth * static_cast<std::size_t>(_indent); ++i)
        _os << ' ';
}

void XmlWriter::endStartTag() {
    if (_startTagOpen) {
        _os << '>';
        _startTagOpen = false;
    }
}

void XmlWriter::openTag(std::string const& tag) {
    ZR_ASSERT(!tag.empty());
    endStartTag();
    if (!_open.empty())
        _open.back()._hasChildren = true;
    startLine(_open.size());
    _os << '<' << tag;
    _written = true;
    _startTagOpen = true;
    _open.push_back(Open{tag});
}

void XmlWriter::closeTag() {
    ZR_ASSERT(!_open.empty());
    Open& top = _open.back();
    if (_startTagOpen) {
        _os << "/>";
        _startTagOpen = false;
    } else {
        if (top._hasChildren)
            startLine(_open.size() - 1);
        _os << "</" << top._tag << '>';
    }
    _open.pop_back();
    if (_open.empty())
        _os << '\n';
}

void XmlWriter::writeEscaped(std::string_view text, bool inAttribute) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const* replacement = nullptr;
        switch (text[i]) {
        case '&':
            replacement = "&amp;";
            break;
        case '<':
            replacement = "&lt;";
            break;
        case '>':
            replacement = "&gt;";
            break;
        case '\r':
            replacement = "&#13;";
            break;
        case '"':
            if (inAttribute)
                replacement = "&quot;";
            break;
        // A reader folds blanks in attribute values into spaces unless they are references.
        case '\n':
            if (inAttribute)
                replacement = "&#10;";
            break;
        case '\t':
            if (inAttribute)
                replacement = "&#9;";
            break;
        default:
            break;
        }
        if (replacement) {
            _os.write(text.data() + start, static_cast<std::streamsize>(i - start));
            _os << replacement;
            start = i + 1;
        }
    }
    _os.write(text.data() + start, static_cast<std::streamsize>(text.size() - start));
}

void XmlWriter::writeAttrib(std::string const& name, std::string const& value) {
    ZR_ASSERT_TEXT(_startTagOpen, "attributes follow openTag before any content");
    _os << ' ' << name << "=\"";
    writeEscaped(value, true);
    _os << '"';
}

void XmlWriter::writeAttrib(std::string const& name, char const* value) {
    writeAttrib(name, std::string(value ? value : ""));
}

void XmlWriter::writeAttrib(std::string const& name, int value) {
    writeAttrib(name, std::to_string(value));
}

void XmlWriter::writeAttrib(std::string const& name, float value) {
    writeAttrib(name, shortest(value));
}

void XmlWriter::writeAttrib(std::string const& name, double value) {
    writeAttrib(name, shortest(value));
}

void XmlWriter::writeText(std::string_view text) {
    ZR_ASSERT_TEXT(!_open.empty(), "data is written inside an element");
    endStartTag();
    _open.back()._hasText = true;
    writeEscaped(text, false);
}

void XmlWriter::writeData(int value) {
    writeText(std::to_string(value));
}
void XmlWriter::writeData(double value) {
    writeText(shortest(value));
}
void XmlWriter::writeData(std::string const& text) {
    writeText(text);
}
void XmlWriter::writeData(char const* text) {
    writeText(text ? text : "");
}

void XmlWriter::writeTag(std::string const& tag, std::string const& text) {
    openTag(tag);
    if (!text.empty())
        writeData(text);
    closeTag();
}

std::string XmlWriter::escape(std::string_view text, bool inAttribute) {
    std::ostringstream os;
    XmlWriter writer(os, 0);
    writer.writeEscaped(text, inAttribute);
    return os.str();
}

} // namespace Zr
