// PiNodeController: node events by kind.
#include "piNodeController.h"

#include "piNode.h"

namespace Zr {

PiNodeController::PiNodeController(PiNode& node) : _node(&node) {}

PiNodeController::~PiNodeController() = default;

RCShdPtr<PiNode> PiNodeController::getNode() {
    return RCShdPtr<PiNode>(_node);
}

RCShdPtr<PiNode const> PiNodeController::getNode() const {
    return RCShdPtr<PiNode const>(_node);
}

CbDispatcher<PiNodeEvent const>& PiNodeController::dispatcher(PiNodeEvent const& kind) {
    return _dispatchers[static_cast<std::size_t>(kind.getKind())];
}

void PiNodeController::addCallback(PiNodeEvent const& kind, CbHandler<PiNodeEvent const>* handler) {
    dispatcher(kind).addHandler(handler);
}

void PiNodeController::removeCallback(PiNodeEvent const& kind,
                                      CbHandler<PiNodeEvent const>* handler) {
    dispatcher(kind).removeHandler(handler);
}

void PiNodeController::fireEvent(PiNodeEvent const& event) {
    // A handler may drop the last reference to the node; the controller stays for the call.
    RCStrongPtr<PiNodeController> keep(this);
    dispatcher(event).call(event);
}

} // namespace Zr
