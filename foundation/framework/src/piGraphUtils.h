// PiGraphUtils: small questions about nodes that clients ask without knowing the node's kind.
#pragma once

#include "piNode.h"
#include "piTimePath.h"
#include "piTool.h"

namespace Zr {

struct PiGraphUtils {
    // The tool of a tool node; null for other nodes and for null.
    static RCShdPtr<PiTool const> getTool(PiNode const* node);
    static RCShdPtr<PiTool const> getTool(RCShdPtr<PiNode const> const& node) {
        return getTool(node.get());
    }

    // The time path of a node: its graph's time client, the group nodes it sits in from the top
    // down, and each group's time offset and scale in the same order. A node outside any group
    // gets the top-level path; a node without a graph gets one without a client.
    static RCShdPtr<PiTimePath> getTimePath(PiNode const* node);
    static RCShdPtr<PiTimePath> getTimePath(RCShdPtr<PiNode const> const& node) {
        return getTimePath(node.get());
    }
};

} // namespace Zr
