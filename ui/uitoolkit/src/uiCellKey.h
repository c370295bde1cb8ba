// UiCellKey: the key name of a menu row ("Ctrl+C"), right-aligned in its column and drawn dimmer
// than the row's text, as menus show the hotkey of a command.
#pragma once

#include "uiCellText.h"

namespace Zr {

class UiHotkey;

class UiCellKey : public UiCellText {
public:
    explicit UiCellKey(LiString const& keyName);
    // The hotkey's own name; an empty hotkey shows nothing.
    explicit UiCellKey(UiHotkey const& hotkey);
    ~UiCellKey() override;

protected:
    CoRgbColor textColor(DrawArgs const& args) const override;
};

} // namespace Zr
