// WsWindowStyle: how a window of the windowing layer looks and where it lies, and
// WsWindowStyleUtils, the styles the toolkit asks for: normal, fullscreen, splash, sub-window.
#pragma once

#include "gePoint2.h"
#include "geRectangle.h"

namespace Zr {

class WsWindow;

class WsWindowStyle {
public:
    enum Stacking : int { StackNormal = 0, StackAlwaysOnTop = 1, StackAlwaysBelow = 2 };

    WsWindowStyle() = default;

    // The geometry asked for: screen pixels for a top-level window, the parent's for a
    // sub-window; y grows upward.
    GeRectangle<int> const& getRect() const { return _rect; }
    void setRect(GeRectangle<int> const& r) { _rect = r; }
    // Bits per pixel of the colour buffer.
    int getDepth() const { return _depth; }
    void setDepth(int d) { _depth = d; }
    bool hasBorder() const { return _border; }
    void setBorder(bool b) { _border = b; }
    bool hasTitleBar() const { return _titleBar; }
    void setTitleBar(bool b) { _titleBar = b; }
    // Whether the window shows in the desktop's task bar.
    bool hasTaskBar() const { return _taskBar; }
    void setTaskBar(bool b) { _taskBar = b; }
    Stacking getStacking() const { return _stacking; }
    void setStacking(Stacking s) { _stacking = s; }
    bool hasCloseButton() const { return _closeButton; }
    void setCloseButton(bool b) { _closeButton = b; }
    bool isFullscreen() const { return _fullscreen; }
    void setFullscreen(bool b) { _fullscreen = b; }
    bool isSplash() const { return _splash; }
    void setSplash(bool b) { _splash = b; }
    // Whether the user may resize a top-level window with a border; on by default.
    bool isResizable() const { return _resizable; }
    void setResizable(bool b) { _resizable = b; }
    // The window this one lies in; null for a top-level window. Not owned.
    WsWindow* getParent() const { return _parent; }
    void setParent(WsWindow* p) { _parent = p; }
    bool isMainWindow() const { return _mainWindow; }
    void setMainWindow(bool b) { _mainWindow = b; }

private:
    GeRectangle<int> _rect;
    int _depth = 24;
    bool _border = true;
    bool _titleBar = true;
    bool _taskBar = true;
    Stacking _stacking = StackNormal;
    bool _closeButton = true;
    bool _fullscreen = false;
    bool _splash = false;
    bool _resizable = true;
    WsWindow* _parent = nullptr;
    bool _mainWindow = false;
};

struct WsWindowStyleUtils {
    static WsWindowStyle
    getNormalWindowStyle(GeRectangle<int> const& rect, int depth = 24, bool border = true,
                         bool titleBar = true, bool taskBar = true,
                         WsWindowStyle::Stacking stacking = WsWindowStyle::StackNormal,
                         bool closeButton = true);
    // Covers the whole screen.
    static WsWindowStyle getFullscreenWindowStyle(int depth = 24, bool taskBar = false);
    // Borderless, on top, centred on the screen.
    static WsWindowStyle getSplashWindowStyle(GeVector2<int> const& size, int depth = 24);
    // A window inside `parent`, placed at `rect` in the parent's coordinates.
    static WsWindowStyle getSubWindowStyle(WsWindow* parent, GeRectangle<int> const& rect,
                                           bool border = false);
};

} // namespace Zr
