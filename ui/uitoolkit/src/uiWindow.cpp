// UiWindow: a widget tree bound to a window of the windowing layer. Damage anywhere in the tree
// sets the redraw flag; the loop calls redraw once per turn, which paints only the marks.
#include "uiWindow.h"

#include "uiApplication.h"
#include "uiFocusPointer.h"
#include "uiGrabHandler.h"
#include "uiWidgetRttiType.h"
#include "uiWindowImp.h"

#include "smStateManager.h"
#include "wsEvents.h"
#include "wsScreenshot.h"
#include "wsWinMgr.h"

#include <algorithm>
#include <chrono>

namespace Zr {

namespace {

// Draw timings kept between two snapStatistics; older ones go first.
constexpr std::size_t MaxIntervals = 1024;

// The merge of marks into one repaint of the whole window. Marking costs what a mark reaches: a
// mark over many children marks each of them, and marks over the same place do it again. Once
// the marks since the last redraw cover, summed, MergeWindowAreas times the window's area, they
// have cost about that many markings of the whole window, and the one marking of the whole
// window at the redraw costs no more than the marks still to come would. Marks that meet
// nowhere cover the window once at most, so they never merge: the merge never paints what they
// would not have, only what overlapping marks would have marked again and again.
constexpr std::int64_t MergeWindowAreas = 2;

double secondsSince(std::chrono::steady_clock::time_point t) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t).count();
}

// Set while a redraw paints, even when a draw callback throws.
struct DrawingFlag {
    explicit DrawingFlag(bool& flag) : _flag(flag) { _flag = true; }
    ~DrawingFlag() { _flag = false; }
    DrawingFlag(DrawingFlag const&) = delete;
    DrawingFlag& operator=(DrawingFlag const&) = delete;
    bool& _flag;
};

GeRectangle<int> atLeastOnePixel(GeRectangle<int> r) {
    r.x2 = std::max(r.x2, r.x1 + 1);
    r.y2 = std::max(r.y2, r.y1 + 1);
    return r;
}

} // namespace

RCShdPtr<UiWindow> UiWindow::create(UiContainer* parent, LiString const& name,
                                    UiResTable const* table, WsWindowStyle const& style,
                                    unsigned flags) {
    RCShdPtr<UiWindow> window(new UiWindow(parent, name, style, flags));
    window->buildRoot(table);
    window->initialize(table);
    window->resInit(table);
    window->postInit();
    return window;
}

UiWindow::UiWindow(UiContainer* parent, LiString const& name, WsWindowStyle const& style,
                   unsigned flags)
    : UiContainer(parent, name), _imp(makeShared<UiWindowImp>(this)) {
    _imp->_style = style;
    _imp->_flags = flags;
    setDisplayed(false);
    // A window is its own window: its tree paints into it, not into the parent's.
    UiContainer::setWindow(this);
}

UiWindow::~UiWindow() {
    _deferredMoves.clear();
    if (_imp->_osWindow) {
        _imp->_osWindow->removeResizeCb(&_imp->_resizeHandler);
        _imp->_osWindow->removeExposeCb(&_imp->_exposeHandler);
        _imp->_osWindow->removeRedrawCb(&_imp->_redrawHandler);
    }
    if (UiApplication::isInit())
        UiApplication::getInstance().forgetWindow(this);
    _context.reset();
}

void UiWindow::buildRoot(UiResTable const* table) {
    RCShdPtr<UiContainer> root = UiContainer::create(this, "OS_container", table);
    _imp->_root = root;
    root->setConstraint(UiFillConstraint());
    root->addHotkeyCb(&_imp->_hotkeyHandler);
}

void UiWindow::initialize(UiResTable const*) {
    UiContainer* parent = getParent();
    UiWindow* parentWindow = parent ? parent->getWindow() : nullptr;
    if (!parentWindow || !parentWindow->getOSWindow())
        return;
    GeRectangle<int> rect = mapRectToParentWindow(atLeastOnePixel(getRect()));
    WsWindowStyle style =
        WsWindowStyleUtils::getSubWindowStyle(parentWindow->getOSWindow().get(), rect);
    _imp->_style = style;
    setOSWindow(WsWinMgr::getInstance().createWindow("sub", "sub", style));
}

void UiWindow::setOSWindow(RCShdPtr<WsWindow> const& window) {
    if (_imp->_osWindow) {
        _imp->_osWindow->removeResizeCb(&_imp->_resizeHandler);
        _imp->_osWindow->removeExposeCb(&_imp->_exposeHandler);
        _imp->_osWindow->removeRedrawCb(&_imp->_redrawHandler);
    }
    _imp->_osWindow = window;
    if (!window)
        return;
    _context = SmStateManager::getInstance().createContext();
    UiApplication::getInstance().addWindow(window.get(), this);
    window->addResizeCb(&_imp->_resizeHandler);
    window->addExposeCb(&_imp->_exposeHandler);
    window->addRedrawCb(&_imp->_redrawHandler);
}

RCShdPtr<WsWindow> const& UiWindow::getOSWindow() const {
    return _imp->_osWindow;
}

