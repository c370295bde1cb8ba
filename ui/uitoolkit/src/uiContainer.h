// UiContainer: a widget with children. It owns their stacking order, passes size changes down
// to their constraints, carries damage up and down, draws children over its canvas and runs
// keyboard tabbing among them. There is no layout manager: each child's constraint is the layout.
#pragma once

#include "uiWidget.h"

#include "piWidget.h"

#include "iterator.h"
#include "prdPredicate.h"

#include <list>

namespace Zr {

class UiGroup;

class UiContainer : public UiWidget {
public:
    bool setMap(bool map, bool checkParent) override;
    // The children in stacking order, bottom first, and the widget kept on top.
    struct Children {
        RCShdPtr<UiWidget> _alwaysOnTop;
        std::list<RCShdPtr<UiWidget>> _list;
    };
    using ChildList = std::list<RCShdPtr<UiWidget>>;
    enum WidgetList { AllChildren = 0, MappedChildren = 1 };

    // Runs apply on each child, bottom to top, through forEach.
    class FunctorObj {
    public:
        virtual ~FunctorObj() = default;
        void operator()(RCShdPtr<UiWidget> const& w) { apply(w); }

    protected:
        virtual void apply(RCShdPtr<UiWidget> const& w) = 0;
    };

    static RCShdPtr<UiContainer> create(UiContainer* parent, LiString const& name,
                                        UiResTable const* table = nullptr);

    virtual RCShdPtr<UiWidget> findWidget(PrdPredicate<UiWidget> const& pred) const;
    virtual RCShdPtr<UiWidget> findWidget(LiString const& name) const;
    virtual Iterator<RCShdPtr<UiWidget>> findWidgets(PrdPredicate<UiWidget> const& pred) const;
    virtual RCShdPtr<UiWidget> findWidgetRecursive(PrdPredicate<UiWidget> const& pred) const;
    virtual RCShdPtr<UiWidget> findWidgetRecursive(LiString const& name) const;
    virtual Iterator<RCShdPtr<UiWidget>>
    findWidgetsRecursive(PrdPredicate<UiWidget> const& pred) const;
    virtual RCShdPtr<UiGroup> findGroup(LiString const& name) const;
    virtual RCShdPtr<UiGroup> findGroupRecursive(LiString const& name) const;
    virtual void addChild(RCShdPtr<UiWidget> const& child);
    virtual void removeChild(RCShdPtr<UiWidget> const& child);
    virtual void removeChildren();
    virtual ChildList& getChildrenList();
    virtual ChildList const& getChildrenList() const;
    // The upward half of marking: cuts `rect` where this container hides it and marks the
    // children stacked above `child` that overlap it. Zeroes `rect` when nothing is visible.
    virtual void markUp(GeRectangle<int>& rect, UiWidget* child);
    virtual void setShadedBackground(bool shaded);
    void getTabList(std::vector<RCShdPtr<UiWidget>>& list, WidgetList mode) const;

    void forEach(FunctorObj& f);
    void front(UiWidget* child);
    void back(UiWidget* child);
    void push(UiWidget* child);
    void pop(UiWidget* child);
    void setAlwaysOnTop(UiWidget* child);
    RCShdPtr<UiWidget> const& getAlwaysOnTop() const;
    void setLowerLeft(int x, int y);
    void setTransferCursorToChildren(bool transfer) { _transferCursor = transfer; }
    bool getTransferCursorToChildren() const { return _transferCursor; }

    bool isTabbingEnabled() const { return _tabbingEnabled; }
    void setTabbingEnabled(bool enabled);
    void refreshTabbingState();
    void setTabbingDirty();
    void excludeWidgetsFromTabbing(bool exclude) { _excludeFromTabbing = exclude; }
    std::vector<LiString> const& getTabStops() const { return _tabStops; }
    // One tab step: 1 next, 2 previous.
    void tabStep(int direction);
    std::vector<RCShdPtr<UiWidget>> const& getCachedTabList() const { return _tabList; }
    int getTabIndex() const { return _tabIndex; }

