// KeyAction<Target>: the actions on the key of an input at the current time: set, delete, cut,
// copy and paste.
#pragma once

#include "nodeUiAction.h"

namespace Zr {

template <class Target>
class KeyAction : public NodeUiAction<Target> {
protected:
    KeyAction(std::string name, std::string label)
        : NodeUiAction<Target>(std::move(name), std::move(label), "aKFGroup") {}
};

// Sets a key with the input's value at the current time; an expression is dropped first.
class SetKey : public KeyAction<InputPtr> {
public:
    SetKey() : KeyAction("SetKey", "Set Keyframe") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

class RemoveKey : public KeyAction<InputPtr> {
public:
    RemoveKey() : KeyAction("RemoveKey", "Delete Keyframe") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

// Puts a copy of the key at the current time on the clipboard.
class CopyKey : public KeyAction<ConstInputPtr> {
public:
    CopyKey() : KeyAction("CopyKey", "Copy Keyframe ") {}
    bool test(ConstInputPtr const& input, TimePathPtr const& timePath) override;
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
    static void copy(ConstInputPtr const& input, TimePathPtr const& timePath, int srcAction);
};

// Copies the key, marked as cut on the clipboard, and deletes it.
class CutKey : public KeyAction<InputPtr> {
public:
    CutKey() : KeyAction("CutKey", "Cut Keyframe ") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

// Puts a copy of the clipboard's key at the current time, animating the input if needed.
class PasteKey : public KeyAction<InputPtr> {
public:
    PasteKey() : KeyAction("PasteKey", "Paste Keyframe") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
