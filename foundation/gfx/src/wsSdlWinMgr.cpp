// The SDL window system behind WsWinMgr: window creation, lookup by SDL id, the visual.
#include "wsSdlWinMgr.h"

#include "wsDrawable.h"
#include "wsSdlWindow.h"

#include <SDL.h>

namespace Zr {

namespace {
WsSdlWinMgr* activeMgr = nullptr;

int glAttribute(SDL_GLattr attr) {
    int value = 0;
    return SDL_GL_GetAttribute(attr, &value) == 0 ? value : 0;
}
} // namespace

WsSdlWinMgr::WsSdlWinMgr() {
    activeMgr = this;
}

WsSdlWinMgr::~WsSdlWinMgr() {
    if (activeMgr == this)
        activeMgr = nullptr;
}

WsSdlWinMgr* WsSdlWinMgr::getActive() {
    return activeMgr;
}

RCShdPtr<WsWindow> WsSdlWinMgr::createWindow(LiString const& name, LiString const& iconName,
                                             WsWindowStyle const& style) {
    return makeShared<WsSdlWindow>(name, iconName, style, *this);
}

WsSdlWindow* WsSdlWinMgr::findBySdlId(std::uint32_t sdlId) const {
    auto it = _windows.find(sdlId);
    return it == _windows.end() ? nullptr : it->second;
}

WsSdlWindow* WsSdlWinMgr::getShareWindow() const {
    return _windows.empty() ? nullptr : _windows.begin()->second;
}

void WsSdlWinMgr::add(WsSdlWindow* window) {
    _windows[window->getSdlId()] = window;
}

void WsSdlWinMgr::remove(WsSdlWindow* window) {
    _windows.erase(window->getSdlId());
}

void WsSdlWinMgr::notePixelFormat() {
    if (_pixelFormatKnown)
        return;
    _pixelFormatKnown = true;
    WsPixelFormat format;
    format.redBits = glAttribute(SDL_GL_RED_SIZE);
    format.greenBits = glAttribute(SDL_GL_GREEN_SIZE);
    format.blueBits = glAttribute(SDL_GL_BLUE_SIZE);
    format.alphaBits = glAttribute(SDL_GL_ALPHA_SIZE);
    format.depthBits = glAttribute(SDL_GL_DEPTH_SIZE);
    format.stencilBits = glAttribute(SDL_GL_STENCIL_SIZE);
    format.doubleBuffered = glAttribute(SDL_GL_DOUBLEBUFFER) != 0;
    WsDrawable::setPixelFormat(format);
}

} // namespace Zr
