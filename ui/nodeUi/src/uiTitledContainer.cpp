// UiTitledContainer: the title label, its text and the data a right click on it acts on.
#include "uiTitledContainer.h"

#include "nodeUiMessages.h"
#include "uiNodeWidgetFactory.h"

#include "piNode.h"
#include "piSnItem.h"
#include "piSocketUtil.h"
#include "uiConstraint.h"
#include "uiContainer.h"
#include "uiLabel.h"
#include "xmlElement.h"

#include <sstream>

namespace Zr {

namespace {

// The label spans the container's top three grid units.
char const* const TitleConstraint = "0 p l -21 p t 0 p r 0 p t";

void replaceRightClickData(UiContainer& container, RCShdPtr<RightClickItemData> const& data) {
    while (auto* old = container.findClientData<RightClickItemData>())
        container.removeClientData(RCShdPtr<RCObject>(old));
    if (!data.isNull())
        container.addClientData(data);
}

} // namespace

RightClickItemData::RightClickItemData(RCShdPtr<SnItem> const& item,
                                       RCShdPtr<PiTimePath const> timePath)
    : _items{item}, _timePath(std::move(timePath)) {}

void UiTitledContainer::initialize() {
    UiWidgetFactory::registerFactory("TitledContainer", std::make_unique<TitledContainerFactory>());
}

void UiTitledContainer::finalize() {
    UiWidgetFactory::unregisterFactory("TitledContainer");
}

char const* UiTitledContainer::getTitleLabelName() {
    return "TitleLabel";
}

void UiTitledContainer::setInput(UiContainer& container, RCShdPtr<PiInput> const& input,
                                 RCShdPtr<PiTimePath const> const& timePath) {
    replaceRightClickData(container, input.isNull()
                                         ? RCShdPtr<RightClickItemData>()
                                         : makeShared<RightClickItemData>(
                                               PiSnItem<PiInput>::create(input), timePath));
}

void UiTitledContainer::setTitle(UiContainer& container, std::string const& text) {
    RCShdPtr<UiLabel> label =
        dynamicCast<UiLabel>(container.findWidget(LiString(getTitleLabelName())));
    ZR_ASSERT_TEXT(!label.isNull(), "!label.isNull()");
    label->setText(text.c_str());
}

RCShdPtr<UiContainer> TitledContainerFactory::createContainer(RCShdPtr<UiContainer> const& parent,
                                                              char const* name,
                                                              UiResTable const* table) {
    RCShdPtr<UiContainer> container = UiContainer::create(parent.get(), LiString(name), table);
    RCShdPtr<UiLabel> label =
        UiLabel::create(container.get(), LiString(UiTitledContainer::getTitleLabelName()), nullptr);
    UiConstraint placement;
    std::istringstream text(TitleConstraint);
    placement.read(text);
    label->setConstraint(placement);
    return container;
}

RCShdPtr<UiWidget> TitledContainerFactory::create(RCShdPtr<UiContainer> const& parent,
                                                  char const* name, UiResTable const* table,
                                                  XmlElement const* element) {
    RCShdPtr<UiWidget> widget = UiContainerFactory::create(parent, name, table, element);
    auto* container = dynamic_cast<UiContainer*>(widget.get());
    if (!container || !element)
        return widget;
    if (XmlElement const title = element->getElementByTagName("Title"))
        UiTitledContainer::setTitle(*container, title.getDataMB());
    // What a right click acts on: an input of the node being built, or the node itself.
    RCShdPtr<PiTimePath const> const& timePath = UiNodeWidgetFactory::getCurrentTimePath();
    if (XmlElement const input = element->getElementByTagName("Input")) {
        std::string const inputName = input.getDataMB();
        RCShdPtr<PiNode const> const& nodeRO = UiNodeWidgetFactory::getCurrentNodeRO();
        if (!nodeRO.isNull() && PiSocketUtil::getInput(nodeRO, inputName).isNull())
            NodeUiMessages::reportOnce("NODEUI_NO_INPUT",
                                       {UiNodeWidgetFactory::createTitle(nodeRO).str(), inputName,
                                        UiWidgetFactory::describeLocation(input)});
        UiTitledContainer::setInput(
            *container, PiSocketUtil::getInput(UiNodeWidgetFactory::getCurrentNode(), inputName),
            timePath);
    } else if (element->getElementByTagName("Node")) {
        if (RCShdPtr<PiNode> const& node = UiNodeWidgetFactory::getCurrentNode(); !node.isNull())
            replaceRightClickData(*container, makeShared<RightClickItemData>(
                                                  PiSnItem<PiNode>::create(node), timePath));
    }
    return widget;
}

} // namespace Zr
