// UiWidgetGroupAdapter: the plug-in interface of a UiGroup; and UiGroup::getInterface.
#include "uiWidgetGroupAdapter.h"

#include "uiGroup.h"

#include "piWidget.h"

#include <iterator>

namespace Zr {

UiWidgetGroupAdapter::UiWidgetGroupAdapter(RCShdPtr<UiGroup> const& group) : _group(group) {
    ZR_ASSERT(!_group.isNull());
}

UiWidgetGroupAdapter::~UiWidgetGroupAdapter() = default;

std::string UiWidgetGroupAdapter::getName() const {
    return _group->getName().str();
}

int UiWidgetGroupAdapter::getNbWidgets() const {
    return static_cast<int>(_group->getChildrenList().size());
}

RCShdPtr<PiWidget> UiWidgetGroupAdapter::getWidget(int index) const {
    UiContainer::ChildList const& children = _group->getChildrenList();
    if (index < 0 || index >= static_cast<int>(children.size()))
        return nullptr;
    return (*std::next(children.begin(), index))->retrieveInterface();
}

RCShdPtr<PiWidgetGroup> UiGroup::getInterface() {
    return RCShdPtr<PiWidgetGroup>(new UiWidgetGroupAdapter(RCShdPtr<UiGroup>(this)));
}

} // namespace Zr
