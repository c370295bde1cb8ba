// UiWidgetFactory's registry, the building of widget definitions, the HTML dump of the
// registered names, and the registration of the toolkit's own widget types.
#include "uiWidgetFactory.h"

#include "uiContainer.h"
#include "uiContainerFactory.h"
#include "uiGroup.h"
#include "uiResTable.h"
#include "uiWidget.h"
#include "uiWidgetGroupFactory.h"

#include "xmlDocument.h"
#include "xmlElement.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace Zr {

namespace {

char const* const WidgetRecordTag = "Widget";

} // namespace

// --- the exception of a bad definition ---------------------------------------------------------

UiWidgetDefinitionEx::UiWidgetDefinitionEx(char const* file, int line, std::string const& reason,
                                           std::string where, std::string widget)
    : ExBase(file, line), _where(std::move(where)), _widget(std::move(widget)) {
    setReason(reason);
}

std::unique_ptr<ExBase> UiWidgetDefinitionEx::clone() const {
    return std::make_unique<UiWidgetDefinitionEx>(*this);
}

void UiWidgetDefinitionEx::raise() const {
    throw *this;
}

// --- registry ----------------------------------------------------------------------------------

UiWidgetFactory::~UiWidgetFactory() = default;

UiWidgetFactory::Registry& UiWidgetFactory::registry() {
    // Lives to the end of the process: widgets may be created until then.
    static Registry uiWidgetFactories;
    return uiWidgetFactories;
}

void UiWidgetFactory::registerFactory(LiString const& uiWidgetFactoryName,
                                      OPtr<UiWidgetFactory> factory) {
    Registry& uiWidgetFactories = registry();
    ZR_ASSERT_TEXT(uiWidgetFactories.find(uiWidgetFactoryName) == uiWidgetFactories.end(),
                   "uiWidgetFactories.find( uiWidgetFactoryName ) == uiWidgetFactories.end()");
    ZR_ASSERT(factory != nullptr);
    uiWidgetFactories.emplace(uiWidgetFactoryName, std::move(factory));
}

void UiWidgetFactory::unregisterFactory(LiString const& name) {
    Registry& uiWidgetFactories = registry();
    auto it = uiWidgetFactories.find(name);
    ZR_ASSERT(it != uiWidgetFactories.end());
    uiWidgetFactories.erase(it);
}

std::vector<std::string> UiWidgetFactory::getRegisteredNames() {
    std::vector<std::string> names;
    for (auto const& entry : registry())
        names.push_back(entry.first.str());
    std::sort(names.begin(), names.end());
    return names;
}

bool UiWidgetFactory::isRegistered(LiString const& name) {
    return registry().count(name) != 0;
}

// --- creation ----------------------------------------------------------------------------------

std::string UiWidgetFactory::describeLocation(XmlElement const& element) {
    std::string where = element.getDocumentName();
    int line = element.getLine();
    if (!where.empty() && line > 0)
        where += ":" + std::to_string(line);
    return where;
}

void UiWidgetFactory::releaseNewChildren(UiContainer& parent, std::size_t before) {
    UiContainer::ChildList const& children = parent.getChildrenList();
    if (children.size() <= before)
        return;
    // New children stand at the end of the list, ahead of the widget kept on top if any.
    std::size_t count = children.size() - before;
    UiWidget const* onTop = parent.getAlwaysOnTop().get();
    std::vector<RCShdPtr<UiWidget>> added;
    for (auto it = children.rbegin(); it != children.rend() && added.size() < count; ++it)
        if (it->get() != onTop)
            added.push_back(*it);
    for (RCShdPtr<UiWidget> const& child : added)
        parent.removeChild(child);
}

RCShdPtr<UiWidget> UiWidgetFactory::createWidget(RCShdPtr<UiContainer> const& parent,
                                                 LiString const& type, LiString const& name,
                                                 UiResTable const* table,
                                                 XmlElement const* element) {
    Registry& uiWidgetFactories = registry();
    auto it = uiWidgetFactories.find(type);
    if (it == uiWidgetFactories.end())
        throw UiWidgetDefinitionEx(
            __FILE__, __LINE__, "Trying to create widget of unknown type: " + type.str(),
            element ? describeLocation(*element) : std::string(), name.str());
    if (!parent)
        return it->second->create(parent, name.c_str(), table, element);
    std::size_t const before = parent->getChildrenList().size();
    try {
        return it->second->create(parent, name.c_str(), table, element);
    } catch (...) {
        // A widget joins its parent in its constructor; one whose creation failed later (a
        // constraint naming a missing sibling, a child of a container that failed) would stay
        // there half built.
        releaseNewChildren(*parent, before);
        throw;
    }
}

