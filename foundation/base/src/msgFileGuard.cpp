// MsgFileGuard: loading and unloading of a message file of the resources directory.
#include "msgFileGuard.h"

#include "exBase.h"
#include "inPaths.h"

namespace Zr {

MsgFileGuard::MsgFileGuard(std::string const& fileName) {
    try {
        _id = MsgServer::getInstance().loadFile(InPaths::getResourcesDir() + OsFilePath(fileName));
    } catch (std::exception const& e) {
        // A message file is never worth failing a start-up for.
        ExStdout::printAtomically(fileName + ": cannot load the message file: " + e.what());
    }
}

MsgFileGuard::~MsgFileGuard() {
    if (_id != 0)
        MsgServer::getInstance().removeFile(_id);
}

} // namespace Zr
