// AnimAction: the actions on an input's animation curve as a whole: remove, cut, copy, paste and
// create.
#pragma once

#include "nodeUiAction.h"

namespace Zr {

template <class Target>
class AnimAction : public NodeUiAction<Target> {
protected:
    AnimAction(std::string name, std::string label)
        : NodeUiAction<Target>(std::move(name), std::move(label), "eAnimGroup") {}
};

// Drops the animation, keeping the value at the current time. Its undo entry reads "Remove
// Expression", as that of RemoveExpression, which does the same.
class RemoveAnim : public AnimAction<InputPtr> {
public:
    RemoveAnim() : AnimAction("RemoveAnim", "Remove Animation") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class CopyAnim : public AnimAction<ConstInputPtr> {
public:
    CopyAnim() : AnimAction("CopyAnim", "Copy Animation") {}
    bool test(ConstInputPtr const& input, TimePathPtr const& timePath) override;
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

// Copies the curve and resets the input; unlike a cut key, the clipboard says copy.
class CutAnim : public AnimAction<InputPtr> {
public:
    CutAnim() : AnimAction("CutAnim", "Cut Animation") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class PasteAnim : public AnimAction<InputPtr> {
public:
    PasteAnim() : AnimAction("PasteAnim", "Paste Animation") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class CreateAnim : public AnimAction<InputPtr> {
public:
    CreateAnim() : AnimAction("CreateAnim", "Create Animation") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
