// The "InputTextField" widget type.
#include "uiInputTextField.h"

#include "uiInputElement.h"

#include "uiWidgetFactory.h"

namespace Zr {

namespace {

constexpr char const* TypeName = "InputTextField";

class InputTextFieldFactory : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override {
        RCShdPtr<UiTextField> field = UiTextField::create(parent.get(), LiString(name), table);
        UiInputElement const input = UiInputElement::read(element, field->getName());
        input.bind(*field, [&field](auto const& rw, auto const& ro, auto const& path,
                                    bool undoable) {
            return RCShdPtr<RCObject>(new InputTextFieldData(field.get(), rw, ro, path, undoable));
        });
        return field;
    }
};

} // namespace

void UiInputTextField::initialize() {
    InputUnderlineColors::fetch();
    UiInputElement::keepMessages();
    UiWidgetFactory::registerFactory(LiString(TypeName),
                                     OPtr<UiWidgetFactory>(new InputTextFieldFactory));
}

void UiInputTextField::finalize() {
    UiWidgetFactory::unregisterFactory(LiString(TypeName));
}

} // namespace Zr
