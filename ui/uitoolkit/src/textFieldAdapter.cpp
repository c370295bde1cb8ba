// TextFieldAdapter: forwards the text and the mode to the field.
#include "textFieldAdapter.h"

#include "uiTextField.h"

namespace Zr {

TextFieldAdapter::TextFieldAdapter(RCShdPtr<UiTextField> const& field)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(field)) {}

TextFieldAdapter::~TextFieldAdapter() = default;

UiTextField* TextFieldAdapter::field() const {
    return static_cast<UiTextField*>(widget());
}

std::string TextFieldAdapter::getString() const {
    UiTextField const* f = field();
    return f ? f->getString().str() : std::string();
}

bool TextFieldAdapter::setString(std::string const& text, bool notify) {
    UiTextField* f = field();
    return f && f->setString(text.c_str(), 1, notify, notify);
}

bool TextFieldAdapter::isReadOnly() const {
    UiTextField const* f = field();
    return f && f->isReadOnly();
}

void TextFieldAdapter::setReadOnly(bool readOnly) {
    if (UiTextField* f = field())
        f->readOnly(readOnly);
}

} // namespace Zr