    // The widget that tabbing treats as one stop for `w`: a value editor for itself, or the
    // value editor that `w` carries in its client data; null for any other widget. The value
    // editor family installs the finder; until then no widget is a tab unit.
    using TabUnitFinder = UiWidget* (*)(UiWidget& w);
    static void setTabUnitFinder(TabUnitFinder finder);

    // 1 when opaque children cover the whole canvas, so background and user draw are skipped.
    int computeCanvasHidden() const;

    // The container's plug-in interface: the one stored with setInterface, or a new
    // UiContainerAdapter stored on first use, so that every call returns the same object.
    RCShdPtr<PiWidget> retrieveInterface() override;
    // Stores the interface that retrieveInterface returns; null clears it. An adapter of this
    // container stored here does not count as a reference to it (the container and its adapter
    // would otherwise keep each other alive): it lives as long as the container, and a plug-in
    // that keeps it past the container's end finds it detached (see UiWidgetAdapter).
    void setInterface(RCShdPtr<PiWidget> const& iface);
    RCShdPtr<PiWidget> const& getInterface() const { return _interface; }

    // Overrides of UiWidget.
    UiWidget* findWidgetAt(GePoint2<int> const& p) override;
    void expose(GeRectangle<int> const& clip, GePoint2<int> const& origin) override;
    void acceptVisitor(UiWidgetVisitor& visitor) override;
    void setWindow(UiWindow* window) override;
    void setRect(GeRectangle<int> const& rect, bool notify = true) override;
    void enable(bool enabled) override;
    void markRegion(GeRectangle<int> const& rect) override;
    void markChildren(GeRectangle<int>& rect) override;
    void markDown(GeRectangle<int>& rect) override;
    void setColor(LiString const& name, CoRgbColor const& color) override;
    void setFrame(RCShdPtr<UiFrame> const& frame, LiString const& name) override;

    // The two colours of a shaded background, set at the toolkit's start-up.
    static CoRgbColor ShadeTop;
    static CoRgbColor ShadeBottom;

protected:
    UiContainer(UiContainer* parent, LiString const& name);
    ~UiContainer() override;

    void setResource(RCShdPtr<UiResource> const& resource) override;
    void setDefaultResources(UiResSet& set) override;
    void postInit() override;
    void drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) override;
    // The list operations behind setParent and clearParent; clients use addChild.
    virtual void addWidget(UiWidget* child);
    virtual void removeWidget(UiWidget* child);

    friend class UiWidget;

private:
    void onKeyPress(EvEvent& event);
    void onHotkey(EvEvent& event);
    // The registry's hotkey events go through the container's own dispatch.
    void onRegistryHotkey(EvEvent& event);
    // Runs a tab step if the event is the entry of "Next Control" or "Previous Control".
    bool stepForHotkey(EvHotkeyEvent const& event);
    bool tabListIsStale() const;
    void rebuildTabList();
    ChildList::iterator findChild(UiWidget* child);
    // Hides a displayed child around a change of its place, so both places get damaged.
    template <class Move>
    void restack(UiWidget* child, Move move);
    void resizeChildren();
    static TabUnitFinder _tabUnitFinder;
    // Detaches and drops the stored interface; run first by the destructor.
    void releaseInterface();

    UPtr<Children> _children;
    CbMethod<UiContainer, EvEvent> _keyPressHandler;
    CbMethod<UiContainer, EvEvent> _hotkeyHandler;
    CbMethod<UiContainer, EvEvent> _registryHandler;
    std::vector<LiString> _tabStops;
    std::vector<RCShdPtr<UiWidget>> _tabList;
    bool _tabbingDirty = true;
    bool _tabbingEnabled = false;
    bool _excludeFromTabbing = false;
    bool _shadedBackground = false;
    int _tabIndex = -1;
    bool _transferCursor = false;
    RCShdPtr<PiWidget> _interface;
};

} // namespace Zr
