// The common part of every window: registration under an id, and the callback lists.
#include "wsWindow.h"

#include "smStateManager.h"
#include "wsWinMgr.h"

namespace Zr {

WsWindow::WsWindow(LiString name, LiString iconName, WsWindowStyle const& style)
    : _name(std::move(name)), _iconName(std::move(iconName)), _style(style),
      _geometry(style.getRect()), _context(SmStateManager::getInstance().createContext()) {
    _id = WsWinMgr::getInstance().registerWindow(this);
}

WsWindow::~WsWindow() {
    WsWinMgr::getInstance().unregisterWindow(_id);
}

void WsWindow::notifyResize(GeRectangle<int> const& r) {
    _resizeCbs.call(r);
}

void WsWindow::notifyExpose(GeRectangle<int> const& r) {
    _exposeCbs.call(r);
}

void WsWindow::notifyRedraw() {
    _redrawCbs.call();
}

} // namespace Zr
