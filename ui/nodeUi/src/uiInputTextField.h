// UiInputTextField: the widget type "InputTextField", a text field bound to a string input
// (InputTextFieldData).
#pragma once

#include "inputTextFieldData.h"

namespace Zr {

class UiInputTextField {
public:
    UiInputTextField() = delete;

    // Registers and unregisters the widget type.
    static void initialize();
    static void finalize();

    static InputTextFieldData* getData(UiWidget const& widget) {
        return widget.findClientData<InputTextFieldData>();
    }
};

} // namespace Zr
