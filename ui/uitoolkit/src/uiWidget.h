// UiWidget: the root of everything on screen. A reference-counted object with a name, a
// rectangle in its parent's canvas, colours, named frames, an opacity, an optional constraint
// and a list of damaged rectangles. It draws itself with OpenGL inside a UiWindow.
#pragma once

#include "zrBase.h"

#include "uiConstraint.h"

#include <map>
#include <vector>

namespace Zr {

class PiWidget;
class SmStateObject;
class UiContainer;
class UiDragAndDrop;
class UiFrame;
class UiGestureRecogniser;
class UiGrabHandler;
class UiMarkedRectList;
class UiResSet;
class UiResTable;
class UiResource;
class UiWidgetImp;
class UiWindow;
class WsCursor;
struct WidgetRttiType;

ZR_DECLARE_EXCEPTION(UiWidgetSiblingConstraintEx, ExBase);

class UiWidget : public RCObject {
public:
    // Names of the colours and frames every widget has.
    static LiString const BackgroundColor;         // "Background"
    static LiString const ForegroundColor;         // "Foreground"
    static LiString const InactiveForegroundColor; // "InactiveForeground"
    static LiString const ParentColor;             // "ParentColor"
    static LiString const FocusFrame;              // "Focus"
    static LiString const DefaultFrame;            // "Default"
    static LiString const TooltipState;            // "TooltipState"
    // Set at library start from the pointer focus variable: 1 shows the pointer focus frame.
    static bool PointerFocusFrameEnabled;

    enum KeyboardFocusType { HasKeyboardFocus = 0, ContainsKeyboardFocus = 1, NoKeyboardFocus = 2 };
    enum ResTableNameMode { BaseName = 0, FullName = 1 };
    enum TooltipIdMode { OwnId = 0, InheritedId = 1 };
    enum DrawStateSelection { DrawStateByOpacity = 0, DrawStateOpaque = 1, DrawStateBlended = 2 };

    static RCShdPtr<UiWidget> create(UiContainer* parent, LiString const& name,
                                     UiResTable const* table = nullptr);

    // --- geometry -------------------------------------------------------------------------
    GeRectangle<int> const& getRect() const { return _rect; }
    void setOrigin(GePoint2<int> const& p, bool notify = true);
    void translateOrigin(int dx, int dy, bool notify = true);
    void setSize(int w, int h, bool notify = true);
    // The client rectangle: _rect less the frame, and less the focus frame when one is shown.
    // (Inline for the frameless case, which every mark asks for several times.)
    GeRectangle<int> getCanvas() const { return _currentFrame ? getFramedCanvas() : _rect; }
    GePoint2<int> getScreenCoord(bool toWindow = true) const;
    GeRectangle<int> getScreenRect() const;
    GeRectangle<int> getScreenCanvas() const;
    bool isInside(GePoint2<int> const& p) const { return _rect.contains(p); }
    static GeRectangle<int> getDefaultSize() { return {0, 70, 0, 30}; }

    virtual UiWidget* findWidgetAt(GePoint2<int> const& p);
    virtual void adjustCoords() {}
    virtual void setRect(GeRectangle<int> const& rect, bool notify = true);
    virtual void parentResize(int w, int h);

    // --- events (dispatch, arming) ----------------------------------------------------------
    virtual void processEvent(EvEvent& event);
    virtual void activate(EvEvent& event);
    void arm(EvPointerButtonDownEvent& down);
    void disarm(EvPointerButtonUpEvent& up);
    void disarm();
    void mmove(EvPointerMoveEvent& event);
    void keyPress(EvKeyPressEvent& event);
    void keyRelease(EvKeyReleaseEvent& event);
    void inputChar(EvCharEvent& event);
    void hotkey(EvHotkeyEvent& event);
    void scroll(EvPointerScrollEvent& event);
    void focusIn(EvFocusInEvent& event);
    void focusOut(EvFocusOutEvent& event);
    void kbdFocusIn(EvKbdFocusInEvent& event);
    void kbdFocusOut(EvKbdFocusOutEvent& event);
    void grabAcquired(EvGrabAcquiredEvent& event);
    void grabLost(EvGrabLostEvent& event);
    void pushArm();
    void transferArm();
    void veryDangerousDuplicateArm();
    bool isArmed() const;
    UiGrabHandler* getEventHandler() const;
    // Sum of the canvas minima of the ancestors up to the window: the origin of grabbed events.
    GePoint2<int> getProcessOrigin() const;
    void setAllowPtrHandlingInGrab(bool allow);

