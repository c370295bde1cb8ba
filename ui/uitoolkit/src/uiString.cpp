// UiString: measuring, placing and drawing one line of text.
#include "uiString.h"

#include "wsFontRegistry.h"

#include <algorithm>

namespace Zr {

UiString::UiString(UiStringProtocol* owner, int id)
    : _owner(owner), _id(id), _fontHandle(WsFontRegistry::getInstance().getDefaultFontHandle()) {}

UiString::UiString(char const* text, UiStringProtocol* owner, int id) : UiString(owner, id) {
    _text = LiString(text ? text : "");
}

void UiString::adjustPosition() {
    UiAlign::adjustPosition();
    _y += _descent;
    if (_owner)
        _owner->stringPositionChanged(_id);
}

void UiString::measure() {
    float const measured = _font ? _font->getStringWidth(_text.str()) : 0.f;
    _width = static_cast<int>(measured + static_cast<float>(_extraWidth));
}

void UiString::setString(char const* text, int extraWidth) {
    _extraWidth = extraWidth;
    setString(text);
}

void UiString::setString(char const* text) {
    _text = LiString(text ? text : "");
    measure();
    adjustPosition();
}

void UiString::setFont(LiString const& handle) {
    _fontHandle = handle;
    _font = WsFontRegistry::getInstance().getFont(handle);
    measure();
    _descent = _font ? _font->getDescent() : 0;
    _height = _font ? _font->getHeight() : 0;
    adjustPosition();
}

void UiString::replaceNewlines() {
    std::string text = _text.str();
    std::replace(text.begin(), text.end(), '\n', ' ');
    _text = LiString(text);
}

void UiString::draw(int originX, int originY) {
    if (!_font)
        RCExUtil::throwExNullPtr("WsFont");
    _font->drawString(_text.str(), static_cast<float>(originX + _x),
                      static_cast<float>(originY + _y));
}

} // namespace Zr
