// The node panel factory as its clients see it: the panels a description gives, the caches, the
// node published while widgets are made, NodeWidget, titles, TitledContainer and the reports of
// descriptions that can't be built.
#include "foundation/framework/inputValueTestGraph.h"

#include "msgProtocol.h"
#include "piDefaultNodeController.h"
#include "piGroup.h"
#include "piGroupNode.h"
#include "piLinkNode.h"
#include "piNodeWidget.h"
#include "uiContainer.h"
#include "uiLabel.h"
#include "uiNodeWidget.h"
#include "uiNodeWidgetFactory.h"
#include "uiTitledContainer.h"
#include "uiWidgetFactory.h"
#include "xmlDocument.h"

#include <cstdlib>
#include <functional>

namespace Zr::test {
namespace {

// A widget type that records which node is being built ("-" for none, " ro" when read-only) and
// runs a hook, so that a test can nest a creation or throw from inside one.
struct Probe {
    std::vector<std::string> seen;
    std::function<void()> hook;
};
Probe& probe() {
    static Probe p;
    return p;
}
class ProbeFactory : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const*) override {
        auto const& node = UiNodeWidgetFactory::getCurrentNodeRO();
        probe().seen.push_back((node.isNull() ? "-" : node->getName()) +
                               (UiNodeWidgetFactory::isReadOnly() ? " ro" : ""));
        if (auto hook = std::exchange(probe().hook, nullptr))
            hook();
        return UiWidget::create(parent.get(), LiString(name), table);
    }
};

std::string P(std::string const& name) {
    return "<Probe><Widget Name=\"" + name + "\"/></Probe>";
}
std::string C(std::string const& name, std::string const& children,
              std::string const& group = "Children") {
    return "<Container><Widget Name=\"" + name + "\"/><Group Type=\"" + group + "\">" + children +
           "</Group></Container>";
}

// A node kind whose controller gives its own default description and counts the brackets of
// panel creation and the per-panel data it hands out.
class CountingController : public PiDefaultNodeController {
public:
    using PiDefaultNodeController::PiDefaultNodeController;
    std::string text;
    int starts = 0, ends = 0, data = 0;

protected:
    std::string getDefaultXmlDescription() const override { return text; }
    void startUiCreation() override { ++starts; }
    void endUiCreation() override { ++ends; }
    RCShdPtr<RCObject> createInstanceData(RCShdPtr<PiWidget> const&,
                                          RCShdPtr<PiTimePath const> const&) override {
        ++data;
        struct Datum : RCObject {};
        return makeShared<Datum>();
    }
};
class CountingNode : public PiNode {
public:
    CountingNode(std::string name, std::string text) : PiNode(std::move(name)) {
        controller = new CountingController(*this);
        controller->text = std::move(text);
        setController(RCStrongPtr<PiNodeController>(controller));
    }
    void dropController() { setController(RCStrongPtr<PiNodeController>()); }
    CountingController* controller;
};

class NodeWidgetFactoryTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!UiWidgetFactory::isRegistered("Probe"))
            UiWidgetFactory::registerFactory("Probe", std::make_unique<ProbeFactory>());
    }
    void SetUp() override {
        previous = MsgProtocol::setDisplayHandler(
            [this](MsgBase const& m) { reports.push_back(m.getText()); });
        probe().seen.clear();
    }
    void TearDown() override { MsgProtocol::setDisplayHandler(previous); }

    // A node of a new tool (inputs radius and flag) described by `description`.
    RCShdPtr<PiToolNode> toolNode(std::string const& description) {
        static int count = 0;
        auto tool = makeShared<PiTool>("PanelTool" + std::to_string(++count), Uuid::generate());
        for (auto [name, type] :
             {std::pair{"radius", PiInput::Type::Double}, std::pair{"flag", PiInput::Type::Bool}}) {
            PiTool::InputDeclaration d;
            d.name = name;
            d.type = type;
            tool->addInputDeclaration(d);
        }
        tool->setXmlDescription(description);
        PiToolRegistry::getInstance().registerTool(tool);
        return g.graph->createNode(tool->getName());
    }
    RCShdPtr<CountingNode> countingNode(std::string const& name, std::string const& text) {
        return makeShared<CountingNode>(name, text);
    }

    // A NodeWidget made from its definition, and its plug-in interface.
    RCShdPtr<PiNodeWidget> nodeWidget(RCShdPtr<UiContainer>& widget) {
        XmlDocument const doc("<NodeWidget><Widget Name='nw'/></NodeWidget>");
        widget = dynamicCast<UiContainer>(UiWidgetFactory::createWidget(nullptr, doc.getRoot()));
        return dynamicCast<PiNodeWidget>(widget->retrieveInterface());
    }

    InputTestGraph g;
    std::vector<std::string> reports;
    MsgProtocol::DisplayHandler previous;
};

