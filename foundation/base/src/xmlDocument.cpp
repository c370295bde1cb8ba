// XmlDocument: parsing with pugixml and turning its errors into XmlEx::ExSyntaxError.
#include "xmlDocument.h"

#include "xmlSource.h"

#include <fstream>
#include <iterator>

namespace Zr {

struct XmlDocument::Data {
    Data(std::string name, std::string text) : _source(std::move(name), std::move(text)) {}
    XmlSource _source;
    pugi::xml_document _doc;
};

namespace {

std::string readFile(OsFilePath const& path) {
    std::ifstream in(path.getPath(), std::ios::binary);
    if (!in)
        throw XmlEx::ExSyntaxError(__FILE__, __LINE__, path.toString() + ": cannot read the file");
    std::string text;
    in.seekg(0, std::ios::end);
    std::streamoff size = in.tellg();
    in.seekg(0, std::ios::beg);
    if (size > 0) {
        text.resize(static_cast<std::size_t>(size));
        in.read(text.data(), size);
    } else {
        text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    if (in.bad())
        throw XmlEx::ExSyntaxError(__FILE__, __LINE__, path.toString() + ": cannot read the file");
    return text;
}

} // namespace

XmlDocument::XmlDocument(OsFilePath const& path)
    : _data(std::make_unique<Data>(path.toString(), readFile(path))) {
    parse();
}

XmlDocument::XmlDocument(std::string const& text) : XmlDocument(text, "<text>") {}

XmlDocument::XmlDocument(std::string const& text, std::string const& name)
    : _data(std::make_unique<Data>(name, text)) {
    parse();
}

XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;
XmlDocument::~XmlDocument() = default;

void XmlDocument::parse() {
    std::string const& text = _data->_source.getText();
    // pugixml copies the text once into its own buffer and parses that in place; offsets of
    // nodes into it are offsets into our copy, which line numbers are computed from.
    pugi::xml_parse_result result =
        _data->_doc.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_auto);
    if (result)
        return;
    std::size_t offset = result.offset < 0 ? 0 : static_cast<std::size_t>(result.offset);
    if (offset > text.size())
        offset = text.size();
    XmlSource const& src = _data->_source;
    throw XmlEx::ExSyntaxError(__FILE__, __LINE__,
                               src.getName() + ":" + std::to_string(src.getLine(offset)) + ":" +
                                   std::to_string(src.getColumn(offset)) + ": " +
                                   result.description());
}

XmlElement XmlDocument::getRoot() const {
    return XmlElement(_data->_doc.document_element(), &_data->_source);
}

std::string const& XmlDocument::getName() const {
    return _data->_source.getName();
}

} // namespace Zr
