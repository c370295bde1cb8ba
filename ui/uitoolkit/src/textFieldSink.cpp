// TextFieldSink: dropped strings become a field's text.
#include "textFieldSink.h"

#include "snItemConvert.h"
#include "uiTextField.h"

namespace Zr {

bool TextFieldSink::findString(DrCarrier const& carrier, std::string& text) {
    if (!carrier.getSelection())
        return false;
    for (RCShdPtr<SnItem> const& item : *carrier.getSelection()) {
        if (SnItemConvert<std::string>::test(item)) {
            text = SnItemConvert<std::string>::get(item);
            return true;
        }
    }
    return false;
}

bool TextFieldSink::willConsumeSelection(DrCarrier const& carrier) {
    std::string text;
    return _field && _field->isEnabled() && findString(carrier, text);
}

bool TextFieldSink::consumeSelection(DrCarrier& carrier) {
    std::string text;
    if (!_field || !_field->isEnabled() || !findString(carrier, text))
        return false;
    if (!_field->setString(text.c_str(), 1, true, false))
        return false;
    _field->fireDropConsumed();
    return true;
}

} // namespace Zr
