// The walk over the definitions of a panel description and the removal of those it refuses.
#include "nodeDescriptionCheck.h"

#include "nodeUiMessages.h"

#include "uiWidgetFactory.h"
#include "uiWidgetGroupFactory.h"
#include "xmlDocument.h"

#include <cstring>
#include <functional>
#include <sstream>
#include <unordered_set>
#include <vector>

namespace Zr {

namespace {

char const* const ItemsTag = "Items";
char const* const ItemTag = "Item";
char const* const GroupTag = "Group";
char const* const ChildrenGroup = "Children";

// Set while a copy is pruned: its parts were reported when the original was checked, and the
// copy, written on one line, would name other places.
bool quiet = false;

void report(char const* id, std::initializer_list<MsgArgument> arguments) {
    if (!quiet)
        NodeUiMessages::reportOnce(id, arguments);
}

// Decides about one definition at `depth` (elements from the document's root, the definition
// included); true drops it. It reports what it drops.
using Refuse = std::function<bool(XmlElement const& definition, int depth)>;

int elementDepth(pugi::xml_node node) {
    int depth = 0;
    for (; node.type() == pugi::node_element; node = node.parent())
        ++depth;
    return depth;
}

std::string where(XmlElement const& element) {
    std::string const place = UiWidgetFactory::describeLocation(element);
    return place.empty() ? "<" + element.getNodeName() + ">" : place;
}

// The definitions and groups of the description that are refused, none inside another. The
// walk keeps its own stack: a description's nesting must not choose the depth of ours.
std::vector<pugi::xml_node> collectRefused(XmlElement const& root, Refuse const& refuse,
                                           std::string const& owner) {
    // Each definition with its depth and what goes when it is refused: the definition itself,
    // the whole Item of a panel's root, or everything of a single panel's document, so that
    // nothing that followed the refused root becomes the panel.
    struct Pending {
        XmlElement definition;
        int depth;
        pugi::xml_node removed;
    };
    std::vector<Pending> pending;
    if (root.getNodeNameView() == ItemsTag) {
        std::vector<XmlElement> const items = root.getAllElementsByTagName(ItemTag);
        for (auto item = items.rbegin(); item != items.rend(); ++item) {
            std::vector<XmlElement> const children = item->getChildren();
            if (!children.empty())
                pending.push_back(
                    {children.front(), elementDepth(children.front().getNode()), item->getNode()});
        }
    } else if (root) {
        // A document may hold more than one element at its top: all of them go, or the next
        // would become the root.
        pending.push_back({root, 1, root.getNode().root()});
    }

    std::vector<pugi::xml_node> refused;
    std::unordered_set<pugi::xml_node_struct*> seen;
    while (!pending.empty()) {
        Pending const next = pending.back();
        pending.pop_back();
        XmlElement const& definition = next.definition;
        if (!seen.insert(definition.getNode().internal_object()).second)
            continue;
        if (refuse(definition, next.depth)) {
            refused.push_back(next.removed);
            continue;
        }
        std::vector<XmlElement> const groups = definition.getElementsByTagName(GroupTag);
        for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
            std::string const type = group->getAttribute("Type");
            if (!UiWidgetGroupFactory::isRegistered(LiString(type))) {
                report("NODEUI_UNKNOWN_GROUP", {owner, type, where(*group)});
                refused.push_back(group->getNode());
                continue;
            }
            if (type != ChildrenGroup)
                continue;
            std::vector<XmlElement> const children = group->getChildren();
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                pending.push_back({*child, next.depth + 2, child->getNode()});
        }
    }

    // An Item may stand inside a definition refused as a whole; it goes with it.
    std::unordered_set<pugi::xml_node_struct*> const all = [&] {
        std::unordered_set<pugi::xml_node_struct*> set;
        for (pugi::xml_node n : refused)
            set.insert(n.internal_object());
        return set;
    }();
    std::vector<pugi::xml_node> outermost;
    std::unordered_set<pugi::xml_node_struct*> kept;
    for (pugi::xml_node n : refused) {
        if (!kept.insert(n.internal_object()).second)
            continue;
        bool inside = false;
        for (pugi::xml_node up = n.parent(); up && !inside; up = up.parent())
            inside = all.count(up.internal_object()) != 0;
        if (!inside)
            outermost.push_back(n);
    }
    return outermost;
}

int removeAll(std::vector<pugi::xml_node> const& nodes) {
    for (pugi::xml_node n : nodes) {
        if (n.type() != pugi::node_document) {
            n.parent().remove_child(n);
            continue;
        }
        while (pugi::xml_node top =
                   n.find_child([](pugi::xml_node c) { return c.type() == pugi::node_element; }))
            n.remove_child(top);
    }
    return static_cast<int>(nodes.size());
}

bool refuseUnbuildable(XmlElement const& definition, int depth, std::string const& owner) {
    std::string const type = definition.getNodeName();
    if (depth > UiWidgetFactory::MaxDefinitionDepth) {
        report("NODEUI_TOO_DEEP", {owner, UiWidgetFactory::MaxDefinitionDepth, where(definition)});
        return true;
    }
    if (!UiWidgetFactory::isRegistered(LiString(type))) {
        report("NODEUI_UNKNOWN_TYPE", {owner, type, where(definition)});
        return true;
    }
    if (!definition.getElementByTagName("Widget")) {
        report("NODEUI_NO_WIDGET_RECORD", {owner, type, where(definition)});
        return true;
    }
    return false;
}

Refuse refuseFor(std::string const& owner) {
    return [&owner](XmlElement const& d, int depth) { return refuseUnbuildable(d, depth, owner); };
}

} // namespace

int NodeDescriptionCheck::removeUnbuildable(XmlDocument const& document, std::string const& owner) {
    return removeAll(collectRefused(document.getRoot(), refuseFor(owner), owner));
}

bool NodeDescriptionCheck::hasRefused(XmlDocument const& document, std::string const& owner) {
    return !collectRefused(document.getRoot(), refuseFor(owner), owner).empty();
}

std::unique_ptr<XmlDocument> NodeDescriptionCheck::withoutRefused(XmlDocument const& document,
                                                                  std::string const& owner) {
    std::ostringstream text;
    document.getRoot().getNode().root().print(text, "", pugi::format_raw);
    auto copy = std::make_unique<XmlDocument>(text.str(), document.getName());
    quiet = true;
    try {
        removeUnbuildable(*copy, owner);
    } catch (...) {
        quiet = false;
        throw;
    }
    quiet = false;
    return copy;
}

} // namespace Zr
