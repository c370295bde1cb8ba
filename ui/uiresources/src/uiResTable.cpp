// UiResTable: reading resource tables from XML files and texts and from the text form, reporting
// each bad definition or resource and going on, and writing a table back in either form.
#include "uiResTable.h"

#include "uiColorRegistry.h"
#include "uiLogGroups.h"
#include "uiResNumberText.h"
#include "uiResRegistry.h"
#include "uiResText.h"

#include "lgLog.h"
#include "lgMinorGroup.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "wsFont.h"
#include "wsFontEx.h"
#include "wsFontRegistry.h"
#include "wsManagedImage.h"
#include "xmlDocument.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <pugixml.hpp>

#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <sstream>
#include <string_view>
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

// Where a report points: the file, and the line when the reader knows it. Texts handed over
// in memory keep their plain name, as their lines seldom help.
std::string placeOf(char const* file, int line) {
    bool const inMemory = std::string_view(file) == InternalResourceString ||
                          std::string_view(file) == ResourceString;
    return line > 0 && !inMemory ? std::string(file) + ":" + std::to_string(line) : file;
}

// The place of an element: its line is added only when `file` names the element's own document
// (a caller may pass a place of its own, such as "form.xml:2" for a widget definition).
std::string placeOf(char const* file, XmlElement const& element) {
    return element.getDocumentName() == file ? placeOf(file, element.getLine()) : file;
}

// Runs `read` for one resource of a widget: whatever goes wrong (a bad value, an unreadable
// icon, an image too large for memory) is reported for that resource alone, and the reading
// of the table goes on. The place is worked out only for a report: finding an element's line
// costs more than reading most resources.
template <class Place, class Read>
void readOneResource(char const* file, Place const& place, std::string const& resource,
                     std::string const& widget, Read const& read) {
    std::string reason;
    try {
        read();
        return;
    } catch (ExBase const& ex) {
        reason = ex.getReason();
    } catch (std::bad_alloc const&) {
        reason = "Not enough memory to read it.";
    } catch (std::exception const& ex) {
        reason = ex.what();
    }
    reportResourceError(file, "Error in resource '" + resource + "' for widget '" + widget +
                                  "' (in " + place() + "):\n" + reason);
}

// The first child that is an element (text and comments do not count); empty if none.
pugi::xml_node firstChildElement(pugi::xml_node node) {
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_element)
            return child;
    }
    return {};
}

// The keywords of the text form; a quoted first token is never one of them.
char const* const FontKeyword = "FontDefinition";
char const* const ColorKeyword = "ColorDefinition";
char const* const WidgetKeyword = "Widget";

// One statement of the text form, with its first token and whether that token was quoted.
struct Statement {
    std::string text;
    std::string first;
    bool quoted = false;
    int line = 0; // where it starts, 1-based

    bool is(char const* keyword) const { return !quoted && first == keyword; }
};

void addStatement(std::vector<Statement>& statements, std::string_view text, int lineNumber) {
    std::size_t start = 0;
    while (start < text.size() && std::isspace(static_cast<unsigned char>(text[start])))
        ++start;
    if (start == text.size() || text[start] == '#')
        return;
    Statement statement;
    statement.quoted = text[start] == '"';
    statement.text.assign(text);
    statement.line = lineNumber;
    std::istringstream line(statement.text);
    UiResText::readToken(line, statement.first);
    statements.push_back(std::move(statement));
}

// Splits the text form into statements: a line break ends a statement unless it stands inside
// a quoted phrase. Blank lines and comment lines (first character '#') are left out. A quote
// left open at the end of the text holds only to the end of its own line, so that one stray
// quote cannot swallow the statements after it.
std::vector<Statement> splitStatements(std::istream& is) {
    std::string const text{std::istreambuf_iterator<char>(is), std::istreambuf_iterator<char>()};
    std::vector<Statement> statements;
    // The line of an offset: statements come in order, so the count only moves forward.
    std::size_t counted = 0;
    int line = 1;
    auto const add = [&](std::size_t offset, std::size_t length) {
        for (; counted < offset; ++counted)
            line += text[counted] == '\n';
        addStatement(statements, std::string_view(text).substr(offset, length), line);
    };
    std::size_t start = 0;
    bool inQuotes = false;
    bool tokenStart = true;
    std::size_t i = 0;
    while (i <= text.size()) {
        if (i == text.size()) {
            std::size_t const lineEnd = inQuotes ? text.find('\n', start) : std::string::npos;
            if (lineEnd == std::string::npos) {
                add(start, std::string::npos);
                break;
            }
            add(start, lineEnd - start);
            start = i = lineEnd + 1;
            inQuotes = false;
            tokenStart = true;
            continue;
        }
        char const c = text[i++];
        if (inQuotes) {
            // As readToken reads a phrase: \" and \\ are escapes, a plain quote closes it.
            if (c == '\\' && i < text.size() && (text[i] == '"' || text[i] == '\\'))
                ++i;
            else if (c == '"') {
                inQuotes = false;
                tokenStart = true;
            }
        } else if (c == '\n') {
            add(start, i - 1 - start);
            start = i;
            tokenStart = true;
        } else if (std::isspace(static_cast<unsigned char>(c))) {
            tokenStart = true;
        } else {
            inQuotes = c == '"' && tokenStart;
            tokenStart = false;
        }
    }
    return statements;
}

