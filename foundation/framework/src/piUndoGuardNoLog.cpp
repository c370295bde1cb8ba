// The scope with no undo record.
#include "piUndoGuardNoLog.h"

#include "cmCommandStack.h"

namespace Zr {

PiUndoGuardNoLog::PiUndoGuardNoLog(bool clearStack) : _clearStack(clearStack) {
    CmRecorder::beginSuppress();
}

PiUndoGuardNoLog::~PiUndoGuardNoLog() {
    CmRecorder::endSuppress();
    if (!_clearStack)
        return;
    if (CmCommandStack* stack = CmRecorder::getInnermostStack()) {
        try {
            stack->clear();
        } catch (...) {
            // Observers of the stack may throw; a destructor must not.
        }
    }
}

} // namespace Zr
