// CmRecordable: an object whose state an undo entry saves and puts back. CmMemento is one saved
// state. Inputs, stored values and node descriptions are recordable; the undo scopes
// (PiUndoGuard) ask CmRecorder to save each object before its first change in the scope.
#pragma once

#include "rcBase.h"

namespace Zr {

// One saved state of a recordable object. Only the object that made it reads it back.
class CmMemento {
public:
    virtual ~CmMemento() = default;
    // True when both describe the same state: an undo scope whose objects all end as they began
    // logs no entry.
    virtual bool equals(CmMemento const& other) const = 0;
};

class CmRecordable : public RCObject {
public:
    // The whole state that undo must restore exactly.
    virtual OPtr<CmMemento> snapshotState() const = 0;
    // Puts back a state made by snapshotState of this object, and tells the object's observers
    // once, as any other change does.
    virtual void restoreState(CmMemento const& memento) = 0;

protected:
    // Every mutator calls this before it changes anything: inside an undo scope the recorder
    // saves the state on the object's first change there; outside one it does nothing.
    void willChange();
};

} // namespace Zr
