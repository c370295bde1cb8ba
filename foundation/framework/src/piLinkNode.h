// PiLinkNode: a node that only passes a connection on; it has no data of its own.
#pragma once

#include "piNode.h"

namespace Zr {

class PiLinkNode : public PiNode {
public:
    explicit PiLinkNode(std::string name);
    ~PiLinkNode() override;
};

} // namespace Zr
