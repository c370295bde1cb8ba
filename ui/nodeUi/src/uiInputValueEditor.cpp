// The "InputValueEditor" widget type and the rebinding of value editors.
#include "uiInputValueEditor.h"

#include "uiInputElement.h"
#include "uiInputLabelHandler.h"

#include "uiWidgetFactory.h"

namespace Zr {

namespace {

constexpr char const* TypeName = "InputValueEditor";

// An integer input edits through its int form, so the editor never writes a fraction.
RCShdPtr<RCObject> makeBinding(UiValueEditor& editor, RCShdPtr<PiInput> const& inputRW,
                               RCShdPtr<PiInput const> const& input,
                               RCShdPtr<PiTimePath const> const& timePath, bool undoable) {
    if (input->getType() == PiInput::Type::Int)
        return RCShdPtr<RCObject>(
            new InputValEdData<int>(&editor, inputRW, input, timePath, undoable));
    return RCShdPtr<RCObject>(
        new InputValEdData<double>(&editor, inputRW, input, timePath, undoable));
}

void unbind(UiWidget& widget) {
    for (auto const& data : std::vector<RCShdPtr<RCObject>>(widget.getClientData()))
        if (dynamic_cast<InputDataCommon*>(data.get()))
            widget.removeClientData(data);
}

void rebindLabel(UiWidget& widget, RCShdPtr<PiInput> const& inputRW,
                 RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> const& timePath) {
    UiInputLabelHandler* handler = widget.findClientData<UiInputLabelHandler>();
    if (!handler || !handler->getLabel())
        return;
    if (!inputRW.isNull())
        handler->setInput(inputRW, timePath);
    else
        handler->setInput(input, timePath);
}

class InputValueEditorFactory : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override {
        RCShdPtr<UiValueEditor> editor = UiValueEditor::create(parent.get(), LiString(name), table);
        UiInputElement const input = UiInputElement::read(element, editor->getName());
        input.bind(*editor,
                   [&editor](auto const& rw, auto const& ro, auto const& path, bool undoable) {
                       return makeBinding(*editor, rw, ro, path, undoable);
                   });
        input.addLabel(*editor, table, element);
        return editor;
    }
};

} // namespace

void UiInputValueEditor::initialize() {
    InputUnderlineColors::fetch();
    UiInputElement::keepMessages();
    UiWidgetFactory::registerFactory(LiString(TypeName),
                                     OPtr<UiWidgetFactory>(new InputValueEditorFactory));
}

void UiInputValueEditor::finalize() {
    UiWidgetFactory::unregisterFactory(LiString(TypeName));
}

UiValueEditor& UiInputValueEditor::getValueEditor(UiWidget& widget) {
    auto* editor = dynamic_cast<UiValueEditor*>(&widget);
    if (!editor)
        RCExUtil::throwExCastFailed(typeid(widget).name(), typeid(UiValueEditor).name());
    return *editor;
}

void UiInputValueEditor::setInput(UiWidget& widget, RCShdPtr<PiInput> const& input,
                                  RCShdPtr<PiTimePath const> const& timePath, bool undoable) {
    UiValueEditor& editor = getValueEditor(widget);
    unbind(editor);
    rebindLabel(editor, input, input, timePath);
    if (input.isNull()) {
        editor.lock(true);
        return;
    }
    editor.addClientData(makeBinding(editor, input, input, timePath, undoable));
}

void UiInputValueEditor::setInputRO(UiWidget& widget, RCShdPtr<PiInput const> const& input,
                                    RCShdPtr<PiTimePath const> const& timePath) {
    UiValueEditor& editor = getValueEditor(widget);
    unbind(editor);
    rebindLabel(editor, nullptr, input, timePath);
    if (input.isNull()) {
        editor.lock(true);
        return;
    }
    editor.addClientData(makeBinding(editor, nullptr, input, timePath, true));
}

InputValEdData<double>* UiInputValueEditor::getData(UiWidget const& widget) {
    return widget.findClientData<InputValEdData<double>>();
}

InputValEdData<int>* UiInputValueEditor::getIntData(UiWidget const& widget) {
    return widget.findClientData<InputValEdData<int>>();
}

} // namespace Zr
