// Start-up and exit of the "uiresources" package.
#pragma once

namespace Zr {

struct UiResourcesInit {
    // Log group "UiResources" and the message file "uiresources.msg".
    static void init();
    static void exit();
};

} // namespace Zr
