// PiPushButton: what a plug-in sees of a push button: the widget operations plus its label.
// Presses reach a plug-in through the activate callback (PiWidget::Activate).
#pragma once

#include "piWidget.h"

#include <string>

namespace Zr {

class PiPushButton : public virtual PiWidget {
public:
    virtual std::string getText() const = 0;
    virtual void setText(std::string const& text) = 0;

protected:
    PiPushButton() = default;
    ~PiPushButton() override = default;
};

} // namespace Zr
