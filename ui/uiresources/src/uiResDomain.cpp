// UiResDomain: the hotkeys of a domain in their XML and text forms.
#include "uiResDomain.h"

#include "uiResText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResDomain::UiResDomain(std::string const& path, std::string const& name, char const* text)
    : UiResource(name), _path(path) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResDomain::addHotkey(std::string const& action, UiHotkey const& hotkey) {
    if (hotkey.getKey() == 0)
        return;
    _bindings.emplace(action, hotkey);
}

void UiResDomain::removeHotkey(std::string const& action, UiHotkey const& hotkey) {
    _bindings.erase(Binding(action, hotkey));
}

void UiResDomain::read(XmlElement const& element) {
    read(element, [&element](XmlElement const&, ExBase const&) {
        // Reported as a resource error, so that a table read goes on after it.
        XmlElement domain =
            element.getNodeName() == "Domain" ? element : element.getElementByTagName("Domain");
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, domain);
    });
}

void UiResDomain::read(XmlElement const& element, BadHotkeyHandler const& onBadHotkey) {
    XmlElement domain =
        element.getNodeName() == "Domain" ? element : element.getElementByTagName("Domain");
    if (domain.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    Bindings bindings;
    for (XmlElement const& child : domain.getElementsByTagName("Hotkey")) {
        UiHotkey hotkey;
        try {
            hotkey.read(child);
        } catch (UiExIncompleteHotkey const& error) {
            onBadHotkey(child, error);
            continue;
        } catch (EvUndefinedRelation const& error) {
            onBadHotkey(child, error);
            continue;
        }
        if (hotkey.getKey() != 0)
            bindings.emplace(child.getAttribute("Action"), hotkey);
    }
    _bindings = std::move(bindings);
}

void UiResDomain::read(std::istream& is) {
    std::string token;
    if (!UiResText::readToken(is, token))
        return;
    setName(token);
    _bindings.clear();
    std::string action;
    while (UiResText::readToken(is, action)) {
        UiHotkey hotkey;
        try {
            hotkey.read(is);
        } catch (UiExIncompleteHotkey const&) {
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        } catch (EvUndefinedRelation const&) {
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        }
        addHotkey(action, hotkey);
    }
}

void UiResDomain::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "Domain");
    writer.writeAttrib("Name", getName());
    for (Binding const& binding : _bindings) {
        XmlWriter::ElementGuard hotkey(writer, "Hotkey");
        writer.writeAttrib("Action", binding.first);
        binding.second.write(writer);
    }
}

void UiResDomain::write(std::ostream& os, bool) const {
    UiResText::writeToken(os, getName());
    for (Binding const& binding : _bindings) {
        os << ' ';
        UiResText::writeToken(os, binding.first);
        os << ' ';
        binding.second.dump(os);
    }
}

} // namespace Zr
