// WsClipboard: text in and out of the clipboard. Kept within the process until a window
// system connects it to the desktop's.
#pragma once

#include <mutex>
#include <string>

namespace Zr {

class WsClipboard {
public:
    static WsClipboard& getInstance();
    void setText(std::string const& text);
    std::string getText() const;
    bool hasText() const;

private:
    WsClipboard() = default;
    mutable std::mutex _mutex;
    std::string _text;
};

} // namespace Zr