    // --- drawing --------------------------------------------------------------------------
    virtual void expose(GeRectangle<int> const& clip, GePoint2<int> const& origin);
    void performExpose(GeRectangle<int> const& clip, GePoint2<int> const& origin, int visibility);
    void draw(GeRectangle<int> const& region, GePoint2<int> const& origin, int visibility);
    static SmStateObject const& getDrawState(int selection, float opacity);
    SmStateObject const& getDrawState(int selection) const;
    void setDrawCollapsing(bool collapse);
    void drawShadedBackground(GeRectangle<int> const& r, GePoint2<int> const& origin,
                              CoRgbColor const& top, CoRgbColor const& bottom);
    void drawFadedBackground(GeRectangle<int> const& r, GePoint2<int> const& origin,
                             CoRgbColor const& top, CoRgbColor const& bottom);
    // Builds the two shared draw states; called once by the toolkit's start-up.
    static void initDrawStates();

    virtual void acceptVisitor(class UiWidgetVisitor& visitor);
    virtual void setWindow(UiWindow* window);

    // --- parent, visibility, enable -------------------------------------------------------
    void setParent(UiContainer* parent);
    void clearParent();
    UiContainer* getParent() const;
    UiWindow* getWindow() const { return _window; }
    void show();
    void hide();
    void display(bool on);
    bool isDisplayed() const;
    bool isMapped() const;
    // Maps or unmaps this widget and its subtree; with `checkParent`, a widget whose parent is
    // unmapped stays unmapped. Returns whether the mapped state changed.
    virtual bool setMap(bool map, bool checkParent);
    void lock(bool locked = true);
    void unlock();
    bool isLocked() const;
    virtual void enable(bool enabled);
    bool isEnabled() const { return !_disabled; }
    bool isSelfDisabled() const { return _selfDisabled; }
    bool isParentDisabled() const { return _parentDisabled; }

    // --- appearance -----------------------------------------------------------------------
    virtual void setColor(LiString const& name, CoRgbColor const& color);
    virtual CoRgbColor getColor(LiString const& name) const;
    CoRgbColor const& getBackground() const { return _background; }
    CoRgbColor const& getForeground() const { return _foreground; }
    CoRgbColor const& getInactiveForeground() const { return _inactiveForeground; }
    CoRgbColor const& getParentBackground() const { return _parentColor; }
    CoRgbColor const& getCurrentBackground() const { return _currentBackground; }
    virtual void setFrame(RCShdPtr<UiFrame> const& frame, LiString const& name);
    RCShdPtr<UiFrame> getFrame(LiString const& name) const;
    RCShdPtr<UiFrame> const& getCurrentFrame() const { return _currentFrame; }
    void setCurrentFrame(LiString const& name);
    virtual RCShdPtr<UiFrame> getPreparedFrame() const;
    void setOpacity(float opacity);
    float getOpacity() const { return _opacity; }
    bool isOpaque() const;
    void setCursor(RCShdPtr<WsCursor> const& cursor);
    RCShdPtr<WsCursor> getCursor() const;
    void resetCursor();

    // --- focus flags ----------------------------------------------------------------------
    void setFocusable(bool f) { _focusable = f; }
    bool isFocusable() const { return _focusable; }
    void setKeyboardFocusable(bool f) { _keyboardFocusable = f; }
    // Accepts "On" and "Off"; any other text changes nothing.
    void setKeyboardFocusable(char const* text);
    bool isKeyboardFocusable() const { return _keyboardFocusable; }
    void setKeyboardFocusFrame(bool f) { _keyboardFocusFrame = f; }
    bool hasKeyboardFocusFrame() const { return _keyboardFocusFrame; }
    void setPointerFocus(bool f);
    KeyboardFocusType getKeyboardFocusType() const { return _keyboardFocusType; }
    bool hasFocus() const;
    bool hasPointerFocus() const { return _pointerFocus; }

