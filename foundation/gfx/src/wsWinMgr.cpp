// The window manager: window creation through the backend or headless, and the id table.
#include "wsWinMgr.h"

#include "wsHeadlessWindow.h"

#include <algorithm>

namespace Zr {

WsWinMgrBackend::~WsWinMgrBackend() = default;

void WsWinMgrBackend::setKeyAutoRepeat(bool) {}

WsWinMgr& WsWinMgr::getInstance() {
    static WsWinMgr instance;
    return instance;
}

WsWinMgr::WsWinMgr() = default;
WsWinMgr::~WsWinMgr() = default;

RCShdPtr<WsWindow> WsWinMgr::createWindow(LiString const& name, LiString const& iconName,
                                          WsWindowStyle const& style) {
    GeRectangle<int> const& r = style.getRect();
    ZR_ASSERT(r.width() >= 0 && r.height() >= 0);
    if (WsWindow* parent = style.getParent())
        ZR_ASSERT_TEXT(findWindow(parent->getId()) == parent, "parent window is not alive");
    if (_backend)
        return _backend->createWindow(name, iconName, style);
    return makeShared<WsHeadlessWindow>(name, iconName, style);
}

void WsWinMgr::setKeyAutoRepeat(bool on) {
    {
        std::lock_guard<std::mutex> lock(_mutex);
        _keyAutoRepeat = on;
    }
    if (_backend)
        _backend->setKeyAutoRepeat(on);
}

bool WsWinMgr::getKeyAutoRepeat() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _keyAutoRepeat;
}

void WsWinMgr::setBackend(OPtr<WsWinMgrBackend> backend) {
    _backend = std::move(backend);
    if (_backend)
        _backend->setKeyAutoRepeat(getKeyAutoRepeat());
}

bool WsWinMgr::hasBackend() const {
    return _backend != nullptr;
}

WsWindow* WsWinMgr::findWindow(WsWindowId id) const {
    std::lock_guard<std::mutex> lock(_mutex);
    auto it = _windows.find(id);
    return it == _windows.end() ? nullptr : it->second;
}

int WsWinMgr::getNbWindows() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return static_cast<int>(_windows.size());
}

std::vector<WsWindow*> WsWinMgr::getWindows() const {
    std::vector<std::pair<WsWindowId, WsWindow*>> entries;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        entries.assign(_windows.begin(), _windows.end());
    }
    // Ids grow with creation, so they give the creation order.
    std::sort(entries.begin(), entries.end(),
              [](auto const& a, auto const& b) { return a.first < b.first; });
    std::vector<WsWindow*> windows;
    windows.reserve(entries.size());
    for (auto const& e : entries)
        windows.push_back(e.second);
    return windows;
}

WsWindowId WsWinMgr::registerWindow(WsWindow* window) {
    std::lock_guard<std::mutex> lock(_mutex);
    WsWindowId id = ++_lastId;
    _windows.emplace(id, window);
    return id;
}

void WsWinMgr::unregisterWindow(WsWindowId id) {
    std::lock_guard<std::mutex> lock(_mutex);
    _windows.erase(id);
}

} // namespace Zr