RCShdPtr<UiContainer> const& UiWindow::getRootContainer() const {
    return _imp->_root;
}

bool UiWindow::redraw() {
    return redrawAndRead(nullptr);
}

std::vector<std::uint8_t> UiWindow::readPixels() {
    std::vector<std::uint8_t> pixels;
    if (!_imp->_osWindow)
        return pixels;
    // Everything is painted, so the buffer read holds the whole window whatever was there.
    if (_imp->_root)
        _imp->_root->markForUpdate();
    _imp->_needsRedraw = true;
    redrawAndRead(&pixels);
    return pixels;
}

void UiWindow::writeScreenshot(OsFilePath const& path) {
    std::vector<std::uint8_t> pixels = readPixels();
    GeRectangle<int> const geometry =
        _imp->_osWindow ? _imp->_osWindow->getGeometry() : GeRectangle<int>();
    WsScreenshot::writePng(pixels, geometry.width(), geometry.height(), path);
}

bool UiWindow::redrawAndRead(std::vector<std::uint8_t>* readBack) {
    if (!_imp->_osWindow || !_imp->_needsRedraw)
        return false;
    auto start = std::chrono::steady_clock::now();
    _imp->_osWindow->makeCurrent();
    _context->makeCurrent();

    if (!_deferredMoves.empty()) {
        // Moves may submit further moves: those wait for the next redraw.
        std::list<RCShdPtr<UiWidget>> moves;
        moves.swap(_deferredMoves);
        for (auto const& widget : moves)
            widget->performDeferredMove();
    }
    clearMarks();
    _markedArea = 0;
    if (_repaintMerged) {
        // Marks stopped being kept once merged: the whole root is marked now, for both buffers.
        _repaintMerged = false;
        if (RCShdPtr<UiContainer> root = _imp->_root) {
            root->clearMarks();
            root->markRegion(root->getRect());
        }
        _markedArea = 0;
    }

    GeRectangle<int> const windowRect = getRect();
    UiWindowInitState(windowRect, _imp->_stencilMode).apply();
    if (RCShdPtr<UiContainer> root = _imp->_root) {
        // The root's coordinates are those of the window's canvas.
        GeRectangle<int> canvas = getCanvas();
        GePoint2<int> origin(canvas.x1 - windowRect.x1, canvas.y1 - windowRect.y1);
        GeRectangle<int> clip = root->getRect().translated(origin.x, origin.y);
        DrawingFlag drawing(_drawing);
        root->expose(clip, origin);
    }
    if (_imp->_stencilMode)
        UiWindowExitState(windowRect, _imp->_stencilMode).apply();
    _imp->_needsRedraw = false;

    if (readBack)
        *readBack = WsScreenshot::readPixels(*_imp->_osWindow);

    // One reading of the clock ends the draw and starts the swap (each costs tens of ns).
    auto const swapStart = std::chrono::steady_clock::now();
    double const drawTime = std::chrono::duration<double>(swapStart - start).count();
    swapBuffers();
    // The latest MaxIntervals redraws, kept in a ring: a redraw must not move the others.
    std::pair<double, double> const interval(drawTime, secondsSince(swapStart));
    if (_imp->_intervals.size() < MaxIntervals)
        _imp->_intervals.push_back(interval);
    else
        _imp->_intervals[_imp->_nextInterval] = interval;
    _imp->_nextInterval = (_imp->_nextInterval + 1) % MaxIntervals;
    return true;
}

void UiWindow::swapBuffers() {
    ++_imp->_swapCount;
    _imp->_osWindow->swap();
}

void UiWindow::markNotify() {
    _imp->_needsRedraw = true;
}

void UiWindow::noteMark(GeRectangle<int> const& rect) {
    _imp->_needsRedraw = true;
    // Without a system window nothing is painted, and the marks are all there is to see.
    if (_drawing || rect.isEmpty() || !_imp->_osWindow)
        return;
    _markedArea += static_cast<std::int64_t>(rect.width()) * rect.height();
    GeRectangle<int> const& window = getRect();
    if (_markedArea >= MergeWindowAreas * window.width() * window.height())
        _repaintMerged = true;
}

bool UiWindow::needsRedraw() const {
    return _imp->_needsRedraw;
}

void UiWindow::setWindowName(LiString const& name) {
    _imp->_name = name;
}

LiString const& UiWindow::getWindowName() const {
    return _imp->_name;
}

void UiWindow::setPointerPosition(int x, int y) {
    if (_imp->_osWindow)
        _imp->_osWindow->warpPointer(x, y);
}

bool UiWindow::isGlClearAllowed() const {
    return _imp->_stencilMode != 2;
}

int UiWindow::getSwapCount() const {
    return _imp->_swapCount;
}

int UiWindow::getStencilMode() const {
    return _imp->_stencilMode;
}

void UiWindow::setStencilMode(int mode) {
    if (mode < 0 || mode > 2)
        ZR_ABORT("Unknown stencil mode");
    _imp->_stencilMode = mode;
    markForUpdate();
}

