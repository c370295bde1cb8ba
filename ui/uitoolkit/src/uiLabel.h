// UiLabel: a line of text that holds one bit. It takes no presses (it is locked) and shows its
// text in its on-colour while on, which is how a label marks, for instance, an animated value.
#pragma once

#include "uiDualState.h"

namespace Zr {

class UiLabel : public UiDualState {
public:
    static RCShdPtr<UiLabel> create(UiContainer* parent, LiString const& name,
                                    UiResTable const* table = nullptr);

    // The text the label shows: label 0.
    LiString const& getText() const { return getLabel(0).getString(); }
    void setText(char const* text) { setLabel(0, text); }

    // Knows "OnColor", then the widget's colours. Always redraws.
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

    RCShdPtr<PiWidget> retrieveInterface() override;

protected:
    UiLabel(UiContainer* parent, LiString const& name);
    ~UiLabel() override;

    void setDefaultResources(UiResSet& set) override;
    void stateChanged() override;

private:
    void userDraw(EvEvent& event);

    struct Colors {
        CoRgbColor on;
    } _colors;
    CbMethod<UiLabel, EvEvent> _userDraw;
};

} // namespace Zr
