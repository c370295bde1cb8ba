// UiTransparentLabel: a label that draws no background of its own unless given an opacity.
#pragma once

#include "uiLabel.h"

namespace Zr {

class UiTransparentLabel : public UiLabel {
public:
    static RCShdPtr<UiTransparentLabel> create(UiContainer* parent, LiString const& name,
                                               UiResTable const* table = nullptr);

protected:
    UiTransparentLabel(UiContainer* parent, LiString const& name) : UiLabel(parent, name) {}
    ~UiTransparentLabel() override;

    // An Opacity of 0 on top of the label's defaults.
    void setDefaultResources(UiResSet& set) override;
};

} // namespace Zr
