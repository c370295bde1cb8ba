// MarkAction: marking inputs, and all the inputs of a tool, for keyframing. Marks are a working
// selection of the keyframing utility, not a state of the graph: they make no undo entry.
#pragma once

#include "nodeUiAction.h"

namespace Zr {

template <class Target>
class MarkAction : public NodeUiAction<Target> {
protected:
    MarkAction(std::string name, std::string label)
        : NodeUiAction<Target>(std::move(name), std::move(label), "dMarkGroup") {}
};

class Mark : public MarkAction<InputPtr> {
public:
    Mark() : MarkAction("Mark", "Mark") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class UnMark : public MarkAction<InputPtr> {
public:
    UnMark() : MarkAction("UnMark", "Unmark") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class UnMarkAll : public MarkAction<InputPtr> {
public:
    UnMarkAll() : MarkAction("UnMarkAll", "Unmark All") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class MarkTool : public MarkAction<InputPtr> {
public:
    MarkTool() : MarkAction("MarkTool", "Mark Tool") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class UnMarkTool : public MarkAction<InputPtr> {
public:
    UnMarkTool() : MarkAction("UnMarkTool", "Unmark Tool") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
