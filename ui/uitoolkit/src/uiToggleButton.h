// UiToggleButton: a two-state button that stays in or out, with a radio or a toggle frame, an
// on-colour for its background, and a shaded background by default.
#pragma once

#include "uiDualState.h"

namespace Zr {

class UiToggleButton : public UiDualState {
public:
    static RCShdPtr<UiToggleButton> create(UiContainer* parent, LiString const& name,
                                           UiResTable const* table = nullptr);

    virtual void setShadedBackground(bool shaded);
    bool isShadedBackground() const { return _shaded; }
    // Installs the radio frames (true) or the toggle frames (false) as "On" and "Off".
    void setRadioFrame(bool radio);
    bool isRadioFrame() const { return _radio; }

    // Forward to the context handlers: a right press offers the context menu of the value.
    void addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) override;
    void removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) override;
    // Knows "OnColor", then the widget's colours. Always redraws; a new on-colour shows from
    // the next change of state.
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

    // Frame slots of the two states.
    static LiString const OnFrame;  // "On"
    static LiString const OffFrame; // "Off"

protected:
    UiToggleButton(UiContainer* parent, LiString const& name);
    ~UiToggleButton() override;

    void setDefaultResources(UiResSet& set) override;
    // "RadioFrame" (one int) chooses the frames; the rest goes to the base.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void stateChanged() override;
    void drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) override;

private:
    void userDraw(EvEvent& event);

    bool _radio = false;
    bool _shaded = true;
    CoRgbColor _onColor;
    CbMethod<UiToggleButton, EvEvent> _userDraw;
};

} // namespace Zr