void UiWindow::toggleStencilMode() {
    _imp->stepStencilMode();
}

GePoint2<int> UiWindow::mapFromParentToParentWindow(GePoint2<int> const& p) const {
    GePoint2<int> result = p;
    for (UiContainer* a = getParent(); a && a != a->getWindow(); a = a->getParent()) {
        GeRectangle<int> canvas = a->getCanvas();
        result = GePoint2<int>(result.x + canvas.x1, result.y + canvas.y1);
    }
    return result;
}

GePoint2<int> UiWindow::mapFromParentWindowToParent(GePoint2<int> const& p) const {
    GePoint2<int> result = p;
    for (UiContainer* a = getParent(); a && a != a->getWindow(); a = a->getParent()) {
        GeRectangle<int> canvas = a->getCanvas();
        result = GePoint2<int>(result.x - canvas.x1, result.y - canvas.y1);
    }
    return result;
}

GeRectangle<int> UiWindow::mapRectToParentWindow(GeRectangle<int> const& rect) const {
    GePoint2<int> min = mapFromParentToParentWindow(rect.getMin());
    return rect.translated(min.x - rect.x1, min.y - rect.y1);
}

void UiWindow::snapStatistics() {
    // The timings stay here until the statistics service takes them.
    _imp->_intervals.clear();
    _imp->_nextInterval = 0;
}

bool UiWindow::isFullscreen() const {
    return _imp->_style.isFullscreen();
}

void UiWindow::submitDeferredMove(RCShdPtr<UiWidget> const& widget) {
    if (!widget)
        return;
    if (std::find(_deferredMoves.begin(), _deferredMoves.end(), widget) == _deferredMoves.end())
        _deferredMoves.push_back(widget);
    markNotify();
}

void UiWindow::addClearWindowCb(CbHandler<EvEvent>* h) {
    _imp->_clearWindowCbs.addHandler(h);
}

void UiWindow::removeClearWindowCb(CbHandler<EvEvent>* h) {
    _imp->_clearWindowCbs.removeHandler(h);
}

void UiWindow::clearWindow() {
    UiContainer::setWindow(nullptr);
    EvDefaultEvent event;
    _imp->_clearWindowCbs.call(event);
}

UiWidget* UiWindow::findWidgetAt(GePoint2<int> const& p) {
    if (!isMapped() || !isInside(p))
        return nullptr;
    UiWidget* widgetAt = UiContainer::findWidgetAt(p);
    ZR_ASSERT_TEXT(widgetAt != nullptr, "!widgetAt.isNull()");
    return widgetAt;
}

void UiWindow::processEvent(EvEvent& event) {
    if (dynamic_cast<WsExposeEvent*>(&event)) {
        if (_imp->_root)
            _imp->_root->markForUpdate();
    } else if (auto* configure = dynamic_cast<WsConfigureEvent*>(&event)) {
        GeRectangle<int> region = configure->getWindowRegion();
        GePoint2<int> min = mapFromParentWindowToParent(region.getMin());
        UiContainer::setRect(region.translated(min.x - region.x1, min.y - region.y1), true);
    } else if (dynamic_cast<WsMapNotifyEvent*>(&event)) {
        show();
    } else if (dynamic_cast<WsUnmapNotifyEvent*>(&event)) {
        hide();
    } else if (dynamic_cast<WsWindowCloseEvent*>(&event)) {
        UiApplication::getInstance().closeWindow(_imp->_osWindow.get());
    } else if (UiWidget* focus = UiFocusPointer::getInstance().getFocus()) {
        focus->getEventHandler()->processEvent(event);
    }
}

void UiWindow::expose(GeRectangle<int> const&, GePoint2<int> const&) {
    // Each window is painted by its own redraw, never through a parent's traversal.
}

void UiWindow::acceptVisitor(UiWidgetVisitor& visitor) {
    UiContainer::acceptVisitor(visitor);
}

void UiWindow::setWindow(UiWindow*) {
    // Whatever the parent's window, this tree paints into this window.
    UiContainer::setWindow(this);
}

void UiWindow::setRect(GeRectangle<int> const& rect, bool notify) {
    if (!_imp->_osWindow) {
        UiContainer::setRect(rect, notify);
        return;
    }
    // The window system decides; the rectangle follows on its resize or configure notice.
    _imp->_osWindow->setSize(atLeastOnePixel(mapRectToParentWindow(rect)));
}

bool UiWindow::setMap(bool map, bool) {
    if (!_imp->_osWindow)
        return false;
    if (map) {
        UiContainer::setMap(true, false);
        _imp->_osWindow->map();
    } else {
        _imp->_osWindow->unmap();
        UiContainer::setMap(false, false);
    }
    return true;
}

void UiWindow::markUp(GeRectangle<int>& rect, UiWidget* child) {
    if (!isMapped()) {
        rect.setEmpty();
        return;
    }
    UiContainer::markUp(rect, child);
}

RttiType<WidgetRttiType> const& UiWindow::getNodeType() const {
    return UiWidgetTypes::Window::getType();
}

} // namespace Zr
