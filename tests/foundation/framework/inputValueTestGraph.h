// A graph for the input value, keyframing and undo tests: one node of a tool made in code with an
// input of every type, and a top-level time path on the graph's time client.
#pragma once

#include "piGraph.h"
#include "piStructuredInput.h"
#include "piTimePath.h"
#include "piToolRegistry.h"
#include "piUndoGuard.h"

#include <gtest/gtest.h>

namespace Zr::test {

// The tool "InputTestTool": radius (double 0..100, default 2), count (int 0..10, default 1),
// flag (bool), mode (string, "Linear" or "Cubic"), gain (Red, Green, Blue 0..4, default 1).
inline std::string const& inputTestToolName() {
    static std::string const name = [] {
        auto tool = makeShared<PiTool>("InputTestTool", Uuid::generate());
        auto declare = [](std::string name, PiInput::Type type, double min, double max,
                          double def) {
            PiTool::InputDeclaration d;
            d.name = std::move(name);
            d.type = type;
            d.minimum = min;
            d.maximum = max;
            d.defaultValue = def;
            return d;
        };
        auto radius = declare("radius", PiInput::Type::Double, 0, 100, 2);
        radius.displayName = "Radius";
        tool->addInputDeclaration(radius);
        tool->addInputDeclaration(declare("count", PiInput::Type::Int, 0, 10, 1));
        tool->addInputDeclaration(declare("flag", PiInput::Type::Bool, 0, 1, 0));
        auto mode = declare("mode", PiInput::Type::String, 0, 0, 0);
        mode.defaultString = "Linear";
        mode.policy = makeShared<PiEnumPolicy>(std::vector<std::string>{"Linear", "Cubic"});
        tool->addInputDeclaration(mode);
        auto gain = declare("gain", PiInput::Type::Structured, 0, 4, 1);
        gain.displayName = "Gain";
        gain.parts = {"Red", "Green", "Blue"};
        tool->addInputDeclaration(gain);
        PiToolRegistry::getInstance().registerTool(tool);
        return tool->getName();
    }();
    return name;
}

struct InputTestGraph {
    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    RCShdPtr<PiToolNode> node = graph->createNode(inputTestToolName(), "Node1");
    RCShdPtr<PiTimePath const> timePath = PiTimePath::create(graph->getTimeClient());

    RCShdPtr<PiInput> input(std::string const& name) const {
        auto in = node->findInput(name);
        if (in.isNull()) {
            auto const dot = name.find('.');
            auto whole = dynamicCast<PiStructuredInput>(node->findInput(name.substr(0, dot)));
            if (!whole.isNull())
                in = whole->findPart(name.substr(dot + 1));
        }
        EXPECT_FALSE(in.isNull()) << name;
        return in;
    }
    RCShdPtr<PiCommandStack> stack() const { return graph->getCommandStack(); }
    void setTime(double seconds) const { graph->getTimeClient()->setTime(seconds); }
    // Runs `edit` inside an undo guard labelled `label`: one entry on the graph's stack.
    template <class F>
    void undoable(std::string const& label, F&& edit) const {
        PiUndoGuard guard(stack(), label);
        edit();
    }
};

// Counts the calls of a no-argument callback.
struct CallCounter : CbHandler<CbEmptyType> {
    int count = 0;
    void call() override { ++count; }
    int take() { return std::exchange(count, 0); }
};

} // namespace Zr::test
