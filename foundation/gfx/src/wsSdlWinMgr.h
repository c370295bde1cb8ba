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
    // Any live window that has an OpenGL context, to share display lists and textures with.
    WsSdlWindow* getShareWindow() const;

    SmGlOpenGl& getGlBackend() { return _gl; }
    WsSdlWindow* getCurrentWindow() const { return _current; }

private:
    friend class WsSdlWindow;
    void add(WsSdlWindow* window);
    void remove(WsSdlWindow* window);
    void setCurrentWindow(WsSdlWindow* window) { _current = window; }
    // Records the visual of the first context for WsDrawable; its context is current.
    void notePixelFormat();

    std::unordered_map<std::uint32_t, WsSdlWindow*> _windows;
    WsSdlWindow* _current = nullptr;
    SmGlOpenGl _gl;
    bool _keyAutoRepeat = true;
    bool _pixelFormatKnown = false;
};

} // namespace Zr
