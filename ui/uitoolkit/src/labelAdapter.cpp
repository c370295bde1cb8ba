// LabelAdapter: forwards the text and the state to the label.
#include "labelAdapter.h"

#include "uiLabel.h"

namespace Zr {

LabelAdapter::LabelAdapter(RCShdPtr<UiLabel> const& label)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(label)) {}

LabelAdapter::~LabelAdapter() = default;

UiLabel* LabelAdapter::label() const {
    return static_cast<UiLabel*>(widget());
}

std::string LabelAdapter::getText() const {
    UiLabel const* l = label();
    return l ? l->getText().str() : std::string();
}

void LabelAdapter::setText(std::string const& text) {
    if (UiLabel* l = label())
        l->setText(text.c_str());
}

bool LabelAdapter::getState() const {
    UiLabel const* l = label();
    return l && l->getState();
}

void LabelAdapter::setState(bool state, bool notify) {
    if (UiLabel* l = label())
        l->setState(state, notify);
}

} // namespace Zr
