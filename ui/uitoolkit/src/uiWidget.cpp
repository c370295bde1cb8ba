// UiWidget: construction and destruction, geometry, the parent link, map and display state,
// enabling, frames and colours, damage marking, the constraint, tooltip and client data, and
// the callback lists. Events and arming are in uiWidgetEvents.cpp, drawing in uiWidgetDraw.cpp,
// resources in uiWidgetResources.cpp.
#include "uiWidget.h"

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiFrame.h"
#include "uiGrab.h"
#include "uiWidgetEvent.h"
#include "uiWidgetImp.h"
#include "uiWidgetRttiType.h"
#include "uiWindow.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace Zr {

LiString const UiWidget::BackgroundColor = "Background";
LiString const UiWidget::ForegroundColor = "Foreground";
LiString const UiWidget::InactiveForegroundColor = "InactiveForeground";
LiString const UiWidget::ParentColor = "ParentColor";
LiString const UiWidget::FocusFrame = "Focus";
LiString const UiWidget::DefaultFrame = "Default";
LiString const UiWidget::TooltipState = "TooltipState";
bool UiWidget::PointerFocusFrameEnabled = false;

namespace {

// `a` less `b`, when the difference is one strip: if one of `a`'s ranges lies within `b`'s,
// the other range is cut. Any other case leaves `a` as it stands.
GeRectangle<int> subtract(GeRectangle<int> const& a, GeRectangle<int> const& b) {
    auto cut = [](int lo, int hi, int bLo, int bHi) {
        int newLo = (lo >= bLo && lo < bHi) ? bHi : lo;
        int newHi = (hi > bLo && hi <= bHi) ? bLo : hi;
        return std::pair<int, int>(newLo, std::max(newLo, newHi));
    };
    if (a.y1 >= b.y1 && a.y2 <= b.y2) {
        auto [x1, x2] = cut(a.x1, a.x2, b.x1, b.x2);
        return {x1, x2, a.y1, a.y2};
    }
    if (a.x1 >= b.x1 && a.x2 <= b.x2) {
        auto [y1, y2] = cut(a.y1, a.y2, b.y1, b.y2);
        return {a.x1, a.x2, y1, y2};
    }
    return a;
}

} // namespace

GeRectangle<int> UiWidget::subtractRect(GeRectangle<int> const& a, GeRectangle<int> const& b) {
    return subtract(a, b);
}

// --- construction --------------------------------------------------------------------------

