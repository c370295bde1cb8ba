// UiWindowImp: the private record of a UiWindow (its system window, root container, redraw
// flag, stencil debugging mode, swap count and draw timings), and the OpenGL set-up and
// tear-down of one redraw, UiWindowInitState and UiWindowExitState.
#pragma once

#include "uiContainer.h"

#include "wsWindow.h"
#include "wsWindowStyle.h"

#include <array>
#include <utility>
#include <vector>

namespace Zr {

class UiWindow;

class UiWindowImp : public RCObject {
public:
    explicit UiWindowImp(UiWindow* window);
    ~UiWindowImp() override;

    // Steps the stencil mode 0 -> 1 -> 2 -> 0 and repaints.
    void stepStencilMode();
    // The root's hotkey handler: steps the stencil mode on the entry "Toggle Stencil Mode".
    void onHotkey(EvEvent& event);
    // The hotkey registry's entry for "Toggle Stencil Mode"; -1 while it has none.
    static int StencilHotkeyEntry;
    // The three handlers on the WsWindow.
    void onResize(GeRectangle<int> const& rect);
    void onExpose(GeRectangle<int> const& rect);
    void onRedraw();

    RCShdPtr<WsWindow> _osWindow;
    LiString _name = "SubWindow";
    bool _needsRedraw = false;
    int _stencilMode = 0;
    CbMethod<UiWindowImp, EvEvent> _hotkeyHandler;
    RCShdPtr<UiContainer> _root;
    CbDispatcher<EvEvent> _clearWindowCbs;
    UiWindow* _window;
    WsWindowStyle _style;
    unsigned _flags = 0;
    int _swapCount = 0;
    // Per redraw: seconds spent drawing, seconds spent swapping.
    std::vector<std::pair<double, double>> _intervals;
    std::size_t _nextInterval = 0; // where the next one goes once the ring is full
    CbMethod<UiWindowImp, GeRectangle<int> const> _resizeHandler;
    CbMethod<UiWindowImp, GeRectangle<int> const> _exposeHandler;
    CbMethod<UiWindowImp, CbEmptyType> _redrawHandler;
};

// Sets a frame up for drawing the window: viewport, pixel-exact projection, and the stencil
// counting of the debugging modes.
class UiWindowInitState {
public:
    UiWindowInitState(GeRectangle<int> const& windowRect, int stencilMode)
        : _rect(windowRect), _stencilMode(stencilMode) {}
    void apply() const;
    // Whether the visual has stencil bits enough to count overdraw; warns once if not.
    static bool checkStencilBits();
    // Forgets the result of the check: after the window system changed its visual.
    static void resetStencilCheck();

private:
    GeRectangle<int> _rect;
    int _stencilMode;
};

// In a stencil mode, turns the counts of the stencil buffer into a heat map over the window.
class UiWindowExitState {
public:
    UiWindowExitState(GeRectangle<int> const& windowRect, int stencilMode)
        : _rect(windowRect), _stencilMode(stencilMode) {}
    void apply() const;

    // The four 256-entry pixel maps (red, green, blue, alpha), 16-bit values.
    using PixelMap = std::array<unsigned short, 256>;
    static std::array<PixelMap, 4> const& getHeatMapTables();
    // Builds the tables; the package start-up calls it once.
    static void buildHeatMapTables();

private:
    GeRectangle<int> _rect;
    int _stencilMode;
};

} // namespace Zr
