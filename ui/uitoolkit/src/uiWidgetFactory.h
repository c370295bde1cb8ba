// UiWidgetFactory: turns a type name into a widget, so that whole panels can be described in
// XML definitions; UiWidgetFactorySimple, the factory of a plain widget class.
#pragma once

#include "zrBase.h"

#include "containers.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Zr {

class OsFilePath;
class UiContainer;
class UiResTable;
class UiWidget;
class XmlElement;

// A definition that cannot be built: an unknown type, or no <Widget> record. The reason is the
// bare text; the document (with the line of the definition, when known) and the widget's name
// say where it went wrong.
class UiWidgetDefinitionEx : public ExBase {
public:
    UiWidgetDefinitionEx(char const* file, int line, std::string const& reason, std::string where,
                         std::string widget);
    // "<document>:<line>", the document alone, or "" for a definition made in memory.
    std::string const& getWhere() const { return _where; }
    // The Name of the definition's <Widget> record, "" when there is none.
    std::string const& getWidgetName() const { return _widget; }
    char const* getClassName() const override { return "UiWidgetDefinitionEx"; }
    std::unique_ptr<ExBase> clone() const override;
    [[noreturn]] void raise() const override;

private:
    std::string _where;
    std::string _widget;
};

// A definition element reads:
//   <PushButton>                                   the tag names the factory
//     <Widget Name="ok"> resources </Widget>       the widget's resource record
//     <ResTableName>panel</ResTableName>           optional: the table the widget counts from
//   </PushButton>
// A container's definition may add <Group Type="..."> elements, built by the group factories;
// the "Children" group holds one definition per child, created in document order.
class UiWidgetFactory {
public:
    using Registry = HashMap<LiString, OPtr<UiWidgetFactory>>;

    virtual ~UiWidgetFactory();

    // Each name once: a second registration of a name fails an assertion.
    static void registerFactory(LiString const& name, OPtr<UiWidgetFactory> factory);
    static void unregisterFactory(LiString const& name);
    static bool isRegistered(LiString const& name);
    // The registered names, sorted: the types a definition may use.
    static std::vector<std::string> getRegisteredNames();

    // Creates a widget of `type` named `name`; throws UiWidgetDefinitionEx for an unknown
    // type. `element` is the definition, null for a widget made in code. Whatever fails in the
    // creation leaves `parent` with the children it had.
    static RCShdPtr<UiWidget> createWidget(RCShdPtr<UiContainer> const& parent,
                                           LiString const& type, LiString const& name,
                                           UiResTable const* table, XmlElement const* element);
    // The same with the name of the definition's <Widget> record (the type when there is no
    // record).
    static RCShdPtr<UiWidget> createWidget(RCShdPtr<UiContainer> const& parent,
                                           LiString const& type, UiResTable const* table,
                                           XmlElement const* element);
    // Builds a definition: reads its <Widget> record into a table of its own (bad resources are
    // reported and skipped), creates the widget by the element's tag, and records the table
    // name of a <ResTableName> child. A missing record, an unknown type or a definition nested
    // deeper than MaxDefinitionDepth elements throws UiWidgetDefinitionEx; whatever was built
    // of the definition is released.
    static RCShdPtr<UiWidget> createWidget(RCShdPtr<UiContainer> const& parent,
                                           XmlElement const& element);
    // How deep in its document a definition may lie (a container inside a container is two
    // levels: the inner one stands in a <Group>). Building recurses once per level, so the
    // input must not choose the depth of the stack.
    static constexpr int MaxDefinitionDepth = 256;
    // Parses `xml`, whose root is a definition, and builds it. `documentName` names the text in
    // reports; XmlEx::ExSyntaxError for text that is not well-formed.
    static RCShdPtr<UiWidget> createWidgetFromText(RCShdPtr<UiContainer> const& parent,
                                                   std::string const& xml,
                                                   std::string const& documentName);
    // The same for a file whose root is a definition.
    static RCShdPtr<UiWidget> createWidgetFromFile(RCShdPtr<UiContainer> const& parent,
                                                   OsFilePath const& path);

    // Writes the registered names, sorted, as an HTML table.
    static void dumpHtml(std::ostream& os);

    // Registers the factories of the toolkit's own widget types ("Widget", "Container",
    // "Group") and the "Children" group factory. Names already registered are left alone, so a
    // second start-up of the toolkit registers nothing twice.
    static void registerToolkitFactories();

    // "Where" a definition stands in reports: "<document>:<line>", or the document alone.
    static std::string describeLocation(XmlElement const& element);

protected:
    virtual RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                                      UiResTable const* table, XmlElement const* element) = 0;

private:
    static Registry& registry();
    // Takes out of `parent` the children added since it had `before` of them.
    static void releaseNewChildren(UiContainer& parent, std::size_t before);
};

// The factory of a plain widget class: T::create(parent, name, table); the element is ignored.
template <class T>
class UiWidgetFactorySimple : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const*) override {
        return RCShdPtr<UiWidget>(T::create(parent.get(), LiString(name), table));
    }
};

} // namespace Zr
