// InputDualStateData: binds a toggle button, a pushed toggle or a pushed toggle icon to a node
// input as a bool. Each toggle is one undo entry; the context button reaches the input's menu
// hook.
#pragma once

#include "inputDataBase.h"
#include "uiDualState.h"
#include "uiPopupMenuHandler.h"

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
    // A right click opens the input's context menu: the press arms the widget with the
    // context button, which the widget itself ignores.
    void onArm(EvEvent& event);
    void onContextMenu(RCShdPtr<UiCalculatable> const& calculatable) {
        _popupHandler->popupContextMenuCb(calculatable);
    }

    UiDualState* _dualState;
    RCShdPtr<UiPopupMenuHandler<bool>> _popupHandler;
    CbMethod<InputDualStateData, EvEvent> _stateHandler{this, &InputDualStateData::onState};
    CbMethod<InputDualStateData, EvEvent> _armHandler{this, &InputDualStateData::onArm};
    CbMethod<InputDualStateData, RCShdPtr<UiCalculatable> const> _contextHandler{
        this, &InputDualStateData::onContextMenu};
};

} // namespace Zr
