// WsScreen: the screen the windows open on; 1920 by 1080 pixels until a window system tells
// its real size.
#pragma once

#include "gePoint2.h"

#include <mutex>

namespace Zr {

class WsScreen {
public:
    static WsScreen& getInstance();
    GeVector2<int> getSize() const;
    // Set by the window system once it knows the display.
    void setSize(GeVector2<int> const& size);

private:
    WsScreen() = default;
    mutable std::mutex _mutex;
    GeVector2<int> _size{1920, 1080};
};

} // namespace Zr
