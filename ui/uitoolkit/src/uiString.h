// UiString: one line of text placed by UiAlign in a font of the font registry; it measures
// itself and tells its owner whenever its position changes.
#pragma once

#include "uiAlign.h"

#include "liString.h"
#include "rcBase.h"
#include "wsFont.h"

namespace Zr {

// What a UiString tells whoever shows it.
class UiStringProtocol {
public:
    // Called after each change of the string's position, with the id the string was given.
    virtual void stringPositionChanged(int id) = 0;
    virtual ~UiStringProtocol() = default;
};

// The text is one line: there is no wrapping and no clipping here; a widget clips by its own
// clipping. y is the baseline.
class UiString : public UiAlign {
public:
    UiString(UiStringProtocol* owner, int id);
    // A null text counts as empty.
    UiString(char const* text, UiStringProtocol* owner, int id);
    UiString(UiString const& other) = default;
    UiString& operator=(UiString const& other) = default;
    ~UiString() override = default;

    // UiAlign's placement, then raised by the descent so that y is the baseline; then the
    // owner is told.
    void adjustPosition() override;

    // Stores the text (null is empty), measures it plus `extraWidth` and places it.
    void setString(char const* text, int extraWidth);
    // The same, keeping the extra width.
    void setString(char const* text);
    LiString const& getString() const { return _text; }
    int getExtraWidth() const { return _extraWidth; }
    // Takes the handle's font from WsFontRegistry (an unknown handle gives the default font),
    // measures and places the text.
    void setFont(LiString const& handle);
    RCShdPtr<WsFont> const& getFont() const { return _font; }
    LiString const& getFontHandle() const { return _fontHandle; }
    int getDescent() const { return _descent; }
    void setOwner(UiStringProtocol* owner) { _owner = owner; }
    UiStringProtocol* getOwner() const { return _owner; }
    int getId() const { return _id; }

    // Turns each newline into a blank, without measuring again.
    void replaceNewlines();

    // Draws at (originX + x, originY + y) in the current colour; a string without a font
    // raises the null-pointer error.
    void draw(int originX, int originY);

private:
    void measure();

    LiString _text;
    RCShdPtr<WsFont> _font;
    UiStringProtocol* _owner = nullptr; // not owned
    int _id = 0;
    LiString _fontHandle;
    int _descent = 0;
    int _extraWidth = 0;
};

} // namespace Zr
