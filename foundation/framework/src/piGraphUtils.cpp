// PiGraphUtils: questions about nodes of any kind.
#include "piGraphUtils.h"

#include "piToolNode.h"

namespace Zr {

RCShdPtr<PiTool const> PiGraphUtils::getTool(PiNode const* node) {
    auto const* toolNode = dynamic_cast<PiToolNode const*>(node);
    return toolNode ? toolNode->getTool() : nullptr;
}

} // namespace Zr
