// Graphs and nodes made from the shipped tools: names, kinds, controllers and their kinds,
// node events, full names and the tool controller's panel description.
#include "piAnimInterface.h"
#include "piGraph.h"
#include "piGraphAnimInterface.h"
#include "piGraphUtils.h"
#include "piStructuredInput.h"
#include "piTimePath.h"
#include "piToolController.h"
#include "piToolRegistry.h"
#include "piUndoGuard.h"
#include "piUserInterfaceManip.h"
#include "piUserSettings.h"
#include "piWidget.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

struct NodeEventRecorder : CbHandler<PiNodeEvent const> {
    std::vector<RCShdPtr<PiValue const>> values;
    int calls = 0;
    void call(PiNodeEvent const& event) override {
        ++calls;
        values.push_back(event.getValue());
    }
};

struct Counter : CbHandler<CbEmptyType> {
    int count = 0;
    void call() override { ++count; }
};

TEST(GraphNodes, ShippedToolsMakeNodesWithTheirDeclaredInputs) {
    auto graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> blur = graph->createNode("Blur");
    EXPECT_EQ(blur->getName(), "Blur1");
    ASSERT_EQ(blur->getNbInputs(), 3);
    EXPECT_EQ(blur->getInput(0)->getName(), "radius");
    EXPECT_EQ(blur->getInput(1)->getName(), "quality");
    EXPECT_EQ(blur->getInput(2)->getName(), "alpha");

    auto radius = blur->findInput("radius");
    EXPECT_EQ(radius->getDisplayName(), "Radius");
    EXPECT_EQ(radius->getMaximum(), 100.0);
    EXPECT_EQ(radius->getFullName(), "Blur1.radius");

    auto quality = blur->findInput("quality");
    auto labels = dynamicCast<PiTypedInputPolicy<int> const>(quality->getPolicy());
    ASSERT_FALSE(labels.isNull());
    EXPECT_EQ(labels->getNbLabels(), 3);
    EXPECT_EQ(labels->getLabel(2), "High");
    EXPECT_EQ(labels->getLabel(3), "");
    EXPECT_FALSE(
        dynamicCast<PiBoolInputPolicy const>(blur->findInput("alpha")->getPolicy()).isNull());

    ASSERT_FALSE(blur->getStoredValue("passes").isNull());
    EXPECT_EQ(blur->getStoredValue("passes")->getInt32(), 1);
    ASSERT_FALSE(blur->findOutput("out").isNull());

    RCShdPtr<PiTool const> tool = PiGraphUtils::getTool(RCShdPtr<PiNode const>(blur));
    ASSERT_FALSE(tool.isNull());
    EXPECT_EQ(tool->getName(), "Blur");
    EXPECT_EQ(tool->getUuid().toString(), "37673e2c-d44d-4e72-80fe-50d9093138ed");
    EXPECT_FALSE(tool->isSuperTool());

    auto grade = graph->createNode("ColorCorrect", "Grade");
    auto gain = dynamicCast<PiStructuredInput>(grade->findInput("gain"));
    ASSERT_FALSE(gain.isNull());
    ASSERT_EQ(gain->getNbParts(), 3);
    EXPECT_EQ(gain->getPart(2)->getFullName(), "Grade.gain.Blue");
    EXPECT_EQ(gain->getPart(0)->getStaticValue(), 1.0);
    EXPECT_EQ(gain->getPart(0)->getMaximum(), 4.0);
    auto parts = dynamicCast<PiStructuredInputPolicy const>(gain->getPolicy());
    ASSERT_FALSE(parts.isNull());
    EXPECT_EQ(parts->getPartNames(), (std::vector<std::string>{"Red", "Green", "Blue"}));

    auto transform = graph->createNode("Transform");
    auto filter = transform->findInput("filter");
    EXPECT_EQ(filter->getType(), PiInput::Type::String);
    EXPECT_EQ(filter->getStringValue(), "Bilinear");
    auto choices = dynamicCast<PiEnumPolicy const>(filter->getPolicy());
    ASSERT_FALSE(choices.isNull());
    EXPECT_EQ(choices->findLabel("Lanczos"), 3);
    EXPECT_EQ(graph->getNodes().size(), 3u);
}

