// Tests of "ExternalWidget" definitions: a plug-in's factory supplies the definition, the
// caller's resources replace the definition's, the plug-in's client data lives as long as the
// widget, and a missing or unknown plug-in gives a null widget that leaves the tree as it was.
#include "uiTestSupport.h"

#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiExternalWidgetFactory.h"
#include "uiResTable.h"
#include "uiWidget.h"
#include "uiWidgetFactory.h"

#include "piExternalWidgetFactory.h"
#include "piWidget.h"
#include "xmlDocument.h"
#include "xmlElement.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Zr {
namespace {

using UiTest::Reports;
using UiTest::TestRoot;

CoRgbColor color(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

// What the plug-in saw and how many of its client data objects are alive.
struct PluginRecord {
    int clientDataAlive = 0;
    int clientDataMade = 0;
    std::string interfaceName;
    std::string elementTag;
    bool interfaceIsContainer = false;
};

class TestClientData : public RCObject {
public:
    explicit TestClientData(PluginRecord& record) : _record(record) { ++_record.clientDataAlive; }
    ~TestClientData() override { --_record.clientDataAlive; }

private:
    PluginRecord& _record;
};

class TestPluginFactory : public PiExternalWidgetFactory {
public:
    TestPluginFactory(PluginRecord& record, char const* definition, bool makeClientData = true)
        : _record(record), _makeClientData(makeClientData) {
        if (definition)
            _document.emplace(std::string(definition), "plugin.xml");
    }
    XmlDocument const* getXmlDocument() override { return _document ? &*_document : nullptr; }
    RCShdPtr<RCObject> createClientData(RCShdPtr<PiWidget> const& widget,
                                        XmlElement const& element) override {
        _record.interfaceName = widget->getName();
        _record.elementTag = element.getNodeName();
        _record.interfaceIsContainer =
            UiWidget::fromInterface(widget) &&
            dynamic_cast<UiContainer*>(UiWidget::fromInterface(widget).get()) != nullptr;
        if (!_makeClientData)
            return nullptr;
        ++_record.clientDataMade;
        return RCShdPtr<RCObject>(new TestClientData(_record));
    }

private:
    PluginRecord& _record;
    bool _makeClientData;
    std::optional<XmlDocument> _document;
};

// A panel whose defaults are a red background and a green foreground, with one child.
char const* const PanelDefinition = R"(<Container>
  <Widget Name="pluginPanel">
    <Background><Color>Red</Color></Background>
    <Foreground><Color>Green</Color></Foreground>
    <Rectangle><Coord X="0" Y="0" W="120" H="40"/></Rectangle>
  </Widget>
  <Group Type="Children">
    <Widget><Widget Name="knob"/></Widget>
  </Group>
</Container>)";

class ExternalWidget : public ::testing::Test {
protected:
    RCShdPtr<TestRoot> root = TestRoot::make();
    PluginRecord record;
    std::vector<std::string> registered;

