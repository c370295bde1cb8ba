// UiCellKey: a key name, right-aligned and dimmed.
#include "uiCellKey.h"

#include "uiHotkey.h"

namespace Zr {

UiCellKey::UiCellKey(LiString const& keyName) : UiCellText(keyName) {
    setJustification(Right);
}

UiCellKey::UiCellKey(UiHotkey const& hotkey)
    : UiCellKey(LiString(hotkey.getKey() == 0 ? std::string() : hotkey.toString())) {}

UiCellKey::~UiCellKey() = default;

CoRgbColor UiCellKey::textColor(DrawArgs const& args) const {
    // Two thirds of the way from the background to the text: readable, but quieter.
    CoRgbColor const& f = args.foreground;
    CoRgbColor const& b = args.background;
    return CoRgbColor(b.r + (f.r - b.r) * 0.7f, b.g + (f.g - b.g) * 0.7f, b.b + (f.b - b.b) * 0.7f);
}

} // namespace Zr
