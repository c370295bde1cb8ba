// XmlElement: a light handle on one element of a parsed document, with the typed accessors that
// resource readers use. Copying a handle copies no XML.
#pragma once

#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Zr {

class XmlSource;

// A tag or attribute name as the accessors take it: a C string or a std::string, passed on to
// pugixml without a copy.
class XmlName {
public:
    XmlName(char const* name) : _name(name ? name : "") {}
    XmlName(std::string const& name) : _name(name.c_str()) {}
    char const* c_str() const { return _name; }

private:
    char const* _name;
};

class XmlElement {
public:
    // A null element: every query answers "absent", children lists are empty.
    XmlElement() = default;
    // A detached element that owns a small document of its own. Elements reached from it
    // (children, appended elements) are handles valid while it, or a copy of it, lives.
    explicit XmlElement(std::string const& tag);
    explicit XmlElement(char const* tag) : XmlElement(std::string(tag ? tag : "")) {}
    // A handle on a node of a document; `source` (may be null) gives line numbers.
    XmlElement(pugi::xml_node node, XmlSource const* source) : _node(node), _source(source) {}

    bool isNull() const { return !_node; }
    explicit operator bool() const { return !isNull(); }

    std::string getNodeName() const { return _node.name(); }
    std::string_view getNodeNameView() const { return _node.name(); }

    bool hasAttribute(XmlName name) const;
    // Typed reads: false, with `value` untouched, when the attribute is absent or its text is
    // not a number of that type (blanks around the number are allowed).
    bool getAttribute(XmlName name, float& value) const;
    bool getAttribute(XmlName name, double& value) const;
    bool getAttribute(XmlName name, int& value) const;
    bool getAttribute(XmlName name, std::wstring& value) const;
    // The attribute's text, "" when absent.
    std::string getAttribute(XmlName name) const;
    // The attribute's text without a copy; valid while the document lives. Empty when absent.
    std::string_view getAttributeView(XmlName name) const;
    // The attribute's text as narrow multibyte (UTF-8) text, "" when absent.
    std::string getAttributeMB(XmlName name) const { return getAttribute(name); }
    void setAttribute(std::string const& name, std::string const& text);
    // "1", "true", "yes", "on" are true, "0", "false", "no", "off" false, in any case and with
    // blanks around; an absent attribute or any other text gives `defaultValue`.
    bool isTrue(XmlName name, bool defaultValue) const;

    // The element's text content (its first text or CDATA child). false, with `value`
    // untouched, when there is none or it does not parse as the type.
    bool getData(bool& value) const;
    bool getData(int& value) const;
    bool getData(float& value) const;
    bool getData(double& value) const;
    bool getData(std::string& value) const;
    // The text content as narrow multibyte text, "" when there is none.
    std::string getDataMB() const;
    void setData(std::string const& text);

    // Child elements only, in document order.
    std::vector<XmlElement> getChildren() const;
    int getNbChildren() const;
    // The first direct child with this tag, or a null element.
    XmlElement getElementByTagName(XmlName tag) const;
    // The direct children with this tag.
    std::vector<XmlElement> getElementsByTagName(XmlName tag) const;
    // Calls `visit` with each direct child with this tag, in order, without making a list.
    template <class Visit>
    void forEachElementByTagName(XmlName tag, Visit const& visit) const {
        for (pugi::xml_node c = _node.child(tag.c_str()); c; c = c.next_sibling(tag.c_str()))
            visit(child(c));
    }
    // Every descendant with this tag, in document order (the element itself excluded).
    std::vector<XmlElement> getAllElementsByTagName(XmlName tag) const;
    XmlElement getParent() const;
    // Appends a new element as the last child and returns it.
    XmlElement appendChild(std::string const& tag);

    // The 1-based line of the element's start tag in the text it was parsed from; 0 when not
    // known (built in memory, or a document whose encoding was converted).
    int getLine() const;
    // The name of the document the element was parsed from, "" when not known.
    std::string getDocumentName() const;

    pugi::xml_node getNode() const { return _node; }
    // What gives line numbers to elements of this document; null when none does.
    XmlSource const* getSource() const { return _source; }
    friend bool operator==(XmlElement const& a, XmlElement const& b) { return a._node == b._node; }

private:
    XmlElement child(pugi::xml_node node) const { return XmlElement(node, _source); }

    pugi::xml_node _node;
    XmlSource const* _source = nullptr;
    // Set only on a detached element made from a tag: the document it owns.
    std::shared_ptr<pugi::xml_document> _owned;
};

} // namespace Zr
