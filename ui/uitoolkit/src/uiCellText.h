// UiCellText: a cell that shows one line of text in a font of the font registry, 5 pixels in from
// its side; the text is measured when it or the font changes, never while drawing.
#pragma once

#include "uiCell.h"

#include "wsFont.h"

namespace Zr {

class UiCellText : public UiCell {
public:
    // The default font of the registry.
    explicit UiCellText(LiString const& text = LiString(""));
    ~UiCellText() override;

    void draw(DrawArgs const& args) override;
    void setFont(LiString const& handle) override;
    int getDesiredHeight() const override;
    // The text's width plus 10 (5 on each side), truncated.
    int getDesiredWidth() const override;

    void setText(LiString const& text);
    LiString const& getText() const { return _text; }
    RCShdPtr<WsFont> const& getFont() const { return _font; }

protected:
    // The colour the text is drawn in; a subclass may dim it.
    virtual CoRgbColor textColor(DrawArgs const& args) const;

private:
    void measure();

    LiString _text;
    RCShdPtr<WsFont> _font;
    float _textWidth = 0.f;
};

} // namespace Zr
