// PiUndoGuard: the scope of one undo entry. Every recordable object changed inside it saves its
// state on its first change, and the entry is logged on the stack when the outermost guard closes.
#pragma once

#include "cmCommandStack.h"
#include "piExecParam.h"

#include <string>

namespace Zr {

// Nesting: the outermost open guard owns the scope; inner guards (on any stack) join it, and
// their labels and transitions are ignored.
//
// Single step (PiExecParam()): on close, each saved object's state is taken again, objects that
// ended as they began are dropped, and if any is left one entry with the label is logged.
// While a long transition is pending on the stack, a single step joins it instead.
//
// Long transitions: transition 1 logs any transition pending on the stack, then opens a new
// one labelled with this guard's label; it stays open after the guard closes. Transition 2
// records into the pending one (an empty label is normal; a non-empty one replaces an empty
// pending label). Transition 3 records into it and then logs it, unless nothing changed.
// Transition 2 or 3 with nothing pending acts as a single step. An object first changed in a
// later guard of the transition saves its state at that first change.
//
// The guard closes its scope also when an exception leaves it: what changed before the throw
// is logged. The destructor never throws. A null stack records the scope and drops it.
class PiUndoGuard {
public:
    PiUndoGuard(RCShdPtr<CmCommandStack> const& stack, std::string label,
                PiExecParam param = PiExecParam());
    ~PiUndoGuard();
    PiUndoGuard(PiUndoGuard const&) = delete;
    PiUndoGuard& operator=(PiUndoGuard const&) = delete;

    bool isLongTransition() const { return _param.isLongTransition(); }
    PiExecParam const& getExecParam() const { return _param; }
    // False for a guard that joined an outer one.
    bool isOutermost() const { return _outermost; }
    std::string const& getLabel() const { return _label; }

private:
    void close();

    RCShdPtr<CmCommandStack> _stack;
    std::string _label;
    PiExecParam _param;
    RCShdPtr<CmRecord> _record;
    bool _outermost = false;
    bool _inTransition = false; // records into the stack's pending transition
};

} // namespace Zr
