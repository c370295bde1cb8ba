// MoveKeyAction: moves the time to the input's first, previous, next or last key.
#pragma once

#include "nodeUiAction.h"

namespace Zr {

template <class Target>
class MoveKeyAction : public NodeUiAction<Target> {
public:
    bool test(Target const& input, TimePathPtr const&) override { return !input.isNull(); }

protected:
    MoveKeyAction(std::string name, std::string label)
        : NodeUiAction<Target>(std::move(name), std::move(label), "cKFMvtGroup") {}
};

// The key time each action moves to: false when the input has none. Without a keyframing
// utility the time stays the current local time.
class FirstKey : public MoveKeyAction<ConstInputPtr> {
public:
    FirstKey() : MoveKeyAction("FirstKey", "First Keyframe") {}
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

class PreviousKey : public MoveKeyAction<ConstInputPtr> {
public:
    PreviousKey() : MoveKeyAction("PreviousKey", "Previous Keyframe") {}
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

class NextKey : public MoveKeyAction<ConstInputPtr> {
public:
    NextKey() : MoveKeyAction("NextKey", "Next Keyframe") {}
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

class LastKey : public MoveKeyAction<ConstInputPtr> {
public:
    LastKey() : MoveKeyAction("LastKey", "Last Keyframe") {}
    void perform(ConstInputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
