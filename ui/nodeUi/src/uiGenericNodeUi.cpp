// UiGenericNodeUi: the rows of a node's generic panel.
#include "uiGenericNodeUi.h"

#include "piInputPolicy.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "piStructuredInput.h"
#include "piUserInterface.h"
#include "uiWidgetFactory.h"
#include "xmlDocument.h"

#include <pugixml.hpp>

#include <algorithm>
#include <sstream>

namespace Zr {

namespace {

// The label column's share of a row, in percent.
constexpr int LabelShare = 35;

// The registered type of the node-bound widget, or the plain one when it is not registered.
struct RowType {
    char const* bound;
    char const* plain;
};

RowType rowType(PiInput const& input) {
    switch (input.getType()) {
    case PiInput::Type::Bool:
        return {"InputToggleButton", "ToggleButton"};
    case PiInput::Type::String:
        return {"InputTextField", "TextField"};
    case PiInput::Type::Int:
        if (dynamic_cast<PiTypedInputPolicy<int> const*>(input.getPolicy().get()) &&
            UiWidgetFactory::isRegistered("InputMenu"))
            return {"InputMenu", "ValueEditor"};
        return {"InputValueEditor", "ValueEditor"};
    default:
        return {"InputValueEditor", "ValueEditor"};
    }
}

void addEdge(pugi::xml_node constraint, char const* edge, int value, char const* type,
             char const* target) {
    pugi::xml_node e = constraint.append_child(edge);
    e.append_attribute("Value") = value;
    e.append_attribute("Type") = type;
    e.append_attribute("Target") = target;
}

// A definition of `type` named `name` on row `row`, from `left` to `right` percent of the width.
pugi::xml_node addDefinition(pugi::xml_node children, char const* type, std::string const& name,
                             int row, int left, int right) {
    pugi::xml_node definition = children.append_child(type);
    pugi::xml_node record = definition.append_child("Widget");
    record.append_attribute("Name") = name.c_str();
    pugi::xml_node constraint = record.append_child("Layout").append_child("Constraint");
    int const top = UiGenericNodeUi::RowGap + row * (UiGenericNodeUi::RowHeight + UiGenericNodeUi::RowGap);
    if (left == 0)
        addEdge(constraint, "X1", UiGenericNodeUi::RowGap, "p", "l");
    else
        addEdge(constraint, "X1", left, "%", "l");
    addEdge(constraint, "Y1", -(top + UiGenericNodeUi::RowHeight), "p", "t");
    if (right == 100)
        addEdge(constraint, "X2", -UiGenericNodeUi::RowGap, "p", "r");
    else
        addEdge(constraint, "X2", right, "%", "l");
    addEdge(constraint, "Y2", -top, "p", "t");
    return definition;
}

void addRow(pugi::xml_node children, RCShdPtr<PiInput const> const& input, int row) {
    std::string const name = PiSocketUtil::getName(input, PiSocketUtil::NAME);
    std::string const text = PiSocketUtil::getName(input, PiSocketUtil::DISPLAY_NAME);
    std::string widgetName = name;
    std::replace(widgetName.begin(), widgetName.end(), '.', '_');
    RowType const type = rowType(*input);
    if (UiWidgetFactory::isRegistered(type.bound)) {
        pugi::xml_node definition = addDefinition(children, type.bound, widgetName, row, 0, 100);
        definition.append_child("Input").text() = name.c_str();
        pugi::xml_node label = definition.append_child("Label");
        label.append_child("Text").text() = text.c_str();
        label.append_child("Ratio").text() = LabelShare;
        return;
    }
    pugi::xml_node label =
        addDefinition(children, "Label", widgetName + "_label", row, 0, LabelShare);
    pugi::xml_node record = label.child("Widget");
    record.append_child("LabelString").append_child("Text").text() = text.c_str();
    pugi::xml_node align = record.append_child("LabelAlign").append_child("Align");
    align.append_attribute("H") = "Left";
    align.append_attribute("V") = "Center";
    record.append_child("Default").append_child("Frame").text() = "None";
    addDefinition(children, type.plain, widgetName, row, LabelShare, 100);
}

template <class Node>
Iterator<UiNodeWidgetFactory::Item> createGeneric(Node const& node,
                                                  RCShdPtr<PiTimePath const> const& timePath) {
    if (node.isNull())
        return {};
    XmlDocument const description(UiGenericNodeUi::createDescription(node),
                                  "generic panel of " + node->getName());
    return UiNodeWidgetFactory::create(node, timePath, &description);
}

} // namespace

std::string UiGenericNodeUi::createDescription(RCShdPtr<PiNode const> const& node) {
    std::vector<RCShdPtr<PiInput const>> inputs;
    if (!node.isNull())
        for (RCShdPtr<PiInput> const& input : node->getInputs()) {
            if (auto const* whole = dynamic_cast<PiStructuredInput const*>(input.get()))
                inputs.insert(inputs.end(), whole->getParts().begin(), whole->getParts().end());
            else
                inputs.emplace_back(input);
        }

    pugi::xml_document document;
    pugi::xml_node panel = document.append_child("Container");
    pugi::xml_node record = panel.append_child("Widget");
    record.append_attribute("Name") = "genericPanel";
    pugi::xml_node coord = record.append_child("Rectangle").append_child("Coord");
    int const rows = std::max<int>(1, static_cast<int>(inputs.size()));
    coord.append_attribute("X") = 0;
    coord.append_attribute("Y") = 0;
    coord.append_attribute("W") = PanelWidth;
    coord.append_attribute("H") = RowGap + rows * (RowHeight + RowGap);
    pugi::xml_node children = panel.append_child("Group");
    children.append_attribute("Type") = "Children";
    for (std::size_t row = 0; row < inputs.size(); ++row)
        addRow(children, inputs[row], static_cast<int>(row));

    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
}

Iterator<UiNodeWidgetFactory::Item>
UiGenericNodeUi::create(RCShdPtr<PiNode> const& node, RCShdPtr<PiTimePath const> const& timePath) {
    return createGeneric(node, timePath);
}

Iterator<UiNodeWidgetFactory::Item>
UiGenericNodeUi::create(RCShdPtr<PiNode const> const& node,
                        RCShdPtr<PiTimePath const> const& timePath) {
    return createGeneric(node, timePath);
}

bool UiGenericNodeUi::hasNoDescription(RCShdPtr<PiNode const> const& node) {
    if (node.isNull())
        return false;
    RCStrongPtr<PiNodeController> controller = const_cast<PiNode&>(*node).getController().lock();
    auto const* ui = dynamic_cast<PiUserInterface const*>(controller.get());
    return ui && ui->getXmlDescription().empty();
}

} // namespace Zr
