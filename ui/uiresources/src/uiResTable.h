// UiResTable: the resources of many widgets, a UiResSet per widget name, read from and written
// to the XML form of a resource table. Bad resources are reported one by one and skipped.
#pragma once

#include "uiResSet.h"

#include "osFilePath.h"

#include <iosfwd>
#include <map>
#include <memory>
#include <string>

namespace Zr {

class XmlDocument;
class XmlElement;
class XmlWriter;

// The XML form:
//   <ResourceTable>
//     <FontDefinition Handle="Small" Name="DejaVu Sans:Regular:9"/>
//     <ColorDefinition Handle="Warning" R="255" G="80" B="0"/>
//     <Widget Name="okButton" TooltipId="ok" DefaultTooltip="Accept">
//       <Rectangle><Coord X="0" Y="0" W="60" H="20"/></Rectangle>
//       <Background><Color>Warning</Color></Background>
//     </Widget>
//   </ResourceTable>
// Definitions and widgets are found at any depth below the root. Fonts and colours are read
// first, then widgets, so a widget may name a colour defined further down.
//
// The text form holds the same table, one statement per line:
//   # a comment line
//   FontDefinition Small "DejaVu Sans:Regular:9"
//   ColorDefinition Warning 255 80 0
//   Widget okButton ok Accept            <- name, then optionally TooltipId and DefaultTooltip
//       Rectangle Coord 0 0 60 20        <- resource name, type, payload in the type's text form
//       Background Color Warning
//       Label Text "OK, go"
// Tokens are words or double-quoted phrases (\" and \\ inside quotes); a line break inside
// quotes does not end the statement. Resource lines belong to the Widget line above them.
// FontDefinition, ColorDefinition and Widget are keywords only when not quoted, so a resource
// of one of those names is written quoted. As in XML, definitions are read before widgets.
// A Widget line makes an entry even without resources, so that empty sets read back too.
class UiResTable {
public:
    using Table = std::map<LiString, std::unique_ptr<UiResSet>>;

    UiResTable();
    explicit UiResTable(float fontScale);
    UiResTable(LiString const& path, UiResource::Level level);
    UiResTable(OsFilePath const& path, UiResource::Level level);
    virtual ~UiResTable();
    UiResTable(UiResTable&&) noexcept;
    UiResTable& operator=(UiResTable&&) noexcept;

    // Reads a file into the table, merging by UiResSet::set. A missing file is no error: the
    // table stays as it was, only its name changes. Errors are reported and reading goes on.
    void readTable(OsFilePath const& path, UiResource::Level level);
    // Reads a table given as XML text; "internal resource string" names it in reports.
    void readTable(LiString const& xml, UiResource::Level level);

    // Reads one Widget element and returns its name; errors of single resources are reported
    // and skipped, a widget without a name throws.
    LiString readWidget(XmlElement const& element, UiResource::Level level, char const* file);
    // The same, reporting instead of throwing; an empty name after a failure.
    LiString readWidgetCatchErrors(XmlElement const& element, UiResource::Level level,
                                   char const* file);
    // The text form. A missing file is no error, as for XML; the file's base name becomes the
    // table's name. A bad statement is reported like a bad element and reading goes on.
    void readTableText(OsFilePath const& path, UiResource::Level level);
    // A table given in the text form; "internal resource string" names it in reports. The
    // table's name stays as it was.
    void readTableText(LiString const& text, UiResource::Level level);
    // Reads the text form from a stream, naming `file` in reports.
    void readTableText(std::istream& is, UiResource::Level level, char const* file);

    // Parses a text whose root is one Widget element ("resource string" in reports) and reads
    // it. This is how UiWidget::changeResource applies a text such as
    //   <Widget Name="ok"><Foreground><Color>Red</Color></Foreground></Widget>:
    // read it into an empty table, then take getResourceSet of the returned name.
    LiString readWidgetCatchErrors(LiString const& xmlText, UiResource::Level level);

    // A FontDefinition: registers Handle with WsFontRegistry under Name ("Family:Style:Size"),
    // its size multiplied by the table's font scale.
    void readFont(XmlElement const& element);
    void readFontCatchErrors(XmlElement const& element, char const* file);
    // A ColorDefinition: registers Handle with integer R, G, B in UiColorRegistry.
    void readColor(XmlElement const& element);
    void readColorCatchErrors(XmlElement const& element, char const* file);

    // UiResSet::set into the widget's set, which is created if absent.
    void set(LiString const& widget, RCShdPtr<UiResource> const& resource);
    // UiResSet::add into the widget's set, which is created if absent.
    void add(LiString const& widget, RCShdPtr<UiResource> const& resource);
    // Adds each resource of `set` without replacing what the widget has; with a null `set`,
    // only makes sure the widget has a (possibly empty) set.
    void addResourceSet(LiString const& widget, UiResSet const* set);

    // Null when the widget has no entry.
    UiResSet* getResourceSet(LiString const& widget);
    UiResSet const* getResourceSet(LiString const& widget) const;
    UiResSet const* getResSet(LiString const& widget) const { return getResourceSet(widget); }
    RCShdPtr<UiResource> find(LiString const& widget, char const* resourceName) const;
    Table const& getTable() const { return _table; }
    int getNbEntries() const { return static_cast<int>(_table.size()); }

    // Writes the widgets only, in name order; levels, fonts and colour definitions are not
    // written, and tooltips come out as Text resources. A resource without a name is left out.
    void writeTable(XmlWriter& writer) const;
    // The same in the text form: one Widget line per widget (with or without resources) and one
    // line per resource, its payload written with the flag true.
    void writeTableText(std::ostream& os) const;

    std::string const& getResTableName() const { return _resTableName; }
    void setResTableName(std::string const& name) { _resTableName = name; }
    float getFontScale() const { return _fontScale; }
    void setFontScale(float scale) { _fontScale = scale; }

    // "ResTableName": the element that addResTableInfo appends.
    static std::string getResTableNameTag();
    // "resTables", to be joined to InPaths::getResourcesDir().
    static OsFilePath const& getResTableDir();
    // Appends to the document's root an element ResTableName holding the file's path, so that
    // whoever keeps or dumps the document sees where it came from.
    static void addResTableInfo(XmlDocument const& document, OsFilePath const& path);

private:
    UiResSet& getOrCreateSet(LiString const& widget);
    void readRoot(XmlElement const& root, UiResource::Level level, char const* file);
    void setTooltips(LiString const& widget, std::string const& tooltipId,
                     std::string const& defaultTooltip, UiResource::Level level);
    // A resource named `name` of type `type` whose payload `read` fills, stored in `set` (the
    // widget's set, found or made on the first call); thrown errors are the caller's to report.
    template <class Read>
    void readResource(UiResSet*& set, LiString const& widget, std::string const& name,
                      char const* type, bool hasType, UiResource::Level level, Read const& read);
    void defineFont(std::string const& handle, std::string const& name) const;
    static void defineColor(std::string const& handle, std::string const texts[3]);

    std::string _resTableName;
    Table _table;
    float _fontScale = 1.0f;
};

} // namespace Zr
