// XmlElement accessors over pugixml nodes. Typed reads parse the stored text in place; only the
// string-returning accessors allocate.
#include "xmlElement.h"

#include "xmlSource.h"

#include <charconv>
#include <cstring>

namespace Zr {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string_view trimmed(char const* text) {
    std::string_view v(text);
    while (!v.empty() && isBlank(v.front()))
        v.remove_prefix(1);
    while (!v.empty() && isBlank(v.back()))
        v.remove_suffix(1);
    return v;
}

template <class T>
bool parseNumber(char const* text, T& value) {
    std::string_view v = trimmed(text);
    if (!v.empty() && v.front() == '+')
        v.remove_prefix(1);
    if (v.empty())
        return false;
    T parsed{};
    auto [end, ec] = std::from_chars(v.data(), v.data() + v.size(), parsed);
    if (ec != std::errc() || end != v.data() + v.size())
        return false;
    value = parsed;
    return true;
}

bool equalsNoCase(std::string_view a, char const* b) {
    std::size_t n = std::strlen(b);
    if (a.size() != n)
        return false;
    for (std::size_t i = 0; i < n; ++i) {
        char c = a[i];
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (c != b[i])
            return false;
    }
    return true;
}

// 1 for a true word, 0 for a false word, -1 for anything else.
int parseBool(char const* text) {
    std::string_view v = trimmed(text);
    for (char const* word : {"1", "true", "yes", "on"})
        if (equalsNoCase(v, word))
            return 1;
    for (char const* word : {"0", "false", "no", "off"})
        if (equalsNoCase(v, word))
            return 0;
    return -1;
}

// The node holding the element's text, or a null node.
pugi::xml_node textNode(pugi::xml_node node) {
    for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling())
        if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata)
            return c;
    return {};
}

} // namespace

XmlElement::XmlElement(std::string const& tag) : _owned(std::make_shared<pugi::xml_document>()) {
    _node = _owned->append_child(tag.c_str());
}

bool XmlElement::hasAttribute(XmlName name) const {
    return static_cast<bool>(_node.attribute(name.c_str()));
}

bool XmlElement::getAttribute(XmlName name, float& value) const {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    return a && parseNumber(a.value(), value);
}

bool XmlElement::getAttribute(XmlName name, double& value) const {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    return a && parseNumber(a.value(), value);
}

bool XmlElement::getAttribute(XmlName name, int& value) const {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    return a && parseNumber(a.value(), value);
}

bool XmlElement::getAttribute(XmlName name, std::wstring& value) const {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    if (!a)
        return false;
    value = pugi::as_wide(a.value());
    return true;
}

std::string XmlElement::getAttribute(XmlName name) const {
    return _node.attribute(name.c_str()).value();
}

std::string_view XmlElement::getAttributeView(XmlName name) const {
    return _node.attribute(name.c_str()).value();
}

void XmlElement::setAttribute(std::string const& name, std::string const& text) {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    if (!a)
        a = _node.append_attribute(name.c_str());
    a.set_value(text.c_str());
}

bool XmlElement::isTrue(XmlName name, bool defaultValue) const {
    pugi::xml_attribute a = _node.attribute(name.c_str());
    if (!a)
        return defaultValue;
    int b = parseBool(a.value());
    return b < 0 ? defaultValue : b == 1;
}

bool XmlElement::getData(bool& value) const {
    pugi::xml_node t = textNode(_node);
    if (!t)
        return false;
    int b = parseBool(t.value());
    if (b < 0)
        return false;
    value = b == 1;
    return true;
}

bool XmlElement::getData(int& value) const {
    pugi::xml_node t = textNode(_node);
    return t && parseNumber(t.value(), value);
}

bool XmlElement::getData(float& value) const {
    pugi::xml_node t = textNode(_node);
    return t && parseNumber(t.value(), value);
}

bool XmlElement::getData(double& value) const {
    pugi::xml_node t = textNode(_node);
    return t && parseNumber(t.value(), value);
}

bool XmlElement::getData(std::string& value) const {
    pugi::xml_node t = textNode(_node);
    if (!t)
        return false;
    value = t.value();
    return true;
}

std::string XmlElement::getDataMB() const {
    return textNode(_node).value();
}

void XmlElement::setData(std::string const& text) {
    pugi::xml_node t = textNode(_node);
    if (!t)
        t = _node.append_child(pugi::node_pcdata);
    t.set_value(text.c_str());
}

std::vector<XmlElement> XmlElement::getChildren() const {
    std::vector<XmlElement> result;
    for (pugi::xml_node c = _node.first_child(); c; c = c.next_sibling())
        if (c.type() == pugi::node_element)
            result.push_back(child(c));
    return result;
}

int XmlElement::getNbChildren() const {
    int n = 0;
    for (pugi::xml_node c = _node.first_child(); c; c = c.next_sibling())
        if (c.type() == pugi::node_element)
            ++n;
    return n;
}

XmlElement XmlElement::getElementByTagName(XmlName tag) const {
    return child(_node.child(tag.c_str()));
}

std::vector<XmlElement> XmlElement::getElementsByTagName(XmlName tag) const {
    std::vector<XmlElement> result;
    for (pugi::xml_node c = _node.child(tag.c_str()); c; c = c.next_sibling(tag.c_str()))
        result.push_back(child(c));
    return result;
}

std::vector<XmlElement> XmlElement::getAllElementsByTagName(XmlName tag) const {
    std::vector<XmlElement> result;
    if (!_node)
        return result;
    // Iterative pre-order walk below this element: deep tables do not grow the stack.
    pugi::xml_node n = _node.first_child();
    while (n) {
        if (n.type() == pugi::node_element && std::strcmp(n.name(), tag.c_str()) == 0)
            result.push_back(child(n));
        if (n.first_child()) {
            n = n.first_child();
            continue;
        }
        while (n && n != _node && !n.next_sibling())
            n = n.parent();
        if (!n || n == _node)
            break;
        n = n.next_sibling();
    }
    return result;
}

XmlElement XmlElement::getParent() const {
    pugi::xml_node p = _node.parent();
    if (p.type() != pugi::node_element)
        return XmlElement();
    XmlElement result = child(p);
    result._owned = _owned;
    return result;
}

XmlElement XmlElement::appendChild(std::string const& tag) {
    return child(_node.append_child(tag.c_str()));
}

int XmlElement::getLine() const {
    if (!_source || !_node)
        return 0;
    std::ptrdiff_t offset = _node.offset_debug();
    if (offset < 0)
        return 0;
    return _source->getLine(static_cast<std::size_t>(offset));
}

std::string XmlElement::getDocumentName() const {
    return _source ? _source->getName() : "";
}

} // namespace Zr
