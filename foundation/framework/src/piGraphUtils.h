// PiGraphUtils: small questions about nodes that clients ask without knowing the node's kind.
#pragma once

#include "piNode.h"
#include "piTool.h"

namespace Zr {

struct PiGraphUtils {
    // The tool of a tool node; null for other nodes and for null.
    static RCShdPtr<PiTool const> getTool(PiNode const* node);
    static RCShdPtr<PiTool const> getTool(RCShdPtr<PiNode const> const& node) {
        return getTool(node.get());
    }
};

} // namespace Zr
