// XmlDocument: an XML text parsed in place by pugixml, from a file or from memory; XmlEx, the
// errors of reading one.
#pragma once

#include "exBase.h"
#include "osFilePath.h"
#include "xmlElement.h"

#include <memory>
#include <string>

namespace Zr {

struct XmlEx {
    // A text that is not well-formed XML, or a file that cannot be read. The reason reads
    // "<name>:<line>:<column>: <what is wrong>" (column in bytes, both 1-based).
    ZR_DECLARE_EXCEPTION(ExSyntaxError, ExBase);
};

class XmlDocument {
public:
    // Reads and parses a file; the path names the document in error reports.
    explicit XmlDocument(OsFilePath const& path);
    // Parses a text held in memory; such a document is named "<text>" in error reports.
    explicit XmlDocument(std::string const& text);
    explicit XmlDocument(char const* text) : XmlDocument(std::string(text ? text : "")) {}
    XmlDocument(std::string const& text, std::string const& name);
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;
    ~XmlDocument();

    // The document element. Elements stay valid while the document lives, even if moved.
    XmlElement getRoot() const;
    std::string const& getName() const;

private:
    struct Data;
    void parse();
    std::unique_ptr<Data> _data;
};

} // namespace Zr
