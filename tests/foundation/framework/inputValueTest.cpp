// Tests of the typed input proxies: reading and setting through the input's rules, the editing
// and underline tests, the cache, and the value, state and display observers.
#include "inputValueTestGraph.h"

#include "piInputValue.h"
#include "piToolController.h"
#include "piUndoGuard.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Zr {
namespace {

using test::CallCounter;

class InputValue : public ::testing::Test {
protected:
    test::InputTestGraph g;
    RCShdPtr<PiInput> radius = g.input("radius");

    RCShdPtr<PiInputValue<double>> proxy(std::string const& name = "radius") {
        return PiInputValue<double>::createTyped(g.input(name), g.timePath);
    }
    PiGraphAnimInterface& animInterface() {
        auto controller = g.node->getController().lock();
        auto* anim = dynamic_cast<PiGraphAnimInterface*>(controller.get());
        EXPECT_NE(anim, nullptr);
        return *anim;
    }
};

TEST_F(InputValue, NullInputGivesNullAndAMismatchedTypeThrowsNamingBoth) {
    EXPECT_TRUE(PiInputValue<double>::createTyped(nullptr, g.timePath).isNull());
    EXPECT_TRUE(PiInputValue<std::string>::createTypedRO(nullptr, g.timePath).isNull());
    try {
        PiInputValue<std::string>::createTyped(radius, g.timePath);
        FAIL() << "no exception";
    } catch (PiInputEx::ExWrongType const& e) {
        EXPECT_EQ(e.getReason(), "A string value cannot be bound to the Double input Node1.radius");
    }
    EXPECT_THROW(PiInputValue<double>::createTypedRO(g.input("mode"), g.timePath),
                 PiInputEx::ExWrongType);
    EXPECT_THROW(PiInputValue<bool>::createTyped(g.input("mode"), g.timePath),
                 PiInputEx::ExWrongType);
    // Numbers fit every number input; the proxy converts.
    EXPECT_NO_THROW(PiInputValue<int>::createTyped(radius, g.timePath));
    EXPECT_NO_THROW(PiInputValue<bool>::createTyped(g.input("count"), g.timePath));
}

TEST_F(InputValue, ReadsAndSetsTheStaticValueWithTheInputsClampingAndRounding) {
    auto value = proxy();
    EXPECT_EQ(value->getValue(), 2.0);
    EXPECT_TRUE(value->setValue(7.5));
    EXPECT_EQ(radius->getStaticValue(), 7.5);
    EXPECT_EQ(value->getValue(), 7.5);
    EXPECT_TRUE(value->setValue(250.0)); // taken, clamped by the input
    EXPECT_EQ(value->getValue(), 100.0);
    EXPECT_FALSE(value->setValue(std::nan("")));
    EXPECT_FALSE(value->setValue(INFINITY));
    EXPECT_EQ(radius->getStaticValue(), 100.0);

    // A double proxy on an int input: the input rounds; an int proxy reads it back.
    auto count = proxy("count");
    EXPECT_TRUE(count->setValue(2.6));
    auto countInt = PiInputValue<int>::createTyped(g.input("count"), g.timePath);
    EXPECT_EQ(countInt->getValue(), 3);
    EXPECT_TRUE(countInt->setValue(42));
    EXPECT_EQ(countInt->getValue(), 10);

    auto flag = PiInputValue<bool>::createTyped(g.input("flag"), g.timePath);
    EXPECT_FALSE(flag->getValue());
    EXPECT_TRUE(flag->setValue(true));
    EXPECT_EQ(g.input("flag")->getStaticValue(), 1.0);
    EXPECT_TRUE(flag->getValue());
}

TEST_F(InputValue, StringProxyTakesOnlyLabelsOfAnEnumPolicy) {
    auto mode = PiInputValue<std::string>::createTyped(g.input("mode"), g.timePath);
    EXPECT_EQ(mode->getValue(), "Linear");
    EXPECT_EQ(mode->getDefaultValue(), "Linear");
    EXPECT_EQ(proxy("count")->getMaximum(), 10.0);
    EXPECT_TRUE(mode->setValue("Cubic"));
    EXPECT_EQ(mode->getValue(), "Cubic");
    EXPECT_FALSE(mode->setValue("Bogus"));
    EXPECT_EQ(g.input("mode")->getStringValue(), "Cubic");
}

TEST_F(InputValue, ReadOnlyProxyNeverWritesButReadsAndObserves) {
    auto ro = PiInputValue<double>::createTypedRO(radius, g.timePath);
    EXPECT_FALSE(ro->isSettable());
    EXPECT_TRUE(ro->isEditable());
    EXPECT_EQ(ro->getInput(), radius);
    CallCounter changed;
    ro->addValueObserver(&changed);
    radius->setStaticValue(4.0);
    EXPECT_EQ(changed.take(), 1);
    EXPECT_EQ(ro->getValue(), 4.0);
    // A writable proxy hands out the writable input; a read-only one only the const one.
    auto rw = proxy();
    EXPECT_EQ(rw->getInput(), radius);
    auto asConst = RCShdPtr<PiInputValue<double> const>(rw);
    EXPECT_EQ(asConst->getInput(), radius);
}

TEST_F(InputValue, ConnectionAndExpressionLockTheEditor) {
    auto value = proxy();
    EXPECT_TRUE(value->isSettable());
    EXPECT_TRUE(value->isEditable());

    radius->setExpression("Node1.count * 3");
    EXPECT_TRUE(value->hasExpression());
    EXPECT_FALSE(value->isEditable());
    EXPECT_EQ(value->getValue(), 3.0);
    // The expression follows the input it reads.
    g.input("count")->setStaticValue(4);
    EXPECT_TRUE(value->needsEvaluation());
    EXPECT_EQ(value->getValue(), 12.0);
    radius->setExpression("");

    auto source = g.graph->createValueNode("Source");
    source->getValueInput()->setRange(0, 100);
    source->getValueInput()->setStaticValue(9.0);
    radius->connect(source->getOutput());
    EXPECT_FALSE(value->isSettable());
    EXPECT_FALSE(value->isEditable());
    EXPECT_FALSE(value->setValue(1.0));
    EXPECT_EQ(value->getValue(), 9.0);
}

TEST_F(InputValue, AnimatedInputTakesKeysAtTheLocalTimeAndShowsItsBars) {
    auto value = proxy();
    EXPECT_FALSE(value->showsAnimatedBar());
    EXPECT_FALSE(value->showsGreenBar());
    radius->setKey(0.0, 10.0);
    radius->setKey(2.0, 30.0);
    g.setTime(1.0);
    EXPECT_TRUE(value->showsAnimatedBar());
    EXPECT_FALSE(value->animatedBarIsSolid());
    EXPECT_FALSE(value->showsGreenBar());
    EXPECT_TRUE(value->setValue(50.0));
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 3);
    EXPECT_EQ(radius->getCurve()->findKey(1.0)->getValue(), 50.0);
    EXPECT_EQ(radius->getStaticValue(), 2.0); // the static value stays
    EXPECT_TRUE(value->showsGreenBar());
    EXPECT_TRUE(value->animatedBarIsSolid());
    EXPECT_EQ(value->getValue(), 50.0);

