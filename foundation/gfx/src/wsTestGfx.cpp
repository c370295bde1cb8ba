// The switch for runs without graphics.
#include "wsTestGfx.h"

#include <cstdlib>
#include <cstring>

namespace Zr {

bool WsTestGfx::isNoGraphicsRequested() {
    // Read every time: a test may change the environment.
    char const* value = std::getenv("ZR_NO_GRAPHICS");
    return value && *value && std::strcmp(value, "0") != 0;
}

} // namespace Zr
