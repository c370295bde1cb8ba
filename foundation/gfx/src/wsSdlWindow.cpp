// SDL windows: creation with a shared OpenGL context, placement in the toolkit's coordinates
// (y up from the bottom left of the screen, or of the parent for a sub-window), and what the
// window system reports, turned into callbacks and queued events.
#include "wsSdlWindow.h"

#include "smGl.h"
#include "wsEventQ.h"
#include "wsEvents.h"
#include "wsScreen.h"
#include "wsSdlCursor.h"
#include "wsSdlWinMgr.h"
#include "wsX11Errors.h"

#include <SDL.h>

#include <algorithm>

namespace Zr {

namespace {

int screenHeight() {
    return WsScreen::getInstance().getSize().y;
}

// SDL windows have at least one pixel each way.
int atLeastOne(int v) {
    return std::max(1, v);
}

template <class Event, class... Args>
void post(Args&&... args) {
    WsEventQ::getInstance().postEvent(std::make_unique<Event>(std::forward<Args>(args)...));
}

} // namespace

WsSdlWindow::WsSdlWindow(LiString name, LiString iconName, WsWindowStyle const& style,
                         WsSdlWinMgr& mgr)
    : WsWindow(name, std::move(iconName), style), _mgr(mgr), _fullscreen(style.isFullscreen()) {
    _parentWindow = dynamic_cast<WsSdlWindow*>(style.getParent());
    GeRectangle<int> geometry = getGeometry();
    if (_fullscreen && !_parentWindow) {
        GeVector2<int> screen = WsScreen::getInstance().getSize();
        geometry = {0, screen.x, 0, screen.y};
        setGeometryValue(geometry);
    }

    Uint32 flags = SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN;
    if (!_parentWindow && style.isResizable() && !style.isSplash())
        flags |= SDL_WINDOW_RESIZABLE;
    if (_parentWindow || !style.hasBorder() || !style.hasTitleBar() || style.isSplash() ||
        _fullscreen)
        flags |= SDL_WINDOW_BORDERLESS;
    if (_parentWindow || !style.hasTaskBar() || style.isSplash())
        flags |= SDL_WINDOW_SKIP_TASKBAR;
    if (style.getStacking() == WsWindowStyle::StackAlwaysOnTop || style.isSplash())
        flags |= SDL_WINDOW_ALWAYS_ON_TOP;
    GePoint2<int> topLeft = toSdlTopLeft(geometry);
    _window = SDL_CreateWindow(name.str().c_str(), topLeft.x, topLeft.y,
                               atLeastOne(geometry.width()), atLeastOne(geometry.height()), flags);
    if (!_window)
        throw ExCreateFailed(__FILE__, __LINE__,
                             "Cannot create window \"" + name.str() + "\": " + SDL_GetError());

    // Share lists with the window system's root context: make it current while the new one is
    // made.
    WsSdlWindow* previous = _mgr.getCurrentWindow();
    bool const share = _mgr.makeShareRootCurrent();
    SDL_GL_SetAttribute(SDL_GL_SHARE_WITH_CURRENT_CONTEXT, share ? 1 : 0);
    _glContext = SDL_GL_CreateContext(_window);
    if (!_glContext) {
        std::string reason = SDL_GetError();
        SDL_DestroyWindow(_window);
        if (previous)
            SDL_GL_MakeCurrent(previous->_window, previous->_glContext);
        throw ExCreateFailed(__FILE__, __LINE__,
                             "Cannot create an OpenGL context for window \"" + name.str() +
                                 "\": " + reason);
    }
    _sdlId = SDL_GetWindowID(_window);
    WsX11Errors::nativeWindow(_window, _nativeId, _nativeDisplay);
    _mgr.add(this);
    _mgr.notePixelFormat();
    if (_parentWindow)
        _parentWindow->_children.push_back(this);
    // The new context is current now: give the current one back, or keep this one.
    if (previous) {
        SDL_GL_MakeCurrent(previous->_window, previous->_glContext);
    } else {
        _mgr.setCurrentWindow(nullptr);
        makeCurrent();
    }
}

WsSdlWindow::~WsSdlWindow() {
    if (_parentWindow) {
        auto& siblings = _parentWindow->_children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    for (WsSdlWindow* child : _children)
        child->_parentWindow = nullptr;
    if (_mgr.getCurrentWindow() == this) {
        SDL_GL_MakeCurrent(_window, nullptr);
        _mgr.setCurrentWindow(nullptr);
        SmGl::setBackend(nullptr);
    }
    _mgr.remove(this);
    SDL_GL_DeleteContext(_glContext);
    SDL_DestroyWindow(_window);
}

void WsSdlWindow::map() {
    if (_parentWindow)
        _parentWindow->placeChildren();
    SDL_ShowWindow(_window);
}

void WsSdlWindow::unmap() {
    SDL_HideWindow(_window);
}

bool WsSdlWindow::isMapped() const {
    return (SDL_GetWindowFlags(_window) & SDL_WINDOW_SHOWN) != 0;
}

void WsSdlWindow::swap() {
    SDL_GL_SwapWindow(_window);
}

void WsSdlWindow::setSize(GeRectangle<int> const& rect) {
    ZR_ASSERT(rect.width() >= 0 && rect.height() >= 0);
    if (rect == getGeometry())
        return;
    GePoint2<int> topLeft = toSdlTopLeft(rect);
    SDL_SetWindowSize(_window, atLeastOne(rect.width()), atLeastOne(rect.height()));
    SDL_SetWindowPosition(_window, topLeft.x, topLeft.y);
    setGeometryValue(rect);
    placeChildren();
    notifyResize(rect);
}

void WsSdlWindow::setTitle(std::string const& title) {
    SDL_SetWindowTitle(_window, title.c_str());
}

void WsSdlWindow::setCursor(RCShdPtr<WsCursor> cursor) {
    _cursor = std::move(cursor);
    // SDL has one cursor for all windows: show it now if the pointer is over this one (or
    // over none of ours), else when the pointer enters.
    SDL_Window* focus = SDL_GetMouseFocus();
    if (!focus || focus == _window)
        applyCursor();
}

void WsSdlWindow::applyCursor() {
    if (auto* cursor = dynamic_cast<WsSdlCursor*>(_cursor.get()))
        cursor->apply();
}

void WsSdlWindow::warpPointer(int x, int y) {
    SDL_WarpMouseInWindow(_window, x, atLeastOne(getGeometry().height()) - 1 - y);
    _pointer = {x, y};
}

void WsSdlWindow::makeCurrent() {
    if (_mgr.getCurrentWindow() != this || SDL_GL_GetCurrentContext() != _glContext)
        SDL_GL_MakeCurrent(_window, _glContext);
    _mgr.setCurrentWindow(this);
    SmGl::setBackend(&_mgr.getGlBackend());
    getContext().makeCurrent();
}

void WsSdlWindow::iconify() {
    SDL_MinimizeWindow(_window);
}

void WsSdlWindow::setFullscreen(bool fullscreen) {
    if (fullscreen == _fullscreen || _parentWindow)
        return;
    _fullscreen = fullscreen;
    if (fullscreen) {
        _geometryBeforeFullscreen = getGeometry();
        SDL_SetWindowBordered(_window, SDL_FALSE);
        GeVector2<int> screen = WsScreen::getInstance().getSize();
        setSize({0, screen.x, 0, screen.y});
    } else {
        WsWindowStyle const& style = getStyle();
        bool const bordered = style.hasBorder() && style.hasTitleBar() && !style.isSplash();
        SDL_SetWindowBordered(_window, bordered ? SDL_TRUE : SDL_FALSE);
        setSize(_geometryBeforeFullscreen);
    }
}

GePoint2<int> WsSdlWindow::toWindowCoord(int sdlX, int sdlY) const {
    return {sdlX, atLeastOne(getGeometry().height()) - 1 - sdlY};
}

GePoint2<int> WsSdlWindow::toSdlTopLeft(GeRectangle<int> const& geometry) const {
    if (!_parentWindow)
        return {geometry.x1, screenHeight() - (geometry.y1 + atLeastOne(geometry.height()))};
    int px = 0, py = 0;
    SDL_GetWindowPosition(_parentWindow->_window, &px, &py);
    int const parentHeight = atLeastOne(_parentWindow->getGeometry().height());
    return {px + geometry.x1, py + parentHeight - (geometry.y1 + atLeastOne(geometry.height()))};
}

GeRectangle<int> WsSdlWindow::readSdlGeometry() const {
    int x = 0, y = 0, w = 0, h = 0;
    SDL_GetWindowPosition(_window, &x, &y);
    SDL_GetWindowSize(_window, &w, &h);
    int const bottom = screenHeight() - (y + h);
    return {x, x + w, bottom, bottom + h};
}

void WsSdlWindow::takeGeometry(GeRectangle<int> const& r) {
    setGeometryValue(r);
    placeChildren();
    notifyResize(r);
    post<WsConfigureEvent>(getId(), r);
}

void WsSdlWindow::placeChildren() {
    for (WsSdlWindow* child : _children) {
        GePoint2<int> topLeft = child->toSdlTopLeft(child->getGeometry());
        SDL_SetWindowPosition(child->_window, topLeft.x, topLeft.y);
        child->placeChildren();
    }
}

void WsSdlWindow::handleShown() {
    // Without a window manager the last window shown is on top: keep the sub-windows over it.
    for (WsSdlWindow* child : _children)
        if (child->isMapped())
            SDL_RaiseWindow(child->_window);
    post<WsMapNotifyEvent>(getId());
}

void WsSdlWindow::handleHidden() {
    // A window destroyed by another client is first unmapped: find out while it is cheap.
    if (_nativeDisplay && !WsX11Errors::windowExists(_nativeDisplay, _nativeId)) {
        handleLost();
        return;
    }
    post<WsUnmapNotifyEvent>(getId());
}

void WsSdlWindow::handleLost() {
    if (_lost)
        return;
    _lost = true;
    post<WsWindowCloseEvent>(getId());
}

void WsSdlWindow::handleExposed() {
    GeRectangle<int> const& g = getGeometry();
    GeRectangle<int> region{0, g.width(), 0, g.height()};
    notifyExpose(region);
    post<WsExposeEvent>(getId(), region);
}

void WsSdlWindow::handleConfigured() {
    if (_parentWindow)
        return;
    GeRectangle<int> now = readSdlGeometry();
    GeRectangle<int> const& known = getGeometry();
    // A window asked for with no width or height is one pixel wide or high in SDL.
    GeRectangle<int> clamped{known.x1, known.x1 + atLeastOne(known.width()), known.y1,
                             known.y1 + atLeastOne(known.height())};
    if (now == clamped)
        return;
    takeGeometry(now);
}

void WsSdlWindow::handleClose() {
    post<WsWindowCloseEvent>(getId());
}

void WsSdlWindow::handlePointerEnter() {
    applyCursor();
}

} // namespace Zr
