// The binding of a two-state widget to a node input.
#include "inputDualStateData.h"

namespace Zr {

InputDualStateData::InputDualStateData(UiDualState* widget, RCShdPtr<PiInput> const& inputRW,
                                       RCShdPtr<PiInput const> const& input,
                                       RCShdPtr<PiTimePath const> const& timePath, bool undoable)
    : InputDataBase<bool>(widget, inputRW, input, timePath, undoable), _dualState(widget) {
    _dualState->addStateCb(&_stateHandler);
    _dualState->addContextMenuCb(&_contextHandler);
    refresh();
}

void InputDualStateData::showValue(bool const& value) {
    if (_dualState->getState() != value)
        _dualState->setState(value, false);
}

void InputDualStateData::onState(EvEvent&) {
    if (!_inUpdate)
        write(_dualState->getState());
}

} // namespace Zr