    // --- damage ---------------------------------------------------------------------------
    void markForUpdate();
    void clearMarks();
    virtual void markRegion(GeRectangle<int> const& rect);
    virtual void markChildren(GeRectangle<int>& rect);
    virtual void markParent(GeRectangle<int> const& rect);
    virtual void markDown(GeRectangle<int>& rect);
    UiMarkedRectList& getMarkedRectList();
    // Whether this widget, or a widget below it, has marks still to draw.
    virtual bool hasDamage() const;
    std::vector<GeRectangle<int>> getMarkedRects() const;

    // --- constraint -----------------------------------------------------------------------
    bool hasConstraint() const;
    void setConstraint(UiConstraint const& c);
    void removeConstraint();
    void applyConstraint();
    UiConstraint const& getConstraint() const;

    // --- resources ------------------------------------------------------------------------
    void changeResource(LiString const& text);
    void changeResource(RCShdPtr<UiResource> const& resource);
    void setResTableName(std::string const& name);
    std::string getResTableName(ResTableNameMode mode = BaseName) const;
    static void setWidgetResTable(UiWidget& widget, UiResTable const& table);
    // Records the name of the table the widget's resources came from.
    static void setWidgetResTable(UiWidget& widget, std::string const& tableName);
    int getInitPhase() const;

    // --- tooltip data ---------------------------------------------------------------------
    std::string getTooltipId(TooltipIdMode mode = OwnId) const;
    void setTooltipId(std::string const& id);
    std::string const& getDefaultTooltip() const;
    void setDefaultTooltip(std::string const& text);
    bool hasDefaultTooltip() const;
    bool hasStoredTooltip() const;
    bool canSetTooltip() const;
    void enableTooltip(bool on);
    bool isTooltipEnabled() const;
    virtual std::string getTooltip(GePoint2<int> const& p) const;

    // --- client data ----------------------------------------------------------------------
    void addClientData(RCShdPtr<RCObject> const& data);
    void removeClientData(RCShdPtr<RCObject> const& data);
    std::vector<RCShdPtr<RCObject>> const& getClientData() const;
    template <class T>
    T* findClientData() const {
        for (auto const& d : getClientData())
            if (auto* t = dynamic_cast<T*>(d.get()))
                return t;
        return nullptr;
    }