// "title/generic/widget(children)" per item, joined by "|".
std::string describe(Iterator<UiNodeWidgetFactory::Item> items) {
    std::string text;
    for (; !items.atEnd(); ++items) {
        text += (text.empty() ? "" : "|") + items->getTitle().str() + "/" +
                items->getGenericUiName().str() + "/" + items->getWidget()->getName().str();
        if (auto* c = dynamic_cast<UiContainer*>(items->getWidget().get())) {
            std::string names;
            for (auto const& child : c->getChildrenList())
                names += (names.empty() ? "" : ",") + child->getName().str();
            text += "(" + names + ")";
        }
    }
    return text;
}

TEST_F(NodeWidgetFactoryTest, DescriptionGivesItsPanelsAndReportsWhatCantBeBuiltOnce) {
    // %T stands for the tool's name, which titles the first panel; a report is matched on its
    // beginning.
    struct Row {
        char const* name;
        std::string description, panels, report;
    } const rows[] = {
        {"three panels, first title ignored",
         "<Items><Item Title='Ignored'>" + P("a") + "</Item><Item Title='Two' GenericUI='Color'>" +
             P("b") + "</Item><Item Title='Three'>" + P("c") + "</Item></Items>",
         "%T/Default/a|Two/Color/b|Three/Default/c", ""},
        {"empty first item: the next takes the node's title",
         "<Items><Item Title='One'/><Item Title='Two'>" + P("b") + "</Item></Items>",
         "%T/Default/b", ""},
        {"no item", "<Items/>", "", ""},
        {"single panel", C("panel", P("a") + P("b")), "%T/Default/panel(a,b)", ""},
        {"unknown panel type",
         "<Items><Item><Bogus><Widget Name='x'/></Bogus></Item><Item Title='Two'>" + P("b") +
             "</Item></Items>",
         "%T/Default/b",
         "The panel of %T names the widget type Bogus, which does not exist (<text>:1); that "
         "widget is left out."},
        {"unknown child type", C("panel", P("a") + "<Bogus><Widget Name='x'/></Bogus>" + P("b")),
         "%T/Default/panel(a,b)", "The panel of %T names the widget type Bogus"},
        {"panel root without its record: the next definition doesn't stand in",
         "<Items><Item><Probe/>" + P("b") + "</Item><Item Title='Two'>" + P("c") +
             "</Item></Items>",
         "%T/Default/c",
         "The panel of %T defines a Probe without its <Widget> element (<text>:1); that widget "
         "is left out."},
        {"unknown group type", C("panel", P("a"), "Nope"), "%T/Default/panel()",
         "The panel of %T names the group type Nope, which does not exist (<text>:1); that group "
         "is left out."},
        {"title naming a missing input",
         "<TitledContainer><Widget Name='t'/><Input>nothing</Input></TitledContainer>",
         "%T/Default/t(TitleLabel)",
         "The panel of %T names the input nothing, which the node does not have (<text>:1)."},
        {"not XML", "<Items><Item>", "",
         "The panel description of %T is not valid XML, so the node shows no panel: <text>:1:"},
        {"empty description", "", "", ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.name);
        reports.clear();
        auto node = toolNode(row.description);
        auto fill = [&](std::string s) {
            for (auto at = s.find("%T"); at != std::string::npos; at = s.find("%T"))
                s.replace(at, 2, node->getTool()->getName());
            return s;
        };
        for (int pass = 0; pass < 2; ++pass)
            EXPECT_EQ(describe(UiNodeWidgetFactory::create(node, g.timePath)), fill(row.panels));
        ASSERT_EQ(reports.size(), row.report.empty() ? 0u : 1u);
        if (!row.report.empty()) {
            EXPECT_EQ(reports[0].substr(0, fill(row.report).size()), fill(row.report));
        }
    }
}

