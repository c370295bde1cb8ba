// PiTextField: what a plug-in sees of a one-line text field: the widget operations plus its
// text and whether the user may edit it.
#pragma once

#include "piWidget.h"

#include <string>

namespace Zr {

class PiTextField : public virtual PiWidget {
public:
    virtual std::string getString() const = 0;
    // Takes the text through the field's filter; false when the filter refuses it. With notify
    // the field's content-changed and set-value callbacks run.
    virtual bool setString(std::string const& text, bool notify) = 0;
    virtual bool isReadOnly() const = 0;
    virtual void setReadOnly(bool readOnly) = 0;

protected:
    PiTextField() = default;
    ~PiTextField() override = default;
};

} // namespace Zr