TEST(GraphNodes, NamesAreUniqueAndChecked) {
    auto graph = makeShared<PiGraph>();
    EXPECT_EQ(graph->createNode("Blur")->getName(), "Blur1");
    EXPECT_EQ(graph->createNode("Blur")->getName(), "Blur2");
    EXPECT_EQ(graph->createUniqueName("Blur"), "Blur3");
    EXPECT_EQ(graph->createLinkNode()->getName(), "Link1");
    EXPECT_EQ(graph->createValueNode()->getName(), "Value1");
    EXPECT_EQ(graph->createGroupNode()->getName(), "Group1");

    EXPECT_THROW(graph->createNode("Blur", "Blur1"), PiGraphEx::ExDuplicateName);
    EXPECT_THROW(graph->createNode("Blur", "a.b"), PiGraphEx::ExBadName);
    try {
        graph->createNode("Sharpen");
        ADD_FAILURE();
    } catch (PiGraphEx::ExUnknownTool const& e) {
        EXPECT_EQ(e.getReason(), "Unknown tool: Sharpen");
    }
    auto blur2 = graph->findNode("Blur2");
    EXPECT_THROW(blur2->setName("Blur1"), PiGraphEx::ExDuplicateName);
    EXPECT_THROW(blur2->setName(""), PiGraphEx::ExBadName);
    EXPECT_EQ(blur2->getName(), "Blur2");
    // A failed creation leaves nothing behind.
    EXPECT_EQ(graph->getNodes().size(), 5u);

    // Removing frees the name.
    EXPECT_TRUE(graph->removeNode(graph->findNode("Blur1")));
    EXPECT_FALSE(graph->removeNode(graph->findNode("Blur1")));
    EXPECT_EQ(graph->createNode("Blur")->getName(), "Blur1");
}

TEST(GraphNodes, RenameIsUndoableAndKeepsLookUpsRight) {
    auto graph = makeShared<PiGraph>();
    auto blur = graph->createNode("Blur");
    auto radius = blur->findInput("radius");
    NodeEventRecorder renamed;
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    ctrl->addCallback(PiNodeEvent::NameChanged(), &renamed);
    {
        PiUndoGuard guard(graph->getCommandStack(), "Rename");
        blur->setName("Soft");
    }
    EXPECT_EQ(renamed.calls, 1);
    EXPECT_TRUE(graph->findNode("Blur1").isNull());
    EXPECT_EQ(graph->findInput("Soft.radius"), radius);
    EXPECT_TRUE(graph->findInput("Blur1.radius").isNull());

    ASSERT_TRUE(graph->getCommandStack()->undo());
    EXPECT_EQ(renamed.calls, 2);
    EXPECT_EQ(blur->getName(), "Blur1");
    EXPECT_EQ(graph->findInput("Blur1.radius"), radius);
    ASSERT_TRUE(graph->getCommandStack()->redo());
    EXPECT_EQ(graph->findNode("Soft"), blur);
}

TEST(GraphNodes, KindsGiveTheirTitleData) {
    auto graph = makeShared<PiGraph>();
    RCShdPtr<PiNode> blur = graph->createNode("Blur");
    RCShdPtr<PiNode> group = graph->createGroupNode("Comp", makeShared<PiGroup>("Compositing"));
    RCShdPtr<PiNode> bare = graph->createGroupNode();
    RCShdPtr<PiNode> link = graph->createLinkNode();
    RCShdPtr<PiNode> value = graph->createValueNode();

    EXPECT_EQ(PiGraphUtils::getTool(blur.get())->getName(), "Blur");
    EXPECT_TRUE(PiGraphUtils::getTool(group.get()).isNull());
    EXPECT_TRUE(PiGraphUtils::getTool(nullptr).isNull());
    ASSERT_NE(dynamic_cast<PiGroupNode*>(group.get()), nullptr);
    EXPECT_EQ(dynamic_cast<PiGroupNode*>(group.get())->getGroup()->getName(), "Compositing");
    EXPECT_TRUE(dynamic_cast<PiGroupNode*>(bare.get())->getGroup().isNull());
    EXPECT_NE(dynamic_cast<PiLinkNode*>(link.get()), nullptr);
    EXPECT_EQ(dynamic_cast<PiToolNode*>(link.get()), nullptr);
    auto* valueNode = dynamic_cast<PiValueNode*>(value.get());
    ASSERT_NE(valueNode, nullptr);
    EXPECT_EQ(valueNode->getValueInput()->getName(), "value");
    EXPECT_EQ(valueNode->getOutput()->getName(), "out");
    // Nodes that are not tools get the plain controller: a UI kind, no animation kind.
    RCWeakAccessor<PiNodeController> ctrl(link->getController());
    EXPECT_NE(dynamic_cast<PiUserInterface*>(ctrl.get()), nullptr);
    EXPECT_EQ(dynamic_cast<PiAnimInterface*>(ctrl.get()), nullptr);
}