TEST_F(NodeWidgetFactoryTest, DescriptionIsReadOncePerToolOrControllerTypeUnlessDebugging) {
    enum Kind { Tool, Own, Type };
    struct Row {
        char const* name;
        Kind kind;
        bool debug;
        char const* second;
    } const rows[] = {
        {"tool: cached", Tool, false, "a"},
        {"tool: debugging re-reads", Tool, true, "b"},
        {"node's own description: never cached", Own, false, "b"},
        {"controller type: cached", Type, false, "a"},
        {"controller type: debugging re-reads", Type, true, "b"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.name);
        if (row.debug)
            setenv("ZR_DEBUG_NODE_UI", "1", 1);
        UiNodeWidgetFactory::initialize();
        unsetenv("ZR_DEBUG_NODE_UI");
        std::string second;
        if (row.kind == Type) {
            // Two nodes of one controller type: the second shows the first's description.
            UiNodeWidgetFactory::finalize();
            UiNodeWidgetFactory::create(countingNode("A", P("a")), g.timePath);
            second = describe(UiNodeWidgetFactory::create(countingNode("B", P("b")), g.timePath));
        } else {
            auto first = toolNode(P("a"));
            auto other = g.graph->createNode(first->getTool()->getName());
            auto ui = [](auto const& n) { return dynamic_cast<PiUserInterface*>(n.get()); };
            if (row.kind == Own)
                ui(first->getController().lock())->setXmlDescription(P("a"));
            UiNodeWidgetFactory::create(first, g.timePath);
            if (row.kind == Own)
                ui(first->getController().lock())->setXmlDescription(P("b"));
            else
                const_cast<PiTool&>(*first->getTool()).setXmlDescription(P("b"));
            second =
                describe(UiNodeWidgetFactory::create(row.kind == Own ? first : other, g.timePath));
        }
        EXPECT_EQ(second.substr(second.rfind('/') + 1), row.second);
        UiNodeWidgetFactory::initialize();
    }
}

TEST_F(NodeWidgetFactoryTest, CurrentNodeIsPublishedAndRestoredOnEveryWayOut) {
    struct Row {
        char const* name;
        bool readOnly, nested, throws;
        std::vector<std::string> seen;
    } const rows[] = {
        {"plain", false, false, false, {"Outer", "Outer"}},
        {"read-only", true, false, false, {"Outer ro", "Outer ro"}},
        {"nested creation", false, true, false, {"Outer", "Inner", "Outer"}},
        {"exception", false, false, true, {"Outer"}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.name);
        probe().seen.clear();
        UiNodeWidgetFactory::finalize();
        auto outer = countingNode("Outer", "<Items><Item>" + P("a") + "</Item><Item>" + P("b") +
                                               "</Item></Items>");
        auto inner = countingNode("Inner", "");
        probe().hook = [&] {
            if (row.throws)
                throw ExProgramAborted(__FILE__, __LINE__, "probe");
            if (row.nested) {
                XmlDocument const doc(P("x"));
                UiNodeWidgetFactory::create(RCShdPtr<PiNode>(inner), g.timePath, &doc);
            }
        };
        Iterator<UiNodeWidgetFactory::Item> items;
        auto make = [&] {
            items = row.readOnly
                        ? UiNodeWidgetFactory::create(RCShdPtr<PiNode const>(outer), g.timePath)
                        : UiNodeWidgetFactory::create(RCShdPtr<PiNode>(outer), g.timePath);
        };
        if (row.throws)
            EXPECT_THROW(make(), ExBase);
        else
            make();
        EXPECT_EQ(probe().seen, row.seen);
        EXPECT_TRUE(UiNodeWidgetFactory::getCurrentNodeRO().isNull());
        EXPECT_FALSE(UiNodeWidgetFactory::isReadOnly());
        // One bracket per creation, one per-panel datum per panel made.
        EXPECT_EQ(outer->controller->starts, 1);
        EXPECT_EQ(outer->controller->ends, 1);
        EXPECT_EQ(outer->controller->data, items.getCardinality());
    }
}

TEST_F(NodeWidgetFactoryTest, NodeWidgetShowsTheFirstPanelAndReturnsAll) {
    auto three = toolNode("<Items><Item>" + P("a") + "</Item><Item>" + P("b") + "</Item><Item>" +
                          P("c") + "</Item></Items>");
    auto bare = toolNode("");
    RCShdPtr<UiContainer> nw;
    auto iface = nodeWidget(nw);
    struct Row {
        char const* name;
        RCShdPtr<PiNode> node;
        bool get;
        int returned;
        std::string shown;
    } const rows[] = {
        {"three panels", three, false, 3, "a"},
        {"getContent leaves the children", bare, true, 1, "a"},
        {"no description: the generic panel", bare, false, 1, "genericPanel"},
        {"null node clears", nullptr, false, 0, ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.name);
        auto items = row.get ? UiNodeWidget::getContent(iface, row.node, g.timePath)
                             : UiNodeWidget::setContent(iface, row.node, g.timePath);
        EXPECT_EQ(items.getCardinality(), row.returned);
        std::string shown;
        for (auto const& child : nw->getChildrenList())
            shown += child->getName().str();
        EXPECT_EQ(shown, row.shown);
        EXPECT_EQ(iface->getNode().get(), row.node.get());
    }
    // Not a NodeWidget: nothing is done.
    EXPECT_TRUE(UiNodeWidget::setContent(nullptr, three, g.timePath).atEnd());
}

