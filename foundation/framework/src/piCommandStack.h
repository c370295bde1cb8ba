// PiCommandStack: the undo stack of one graph, which its nodes hand to the widgets and plug-ins
// that change them.
#pragma once

#include "cmCommandStack.h"

namespace Zr {

class PiCommandStack : public CmCommandStack {
public:
    PiCommandStack();
    ~PiCommandStack() override;
};

} // namespace Zr
