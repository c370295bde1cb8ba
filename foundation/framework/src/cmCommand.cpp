// Undo entries: the base command and the command of saved states.
#include "cmCommand.h"

namespace Zr {

CmCommand::~CmCommand() = default;

CmStateCommand::CmStateCommand(std::string label, std::vector<Change> changes)
    : CmCommand(std::move(label)), _changes(std::move(changes)) {}

CmStateCommand::~CmStateCommand() = default;

void CmStateCommand::execute() {
    for (Change& c : _changes)
        c.object->restoreState(*c.after);
}

void CmStateCommand::undo() {
    for (auto it = _changes.rbegin(); it != _changes.rend(); ++it)
        it->object->restoreState(*it->before);
}

bool CmStateCommand::touches(CmRecordable const* object) const {
    for (Change const& c : _changes)
        if (c.object.get() == object)
            return true;
    return false;
}

} // namespace Zr