    // --- callbacks ------------------------------------------------------------------------
    virtual void addDestroyCb(CbHandler<EvEvent>* h);
    virtual void addEnableCb(CbHandler<EvEvent>* h);
    virtual void addDisableCb(CbHandler<EvEvent>* h);
    virtual void addLockCb(CbHandler<EvEvent>* h);
    virtual void addUnlockCb(CbHandler<EvEvent>* h);
    virtual void addArmCb(CbHandler<EvEvent>* h);
    virtual void addDisarmCb(CbHandler<EvEvent>* h);
    virtual void addMapCb(CbHandler<EvEvent>* h);
    virtual void addUnMapCb(CbHandler<EvEvent>* h);
    virtual void addFocusInCb(CbHandler<EvEvent>* h);
    virtual void addFocusOutCb(CbHandler<EvEvent>* h);
    virtual void addKbdFocusInCb(CbHandler<EvEvent>* h);
    virtual void addKbdFocusOutCb(CbHandler<EvEvent>* h);
    virtual void addMmoveCb(CbHandler<EvEvent>* h);
    virtual void addResizeCb(CbHandler<EvEvent>* h);
    virtual void addRepositionCb(CbHandler<EvEvent>* h);
    virtual void addGrabAcquiredCb(CbHandler<EvEvent>* h);
    virtual void addGrabLostCb(CbHandler<EvEvent>* h);
    virtual void addKeyPressCb(CbHandler<EvEvent>* h);
    virtual void addKeyReleaseCb(CbHandler<EvEvent>* h);
    virtual void addInputCharCb(CbHandler<EvEvent>* h);
    virtual void addActivateCb(CbHandler<EvEvent>* h);
    virtual void addHotkeyCb(CbHandler<EvEvent>* h);
    virtual void addUserDrawCb(CbHandler<EvEvent>* h);
    virtual void addScrollCb(CbHandler<EvEvent>* h);
    virtual void addTooltipCb(CbHandler<EvEvent>* h);
    virtual void removeDestroyCb(CbHandler<EvEvent>* h);
    virtual void removeEnableCb(CbHandler<EvEvent>* h);
    virtual void removeDisableCb(CbHandler<EvEvent>* h);
    virtual void removeLockCb(CbHandler<EvEvent>* h);
    virtual void removeUnlockCb(CbHandler<EvEvent>* h);
    virtual void removeArmCb(CbHandler<EvEvent>* h);
    virtual void removeDisarmCb(CbHandler<EvEvent>* h);
    virtual void removeMapCb(CbHandler<EvEvent>* h);
    virtual void removeUnMapCb(CbHandler<EvEvent>* h);
    virtual void removeFocusInCb(CbHandler<EvEvent>* h);
    virtual void removeFocusOutCb(CbHandler<EvEvent>* h);
    virtual void removeKbdFocusInCb(CbHandler<EvEvent>* h);
    virtual void removeKbdFocusOutCb(CbHandler<EvEvent>* h);
    virtual void removeMmoveCb(CbHandler<EvEvent>* h);
    virtual void removeResizeCb(CbHandler<EvEvent>* h);
    virtual void removeRepositionCb(CbHandler<EvEvent>* h);
    virtual void removeGrabAcquiredCb(CbHandler<EvEvent>* h);
    virtual void removeGrabLostCb(CbHandler<EvEvent>* h);
    virtual void removeKeyPressCb(CbHandler<EvEvent>* h);
    virtual void removeKeyReleaseCb(CbHandler<EvEvent>* h);
    virtual void removeInputCharCb(CbHandler<EvEvent>* h);
    virtual void removeActivateCb(CbHandler<EvEvent>* h);
    virtual void removeHotkeyCb(CbHandler<EvEvent>* h);
    virtual void removeUserDrawCb(CbHandler<EvEvent>* h);
    virtual void removeScrollCb(CbHandler<EvEvent>* h);
    virtual void removeTooltipCb(CbHandler<EvEvent>* h);
    virtual void insertUserDrawCb(CbHandler<EvEvent>* h);
    // Fires the reposition or tooltip dispatcher; for subclasses that report such changes.
    void fireReposition(EvEvent& event);
    void fireTooltip(EvEvent& event);

    // --- plug-in interface -----------------------------------------------------------------
    // What plug-ins see of this widget: the base makes a UiWidgetAdapter on the spot (it
    // counts as a reference to the widget); classes with an adapter of their own override it.
    virtual RCShdPtr<PiWidget> retrieveInterface();
    // The widget behind an interface; null for null, for an interface that is no widget
    // adapter, or for a container's adapter that outlived its container.
    static RCShdPtr<UiWidget> fromInterface(RCShdPtr<PiWidget> const& iface);

    // --- run-time type --------------------------------------------------------------------
    // The widget's type in the widget type registry; a class without a type of its own answers
    // with its base's. The types exist while the toolkit package is started.
    virtual RttiType<WidgetRttiType> const& getNodeType() const;

    // --- drag and drop --------------------------------------------------------------------
    void setDndObject(RCShdPtr<UiDragAndDrop> const& dnd);
    RCShdPtr<UiDragAndDrop> const& getDndObject() const;
    // The recogniser that decides when a press on this widget becomes a drag; owned.
    void setDragRecogniser(OPtr<UiGestureRecogniser> recogniser);
    UiGestureRecogniser* getDragRecogniser() const;

    // `a` less `b` when the difference is a single strip; otherwise `a` unchanged.
    static GeRectangle<int> subtractRect(GeRectangle<int> const& a, GeRectangle<int> const& b);

