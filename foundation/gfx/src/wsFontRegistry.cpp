// WsFontRegistry: handles to descriptions to shared fonts.
#include "wsFontRegistry.h"

#include "wsFontDescription.h"

namespace Zr {

LiString const WsFontRegistry::Normal10Font("Normal10Font");
LiString const WsFontRegistry::Normal12Font("Normal12Font");
LiString const WsFontRegistry::Normal14Font("Normal14Font");
LiString const WsFontRegistry::Normal18Font("Normal18Font");
LiString const WsFontRegistry::Bold10Font("Bold10Font");
LiString const WsFontRegistry::Bold12Font("Bold12Font");
LiString const WsFontRegistry::Bold14Font("Bold14Font");
LiString const WsFontRegistry::Italic12Font("Italic12Font");
LiString const WsFontRegistry::Fixed10Font("Fixed10Font");
LiString const WsFontRegistry::Fixed12Font("Fixed12Font");

WsFontRegistry::WsFontRegistry() : _defaultHandle(Normal12Font) {
    registerFont(Normal10Font, "DejaVu Sans:Regular:10");
    registerFont(Normal12Font, "DejaVu Sans:Regular:12");
    registerFont(Normal14Font, "DejaVu Sans:Regular:14");
    registerFont(Normal18Font, "DejaVu Sans:Regular:18");
    registerFont(Bold10Font, "DejaVu Sans:Bold:10");
    registerFont(Bold12Font, "DejaVu Sans:Bold:12");
    registerFont(Bold14Font, "DejaVu Sans:Bold:14");
    registerFont(Italic12Font, "DejaVu Sans:Italic:12");
    registerFont(Fixed10Font, "DejaVu Sans Mono:Regular:10");
    registerFont(Fixed12Font, "DejaVu Sans Mono:Regular:12");
}

void WsFontRegistry::registerFont(LiString const& handle, std::string const& name) {
    _names[handle] = WsFontDescription::parse(name).toString();
}

bool WsFontRegistry::isRegisteredFont(LiString const& handle) const {
    return _names.find(handle) != _names.end();
}

RCShdPtr<WsFont> WsFontRegistry::getFont(LiString const& handle) {
    auto it = _names.find(handle);
    if (it == _names.end())
        it = _names.find(_defaultHandle);
    // Registered names are canonical already.
    auto const known = _fonts.find(it->second);
    if (known != _fonts.end())
        return known->second;
    return getFontByName(it->second);
}

RCShdPtr<WsFont> WsFontRegistry::getFontByName(std::string const& name) {
    std::string const canonical = WsFontDescription::parse(name).toString();
    auto const it = _fonts.find(canonical);
    if (it != _fonts.end())
        return it->second;
    RCShdPtr<WsFont> font = WsFont::load(canonical);
    _fonts.emplace(canonical, font);
    return font;
}

std::string WsFontRegistry::getFontName(LiString const& handle) const {
    auto const it = _names.find(handle);
    return it == _names.end() ? std::string() : it->second;
}

void WsFontRegistry::setDefaultFontHandle(LiString const& handle) {
    ZR_ASSERT(isRegisteredFont(handle));
    _defaultHandle = handle;
}

} // namespace Zr
