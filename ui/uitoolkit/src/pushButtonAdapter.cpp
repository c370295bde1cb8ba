// PushButtonAdapter: forwards the label's text to the button.
#include "pushButtonAdapter.h"

#include "uiPushButton.h"

namespace Zr {

PushButtonAdapter::PushButtonAdapter(RCShdPtr<UiPushButton> const& button)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(button)) {}

PushButtonAdapter::~PushButtonAdapter() = default;

std::string PushButtonAdapter::getText() const {
    auto const* button = static_cast<UiPushButton const*>(widget());
    return button ? button->getLabel().getString().str() : std::string();
}

void PushButtonAdapter::setText(std::string const& text) {
    if (auto* button = static_cast<UiPushButton*>(widget()))
        button->getLabel().setString(text.c_str());
}

} // namespace Zr
