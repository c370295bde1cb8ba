// Tests of the keyframing utility (keys, marks, key times), the socket utilities, the expression
// services with their input expression interface, and the input sampler.
#include "inputValueTestGraph.h"

#include "piExpressionServices.h"
#include "piKeyframingUtil.h"
#include "piSocketUtil.h"
#include "piToolController.h"
#include "piUndoGuard.h"
#include "pxNodeEvaluator.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

namespace Zr {
namespace {

using test::CallCounter;

class Keyframing : public ::testing::Test {
protected:
    test::InputTestGraph g;
    RCShdPtr<PiKeyframingUtil> util = g.graph->getKeyframingUtil();
    RCShdPtr<PiInput> radius = g.input("radius");
};

TEST_F(Keyframing, SetKeyTakesTheValueAtThatTimeAsOneUndoEntry) {
    radius->setStaticValue(7.0);
    EXPECT_TRUE(util->setKey(radius, 1.0));
    ASSERT_TRUE(radius->hasAnimation());
    EXPECT_EQ(radius->getCurve()->findKey(1.0)->getValue(), 7.0);
    EXPECT_EQ(g.stack()->getUndoLabel(), "Set Keyframe");
    radius->setKey(3.0, 11.0);
    EXPECT_TRUE(util->setKey(radius, 2.0)); // the value of the curve there
    EXPECT_EQ(radius->getCurve()->findKey(2.0)->getValue(), radius->evaluate(2.0));
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 3);

    g.stack()->undo();
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 2);

    EXPECT_FALSE(util->setKey(g.input("mode"), 1.0));
    EXPECT_FALSE(util->setKey(g.input("gain"), 1.0));
    EXPECT_FALSE(util->setKey(nullptr, 1.0));
    auto controller = g.node->getController().lock();
    dynamic_cast<PiGraphAnimInterface&>(*controller).setKeySettingAllowed(false);
    EXPECT_FALSE(util->setKey(radius, 5.0));
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 2);
}

TEST_F(Keyframing, KeyTimesFirstLastNextPrevious) {
    radius->setKey(2.0, 1.0);
    radius->setKey(1.0, 1.0);
    radius->setKey(3.0, 1.0);
    g.input("gain.Red")->setKey(4.0, 1.0);
    g.input("gain.Blue")->setKey(0.5, 1.0);
    enum Ask { First, Last, Next, Previous };
    auto ask = [this](RCShdPtr<PiInput> const& in, Ask what, double from) -> std::optional<double> {
        double t = -1.0;
        bool const found = what == First  ? util->getFirstKeyframeTime(in, t)
                           : what == Last ? util->getLastKeyframeTime(in, t)
                           : what == Next ? util->getNextKeyframeTime(in, from, t)
                                          : util->getPreviousKeyframeTime(in, from, t);
        EXPECT_TRUE(found || t == -1.0); // a failed search leaves the time alone
        return found ? std::optional<double>(t) : std::nullopt;
    };
    // A structured input has the keys of all its parts.
    RCShdPtr<PiInput> const none, count = g.input("count"), gain = g.input("gain");
    std::tuple<RCShdPtr<PiInput>, Ask, double, std::optional<double>> const rows[] = {
        {count, First, 0, {}},      {count, Last, 0, {}},   {count, Next, 0, {}},
        {count, Previous, 0, {}},   {none, First, 0, {}},   {radius, First, 0, 1.0},
        {radius, Last, 0, 3.0},     {radius, Next, 2, 3.0}, {radius, Next, 1.5, 2.0},
        {radius, Previous, 2, 1.0}, {radius, Next, 3, {}},  {radius, Previous, 1, {}},
        {gain, First, 0, 0.5},      {gain, Last, 0, 4.0},   {gain, Next, 0.5, 4.0},
    };
    for (auto const& [in, what, from, expected] : rows)
        EXPECT_EQ(ask(in, what, from), expected) << what << " from " << from;
}

