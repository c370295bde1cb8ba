// PiUserInterface: the default of the per-panel data hook.
#include "piUserInterface.h"

namespace Zr {

RCShdPtr<RCObject> PiUserInterface::createInstanceData(RCShdPtr<PiWidget> const&,
                                                       RCShdPtr<PiTimePath const> const&) {
    return nullptr;
}

} // namespace Zr
