// PiCompositionGraphInterface: the controller kind of nodes of a composition graph, which hands
// out the graph's keyframing utility.
#pragma once

#include "rcBase.h"

namespace Zr {

class PiGraph;
class PiKeyframingUtil;

class PiCompositionGraphInterface {
public:
    virtual ~PiCompositionGraphInterface() = default;
    // The graph of the node; null once the node left it.
    virtual PiGraph* getCompositionGraph() const = 0;
    // The graph's keyframing utility (PiGraph::getKeyframingUtil); null without a graph.
    // Defined with PiKeyframingUtil.
    RCShdPtr<PiKeyframingUtil> getKeyframingUtil() const;
};

} // namespace Zr
