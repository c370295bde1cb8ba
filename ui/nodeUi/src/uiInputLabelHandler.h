// UiInputLabelHandler: ties the label of a node-bound widget's row to the input. It builds the
// row (a container holding the label and the widget), and its label's state is the input's mark
// for keyframing: toggling the label marks or unmarks the input.
#pragma once

#include "piInput.h"
#include "piTimePath.h"
#include "uiLabel.h"

#include <string>

namespace Zr {

class UiContainer;
class UiResTable;
class XmlElement;

class UiInputLabelHandler : public RCObject {
public:
    // `parent` is the widget's parent, where the row goes. A label that is editable (with a
    // writable input) can be toggled to mark the input. A null time path fails the assertion
    // "!_timePath.isNull()".
    UiInputLabelHandler(RCShdPtr<PiInput> const& input, RCShdPtr<PiTimePath const> timePath,
                        UiContainer* parent, bool isEditable, UiWidget* widget);
    UiInputLabelHandler(RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> timePath,
                        UiContainer* parent, bool isEditable, UiWidget* widget);
    ~UiInputLabelHandler() override;

    // The label's name in its row.
    static char const* getLabelName() { return "_label"; }

    // Builds the row: the text is `text`, else the `Text` of the element's `Label`, else, when
    // there is a `Label` element, `name`; `Ratio` under `Label` replaces `ratio`, the label's
    // share of the row in percent. Null, with nothing built, when there is no text.
    RCShdPtr<UiLabel> createLabel(UiResTable const* table, XmlElement const& element,
                                  char const* name, float ratio, std::string const& text);

    // Rebinds the label: its mark follows the new input, and it is locked unless the input is
    // writable and the label editable. A null input leaves it locked.
    void setInput(RCShdPtr<PiInput> const& input, RCShdPtr<PiTimePath const> const& timePath);
    void setInput(RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> const& timePath);

    // Null once the label is gone.
    UiLabel* getLabel() const { return _label; }
    RCShdPtr<PiInput const> const& getInput() const { return _input; }

private:
    void install();
    void uninstall();
    void onLabelState(EvEvent&);
    void onLabelMap(EvEvent&);
    void onLabelDestroyed(EvEvent&) { _label = nullptr; }

    RCShdPtr<PiInput> _inputRW;
    RCShdPtr<PiInput const> _input;
    RCShdPtr<PiTimePath const> _timePath;
    UiLabel* _label = nullptr;
    // Neither is held: the row holds the widget, the parent holds the row.
    UiContainer* _parent;
    bool _isEditable;
    UiWidget* _widget;
    bool _installed = false;
    CbMethod<UiInputLabelHandler, EvEvent> _stateHandler{this, &UiInputLabelHandler::onLabelState};
    CbMethod<UiInputLabelHandler, EvEvent> _mapHandler{this, &UiInputLabelHandler::onLabelMap};
    CbMethod<UiInputLabelHandler, EvEvent> _destroyHandler{this,
                                                           &UiInputLabelHandler::onLabelDestroyed};
};

} // namespace Zr
