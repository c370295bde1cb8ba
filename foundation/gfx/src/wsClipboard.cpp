// The clipboard, kept within the process.
#include "wsClipboard.h"

namespace Zr {

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