TEST(GraphNodes, FullNamesFollowGroupsAndFindInputsAgain) {
    auto graph = makeShared<PiGraph>();
    auto group = graph->createGroupNode();
    auto blur = graph->createNode("Blur");
    blur->setParentGroup(group.get());
    auto grade = graph->createNode("ColorCorrect", "Grade");

    auto radius = blur->findInput("radius");
    EXPECT_EQ(blur->getFullName(), "Group1.Blur1");
    EXPECT_EQ(radius->getFullName(), "Group1.Blur1.radius");
    EXPECT_EQ(graph->findInput("Group1.Blur1.radius"), radius);
    EXPECT_EQ(graph->findInput("Grade.gain.Green")->getFullName(), "Grade.gain.Green");
    EXPECT_EQ(graph->findInput("Grade.gain")->getType(), PiInput::Type::Structured);
    EXPECT_EQ(group->getChildren().size(), 1u);

    for (char const* name :
         {"Blur1.radius", "Group1.radius", "Grade", "Grade.gain.Alpha", "Grade.saturation.Red",
          "Grade.nothing", "", "Group1.Blur1.radius.x.y"})
        EXPECT_TRUE(graph->findInput(name).isNull()) << name;

    // Removing a group removes what it holds.
    EXPECT_TRUE(graph->removeNode(group));
    EXPECT_TRUE(graph->findNode("Blur1").isNull());
    EXPECT_FALSE(blur->isValid());
    EXPECT_EQ(blur->getGraph(), nullptr);
    EXPECT_TRUE(graph->findInput("Group1.Blur1.radius").isNull());
}

TEST(GraphNodes, ControllerIsReachedWeaklyAndDiesWithTheNodeOrOutlivesItEmpty) {
    auto graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> blur = graph->createNode("Blur");
    RCWeakPtr<PiNodeController> weak = blur->getController();
    RCWeakPtr<PiNodeController const> weakRO = blur->getControllerRO();
    {
        RCWeakAccessor<PiNodeController> ctrl(weak);
        ASSERT_TRUE(ctrl.isValid());
        EXPECT_EQ(ctrl->getNode(), blur);
        // The kinds of a tool node's controller.
        EXPECT_NE(dynamic_cast<PiUserInterface*>(ctrl.get()), nullptr);
        EXPECT_NE(dynamic_cast<PiAnimInterface*>(ctrl.get()), nullptr);
        EXPECT_NE(dynamic_cast<PiGraphAnimInterface*>(ctrl.get()), nullptr);
        EXPECT_NE(dynamic_cast<PiToolInterface*>(ctrl.get()), nullptr);
        EXPECT_EQ(dynamic_cast<PiCompositionGraphInterface*>(ctrl.get())->getCompositionGraph(),
                  graph.get());
        auto quality = blur->findInput("quality");
        EXPECT_EQ(dynamic_cast<PiToolInterface*>(ctrl.get())->getInputPolicy(quality),
                  quality->getPolicy());
    }
    graph->removeNode(blur);
    EXPECT_FALSE(weak.expired()); // we still hold the node
    blur = nullptr;
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(weakRO.lock().isNull());

    // A controller pinned past its node gives no node.
    RCShdPtr<PiNode> link = graph->createLinkNode();
    RCStrongPtr<PiNodeController> pinned = link->getController().lock();
    graph->removeNode(link);
    link = nullptr;
    EXPECT_TRUE(pinned->getNode().isNull());
}

