// The undo stack: logging, undo and redo, the limit, and the pending long transition.
#include "cmCommandStack.h"

namespace Zr {

CmCommandStack::CmCommandStack() = default;

CmCommandStack::~CmCommandStack() = default;

void CmCommandStack::executeAndLog(OPtr<CmCommand> command) {
    if (!command)
        return;
    {
        CmRecorder::SuppressGuard suppress;
        command->execute();
    }
    log(std::move(command));
}

void CmCommandStack::log(OPtr<CmCommand> command) {
    if (!command)
        return;
    logEntry(std::move(command));
    notify();
}

void CmCommandStack::logEntry(OPtr<CmCommand> command) {
    _redo.clear();
    _undo.push_back(std::move(command));
    while (static_cast<int>(_undo.size()) > _limit)
        _undo.pop_front();
}

bool CmCommandStack::undo() {
    // A transition still collecting when undo is asked for is done: log it so that it is
    // the entry undone. One that a scope is recording into right now stays open.
    if (_pending && _pending != CmRecorder::getCurrentRecord())
        closeTransition();
    if (_undo.empty())
        return false;
    {
        CmRecorder::SuppressGuard suppress;
        _undo.back()->undo();
    }
    _redo.push_back(std::move(_undo.back()));
    _undo.pop_back();
    notify();
    return true;
}

bool CmCommandStack::redo() {
    if (_redo.empty())
        return false;
    {
        CmRecorder::SuppressGuard suppress;
        _redo.back()->execute();
    }
    _undo.push_back(std::move(_redo.back()));
    _redo.pop_back();
    notify();
    return true;
}

bool CmCommandStack::canUndo() const {
    return !_undo.empty();
}

bool CmCommandStack::canRedo() const {
    return !_redo.empty();
}

std::string CmCommandStack::getUndoLabel() const {
    return _undo.empty() ? std::string() : _undo.back()->getLabel();
}

std::string CmCommandStack::getRedoLabel() const {
    return _redo.empty() ? std::string() : _redo.back()->getLabel();
}

void CmCommandStack::clear() {
    _undo.clear();
    _redo.clear();
    _pending = nullptr;
    _pendingLabel.clear();
    notify();
}

void CmCommandStack::setLimit(int limit) {
    ZR_ASSERT(limit >= 1);
    _limit = limit;
    bool dropped = false;
    while (static_cast<int>(_undo.size()) > _limit) {
        _undo.pop_front();
        dropped = true;
    }
    if (dropped)
        notify();
}

RCShdPtr<CmRecord> const& CmCommandStack::openTransition(std::string label) {
    if (_pending)
        closeTransition();
    _pending = makeShared<CmRecord>();
    _pendingLabel = std::move(label);
    return _pending;
}

bool CmCommandStack::closeTransition() {
    if (!_pending)
        return false;
    RCShdPtr<CmRecord> record = std::move(_pending);
    _pending = nullptr;
    std::string label = std::move(_pendingLabel);
    _pendingLabel.clear();
    OPtr<CmStateCommand> command = record->takeCommand(label);
    if (!command)
        return false;
    log(std::move(command));
    return true;
}

void CmCommandStack::notify() {
    _changeDispatcher.call();
}

} // namespace Zr
