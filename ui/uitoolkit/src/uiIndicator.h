// UiBaseIndicator: the small state mark of a row or a button (a check, a radio dot);
// UiIconIndicator, one drawn as one of two icons.
#pragma once

#include "uiIcon.h"

#include "coRgbColor.h"
#include "geRectangle.h"
#include "rcBase.h"
#include "wsManagedImage.h"

namespace Zr {

class SmStateObject;

class UiBaseIndicator {
public:
    enum ActiveState { Inactive = 0, Active = 1 };
    enum MouseState { MouseOutside = 0, MouseInside = 1, MousePressed = 2 };

    virtual ~UiBaseIndicator() = default;
    virtual OPtrRet<UiBaseIndicator> clone() const = 0;
    // Draws the mark for the state `on` at (x, y), starting from the widget's draw `state`.
    virtual void draw(bool on, ActiveState active, MouseState mouse, SmStateObject const& state,
                      int x, int y) = 0;

    CoRgbColorTyped<float> const& getOffColor() const { return _offColor; }
    void setOffColor(CoRgbColorTyped<float> const& color) { _offColor = color; }
    CoRgbColorTyped<float> const& getOnColor() const { return _onColor; }
    void setOnColor(CoRgbColorTyped<float> const& color) { _onColor = color; }
    CoRgbColorTyped<float> const& getBackground() const { return _background; }
    void setBackground(CoRgbColorTyped<float> const& color) { _background = color; }
    GeRectangle<int> const& getRect() const { return _rect; }
    void setRect(GeRectangle<int> const& rect) { _rect = rect; }

protected:
    UiBaseIndicator() = default;
    UiBaseIndicator(UiBaseIndicator const&) = default;
    UiBaseIndicator& operator=(UiBaseIndicator const&) = default;

    CoRgbColorTyped<float> _offColor;
    CoRgbColorTyped<float> _onColor;
    CoRgbColorTyped<float> _background;
    GeRectangle<int> _rect;
};

// Shows the enabled icon when on and the disabled one when off, blended over what is there,
// placed in the indicator's rectangle by the icon's alignment.
class UiIconIndicator : public UiBaseIndicator {
public:
    // One image or file for both states.
    explicit UiIconIndicator(RCShdPtr<WsManagedImage> const& image);
    explicit UiIconIndicator(char const* file);
    UiIconIndicator(RCShdPtr<WsManagedImage> const& enabled,
                    RCShdPtr<WsManagedImage> const& disabled);
    UiIconIndicator(char const* enabledFile, char const* disabledFile);
    UiIconIndicator(UiIconIndicator const& other);
    UiIconIndicator& operator=(UiIconIndicator const& other);
    ~UiIconIndicator() override = default;

    OPtrRet<UiBaseIndicator> clone() const override;
    void draw(bool on, ActiveState active, MouseState mouse, SmStateObject const& state, int x,
              int y) override;

    // The enabled icon.
    UiIcon& getIcon() { return *_enabledIcon; }
    UiIcon& getEnabledIcon() { return *_enabledIcon; }
    UiIcon& getDisabledIcon() { return *_disabledIcon; }

private:
    UPtr<UiIcon> _enabledIcon;
    UPtr<UiIcon> _disabledIcon;
};

} // namespace Zr
