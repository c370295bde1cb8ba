// PushButtonAdapter: the plug-in interface of a push button.
#pragma once

#include "piPushButton.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class UiPushButton;

class PushButtonAdapter : public PiPushButton, public UiWidgetAdapter {
public:
    explicit PushButtonAdapter(RCShdPtr<UiPushButton> const& button);

    std::string getText() const override;
    void setText(std::string const& text) override;

protected:
    ~PushButtonAdapter() override;
};

} // namespace Zr