    // Inside a group shifted by 10 seconds the local time is 1 at global time 11.
    PiTimePath::Step step;
    step.offset = 10.0;
    auto shifted = makeShared<PiTimePath>(g.graph->getTimeClient(), nullptr,
                                          std::vector<PiTimePath::Step>{step});
    auto local = PiInputValue<double>::createTyped(radius, shifted);
    g.setTime(12.0);
    EXPECT_EQ(local->getTime(), 2.0);
    EXPECT_EQ(local->getValue(), 30.0);
    EXPECT_TRUE(local->setValue(35.0));
    EXPECT_EQ(radius->getCurve()->findKey(2.0)->getValue(), 35.0);
}

TEST_F(InputValue, KeySettingForbiddenByTheGraphRefusesAnimatedInputsOnly) {
    auto value = proxy();
    animInterface().setKeySettingAllowed(false);
    EXPECT_TRUE(value->isSettable()); // a static value needs no key
    EXPECT_TRUE(value->setValue(3.0));
    radius->setKey(0.0, 10.0);
    EXPECT_FALSE(value->isSettable());
    EXPECT_FALSE(value->setValue(20.0));
    EXPECT_EQ(radius->getCurve()->getNbKeys(), 1);
    // The editor falls back to what the input holds.
    value->evaluate();
    EXPECT_EQ(value->getValue(), 10.0);
    animInterface().setKeySettingAllowed(true);
    EXPECT_TRUE(value->setValue(20.0));
    EXPECT_EQ(value->getValue(), 20.0);
}