TEST_F(Keyframing, MarksSetTheInputsFlagAndTellTheCallbacksOncePerChange) {
    CallCounter marking;
    util->addMarkingCallback(&marking);
    EXPECT_FALSE(util->isAttributeMarked(radius));
    util->markAttribute(radius, g.timePath);
    EXPECT_TRUE(radius->isMarked());
    EXPECT_TRUE(util->isAttributeMarked(radius));
    EXPECT_TRUE(util->hasMarkedAttributes(g.node));
    EXPECT_EQ(util->getMarkTimePath(radius), g.timePath);
    EXPECT_EQ(marking.take(), 1);
    util->markAttribute(radius, g.timePath);
    EXPECT_EQ(marking.take(), 0);

    util->markAttribute(g.input("count"), g.timePath);
    EXPECT_EQ(util->getMarkedInputs().size(), 2u);
    util->unmarkAttribute(radius);
    EXPECT_FALSE(radius->isMarked());
    EXPECT_EQ(marking.take(), 2);
    util->unmarkAttribute(radius);
    EXPECT_EQ(marking.take(), 0);

    util->unmarkAll();
    EXPECT_EQ(marking.take(), 1);
    EXPECT_FALSE(util->hasMarkedAttributes(g.node));
    util->unmarkAll();
    EXPECT_EQ(marking.take(), 0);

    util->removeMarkingCallback(&marking);
    util->markAttribute(radius, g.timePath);
    EXPECT_EQ(marking.take(), 0);
    EXPECT_FALSE(util->hasMarkedAttributes(nullptr));
}

TEST_F(Keyframing, MarkToolMarksEveryAnimatableInputOfTheNodeOnce) {
    CallCounter marking;
    util->addMarkingCallback(&marking);
    util->markToolForInput(radius, g.timePath);
    EXPECT_EQ(marking.take(), 1);
    for (char const* name : {"radius", "count", "flag", "gain.Red", "gain.Green", "gain.Blue"})
        EXPECT_TRUE(g.input(name)->isMarked()) << name;
    EXPECT_FALSE(g.input("mode")->isMarked());
    EXPECT_FALSE(g.input("gain")->isMarked());
    EXPECT_EQ(util->getMarkedInputs().size(), 6u);

    auto other = g.graph->createNode(test::inputTestToolName());
    EXPECT_FALSE(util->hasMarkedAttributes(other));
    util->markAttribute(other->findInput("radius"), g.timePath);
    marking.take();

    util->unmarkToolForInput(g.input("gain.Red"));
    EXPECT_EQ(marking.take(), 1);
    EXPECT_FALSE(util->hasMarkedAttributes(g.node));
    EXPECT_TRUE(util->hasMarkedAttributes(other));
    util->unmarkToolForInput(radius);
    EXPECT_EQ(marking.take(), 0);
}

TEST_F(Keyframing, MarksAreNotUndone) {
    g.undoable("Set radius", [&] {
        radius->setStaticValue(5.0);
        util->markAttribute(radius, g.timePath);
    });
    g.stack()->undo();
    EXPECT_TRUE(radius->isMarked());
    EXPECT_EQ(radius->getStaticValue(), 2.0);
}

class SocketUtil : public ::testing::Test {
protected:
    test::InputTestGraph g;
};

TEST_F(SocketUtil, FindsInputsAndPartsByName) {
    RCShdPtr<PiNode> node = g.node;
    EXPECT_EQ(PiSocketUtil::getInput(node, "radius"), g.input("radius"));
    EXPECT_EQ(PiSocketUtil::getInput(node, "gain.Red"), g.input("gain.Red"));
    EXPECT_TRUE(PiSocketUtil::getInput(node, "gain.Alpha").isNull());
    EXPECT_TRUE(PiSocketUtil::getInput(node, "radius.Red").isNull());
    EXPECT_TRUE(PiSocketUtil::getInput(node, "nothing").isNull());
    EXPECT_TRUE(PiSocketUtil::getInput(RCShdPtr<PiNode>(), "radius").isNull());
    RCShdPtr<PiNode const> constNode = g.node;
    EXPECT_EQ(PiSocketUtil::getInput(constNode, "gain.Blue"), g.input("gain.Blue"));
}

TEST_F(SocketUtil, NamesInBothModesWithPartsNodesAndPredicate) {
    auto red = g.input("gain.Red");
    EXPECT_EQ(PiSocketUtil::getName(g.input("radius"), 0), "radius");
    EXPECT_EQ(PiSocketUtil::getName(g.input("radius"), 1, 0, 0), "Radius");
    EXPECT_EQ(PiSocketUtil::getName(g.input("count"), 1), "count");
    EXPECT_EQ(PiSocketUtil::getName(red, 0), "gain.Red");
    EXPECT_EQ(PiSocketUtil::getName(red, 1), "Gain.Red");
    EXPECT_EQ(PiSocketUtil::getName(red, 0, nullptr, PiSocketUtil::WITH_NODE), "Node1.gain.Red");
    PrdPredicate<PiInput> noWholes = [](PiInput const&) { return false; };
    EXPECT_EQ(PiSocketUtil::getName(red, 1, &noWholes), "Red");
    EXPECT_EQ(PiSocketUtil::getName(nullptr, 1), "");
    EXPECT_THROW(PiSocketUtil::getName(red, 2), ExAssertionFailed);
}

