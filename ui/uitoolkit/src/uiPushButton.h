// UiPushButton: a button that triggers an action. A press shows it pushed in and takes the
// pointer grab; a release on the button activates it; Return or keypad Enter press it too.
#pragma once

#include "uiString.h"
#include "uiWidget.h"

namespace Zr {

class UiPushButtonImp;

class UiPushButton : public UiWidget {
public:
    static RCShdPtr<UiPushButton> create(UiContainer* parent, LiString const& name,
                                         UiResTable const* table = nullptr);

    UiString& getLabel() { return _label; }
    UiString const& getLabel() const { return _label; }
    // Whether the button shows its pushed look; a change updates the look.
    void setActive(bool active);
    bool getActive() const { return _active; }
    virtual void setShadedBackground(bool shaded);
    bool isShadedBackground() const { return _shaded; }
    // A shaded blue button: the look of a dialog's main action.
    virtual void setBlueButton();
    bool isBlueButton() const { return _blue; }

    // Presses `button` from code when it is enabled: the pushed look is drawn, the button is
    // activated, and the pointer grab then goes to `grabHandler` (a modal owner takes it back).
    static void activateButton(UiPushButton& button, UiGrabHandler* grabHandler);

    // Knows "PushedColor", then the widget's colours. Always redraws.
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

    void adjustCoords() override;
    RCShdPtr<PiWidget> retrieveInterface() override;

    // Frame slots of the two looks.
    static LiString const OnFrame;     // "On"
    static LiString const PushedFrame; // "Pushed"

protected:
    UiPushButton(UiContainer* parent, LiString const& name);
    ~UiPushButton() override;

    void setDefaultResources(UiResSet& set) override;
    // The widget's resources first, then the label's.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void postInit() override;
    void stateChanged() override;
    void drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) override;
    // What the button shows on its background: the label; the icon variant draws its icon.
    virtual void drawContent();

private:
    friend class UiPushButtonImp;
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onMmove(EvEvent& event);
    void onKeyPress(EvEvent& event);
    void userDraw(EvEvent& event);
    // The press of a key or of activateButton: arm, draw, and disarm while the grab is ours;
    // the grab then goes to `grabHandler`.
    void pressFromCode(UiGrabHandler* grabHandler);
    bool hasPointerFocusNow() const;

    UPtr<UiPushButtonImp> _buttonImp;
    UiString _label;
    bool _shaded = true;
    bool _active = false;
    bool _blue = false;
};

} // namespace Zr
