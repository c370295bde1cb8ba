// The key navigation actions of the input context menu.
#include "moveKeyAction.h"

#include "tmTimeClient.h"

namespace Zr {

namespace {

// Moves the time of the time path's client to the global time of the local time `find` gives;
// nothing when it gives none. Without a keyframing utility the local time stays as it is.
template <class Find>
void moveTo(ConstInputPtr const& input, TimePathPtr const& timePath, Find&& find) {
    double time = NodeUiActionUtil::localTime(timePath);
    if (PiKeyframingUtil const* util = NodeUiActionUtil::keyframingUtil(*input))
        if (!find(*util, time))
            return;
    double global = time;
    if (timePath.isNull() || timePath->getTimeClient().isNull() ||
        !timePath->getHeadTime(time, global))
        return;
    timePath->getTimeClient()->setTime(global);
}

} // namespace

void FirstKey::perform(ConstInputPtr const& input, TimePathPtr const& timePath) {
    moveTo(input, timePath, [&](PiKeyframingUtil const& util, double& time) {
        return util.getFirstKeyframeTime(input, time);
    });
}

void PreviousKey::perform(ConstInputPtr const& input, TimePathPtr const& timePath) {
    moveTo(input, timePath, [&](PiKeyframingUtil const& util, double& time) {
        return util.getPreviousKeyframeTime(input, time, time);
    });
}

void NextKey::perform(ConstInputPtr const& input, TimePathPtr const& timePath) {
    moveTo(input, timePath, [&](PiKeyframingUtil const& util, double& time) {
        return util.getNextKeyframeTime(input, time, time);
    });
}

void LastKey::perform(ConstInputPtr const& input, TimePathPtr const& timePath) {
    moveTo(input, timePath, [&](PiKeyframingUtil const& util, double& time) {
        return util.getLastKeyframeTime(input, time);
    });
}

} // namespace Zr
