// UiResDomain: a resource holding the hotkeys of one hotkey domain ("Domain"), pairs of an
// action name and a UiHotkey, with the domain's path such as "/Local/Viewers".
#pragma once

#include "uiHotkey.h"
#include "uiResource.h"

#include <functional>
#include <set>
#include <string>
#include <utility>

namespace Zr {

// XML: <Domain Name="Viewers"><Hotkey Action="Zoom In" Key="Plus" Type="Press"/>...</Domain>.
// Text: the name, then per pair the action as a quoted token and the hotkey's stream form.
class UiResDomain : public UiResource {
public:
    using Binding = std::pair<std::string, UiHotkey>;
    using Bindings = std::set<Binding>;

    explicit UiResDomain(std::string const& path = {}, std::string const& name = {},
                         char const* text = nullptr);
    UiResDomain(UiResDomain const&) = default;
    ~UiResDomain() override = default;

    char const* getType() const override { return "Domain"; }
    // Told of a Hotkey element that could not be read, with the error it raised.
    using BadHotkeyHandler = std::function<void(XmlElement const& hotkey, ExBase const& error)>;

    // Takes the element itself when it is a Domain, else its first Domain child (missing:
    // ExIncompleteResource). The bindings read replace those held; hotkeys without a key are
    // skipped, and a Hotkey element that can't be read raises ExIncompleteResource, so that a
    // table reader reports the resource and goes on.
    void read(XmlElement const& element) override;
    // The same, except that each Hotkey element that can't be read goes to `onBadHotkey` and is
    // skipped, and the others are read: a hotkey file keeps every good binding.
    void read(XmlElement const& element, BadHotkeyHandler const& onBadHotkey);
    // A hotkey that can't be read raises ExIncompleteResource.
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResDomain)

    std::string const& getPath() const { return _path; }
    // A hotkey without a key is not added; a pair already present stays once.
    void addHotkey(std::string const& action, UiHotkey const& hotkey);
    void removeHotkey(std::string const& action, UiHotkey const& hotkey);
    Bindings const& getHotkeys() const { return _bindings; }

private:
    Bindings _bindings;
    std::string _path;
};

} // namespace Zr
