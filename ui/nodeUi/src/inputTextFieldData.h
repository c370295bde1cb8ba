// InputTextFieldData: binds a text field to a string input. The text is written when the user
// presses Enter or leaves the field with a changed text: one undo entry each.
#pragma once

#include "inputDataBase.h"
#include "uiTextField.h"

#include <string>

namespace Zr {

class InputTextFieldData : public InputDataBase<std::string> {
public:
    // With a null `inputRW` the field only shows `input`, locked and read-only.
    InputTextFieldData(UiTextField* field, RCShdPtr<PiInput> const& inputRW,
                       RCShdPtr<PiInput const> const& input,
                       RCShdPtr<PiTimePath const> const& timePath, bool undoable);

    UiTextField* getTextField() const { return _field; }

protected:
    void showValue(std::string const& value) override;

private:
    void onCommit(EvEvent&);

    UiTextField* _field;
    CbMethod<InputTextFieldData, EvEvent> _enterHandler{this, &InputTextFieldData::onCommit};
    CbMethod<InputTextFieldData, EvEvent> _focusOutHandler{this, &InputTextFieldData::onCommit};
};

} // namespace Zr