TEST_F(SocketUtil, StateTestsAndReset) {
    auto radius = g.input("radius");
    EXPECT_FALSE(PiSocketUtil::hasAnimation(radius));
    EXPECT_TRUE(PiSocketUtil::isAnimatable(radius));
    EXPECT_FALSE(PiSocketUtil::isAnimatable(g.input("mode")));
    EXPECT_FALSE(PiSocketUtil::isAnimatable(nullptr));
    radius->setKey(1.0, 4.0);
    EXPECT_TRUE(PiSocketUtil::hasAnimation(radius));
    EXPECT_FALSE(PiSocketUtil::hasAnimationKey(radius, g.timePath));
    g.setTime(1.0);
    EXPECT_TRUE(PiSocketUtil::hasAnimationKey(radius, g.timePath));
    EXPECT_FALSE(PiSocketUtil::hasAnimationKey(nullptr, g.timePath));
    g.input("gain.Green")->setKey(1.0, 2.0);
    EXPECT_TRUE(PiSocketUtil::hasAnimationKey(g.input("gain"), g.timePath));

    g.input("count")->setExpression("Node1.radius");
    EXPECT_TRUE(PiSocketUtil::hasExpression(g.input("count")));
    g.undoable("Reset radius", [&] {
        PiSocketUtil::resetInput(radius);
        PiSocketUtil::resetInput(g.input("count"));
        PiSocketUtil::resetInput(nullptr);
    });
    EXPECT_FALSE(radius->hasAnimation());
    EXPECT_FALSE(g.input("count")->hasExpression());
    EXPECT_EQ(radius->getStaticValue(), 2.0);
    g.stack()->undo();
    EXPECT_TRUE(radius->hasAnimation());
    EXPECT_EQ(g.input("count")->getExpression(), "Node1.radius");
}

TEST(ExpressionToken, IsStrippedOnlyFromTheHead) {
    EXPECT_EQ(PiExpressionServices::getTisaneToken(), "tisane:");
    std::pair<char const*, char const*> const rows[] = {
        {"tisane:Blur1.radius", "Blur1.radius"},
        {"tisane:", ""},
        {"Blur1.radius", "Blur1.radius"},
        {"x tisane:a", "x tisane:a"},
        {"tisane", "tisane"},
        {"tisane:tisane:a", "tisane:a"},
    };
    for (auto const& [text, stripped] : rows)
        EXPECT_EQ(PiSocketUtil::removeExpressionToken(text), stripped);
}

class ExpressionServices : public ::testing::Test {
protected:
    test::InputTestGraph g;
    PiExpressionServices& services = PiExpressionServices::getInstance();
};

TEST_F(ExpressionServices, NamesSupportAndLookup) {
    EXPECT_EQ(services.getInputFullName(g.input("gain.Red")), "Node1.gain.Red");
    EXPECT_EQ(services.getInputFullName(nullptr), "");
    EXPECT_TRUE(services.supportsExpressions(g.input("radius")));
    EXPECT_TRUE(services.supportsExpressions(g.input("gain.Red")));
    EXPECT_FALSE(services.supportsExpressions(g.input("mode")));
    EXPECT_FALSE(services.supportsExpressions(g.input("gain")));
    EXPECT_FALSE(services.supportsExpressions(nullptr));
    g.input("count")->connect(g.graph->createValueNode()->getOutput());
    EXPECT_FALSE(services.supportsExpressions(g.input("count")));
    EXPECT_TRUE(services.getExpressionInterface(g.input("count")).isNull());
    EXPECT_TRUE(services.getExpressionInterface(g.input("mode")).isNull());

    EXPECT_EQ(services.findInput(g.graph.get(), "tisane:Node1.gain.Red"), g.input("gain.Red"));
    EXPECT_EQ(services.findInput(g.graph.get(), "Node1.radius"), g.input("radius"));
    EXPECT_TRUE(services.findInput(g.graph.get(), "Node1.nothing").isNull());
    EXPECT_TRUE(services.findInput(nullptr, "Node1.radius").isNull());
}

