// The node panel factory's process-wide state: the node and time path being built.
#include "uiNodeWidgetFactory.h"

#include "piNode.h"
#include "piTimePath.h"

#include <utility>

namespace Zr {

namespace {

struct CurrentState {
    RCShdPtr<PiNode> node;
    RCShdPtr<PiNode const> nodeRO;
    RCShdPtr<PiTimePath const> timePath;
};

CurrentState& current() {
    static CurrentState state;
    return state;
}

} // namespace

UiNodeWidgetFactory::Item::Item(LiString title, LiString genericUiName, RCShdPtr<UiWidget> widget)
    : _title(std::move(title)), _genericUiName(std::move(genericUiName)),
      _widget(std::move(widget)) {}

bool UiNodeWidgetFactory::isReadOnly() {
    return current().node.isNull() && !current().nodeRO.isNull();
}

RCShdPtr<PiNode> const& UiNodeWidgetFactory::getCurrentNode() {
    return current().node;
}

RCShdPtr<PiNode const> const& UiNodeWidgetFactory::getCurrentNodeRO() {
    return current().nodeRO;
}

RCShdPtr<PiTimePath const> const& UiNodeWidgetFactory::getCurrentTimePath() {
    return current().timePath;
}

} // namespace Zr
