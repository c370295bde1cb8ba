// XmlWriter: streams an XML document element by element, escaping text and indenting nested
// elements; XmlWriter::ElementGuard keeps an element open for a scope.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace Zr {

class XmlWriter {
public:
    // Each nesting level is indented by `indent` blanks; every element starts on its own line.
    XmlWriter(std::ostream& os, int indent = 2);
    // Closes every element still open.
    ~XmlWriter();
    XmlWriter(XmlWriter const&) = delete;
    XmlWriter& operator=(XmlWriter const&) = delete;

    // <?xml version="1.0" encoding="UTF-8"?>; only before the first element.
    void writeDeclaration();

    // Starts an element. Its start tag stays open until content follows, so attributes may
    // be written after it; an element closed without content is written as <Tag/>.
    void openTag(std::string const& tag);
    void closeTag();

    // Attributes of the element just opened, before any content.
    void writeAttrib(std::string const& name, std::string const& value);
    void writeAttrib(std::string const& name, char const* value);
    void writeAttrib(std::string const& name, int value);
    // Numbers in their shortest form that reads back to the same value.
    void writeAttrib(std::string const& name, float value);
    void writeAttrib(std::string const& name, double value);

    // Text content of the open element, written on the line of its start tag.
    void writeData(int value);
    void writeData(double value);
    void writeData(std::string const& text);
    void writeData(char const* text);

    // <tag>text</tag> in one call.
    void writeTag(std::string const& tag, std::string const& text);

    int getDepth() const { return static_cast<int>(_open.size()); }

    class ElementGuard {
    public:
        ElementGuard(XmlWriter& writer, std::string const& tag) : _writer(writer) {
            _writer.openTag(tag);
        }
        ~ElementGuard() { _writer.closeTag(); }
        ElementGuard(ElementGuard const&) = delete;
        ElementGuard& operator=(ElementGuard const&) = delete;

    private:
        XmlWriter& _writer;
    };

    // The text with XML's special characters replaced by references, as writeData (text) or
    // writeAttrib (inAttribute) would write it.
    static std::string escape(std::string_view text, bool inAttribute);

private:
    struct Open {
        std::string _tag;
        bool _hasChildren = false;
        bool _hasText = false;
    };
    void endStartTag();
    void startLine(std::size_t depth);
    void writeEscaped(std::string_view text, bool inAttribute);
    void writeText(std::string_view text);

    std::ostream& _os;
    int _indent;
    std::vector<Open> _open;
    bool _startTagOpen = false;
    bool _written = false;
};

} // namespace Zr
