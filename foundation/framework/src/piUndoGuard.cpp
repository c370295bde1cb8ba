// The undo scope: joins an open one, or owns the scope and logs its entry when it closes.
#include "piUndoGuard.h"

namespace Zr {

PiUndoGuard::PiUndoGuard(RCShdPtr<CmCommandStack> const& stack, std::string label,
                         PiExecParam param)
    : _stack(stack), _label(std::move(label)), _param(param) {
    _outermost = CmRecorder::getScopeDepth() == 0;
    if (!_outermost) {
        CmRecorder::openScope(_stack.get(), nullptr);
        return;
    }
    int const transition = _param.getTransition();
    if (_stack && transition == PiExecParam::OPEN_TRANSITION) {
        _record = _stack->openTransition(_label);
        _inTransition = true;
    } else if (_stack && _stack->hasPendingTransition()) {
        _record = _stack->getPendingTransition();
        _inTransition = true;
        if (transition != PiExecParam::SINGLE_STEP && _stack->getPendingLabel().empty())
            _stack->setPendingLabel(_label);
    } else {
        _record = makeShared<CmRecord>();
    }
    CmRecorder::openScope(_stack.get(), _record);
}

PiUndoGuard::~PiUndoGuard() {
    try {
        close();
    } catch (...) {
        // A destructor must not throw, also while an exception unwinds through the scope;
        // the entry of this scope is lost then, and the stack stays as it was.
    }
}

void PiUndoGuard::close() {
    CmRecorder::closeScope();
    if (!_outermost || !_stack)
        return;
    RCShdPtr<CmRecord> record = std::move(_record);
    if (_inTransition) {
        // Only the transition this guard recorded into is closed: the stack may have been
        // cleared meanwhile.
        if (_param.getTransition() == PiExecParam::CLOSE_TRANSITION &&
            _stack->getPendingTransition() == record)
            _stack->closeTransition();
        return;
    }
    if (OPtr<CmStateCommand> command = record->takeCommand(_label))
        _stack->log(std::move(command));
}

} // namespace Zr
