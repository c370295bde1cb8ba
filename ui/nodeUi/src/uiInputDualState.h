// UiInputDualState: the widget types "InputToggleButton", "InputPushedToggle" and
// "InputPushedToggleIcon": two-state widgets bound to a node input (InputDualStateData), with
// the label row of the node-bound widgets.
#pragma once

#include "inputDualStateData.h"

namespace Zr {

class UiInputDualState {
public:
    UiInputDualState() = delete;

    // Registers and unregisters the three widget types.
    static void initialize();
    static void finalize();

    static InputDualStateData* getData(UiWidget const& widget) {
        return widget.findClientData<InputDualStateData>();
    }
};

} // namespace Zr