// A stream over the statement after its first token.
std::istringstream restOf(Statement const& statement) {
    std::istringstream is(statement.text);
    std::string skipped;
    UiResText::readToken(is, skipped);
    return is;
}

// The next token, or "" at the end.
std::string nextToken(std::istream& is) {
    std::string token;
    UiResText::readToken(is, token);
    return token;
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
    // Definitions anywhere below the root, fonts first, then colours, then widgets, each in
    // document order: one walk sorts them, as a table is mostly widgets.
    std::vector<pugi::xml_node> fonts, colors, widgets;
    pugi::xml_node const top = root.getNode();
    pugi::xml_node n = top.first_child();
    while (n) {
        // Most elements are resources: the first letter turns them away without a call.
        char const* const name = n.name();
        if ((name[0] == 'W' || name[0] == 'C' || name[0] == 'F') &&
            n.type() == pugi::node_element) {
            if (std::strcmp(name, WidgetKeyword) == 0)
                widgets.push_back(n);
            else if (std::strcmp(name, ColorKeyword) == 0)
                colors.push_back(n);
            else if (std::strcmp(name, FontKeyword) == 0)
                fonts.push_back(n);
        }
        if (pugi::xml_node const first = n.first_child()) {
            n = first;
            continue;
        }
        while (n != top && !n.next_sibling())
            n = n.parent();
        if (n == top)
            break;
        n = n.next_sibling();
    }
    XmlSource const* const source = root.getSource();
    for (pugi::xml_node const font : fonts)
        readFontCatchErrors(XmlElement(font, source), file);
    for (pugi::xml_node const color : colors)
        readColorCatchErrors(XmlElement(color, source), file);
    for (pugi::xml_node const widget : widgets)
        readWidgetCatchErrors(XmlElement(widget, source), level, file);
}

void UiResTable::setTooltips(LiString const& widget, std::string const& tooltipId,
                             std::string const& defaultTooltip, UiResource::Level level) {
    // Tooltips given with the widget become Text resources like any other; a DefaultTooltip
    // without a TooltipId is ignored.
    if (tooltipId.empty())
        return;
    RCShdPtr<UiResText> id(new UiResText("TooltipId"));
    id->append(tooltipId.c_str());
    id->setLevel(level);
    RCShdPtr<UiResText> text(new UiResText("DefaultTooltip"));
    text->append(defaultTooltip.c_str());
    text->setLevel(level);
    UiResSet& set = getOrCreateSet(widget);
    set.set(id);
    set.set(text);
}

template <class Read>
void UiResTable::readResource(UiResSet*& set, LiString const& widget, std::string const& name,
                              char const* type, bool hasType, UiResource::Level level,
                              Read const& read) {
    if (!hasType)
        throw UiResourceEx::UiResTableEx::ExNoType(__FILE__, __LINE__, widget, name);
    RCShdPtr<UiResource> resource = UiResRegistry::getInstance().getResource(type);
    if (!resource)
        throw UiResourceEx::UiResTableEx::ExUnknownType(__FILE__, __LINE__, widget, name);
    LiString const resourceName(name);
    resource->setName(resourceName);
    read(*resource);
    // Set again: the text form of a domain carries a name of its own.
    resource->setName(resourceName);
    resource->setLevel(level);
    if (!set)
        set = &getOrCreateSet(widget);
    set->set(resource);
}