RCShdPtr<UiWidget> UiWidget::create(UiContainer* parent, LiString const& name,
                                    UiResTable const* table) {
    RCShdPtr<UiWidget> widget(new UiWidget(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiWidget::UiWidget(UiContainer* parent, LiString const& name)
    : _imp(std::make_unique<UiWidgetImp>(this)), _name(name) {
    _opacity = 1.0f;
    _imp->_displayed = true;
    setParent(parent);
    _keyboardFocusType = NoKeyboardFocus;
    _focusable = true;
    _keyboardFocusable = true;
    initFocusColors();
}

UiWidget::~UiWidget() {
    // Callbacks run below may briefly hold the widget by RCShdPtr; the extra count keeps such a
    // holder from deleting it a second time. The memory goes with this destructor regardless.
    addReference();
    disarm();
    UiArmStack::forget(this);
    _imp->teardown();
    _imp.reset();
    _currentFrame = nullptr;
    _frames.clear();
}

void UiWidget::postInit() {
    adjustCoords();
    _imp->_initPhase = 5;
}

int UiWidget::getInitPhase() const {
    return _imp->_initPhase;
}

RCShdPtr<UiWidget> UiWidget::makeSender() {
    // Inside a constructor nobody holds the widget yet: a temporary holder would delete it.
    return getReferenceCount() > 0 ? RCShdPtr<UiWidget>(this) : RCShdPtr<UiWidget>();
}

// --- geometry ------------------------------------------------------------------------------

void UiWidget::setOrigin(GePoint2<int> const& p, bool notify) {
    setRect({p.x, p.x + _rect.width(), p.y, p.y + _rect.height()}, notify);
}

void UiWidget::translateOrigin(int dx, int dy, bool notify) {
    setRect(_rect.translated(dx, dy), notify);
}

void UiWidget::setSize(int w, int h, bool notify) {
    setRect({_rect.x1, _rect.x1 + w, _rect.y1, _rect.y1 + h}, notify);
}

GeRectangle<int> UiWidget::getFramedCanvas() const {
    GeRectangle<int> canvas = _currentFrame->getCanvas(_rect);
    if (_keyboardFocusable && _keyboardFocusFrame) {
        if (auto focus = getFrame(FocusFrame))
            canvas = canvas.intersection(focus->getCanvas(_rect));
    }
    return canvas;
}

GePoint2<int> UiWidget::getScreenCoord(bool toWindow) const {
    UiWindow* window = toWindow ? getWindow() : nullptr;
    if (window && window == this)
        return {0, 0};
    GePoint2<int> p = _rect.getMin();
    for (UiContainer* a = getParent(); a; a = a->getParent()) {
        p += a->getCanvas().getMin() - a->getRect().getMin();
        if (window && static_cast<UiWidget*>(a) == static_cast<UiWidget*>(window))
            break;
        p += a->getRect().getMin() - GePoint2<int>();
    }
    return p;
}

GeRectangle<int> UiWidget::getScreenRect() const {
    GePoint2<int> p = getScreenCoord(true);
    return GeRectangle<int>::fromSize(p.x, p.y, _rect.width(), _rect.height());
}

GeRectangle<int> UiWidget::getScreenCanvas() const {
    GePoint2<int> p = getScreenCoord(true);
    GeRectangle<int> canvas = getCanvas();
    return GeRectangle<int>::fromSize(p.x + canvas.x1 - _rect.x1, p.y + canvas.y1 - _rect.y1,
                                      canvas.width(), canvas.height());
}

UiWidget* UiWidget::findWidgetAt(GePoint2<int> const& p) {
    if (!isMapped() || !isInside(p))
        return nullptr;
    return this;
}

void UiWidget::setRect(GeRectangle<int> const& rect, bool notify) {
    if (rect == _rect)
        return;
    GeRectangle<int> old = _rect;
    _rect = rect;
    if (_imp->_listed)
        if (UiContainer* parent = getParent())
            parent->childMoved(this, old);
    adjustCoords();
    if (notify) {
        UiResize resized(makeSender());
        resized.setRegion(rect);
        _imp->fire(UiWidgetImp::Resize, resized);
    }
    bool windowed = getWindow() != nullptr;
    if (old.isEmpty() || old.intersection(rect).isEmpty()) {
        markParent(old);
        if (windowed)
            clearMarks();
        markRegion(rect);
    } else {
        markParent(subtract(old, rect));
        if (windowed)
            clearMarks();
        markRegion(subtract(rect, old));
    }
}

void UiWidget::parentResize(int w, int h) {
    if (!_imp->_hasConstraint)
        return;
    GeRectangle<int> siblings[4];
    for (int i = 0; i < 4; ++i)
        if (_imp->rare()._siblings[i])
            siblings[i] = _imp->rare()._siblings[i].get()->getRect();
    setRect(
        _imp->rare()._constraint.calcRect(w, h, siblings[0], siblings[1], siblings[2], siblings[3]),
        true);
}

// --- constraint ----------------------------------------------------------------------------

bool UiWidget::hasConstraint() const {
    return _imp->_hasConstraint;
}

UiConstraint const& UiWidget::getConstraint() const {
    return _imp->rareOrNone()._constraint;
}

void UiWidget::setConstraint(UiConstraint const& c) {
    _imp->rare()._constraint = c;
    _imp->_hasConstraint = true;
    applyConstraint();
}

void UiWidget::removeConstraint() {
    _imp->_hasConstraint = false;
    if (_imp->_rare) {
        _imp->_rare->_constraint = UiConstraint();
        for (auto& sibling : _imp->_rare->_siblings)
            sibling = nullptr;
    }
}

void UiWidget::applyConstraint() {
    UiContainer* parent = getParent();
    if (!_imp->_hasConstraint || !parent)
        return;
    // A sibling must be a child made before this one: one made later (or found nowhere) would
    // not be placed yet when this constraint runs on a resize.
    for (int edge = 0; edge < 4; ++edge) {
        _imp->rare()._siblings[edge] = nullptr;
        LiString const& siblingName = _imp->rare()._constraint.getSibling(edge);
        if (siblingName.empty())
            continue;
        // The first child of that name must lie below this one in the list, which is the
        // order of creation.
        UiWidget* sibling = parent->firstChildNamed(siblingName);
        if (!sibling || sibling->_imp->_stackKey >= _imp->_stackKey)
            throw UiWidgetSiblingConstraintEx(
                __FILE__, __LINE__,
                "Widget '" + _name.str() + "': Invalid sibling constraint: sibling '" +
                    siblingName.str() +
                    "' not found (possible cause: the widget was created earlier than the "
                    "target sibling).");
        _imp->rare()._siblings[edge] = sibling;
    }
    // A canvas under one pixel (a parent not laid out yet) leaves the rectangle as it is; the
    // parent's next resize computes it.
    GeRectangle<int> canvas = parent->getCanvas();
    if (canvas.width() < 1 || canvas.height() < 1)
        return;
    parentResize(canvas.width(), canvas.height());
}

// --- parent --------------------------------------------------------------------------------

UiContainer* UiWidget::getParent() const {
    return _imp->_parent;
}

void UiWidget::setWindow(UiWindow* window) {
    _window = window;
}

void UiWidget::setParent(UiContainer* parent) {
    if (parent == _imp->_parent)
        return;
    // Leaving the old parent may drop the last reference; a widget still in its constructor
    // has none to keep, and taking one there would delete it when released.
    RCShdPtr<UiWidget> self = makeSender();
    if (UiContainer* old = _imp->_parent)
        old->removeWidget(this);
    _imp->_parent = parent;
    if (!parent) {
        setWindow(nullptr);
        setMap(false, true);
        return;
    }
    setMap(parent->isMapped(), true);
    parent->addWidget(this);
    setWindow(parent->getWindow());

    CoRgbColor inherited = parent->getColor(BackgroundColor);
    if (_imp->_initPhase == 4)
        setColor(ParentColor, inherited);
    else
        _parentColor = inherited;

    if (_imp->_hasConstraint) {
        UiConstraint constraint = _imp->rare()._constraint;
        _imp->rare()._constraint = constraint;
        applyConstraint();
    } else {
        adjustCoords();
    }
    parentEnable(parent->isEnabled());
    if (parent->isMapped()) {
        if (getWindow())
            clearMarks();
        markRegion(_rect);
    }
}

void UiWidget::clearParent() {
    UiContainer* old = _imp->_parent;
    RCShdPtr<UiWidget> self = makeSender();
    setWindow(nullptr);
    setMap(false, true);
    _imp->_parent = nullptr;
    if (old)
        old->removeWidget(this);
}

// --- visibility ----------------------------------------------------------------------------

bool UiWidget::isDisplayed() const {
    return _imp->_displayed;
}

bool UiWidget::isMapped() const {
    return _imp->_mapped;
}

void UiWidget::setDisplayed(bool displayed) {
    _imp->_displayed = displayed;
}

bool UiWidget::setMap(bool map, bool checkParent) {
    UiWidgetImp& imp = *_imp;
    if (!imp._displayed && map) {
        imp._mapped = false;
        return false;
    }
    if (checkParent && !imp._parent) {
        imp._mapped = false;
        return false;
    }
    if (map && imp._parent && !imp._parent->isMapped()) {
        imp._mapped = false;
        return false;
    }
    if (imp._mapped == map)
        return false;
    imp._mapped = map;
    if (!map) {
        UiGrab::pointer().release(&imp);
        if (hasFocus() && getWindow())
            UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        disarm();
        UiUnMap unmapped(makeSender());
        imp.fire(UiWidgetImp::Unmap, unmapped);
    } else {
        UiMap mapped(makeSender());
        imp.fire(UiWidgetImp::Map, mapped);
    }
    return true;
}

void UiWidget::show() {
    _imp->_displayed = true;
    if (setMap(true, true)) {
        if (getWindow())
            clearMarks();
        markRegion(_rect);
    }
}

void UiWidget::hide() {
    _imp->_displayed = false;
    if (setMap(false, true)) {
        markParent(_rect);
        clearMarks();
    }
}

void UiWidget::display(bool on) {
    if (on)
        show();
    else
        hide();
}

void UiWidget::lock(bool locked) {
    if (_imp->_locked == locked)
        return;
    _imp->_locked = locked;
    EvDefaultEvent event;
    _imp->fire(locked ? UiWidgetImp::Lock : UiWidgetImp::Unlock, event);
}

void UiWidget::unlock() {
    lock(false);
}

bool UiWidget::isLocked() const {
    return _imp->_locked;
}

// --- enable --------------------------------------------------------------------------------

void UiWidget::enable(bool enabled) {
    bool disabled = !(enabled && !_parentDisabled);
    // No change at all leaves _selfDisabled too: enable(true) under a disabled parent doesn't
    // record the wish, and the widget comes back as it was when the parent is enabled.
    if (disabled == _disabled)
        return;
    if (disabled && hasFocus())
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
    EvDefaultEvent event;
    _imp->fire(disabled ? UiWidgetImp::Disable : UiWidgetImp::Enable, event);
    if (getWindow())
        clearMarks();
    markRegion(_rect);
    // Stored after the callbacks, which still read the old state.
    _disabled = disabled;
    _selfDisabled = !enabled;
}

void UiWidget::parentEnable(bool enabled) {
    _parentDisabled = !enabled;
    enable(!_selfDisabled);
}

// --- appearance ----------------------------------------------------------------------------

void UiWidget::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == BackgroundColor) {
        _background = color;
        _currentBackground = color;
    } else if (name == ForegroundColor) {
        _foreground = color;
    } else if (name == InactiveForegroundColor) {
        _inactiveForeground = color;
    } else if (name == ParentColor) {
        _parentColor = color;
    }
    stateChanged();
}

CoRgbColor UiWidget::getColor(LiString const& name) const {
    if (name == BackgroundColor)
        return _background;
    if (name == ForegroundColor)
        return _foreground;
    if (name == InactiveForegroundColor)
        return _inactiveForeground;
    if (name == ParentColor)
        return _parentColor;
    return blackColor();
}

void UiWidget::setFrame(RCShdPtr<UiFrame> const& frame, LiString const& name) {
    _frames[name] = frame;
    if (name == DefaultFrame)
        _currentFrame = frame;
    stateChanged();
}

RCShdPtr<UiFrame> UiWidget::getFrame(LiString const& name) const {
    auto it = _frames.find(name);
    return it == _frames.end() ? RCShdPtr<UiFrame>() : it->second;
}

void UiWidget::setCurrentFrame(LiString const& name) {
    if (auto frame = getFrame(name))
        _currentFrame = frame;
}

RCShdPtr<UiFrame> UiWidget::getPreparedFrame() const {
    RCShdPtr<UiFrame> prepared;
    if (_keyboardFocusable) {
        if (auto focus = getFrame(FocusFrame)) {
            if (_pointerFocus && _keyboardFocusFrame && PointerFocusFrameEnabled) {
                prepared = focus->decorate(_currentFrame);
                if (prepared)
                    prepared->setBorderColor(_pointerFocusColor);
            } else if (_keyboardFocusType == HasKeyboardFocus && _keyboardFocusFrame) {
                prepared = focus->decorate(_currentFrame);
                if (prepared)
                    prepared->setBorderColor(_keyboardFocusColor);
            }
        }
    }
    if (!prepared)
        prepared = _currentFrame;
    return prepared;
}

void UiWidget::setOpacity(float opacity) {
    if (opacity == _opacity)
        return;
    _opacity = opacity;
    markRegion(_rect);
}

bool UiWidget::isOpaque() const {
    float m = std::max(1.0f, std::fabs(_opacity));
    if (std::isinf(m))
        m = 0.0f;
    float e = m * 1.1920929e-7f;
    if (_opacity <= 1.0f)
        return _opacity + e >= 1.0f;
    return 1.0f + e >= _opacity;
}

RCShdPtr<WsCursor> UiWidget::getCursor() const {
    if (RCShdPtr<WsCursor> const& own = _imp->rareOrNone()._cursor)
        return own;
    for (UiContainer* a = getParent(); a; a = a->getParent())
        if (a->getTransferCursorToChildren())
            return a->getCursor();
    return {};
}

void UiWidget::setCursor(RCShdPtr<WsCursor> const& cursor) {
    _imp->rare()._cursor = cursor;
    applyCursor();
}

void UiWidget::resetCursor() {
    if (_imp->_rare)
        _imp->_rare->_cursor = nullptr;
    applyCursor();
}

void UiWidget::applyCursor() {
    if (UiFocusPointer::getInstance().getFocus() != this || !getWindow())
        return;
    UiApplication& app = UiApplication::getInstance();
    if (app.hasOverrideCursor())
        return;
    app.setCursor(getCursor());
}

// --- focus flags ---------------------------------------------------------------------------

void UiWidget::setKeyboardFocusable(char const* text) {
    std::string value = text ? text : "";
    if (value == "On")
        _keyboardFocusable = true;
    else if (value == "Off")
        _keyboardFocusable = false;
}

void UiWidget::setPointerFocus(bool f) {
    if (!PointerFocusFrameEnabled || _disabled || _selfDisabled || _parentDisabled)
        return;
    _pointerFocus = f;
    clearMarks();
    markRegion(_rect);
}

bool UiWidget::hasFocus() const {
    return UiFocusKeyboard::getInstance().getFocus() == this;
}

// --- damage --------------------------------------------------------------------------------

void UiWidget::markForUpdate() {
    UiWindow* const window = getWindow();
    if (window && window->isRepaintMerged())
        return; // the whole window is repainted at its next redraw
    if (window) {
        // Already to be drawn whole into both buffers since the last redraw (a widget is often
        // marked several times in one turn of the loop): marking again gives the same marks.
        UiMarkedRectList const& marks = _imp->_marks;
        if (marks.size() == 1 && marks.front().getState() == UiMarkedRect::InvalidBoth &&
            marks.front().getRect() == _rect && isOpaque()) {
            window->markNotify();
            return;
        }
        clearMarks();
    }
    markRegion(_rect);
}

void UiWidget::clearMarks() {
    _imp->_marks.clear();
}

void UiWidget::mark(GeRectangle<int> const& rect) {
    _imp->_marks.mark(rect);
    if (!_imp->_marks.empty())
        noteDamage();
    if (UiWindow* window = getWindow())
        window->markNotify();
}

void UiWidget::markRegion(GeRectangle<int> const& rect) {
    UiWindow* const window = getWindow();
    if (window && window->isRepaintMerged())
        return; // the whole window is repainted at its next redraw
    GeRectangle<int> visible = rect;
    if (UiContainer* parent = getParent())
        parent->markUp(visible, this);
    if (visible.isEmpty())
        return;
    _imp->_marks.mark(visible);
    noteDamage();
    // Seen through a translucent widget, the parent must repaint too.
    if (!isOpaque())
        markParent(visible);
    if (window)
        window->noteMark(visible);
}

void UiWidget::markParent(GeRectangle<int> const& rect) {
    UiContainer* parent = getParent();
    if (!parent)
        return;
    GePoint2<int> canvasMin = parent->getCanvas().getMin();
    parent->markRegion(rect.translated(canvasMin.x, canvasMin.y));
}

void UiWidget::markChildren(GeRectangle<int>& rect) {
    if (!_imp->_displayed || !_imp->_mapped)
        return;
    GeRectangle<int> inside = rect.intersection(_rect);
    if (inside.isEmpty())
        return;
    if (isOpaque())
        rect = subtract(rect, _rect);
    mark(inside);
}

void UiWidget::markDown(GeRectangle<int>& rect) {
    UiWidget::markChildren(rect);
}

void UiWidget::setName(LiString const& name) {
    if (name == _name)
        return;
    if (UiContainer* parent = _imp->_listed ? getParent() : nullptr)
        parent->renameChild(this, name);
    else
        _name = name;
}

void UiWidget::noteDamage() {
    // A listed widget's container is listed too, up to the window: stop at the first listed.
    UiWidget* w = this;
    for (UiContainer* parent = w->getParent(); parent && !w->_imp->_damageListed;
         w = parent, parent = parent->getParent()) {
        if (parent == parent->getWindow())
            return; // a window draws its root itself
        w->_imp->_damageListed = true;
        parent->_children->_damaged.push_back(w);
    }
}

bool UiWidget::hasDamage() const {
    return !_imp->_marks.empty();
}

UiMarkedRectList& UiWidget::getMarkedRectList() {
    return _imp->_marks;
}

std::vector<GeRectangle<int>> UiWidget::getMarkedRects() const {
    std::vector<GeRectangle<int>> rects;
    rects.reserve(_imp->_marks.size());
    for (UiMarkedRect const& m : _imp->_marks)
        rects.push_back(m.getRect());
    return rects;
}

void UiWidget::setDrawCollapsing(bool collapse) {
    _imp->_drawCollapsing = collapse;
}

// --- tooltip data --------------------------------------------------------------------------

std::string UiWidget::getTooltipId(TooltipIdMode mode) const {
    if (!_imp->rareOrNone()._tooltipId.empty() && mode != InheritedId)
        return _imp->rareOrNone()._tooltipId;
    std::string name = _name.str();
    if (name.empty()) {
        UiContainer* parent = getParent();
        name = (parent && !parent->getName().empty()) ? parent->getName().str()
                                                      : std::string("unnamedparent");
    }
    return getResTableName(FullName) + "." + name;
}

void UiWidget::setTooltipId(std::string const& id) {
    _imp->rare()._tooltipId = id;
}

std::string const& UiWidget::getDefaultTooltip() const {
    return _imp->rareOrNone()._defaultTooltip;
}

void UiWidget::setDefaultTooltip(std::string const& text) {
    _imp->rare()._defaultTooltip = text;
}

bool UiWidget::hasDefaultTooltip() const {
    return !_imp->rareOrNone()._defaultTooltip.empty();
}

bool UiWidget::hasStoredTooltip() const {
    // Stored tooltip texts live in the tooltip server's tables, which aren't loaded here.
    return false;
}

bool UiWidget::canSetTooltip() const {
    if (_imp->rareOrNone()._resTableName.empty())
        return false;
    return !getTooltipId(OwnId).empty();
}

void UiWidget::enableTooltip(bool on) {
    _imp->_tooltipEnabled = on;
}

bool UiWidget::isTooltipEnabled() const {
    return _imp->_tooltipEnabled;
}

std::string UiWidget::getTooltip(GePoint2<int> const&) const {
    return _imp->_tooltipEnabled ? _imp->rareOrNone()._defaultTooltip : std::string();
}

void UiWidget::setResTableName(std::string const& name) {
    _imp->rare()._resTableName = name;
}

std::string UiWidget::getResTableName(ResTableNameMode mode) const {
    if (mode == BaseName || !_imp->rareOrNone()._resTableName.empty())
        return _imp->rareOrNone()._resTableName;
    // The full form falls back on the nearest ancestor that came from a table.
    for (UiContainer* a = getParent(); a; a = a->getParent())
        if (!a->_imp->rareOrNone()._resTableName.empty())
            return a->_imp->rareOrNone()._resTableName;
    return {};
}

void UiWidget::setWidgetResTable(UiWidget& widget, std::string const& tableName) {
    widget.setResTableName(tableName);
}

// --- client data ---------------------------------------------------------------------------

void UiWidget::addClientData(RCShdPtr<RCObject> const& data) {
    if (!data)
        return;
    auto& all = _imp->rare()._clientData;
    if (std::find(all.begin(), all.end(), data) == all.end())
        all.push_back(data);
}

void UiWidget::removeClientData(RCShdPtr<RCObject> const& data) {
    if (_imp->_rare)
        std::erase(_imp->_rare->_clientData, data);
}

std::vector<RCShdPtr<RCObject>> const& UiWidget::getClientData() const {
    return _imp->rareOrNone()._clientData;
}

// --- drag and drop -------------------------------------------------------------------------

void UiWidget::setDndObject(RCShdPtr<UiDragAndDrop> const& dnd) {
    _imp->_dnd = dnd;
}

RCShdPtr<UiDragAndDrop> const& UiWidget::getDndObject() const {
    // Every widget has one; most never ask for it, so it is made when first asked for.
    if (!_imp->_dnd)
        _imp->_dnd = UiDragAndDrop::create();
    return _imp->_dnd;
}

void UiWidget::setDragRecogniser(OPtr<UiGestureRecogniser> recogniser) {
    _imp->_dragRecogniser = std::move(recogniser);
}

UiGestureRecogniser* UiWidget::getDragRecogniser() const {
    return _imp->_dragRecogniser.get();
}

// --- callbacks -----------------------------------------------------------------------------

#define ZR_WIDGET_CALLBACK(Name, Dispatcher)                                                       \
    void UiWidget::add##Name##Cb(CbHandler<EvEvent>* h) {                                          \
        _imp->addHandler(UiWidgetImp::Dispatcher, h);                                              \
    }                                                                                              \
    void UiWidget::remove##Name##Cb(CbHandler<EvEvent>* h) {                                       \
        _imp->removeHandler(UiWidgetImp::Dispatcher, h);                                           \
    }

