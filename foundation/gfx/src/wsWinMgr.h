// WsWinMgr: creates the windows, through the installed backend or else as headless windows,
// finds them by id, and holds the key auto-repeat setting.
#pragma once

#include "evEvent.h"
#include "liString.h"
#include "rcBase.h"
#include "wsWindow.h"
#include "wsWindowStyle.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace Zr {

// What a real window system plugs in.
class WsWinMgrBackend {
public:
    virtual ~WsWinMgrBackend();
    virtual RCShdPtr<WsWindow> createWindow(LiString const& name, LiString const& iconName,
                                            WsWindowStyle const& style) = 0;
    virtual void setKeyAutoRepeat(bool on);
};

class WsWinMgr {
public:
    static WsWinMgr& getInstance();

    WsWinMgr(WsWinMgr const&) = delete;
    WsWinMgr& operator=(WsWinMgr const&) = delete;
    ~WsWinMgr();

    // A new window, not yet mapped. A sub-window style needs a parent window.
    RCShdPtr<WsWindow> createWindow(LiString const& name, LiString const& iconName,
                                    WsWindowStyle const& style);
    void setKeyAutoRepeat(bool on);
    bool getKeyAutoRepeat() const;
    // Installs a window system; null goes back to headless windows. Windows already made
    // stay as they are.
    void setBackend(OPtr<WsWinMgrBackend> backend);
    bool hasBackend() const;

    // The live window with that id, or null.
    WsWindow* findWindow(WsWindowId id) const;
    int getNbWindows() const;
    // The live windows in the order they were created.
    std::vector<WsWindow*> getWindows() const;

private:
    friend class WsWindow;
    WsWinMgr();
    WsWindowId registerWindow(WsWindow* window);
    void unregisterWindow(WsWindowId id);

    mutable std::mutex _mutex;
    std::unordered_map<WsWindowId, WsWindow*> _windows;
    WsWindowId _lastId = 0;
    OPtr<WsWinMgrBackend> _backend;
    bool _keyAutoRepeat = true;
};

} // namespace Zr
