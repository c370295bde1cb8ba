// WsDrawable: what the visual of the windows offers, among it the stencil bits that the
// toolkit's clipping of non-rectangular widgets needs.
#pragma once

namespace Zr {

struct WsPixelFormat {
    int redBits = 8;
    int greenBits = 8;
    int blueBits = 8;
    int alphaBits = 8;
    int depthBits = 24;
    int stencilBits = 8;
    bool doubleBuffered = true;
    bool operator==(WsPixelFormat const&) const = default;
};

class WsDrawable {
public:
    static WsPixelFormat getPixelFormat();
    // Set by the window system once it has chosen its visual.
    static void setPixelFormat(WsPixelFormat const& format);
};

} // namespace Zr
