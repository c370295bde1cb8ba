// UiContainer: a widget with children. It owns their stacking order, passes size changes down
// to their constraints, carries damage up and down, draws children over its canvas and runs
// keyboard tabbing among them. There is no layout manager: each child's constraint is the layout.
#pragma once

#include "uiWidget.h"

#include "piWidget.h"

#include "containers.h"
#include "iterator.h"
#include "prdPredicate.h"

#include <cstdint>
#include <list>
#include <vector>

namespace Zr {

class UiChildGrid;
class UiGroup;

class UiContainer : public UiWidget {
public:
    // The children in stacking order, bottom first, and the widget kept on top. The list is
    // changed only through addChild, removeChild and the restacking operations: the indexes
    // below follow it.
    struct Children {
        RCShdPtr<UiWidget> _alwaysOnTop;
        std::list<RCShdPtr<UiWidget>> _list;
        // Stacking keys of the next child on top and below the bottom one.
        std::int64_t _topKey = 0;
        std::int64_t _bottomKey = 0;
        // Each name's first child in stacking order and how many children bear it, so that
        // look-ups by name and duplicate checks don't walk the list.
        struct Named {
            UiWidget* _first;
            int _count;
        };
        HashMap<LiString, Named> _byName;
        // The children with damage to draw in their subtree, in no order; a redraw visits
        // these only, sorted by stacking key, in the scratch list beside it.
        std::vector<UiWidget*> _damaged;
        std::vector<UiWidget*> _exposing;
        // Set while removeChildren detaches every child: one mark covers them all.
        bool _bulkRemoval = false;
        // Where the children lie, for a container with many; and the marking's scratch list.
        UPtr<UiChildGrid> _grid;
        std::size_t _gridCount = 0; // the children the grid's cells were sized for
        std::vector<UiWidget*> _over;
        // Steps whenever a child comes, goes, moves or is restacked: a child's note that no
        // sibling above overlaps it holds while the count it was taken at is current.
        std::uint32_t _layoutEpoch = 1;
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
    // Containers with more children than this find the children a mark reaches through a
    // grid over the canvas instead of walking them all (32 by default; tests compare both).
    static void setGridThreshold(std::size_t children);
    // The child named `name` that lies lowest in the stacking order, or null; no walk.
    UiWidget* firstChildNamed(LiString const& name) const;
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
    RttiType<WidgetRttiType> const& getNodeType() const override;
    // Stores the interface that retrieveInterface returns; null clears it. An adapter of this
    // container stored here does not count as a reference to it (the container and its adapter
    // would otherwise keep each other alive): it lives as long as the container, and a plug-in
    // that keeps it past the container's end finds it detached (see UiWidgetAdapter).
    void setInterface(RCShdPtr<PiWidget> const& iface);
    RCShdPtr<PiWidget> const& getInterface() const { return _interface; }

    // Overrides of UiWidget.
    bool setMap(bool map, bool checkParent) override;
    UiWidget* findWidgetAt(GePoint2<int> const& p) override;
    void expose(GeRectangle<int> const& clip, GePoint2<int> const& origin) override;
    void acceptVisitor(UiWidgetVisitor& visitor) override;
    void setWindow(UiWindow* window) override;
    void setRect(GeRectangle<int> const& rect, bool notify = true) override;
    void enable(bool enabled) override;
    void markRegion(GeRectangle<int> const& rect) override;
    void markChildren(GeRectangle<int>& rect) override;
    void markDown(GeRectangle<int>& rect) override;
    bool hasDamage() const override;
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
    // The name index and the stacking keys, kept up with the list.
    void indexName(UiWidget* child);
    void unindexName(UiWidget* child);
    void findFirstNamed(Children::Named& named, LiString const& name, UiWidget const* leaving);
    void restacked(UiWidget* child);
    void swapKeys(UiWidget* a, UiWidget* b);
    void renameChild(UiWidget* child, LiString const& name);
    // Takes a child out of the lists of damage to draw.
    void forgetDamage(UiWidget* child);
    // Fills `out` with the children that may lie over `rect` (canvas coordinates) and stand
    // above the stacking key `above`, topmost first: all of them in a small container, those
    // the grid finds in a large one. `self`, when given, is the child whose key `above` is.
    void childrenOver(GeRectangle<int> const& rect, std::int64_t above, std::vector<UiWidget*>& out,
                      UiWidget const* self = nullptr);
    // A child's rectangle changed from `old`: the grid follows.
    void childMoved(UiWidget* child, GeRectangle<int> const& old);
    // Hides a displayed child around a change of its place, so both places get damaged.
    template <class Move>
    void restack(UiWidget* child, Move move);
    void resizeChildren();
    static TabUnitFinder _tabUnitFinder;
    static std::size_t _gridThreshold;
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
