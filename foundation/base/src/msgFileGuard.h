// MsgFileGuard: keeps one ".msg" file of the resources directory loaded in the MsgServer for
// the guard's lifetime.
#pragma once

#include "msgServer.h"

#include <string>

namespace Zr {

// Keeps one message file of the resources directory loaded for the guard's lifetime.
class MsgFileGuard {
public:
    // Loads <InPaths::getResourcesDir()>/<fileName>; problems are reported, never thrown.
    explicit MsgFileGuard(std::string const& fileName);
    ~MsgFileGuard();
    MsgFileGuard(MsgFileGuard const&) = delete;
    MsgFileGuard& operator=(MsgFileGuard const&) = delete;

private:
    MsgServer::FileId _id = 0;
};

} // namespace Zr
