// UiWindow: binds a widget tree to a window of the windowing layer and an OpenGL context, and
// turns damage into one repaint per loop turn. A plain UiWindow is a child window inside
// another window; UiTopLevel is the top-level kind.
#pragma once

#include "uiContainer.h"

#include "osFilePath.h"
#include "wsWindow.h"
#include "wsWindowStyle.h"

#include <cstdint>
#include <list>
#include <vector>

namespace Zr {

class SmContext;
class UiWindowImp;

class UiWindow : public UiContainer {
public:
    static RCShdPtr<UiWindow> create(UiContainer* parent, LiString const& name,
                                     UiResTable const* table, WsWindowStyle const& style,
                                     unsigned flags = 0);

    void initialize(UiResTable const* table);
    void setOSWindow(RCShdPtr<WsWindow> const& window);
    RCShdPtr<WsWindow> const& getOSWindow() const;
    // Where the window's content goes: a container that always fills the window.
    RCShdPtr<UiContainer> const& getRootContainer() const;
    // Repaints the marks if anything is damaged; returns whether it drew.
    bool redraw();
    virtual void swapBuffers();
    // Repaints the whole window and reads it back before the swap: width x height RGBA bytes,
    // top row first (as WsScreenshot gives them). Empty without a system window.
    std::vector<std::uint8_t> readPixels();
    // readPixels written as a PNG file; throws WsScreenshot::ExWriteFailed naming the file.
    void writeScreenshot(OsFilePath const& path);
    // Damage somewhere in the tree: the loop will redraw this window at the end of its turn.
    void markNotify();
    // A mark over `rect` (pixels that will be repainted) was made in this window's tree. Once
    // the marks made since the last redraw cover, summed, twice the window's area, they are
    // merged into one repaint of the whole window (see isRepaintMerged).
    void noteMark(GeRectangle<int> const& rect);
    // Whether the next redraw repaints the whole window into both buffers: a mark made until
    // then has nothing to add and returns at once.
    bool isRepaintMerged() const { return _repaintMerged; }
    bool needsRedraw() const;
    void setWindowName(LiString const& name);
    LiString const& getWindowName() const;
    void setPointerPosition(int x, int y);
    SmContext* getContext() const { return _context.get(); }
    // False in the stencil debugging mode that counts clears, so backgrounds are painted.
    bool isGlClearAllowed() const;
    GePoint2<int> mapFromParentToParentWindow(GePoint2<int> const& p) const;
    GePoint2<int> mapFromParentWindowToParent(GePoint2<int> const& p) const;
    void snapStatistics();
    bool isFullscreen() const;
    void submitDeferredMove(RCShdPtr<UiWidget> const& widget);
    void addClearWindowCb(CbHandler<EvEvent>* h);
    void removeClearWindowCb(CbHandler<EvEvent>* h);
    void clearWindow();
    int getSwapCount() const;
    int getStencilMode() const;
    void setStencilMode(int mode);
    // Steps the stencil overdraw view 0 -> 1 -> 2 -> 0, as the hotkey "Toggle Stencil Mode" does.
    void toggleStencilMode();

    bool setMap(bool map, bool checkParent) override;
    UiWidget* findWidgetAt(GePoint2<int> const& p) override;
    void processEvent(EvEvent& event) override;
    void expose(GeRectangle<int> const& clip, GePoint2<int> const& origin) override;
    void acceptVisitor(UiWidgetVisitor& visitor) override;
    RttiType<WidgetRttiType> const& getNodeType() const override;
    void setWindow(UiWindow* window) override;
    void setRect(GeRectangle<int> const& rect, bool notify = true) override;
    void markUp(GeRectangle<int>& rect, UiWidget* child) override;

protected:
    UiWindow(UiContainer* parent, LiString const& name, WsWindowStyle const& style, unsigned flags);
    ~UiWindow() override;
    // The part of construction that hands out references to the window (the root container,
    // the system window): run by create once a shared pointer holds the new window.
    void buildRoot(UiResTable const* table);
    // Translates by the canvas minima of the ancestors below the parent window.
    GeRectangle<int> mapRectToParentWindow(GeRectangle<int> const& rect) const;
    // Paints the marks and swaps; with `readBack` the back buffer is read into it first.
    bool redrawAndRead(std::vector<std::uint8_t>* readBack);

    RCShdPtr<UiWindowImp> _imp;
    UPtr<SmContext> _context;
    std::list<RCShdPtr<UiWidget>> _deferredMoves;
    // The pixels the marks since the last redraw cover, summed (overlaps counted twice).
    std::int64_t _markedArea = 0;
    bool _repaintMerged = false;
    bool _drawing = false; // marks made by draw callbacks are drawn by the redraw under way
};

} // namespace Zr
