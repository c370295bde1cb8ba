// WsWindow: a window of the windowing layer as the toolkit sees it: an id, a geometry, the
// callbacks for resize, expose and redraw, and the operations a backend implements.
#pragma once

#include "cbDispatcher.h"
#include "evEvent.h"
#include "geRectangle.h"
#include "liString.h"
#include "rcBase.h"
#include "smContext.h"
#include "wsCursor.h"
#include "wsWindowStyle.h"

#include <string>

namespace Zr {

class WsWindow : public RCObject {
public:
    WsWindow(WsWindow const&) = delete;
    WsWindow& operator=(WsWindow const&) = delete;

    // Unique in the process and never 0; events of the window carry it.
    WsWindowId getId() const { return _id; }
    LiString const& getName() const { return _name; }
    LiString const& getIconName() const { return _iconName; }
    WsWindowStyle const& getStyle() const { return _style; }

    // Called with the new geometry when the window changed size or place.
    void addResizeCb(CbHandler<GeRectangle<int> const>* h) { _resizeCbs.addHandler(h); }
    void removeResizeCb(CbHandler<GeRectangle<int> const>* h) { _resizeCbs.removeHandler(h); }
    // Called with a region, in window coordinates, that must be painted again.
    void addExposeCb(CbHandler<GeRectangle<int> const>* h) { _exposeCbs.addHandler(h); }
    void removeExposeCb(CbHandler<GeRectangle<int> const>* h) { _exposeCbs.removeHandler(h); }
    // Called when the window layer wants the whole window drawn again.
    void addRedrawCb(CbHandler<CbEmptyType>* h) { _redrawCbs.addHandler(h); }
    void removeRedrawCb(CbHandler<CbEmptyType>* h) { _redrawCbs.removeHandler(h); }

    WsWindow* getParent() const { return _style.getParent(); }
    // Screen pixels for a top-level window, the parent's for a sub-window; y up.
    GeRectangle<int> const& getGeometry() const { return _geometry; }
    void setMainWindow(bool main) { _style.setMainWindow(main); }
    bool isMainWindow() const { return _style.isMainWindow(); }
    // The window's OpenGL state cache; makeCurrent makes it the current one.
    SmContext& getContext() { return *_context; }

    virtual void map() = 0;
    virtual void unmap() = 0;
    virtual bool isMapped() const = 0;
    // Shows what was drawn into the back buffer.
    virtual void swap() = 0;
    // Moves and resizes; the resize callbacks follow once the window layer has done it.
    virtual void setSize(GeRectangle<int> const& rect) = 0;
    virtual void setTitle(std::string const& title) = 0;
    virtual void setCursor(RCShdPtr<WsCursor> cursor) = 0;
    // Moves the pointer to (x, y) in window coordinates.
    virtual void warpPointer(int x, int y) = 0;
    // Directs OpenGL calls to this window, and its state cache with them.
    virtual void makeCurrent() = 0;
    virtual void iconify() = 0;
    virtual void setFullscreen(bool fullscreen) = 0;

protected:
    // Registers the window with WsWinMgr under a new id.
    WsWindow(LiString name, LiString iconName, WsWindowStyle const& style);
    ~WsWindow() override;

    // For backends: record the geometry, and call the handlers.
    void setGeometryValue(GeRectangle<int> const& r) { _geometry = r; }
    void notifyResize(GeRectangle<int> const& r);
    void notifyExpose(GeRectangle<int> const& r);
    void notifyRedraw();

private:
    WsWindowId _id;
    LiString _name;
    LiString _iconName;
    WsWindowStyle _style;
    GeRectangle<int> _geometry;
    CbDispatcher<GeRectangle<int> const> _resizeCbs;
    CbDispatcher<GeRectangle<int> const> _exposeCbs;
    CbDispatcher<CbEmptyType> _redrawCbs;
    UPtr<SmContext> _context;
};

} // namespace Zr
