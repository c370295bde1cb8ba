// The headless window: state kept in memory, callbacks fired at once.
#include "wsHeadlessWindow.h"

#include "wsScreen.h"

namespace Zr {

WsHeadlessWindow::WsHeadlessWindow(LiString name, LiString iconName, WsWindowStyle const& style)
    : WsWindow(std::move(name), std::move(iconName), style), _fullscreen(style.isFullscreen()) {}

void WsHeadlessWindow::setSize(GeRectangle<int> const& rect) {
    ZR_ASSERT(rect.width() >= 0 && rect.height() >= 0);
    if (rect == getGeometry())
        return;
    simulateResize(rect);
}

void WsHeadlessWindow::warpPointer(int x, int y) {
    _warpPosition = {x, y};
    ++_nbWarps;
}

void WsHeadlessWindow::makeCurrent() {
    ++_nbMakeCurrent;
    getContext().makeCurrent();
}

void WsHeadlessWindow::setFullscreen(bool fullscreen) {
    if (fullscreen == _fullscreen)
        return;
    _fullscreen = fullscreen;
    if (fullscreen) {
        _geometryBeforeFullscreen = getGeometry();
        GeVector2<int> size = WsScreen::getInstance().getSize();
        simulateResize({0, size.x, 0, size.y});
    } else {
        simulateResize(_geometryBeforeFullscreen);
    }
}

void WsHeadlessWindow::simulateResize(GeRectangle<int> const& rect) {
    setGeometryValue(rect);
    notifyResize(rect);
}

void WsHeadlessWindow::simulateExpose(GeRectangle<int> const& rect) {
    notifyExpose(rect);
}

void WsHeadlessWindow::simulateRedraw() {
    notifyRedraw();
}

} // namespace Zr