LiString UiResTable::readWidget(XmlElement const& element, UiResource::Level level,
                                char const* file) {
    std::string const handle = UiResText::toValidUtf8(element.getAttribute("Name"));
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoWidget(__FILE__, __LINE__);
    LiString const widget(handle);
    setTooltips(widget, element.getAttribute("TooltipId"), element.getAttribute("DefaultTooltip"),
                level);

    // The widget's set, made with its first good resource.
    UiResSet* set = nullptr;
    XmlSource const* const source = element.getSource();
    for (pugi::xml_node node = element.getNode().first_child(); node; node = node.next_sibling()) {
        if (node.type() != pugi::node_element)
            continue;
        XmlElement const child(node, source);
        std::string const resourceName = node.name();
        auto const place = [&] { return placeOf(file, child); };
        readOneResource(file, place, resourceName, handle, [&] {
            pugi::xml_node const typeNode = firstChildElement(node);
            readResource(set, widget, resourceName, typeNode.name(), !typeNode.empty(), level,
                         [&child](UiResource& resource) { resource.read(child); });
        });
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

void UiResTable::defineFont(std::string const& handle, std::string const& name) const {
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoName(__FILE__, __LINE__, LiString("FontDefinition"));
    if (name.empty())
        throw UiResourceEx::UiResTableEx::ExNoParameters(__FILE__, __LINE__, LiString(handle));
    // Handles are process-wide: the table keeps nothing of them. A bad description raises
    // WsFontEx::ExBadDescription and leaves the handle as it was.
    WsFontRegistry::getInstance().registerFont(LiString(handle),
                                               WsFont::scalePointSizeFontName(name, _fontScale));
}

void UiResTable::readFont(XmlElement const& element) {
    std::string const handle = element.getAttribute("Handle");
    defineFont(handle, handle.empty() ? std::string() : element.getAttribute("Name"));
}

void UiResTable::readFontCatchErrors(XmlElement const& element, char const* file) {
    try {
        readFont(element);
    } catch (UiResourceEx const& ex) {
        reportResourceError(file,
                            std::string("Font resource error in ") + file + ":\n" + ex.getReason());
    } catch (WsFontEx const& ex) {
        reportResourceError(file,
                            std::string("Font resource error in ") + file + ":\n" + ex.getReason());
    }
}

void UiResTable::defineColor(std::string const& handle, std::string const texts[3]) {
    if (handle.empty())
        throw UiResourceEx::UiResTableEx::ExNoName(__FILE__, __LINE__, LiString("ColorDefinition"));
    for (int i = 0; i < 3; ++i) {
        if (texts[i].empty())
            throw UiResourceEx::UiResTableEx::ExNoParameters(__FILE__, __LINE__, LiString(handle));
    }
    // Whole numbers from 0 to 255: "abc", "300", "-5", "1e3" and "0x10" are reported.
    int components[3] = {0, 0, 0};
    char const* const names[3] = {"R", "G", "B"};
    for (int i = 0; i < 3; ++i)
        components[i] = parseNumberIn(
            texts[i], 0, 255, "component " + std::string(names[i]) + " of colour '" + handle + "'");
    UiColorRegistry::getInstance().registerColor(handle, components[0], components[1],
                                                 components[2]);
}

void UiResTable::readColor(XmlElement const& element) {
    std::string const texts[3] = {element.getAttribute("R"), element.getAttribute("G"),
                                  element.getAttribute("B")};
    defineColor(element.getAttribute("Handle"), texts);
}

void UiResTable::readColorCatchErrors(XmlElement const& element, char const* file) {
    try {
        readColor(element);
    } catch (UiResourceEx const& ex) {
        reportResourceError(file, std::string("Color resource error in ") + file + ":\n" +
                                      ex.getReason());
    }
}

void UiResTable::readTableText(OsFilePath const& path, UiResource::Level level) {
    _resTableName = path.getBaseName(OsFilePath::WithoutExtension);
    std::ifstream is(path.getPath(), std::ios::binary);
    if (!is)
        return;
    std::string const file = path.toString();
    readTableText(is, level, file.c_str());
}

void UiResTable::readTableText(LiString const& text, UiResource::Level level) {
    std::istringstream is(text.str());
    readTableText(is, level, InternalResourceString);
}

void UiResTable::readTableText(std::istream& is, UiResource::Level level, char const* file) {
    std::vector<Statement> const statements = splitStatements(is);
    // Definitions first, whatever their place, as in the XML form.
    for (Statement const& statement : statements) {
        if (!statement.is(FontKeyword))
            continue;
        try {
            std::istringstream rest = restOf(statement);
            std::string const handle = nextToken(rest);
            defineFont(handle, nextToken(rest));
        } catch (UiResourceEx const& ex) {
            reportResourceError(file, std::string("Font resource error in ") + file + ":\n" +
                                          ex.getReason());
        } catch (WsFontEx const& ex) {
            reportResourceError(file, std::string("Font resource error in ") + file + ":\n" +
                                          ex.getReason());
        }
    }
    for (Statement const& statement : statements) {
        if (!statement.is(ColorKeyword))
            continue;
        try {
            std::istringstream rest = restOf(statement);
            std::string const handle = nextToken(rest);
            std::string texts[3];
            for (std::string& text : texts)
                text = nextToken(rest);
            defineColor(handle, texts);
        } catch (UiResourceEx const& ex) {
            reportResourceError(file, std::string("Color resource error in ") + file + ":\n" +
                                          ex.getReason());
        }
    }

    // Resource lines go to the widget of the last Widget line. Lines after a Widget line that
    // failed are skipped with it; lines before any Widget line are reported once per run.
    enum class Owner { None, Failed, Widget } owner = Owner::None;
    LiString widget;
    for (Statement const& statement : statements) {
        if (statement.is(FontKeyword) || statement.is(ColorKeyword))
            continue;
        if (statement.is(WidgetKeyword)) {
            try {
                std::istringstream rest = restOf(statement);
                std::string const handle = UiResText::toValidUtf8(nextToken(rest));
                if (handle.empty())
                    throw UiResourceEx::UiResTableEx::ExNoWidget(__FILE__, __LINE__);
                std::string const tooltipId = nextToken(rest);
                widget = LiString(handle);
                getOrCreateSet(widget);
                setTooltips(widget, tooltipId, nextToken(rest), level);
                owner = Owner::Widget;
            } catch (UiResourceEx const& ex) {
                reportResourceError(file, std::string("Widget resource error in ") + file + ":\n" +
                                              ex.getReason());
                owner = Owner::Failed;
            }
            continue;
        }
        if (owner == Owner::Failed)
            continue;
        if (owner == Owner::None) {
            UiResourceEx::UiResTableEx::ExNoWidget const ex(__FILE__, __LINE__,
                                                            statement.first.c_str());
            reportResourceError(file, std::string("Widget resource error in ") + file + ":\n" +
                                          ex.getReason());
            owner = Owner::Failed;
            continue;
        }
        auto const place = [&] { return placeOf(file, statement.line); };
        UiResSet* set = nullptr;
        readOneResource(file, place, statement.first, widget.str(), [&] {
            // "" would name a resource that no XML element can hold.
            if (statement.first.empty())
                throw UiResourceEx::UiResTableEx::ExNoName(__FILE__, __LINE__, widget);
            std::istringstream rest = restOf(statement);
            std::string type;
            bool const hasType = UiResText::readToken(rest, type);
            readResource(set, widget, statement.first, type.c_str(), hasType, level,
                         [&rest](UiResource& resource) { resource.read(rest); });
        });
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
            // A resource made in code without a name has no element to stand in.
            if (resource->getNameRef().empty())
                continue;
            XmlWriter::ElementGuard element(writer, resource->getName());
            resource->write(writer, true);
        }
    }
}

} // namespace Zr

namespace Zr {

namespace {

// A name token as the text form writes it: quoted when a reader would otherwise take it for a
// keyword or a comment.
void writeName(std::ostream& os, std::string const& name) {
    if (name == FontKeyword || name == ColorKeyword || name == WidgetKeyword ||
        (!name.empty() && name.front() == '#'))
        os << '"' << name << '"';
    else
        UiResText::writeToken(os, name);
}

} // namespace

void UiResTable::writeTableText(std::ostream& os) const {
    std::ostringstream payload;
    for (auto const& [name, set] : _table) {
        os << WidgetKeyword << ' ';
        UiResText::writeToken(os, name.str());
        os << '\n';
        for (RCShdPtr<UiResource> const& resource : set->getResources()) {
            os << "    ";
            writeName(os, resource->getName());
            os << ' ' << resource->getType();
            payload.str(std::string());
            resource->write(payload, true);
            std::string const text = payload.str();
            std::size_t const first = text.find_first_not_of(' ');
            if (first != std::string::npos)
                os << ' ' << text.substr(first, text.find_last_not_of(' ') + 1 - first);
            os << '\n';
        }
    }
}

} // namespace Zr
