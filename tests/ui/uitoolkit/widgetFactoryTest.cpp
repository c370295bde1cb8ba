// Tests of widget factories and definitions: trees built from a definition text with their
// names, types, rectangles and colours; the errors of bad definitions with their exact texts and
// what stays of the tree after them; the registration assertions; the HTML dump.
#include "support/exceptionReason.h"
#include "uiTestSupport.h"

#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiContainerFactory.h"
#include "uiGroup.h"
#include "uiResTable.h"
#include "uiWidget.h"
#include "uiWidgetFactory.h"
#include "uiWidgetGroupFactory.h"

#include "lgLog.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "xmlDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Zr {
namespace {

using TestSupport::reasonOf;
using UiTest::Reports;

CoRgbColor registry(LiString const& name) {
    return UiColorRegistry::getInstance().getColor(name);
}

// A panel 200 by 100: a red strip along the bottom, a box right of it holding a child that
// fills it, and an empty group.
char const* const PanelDefinition = R"(<Container>
  <Widget Name="panel">
    <Rectangle><Coord X="0" Y="0" W="200" H="100"/></Rectangle>
    <Background><Color>Blue</Color></Background>
  </Widget>
  <Group Type="Children">
    <Widget>
      <Widget Name="strip">
        <Layout><Constraint>
          <X1 Value="0" Type="p" Target="l"/><Y1 Value="0" Type="p" Target="b"/>
          <X2 Value="50" Type="p" Target="w"/><Y2 Value="20" Type="p" Target="h"/>
        </Constraint></Layout>
        <Background><Color>Red</Color></Background>
      </Widget>
    </Widget>
    <Container>
      <Widget Name="box">
        <Layout><Constraint>
          <X1 Value="10" Type="p" Target="s" Sibling="strip"/><Y1 Value="0" Type="p" Target="b"/>
          <X2 Value="0" Type="p" Target="r"/><Y2 Value="-50" Type="%" Target="t"/>
        </Constraint></Layout>
      </Widget>
      <ResTableName>boxTable</ResTableName>
      <Group Type="Children">
        <Widget><Widget Name="inner">
          <Layout><Constraint>
            <X1 Value="0" Type="p" Target="l"/><Y1 Value="0" Type="p" Target="b"/>
            <X2 Value="0" Type="p" Target="r"/><Y2 Value="0" Type="p" Target="t"/>
          </Constraint></Layout>
        </Widget></Widget>
      </Group>
    </Container>
    <Group><Widget Name="emptyGroup"/></Group>
  </Group>
</Container>)";

class WidgetFactory : public ::testing::Test {
protected:
    void SetUp() override {
        UiWidgetFactory::registerToolkitFactories();
        _root = UiTest::TestRoot::make({0, 400, 0, 300});
    }
    RCShdPtr<UiContainer> root() const { return RCShdPtr<UiContainer>(_root); }
    RCShdPtr<UiTest::TestRoot> _root;
};

// --- building trees ----------------------------------------------------------------------------

TEST_F(WidgetFactory, BuildsTreeWithNamesTypesRectanglesAndColours) {
    RCShdPtr<UiWidget> built =
        UiWidgetFactory::createWidgetFromText(root(), PanelDefinition, "panel.xml");
    auto* panel = dynamic_cast<UiContainer*>(built.get());
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->getName(), "panel");
    EXPECT_EQ(panel->getParent(), _root.get());
    EXPECT_EQ(panel->getRect(), GeRectangle<int>(0, 200, 0, 100));
    EXPECT_EQ(panel->getBackground(), registry(UiColorRegistry::Blue));

    // Children in document order.
    std::vector<std::string> names;
    for (RCShdPtr<UiWidget> const& child : panel->getChildrenList())
        names.push_back(child->getName().str());
    EXPECT_EQ(names, (std::vector<std::string>{"strip", "box", "emptyGroup"}));

    RCShdPtr<UiWidget> strip = panel->findWidget("strip");
    ASSERT_TRUE(strip);
    EXPECT_EQ(dynamic_cast<UiContainer*>(strip.get()), nullptr);
    EXPECT_EQ(strip->getRect(), GeRectangle<int>(0, 50, 0, 20));
    EXPECT_EQ(strip->getBackground(), registry(UiColorRegistry::Red));
    // What the record leaves out keeps the widget's default.
    EXPECT_EQ(strip->getForeground(), registry(UiColorRegistry::Foreground));

    // The box sits 10 pixels right of its sibling, half the panel high.
    auto box = dynamicCast<UiContainer>(panel->findWidget("box"));
    ASSERT_TRUE(box);
    EXPECT_EQ(box->getRect(), GeRectangle<int>(60, 200, 0, 50));
    EXPECT_EQ(box->getResTableName(), "boxTable");
    RCShdPtr<UiWidget> inner = box->findWidget("inner");
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->getRect(), GeRectangle<int>(0, 140, 0, 50));
    EXPECT_EQ(inner->getResTableName(), "");
    EXPECT_EQ(panel->findWidgetRecursive(LiString("inner")), inner);

    // The group is a UiGroup found as such, and empty.
    RCShdPtr<UiGroup> group = panel->findGroup("emptyGroup");
    ASSERT_TRUE(group);
    EXPECT_TRUE(group->getChildrenList().empty());

    // Constraints stay live: resizing the panel moves what depends on it.
    panel->setRect({0, 300, 0, 80});
    EXPECT_EQ(box->getRect(), GeRectangle<int>(60, 300, 0, 40));
    EXPECT_EQ(inner->getRect(), GeRectangle<int>(0, 240, 0, 40));
    panel->removeChildren();
    _root->removeChildren();
}

