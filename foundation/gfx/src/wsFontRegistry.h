// WsFontRegistry: the fonts of the interface by handle. Resource tables register handles with
// font descriptions; widgets ask for a handle and get the font, loaded on first use.
#pragma once

#include "liString.h"
#include "lkSingleton.h"
#include "rcBase.h"
#include "wsFont.h"

#include <map>
#include <string>
#include <unordered_map>

namespace Zr {

class WsFontRegistry {
public:
    // The handles registered from the start, each with its description:
    //   Normal10Font "DejaVu Sans:Regular:10"   Bold10Font "DejaVu Sans:Bold:10"
    //   Normal12Font "DejaVu Sans:Regular:12"   Bold12Font "DejaVu Sans:Bold:12"
    //   Normal14Font "DejaVu Sans:Regular:14"   Bold14Font "DejaVu Sans:Bold:14"
    //   Normal18Font "DejaVu Sans:Regular:18"   Italic12Font "DejaVu Sans:Italic:12"
    //   Fixed10Font "DejaVu Sans Mono:Regular:10"  Fixed12Font "DejaVu Sans Mono:Regular:12"
    // The handle's text is the member's name ("Normal12Font"). Normal12Font is the default.
    static LiString const Normal10Font;
    static LiString const Normal12Font;
    static LiString const Normal14Font;
    static LiString const Normal18Font;
    static LiString const Bold10Font;
    static LiString const Bold12Font;
    static LiString const Bold14Font;
    static LiString const Italic12Font;
    static LiString const Fixed10Font;
    static LiString const Fixed12Font;

    static WsFontRegistry& getInstance() { return LkSingleton<WsFontRegistry>::getInstance(); }

    // Gives the handle a font description, replacing what it had; fonts already handed out
    // stay as they are. A bad description raises WsFontEx::ExBadDescription and leaves the
    // handle as it was. Nothing is loaded until the font is asked for.
    void registerFont(LiString const& handle, std::string const& name);
    bool isRegisteredFont(LiString const& handle) const;
    // The font of the handle; an unknown handle gives the default font. Fonts are shared by
    // description: two handles of the same description give the same font. A face that can't
    // be loaded raises WsFontEx::ExNotFound.
    RCShdPtr<WsFont> getFont(LiString const& handle);
    // The font of a description, without a handle.
    RCShdPtr<WsFont> getFontByName(std::string const& name);
    // The canonical description registered under the handle; empty if unknown.
    std::string getFontName(LiString const& handle) const;

    LiString const& getDefaultFontHandle() const { return _defaultHandle; }
    // The handle must be registered.
    void setDefaultFontHandle(LiString const& handle);

private:
    friend class LkSingleton<WsFontRegistry>;
    WsFontRegistry();

    std::unordered_map<LiString, std::string> _names; // handle -> canonical description
    std::map<std::string, RCShdPtr<WsFont>> _fonts;   // canonical description -> font
    LiString _defaultHandle;
};

} // namespace Zr
