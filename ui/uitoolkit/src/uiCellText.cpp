// UiCellText: measuring and drawing the text of a cell.
#include "uiCellText.h"

#include "smContext.h"
#include "smGl.h"
#include "wsFontRegistry.h"

namespace Zr {

namespace {

// Room between the text and each side of its cell.
constexpr int Padding = 5;

} // namespace

UiCellText::UiCellText(LiString const& text) : _text(text) {
    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    _font = fonts.getFont(fonts.getDefaultFontHandle());
    measure();
}

UiCellText::~UiCellText() = default;

void UiCellText::setText(LiString const& text) {
    _text = text;
    measure();
}

void UiCellText::setFont(LiString const& handle) {
    _font = WsFontRegistry::getInstance().getFont(handle);
    measure();
}

void UiCellText::measure() {
    _textWidth = _font ? _font->getStringWidth(_text.str()) : 0.f;
}

int UiCellText::getDesiredHeight() const {
    return UiCell::getDesiredHeight();
}

int UiCellText::getDesiredWidth() const {
    return static_cast<int>(_textWidth + 2.0f * Padding);
}

CoRgbColor UiCellText::textColor(DrawArgs const& args) const {
    return args.foreground;
}

void UiCellText::draw(DrawArgs const& args) {
    if (!_font || _text.str().empty())
        return;
    GeRectangle<int> const& r = args.rect;
    float x = static_cast<float>(r.x1 + Padding);
    if (getJustification() == Right)
        x = static_cast<float>(r.x2 - Padding) - _textWidth;
    else if (getJustification() == Center)
        x = static_cast<float>(r.x1) + (static_cast<float>(r.width()) - _textWidth) / 2.f;
    // The line box centred in the row, the baseline its descent above the box's bottom.
    int const box = _font->getAscent() + _font->getDescent();
    int const baseline = r.y1 + (r.height() - box) / 2 + _font->getDescent();
    SmGl::color3fv(textColor(args).data());
    _font->drawString(_text.str(), x, static_cast<float>(baseline));
}

} // namespace Zr