RCShdPtr<UiWidget> UiWidgetFactory::createWidget(RCShdPtr<UiContainer> const& parent,
                                                 LiString const& type, UiResTable const* table,
                                                 XmlElement const* element) {
    LiString name = type;
    if (element) {
        XmlElement record = element->getElementByTagName(WidgetRecordTag);
        if (record)
            name = LiString(record.getAttribute("Name"));
    }
    return createWidget(parent, type, name, table, element);
}

RCShdPtr<UiWidget> UiWidgetFactory::createWidget(RCShdPtr<UiContainer> const& parent,
                                                 XmlElement const& element) {
    LiString const type(element.getNodeName());
    // Counted up the document, never past the limit: the cost per widget stays bounded.
    int depth = 0;
    for (pugi::xml_node n = element.getNode();
         n.type() == pugi::node_element && depth <= MaxDefinitionDepth; n = n.parent())
        ++depth;
    if (depth > MaxDefinitionDepth)
        throw UiWidgetDefinitionEx(__FILE__, __LINE__,
                                   "definition nested deeper than " +
                                       std::to_string(MaxDefinitionDepth) + " elements",
                                   describeLocation(element), std::string());
    XmlElement const record = element.getElementByTagName(WidgetRecordTag);
    if (!record)
        throw UiWidgetDefinitionEx(__FILE__, __LINE__,
                                   "<Widget> element missing in definition of widget with type " +
                                       type.str(),
                                   describeLocation(element), std::string());

    // Resource errors name the document and line of the record, or the type for a definition
    // made in memory.
    std::string where = describeLocation(record);
    if (where.empty())
        where = type.str();
    UiResTable local;
    LiString const name =
        local.readWidgetCatchErrors(record, UiResource::LevelApplication, where.c_str());
    RCShdPtr<UiWidget> widget = createWidget(parent, type, name, &local, &element);

    XmlElement const tableName = element.getElementByTagName(UiResTable::getResTableNameTag());
    if (tableName && widget)
        UiWidget::setWidgetResTable(*widget, tableName.getDataMB());
    return widget;
}

RCShdPtr<UiWidget> UiWidgetFactory::createWidgetFromText(RCShdPtr<UiContainer> const& parent,
                                                         std::string const& xml,
                                                         std::string const& documentName) {
    XmlDocument document(xml, documentName);
    return createWidget(parent, document.getRoot());
}

RCShdPtr<UiWidget> UiWidgetFactory::createWidgetFromFile(RCShdPtr<UiContainer> const& parent,
                                                         OsFilePath const& path) {
    XmlDocument document(path);
    return createWidget(parent, document.getRoot());
}

// --- reports -----------------------------------------------------------------------------------

void UiWidgetFactory::dumpHtml(std::ostream& os) {
    std::vector<std::string> names;
    names.reserve(registry().size());
    for (auto const& entry : registry())
        names.push_back(entry.first.str());
    std::sort(names.begin(), names.end());

    os << "<html>\n<body>\n<table border=1>\n";
    os << "<tr><th colspan=1>WidgetFactories</th></tr>\n";
    for (std::string const& name : names)
        os << "<tr><td align=center><font size=+1>" << name << "</font></td></tr>\n";
    os << "</table>\n</body>\n</html>\n";
}

// --- the toolkit's own types -------------------------------------------------------------------

void UiWidgetFactory::registerToolkitFactories() {
    if (!isRegistered("Widget"))
        registerFactory("Widget", std::make_unique<UiWidgetFactorySimple<UiWidget>>());
    if (!isRegistered("Container"))
        registerFactory("Container", std::make_unique<UiContainerFactory>());
    if (!isRegistered("Group"))
        registerFactory("Group", std::make_unique<UiContainerFactorySimple<UiGroup>>());
    UiWidgetGroupFactory::registerChildrenFactory();
}

} // namespace Zr
