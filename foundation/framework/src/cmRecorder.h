// CmRecorder: the event loop thread's record of open undo scopes. Recordable objects call it
// before each change; it saves their state on the first change in a scope. CmRecord is the list
// of states one scope (or one long transition) saved.
#pragma once

#include "cmCommand.h"
#include "cmRecordable.h"

#include <string>
#include <vector>

namespace Zr {

class CmCommandStack;

// The objects one scope changed, each with its state from before its first change there.
// Objects are held by RCShdPtr: a recordable object must be heap-allocated and shared.
class CmRecord : public RCObject {
public:
    struct Entry {
        RCShdPtr<CmRecordable> object;
        OPtr<CmMemento> before;
    };

    CmRecord();
    ~CmRecord() override;

    // Saves the object's state unless it was saved already.
    void save(CmRecordable& object);
    bool contains(CmRecordable const* object) const;
    int getNbEntries() const { return static_cast<int>(_entries.size()); }
    bool isEmpty() const { return _entries.empty(); }

    // Takes each object's present state, drops the objects that ended as they began, and
    // makes the command of what is left; null when nothing changed. Empties the record.
    OPtr<CmStateCommand> takeCommand(std::string const& label);

private:
    std::vector<Entry> _entries;
};

// Static functions over the loop thread's state (thread_local: each thread has its own, and
// only the loop thread opens scopes).
class CmRecorder {
public:
    // Saves the object's state if recording is on and the object was not saved yet in the
    // current scope. CmRecordable::willChange calls it.
    static void willChange(CmRecordable& object);
    // True inside an undo scope and outside every suppressing scope (PiUndoGuardNoLog, the
    // restoring of undo and redo).
    static bool isRecording();

    // The number of open undo scopes (PiUndoGuard), joined ones included.
    static int getScopeDepth();
    // The record the outermost open scope writes to, or null.
    static RCShdPtr<CmRecord> getCurrentRecord();
    // The stack of the innermost open undo scope, or null.
    static CmCommandStack* getInnermostStack();

    // Used by PiUndoGuard: opens a scope on `stack`; the outermost scope gives the record that
    // every change is saved to, inner scopes pass null and join it.
    static void openScope(CmCommandStack* stack, RCShdPtr<CmRecord> const& record);
    // Closes the innermost scope; closing the outermost ends recording.
    static void closeScope();

    // Suppression: while one is open no change is recorded, whatever scope is open.
    static void beginSuppress();
    static void endSuppress();
    static bool isSuppressed();

    // A scope that suppresses recording.
    class SuppressGuard {
    public:
        SuppressGuard() { beginSuppress(); }
        ~SuppressGuard() { endSuppress(); }
        SuppressGuard(SuppressGuard const&) = delete;
        SuppressGuard& operator=(SuppressGuard const&) = delete;
    };
};

} // namespace Zr
