// Reading the input elements of a node-bound widget's definition, and reporting what is wrong
// with them.
#include "uiInputElement.h"

#include "uiInputLabelHandler.h"
#include "uiNodeWidgetFactory.h"

#include "msgFileGuard.h"
#include "msgProtocol.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "xmlElement.h"

namespace Zr {

namespace {

// The node panel's messages are loaded only while the package starts; a report made later
// loads them for its own length.
void report(char const* id, std::initializer_list<std::string> arguments) {
    MsgFileGuard messages("nodeUi.msg");
    MsgWarning warning{MsgSubscription(id)};
    for (std::string const& argument : arguments)
        warning.arg(MsgProtocol::substitute(argument));
    MsgProtocol::display(warning);
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
            report("NODEUI_BAD_VALUE_WIDTH", {widgetName.str(), width.getDataMB()});
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
        report("NODEUI_UNKNOWN_INPUT", {widgetName.str(), result._inputName,
                                        node.isNull() ? std::string("-") : node->getName()});
    return result;
}

void UiInputElement::reportWrongType(LiString const& widgetName, std::string const& reason) const {
    report("NODEUI_WRONG_INPUT_TYPE", {widgetName.str(), _inputName, reason});
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
