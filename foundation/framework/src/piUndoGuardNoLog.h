// PiUndoGuardNoLog: a scope whose changes are not recorded, also when an undo scope is open
// around it.
#pragma once

namespace Zr {

class CmCommandStack;

// With clearStack true, when this scope closes, the stack of the innermost PiUndoGuard open
// around it is cleared (the entries on it may no longer restore a consistent state after a
// change they do not know of); with no PiUndoGuard open, nothing else happens. With false the
// stacks are kept: for changes independent of everything logged.
class PiUndoGuardNoLog {
public:
    explicit PiUndoGuardNoLog(bool clearStack);
    ~PiUndoGuardNoLog();
    PiUndoGuardNoLog(PiUndoGuardNoLog const&) = delete;
    PiUndoGuardNoLog& operator=(PiUndoGuardNoLog const&) = delete;

    bool clearsStack() const { return _clearStack; }

private:
    bool _clearStack;
};

} // namespace Zr
