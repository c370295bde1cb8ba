// The pixel format of the windows, with its headless values until a window system sets it.
#include "wsDrawable.h"

#include <mutex>

namespace Zr {

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

} // namespace Zr
