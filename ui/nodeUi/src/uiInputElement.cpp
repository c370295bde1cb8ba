// Reading the input elements of a node-bound widget's definition, and reporting what is wrong
// with them.
#include "uiInputElement.h"

#include "uiInputLabelHandler.h"
#include "uiNodeWidgetFactory.h"

#include "nodeUiMessages.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "uiWidgetFactory.h"
#include "xmlElement.h"

namespace Zr {

namespace {

// The node being built, as the panel's reports name it.
std::string nodeTitle() {
    RCShdPtr<PiNode const> const& node = UiNodeWidgetFactory::getCurrentNodeRO();
    return node.isNull() ? std::string("-") : UiNodeWidgetFactory::createTitle(node).str();
}

std::string childText(XmlElement const& element, char const* tag) {
    XmlElement const child = element.getElementByTagName(tag);
    return child.isNull() ? std::string() : child.getDataMB();
}

} // namespace

UiInputElement UiInputElement::read(XmlElement const* element, LiString const& widgetName) {
    UiInputElement result;
    if (!element)
        return result;
    result._inputName = childText(*element, "Input");
    result._undoable = element->isTrue("Undoable", true);
    if (XmlElement const undoable = element->getElementByTagName("Undoable"); !undoable.isNull())
        undoable.getData(result._undoable);
    if (XmlElement const width = element->getElementByTagName("ValueWidth"); !width.isNull()) {
        int percent = 0;
        if (width.getData(percent) && percent >= 0 && percent <= 100)
            result._valueWidth = static_cast<float>(percent);
        else
            NodeUiMessages::reportOnce("NODEUI_BAD_VALUE_WIDTH",
                                       {nodeTitle(), widgetName.str(), width.getDataMB(),
                                        UiWidgetFactory::describeLocation(*element)});
    }
    if (result._inputName.empty())
        return result;

    result._timePath = UiNodeWidgetFactory::getCurrentTimePath();
    RCShdPtr<PiNode const> const& node = UiNodeWidgetFactory::getCurrentNodeRO();
    if (UiNodeWidgetFactory::isReadOnly()) {
        result._input = PiSocketUtil::getInput(node, result._inputName);
    } else {
        result._inputRW =
            PiSocketUtil::getInput(UiNodeWidgetFactory::getCurrentNode(), result._inputName);
        result._input = result._inputRW;
    }
    if (result._input.isNull())
        NodeUiMessages::reportOnce(
            "NODEUI_NO_INPUT",
            {nodeTitle(), result._inputName, UiWidgetFactory::describeLocation(*element)});
    return result;
}

void UiInputElement::reportWrongType(LiString const& widgetName, std::string const& reason) const {
    NodeUiMessages::reportOnce("NODEUI_WRONG_INPUT_TYPE",
                               {nodeTitle(), widgetName.str(), _inputName, reason});
}

void UiInputElement::keepMessages() {
    NodeUiMessages::keep({"NODEUI_WRONG_INPUT_TYPE", "NODEUI_BAD_VALUE_WIDTH"});
}

void UiInputElement::addLabel(UiWidget& widget, UiResTable const* table, XmlElement const* element,
                              std::string const& text) const {
    if (!element)
        return;
    RCShdPtr<UiInputLabelHandler> handler =
        _inputRW.isNull()
            ? new UiInputLabelHandler(_input, _timePath, widget.getParent(), false, &widget)
            : new UiInputLabelHandler(_inputRW, _timePath, widget.getParent(), true, &widget);
    handler->createLabel(table, *element, widget.getName().c_str(), _valueWidth, text);
}

} // namespace Zr
