// WsClipboard: text in and out of the clipboard. Kept within the process until a window
// system installs a backend that connects it to the desktop's.
#pragma once

#include <mutex>
#include <string>

namespace Zr {

// What a window system plugs in to reach the desktop's clipboard.
class WsClipboardBackend {
public:
    virtual ~WsClipboardBackend();
    virtual void setText(std::string const& text) = 0;
    virtual std::string getText() const = 0;
};

class WsClipboard {
public:
    static WsClipboard& getInstance();
    void setText(std::string const& text);
    std::string getText() const;
    bool hasText() const;
    // Installs a window system's clipboard (not owned); null goes back to the process's own.
    void setBackend(WsClipboardBackend* backend);

private:
    WsClipboard() = default;
    mutable std::mutex _mutex;
    std::string _text;
    WsClipboardBackend* _backend = nullptr;
};

} // namespace Zr
