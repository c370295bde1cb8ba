// Inputs: the order of evaluation, expressions reading other inputs and their dependants,
// cycles, reset, structured inputs, connections, and undo of every kind of state.
#include "piAnimInterface.h"
#include "piExpression.h"
#include "piGraph.h"
#include "piGraphAnimInterface.h"
#include "piStructuredInput.h"
#include "piUndoGuard.h"
#include "tcTimeCurve.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

struct Count : CbHandler<CbEmptyType> {
    int n = 0;
    void call() override { ++n; }
    int take() { return std::exchange(n, 0); }
};

// Counts the value and state calls of one input.
struct Watch {
    explicit Watch(RCShdPtr<PiInput> in) : input(std::move(in)) {
        input->addValueCb(&value);
        input->addStateCb(&state);
    }
    // The value and state calls since the last take, as "value V state S".
    std::string take() {
        return "value " + std::to_string(value.take()) + " state " + std::to_string(state.take());
    }
    RCShdPtr<PiInput> input;
    Count value, state;
};

// The value calls of each watch since its last take.
std::vector<int> values(std::initializer_list<Watch*> watches) {
    std::vector<int> out;
    for (Watch* w : watches)
        out.push_back(w->value.take());
    return out;
}

struct InputGraph : ::testing::Test {
    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> blur = graph->createNode("Blur");
    RCShdPtr<PiToolNode> grade = graph->createNode("ColorCorrect", "Grade");
    RCShdPtr<PiInput> radius = blur->findInput("radius");
    RCShdPtr<PiInput> quality = blur->findInput("quality");
    RCShdPtr<PiInput> alpha = blur->findInput("alpha");
    RCShdPtr<PiInput> saturation = grade->findInput("saturation");
    RCShdPtr<PiStructuredInput> gain = dynamicCast<PiStructuredInput>(grade->findInput("gain"));

    RCShdPtr<CmCommandStack> stack() const { return graph->getCommandStack(); }
    template <class F>
    void undoable(std::string const& label, F&& edit) const {
        PiUndoGuard guard(stack(), label);
        edit();
    }
};

TEST_F(InputGraph, ConnectionWinsOverExpressionOverCurveOverStaticValue) {
    radius->setStaticValue(5);
    EXPECT_EQ(radius->evaluate(1.0), 5.0);
    radius->setKey(0.0, 10.0);
    radius->setKey(2.0, 30.0);
    EXPECT_TRUE(radius->hasAnimation());
    EXPECT_TRUE(radius->hasKeyAt(2.0));
    EXPECT_FALSE(radius->hasKeyAt(1.0));
    EXPECT_EQ(radius->evaluate(2.0), 30.0);
    EXPECT_NE(dynamic_cast<TcTimeCurve const*>(radius->getCurve().get()), nullptr);
    radius->setExpression("time * 7");
    EXPECT_EQ(radius->evaluate(2.0), 14.0);

    auto value = graph->createValueNode();
    value->getValueInput()->setStaticValue(42);
    radius->connect(value->getOutput());
    EXPECT_TRUE(radius->isConnected());
    EXPECT_FALSE(radius->isAnimatable());
    EXPECT_THROW(radius->setKey(1.0, 1.0), PiInputEx::ExNotAnimatable);
    EXPECT_EQ(radius->evaluate(2.0), 42.0);

    radius->disconnect();
    EXPECT_EQ(radius->evaluate(2.0), 14.0);
    radius->setExpression("");
    EXPECT_EQ(radius->evaluate(2.0), 30.0);
    radius->setCurve(nullptr);
    EXPECT_EQ(radius->evaluate(2.0), 5.0);
}

TEST_F(InputGraph, SetValuesAreClampedAndRoundedComputedOnesOnlyRounded) {
    radius->setStaticValue(250);
    EXPECT_EQ(radius->getStaticValue(), 100.0);
    radius->setKey(1.0, -3);
    EXPECT_EQ(radius->getCurve()->findKey(1.0)->getValue(), 0.0);
    quality->setStaticValue(1.6);
    EXPECT_EQ(quality->getStaticValue(), 2.0);

    radius->setExpression("time * 1000");
    EXPECT_EQ(radius->evaluate(1.0), 1000.0); // not clamped
    quality->setExpression("time + 0.4");
    EXPECT_EQ(quality->evaluate(1.0), 1.0);
    EXPECT_EQ(quality->evaluate(2.2), 3.0); // rounded, beyond the menu
    alpha->setExpression("0.3");
    EXPECT_EQ(alpha->evaluate(0), 0.0);
    alpha->setExpression("-2");
    EXPECT_EQ(alpha->evaluate(0), 1.0);
}

