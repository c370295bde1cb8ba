// The binding of a two-state widget to a node input.
#include "inputDualStateData.h"

#include "evEvent.h"

namespace Zr {

InputDualStateData::InputDualStateData(UiDualState* widget, RCShdPtr<PiInput> const& inputRW,
                                       RCShdPtr<PiInput const> const& input,
                                       RCShdPtr<PiTimePath const> const& timePath, bool undoable)
    : InputDataBase<bool>(widget, inputRW, input, timePath, undoable), _dualState(widget) {
    _dualState->addStateCb(&_stateHandler);
    _popupHandler = new UiPopupMenuHandler<bool>(widget, inputRW, input, timePath);
    _dualState->addContextMenuCb(&_contextHandler);
    _dualState->addArmCb(&_armHandler);
    refresh();
}

void InputDualStateData::showValue(bool const& value) {
    if (_dualState->getState() != value)
        _dualState->setState(value, false);
}

void InputDualStateData::onArm(EvEvent& event) {
    auto const* press = evCast<EvPointerButtonEvent>(event);
    if (press && press->getTriggerButton() == 4)
        onContextMenu(nullptr);
}

void InputDualStateData::onState(EvEvent&) {
    if (!_inUpdate)
        write(_dualState->getState());
}

} // namespace Zr
