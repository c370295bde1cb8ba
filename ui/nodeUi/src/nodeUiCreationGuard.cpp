// NodeUiCreationGuard: the start and end of a node's panel creation.
#include "nodeUiCreationGuard.h"

namespace Zr {

NodeUiCreationGuard::NodeUiCreationGuard(PiUserInterface& ui) : _ui(&ui) {
    startUiCreation(ui);
}

NodeUiCreationGuard::~NodeUiCreationGuard() {
    if (RCStrongPtr<PiUserInterface> ui = _ui.lock())
        endUiCreation(*ui);
}

} // namespace Zr
