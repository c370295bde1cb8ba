// NodeUiCreationGuard: brackets the making of a node's panels, so that the node's controller sees
// one start and one end per set of panels, also when an exception leaves the making.
#pragma once

#include "piUserInterfaceManip.h"

namespace Zr {

class NodeUiCreationGuard : private PiUserInterfaceManip {
public:
    // Starts the creation on `ui` and keeps it weakly.
    explicit NodeUiCreationGuard(PiUserInterface& ui);
    // Ends the creation on the controller, if it still lives.
    ~NodeUiCreationGuard();
    NodeUiCreationGuard(NodeUiCreationGuard const&) = delete;
    NodeUiCreationGuard& operator=(NodeUiCreationGuard const&) = delete;

private:
    RCWeakPtr<PiUserInterface> _ui;
};

} // namespace Zr
