// InputDualStateData: binds a toggle button, a pushed toggle or a pushed toggle icon to a node
// input as a bool. Each toggle is one undo entry; the context button reaches the input's menu
// hook.
#pragma once

#include "inputDataBase.h"
#include "uiDualState.h"

namespace Zr {

class InputDualStateData : public InputDataBase<bool> {
public:
    // With a null `inputRW` the widget only shows `input`, locked.
    InputDualStateData(UiDualState* widget, RCShdPtr<PiInput> const& inputRW,
                       RCShdPtr<PiInput const> const& input,
                       RCShdPtr<PiTimePath const> const& timePath, bool undoable);

    UiDualState* getDualState() const { return _dualState; }

protected:
    void showValue(bool const& value) override;

private:
    void onState(EvEvent&);
    // The input's context menu opens here once popup menus exist; until then a right click
    // changes nothing.
    void onContextMenu(RCShdPtr<UiCalculatable> const&) {}

    UiDualState* _dualState;
    CbMethod<InputDualStateData, EvEvent> _stateHandler{this, &InputDualStateData::onState};
    CbMethod<InputDualStateData, RCShdPtr<UiCalculatable> const> _contextHandler{
        this, &InputDualStateData::onContextMenu};
};

} // namespace Zr
