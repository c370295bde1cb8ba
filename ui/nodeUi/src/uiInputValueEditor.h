// UiInputValueEditor: the widget type "InputValueEditor", a value editor bound to a node input
// (InputValEdData), with the label row and the element reading of the node-bound widgets, and
// the operations that rebind an editor made elsewhere.
#pragma once

#include "inputValEdData.h"

namespace Zr {

class UiInputValueEditor {
public:
    UiInputValueEditor() = delete;

    // Registers and unregisters the widget type with the widget factories; start-up fetches
    // the underline's colours.
    static void initialize();
    static void finalize();

    // The widget as a value editor; ExCastFailed when it is none.
    static UiValueEditor& getValueEditor(UiWidget& widget);

    // Binds the editor to the input, replacing any binding it had; a null input leaves it
    // unbound and locked, with its label locked. A double, int, bool or structured input.
    static void setInput(UiWidget& widget, RCShdPtr<PiInput> const& input,
                         RCShdPtr<PiTimePath const> const& timePath, bool undoable = true);
    static void setInputRO(UiWidget& widget, RCShdPtr<PiInput const> const& input,
                           RCShdPtr<PiTimePath const> const& timePath);

    // The binding of an editor, as double or int; null for another kind or none.
    static InputValEdData<double>* getData(UiWidget const& widget);
    static InputValEdData<int>* getIntData(UiWidget const& widget);
};

} // namespace Zr