TEST_F(WidgetFactory, ContainerWithoutGroupIsEmptyAndNullParentGivesTopLevel) {
    RCShdPtr<UiWidget> built = UiWidgetFactory::createWidgetFromText(
        nullptr, "<Container><Widget Name='alone'/></Container>", "alone.xml");
    auto container = dynamicCast<UiContainer>(built);
    ASSERT_TRUE(container);
    EXPECT_EQ(container->getName(), "alone");
    EXPECT_EQ(container->getParent(), nullptr);
    EXPECT_TRUE(container->getChildrenList().empty());
    // The record makes no entry without resources: the defaults hold.
    EXPECT_EQ(container->getRect(), UiWidget::getDefaultSize());
}

TEST_F(WidgetFactory, CreateByTypeInCodeUsesGivenTable) {
    UiResTable table;
    table.readTable(LiString("<ResourceTable><Widget Name='w'>"
                             "<Rectangle><Coord X='1' Y='2' W='3' H='4'/></Rectangle>"
                             "</Widget></ResourceTable>"),
                    UiResource::LevelApplication);
    RCShdPtr<UiWidget> w = UiWidgetFactory::createWidget(root(), "Widget", "w", &table, nullptr);
    ASSERT_TRUE(w);
    EXPECT_EQ(w->getName(), "w");
    EXPECT_EQ(w->getRect(), GeRectangle<int>(1, 4, 2, 6));
    EXPECT_EQ(w->getParent(), _root.get());

    // The four-argument form takes the name of the definition's record, or the type.
    XmlDocument doc(std::string("<Widget><Widget Name='rec'/></Widget>"), "rec.xml");
    XmlElement const definition = doc.getRoot();
    EXPECT_EQ(UiWidgetFactory::createWidget(root(), "Widget", nullptr, &definition)->getName(),
              "rec");
    EXPECT_EQ(UiWidgetFactory::createWidget(root(), "Container", nullptr, nullptr)->getName(),
              "Container");
    _root->removeChildren();
}

TEST_F(WidgetFactory, BadResourceIsReportedAndTheRestKept) {
    Reports reports;
    RCShdPtr<UiWidget> w = UiWidgetFactory::createWidgetFromText(root(),
                                                                 "<Widget>\n"
                                                                 "  <Widget Name='ok'>\n"
                                                                 "    <Bad><NoSuchType/></Bad>\n"
                                                                 "    <Background><Color>Red"
                                                                 "</Color></Background>\n"
                                                                 "  </Widget>\n"
                                                                 "</Widget>",
                                                                 "form.xml");
    ASSERT_TRUE(w);
    EXPECT_EQ(w->getBackground(), registry(UiColorRegistry::Red));
    EXPECT_EQ(reports.ids(), (std::vector<std::string>{"MSG_RESOURCE_RES_ERROR"}));
    // The report names the document and line of the record, and the widget.
    EXPECT_NE(reports.log().find("Error in resource 'Bad' for widget 'ok' (in form.xml:2)"),
              std::string::npos)
        << reports.log();
    _root->removeChildren();
}

TEST_F(WidgetFactory, RecordWithoutNameIsReportedAndWidgetGetsEmptyName) {
    Reports reports;
    RCShdPtr<UiWidget> w =
        UiWidgetFactory::createWidgetFromText(root(), "<Widget><Widget/></Widget>", "noname.xml");
    ASSERT_TRUE(w);
    EXPECT_EQ(w->getName(), "");
    EXPECT_EQ(reports.ids().size(), 1u);
    EXPECT_NE(reports.log().find("Widget resource error in noname.xml:1"), std::string::npos)
        << reports.log();
    _root->removeChildren();
}

// --- bad definitions ---------------------------------------------------------------------------