    virtual void performDeferredMove() {}
    virtual void cut() {}
    virtual void copy() {}
    virtual void paste() {}
    virtual void dump(std::ostream& os) const;
    LiString const& getName() const { return _name; }
    void setName(LiString const& name);

protected:
    UiWidget(UiContainer* parent, LiString const& name);
    ~UiWidget() override;

    // Fills the set with the defaults of this class; a subclass calls its base first.
    virtual void setDefaultResources(UiResSet& set);
    // Applies one resource, matching on name and type; a subclass falls through to its base.
    virtual void setResource(RCShdPtr<UiResource> const& resource);
    void resInit(UiResTable const* table);
    virtual void postInit();
    // Called after colour, frame and similar state changes; subclasses refresh derived state.
    virtual void stateChanged() {}
    virtual void preDraw(GeRectangle<int> const& r, GePoint2<int> const& origin, int visibility);
    virtual void preUserDraw(GeRectangle<int> const&, GePoint2<int> const&) {}
    virtual void postUserDraw(GeRectangle<int> const&, GePoint2<int> const&) {}
    virtual void drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin);
    virtual void postDraw(GePoint2<int> const& origin);
    virtual void parentEnable(bool enabled);
    // Whether this widget has overridden stateChanged (grab notices call it only then).
    virtual bool hasStateChangedHook() const { return false; }

    void setDisplayed(bool displayed);
    // A reference to this widget for event senders; null while no one holds the widget yet
    // (inside constructors), where a temporary reference would delete it.
    RCShdPtr<UiWidget> makeSender();
    // Shows this widget's cursor if it has the pointer focus and no override cursor is set.
    void applyCursor();
    // Adds a rectangle to the mark list without any propagation, and notifies the window.
    void mark(GeRectangle<int> const& rect);
    UiWidgetImp& imp() const { return *_imp; }

    friend class UiContainer;
    friend class UiWidgetImp;
    friend class UiFocusKeyboard;
    friend class UiWindow;
    friend class UiTopLevel;

private:
    GeRectangle<int> getFramedCanvas() const;
    void initFocusColors();
    static CoRgbColor blackColor();
    // Lists this widget with its container as having damage to draw, and the container with
    // its own, up to the window: a redraw then visits the damaged children only.
    void noteDamage();
    // The drag interception ahead of dispatch; true when the event started a drag.
    bool interceptDrag(EvEvent& event);
    void dispatchEvent(EvEvent& event);
    // Disarms the stack from the top down to and including this widget's first entry.
    void disarmDownTo(EvPointerButtonUpEvent const& up);
    void forwardScroll(EvPointerScrollEvent& event);
    void traceButton(char const* what, EvPointerButtonEvent const& event) const;

protected:
    CoRgbColor _background;
    CoRgbColor _foreground;
    CoRgbColor _inactiveForeground;
    CoRgbColor _parentColor;
    CoRgbColor _currentBackground;
    UPtr<UiWidgetImp> _imp;
    // Beside _imp, not in it: marks read it first, and often need nothing else.
    UiWindow* _window = nullptr;
    LiString _name;
    std::map<LiString, RCShdPtr<UiFrame>> _frames;
    RCShdPtr<UiFrame> _currentFrame;
    bool _focusable = true;
    bool _keyboardFocusable = true;
    KeyboardFocusType _keyboardFocusType = NoKeyboardFocus;
    bool _keyboardFocusFrame = false;
    bool _pointerFocus = false;
    CoRgbColor _keyboardFocusColor;
    CoRgbColor _pointerFocusColor;
    GeRectangle<int> _rect;
    bool _selfDisabled = false;
    bool _parentDisabled = false;
    bool _disabled = false;
    float _opacity = 1.0f;
};

// Visits widgets of a tree; containers pass it on to their children.
class UiWidgetVisitor {
public:
    virtual ~UiWidgetVisitor() = default;
    virtual void visit(UiWidget& widget) = 0;
};

} // namespace Zr
