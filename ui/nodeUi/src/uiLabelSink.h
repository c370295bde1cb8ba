// UiLabelSink: lets the user drag an input's label onto another input's label to link the
// second input to the first by an expression naming it. The label's drag carries the input and
// a reference to it (the expression token followed by the input's full name); a drop sets that
// name as the target input's expression, as one undo entry, and tells whether it evaluates.
#pragma once

#include "drSrcSink.h"
#include "piInput.h"
#include "uiWidget.h"

namespace Zr {

class UiLabelSink : public DrSrcSink {
public:
    enum ConsumeMode { CHECK, PERFORM_CONSUME };

    // Installs a drag recogniser on the label and this sink on its drag object, dragging and
    // dropping enabled. The label owns the sink through its drag object, so the sink keeps the
    // label only by pointer.
    UiLabelSink(UiWidget* label, RCShdPtr<PiInput> const& input);

    bool willPopulateSelection() override { return true; }
    void populateSelection(DrCarrier& carrier) override;
    // A drop is refused when it carries no reference to an input, refers to this input itself
    // (or, for a structured input, one of its parts), or when this input takes no expression.
    bool willConsumeSelection(DrCarrier const& carrier) override;
    bool consumeSelection(DrCarrier& carrier) override;
    bool performConsumeSelection(DrCarrier const& carrier, ConsumeMode mode);

    // The package's start-up step: keeps the text of the message that confirms a link.
    static void initialize();

private:
    UiWidget* _label;
    RCShdPtr<PiInput> _input;
};

} // namespace Zr