TEST_F(InputValue, MarkedInputShowsTheYellowBar) {
    auto value = proxy();
    CallCounter state;
    value->addStateObserver(&state);
    EXPECT_FALSE(value->showsYellowBar());
    radius->setMarked(true);
    EXPECT_TRUE(value->showsYellowBar());
    EXPECT_EQ(state.take(), 1);
}

TEST_F(InputValue, CacheIsStaleAfterAChangeOrATimeMoveUntilEvaluated) {
    auto value = proxy();
    EXPECT_TRUE(value->needsEvaluation());
    value->evaluate();
    EXPECT_FALSE(value->needsEvaluation());
    radius->setStaticValue(5.0);
    EXPECT_TRUE(value->needsEvaluation());
    value->evaluate();
    g.setTime(3.0);
    EXPECT_TRUE(value->needsEvaluation());
    EXPECT_EQ(value->getValue(), 5.0); // getValue evaluates when needed
    EXPECT_FALSE(value->needsEvaluation());
}

TEST_F(InputValue, EachObserverFiresOncePerChange) {
    auto value = proxy();
    CallCounter onValue, onState, onDisplay;
    value->addValueObserver(&onValue);
    value->addStateObserver(&onState);
    value->addDisplayObserver(&onDisplay);
    // The value, state and display calls since the last look.
    auto calls = [&] { return std::vector<int>{onValue.take(), onState.take(), onDisplay.take()}; };
    EXPECT_TRUE(value->setValue(4.0));
    EXPECT_EQ(calls(), (std::vector<int>{1, 0, 0}));
    EXPECT_TRUE(value->setValue(4.0)); // no change, no call
    EXPECT_EQ(calls(), (std::vector<int>{0, 0, 0}));
    radius->setExpression("time");
    EXPECT_EQ(calls(), (std::vector<int>{1, 1, 0}));
    radius->setRange(0, 50);
    radius->setDisplayName("Blur radius");
    EXPECT_EQ(calls(), (std::vector<int>{0, 0, 2}));

    // Time moves: the value observers follow while the value depends on the time.
    g.setTime(1.0);
    EXPECT_EQ(onValue.take(), 1);
    radius->setExpression("");
    calls();
    g.setTime(2.0);
    EXPECT_EQ(onValue.take(), 0);
    radius->setKey(0.0, 1.0);
    onValue.take();
    g.setTime(3.0);
    EXPECT_EQ(onValue.take(), 1);

    calls();
    value->removeValueObserver(&onValue);
    value->removeStateObserver(&onState);
    value->removeDisplayObserver(&onDisplay);
    radius->setKey(0.0, 2.0);
    radius->setRange(0, 60);
    EXPECT_EQ(onValue.count + onState.count + onDisplay.count, 0);
}

