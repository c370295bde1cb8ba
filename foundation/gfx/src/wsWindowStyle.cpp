// The standard window styles.
#include "wsWindowStyle.h"

#include "exBase.h"
#include "wsScreen.h"

namespace Zr {

WsWindowStyle WsWindowStyleUtils::getNormalWindowStyle(GeRectangle<int> const& rect, int depth,
                                                       bool border, bool titleBar, bool taskBar,
                                                       WsWindowStyle::Stacking stacking,
                                                       bool closeButton) {
    WsWindowStyle s;
    s.setRect(rect);
    s.setDepth(depth);
    s.setBorder(border);
    s.setTitleBar(titleBar);
    s.setTaskBar(taskBar);
    s.setStacking(stacking);
    s.setCloseButton(closeButton);
    return s;
}

WsWindowStyle WsWindowStyleUtils::getFullscreenWindowStyle(int depth, bool taskBar) {
    GeVector2<int> size = WsScreen::getInstance().getSize();
    WsWindowStyle s;
    s.setRect({0, size.x, 0, size.y});
    s.setDepth(depth);
    s.setBorder(false);
    s.setTitleBar(false);
    s.setTaskBar(taskBar);
    s.setCloseButton(false);
    s.setResizable(false);
    s.setFullscreen(true);
    return s;
}

WsWindowStyle WsWindowStyleUtils::getSplashWindowStyle(GeVector2<int> const& size, int depth) {
    ZR_ASSERT(size.x >= 0 && size.y >= 0);
    GeVector2<int> screen = WsScreen::getInstance().getSize();
    int x = (screen.x - size.x) / 2;
    int y = (screen.y - size.y) / 2;
    WsWindowStyle s;
    s.setRect({x, x + size.x, y, y + size.y});
    s.setDepth(depth);
    s.setBorder(false);
    s.setTitleBar(false);
    s.setTaskBar(false);
    s.setStacking(WsWindowStyle::StackAlwaysOnTop);
    s.setCloseButton(false);
    s.setResizable(false);
    s.setSplash(true);
    return s;
}

WsWindowStyle WsWindowStyleUtils::getSubWindowStyle(WsWindow* parent, GeRectangle<int> const& rect,
                                                    bool border) {
    ZR_ASSERT(parent != nullptr);
    WsWindowStyle s;
    s.setRect(rect);
    s.setBorder(border);
    s.setTitleBar(false);
    s.setTaskBar(false);
    s.setCloseButton(false);
    s.setParent(parent);
    return s;
}

} // namespace Zr
