// Set-up shared by the fuzz targets: the "UiResources" log group the readers report to, with
// log lines and user messages swallowed so that a run spends its time reading, not printing.
#pragma once

#include "uiLogGroups.h"

#include "lgLog.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "msgBase.h"
#include "msgProtocol.h"

#include <ostream>
#include <streambuf>

namespace Zr::FuzzSupport {

// Counts the warnings shown since the last reset.
inline int& reportCount() {
    static int count = 0;
    return count;
}

inline void initialize() {
    static LgMinorGroup group(LgMajorGroup::getInstanceForName("Gfx"), "UiResources");
    UiLogGroups::setUiResources(&group);
    static std::streambuf* const nowhere = nullptr;
    static std::ostream discard(nowhere);
    LgLog::_initialized = true;
    LgLog::setOutputStream(&discard);
    MsgProtocol::setDisplayHandler([](MsgBase const&) { ++reportCount(); });
}

} // namespace Zr::FuzzSupport
