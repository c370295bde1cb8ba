// PiNodeController: the object through which clients reach a node's behaviour and observe it.
// The node holds it strongly; clients hold it weakly (RCWeakPtr), so a controller kept by a
// panel tells that its node is gone.
#pragma once

#include "cbDispatcher.h"
#include "piNodeEvent.h"
#include "rcWeakPtr.h"

#include <array>

namespace Zr {

class PiNode;

// The controller kinds (PiUserInterface, PiAnimInterface, ...) are reached by dynamic_cast from
// a PiNodeController.
class PiNodeController : public virtual RCSWBase {
public:
    explicit PiNodeController(PiNode& node);
    ~PiNodeController() override;
    PiNodeController(PiNodeController const&) = delete;
    PiNodeController& operator=(PiNodeController const&) = delete;

    // The node; null once it is gone while the controller lives on.
    RCShdPtr<PiNode> getNode();
    RCShdPtr<PiNode const> getNode() const;

    // Subscribes `handler` to the events of `kind`'s kind.
    void addCallback(PiNodeEvent const& kind, CbHandler<PiNodeEvent const>* handler);
    void removeCallback(PiNodeEvent const& kind, CbHandler<PiNodeEvent const>* handler);

    // Tells the handlers of the event's kind. Called by the node.
    void fireEvent(PiNodeEvent const& event);

    // Called by the node as it dies.
    void detachNode() { _node = nullptr; }

private:
    CbDispatcher<PiNodeEvent const>& dispatcher(PiNodeEvent const& kind);

    PiNode* _node;
    std::array<CbDispatcher<PiNodeEvent const>, PiNodeEvent::NB_KINDS> _dispatchers;
};

} // namespace Zr
