// UiNodeWidgetFactory: the description caches, the making of a node's panels, titles, and the
// node and time path being built.
#include "uiNodeWidgetFactory.h"

#include "nodeDescriptionCheck.h"
#include "nodeUiCreationGuard.h"
#include "nodeUiMessages.h"

#include "osEnv.h"
#include "piExpressionServices.h"
#include "piGraphUtils.h"
#include "piGroupNode.h"
#include "piLinkNode.h"
#include "piNode.h"
#include "piTimePath.h"
#include "piToolNode.h"
#include "piUserInterfaceManip.h"
#include "uiContainer.h"
#include "uiResTable.h"
#include "uiWidgetFactory.h"
#include "uuid.h"
#include "xmlDocument.h"

#include <map>
#include <typeindex>
#include <utility>

namespace Zr {

namespace {

char const* const ITEMS_TAG = "Items";
char const* const ItemTag = "Item";
char const* const TitleAttribute = "Title";
char const* const GenericUiAttribute = "GenericUI";
char const* const DefaultGenericUi = "Default";

struct FactoryState {
    // Documents of tool nodes by the tool's identifier, and of other nodes by the dynamic type
    // of their controller.
    HashMap<Uuid, std::unique_ptr<XmlDocument>> toolXmlCache;
    std::map<std::type_index, std::unique_ptr<XmlDocument>> typeXmlCache;
    RCShdPtr<PiNode> node;
    RCShdPtr<PiNode const> nodeRO;
    RCShdPtr<PiTimePath const> timePath;
    bool debugNodeUi = false;
};

FactoryState& state() {
    static FactoryState s;
    return s;
}

// Sets the node and time path being built, and puts the earlier ones back on every way out.
class CurrentNodeScope {
public:
    CurrentNodeScope(RCShdPtr<PiNode> node, RCShdPtr<PiNode const> nodeRO,
                     RCShdPtr<PiTimePath const> timePath)
        : _node(std::exchange(state().node, std::move(node))),
          _nodeRO(std::exchange(state().nodeRO, std::move(nodeRO))),
          _timePath(std::exchange(state().timePath, std::move(timePath))) {}
    ~CurrentNodeScope() {
        state().node = std::move(_node);
        state().nodeRO = std::move(_nodeRO);
        state().timePath = std::move(_timePath);
    }
    CurrentNodeScope(CurrentNodeScope const&) = delete;
    CurrentNodeScope& operator=(CurrentNodeScope const&) = delete;

private:
    RCShdPtr<PiNode> _node;
    RCShdPtr<PiNode const> _nodeRO;
    RCShdPtr<PiTimePath const> _timePath;
};

// The door to the controller's per-panel data.
class CtrlManip : private PiUserInterfaceManip {
public:
    static RCShdPtr<RCObject> instanceData(PiUserInterface& ui,
                                           RCShdPtr<PiWidget> const& widgetInterface,
                                           RCShdPtr<PiTimePath const> const& timePath) {
        return createInstanceData(ui, widgetInterface, timePath);
    }
};

// The controller of a node, as the user interface kind; null when it is gone or of another
// kind. The read-only form needs it too: bracketing a panel's creation and handing out
// per-panel data change nothing of the node.
RCStrongPtr<PiUserInterface> userInterfaceOf(PiNode const& node) {
    RCStrongPtr<PiNodeController> controller = const_cast<PiNode&>(node).getController().lock();
    return RCStrongPtr<PiUserInterface>(dynamic_cast<PiUserInterface*>(controller.get()));
}

enum class CacheKind { byType, byTool, none };

// A cached document, or nothing; with ZR_DEBUG_NODE_UI set, a found entry is dropped so that
// the description is read again.
template <class Cache, class Key>
XmlDocument const* lookUp(Cache& cache, Key const& key) {
    auto it = cache.find(key);
    if (it == cache.end())
        return nullptr;
    if (state().debugNodeUi) {
        cache.erase(it);
        return nullptr;
    }
    return it->second.get();
}

// Reads the controller's description; null when there is none or it is no XML (reported).
std::unique_ptr<XmlDocument> readDescription(PiUserInterface const& ui, std::string const& owner) {
    std::string const text = ui.getXmlDescription();
    if (text.empty())
        return nullptr;
    std::string const path = ui.getXmlPath();
    std::unique_ptr<XmlDocument> document;
    try {
        document = path.empty() ? std::make_unique<XmlDocument>(text)
                                : std::make_unique<XmlDocument>(text, path);
    } catch (XmlEx::ExSyntaxError const& e) {
        NodeUiMessages::reportOnce("NODEUI_BAD_DESCRIPTION", {owner, e.getReason()});
        return nullptr;
    }
    if (!path.empty())
        UiResTable::addResTableInfo(*document, OsFilePath(path));
    // Checked once as it is read: a cached description is built from many times.
    NodeDescriptionCheck::removeUnbuildable(*document, owner);
    return document;
}

// Steps 3 to 5 of making panels: the cached description of the node, or a new one read from
// the controller. A description that may not be cached is handed over in `local`.
XmlDocument const* findDescription(RCShdPtr<PiNode const> const& node, PiUserInterface const& ui,
                                   std::unique_ptr<XmlDocument>& local) {
    FactoryState& s = state();
    RCShdPtr<PiTool const> const tool = PiGraphUtils::getTool(node);
    CacheKind kind = CacheKind::byType;
    XmlDocument const* document = nullptr;
    if (!tool.isNull()) {
        kind = ui.isDynamicUi() ? CacheKind::none : CacheKind::byTool;
        if (kind == CacheKind::byTool)
            document = lookUp(s.toolXmlCache, tool->getUuid());
    }
    std::type_index const type(typeid(ui));
    if (!document && kind != CacheKind::byTool)
        document = lookUp(s.typeXmlCache, type);
    if (document)
        return document;

    std::unique_ptr<XmlDocument> read =
        readDescription(ui, UiNodeWidgetFactory::createTitle(node).str());
    if (!read)
        return nullptr;
    document = read.get();
    switch (kind) {
    case CacheKind::byType:
        s.typeXmlCache[type] = std::move(read);
        break;
    case CacheKind::byTool:
        s.toolXmlCache[tool->getUuid()] = std::move(read);
        break;
    case CacheKind::none:
        local = std::move(read);
        break;
    }
    return document;
}

Iterator<UiNodeWidgetFactory::Item> emptyResult() {
    return Iterator<UiNodeWidgetFactory::Item>(
        std::make_unique<IteratorEmpty<UiNodeWidgetFactory::Item>>());
}

Iterator<UiNodeWidgetFactory::Item> result(Vector<UiNodeWidgetFactory::Item> items) {
    if (items.empty())
        return emptyResult();
    return makeIterator(std::move(items));
}

// One panel's root widget from its definition, with the controller's per-panel data.
RCShdPtr<UiWidget> makeWidget(XmlElement const& element, PiUserInterface& ui) {
    RCShdPtr<UiWidget> widget = UiWidgetFactory::createWidget(RCShdPtr<UiContainer>(), element);
    if (widget.isNull())
        return widget;
    RCShdPtr<RCObject> const data =
        CtrlManip::instanceData(ui, widget->retrieveInterface(), state().timePath);
    if (!data.isNull())
        widget->addClientData(data);
    return widget;
}

void applyTableName(UiWidget& widget, std::string const& tableName) {
    if (!tableName.empty())
        UiWidget::setWidgetResTable(widget, tableName);
}

// Steps 7 to 9: the panels of a description, with the current node set.
Iterator<UiNodeWidgetFactory::Item>
makePanels(XmlDocument const& document, RCShdPtr<PiNode const> const& node, PiUserInterface& ui) {
    XmlElement const root = document.getRoot();
    // A description whose only panel was taken out has no root left.
    if (!root)
        return emptyResult();
    NodeUiCreationGuard guard(ui);
    std::string const tableName =
        root.getElementByTagName(UiResTable::getResTableNameTag()).getDataMB();
    Vector<UiNodeWidgetFactory::Item> items;
    if (root.getNodeNameView() != ITEMS_TAG) {
        RCShdPtr<UiWidget> widget = makeWidget(root, ui);
        if (widget.isNull())
            return emptyResult();
        applyTableName(*widget, tableName);
        items.emplace_back(UiNodeWidgetFactory::createTitle(node), LiString(DefaultGenericUi),
                           widget);
        return result(std::move(items));
    }
    std::vector<XmlElement> const itemElements = root.getAllElementsByTagName(ItemTag);
    items.reserve(itemElements.size());
    for (XmlElement const& item : itemElements) {
        // The first panel carries the node's title, whatever its own says.
        LiString title = items.empty() ? UiNodeWidgetFactory::createTitle(node)
                                       : LiString(item.getAttribute(TitleAttribute));
        std::string genericUi = item.getAttribute(GenericUiAttribute);
        if (genericUi.empty())
            genericUi = DefaultGenericUi;
        XmlElement first;
        for (pugi::xml_node c = item.getNode().first_child(); c && !first; c = c.next_sibling())
            if (c.type() == pugi::node_element)
                first = XmlElement(c, item.getSource());
        if (!first)
            continue;
        RCShdPtr<UiWidget> widget = makeWidget(first, ui);
        if (widget.isNull())
            continue;
        applyTableName(*widget, tableName);
        items.emplace_back(std::move(title), LiString(genericUi), widget);
    }
    return result(std::move(items));
}

// Making panels, both forms.
Iterator<UiNodeWidgetFactory::Item> createPanels(RCShdPtr<PiNode const> const& node, bool readOnly,
                                                 RCShdPtr<PiTimePath const> const& timePath,
                                                 XmlDocument const* xml) {
    if (node.isNull())
        return emptyResult();
    RCStrongPtr<PiUserInterface> ui = userInterfaceOf(*node);
    if (ui.isNull()) {
        NodeUiMessages::reportOnce("NODEUI_NO_CONTROLLER", {node->getName()});
        return emptyResult();
    }
    // Declared first, so that a description that may not be cached outlives the widgets.
    std::unique_ptr<XmlDocument> local;
    XmlDocument const* document = xml ? xml : findDescription(node, *ui, local);
    if (!document)
        return emptyResult();
    // A cached description was checked as it was read; a lent one is checked at each use.
    std::unique_ptr<XmlDocument> pruned;
    if (xml) {
        std::string const owner = UiNodeWidgetFactory::createTitle(node).str();
        if (NodeDescriptionCheck::hasRefused(*xml, owner)) {
            pruned = NodeDescriptionCheck::withoutRefused(*xml, owner);
            document = pruned.get();
        }
    }

    RCShdPtr<PiNode> const controllerNode = dynamic_cast<PiNodeController&>(*ui).getNode();
    CurrentNodeScope current(readOnly ? RCShdPtr<PiNode>() : controllerNode,
                             RCShdPtr<PiNode const>(controllerNode), timePath);
    return makePanels(*document, node, *ui);
}

Iterator<UiNodeWidgetFactory::Item> createAuxiliary(RCShdPtr<PiNode> const& node,
                                                    RCShdPtr<PiNode const> const& nodeRO,
                                                    RCShdPtr<PiTimePath const> const& timePath,
                                                    XmlDocument const& xml) {
    XmlElement root = xml.getRoot();
    ZR_ASSERT_TEXT(root.getNodeName() != ITEMS_TAG, "root->getNodeName() != ITEMS_TAG");
    std::unique_ptr<XmlDocument> pruned;
    std::string const owner =
        nodeRO.isNull() ? std::string() : UiNodeWidgetFactory::createTitle(nodeRO).str();
    if (NodeDescriptionCheck::hasRefused(xml, owner)) {
        pruned = NodeDescriptionCheck::withoutRefused(xml, owner);
        root = pruned->getRoot();
    }
    CurrentNodeScope current(node, nodeRO, timePath);
    RCShdPtr<UiWidget> widget;
    if (root)
        widget = UiWidgetFactory::createWidget(RCShdPtr<UiContainer>(), root);
    if (widget.isNull())
        return emptyResult();
    Vector<UiNodeWidgetFactory::Item> items;
    items.emplace_back(LiString(), LiString(), widget);
    return result(std::move(items));
}

} // namespace

UiNodeWidgetFactory::Item::Item(LiString title, LiString genericUiName, RCShdPtr<UiWidget> widget)
    : _title(std::move(title)), _genericUiName(std::move(genericUiName)),
      _widget(std::move(widget)) {}

void UiNodeWidgetFactory::initialize() {
    state().debugNodeUi = OsEnv::isSet("ZR_DEBUG_NODE_UI");
    // Runs while "nodeUi.msg" is loaded: the texts of the reports made later are kept now.
    NodeUiMessages::keep({"NODEUI_NO_CONTROLLER", "NODEUI_BAD_DESCRIPTION", "NODEUI_UNKNOWN_TYPE",
                          "NODEUI_NO_WIDGET_RECORD", "NODEUI_UNKNOWN_GROUP", "NODEUI_TOO_DEEP",
                          "NODEUI_NO_INPUT"});
}

void UiNodeWidgetFactory::finalize() {
    state().toolXmlCache.clear();
    state().typeXmlCache.clear();
}

Iterator<UiNodeWidgetFactory::Item>
UiNodeWidgetFactory::create(RCShdPtr<PiNode> const& node,
                            RCShdPtr<PiTimePath const> const& timePath, XmlDocument const* xml) {
    return createPanels(RCShdPtr<PiNode const>(node), false, timePath, xml);
}

Iterator<UiNodeWidgetFactory::Item>
UiNodeWidgetFactory::create(RCShdPtr<PiNode const> const& node,
                            RCShdPtr<PiTimePath const> const& timePath, XmlDocument const* xml) {
    return createPanels(node, true, timePath, xml);
}

Iterator<UiNodeWidgetFactory::Item>
UiNodeWidgetFactory::createAuxiliaryUi(RCShdPtr<PiNode> const& node,
                                       RCShdPtr<PiTimePath const> const& timePath,
                                       XmlDocument const& xml) {
    return createAuxiliary(node, RCShdPtr<PiNode const>(node), timePath, xml);
}

Iterator<UiNodeWidgetFactory::Item>
UiNodeWidgetFactory::createAuxiliaryUi(RCShdPtr<PiNode const> const& node,
                                       RCShdPtr<PiTimePath const> const& timePath,
                                       XmlDocument const& xml) {
    return createAuxiliary(RCShdPtr<PiNode>(), node, timePath, xml);
}

LiString UiNodeWidgetFactory::createTitle(RCShdPtr<PiNode const> const& node) {
    if (auto const* toolNode = dynamic_cast<PiToolNode const*>(node.get()))
        return LiString(toolNode->getTool()->getName());
    if (auto const* group = dynamic_cast<PiGroupNode const*>(node.get()))
        if (RCShdPtr<PiGroup> object = group->getGroup(); !object.isNull())
            return LiString(object->getName());
    if (dynamic_cast<PiLinkNode const*>(node.get()))
        return LiString("Link");
    std::string const& name = node->getName();
    return LiString(name.empty() ? "Unknown" : name);
}

LiString UiNodeWidgetFactory::createTooltipId(RCShdPtr<PiInput const> const& input) {
    return LiString(PiExpressionServices::getInputFullName(input));
}

bool UiNodeWidgetFactory::getToolXml(RCShdPtr<PiNode const> const& node, XmlDocument const*& xml) {
    if (node.isNull())
        return false;
    RCStrongPtr<PiUserInterface> ui = userInterfaceOf(*node);
    if (ui.isNull())
        return false;
    std::unique_ptr<XmlDocument> local;
    xml = findDescription(node, *ui, local);
    // A description that may not be cached goes now: the answer is true, and `xml` must not be
    // used. Only cached descriptions are meant to be looked at this way.
    return xml != nullptr;
}

bool UiNodeWidgetFactory::isReadOnly() {
    return state().node.isNull() && !state().nodeRO.isNull();
}

RCShdPtr<PiNode> const& UiNodeWidgetFactory::getCurrentNode() {
    return state().node;
}

RCShdPtr<PiNode const> const& UiNodeWidgetFactory::getCurrentNodeRO() {
    return state().nodeRO;
}

RCShdPtr<PiTimePath const> const& UiNodeWidgetFactory::getCurrentTimePath() {
    return state().timePath;
}

} // namespace Zr