TEST_F(InputGraph, StringInputsHoldTextOnly) {
    auto transform = graph->createNode("Transform");
    auto filter = transform->findInput("filter");
    EXPECT_FALSE(filter->isAnimatable());
    EXPECT_THROW(filter->getStaticValue(), PiInputEx::ExWrongType);
    EXPECT_THROW(radius->getStringValue(), PiInputEx::ExWrongType);
    EXPECT_THROW(filter->setKey(0, 1), PiInputEx::ExNotAnimatable);
    EXPECT_THROW(filter->setExpression("1"), PiInputEx::ExNotAnimatable);
    Watch w(filter);
    filter->setStringValue("Lanczos");
    filter->setStringValue("Lanczos");
    EXPECT_EQ(w.value.take(), 1);
    filter->reset();
    EXPECT_EQ(filter->getStringValue(), "Bilinear");
    EXPECT_EQ(w.value.take(), 1);
    EXPECT_EQ(w.state.take(), 0);
}

TEST_F(InputGraph, ExpressionFollowsTheInputItReadsAndTellsItsDependantsOnce) {
    saturation->setExpression("Blur1.radius / 10 + frame");
    EXPECT_EQ(saturation->evaluate(0.0), 0.2);
    EXPECT_EQ(saturation->evaluate(1.0), 25.2); // frame at 25 per second
    radius->setKey(0.0, 50.0);
    EXPECT_EQ(saturation->evaluate(0.0), 5.0);

    // A diamond: quality reads radius; gain.Red reads radius and quality; the whole gain is
    // told through its part.
    quality->setExpression("Blur1.radius > 10");
    gain->getPart(0)->setExpression("Blur1.radius + Blur1.quality");
    Watch r(radius), q(quality), red(gain->getPart(0)), whole(gain), sat(saturation), a(alpha);
    radius->setKey(0.0, 60.0);
    EXPECT_EQ(values({&r, &q, &red, &whole, &sat, &a}), (std::vector<int>{1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(red.input->evaluate(0.0), 61.0);

    // The expression no longer reads radius: no more calls.
    saturation->setExpression("2");
    sat.value.take();
    radius->setStaticValue(3);
    EXPECT_EQ(sat.value.take(), 0);
    // Unknown names fail at evaluation and fall back.
    saturation->setStaticValue(1.5);
    saturation->setExpression("Nowhere.x * 2");
    EXPECT_EQ(saturation->evaluate(0.0), 1.5);
    EXPECT_EQ(saturation->getExpressionError(), "Unknown input: Nowhere.x");
    // A node made later under that name is read.
    auto nowhere = graph->createValueNode("Nowhere");
    nowhere->addInput(makeShared<PiInput>("x", PiInput::Type::Double))->setStaticValue(0.25);
    EXPECT_EQ(saturation->evaluate(0.0), 0.5);
    EXPECT_EQ(saturation->getExpressionError(), "");
}

TEST_F(InputGraph, ACycleIsReportedWithItsPathAndFallsBack) {
    auto size = blur->addInput(makeShared<PiInput>("size", PiInput::Type::Double));
    size->setStaticValue(3);
    radius->setStaticValue(4);
    size->setExpression("Blur1.radius * 2");
    radius->setExpression("Blur1.size + 1");
    EXPECT_EQ(size->evaluate(0.0), 3.0);
    EXPECT_EQ(size->getExpressionError(),
              "Expression cycle: Blur1.size -> Blur1.radius -> Blur1.size");
    EXPECT_EQ(radius->getExpressionError(), size->getExpressionError());
    EXPECT_EQ(radius->evaluate(0.0), 4.0);
    EXPECT_EQ(radius->getExpressionError(),
              "Expression cycle: Blur1.radius -> Blur1.size -> Blur1.radius");

    // An input reading the cycle from outside gets the value where the cycle started.
    saturation->setExpression("Blur1.size");
    EXPECT_EQ(saturation->evaluate(0.0), 3.0);
    EXPECT_EQ(saturation->getExpressionError(), "");

    // A change round the cycle tells each input once and ends.
    Watch s(size), r(radius), sat(saturation);
    radius->setStaticValue(9);
    EXPECT_EQ(values({&r, &s, &sat}), (std::vector<int>{1, 1, 1}));

    // An input reading itself.
    quality->setExpression("Blur1.quality + 1");
    EXPECT_EQ(quality->evaluate(0.0), 1.0);
    EXPECT_EQ(quality->getExpressionError(), "Expression cycle: Blur1.quality -> Blur1.quality");

    // Breaking the cycle clears the error at the next evaluation.
    radius->setExpression("");
    EXPECT_EQ(size->evaluate(0.0), 18.0);
    EXPECT_EQ(size->getExpressionError(), "");
}

TEST_F(InputGraph, ABadExpressionKeepsItsTextAndReportsTheParser) {
    radius->setStaticValue(7);
    radius->setExpression("1 +");
    EXPECT_TRUE(radius->hasExpression());
    EXPECT_EQ(radius->getExpression(), "1 +");
    ASSERT_NE(radius->getCompiledExpression(), nullptr);
    EXPECT_FALSE(radius->getCompiledExpression()->isValid());
    EXPECT_EQ(radius->getExpressionError(), radius->getCompiledExpression()->getErrorMessage());
    EXPECT_FALSE(radius->getExpressionError().empty());
    EXPECT_EQ(radius->evaluate(0.0), 7.0);
}

TEST_F(InputGraph, ResetDropsEverythingInOneChangeAndUndoBringsItBack) {
    auto value = graph->createValueNode();
    radius->setStaticValue(50);
    radius->setKey(1.0, 20.0);
    radius->setExpression("time");
    radius->connect(value->getOutput());
    Watch w(radius);
    undoable("Reset", [&] { radius->reset(); });
    EXPECT_EQ(w.take(), "value 1 state 1");
    EXPECT_FALSE(radius->isConnected());
    EXPECT_FALSE(radius->hasExpression());
    EXPECT_FALSE(radius->hasAnimation());
    EXPECT_EQ(radius->getStaticValue(), 2.0);
    EXPECT_TRUE(value->getOutput()->getConnectedInputs().empty());
    EXPECT_EQ(stack()->getNbUndo(), 1);

    ASSERT_TRUE(stack()->undo());
    EXPECT_EQ(w.take(), "value 1 state 1");
    EXPECT_EQ(radius->getConnectedOutput(), value->getOutput());
    EXPECT_EQ(value->getOutput()->getConnectedInputs().size(), 1u);
    EXPECT_EQ(radius->getExpression(), "time");
    ASSERT_TRUE(radius->hasAnimation());
    EXPECT_EQ(radius->getCurve()->findKey(1.0)->getValue(), 20.0);
    EXPECT_EQ(radius->getStaticValue(), 50.0);

    // A reset of an input at its default changes nothing and logs nothing.
    alpha->reset();
    undoable("Reset alpha", [&] { alpha->reset(); });
    EXPECT_EQ(stack()->getNbUndo(), 0);
    EXPECT_EQ(stack()->getNbRedo(), 1);
}

TEST_F(InputGraph, StructuredInputsChangeThroughTheirPartsAndTellTheWholeOnce) {
    Watch whole(gain), red(gain->getPart(0)), blue(gain->getPart(2));
    gain->setStaticValue(2.5);
    EXPECT_EQ(values({&whole, &red}), (std::vector<int>{1, 1}));
    EXPECT_EQ(blue.input->getStaticValue(), 2.5);
    EXPECT_EQ(gain->getStaticValue(), 2.5);

    gain->getPart(1)->setKey(0.0, 3.0);
    EXPECT_EQ(whole.take(), "value 1 state 1");
    EXPECT_TRUE(gain->hasAnimation());
    EXPECT_FALSE(gain->isAnimatable());
    EXPECT_THROW(gain->setKey(0.0, 1.0), PiInputEx::ExNotAnimatable);

    undoable("Reset gain", [&] { gain->reset(); });
    EXPECT_EQ(whole.take(), "value 1 state 1");
    EXPECT_EQ(red.value.take(), 1);
    EXPECT_FALSE(gain->hasAnimation());
    for (auto const& part : gain->getParts())
        EXPECT_EQ(part->getStaticValue(), 1.0);
    EXPECT_EQ(stack()->getNbUndo(), 1);
    ASSERT_TRUE(stack()->undo());
    EXPECT_EQ(gain->getPart(1)->getCurve()->findKey(0.0)->getValue(), 3.0);
    EXPECT_EQ(gain->getPart(0)->getStaticValue(), 2.5);
}

TEST_F(InputGraph, ConnectedInputsFollowTheValueNode) {
    auto value = graph->createValueNode();
    auto source = value->getValueInput();
    saturation->connect(value->getOutput());
    Watch sat(saturation);
    source->setStaticValue(0.75);
    EXPECT_EQ(sat.value.take(), 1);
    EXPECT_EQ(saturation->evaluate(0.0), 0.75);
    // A value node reading its reader is a cycle, not a hang.
    source->setExpression("Grade.saturation");
    EXPECT_EQ(saturation->evaluate(0.0), saturation->getStaticValue());
    EXPECT_EQ(source->getExpressionError(),
              "Expression cycle: Grade.saturation -> Value1.value -> Grade.saturation");
    source->setExpression("");

    // Removing the value node disconnects its readers.
    graph->removeNode(value);
    EXPECT_FALSE(saturation->isConnected());
    EXPECT_EQ(sat.state.take(), 1);
}

// The exact restore of values, keys and expressions is the round trip's (undoRoundTripTest.cpp);
// here the dependencies that go and come back with an expression.
TEST_F(InputGraph, UndoingAnExpressionTakesItsDependencyAndRedoBringsItBack) {
    Watch w(radius);
    undoable("Set expression", [&] { radius->setExpression("Grade.saturation * 10"); });
    w.take();
    ASSERT_TRUE(stack()->undo());
    EXPECT_EQ(w.take(), "value 1 state 1");
    saturation->setStaticValue(2);
    EXPECT_EQ(w.value.take(), 0);
    ASSERT_TRUE(stack()->redo());
    w.value.take();
    saturation->setStaticValue(3);
    EXPECT_EQ(w.value.take(), 1);
    EXPECT_EQ(radius->evaluate(0.0), 30.0);
}

TEST_F(InputGraph, AnimInterfaceCreatesRemovesAndCopiesCurves) {
    RCWeakAccessor<PiNodeController> ctrl(blur->getController());
    auto* anim = dynamic_cast<PiAnimInterface*>(ctrl.get());
    auto* graphAnim = dynamic_cast<PiGraphAnimInterface*>(ctrl.get());
    ASSERT_NE(anim, nullptr);
    ASSERT_NE(graphAnim, nullptr);
    radius->setStaticValue(6);
    EXPECT_TRUE(anim->canCreateKey(radius, 0.0));
    graphAnim->setKeySettingAllowed(false);
    EXPECT_FALSE(anim->canCreateKey(radius, 0.0));
    graphAnim->setKeySettingAllowed(true);

    {
        PiUndoGuard guard(stack(), "Convert");
        RCShdPtr<TmTimeCurve> live = anim->createCurve(radius, 1.0);
        ASSERT_NE(dynamic_cast<TcTimeCurve*>(live.get()), nullptr);
        EXPECT_EQ(live->findKey(1.0)->getValue(), 6.0);
        // Keys added to the live curve in the scope belong to the entry.
        live->setKey(3.0, 9.0);
        radius->curveEdited();
    }
    EXPECT_EQ(radius->evaluate(3.0), 9.0);
    RCShdPtr<TmTimeCurve> copy = anim->getCurve(radius);
    copy->setKey(5.0, 1.0);
    EXPECT_FALSE(radius->hasKeyAt(5.0));

    radius->setExpression("time * 10");
    undoable("Remove Animation", [&] { anim->removeCurve(radius, 2.0); });
    EXPECT_FALSE(radius->hasAnimation());
    EXPECT_FALSE(radius->hasExpression());
    EXPECT_EQ(radius->getStaticValue(), 20.0);
    ASSERT_TRUE(stack()->undo());
    EXPECT_EQ(radius->getExpression(), "time * 10");
    ASSERT_TRUE(stack()->undo());
    EXPECT_FALSE(radius->hasAnimation());
    EXPECT_EQ(radius->getStaticValue(), 6.0);

    anim->setCurve(radius, copy);
    EXPECT_TRUE(radius->hasKeyAt(5.0));
    EXPECT_TRUE(anim->createCurve(quality, 0.0)->findKey(0.0));
    EXPECT_TRUE(anim->createCurve(blur->findInput("nothing"), 0.0).isNull());
}

TEST_F(InputGraph, DisplayChangesAndMarksTellTheirObservers) {
    Count display;
    Watch w(radius);
    radius->addDisplayCb(&display);
    radius->setDisplayName("Size");
    radius->setDisplayName("Size");
    radius->setRange(0, 10);
    radius->setPolicy(makeShared<PiShape2dInputPolicy>());
    EXPECT_EQ(display.take(), 3);
    EXPECT_EQ(radius->getStaticValue(), 2.0);
    EXPECT_EQ(w.value.take(), 0);
    radius->setMarked(true);
    radius->setMarked(true);
    EXPECT_TRUE(radius->isMarked());
    EXPECT_EQ(w.state.take(), 1);
    radius->removeDisplayCb(&display);
    radius->setDisplayName("Radius");
    EXPECT_EQ(display.take(), 0);
}

} // namespace
} // namespace Zr
