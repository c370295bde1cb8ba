// UiResTable: reading resource tables from XML files and texts, reporting each bad definition or
// resource and going on, and writing a table back.
#include "uiResTable.h"

#include "uiColorRegistry.h"
#include "uiLogGroups.h"
#include "uiResRegistry.h"
#include "uiResText.h"

#include "lgLog.h"
#include "lgMinorGroup.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "xmlDocument.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <filesystem>
#include <sstream>
#include <system_error>

namespace Zr {

namespace {

char const* const InternalResourceString = "internal resource string";
char const* const ResourceString = "resource string";

// A warning naming the file for the user, and the details in the "UiResources" log.
void reportResourceError(std::string const& file, std::string const& logText) {
    MsgWarning warning(MsgSubscription("MSG_RESOURCE_RES_ERROR"));
    warning.arg(MsgProtocol::substitute(file));
    MsgProtocol::display(warning);
    LgMinorGroup* group = UiLogGroups::uiResources();
    ZR_ASSERT(group != nullptr);
    LgLog::writeLine(*group, logText);
}

// An attribute that must be present and not empty.
std::string requiredAttribute(XmlElement const& element, char const* name, LiString const& owner) {
    std::string value = element.getAttribute(name);
    if (value.empty())
        throw UiResourceEx::UiResTableEx::ExNoParameters(__FILE__, __LINE__, owner);
    return value;
}

} // namespace

UiResTable::UiResTable() = default;

UiResTable::UiResTable(float fontScale) : _fontScale(fontScale) {}

UiResTable::UiResTable(LiString const& path, UiResource::Level level) {
    readTable(OsFilePath(path.str()), level);
}

UiResTable::UiResTable(OsFilePath const& path, UiResource::Level level) {
    readTable(path, level);
}

UiResTable::~UiResTable() = default;
UiResTable::UiResTable(UiResTable&&) noexcept = default;
UiResTable& UiResTable::operator=(UiResTable&&) noexcept = default;

std::string UiResTable::getResTableNameTag() {
    return "ResTableName";
}

OsFilePath const& UiResTable::getResTableDir() {
    static OsFilePath const dir("resTables");
    return dir;
}

void UiResTable::addResTableInfo(XmlDocument const& document, OsFilePath const& path) {
    document.getRoot().appendChild(getResTableNameTag()).setData(path.toString());
}

void UiResTable::readTable(OsFilePath const& path, UiResource::Level level) {
    _resTableName = path.getBaseName(OsFilePath::WithoutExtension);
    std::error_code error;
    if (!std::filesystem::exists(path.getPath(), error))
        return;
    std::string const file = path.toString();
    try {
        XmlDocument document(path);
        addResTableInfo(document, path);
        readRoot(document.getRoot(), level, file.c_str());
    } catch (XmlEx::ExSyntaxError const& ex) {
        reportResourceError(file, "Error while parsing the following XML resource file:\n" + file +
                                      "\n" + ex.getReason());
    }
}

void UiResTable::readTable(LiString const& xml, UiResource::Level level) {
    _resTableName = OsFilePath(xml.str()).getBaseName(OsFilePath::WithoutExtension);
    try {
        XmlDocument document(xml.str(), InternalResourceString);
        readRoot(document.getRoot(), level, InternalResourceString);
    } catch (XmlEx::ExSyntaxError const& ex) {
        reportResourceError(InternalResourceString,
                            "Error while parsing the following XML resource string:\n" + xml.str() +
                                ex.getReason());
    }
}

void UiResTable::readRoot(XmlElement const& root, UiResource::Level level, char const* file) {
    for (XmlElement const& font : root.getAllElementsByTagName("FontDefinition"))
        readFontCatchErrors(font, file);
    for (XmlElement const& color : root.getAllElementsByTagName("ColorDefinition"))
        readColorCatchErrors(color, file);
    for (XmlElement const& widget : root.getAllElementsByTagName("Widget"))
        readWidgetCatchErrors(widget, level, file);
}

LiString UiResTable::readWidget(XmlElement const& element, UiResource::Level level,
                                char const* file) {
    std::string const handle = element.getAttribute("Name");
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoWidget(__FILE__, __LINE__);
    LiString const widget(handle);

    // Tooltips may stand as attributes; they become Text resources like any other.
    std::string const tooltipId = element.getAttribute("TooltipId");
    if (!tooltipId.empty()) {
        RCShdPtr<UiResText> id(new UiResText("TooltipId"));
        id->append(tooltipId.c_str());
        id->setLevel(level);
        RCShdPtr<UiResText> text(new UiResText("DefaultTooltip"));
        text->append(element.getAttribute("DefaultTooltip").c_str());
        text->setLevel(level);
        UiResSet& set = getOrCreateSet(widget);
        set.set(id);
        set.set(text);
    }

    for (XmlElement const& child : element.getChildren()) {
        std::string const resourceName = child.getNodeName();
        try {
            std::vector<XmlElement> const typeElements = child.getChildren();
            if (typeElements.empty())
                throw UiResourceEx::UiResTableEx::ExNoType(__FILE__, __LINE__, widget,
                                                           resourceName);
            RCShdPtr<UiResource> resource = UiResRegistry::getInstance().getResource(
                typeElements.front().getNodeName().c_str());
            if (!resource)
                throw UiResourceEx::UiResTableEx::ExUnknownType(__FILE__, __LINE__, widget,
                                                                resourceName);
            resource->setName(resourceName);
            resource->read(child);
            resource->setLevel(level);
            getOrCreateSet(widget).set(resource);
        } catch (UiResourceEx const& ex) {
            reportResourceError(file, "Error in resource '" + resourceName + "' for widget '" +
                                          handle + "' (in " + file + "):\n" + ex.getReason());
        }
    }
    return widget;
}

LiString UiResTable::readWidgetCatchErrors(XmlElement const& element, UiResource::Level level,
                                           char const* file) {
    try {
        return readWidget(element, level, file);
    } catch (UiResourceEx const& ex) {
        reportResourceError(file, std::string("Widget resource error in ") + file + ":\n" +
                                      ex.getReason());
    }
    return {};
}

LiString UiResTable::readWidgetCatchErrors(LiString const& xmlText, UiResource::Level level) {
    try {
        XmlDocument document(xmlText.str(), ResourceString);
        return readWidgetCatchErrors(document.getRoot(), level, ResourceString);
    } catch (XmlEx::ExSyntaxError const& ex) {
        reportResourceError(ResourceString,
                            "Error while parsing the following XML resource string:\n" +
                                xmlText.str() + ex.getReason());
    }
    return {};
}

void UiResTable::readFont(XmlElement const& element) {
    std::string const handle = element.getAttribute("Handle");
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoName(__FILE__, __LINE__, LiString("FontDefinition"));
    requiredAttribute(element, "Name", handle);
    // The windowing layer has no font registry yet: the definition is checked, not registered.
}

void UiResTable::readFontCatchErrors(XmlElement const& element, char const* file) {
    try {
        readFont(element);
    } catch (UiResourceEx const& ex) {
        reportResourceError(file,
                            std::string("Font resource error in ") + file + ":\n" + ex.getReason());
    }
}

void UiResTable::readColor(XmlElement const& element) {
    std::string const handle = element.getAttribute("Handle");
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoName(__FILE__, __LINE__, LiString("ColorDefinition"));
    std::string const texts[3] = {requiredAttribute(element, "R", handle),
                                  requiredAttribute(element, "G", handle),
                                  requiredAttribute(element, "B", handle)};
    int components[3] = {0, 0, 0};
    for (int i = 0; i < 3; ++i) {
        std::istringstream is(texts[i]);
        is >> components[i];
    }
    UiColorRegistry::getInstance().registerColor(handle, components[0], components[1],
                                                 components[2]);
}

void UiResTable::readColorCatchErrors(XmlElement const& element, char const* file) {
    try {
        readColor(element);
    } catch (UiResourceEx const& ex) {
        reportResourceError(file, std::string("Color resource error in ") + file + ":\n" +
                                      ex.getReason());
    }
}

UiResSet& UiResTable::getOrCreateSet(LiString const& widget) {
    std::unique_ptr<UiResSet>& set = _table[widget];
    if (!set)
        set = std::make_unique<UiResSet>();
    return *set;
}

void UiResTable::set(LiString const& widget, RCShdPtr<UiResource> const& resource) {
    getOrCreateSet(widget).set(resource);
}

void UiResTable::add(LiString const& widget, RCShdPtr<UiResource> const& resource) {
    getOrCreateSet(widget).add(resource);
}

void UiResTable::addResourceSet(LiString const& widget, UiResSet const* set) {
    UiResSet& own = getOrCreateSet(widget);
    if (set)
        own.merge(*set);
}

UiResSet* UiResTable::getResourceSet(LiString const& widget) {
    auto it = _table.find(widget);
    return it == _table.end() ? nullptr : it->second.get();
}

UiResSet const* UiResTable::getResourceSet(LiString const& widget) const {
    auto it = _table.find(widget);
    return it == _table.end() ? nullptr : it->second.get();
}

RCShdPtr<UiResource> UiResTable::find(LiString const& widget, char const* resourceName) const {
    UiResSet const* set = getResourceSet(widget);
    return set ? set->find(LiString(resourceName)) : RCShdPtr<UiResource>();
}

void UiResTable::writeTable(XmlWriter& writer) const {
    XmlWriter::ElementGuard table(writer, "ResourceTable");
    for (auto const& [name, set] : _table) {
        XmlWriter::ElementGuard widget(writer, "Widget");
        writer.writeAttrib("Name", name.str());
        for (RCShdPtr<UiResource> const& resource : set->getResources()) {
            XmlWriter::ElementGuard element(writer, resource->getName());
            resource->write(writer, true);
        }
    }
}

} // namespace Zr
