// LabelAdapter: the plug-in interface of a label.
#pragma once

#include "piLabel.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class UiLabel;

class LabelAdapter : public PiLabel, public UiWidgetAdapter {
public:
    explicit LabelAdapter(RCShdPtr<UiLabel> const& label);

    std::string getText() const override;
    void setText(std::string const& text) override;
    bool getState() const override;
    void setState(bool state, bool notify) override;

protected:
    ~LabelAdapter() override;

private:
    UiLabel* label() const;
};

} // namespace Zr
