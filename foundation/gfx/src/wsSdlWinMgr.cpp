// The SDL window system behind WsWinMgr: window creation, lookup by SDL id, the visual.
#include "wsSdlWinMgr.h"

#include "wsDrawable.h"
#include "wsSdlWindow.h"

#include <SDL.h>
#include <dlfcn.h>
#include <link.h>

namespace Zr {

namespace {
WsSdlWinMgr* activeMgr = nullptr;

// SDL opens X libraries and Mesa its driver at run time, and closes them with the display.
// Keep every library loaded for the life of the process: a later start-up doesn't load them
// again, and what they keep until exit stays attributable to them (leak checkers cannot name
// code that is no longer mapped).
void keepLibrariesLoaded() {
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void*) {
            if (info->dlpi_name && *info->dlpi_name)
                dlopen(info->dlpi_name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
            return 0;
        },
        nullptr);
}

int glAttribute(SDL_GLattr attr) {
    int value = 0;
    return SDL_GL_GetAttribute(attr, &value) == 0 ? value : 0;
}
} // namespace

WsSdlWinMgr::WsSdlWinMgr() {
    activeMgr = this;
}

WsSdlWinMgr::~WsSdlWinMgr() {
    destroyShareRoot();
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

WsSdlWindow* WsSdlWinMgr::findByNativeId(std::uint32_t nativeId) const {
    for (auto const& [sdlId, window] : _windows)
        if (nativeId != 0 && window->getNativeId() == nativeId)
            return window;
    return nullptr;
}

WsSdlWindow* WsSdlWinMgr::findBySdlId(std::uint32_t sdlId) const {
    auto it = _windows.find(sdlId);
    return it == _windows.end() ? nullptr : it->second;
}

bool WsSdlWinMgr::makeShareRootCurrent() {
    if (!_shareRootContext && !_shareRootFailed) {
        SDL_Window* window =
            SDL_CreateWindow("ZRui share root", 0, 0, 1, 1, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
        SDL_GLContext context = nullptr;
        if (window) {
            SDL_GL_SetAttribute(SDL_GL_SHARE_WITH_CURRENT_CONTEXT, 0);
            context = SDL_GL_CreateContext(window);
        }
        if (!context) {
            if (window)
                SDL_DestroyWindow(window);
            _shareRootFailed = true;
            return false;
        }
        _shareRootWindow = window;
        _shareRootContext = context;
    }
    if (!_shareRootContext)
        return false;
    return SDL_GL_MakeCurrent(static_cast<SDL_Window*>(_shareRootWindow), _shareRootContext) == 0;
}

void WsSdlWinMgr::destroyShareRoot() {
    if (_shareRootContext) {
        SDL_GL_MakeCurrent(static_cast<SDL_Window*>(_shareRootWindow), nullptr);
        SDL_GL_DeleteContext(_shareRootContext);
    }
    if (_shareRootWindow)
        SDL_DestroyWindow(static_cast<SDL_Window*>(_shareRootWindow));
    _shareRootWindow = nullptr;
    _shareRootContext = nullptr;
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
    keepLibrariesLoaded();
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
