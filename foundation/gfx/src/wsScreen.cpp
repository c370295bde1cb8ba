// The screen size, 1920 by 1080 until a window system sets it.
#include "wsScreen.h"

namespace Zr {

WsScreen& WsScreen::getInstance() {
    static WsScreen instance;
    return instance;
}

GeVector2<int> WsScreen::getSize() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _size;
}

void WsScreen::setSize(GeVector2<int> const& size) {
    std::lock_guard<std::mutex> lock(_mutex);
    _size = size;
}

} // namespace Zr
