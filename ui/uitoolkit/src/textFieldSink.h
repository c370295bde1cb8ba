// TextFieldSink: the drop target of a text field. A drop whose selection holds a string is
// taken as the field's new text.
#pragma once

#include "drSrcSink.h"

#include <string>

namespace Zr {

class UiTextField;

class TextFieldSink : public DrSrcSink {
public:
    // The field owns the sink (through its drag-and-drop object): a plain pointer back.
    explicit TextFieldSink(UiTextField* field) : _field(field) {}

    // An enabled field and a selection with a string item.
    bool willConsumeSelection(DrCarrier const& carrier) override;
    // The first string becomes the text (through the filter, cursor at the end, content
    // changed called), then the field's drop-consumed callbacks run. False when refused.
    bool consumeSelection(DrCarrier& carrier) override;

    // The first string item of the carrier's selection, if any.
    static bool findString(DrCarrier const& carrier, std::string& text);

private:
    UiTextField* _field;
};

} // namespace Zr
