// PiLabel: what a plug-in sees of a label: the widget operations plus its text and its
// highlighted state.
#pragma once

#include "piWidget.h"

#include <string>

namespace Zr {

class PiLabel : public virtual PiWidget {
public:
    virtual std::string getText() const = 0;
    virtual void setText(std::string const& text) = 0;
    // A label in the on state shows its text in its on-colour.
    virtual bool getState() const = 0;
    virtual void setState(bool state, bool notify) = 0;

protected:
    PiLabel() = default;
    ~PiLabel() override = default;
};

} // namespace Zr
