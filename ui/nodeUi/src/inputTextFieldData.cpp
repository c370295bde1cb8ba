// The binding of a text field to a string input.
#include "inputTextFieldData.h"

namespace Zr {

InputTextFieldData::InputTextFieldData(UiTextField* field, RCShdPtr<PiInput> const& inputRW,
                                       RCShdPtr<PiInput const> const& input,
                                       RCShdPtr<PiTimePath const> const& timePath, bool undoable)
    : InputDataBase<std::string>(field, inputRW, input, timePath, undoable), _field(field) {
    _field->addKeyEnterCb(&_enterHandler);
    _field->addKbdFocusOutCb(&_focusOutHandler);
    refresh();
}

void InputTextFieldData::showValue(std::string const& value) {
    bool const readOnly = isLockedByInput();
    if (_field->isReadOnly() != readOnly)
        _field->readOnly(readOnly);
    if (_field->getString().str() != value)
        _field->setStringAsIs(value.c_str());
}

void InputTextFieldData::onCommit(EvEvent&) {
    if (_inUpdate)
        return;
    std::string const text = _field->getString().str();
    if (text != getInputVal()->getValue())
        write(text);
}

} // namespace Zr
