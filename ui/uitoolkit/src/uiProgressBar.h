// UiProgressBar: a range shown as a bar filled from the minimum up to the value, with a smooth
// blue shade. It only shows: it takes no keyboard focus and ignores the pointer.
#pragma once

#include "uiRange.h"

namespace Zr {

class UiProgressBarImp;

class UiProgressBar : public UiRange {
public:
    static RCShdPtr<UiProgressBar> create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table = nullptr);

    int getOrientation() const { return _orientation; }
    // 0 fills from left to right, anything else from bottom to top.
    void setOrientation(int orientation);

protected:
    UiProgressBar(UiContainer* parent, LiString const& name);
    ~UiProgressBar() override;

    // "Background" "TextBackground", frame "Default" "Line".
    void setDefaultResources(UiResSet& set) override;
    // The range 0 to 1 and the value 0, without notification.
    void postInit() override;
    void updateValue() override;
    void updateRange() override;

private:
    friend class UiProgressBarImp;
    void onUserDraw(EvEvent& event);

    UPtr<UiProgressBarImp> _barImp;
    int _orientation = 0;
};

} // namespace Zr
