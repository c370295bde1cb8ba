// WsTestGfx: whether this run is without graphics (ZR_NO_GRAPHICS set to anything but empty
// or "0"); the toolkit then skips what needs a display.
#pragma once

namespace Zr {

struct WsTestGfx {
    static bool isNoGraphicsRequested();
};

} // namespace Zr
