// The clipboard: the installed window system's, else kept within the process.
#include "wsClipboard.h"

namespace Zr {

WsClipboardBackend::~WsClipboardBackend() = default;

WsClipboard& WsClipboard::getInstance() {
    static WsClipboard instance;
    return instance;
}

void WsClipboard::setText(std::string const& text) {
    std::lock_guard<std::mutex> lock(_mutex);
    if (_backend)
        _backend->setText(text);
    else
        _text = text;
}

std::string WsClipboard::getText() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _backend ? _backend->getText() : _text;
}

bool WsClipboard::hasText() const {
    return !getText().empty();
}

void WsClipboard::setBackend(WsClipboardBackend* backend) {
    std::lock_guard<std::mutex> lock(_mutex);
    _backend = backend;
}

} // namespace Zr
