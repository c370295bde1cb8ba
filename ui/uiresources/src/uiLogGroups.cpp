// Storage of the ui library's log group pointers.
#include "uiLogGroups.h"

namespace Zr {

LgMinorGroup* UiLogGroups::_uiEvents = nullptr;
LgMinorGroup* UiLogGroups::_uiResources = nullptr;

} // namespace Zr
