// ExpressionAction: the actions on an input's expression: set or edit it in the calculator,
// remove, copy, cut, paste, and convert it to keys. Expression texts on the clipboard begin with
// the expression services' token.
#pragma once

#include "nodeUiAction.h"
#include "uiCalculatable.h"

namespace Zr {

template <class Target>
class ExpressionAction : public NodeUiAction<Target> {
protected:
    ExpressionAction(std::string name, std::string label)
        : NodeUiAction<Target>(std::move(name), std::move(label), "aExprGroup") {}
};

// Opens the calculator on a value editor's expression. Reads "Edit Expression" when the last
// test saw an expression, else "Set Expression": the registry tests before it reads the text.
class SetExpression : public ExpressionAction<RCShdPtr<UiCalculatable>> {
public:
    SetExpression() : ExpressionAction("SetExpression", "Set Expression") {}
    std::string getDisplayString() const override;
    bool test(RCShdPtr<UiCalculatable> const& calculatable, TimePathPtr const& timePath) override;
    void perform(RCShdPtr<UiCalculatable> const& calculatable,
                 TimePathPtr const& timePath) override;

private:
    bool _hasExpression = false;
};

// Drops the expression, keeping the value at the current time.
class RemoveExpression : public ExpressionAction<InputPtr> {
public:
    RemoveExpression() : ExpressionAction("RemoveExpression", "Remove Expression") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
    // Also the work of RemoveAnim, under the same undo text.
    static void remove(InputPtr const& input, TimePathPtr const& timePath);
};

class CopyExpression : public ExpressionAction<ConstInputPtr> {
public:
    CopyExpression() : ExpressionAction("CopyExpression", "Copy Expression") {}
    bool test(ConstInputPtr const& input, TimePathPtr const& timePath) override;
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

class CutExpression : public ExpressionAction<InputPtr> {
public:
    CutExpression() : ExpressionAction("CutExpression", "Cut Expression") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

// Sets the clipboard's expression text, without its token, on the input. Disabled when the text
// names the input itself.
class PasteExpression : public ExpressionAction<InputPtr> {
public:
    PasteExpression() : ExpressionAction("PasteExpression", "Paste Expression") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

// Replaces the expression by keys sampled at twice the graph's frame rate over its time range.
class ConvertExpression : public ExpressionAction<InputPtr> {
public:
    ConvertExpression() : ExpressionAction("ConvertExpression", "Convert Expression") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
