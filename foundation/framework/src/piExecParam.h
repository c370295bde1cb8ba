// PiExecParam: how an undo scope takes part in an entry: a single step, or one stage of a long
// transition (a drag that makes one entry out of many changes).
#pragma once

#include "exBase.h"

namespace Zr {

class PiExecParam {
public:
    static constexpr int SINGLE_STEP = 0;
    static constexpr int OPEN_TRANSITION = 1;
    static constexpr int CONTINUE_TRANSITION = 2;
    static constexpr int CLOSE_TRANSITION = 3;

    // A single step: the scope makes an entry of its own.
    PiExecParam() = default;
    // 1 opens a long transition, 2 continues it, 3 closes it; 0 is a single step.
    explicit PiExecParam(int transition) : _transition(transition) {
        ZR_ASSERT(transition >= 0 && transition <= 3);
    }

    int getTransition() const { return _transition; }
    bool isLongTransition() const { return _transition != SINGLE_STEP; }

private:
    int _transition = SINGLE_STEP;
};

} // namespace Zr