TEST(GraphNodes, ValueChangedFiresOncePerStoredValueChangeWithTheValue) {
    auto graph = makeShared<PiGraph>();
    auto blur = graph->createNode("Blur");
    RCShdPtr<PiValue> passes = blur->getStoredValue("passes");
    NodeEventRecorder onValue, onName;
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    ctrl->addCallback(PiNodeEvent::ValueChanged(), &onValue);
    ctrl->addCallback(PiNodeEvent::NameChanged(), &onName);

    {
        PiUndoGuard guard(graph->getCommandStack(), "Set passes");
        passes->setInt32(3);
    }
    ASSERT_EQ(onValue.calls, 1);
    EXPECT_EQ(onValue.values[0].get(), passes.get());
    passes->setInt32(3); // no change, no event
    EXPECT_EQ(onValue.calls, 1);

    ASSERT_TRUE(graph->getCommandStack()->undo());
    EXPECT_EQ(passes->getInt32(), 1);
    EXPECT_EQ(onValue.calls, 2);
    EXPECT_EQ(onName.calls, 0);

    // A value added later is observed too.
    auto extra = blur->addStoredValue(makeShared<PiValue>("label", std::string("a")));
    extra->setString("b");
    EXPECT_EQ(onValue.calls, 3);
    EXPECT_EQ(onValue.values.back().get(), extra.get());
    EXPECT_THROW(blur->addStoredValue(makeShared<PiValue>("label", 1.0)),
                 PiNodeEx::ExDuplicateName);

    ctrl->removeCallback(PiNodeEvent::ValueChanged(), &onValue);
    passes->setInt32(5);
    EXPECT_EQ(onValue.calls, 3);
}

TEST(GraphNodes, ToolControllerGivesTheToolsPanelAndTakesAnOwnOneUndoably) {
    auto graph = makeShared<PiGraph>();
    auto blur = graph->createNode("Blur");
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    auto* ui = dynamic_cast<PiUserInterface*>(ctrl.get());
    ASSERT_NE(ui, nullptr);
    EXPECT_NE(ui->getXmlDescription().find("<Items>"), std::string::npos);
    EXPECT_NE(ui->getXmlDescription().find("<Input>radius</Input>"), std::string::npos);
    EXPECT_TRUE(ui->getXmlPath().ends_with("nodes/ui/blur.xml")) << ui->getXmlPath();
    EXPECT_FALSE(ui->isDynamicUi());

    Counter changed;
    ui->addUiChangedCb(&changed);
    std::string const own = "<Items><Item Title=\"Mine\"/></Items>";
    {
        PiUndoGuard guard(graph->getCommandStack(), "Edit panel");
        ui->setXmlDescription(own);
    }
    EXPECT_EQ(changed.count, 1);
    EXPECT_EQ(ui->getXmlDescription(), own);
    EXPECT_EQ(ui->getXmlPath(), "");
    EXPECT_TRUE(ui->isDynamicUi());

    ASSERT_TRUE(graph->getCommandStack()->undo());
    EXPECT_EQ(changed.count, 2);
    EXPECT_FALSE(ui->isDynamicUi());
    EXPECT_NE(ui->getXmlDescription().find("<Input>radius</Input>"), std::string::npos);
    ASSERT_TRUE(graph->getCommandStack()->redo());
    EXPECT_EQ(ui->getXmlDescription(), own);
    EXPECT_EQ(changed.count, 3);
    ui->removeUiChangedCb(&changed);
}

struct PanelBuilder : PiUserInterfaceManip {
    static void build(PiUserInterface& ui, bool& creatingInside, RCShdPtr<RCObject>& data) {
        startUiCreation(ui);
        creatingInside = dynamic_cast<PiDefaultNodeController&>(ui).isCreatingUi();
        data = createInstanceData(ui, nullptr, nullptr);
        endUiCreation(ui);
    }
};

TEST(GraphNodes, PanelMakingIsBracketedThroughTheManipulator) {
    auto graph = makeShared<PiGraph>();
    auto blur = graph->createNode("Blur");
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    auto& ui = dynamic_cast<PiUserInterface&>(*ctrl);
    bool inside = false;
    RCShdPtr<RCObject> data = makeShared<PiGroup>("not null");
    PanelBuilder::build(ui, inside, data);
    EXPECT_TRUE(inside);
    EXPECT_TRUE(data.isNull());
    EXPECT_FALSE(dynamic_cast<PiDefaultNodeController&>(ui).isCreatingUi());
}