ZR_WIDGET_CALLBACK(Destroy, Destroy)
ZR_WIDGET_CALLBACK(Enable, Enable)
ZR_WIDGET_CALLBACK(Disable, Disable)
ZR_WIDGET_CALLBACK(Lock, Lock)
ZR_WIDGET_CALLBACK(Unlock, Unlock)
ZR_WIDGET_CALLBACK(Arm, Arm)
ZR_WIDGET_CALLBACK(Disarm, Disarm)
ZR_WIDGET_CALLBACK(Map, Map)
ZR_WIDGET_CALLBACK(UnMap, Unmap)
ZR_WIDGET_CALLBACK(FocusIn, FocusIn)
ZR_WIDGET_CALLBACK(FocusOut, FocusOut)
ZR_WIDGET_CALLBACK(KbdFocusIn, KbdFocusIn)
ZR_WIDGET_CALLBACK(KbdFocusOut, KbdFocusOut)
ZR_WIDGET_CALLBACK(Mmove, Mmove)
ZR_WIDGET_CALLBACK(Resize, Resize)
ZR_WIDGET_CALLBACK(Reposition, Reposition)
ZR_WIDGET_CALLBACK(GrabAcquired, GrabAcquired)
ZR_WIDGET_CALLBACK(GrabLost, GrabLost)
ZR_WIDGET_CALLBACK(KeyPress, KeyPress)
ZR_WIDGET_CALLBACK(KeyRelease, KeyRelease)
ZR_WIDGET_CALLBACK(InputChar, InputChar)
ZR_WIDGET_CALLBACK(Activate, Activate)
ZR_WIDGET_CALLBACK(Hotkey, Hotkey)
ZR_WIDGET_CALLBACK(UserDraw, UserDraw)
ZR_WIDGET_CALLBACK(Scroll, Scroll)
ZR_WIDGET_CALLBACK(Tooltip, Tooltip)

#undef ZR_WIDGET_CALLBACK

void UiWidget::insertUserDrawCb(CbHandler<EvEvent>* h) {
    _imp->insertHandler(UiWidgetImp::UserDraw, h);
}

void UiWidget::fireReposition(EvEvent& event) {
    _imp->fire(UiWidgetImp::Reposition, event);
}

void UiWidget::fireTooltip(EvEvent& event) {
    _imp->fire(UiWidgetImp::Tooltip, event);
}

// --- misc ----------------------------------------------------------------------------------

void UiWidget::acceptVisitor(UiWidgetVisitor& visitor) {
    visitor.visit(*this);
}

void UiWidget::dump(std::ostream& os) const {
    os << "Widget \"" << _name << "\" rect " << _rect << (isMapped() ? " mapped" : " unmapped")
       << (isDisplayed() ? " displayed" : " hidden") << (_disabled ? " disabled" : " enabled")
       << " opacity " << _opacity << " marks " << _imp->_marks.size();
}

RttiType<WidgetRttiType> const& UiWidget::getNodeType() const {
    return UiWidgetTypes::Widget::getType();
}

} // namespace Zr