// Definitions that can't be built: the reason, the document and line, the widget's name, and
// nothing of the definition left in the tree.
struct BadDefinition {
    char const* text;
    char const* reason;
    char const* where;
    char const* widget;
};

TEST_F(WidgetFactory, BadDefinitionsThrowWithExactReasonAndLeaveNothing) {
    BadDefinition const rows[] = {
        {"<Container>\n</Container>",
         "<Widget> element missing in definition of widget with type Container", "bad.xml:1", ""},
        {"<Gadget><Widget Name='g'/></Gadget>", "Trying to create widget of unknown type: Gadget",
         "bad.xml:1", "g"},
        // A failing child stops the whole definition.
        {"<Container><Widget Name='outer'/>\n<Group Type='Children'>\n"
         "  <Widget><Widget Name='first'/></Widget>\n"
         "  <Container><Widget Name='mid'/><Group Type='Children'>\n"
         "    <Slider><Widget Name='bad'/></Slider>\n  </Group></Container>\n"
         "  <Widget><Widget Name='never'/></Widget>\n</Group></Container>",
         "Trying to create widget of unknown type: Slider", "bad.xml:5", "bad"},
    };
    for (BadDefinition const& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            UiWidgetFactory::createWidgetFromText(root(), row.text, "bad.xml");
            ADD_FAILURE() << "no exception";
        } catch (UiWidgetDefinitionEx const& ex) {
            EXPECT_EQ(ex.getReason(), row.reason);
            EXPECT_EQ(ex.getWhere(), row.where);
            EXPECT_EQ(ex.getWidgetName(), row.widget);
        }
        EXPECT_TRUE(_root->getChildrenList().empty());
    }
    try {
        UiWidgetFactory::createWidget(root(), "Gizmo", "x", nullptr, nullptr);
        ADD_FAILURE() << "no exception";
    } catch (UiWidgetDefinitionEx const& ex) {
        EXPECT_EQ(ex.getReason(), "Trying to create widget of unknown type: Gizmo");
        EXPECT_EQ(ex.getWhere(), "");
    }
    // Malformed XML names the document; an unknown group type is a programming error.
    EXPECT_EQ(reasonOf<XmlEx::ExSyntaxError>([&] {
                  UiWidgetFactory::createWidgetFromText(root(), "<Container><Widget Name='x'>",
                                                        "broken.xml");
              }).rfind("broken.xml:1:", 0),
              0u);
    EXPECT_EQ(reasonOf<ExAssertionFailed>([&] {
                  UiWidgetFactory::createWidgetFromText(
                      root(), "<Container><Widget Name='c'/><Group Type='Nope'/></Container>",
                      "g.xml");
              }),
              "it != uiWidgetGroupFactories.end()");
    EXPECT_TRUE(_root->getChildrenList().empty());
}

TEST_F(WidgetFactory, MissingSiblingLeavesExistingChildrenAndOnTopWidget) {
    RCShdPtr<UiWidget> kept = UiWidget::create(_root.get(), "kept");
    RCShdPtr<UiWidget> top = UiWidget::create(_root.get(), "top");
    _root->setAlwaysOnTop(top.get());
    EXPECT_THAT(reasonOf<UiWidgetSiblingConstraintEx>([&] {
                    UiWidgetFactory::createWidgetFromText(
                        root(),
                        "<Widget><Widget Name='lost'><Layout><Constraint>"
                        "<X1 Value='0' Type='p' Target='s' Sibling='ghost'/>"
                        "<Y1 Value='0' Type='p' Target='b'/><X2 Value='0' Type='p' Target='r'/>"
                        "<Y2 Value='0' Type='p' Target='t'/></Constraint></Layout></Widget>"
                        "</Widget>",
                        "sibling.xml");
                }),
                ::testing::HasSubstr("sibling 'ghost' not found"));
    std::vector<UiWidget*> children;
    for (RCShdPtr<UiWidget> const& child : _root->getChildrenList())
        children.push_back(child.get());
    EXPECT_EQ(children, (std::vector<UiWidget*>{kept.get(), top.get()}));
    EXPECT_EQ(_root->getAlwaysOnTop(), top);
    _root->removeChildren();
}

// --- registration ------------------------------------------------------------------------------

// A group factory that gathers the names listed in its element into a UiGroup.
class NamedGroupFactory : public UiWidgetGroupFactory {
protected:
    void create(RCShdPtr<UiContainer> const& container, XmlElement const& element) override {
        UiGroup::create(container.get(), LiString(element.getAttribute("Name")));
    }
};