TEST(GraphNodes, PublishedInputsAreAddedReplacedAndRemoved) {
    auto graph = makeShared<PiGraph>();
    auto blur = graph->createNode("Blur");
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    auto* dyn = dynamic_cast<PiDynamicInputInterface*>(ctrl.get());
    ASSERT_NE(dyn, nullptr);
    using Info = PiDynamicInputInterface::DynamicInputInfo;
    dyn->addDynamicInput(Info{"Size", blur->findInput("radius"), {}});
    dyn->addDynamicInput(Info{"Look", nullptr, {Info{"Quality", blur->findInput("quality"), {}}}});
    dyn->addDynamicInput(Info{"Size", blur->findInput("alpha"), {}});
    ASSERT_EQ(dyn->getDynamicInputs().size(), 2u);
    EXPECT_EQ(dyn->getDynamicInputs()[0].input, blur->findInput("alpha"));
    ASSERT_NE(dyn->findDynamicInput("Look"), nullptr);
    EXPECT_EQ(dyn->findDynamicInput("Look")->children.at(0).name, "Quality");
    EXPECT_TRUE(dyn->removeDynamicInput("Size"));
    EXPECT_FALSE(dyn->removeDynamicInput("Size"));
    EXPECT_EQ(dyn->findDynamicInput("Size"), nullptr);
}

TEST(GraphNodes, GraphTimeSettings) {
    auto graph = makeShared<PiGraph>();
    graph->setFrameRate(Rational(30000, 1001));
    EXPECT_EQ(graph->getTimeClient()->getRate(), Rational(30000, 1001));
    graph->setFrameRate(Rational(50));
    graph->setStartTime(DtTimeIndex(10));
    graph->setEndTime(DtTimeIndex(110));
    EXPECT_DOUBLE_EQ(graph->getStartSeconds(), 0.2);
    EXPECT_DOUBLE_EQ(graph->getEndSeconds(), 2.2);
    auto shared = makeShared<TmTimeClient>(4.0, Rational(24));
    graph->setTimeClient(shared);
    EXPECT_EQ(graph->getFrameRate(), Rational(24));
}

TEST(GraphNodes, UserSettingsChooseTheValueEditorMotion) {
    PiUserSettings& settings = PiUserSettings::getInstance();
    EXPECT_EQ(settings.getValueEditorMotion(), 0);
    Counter changed;
    settings.addChangeCb(&changed);
    settings.setValueEditorMotion(2);
    settings.setValueEditorMotion(2);
    EXPECT_EQ(changed.count, 1);
    EXPECT_THROW(settings.setValueEditorMotion(3), PiUserSettingsEx::ExBadValue);
    EXPECT_EQ(settings.getValueEditorMotion(), 2);
    settings.setValueEditorMotion(0);
    settings.removeChangeCb(&changed);
}

TEST(GraphNodes, TimePathOfANodeFollowsItsGroupsFromTheTopDown) {
    auto graph = makeShared<PiGraph>();
    auto outer = graph->createGroupNode("Outer", makeShared<PiGroup>("Outer", 10.0, 1.0));
    auto inner = graph->createGroupNode("Inner", makeShared<PiGroup>("Inner", 2.0, 0.5));
    inner->setParentGroup(outer.get());
    auto blur = graph->createNode("Blur");
    blur->setParentGroup(inner.get());
    auto top = graph->createNode("Transform");

    RCShdPtr<PiTimePath> path = PiGraphUtils::getTimePath(RCShdPtr<PiNode const>(blur));
    ASSERT_EQ(path->getPath()->getLength(), 2);
    EXPECT_EQ(path->getPath()->getElement(0).get(), outer.get());
    EXPECT_EQ(path->getPath()->getElement(1).get(), inner.get());
    EXPECT_EQ(path->getTimeClient(), graph->getTimeClient());
    // Global 20: the outer group gives 10, the inner one (10 - 2) * 0.5 = 4.
    EXPECT_DOUBLE_EQ(path->getTime(20.0), 4.0);
    graph->getTimeClient()->setTime(20.0);
    EXPECT_DOUBLE_EQ(path->getTime(), 4.0);
    double global = 0.0;
    ASSERT_TRUE(path->getHeadTime(4.0, global));
    EXPECT_DOUBLE_EQ(global, 20.0);

    RCShdPtr<PiTimePath> topPath = PiGraphUtils::getTimePath(RCShdPtr<PiNode const>(top));
    EXPECT_EQ(topPath->getPath()->getLength(), 0);
    EXPECT_DOUBLE_EQ(topPath->getTime(20.0), 20.0);
}

} // namespace
} // namespace Zr