TEST_F(ExpressionServices, InterfaceSetsRecordedExpressionsAndReportsValidity) {
    auto xpit = services.getExpressionInterface(g.input("radius"), g.timePath);
    ASSERT_FALSE(xpit.isNull());
    PiExpressionInterface& interface = *xpit;
    EXPECT_EQ(interface.getExpression(), "");
    EXPECT_TRUE(interface.isValid());
    EXPECT_EQ(interface.getErrorMessage(), "");
    g.undoable("Set Expression String", [&] { interface.setExpression("Node1.count * 2"); });
    EXPECT_EQ(g.input("radius")->getExpression(), "Node1.count * 2");
    EXPECT_TRUE(interface.isValid());
    EXPECT_EQ(g.input("radius")->evaluate(0.0), 2.0);
    EXPECT_EQ(g.stack()->getUndoLabel(), "Set Expression String");

    interface.setExpression("Node9.radius + 1");
    EXPECT_FALSE(interface.isValid());
    EXPECT_EQ(interface.getErrorMessage(), "Unknown input: Node9.radius");
    // The value falls back to the static value.
    EXPECT_EQ(g.input("radius")->evaluate(0.0), 2.0);

    interface.setExpression("(1 +");
    EXPECT_FALSE(interface.isValid());
    EXPECT_FALSE(interface.getErrorMessage().empty());

    // A cycle through another input.
    interface.setExpression("Node1.count");
    services.getExpressionInterface(g.input("count"))->setExpression("Node1.radius");
    EXPECT_FALSE(interface.isValid());
    EXPECT_EQ(interface.getErrorMessage(),
              "Expression cycle: Node1.radius -> Node1.count -> Node1.radius");

    interface.setExpression("");
    EXPECT_FALSE(g.input("radius")->hasExpression());
    EXPECT_TRUE(interface.isValid());

    g.stack()->undo();
    EXPECT_EQ(g.input("radius")->getExpression(), "");
    EXPECT_EQ(g.stack()->getNbUndo(), 0);
}

TEST(NodeEvaluator, SamplesAnInputFromStartToEnd) {
    test::InputTestGraph g;
    auto radius = g.input("radius");
    radius->setExpression("time * 10");
    PxNodeEvaluator evaluator;
    evaluator.evaluate(radius, 1.0, 2.0, 4.0);
    EXPECT_EQ(evaluator.getMinTime(), 1.0);
    EXPECT_EQ(evaluator.getValues(), (std::vector<double>{10, 12.5, 15, 17.5, 20}));
    evaluator.evaluate(radius, 0.0, 0.3, 10.0); // 0.3 * 10 lands just below 3
    EXPECT_EQ(evaluator.getValues().size(), 4u);
    evaluator.evaluate(radius, 2.0, 1.0, 4.0);
    EXPECT_TRUE(evaluator.getValues().empty());
    evaluator.evaluate(RCShdPtr<PiInput const>(), 0.0, 1.0, 4.0);
    EXPECT_TRUE(evaluator.getValues().empty());
    EXPECT_THROW(evaluator.evaluate(radius, 0.0, 1.0, 0.0), ExAssertionFailed);

    // A value node: its first input.
    auto valueNode = g.graph->createValueNode();
    valueNode->getValueInput()->setRange(-100, 100);
    valueNode->getValueInput()->setKey(0.0, 0.0);
    valueNode->getValueInput()->setKey(1.0, 1.0);
    evaluator.evaluate(valueNode, 0.0, 1.0, 2.0);
    EXPECT_EQ(evaluator.getValues().front(), 0.0);
    EXPECT_EQ(evaluator.getValues().back(), 1.0);
    EXPECT_EQ(evaluator.getValues().size(), 3u);
}

TEST(NodeEvaluator, ConvertsAnExpressionToKeysAsOneUndoableChange) {
    test::InputTestGraph g;
    auto radius = g.input("radius");
    radius->setExpression("time * 10 + 1");
    g.undoable("Convert Expression",
               [&] { EXPECT_TRUE(PxNodeEvaluator::convertToKeys(radius, 0.0, 4.0, 50.0)); });
    EXPECT_FALSE(radius->hasExpression());
    ASSERT_TRUE(radius->hasAnimation());
    // A straight line keeps only its ends.
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 2);
    EXPECT_NEAR(radius->evaluate(2.0), 21.0, 1e-3);
    EXPECT_NEAR(radius->evaluate(4.0), 41.0, 1e-3);
    g.stack()->undo();
    EXPECT_EQ(radius->getExpression(), "time * 10 + 1");
    EXPECT_FALSE(radius->hasAnimation());

    EXPECT_FALSE(PxNodeEvaluator::convertToKeys(g.input("mode"), 0.0, 1.0, 25.0));
    EXPECT_FALSE(PxNodeEvaluator::convertToKeys(radius, 1.0, 0.0, 25.0));
}

} // namespace
} // namespace Zr
