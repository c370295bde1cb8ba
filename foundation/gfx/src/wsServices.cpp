// The small services of the window layer: screen size, the no-graphics switch, the pixel
// format and the clipboard, all with their headless values.
#include "wsClipboard.h"
#include "wsDrawable.h"
#include "wsScreen.h"
#include "wsTestGfx.h"

#include <cstdlib>
#include <cstring>

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

bool WsTestGfx::isNoGraphicsRequested() {
    // Read every time: a test may change the environment.
    char const* value = std::getenv("ZR_NO_GRAPHICS");
    return value && *value && std::strcmp(value, "0") != 0;
}

namespace {
std::mutex pixelFormatMutex;
WsPixelFormat pixelFormat;
} // namespace

WsPixelFormat WsDrawable::getPixelFormat() {
    std::lock_guard<std::mutex> lock(pixelFormatMutex);
    return pixelFormat;
}

void WsDrawable::setPixelFormat(WsPixelFormat const& format) {
    std::lock_guard<std::mutex> lock(pixelFormatMutex);
    pixelFormat = format;
}

WsClipboard& WsClipboard::getInstance() {
    static WsClipboard instance;
    return instance;
}

void WsClipboard::setText(std::string const& text) {
    std::lock_guard<std::mutex> lock(_mutex);
    _text = text;
}

std::string WsClipboard::getText() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _text;
}

bool WsClipboard::hasText() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return !_text.empty();
}

} // namespace Zr