TEST_F(NodeWidgetFactoryTest, TitlesFollowTheNodeKind) {
    auto tool = toolNode("");
    auto group = makeShared<PiGroupNode>("G1", makeShared<PiGroup>("Grade"));
    struct Row {
        RCShdPtr<PiNode const> node;
        char const* title;
    } const rows[] = {
        {tool, tool->getTool()->getName().c_str()},    {group, "Grade"},
        {makeShared<PiGroupNode>("G2"), "G2"},         {makeShared<PiLinkNode>("L1"), "Link"},
        {makeShared<CountingNode>("", ""), "Unknown"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(UiNodeWidgetFactory::createTitle(row.node).str(), row.title);
}

TEST_F(NodeWidgetFactoryTest, BadCallsFailClearly) {
    auto reasonOf = [](auto&& call) {
        try {
            call();
        } catch (ExAssertionFailed const& e) {
            return e.getReason();
        }
        return std::string();
    };
    auto node = countingNode("Lost", P("a"));
    XmlDocument const items("<Items/>");
    EXPECT_EQ(reasonOf([&] {
                  UiNodeWidgetFactory::createAuxiliaryUi(RCShdPtr<PiNode>(node), g.timePath, items);
              }),
              "root->getNodeName() != ITEMS_TAG");
    auto plain = UiContainer::create(nullptr, "plain");
    EXPECT_EQ(reasonOf([&] { UiTitledContainer::setTitle(*plain, "x"); }), "!label.isNull()");
    // A node whose controller is gone has no panel; that is said once.
    node->dropController();
    for (int pass = 0; pass < 2; ++pass)
        EXPECT_TRUE(UiNodeWidgetFactory::create(RCShdPtr<PiNode>(node), g.timePath).atEnd());
    EXPECT_EQ(reports, std::vector<std::string>{
                           "The node Lost has lost its controller; it has no panel to show."});
}

TEST_F(NodeWidgetFactoryTest, TitledContainerShowsItsTitleAndKeepsItsRightClickTarget) {
    auto node = toolNode("<TitledContainer><Widget Name='t'/><Title>Gain</Title><Input>radius"
                         "</Input></TitledContainer>");
    auto items = UiNodeWidgetFactory::create(node, g.timePath);
    auto* titled = dynamic_cast<UiContainer*>(items->getWidget().get());
    ASSERT_NE(titled, nullptr);
    EXPECT_EQ(dynamicCast<UiLabel>(titled->findWidget("TitleLabel"))->getText().str(), "Gain");
    auto* data = titled->findClientData<RightClickItemData>();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->getItems().size(), 1u);
}

} // namespace
} // namespace Zr::test

namespace Zr::test {
namespace {

TEST_F(NodeWidgetFactoryTest, ShippedToolsOpenAsPanels) {
    struct Row {
        char const* tool;
        char const* titles;
        char const* widget;
    } const rows[] = {
        {"Blur", "Blur", "radius"},
        {"ColorCorrect", "ColorCorrect|Saturation", "saturation"},
        {"Transform", "Transform", "scale"},
        {"Glow", "Glow|Threshold|Tint", "tint_Blue"},
        {"Grain", "Grain", "response_Highlights"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.tool);
        auto node = g.graph->createNode(row.tool);
        RCShdPtr<UiContainer> nw;
        auto iface = nodeWidget(nw);
        std::string titles, found;
        for (auto items = UiNodeWidget::getContent(iface, node, g.timePath); !items.atEnd();
             ++items) {
            titles += (titles.empty() ? "" : "|") + items->getTitle().str();
            if (auto* c = dynamic_cast<UiContainer*>(items->getWidget().get()))
                if (!c->findWidgetRecursive(LiString(row.widget)).isNull())
                    found = row.widget;
        }
        EXPECT_EQ(titles, row.titles);
        EXPECT_EQ(found, row.widget);
    }
}

} // namespace
} // namespace Zr::test
