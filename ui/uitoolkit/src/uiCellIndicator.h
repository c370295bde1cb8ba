// UiCellIndicator: a cell that shows a state mark (the check of a toggle row, the dot of a radio
// row, the arrow of a cascading row) through an owned indicator.
#pragma once

#include "uiCell.h"
#include "uiIndicator.h"

namespace Zr {

class UiCellIndicator : public UiCell {
public:
    explicit UiCellIndicator(OPtr<UiBaseIndicator> indicator, bool state = false);
    ~UiCellIndicator() override;

    void draw(DrawArgs const& args) override;
    // The indicator's width plus 6.
    int getDesiredWidth() const override;

    bool getState() const { return _state; }
    void setState(bool state) { _state = state; }
    UiBaseIndicator& getIndicator() const { return *_indicator; }

private:
    OPtr<UiBaseIndicator> _indicator;
    bool _state = false;
    int _indicatorWidth = 0;
};

} // namespace Zr
