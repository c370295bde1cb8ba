// WsSdlWindow: a window of the windowing layer as an SDL window with its own OpenGL context,
// sharing display lists and textures with the other windows' contexts. A sub-window is a
// borderless SDL window kept over its parent's area.
#pragma once

#include "exBase.h"
#include "gePoint2.h"
#include "wsWindow.h"

#include <cstdint>
#include <vector>

struct SDL_Window;

namespace Zr {

class WsSdlWinMgr;

class WsSdlWindow : public WsWindow {
public:
    ZR_DECLARE_EXCEPTION(ExCreateFailed, ExBase);

    // Creates the SDL window, hidden, and its context. Throws ExCreateFailed with SDL's
    // reason when SDL cannot.
    WsSdlWindow(LiString name, LiString iconName, WsWindowStyle const& style, WsSdlWinMgr& mgr);
    ~WsSdlWindow() override;

    void map() override;
    void unmap() override;
    bool isMapped() const override;
    void swap() override;
    // Moves and resizes at once; the resize handlers run before this returns, if it changed.
    void setSize(GeRectangle<int> const& rect) override;
    void setTitle(std::string const& title) override;
    void setCursor(RCShdPtr<WsCursor> cursor) override;
    void warpPointer(int x, int y) override;
    void makeCurrent() override;
    void iconify() override;
    // Covers the screen, borderless; leaving it restores the border and the geometry.
    void setFullscreen(bool fullscreen) override;

    SDL_Window* getSdlWindow() const { return _window; }
    std::uint32_t getSdlId() const { return _sdlId; }
    RCShdPtr<WsCursor> const& getCursor() const { return _cursor; }
    bool isFullscreen() const { return _fullscreen; }

    // From SDL's window coordinates (y down from the top) to the window's (y up from the
    // bottom left).
    GePoint2<int> toWindowCoord(int sdlX, int sdlY) const;
    // Where the pointer last was over this window, in window coordinates.
    GePoint2<int> getPointerPosition() const { return _pointer; }
    void setPointerPosition(GePoint2<int> const& p) { _pointer = p; }

    // What the event translation reports of the window system, on the loop's thread.
    void handleShown();
    void handleHidden();
    // The window was destroyed under the program (by another client, or the display): reported
    // once, as a close.
    void handleLost();
    // The X window behind this one; 0 on other drivers.
    std::uint32_t getNativeId() const { return _nativeId; }
    void handleExposed();
    // The window moved or changed size on the screen (a top-level window only: sub-windows
    // are placed by their parent).
    void handleConfigured();
    void handleClose();
    void handlePointerEnter();

private:
    // SDL's screen position of the window's top-left corner, for a geometry.
    GePoint2<int> toSdlTopLeft(GeRectangle<int> const& geometry) const;
    // The geometry as SDL has it now.
    GeRectangle<int> readSdlGeometry() const;
    // Takes a new geometry: records it, places the sub-windows, calls the resize handlers
    // and tells the queue.
    void takeGeometry(GeRectangle<int> const& r);
    void placeChildren();
    void applyCursor();

    WsSdlWinMgr& _mgr;
    SDL_Window* _window = nullptr;
    void* _glContext = nullptr;
    std::uint32_t _sdlId = 0;
    WsSdlWindow* _parentWindow = nullptr;
    std::uint32_t _nativeId = 0;
    void* _nativeDisplay = nullptr;
    bool _lost = false;
    std::vector<WsSdlWindow*> _children;
    RCShdPtr<WsCursor> _cursor;
    GePoint2<int> _pointer;
    bool _fullscreen = false;
    GeRectangle<int> _geometryBeforeFullscreen;
};

} // namespace Zr
