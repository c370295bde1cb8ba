// WsHeadlessWindow: the window made when no window system is installed. It keeps its state,
// counts what it was asked to do, and lets tests fire its callbacks.
#pragma once

#include "gePoint2.h"
#include "wsWindow.h"

#include <string>

namespace Zr {

class WsHeadlessWindow : public WsWindow {
public:
    WsHeadlessWindow(LiString name, LiString iconName, WsWindowStyle const& style);

    // Mapping changes the state only: no expose follows, as nothing is on a screen.
    void map() override { _mapped = true; }
    void unmap() override { _mapped = false; }
    bool isMapped() const override { return _mapped; }
    void swap() override { ++_nbSwaps; }
    // Takes the geometry at once and calls the resize handlers if it changed.
    void setSize(GeRectangle<int> const& rect) override;
    void setTitle(std::string const& title) override { _title = title; }
    void setCursor(RCShdPtr<WsCursor> cursor) override { _cursor = std::move(cursor); }
    void warpPointer(int x, int y) override;
    void makeCurrent() override;
    void iconify() override { _iconified = true; }
    // Fullscreen covers the screen; leaving it restores the geometry from before.
    void setFullscreen(bool fullscreen) override;

    int getNbSwaps() const { return _nbSwaps; }
    int getNbMakeCurrent() const { return _nbMakeCurrent; }
    std::string const& getTitle() const { return _title; }
    RCShdPtr<WsCursor> const& getCursor() const { return _cursor; }
    GePoint2<int> getWarpPosition() const { return _warpPosition; }
    int getNbWarps() const { return _nbWarps; }
    bool isIconified() const { return _iconified; }
    bool isFullscreen() const { return _fullscreen; }

    // Test hooks: what a window system reports, delivered to the handlers at once.
    void simulateResize(GeRectangle<int> const& rect);
    void simulateExpose(GeRectangle<int> const& rect);
    void simulateRedraw();

private:
    bool _mapped = false;
    int _nbSwaps = 0;
    int _nbMakeCurrent = 0;
    std::string _title;
    RCShdPtr<WsCursor> _cursor;
    GePoint2<int> _warpPosition;
    int _nbWarps = 0;
    bool _iconified = false;
    bool _fullscreen = false;
    GeRectangle<int> _geometryBeforeFullscreen;
};

} // namespace Zr
