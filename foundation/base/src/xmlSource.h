// XmlSource: the text a document was parsed from and its name, kept to turn byte offsets into
// line and column numbers for error reports.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace Zr {

class XmlSource {
public:
    XmlSource(std::string name, std::string text)
        : _name(std::move(name)), _text(std::move(text)) {}
    XmlSource(XmlSource const&) = delete;
    XmlSource& operator=(XmlSource const&) = delete;

    std::string const& getName() const { return _name; }
    std::string const& getText() const { return _text; }

    // 1-based line of a byte offset into the text. The index of line starts is built on the
    // first call, so a reader that asks for the line of every element stays linear.
    int getLine(std::size_t offset) const;
    // 1-based column, counted in bytes from the start of the line.
    int getColumn(std::size_t offset) const;

private:
    void buildIndex() const;

    std::string _name;
    std::string _text;
    mutable std::once_flag _indexOnce;
    mutable std::vector<std::size_t> _lineStarts;
};

} // namespace Zr
