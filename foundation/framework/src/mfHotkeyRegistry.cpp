// The installed hotkey registry of the framework.
#include "mfHotkeyRegistry.h"

namespace Zr {

namespace {
MfHotkeyRegistry* installedRegistry = nullptr;
}

MfHotkeyRegistry* MfHotkeyRegistry::getInstance() {
    return installedRegistry;
}

void MfHotkeyRegistry::setInstance(MfHotkeyRegistry* registry) {
    installedRegistry = registry;
}

MfHotkeyRegistry::~MfHotkeyRegistry() {
    if (installedRegistry == this)
        installedRegistry = nullptr;
}

} // namespace Zr
