// End-to-end undo: every kind of edit made through the input proxies and utilities on a graph of
// the shipped tools, undone and redone step by step, leaves every input exactly as it was.
#include "inputValueTestGraph.h"

#include "piExpressionServices.h"
#include "piInputValue.h"
#include "piKeyframingUtil.h"
#include "piSocketUtil.h"
#include "piUndoGuard.h"
#include "pxNodeEvaluator.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Zr {
namespace {

using test::CallCounter;

// Every input of the graph, parts after their whole.
std::vector<RCShdPtr<PiInput>> allInputs(PiGraph const& graph) {
    std::vector<RCShdPtr<PiInput>> inputs;
    for (auto const& node : graph.getNodes())
        for (auto const& input : node->getInputs()) {
            inputs.push_back(input);
            if (auto whole = dynamicCast<PiStructuredInput>(input))
                for (auto const& part : whole->getParts())
                    inputs.push_back(part);
        }
    return inputs;
}

// The full state of every input: its own snapshot, and a readable line with the value at a few
// times, so that an expression that no longer follows its input shows too.
struct GraphSnapshot {
    std::vector<OPtr<CmMemento>> mementos;
    std::vector<std::string> lines;
};

GraphSnapshot takeSnapshot(PiGraph const& graph) {
    GraphSnapshot snapshot;
    for (auto const& input : allInputs(graph)) {
        snapshot.mementos.push_back(input->snapshotState());
        std::ostringstream line;
        line << input->getFullName() << " ";
        if (input->getType() == PiInput::Type::String) {
            line << '"' << input->getStringValue() << '"';
        } else {
            line << "static " << input->getStaticValue();
            if (auto curve = input->getCurve())
                for (auto const& key : curve->getKeys())
                    line << " key " << key.getTime() << "=" << key.getValue();
            line << " expr '" << input->getExpression() << "'";
            line << " connected " << input->isConnected();
            for (double t : {0.0, 0.5, 1.0, 2.5})
                line << " @" << t << "=" << input->evaluate(t);
        }
        snapshot.lines.push_back(line.str());
    }
    return snapshot;
}

void expectSame(GraphSnapshot const& expected, GraphSnapshot const& actual,
                std::string const& when) {
    ASSERT_EQ(expected.mementos.size(), actual.mementos.size()) << when;
    EXPECT_EQ(expected.lines, actual.lines) << when;
    for (std::size_t i = 0; i < expected.mementos.size(); ++i)
        EXPECT_TRUE(expected.mementos[i]->equals(*actual.mementos[i]))
            << when << ": " << actual.lines[i];
}

class UndoRoundTrip : public ::testing::Test {
protected:
    void SetUp() override {
        auto tools = PiToolRegistry::getInstance().getTools();
        for (auto const& tool : tools)
            graph->createNode(tool->getName());
        for (auto const& input : allInputs(*graph)) {
            if (input->getType() == PiInput::Type::Double && input->isAnimatable())
                doubles.push_back(input);
            if (input->getType() == PiInput::Type::String)
                strings.push_back(input);
        }
    }

    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiTimePath const> timePath = PiTimePath::create(graph->getTimeClient());
    std::vector<RCShdPtr<PiInput>> doubles;
    std::vector<RCShdPtr<PiInput>> strings;
};

TEST_F(UndoRoundTrip, EveryKindOfEditIsUndoneAndRedoneExactly) {
    ASSERT_GE(PiToolRegistry::getInstance().getTools().size(), 3u) << "the shipped tools";
    ASSERT_GE(doubles.size(), 3u);
    auto stack = graph->getCommandStack();
    auto a = doubles[0];
    auto b = doubles[1];
    auto c = doubles[2];
    auto valueA = PiInputValue<double>::createTyped(a, timePath);
    auto valueB = PiInputValue<double>::createTyped(b, timePath);
    auto valueC = PiInputValue<double>::createTyped(c, timePath);
    auto mid = [](PiInput const& in, double f) {
        return in.getMinimum() + f * (in.getMaximum() - in.getMinimum());
    };

    std::vector<GraphSnapshot> states;
    std::vector<std::string> labels;
    states.push_back(takeSnapshot(*graph));
    std::string transitionLabel;
    auto step = [&](std::string const& label, PiExecParam param, auto&& edit) {
        if (param.getTransition() == 1)
            transitionLabel = label;
        {
            PiUndoGuard guard(stack, label, param);
            edit();
        }
        if (param.getTransition() == 0 || param.getTransition() == 3) {
            states.push_back(takeSnapshot(*graph));
            labels.push_back(param.getTransition() == 3 ? transitionLabel : label);
        }
    };

    step("Set value", PiExecParam(), [&] { EXPECT_TRUE(valueA->setValue(mid(*a, 0.25))); });
    step("Set Keyframe", PiExecParam(), [&] {
        graph->getTimeClient()->setTime(1.0);
        EXPECT_TRUE(graph->getKeyframingUtil()->setKey(b, 1.0));
    });
    step("Set key by value", PiExecParam(), [&] {
        graph->getTimeClient()->setTime(2.0);
        EXPECT_TRUE(valueB->setValue(mid(*b, 0.75)));
    });
    std::string const readA = PiExpressionServices::getInputFullName(a);
    step("Set Expression String", PiExecParam(), [&] {
        auto xpit = PiExpressionServices::getExpressionInterface(c, timePath);
        ASSERT_FALSE(xpit.isNull());
        xpit->setExpression(readA + " * 0.5");
        EXPECT_TRUE(xpit->isValid()) << xpit->getErrorMessage();
    });
    // The expression follows the input it reads.
    double const before = valueC->getValue();
    step("Long drag", PiExecParam(1), [&] { EXPECT_TRUE(valueA->setValue(mid(*a, 0.3))); });
    EXPECT_NE(valueC->getValue(), before);
    step("", PiExecParam(2), [&] { EXPECT_TRUE(valueA->setValue(mid(*a, 0.4))); });
    step("", PiExecParam(3), [&] { EXPECT_TRUE(valueA->setValue(mid(*a, 0.5))); });
    EXPECT_EQ(valueC->getValue(), a->evaluate(valueC->getTime()) * 0.5);
    step("Convert Expression", PiExecParam(),
         [&] { EXPECT_TRUE(PxNodeEvaluator::convertToKeys(c, 0.0, 3.0, 50.0)); });
    step("Reset", PiExecParam(), [&] { PiSocketUtil::resetInput(b); });
    step("Remove Animation", PiExecParam(), [&] { c->removeAnimationKeepingValue(1.0); });
    if (!strings.empty()) {
        auto text = PiInputValue<std::string>::createTyped(strings[0], timePath);
        std::string value = text->getValue() + " changed";
        if (auto const* choices = dynamic_cast<PiEnumPolicy const*>(strings[0]->getPolicy().get()))
            for (auto const& label : choices->getLabelList())
                if (label != text->getValue())
                    value = label;
        step("Set text", PiExecParam(), [&] { EXPECT_TRUE(text->setValue(value)); });
    }

    int const steps = static_cast<int>(labels.size());
    ASSERT_EQ(stack->getNbUndo(), steps);
    // Every state differs from the one before it, or the check below would prove nothing.
    for (int i = 1; i <= steps; ++i)
        EXPECT_NE(states[i].lines, states[i - 1].lines) << labels[i - 1];

    CallCounter onValue;
    valueA->addValueObserver(&onValue);
    for (int i = steps; i > 0; --i) {
        EXPECT_EQ(stack->getUndoLabel(), labels[i - 1]);
        ASSERT_TRUE(stack->undo());
        expectSame(states[i - 1], takeSnapshot(*graph), "undo of " + labels[i - 1]);
    }
    EXPECT_FALSE(stack->canUndo());
    EXPECT_EQ(valueA->getValue(), a->getDefault());
    for (int i = 1; i <= steps; ++i) {
        ASSERT_TRUE(stack->redo());
        expectSame(states[i], takeSnapshot(*graph), "redo of " + labels[i - 1]);
    }
    EXPECT_FALSE(stack->canRedo());
    // The value of A changed in two entries, each undone and redone once.
    EXPECT_EQ(onValue.count, 4);
}

} // namespace
} // namespace Zr
