// UiInputElement: what the definition of a node-bound widget adds to its widget's: the input it
// shows (found on the node being built), whether edits are undoable, and the label column.
#pragma once

#include "piInput.h"
#include "piTimePath.h"
#include "uiWidget.h"

#include <string>

namespace Zr {

class UiResTable;
class XmlElement;

class UiInputElement {
public:
    // Reads `Input`, `Undoable` (an element's text or an attribute, true by default) and
    // `ValueWidth` (percent, 50 by default; out of 0..100 is reported and the default kept),
    // and finds the input on UiNodeWidgetFactory's current node: the read-only node when the
    // panel is read-only. A name the node lacks is reported (once per place in a description).
    static UiInputElement read(XmlElement const* element, LiString const& widgetName);

    // Attaches the binding that `make(inputRW, input, timePath, undoable)` returns to the
    // widget. An input of a type the widget can't show is reported; the widget then stays
    // unbound. An unbound widget is locked: it edits nothing. True when bound.
    template <class Make>
    bool bind(UiWidget& widget, Make&& make) const {
        if (!_input.isNull()) {
            try {
                widget.addClientData(make(_inputRW, _input, _timePath, _undoable));
                return true;
            } catch (PiInputEx::ExWrongType const& ex) {
                reportWrongType(widget.getName(), ex.getReason());
            }
        }
        widget.lock(true);
        return false;
    }

    // Puts the label of the definition's `Label` element (or `text`) left of the widget, in
    // the share `ValueWidth` gives it; nothing without a label.
    void addLabel(UiWidget& widget, UiResTable const* table, XmlElement const* element,
                  std::string const& text = {}) const;

    // Keeps the texts of the reports made here; called by the start-up steps, while the
    // package's messages are loaded.
    static void keepMessages();

    std::string const& getInputName() const { return _inputName; }
    RCShdPtr<PiInput> const& getInputRW() const { return _inputRW; }
    RCShdPtr<PiInput const> const& getInput() const { return _input; }
    bool isUndoable() const { return _undoable; }
    float getValueWidth() const { return _valueWidth; }

private:
    void reportWrongType(LiString const& widgetName, std::string const& reason) const;

    std::string _inputName;
    RCShdPtr<PiInput> _inputRW;
    RCShdPtr<PiInput const> _input;
    RCShdPtr<PiTimePath const> _timePath;
    bool _undoable = true;
    float _valueWidth = 50.f;
};

} // namespace Zr
