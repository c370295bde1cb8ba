// WsSdlWinMgr: the SDL window system behind WsWinMgr. It makes WsSdlWindows, finds them by
// SDL's window id, tracks the window whose OpenGL context is current, and holds the OpenGL
// backend that the current context draws through.
#pragma once

#include "smGlOpenGl.h"
#include "wsWinMgr.h"

#include <cstdint>
#include <unordered_map>

namespace Zr {

class WsSdlWindow;

class WsSdlWinMgr : public WsWinMgrBackend {
public:
    WsSdlWinMgr();
    ~WsSdlWinMgr() override;

    // The one installed while SDL is active, else null.
    static WsSdlWinMgr* getActive();

    RCShdPtr<WsWindow> createWindow(LiString const& name, LiString const& iconName,
                                    WsWindowStyle const& style) override;
    void setKeyAutoRepeat(bool on) override { _keyAutoRepeat = on; }
    bool isKeyAutoRepeat() const { return _keyAutoRepeat; }

    // The live window with that SDL id, or null. Loop thread only.
    WsSdlWindow* findBySdlId(std::uint32_t sdlId) const;
    // The window over the X window `nativeId`; null if none is ours.
    WsSdlWindow* findByNativeId(std::uint32_t nativeId) const;
    // Makes current the context that every window's context shares textures and display lists
    // with, creating it (on a hidden 1x1 window) the first time. Because this context lives as
    // long as the window system, what one window uploads (glyph atlases, icons) stays valid
    // after that window and all others are closed. False when it cannot be made; windows then
    // share nothing.
    bool makeShareRootCurrent();

    SmGlOpenGl& getGlBackend() { return _gl; }
    WsSdlWindow* getCurrentWindow() const { return _current; }

private:
    friend class WsSdlWindow;
    void add(WsSdlWindow* window);
    void remove(WsSdlWindow* window);
    void setCurrentWindow(WsSdlWindow* window) { _current = window; }
    // Records the visual of the first context for WsDrawable; its context is current.
    void notePixelFormat();

    void destroyShareRoot();

    std::unordered_map<std::uint32_t, WsSdlWindow*> _windows;
    // The hidden window and context at the root of the share group (SDL_Window*, SDL_GLContext).
    void* _shareRootWindow = nullptr;
    void* _shareRootContext = nullptr;
    bool _shareRootFailed = false;
    WsSdlWindow* _current = nullptr;
    SmGlOpenGl _gl;
    bool _keyAutoRepeat = true;
    bool _pixelFormatKnown = false;
};

} // namespace Zr