    void SetUp() override { ASSERT_TRUE(UiWidgetFactory::isRegistered("ExternalWidget")); }
    void TearDown() override {
        root->removeChildren();
        for (std::string const& name : registered)
            PiExternalWidgetFactory::unregisterFactory(name);
    }
    void plugin(std::string const& name, char const* definition, bool makeClientData = true) {
        PiExternalWidgetFactory::registerFactory(
            name, std::make_unique<TestPluginFactory>(record, definition, makeClientData));
        registered.push_back(name);
    }
    RCShdPtr<UiWidget> build(std::string const& xml) {
        return UiWidgetFactory::createWidgetFromText(RCShdPtr<UiContainer>(root), xml, "ext.xml");
    }
};

TEST_F(ExternalWidget, BuildsThePluginDefinitionWithTheCallersResourcesOnTop) {
    plugin("panels", PanelDefinition);
    RCShdPtr<UiWidget> widget = build(R"(<ExternalWidget plugin="panels">
      <Widget Name="ext"><Background><Color>Blue</Color></Background></Widget>
    </ExternalWidget>)");
    ASSERT_TRUE(widget);
    auto* panel = dynamic_cast<UiContainer*>(widget.get());
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(widget->getName(), LiString("ext"));
    EXPECT_EQ(widget->getParent(), root.get());
    EXPECT_EQ(widget->getBackground(), color("Blue"));  // the caller's
    EXPECT_EQ(widget->getForeground(), color("Green")); // the definition's
    EXPECT_EQ(widget->getRect(), (GeRectangle<int>{0, 120, 0, 40}));
    EXPECT_TRUE(panel->findWidget(LiString("knob")));

    // The plug-in saw the built widget and the caller's element.
    EXPECT_EQ(record.interfaceName, "ext");
    EXPECT_EQ(record.elementTag, "ExternalWidget");
    EXPECT_TRUE(record.interfaceIsContainer);
    EXPECT_NE(widget->findClientData<TestClientData>(), nullptr);
}

TEST_F(ExternalWidget, ClientDataLivesAsLongAsTheWidget) {
    plugin("panels", PanelDefinition);
    RCShdPtr<UiWidget> widget =
        build(R"(<ExternalWidget plugin="panels"><Widget Name="ext"/></ExternalWidget>)");
    ASSERT_TRUE(widget);
    EXPECT_EQ(record.clientDataMade, 1);
    EXPECT_EQ(record.clientDataAlive, 1);
    root->removeChild(widget);
    EXPECT_EQ(record.clientDataAlive, 1);
    widget = nullptr;
    EXPECT_EQ(record.clientDataAlive, 0);
}

TEST_F(ExternalWidget, PlainWidgetDefinitionAndNoClientData) {
    plugin(
        "plain",
        R"(<Widget><Widget Name="dot"><Foreground><Color>Red</Color></Foreground></Widget></Widget>)",
        false);
    RCShdPtr<UiWidget> widget =
        build(R"(<ExternalWidget plugin="plain"><Widget Name="ext"/></ExternalWidget>)");
    ASSERT_TRUE(widget);
    EXPECT_EQ(dynamic_cast<UiContainer*>(widget.get()), nullptr);
    EXPECT_EQ(widget->getForeground(), color("Red"));
    EXPECT_EQ(record.interfaceName, "ext");
    EXPECT_FALSE(record.interfaceIsContainer);
    EXPECT_TRUE(widget->getClientData().empty());
}

TEST_F(ExternalWidget, CallersTableOverridesWhateverItsLevel) {
    plugin("panels", PanelDefinition);
    // A table read at the system level, given explicitly to the factory.
    UiResTable table;
    table.readTable(LiString(R"(<ResourceTable><Widget Name="ext">
        <Foreground><Color>Blue</Color></Foreground></Widget></ResourceTable>)"),
                    UiResource::LevelSystem);
    XmlDocument caller(std::string(R"(<ExternalWidget plugin="panels"/>)"), "caller.xml");
    XmlElement const element = caller.getRoot();
    RCShdPtr<UiWidget> widget = UiWidgetFactory::createWidget(
        RCShdPtr<UiContainer>(root), LiString("ExternalWidget"), LiString("ext"), &table, &element);
    ASSERT_TRUE(widget);
    EXPECT_EQ(widget->getForeground(), color("Blue"));
    EXPECT_EQ(widget->getBackground(), color("Red"));
}

TEST_F(ExternalWidget, MissingPluginGivesANullWidgetAndLeavesTheTree) {
    plugin("noDocument", nullptr);
    plugin("noRecord", "<Container><Group Type=\"Children\"/></Container>");
    char const* const cases[] = {
        R"(<ExternalWidget plugin="unknown"><Widget Name="ext"/></ExternalWidget>)",
        R"(<ExternalWidget plugin=""><Widget Name="ext"/></ExternalWidget>)",
        R"(<ExternalWidget><Widget Name="ext"/></ExternalWidget>)",
        R"(<ExternalWidget plugin="noDocument"><Widget Name="ext"/></ExternalWidget>)",
        R"(<ExternalWidget plugin="noRecord"><Widget Name="ext"/></ExternalWidget>)",
    };
    for (char const* text : cases) {
        EXPECT_FALSE(build(text)) << text;
        EXPECT_TRUE(root->getChildrenList().empty()) << text;
    }
    EXPECT_EQ(record.clientDataMade, 0);
}

TEST_F(ExternalWidget, NullExternalWidgetInsideAPanelLeavesItsSiblings) {
    RCShdPtr<UiWidget> panel = build(R"(<Container>
      <Widget Name="panel"/>
      <Group Type="Children">
        <Widget><Widget Name="before"/></Widget>
        <ExternalWidget plugin="unknown"><Widget Name="ext"/></ExternalWidget>
        <Widget><Widget Name="after"/></Widget>
      </Group>
    </Container>)");
    ASSERT_TRUE(panel);
    auto* container = dynamic_cast<UiContainer*>(panel.get());
    ASSERT_NE(container, nullptr);
    EXPECT_EQ(container->getChildrenList().size(), 2u);
    EXPECT_TRUE(container->findWidget(LiString("after")));
}

TEST_F(ExternalWidget, BadResourceInThePluginDefinitionIsReportedAndSkipped) {
    plugin("faulty", "<Widget>\n"
                     "  <Widget Name='dot'>\n"
                     "    <Bad><NoSuchType/></Bad>\n"
                     "    <Background><Color>Green</Color></Background>\n"
                     "  </Widget>\n"
                     "</Widget>");
    Reports reports;
    RCShdPtr<UiWidget> widget =
        build(R"(<ExternalWidget plugin="faulty"><Widget Name="ext"/></ExternalWidget>)");
    ASSERT_TRUE(widget);
    EXPECT_EQ(widget->getBackground(), color("Green"));
    EXPECT_EQ(reports.ids(), (std::vector<std::string>{"MSG_RESOURCE_RES_ERROR"}));
    // The report names the plug-in's document and the line of its record.
    EXPECT_NE(reports.log().find("Error in resource 'Bad' for widget 'dot' (in plugin.xml:2)"),
              std::string::npos)
        << reports.log();
}

} // namespace
} // namespace Zr
