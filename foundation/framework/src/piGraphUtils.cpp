// PiGraphUtils: questions about nodes of any kind.
#include "piGraphUtils.h"

#include "piGraph.h"
#include "piGroup.h"
#include "piGroupNode.h"
#include "piToolNode.h"

#include <algorithm>
#include <vector>

namespace Zr {

RCShdPtr<PiTool const> PiGraphUtils::getTool(PiNode const* node) {
    auto const* toolNode = dynamic_cast<PiToolNode const*>(node);
    return toolNode ? toolNode->getTool() : nullptr;
}

RCShdPtr<PiTimePath> PiGraphUtils::getTimePath(PiNode const* node) {
    ZR_ASSERT(node != nullptr);
    RCShdPtr<TmTimeClient> client;
    if (PiGraph const* graph = node->getGraph())
        client = graph->getTimeClient();

    // Walk up from the node, then turn the groups round so that the top one comes first.
    std::vector<PiGroupNode const*> groups;
    for (PiGroupNode const* group = node->getParentGroup(); group; group = group->getParentGroup())
        groups.push_back(group);
    std::reverse(groups.begin(), groups.end());

    auto path = RCShdPtr<PiPath>(new PiPath);
    std::vector<PiTimeStep> steps;
    steps.reserve(groups.size());
    for (PiGroupNode const* group : groups) {
        path->append(RCShdPtr<PiGraphObject const>(group));
        RCShdPtr<PiGroup> object = group->getGroup();
        steps.push_back(object ? PiTimeStep{object->getTimeOffset(), object->getTimeScale()}
                               : PiTimeStep{});
    }
    return RCShdPtr<PiTimePath>(new PiTimePath(client, path, std::move(steps)));
}

} // namespace Zr
