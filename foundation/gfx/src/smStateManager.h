// SmStateManager: creates the OpenGL state caches, one per window, and holds the default one
// that exists from the start so that drawing code runs without a window.
#pragma once

#include "rcBase.h"
#include "smContext.h"

namespace Zr {

class SmStateManager {
public:
    static SmStateManager& getInstance();
    UPtr<SmContext> createContext();
    SmContext& getDefaultContext() { return *_defaultContext; }

private:
    SmStateManager();
    UPtr<SmContext> _defaultContext;
};

} // namespace Zr