TEST_F(InputValue, ObserversFireOnceOnUndoAndRedo) {
    auto value = proxy();
    CallCounter onValue, onState;
    value->addValueObserver(&onValue);
    value->addStateObserver(&onState);
    g.undoable("Set radius", [&] { EXPECT_TRUE(value->setValue(8.0)); });
    g.undoable("Set Expression", [&] { radius->setExpression("Node1.count + 1"); });
    // After each step of the stack: the value, then the value and state calls it made.
    auto after = [&](bool moved) {
        EXPECT_TRUE(moved);
        int const values = onValue.take(), states = onState.take();
        return std::vector<double>{value->getValue(), double(values), double(states)};
    };
    onValue.take();
    onState.take();
    EXPECT_EQ(after(g.stack()->undo()), (std::vector<double>{8, 1, 1}));
    EXPECT_EQ(after(g.stack()->undo()), (std::vector<double>{2, 1, 0}));
    EXPECT_EQ(after(g.stack()->redo()), (std::vector<double>{8, 1, 0}));
    EXPECT_EQ(after(g.stack()->redo()), (std::vector<double>{2, 1, 1}));
}

TEST_F(InputValue, SetValueInAnUndoScopeIsOneEntryAndUndoRestores) {
    auto value = proxy();
    g.undoable("Set Radius", [&] {
        EXPECT_TRUE(value->setValue(12.0));
        EXPECT_TRUE(value->setValue(13.0));
    });
    EXPECT_EQ(g.stack()->getNbUndo(), 1);
    EXPECT_EQ(g.stack()->getUndoLabel(), "Set Radius");
    auto source = g.graph->createValueNode();
    g.undoable("Refused", [&] {
        g.input("count")->connect(source->getOutput());
        EXPECT_FALSE(proxy("count")->setValue(5.0));
        g.input("count")->disconnect();
    });
    EXPECT_EQ(g.stack()->getNbUndo(), 1); // nothing changed in the end: no entry
    g.stack()->undo();
    EXPECT_EQ(value->getValue(), 2.0);
}

TEST_F(InputValue, ADeadProxyLeavesItsObserversAndTheInputAlone) {
    CallCounter onValue, onState;
    {
        auto value = proxy();
        value->addValueObserver(&onValue);
        value->addStateObserver(&onState);
        EXPECT_EQ(onValue.getNbDispatchers(), 1);
    }
    EXPECT_EQ(onValue.getNbDispatchers(), 0);
    EXPECT_EQ(onState.getNbDispatchers(), 0);
    radius->setStaticValue(3.0);
    radius->setKey(0, 1);
    g.setTime(5.0);
    EXPECT_EQ(onValue.count + onState.count, 0);

    // An observer that dies first leaves the proxy, which goes on working.
    auto value = proxy();
    {
        CallCounter shortLived;
        value->addValueObserver(&shortLived);
    }
    CallCounter survivor;
    value->addValueObserver(&survivor);
    EXPECT_TRUE(value->setValue(6.0));
    EXPECT_EQ(survivor.take(), 1);
}

TEST_F(InputValue, AnObserverMayDropTheLastReferenceToTheProxy) {
    auto value = proxy();
    CbFunction<CbEmptyType> dropper([&value] { value = nullptr; });
    CallCounter later;
    value->addValueObserver(&dropper);
    value->addValueObserver(&later);
    radius->setStaticValue(9.0);
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(later.count, 0);
    radius->setStaticValue(10.0);
}

TEST_F(InputValue, StructuredInputReadsItsFirstPartAndSetsEveryPart) {
    auto gain = proxy("gain");
    EXPECT_EQ(gain->getValue(), 1.0);
    EXPECT_TRUE(gain->setValue(2.0));
    EXPECT_EQ(g.input("gain.Blue")->getStaticValue(), 2.0);
    g.input("gain.Green")->setKey(0.0, 3.0);
    EXPECT_TRUE(gain->showsAnimatedBar());
    EXPECT_FALSE(gain->isSettable()); // a whole cannot take a key
    EXPECT_FALSE(gain->setValue(1.5));
    auto red = proxy("gain.Red");
    EXPECT_TRUE(red->setValue(0.5));
    EXPECT_EQ(red->getValue(), 0.5);
}

} // namespace
} // namespace Zr
