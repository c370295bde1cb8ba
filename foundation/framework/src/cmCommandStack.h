// CmCommandStack: the undo and redo entries of one document, with a limit on their number and a
// change dispatcher for menus. It also keeps the long transition (a drag) still being recorded.
#pragma once

#include "cbDispatcher.h"
#include "cmCommand.h"
#include "cmRecorder.h"

#include <deque>
#include <string>
#include <vector>

namespace Zr {

class CmCommandStack : public RCObject {
public:
    static constexpr int DEFAULT_LIMIT = 1000;

    CmCommandStack();
    ~CmCommandStack() override;
    CmCommandStack(CmCommandStack const&) = delete;
    CmCommandStack& operator=(CmCommandStack const&) = delete;

    // Executes the command (without recording its changes in an open scope), then logs it.
    void executeAndLog(OPtr<CmCommand> command);
    // Logs a command whose changes are already applied: it becomes the next to undo, and the
    // entries that could be redone are dropped. A null command is ignored.
    void log(OPtr<CmCommand> command);

    // Undoes the last entry; false if there is none. A pending long transition is logged first.
    bool undo();
    // Does the last undone entry again; false if there is none.
    bool redo();
    bool canUndo() const;
    bool canRedo() const;
    // Labels of the entries undo and redo would run; empty when there is none.
    std::string getUndoLabel() const;
    std::string getRedoLabel() const;
    int getNbUndo() const { return static_cast<int>(_undo.size()); }
    int getNbRedo() const { return static_cast<int>(_redo.size()); }
    // Drops every entry, and the pending long transition.
    void clear();

    // The largest number of undo entries kept; the oldest go first. At least 1.
    void setLimit(int limit);
    int getLimit() const { return _limit; }

    // Told once per log, undo, redo and clear.
    void addChangeCb(CbHandler<CbEmptyType>* handler) { _changeDispatcher.addHandler(handler); }
    void removeChangeCb(CbHandler<CbEmptyType>* handler) {
        _changeDispatcher.removeHandler(handler);
    }

    // Long transitions (PiUndoGuard with PiExecParam 1 to 3). The pending transition collects
    // the states of a drag over several scopes until it is closed.
    bool hasPendingTransition() const { return !_pending.isNull(); }
    RCShdPtr<CmRecord> const& getPendingTransition() const { return _pending; }
    std::string const& getPendingLabel() const { return _pendingLabel; }
    // Logs a pending transition first, then opens a new one with this label.
    RCShdPtr<CmRecord> const& openTransition(std::string label);
    // Logs the pending transition if anything in it changed; true if an entry was logged.
    bool closeTransition();
    void setPendingLabel(std::string label) { _pendingLabel = std::move(label); }

private:
    void logEntry(OPtr<CmCommand> command);
    void notify();

    std::deque<OPtr<CmCommand>> _undo;
    std::vector<OPtr<CmCommand>> _redo; // the next to redo is at the back
    int _limit = DEFAULT_LIMIT;
    RCShdPtr<CmRecord> _pending;
    std::string _pendingLabel;
    CbDispatcher<CbEmptyType> _changeDispatcher;
};

} // namespace Zr
