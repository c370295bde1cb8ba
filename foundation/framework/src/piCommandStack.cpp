// A graph's undo stack.
#include "piCommandStack.h"

namespace Zr {

PiCommandStack::PiCommandStack() = default;

PiCommandStack::~PiCommandStack() = default;

} // namespace Zr