// A container factory whose containers note the groups they were given, in order.
class TracingContainerFactory : public UiContainerFactory {
public:
    explicit TracingContainerFactory(std::vector<std::string>* log) : _log(log) {}

protected:
    void createGroups(RCShdPtr<UiContainer> const& container, XmlElement const* element) override {
        for (XmlElement const& group : element->getElementsByTagName("Group"))
            _log->push_back(group.getAttribute("Type"));
        UiContainerFactory::createGroups(container, element);
    }

private:
    std::vector<std::string>* _log;
};

TEST_F(WidgetFactory, RegisteringTwiceFailsAndUnregisteringUnknownFails) {
    using Ex = ExAssertionFailed;
    EXPECT_EQ(reasonOf<Ex>([] {
                  UiWidgetFactory::registerFactory("Container",
                                                   std::make_unique<UiContainerFactory>());
              }),
              "uiWidgetFactories.find( uiWidgetFactoryName ) == uiWidgetFactories.end()");
    EXPECT_EQ(reasonOf<Ex>([] { UiWidgetFactory::unregisterFactory("NeverRegistered"); }),
              "it != uiWidgetFactories.end()");
    EXPECT_EQ(reasonOf<Ex>([] {
                  UiWidgetGroupFactory::registerFactory("Children",
                                                        std::make_unique<NamedGroupFactory>());
              }),
              "it == uiWidgetGroupFactories.end()");
    EXPECT_EQ(reasonOf<Ex>([] { UiWidgetGroupFactory::unregisterFactory("NeverRegistered"); }),
              "it != uiWidgetGroupFactories.end()");
    // The failed registrations changed nothing.
    EXPECT_TRUE(UiWidgetFactory::isRegistered("Container"));
    EXPECT_TRUE(UiWidgetGroupFactory::isRegistered("Children"));
    // Registering the toolkit's factories again is harmless.
    EXPECT_NO_THROW(UiWidgetFactory::registerToolkitFactories());
}

TEST_F(WidgetFactory, OwnFactoriesTakePartAndCanBeRemoved) {
    std::vector<std::string> groups;
    UiWidgetFactory::registerFactory("TracingPanel",
                                     std::make_unique<TracingContainerFactory>(&groups));
    UiWidgetGroupFactory::registerFactory("Named", std::make_unique<NamedGroupFactory>());

    // Group elements run in document order: "Named" sees the children made before it.
    RCShdPtr<UiWidget> built = UiWidgetFactory::createWidgetFromText(
        root(),
        "<TracingPanel><Widget Name='p'/>"
        "<Group Type='Children'><Widget><Widget Name='a'/></Widget></Group>"
        "<Group Type='Named' Name='tools'/>"
        "<Group Type='Children'><Widget><Widget Name='b'/></Widget></Group>"
        "</TracingPanel>",
        "own.xml");
    auto panel = dynamicCast<UiContainer>(built);
    ASSERT_TRUE(panel);
    EXPECT_EQ(groups, (std::vector<std::string>{"Children", "Named", "Children"}));
    std::vector<std::string> names;
    for (RCShdPtr<UiWidget> const& child : panel->getChildrenList())
        names.push_back(child->getName().str());
    EXPECT_EQ(names, (std::vector<std::string>{"a", "tools", "b"}));
    EXPECT_TRUE(panel->findGroup("tools"));

    UiWidgetFactory::unregisterFactory("TracingPanel");
    UiWidgetGroupFactory::unregisterFactory("Named");
    EXPECT_FALSE(UiWidgetFactory::isRegistered("TracingPanel"));
    EXPECT_THROW(UiWidgetFactory::createWidget(root(), "TracingPanel", "x", nullptr, nullptr),
                 UiWidgetDefinitionEx);
    _root->removeChildren();
}

TEST_F(WidgetFactory, DumpHtmlListsEveryNameSorted) {
    UiWidgetFactory::registerFactory("AaaFirst",
                                     std::make_unique<UiWidgetFactorySimple<UiWidget>>());
    std::ostringstream html;
    UiWidgetFactory::dumpHtml(html);
    UiWidgetFactory::unregisterFactory("AaaFirst");
    std::string const text = html.str();

    std::string const head = "<html>\n<body>\n<table border=1>\n"
                             "<tr><th colspan=1>WidgetFactories</th></tr>\n"
                             "<tr><td align=center><font size=+1>AaaFirst</font></td></tr>\n";
    EXPECT_EQ(text.substr(0, head.size()), head) << text;
    std::string const tail = "</table>\n</body>\n</html>\n";
    ASSERT_GE(text.size(), tail.size());
    EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
    for (char const* name : {"Container", "Group", "Widget"})
        EXPECT_NE(text.find(std::string("<font size=+1>") + name + "</font>"), std::string::npos)
            << name;
    EXPECT_LT(text.find(">Container<"), text.find(">Widget<"));
}

} // namespace
} // namespace Zr
