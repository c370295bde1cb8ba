// UiContainer: the child list and its stacking order, size changes passed down to the children's
// constraints, damage carried up and down the tree, drawing over the canvas, and tabbing.
#include "uiContainer.h"

#include "smGl.h"
#include "uiChildGrid.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGroup.h"
#include "uiHotkeyRegistry.h"
#include "uiResSet.h"
#include "uiResText.h"
#include "uiWidgetEvent.h"
#include "uiWidgetImp.h"
#include "uiWidgetRttiType.h"
#include "uiWindow.h"

#include <algorithm>
#include <climits>

namespace Zr {

namespace {
LiString const NextControl = "Next Control";
LiString const PreviousControl = "Previous Control";
LiString const TabStops = "TabStops";

std::vector<int> sortedUnique(std::vector<int> v) {
    std::sort(v.begin(), v.end());
    v.erase(std::unique(v.begin(), v.end()), v.end());
    return v;
}
} // namespace

CoRgbColor UiContainer::ShadeTop;
CoRgbColor UiContainer::ShadeBottom;
UiContainer::TabUnitFinder UiContainer::_tabUnitFinder = nullptr;

// --- life cycle --------------------------------------------------------------------------------

RCShdPtr<UiContainer> UiContainer::create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table) {
    RCShdPtr<UiContainer> container(new UiContainer(parent, name));
    container->resInit(table);
    container->postInit();
    return container;
}

UiContainer::UiContainer(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _children(std::make_unique<Children>()) {
    _keyPressHandler.bind(this, &UiContainer::onKeyPress);
    _hotkeyHandler.bind(this, &UiContainer::onHotkey);
    _registryHandler.bind(this, &UiContainer::onRegistryHotkey);
}

UiContainer::~UiContainer() {
    // A plug-in may still hold the stored interface: it must not point here any longer.
    releaseInterface();
    if (_tabbingEnabled) {
        UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
        registry.unregisterHandler(PreviousControl, &_registryHandler);
        registry.unregisterHandler(NextControl, &_registryHandler);
    }
    // Children that outlive the container must not point up at it: empty the list first, so
    // that their clearParent finds nothing to unlink and marks nothing here.
    ChildList children;
    children.swap(_children->_list);
    _children->_alwaysOnTop = nullptr;
    _children->_byName.clear();
    _children->_damaged.clear();
    for (auto const& child : children) {
        child->_imp->_listed = false;
        child->_imp->_damageListed = false;
    }
    for (auto const& child : children)
        if (child->getParent() == this)
            child->clearParent();
}

void UiContainer::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
}

void UiContainer::setResource(RCShdPtr<UiResource> const& resource) {
    UiWidget::setResource(resource);
    if (resource->getNameRef() == TabStops) {
        if (auto const* text = dynamic_cast<UiResText const*>(resource.get())) {
            _tabStops = text->getStrings();
            setTabbingDirty();
        }
    }
}

void UiContainer::postInit() {
    UiWidget::postInit();
    // Subclasses' colour hooks see the inherited colour once construction is over.
    setColor(ParentColor, _parentColor);
}

// --- the child list ------------------------------------------------------------------------------

UiContainer::ChildList& UiContainer::getChildrenList() {
    return _children->_list;
}

UiContainer::ChildList const& UiContainer::getChildrenList() const {
    return _children->_list;
}

UiContainer::ChildList::iterator UiContainer::findChild(UiWidget* child) {
    if (!child || !child->_imp->_listed || child->getParent() != this)
        return _children->_list.end();
    return child->_imp->_node;
}

UiWidget* UiContainer::firstChildNamed(LiString const& name) const {
    auto it = _children->_byName.find(name);
    return it == _children->_byName.end() ? nullptr : it->second._first;
}

void UiContainer::indexName(UiWidget* child) {
    auto [it, added] = _children->_byName.try_emplace(child->getName(), Children::Named{child, 1});
    if (added)
        return;
    ++it->second._count;
    if (child->_imp->_stackKey < it->second._first->_imp->_stackKey)
        it->second._first = child;
}

void UiContainer::unindexName(UiWidget* child) {
    auto it = _children->_byName.find(child->getName());
    if (it == _children->_byName.end())
        return;
    if (--it->second._count == 0) {
        _children->_byName.erase(it);
        return;
    }
    if (it->second._first == child)
        findFirstNamed(it->second, child->getName(), child);
}

void UiContainer::findFirstNamed(Children::Named& named, LiString const& name,
                                 UiWidget const* leaving) {
    // Only names borne by several children come here: a walk of the list is rare.
    named._first = nullptr;
    for (auto const& w : _children->_list)
        if (w.get() != leaving && w->getName() == name) {
            named._first = w.get();
            return;
        }
}

void UiContainer::restacked(UiWidget* child) {
    ++_children->_layoutEpoch;
    auto it = _children->_byName.find(child->getName());
    if (it != _children->_byName.end() && it->second._count > 1)
        findFirstNamed(it->second, child->getName(), nullptr);
}

void UiContainer::renameChild(UiWidget* child, LiString const& name) {
    unindexName(child);
    child->_name = name;
    indexName(child);
}

void UiContainer::forgetDamage(UiWidget* child) {
    if (!child->_imp->_damageListed)
        return;
    child->_imp->_damageListed = false;
    auto& damaged = _children->_damaged;
    damaged.erase(std::remove(damaged.begin(), damaged.end(), child), damaged.end());
    // A child removed while the container draws is skipped by the draw in progress.
    std::replace(_children->_exposing.begin(), _children->_exposing.end(), child,
                 static_cast<UiWidget*>(nullptr));
}

// Up to this many children a walk of the list is as quick as the grid.
std::size_t UiContainer::_gridThreshold = 32;

void UiContainer::setGridThreshold(std::size_t children) {
    _gridThreshold = children;
}

void UiContainer::childrenOver(GeRectangle<int> const& rect, std::int64_t above,
                               std::vector<UiWidget*>& out, UiWidget const* self) {
    Children& c = *_children;
    out.clear();
    if (c._list.size() <= _gridThreshold) {
        for (auto it = c._list.rbegin(); it != c._list.rend(); ++it)
            if ((*it)->_imp->_stackKey > above)
                out.push_back(it->get());
        return;
    }
    GeRectangle<int> const canvas = getCanvas();
    // A rectangle over much of the canvas meets most children anyway: the list, already in
    // order, is then quicker than the grid's cells and a sort.
    GeRectangle<int> const inside = rect.intersection({0, canvas.width(), 0, canvas.height()});
    if (4LL * inside.width() * inside.height() >=
        static_cast<long long>(canvas.width()) * canvas.height()) {
        for (auto it = c._list.rbegin(); it != c._list.rend(); ++it)
            if ((*it)->_imp->_stackKey > above)
                out.push_back(it->get());
        return;
    }
    // Built at the first need, and again when the canvas changes size or the children have
    // grown fourfold since.
    if (!c._grid || !c._grid->isFor(canvas.width(), canvas.height()) ||
        c._list.size() > 4 * c._gridCount) {
        if (!c._grid)
            c._grid = std::make_unique<UiChildGrid>();
        c._gridCount = c._list.size();
        ++c._layoutEpoch;
        c._grid->reset(canvas.width(), canvas.height(), c._gridCount);
        for (auto const& w : c._list)
            c._grid->insert(w.get(), w->getRect());
    }
    // The marking child itself is left out in the cells, where its rectangle sits: it would
    // be found in each cell it covers and then dropped by its key.
    c._grid->collect(rect, out, self);
    if (out.empty())
        return;
    std::erase_if(out, [above](UiWidget const* w) { return w->_imp->_stackKey <= above; });
    if (out.size() > 1)
        std::sort(out.begin(), out.end(), [](UiWidget const* a, UiWidget const* b) {
            return a->_imp->_stackKey > b->_imp->_stackKey;
        });
}

void UiContainer::childMoved(UiWidget* child, GeRectangle<int> const& old) {
    ++_children->_layoutEpoch;
    if (UiChildGrid* grid = _children->_grid.get()) {
        grid->erase(child, old);
        grid->insert(child, child->getRect());
    }
}

bool UiContainer::hasDamage() const {
    return UiWidget::hasDamage() || !_children->_damaged.empty();
}

void UiContainer::addChild(RCShdPtr<UiWidget> const& child) {
    child->setParent(this);
    setTabbingDirty();
}

void UiContainer::removeChild(RCShdPtr<UiWidget> const& child) {
    child->clearParent();
    setTabbingDirty();
}

void UiContainer::removeChildren() {
    ChildList children = _children->_list;
    if (children.empty())
        return;
    // One mark for the whole canvas instead of one per child, each walking the others.
    _children->_bulkRemoval = true;
    for (auto const& child : children)
        child->clearParent();
    _children->_bulkRemoval = false;
    _children->_alwaysOnTop = nullptr;
    setTabbingDirty();
    markRegion(_rect);
}

void UiContainer::addWidget(UiWidget* child) {
    if (!child || child->_imp->_listed)
        return;
    Children& c = *_children;
    auto& list = c._list;
    UiWidgetImp& imp = *child->_imp;
    // The on-top widget keeps the last place: the newcomer goes just below it and takes its key.
    if (c._alwaysOnTop && !list.empty() && list.back() == c._alwaysOnTop) {
        UiWidgetImp& top = *c._alwaysOnTop->_imp;
        imp._node = list.insert(std::prev(list.end()), RCShdPtr<UiWidget>(child));
        imp._stackKey = top._stackKey;
        top._stackKey = ++c._topKey;
        restacked(c._alwaysOnTop.get());
    } else {
        imp._node = list.insert(list.end(), RCShdPtr<UiWidget>(child));
        imp._stackKey = ++c._topKey;
    }
    imp._listed = true;
    imp._damageListed = false;
    ++c._layoutEpoch;
    indexName(child);
    if (c._grid)
        c._grid->insert(child, child->getRect());
    if (child->hasDamage())
        child->noteDamage();
    // Widgets made with this container as parent arrive here without addChild.
    setTabbingDirty();
}

void UiContainer::removeWidget(UiWidget* child) {
    if (!child || !child->_imp->_listed)
        return;
    UiWidgetImp& imp = *child->_imp;
    // The list may hold the last reference: keep the child alive until it is marked out.
    RCShdPtr<UiWidget> keep = *imp._node;
    if (_children->_alwaysOnTop == child)
        _children->_alwaysOnTop = nullptr;
    _children->_list.erase(imp._node);
    imp._listed = false;
    ++_children->_layoutEpoch;
    unindexName(child);
    if (_children->_grid)
        _children->_grid->erase(child, child->getRect());
    forgetDamage(child);
    setTabbingDirty();
    if (_children->_bulkRemoval)
        return;
    GeRectangle<int> const canvas = getCanvas();
    markRegion(child->getRect().translated(canvas.x1, canvas.y1));
}

template <class Move>
void UiContainer::restack(UiWidget* child, Move move) {
    auto it = findChild(child);
    if (it == _children->_list.end())
        return;
    RCShdPtr<UiWidget> keep = *it;
    bool const shown = child->isDisplayed();
    if (shown)
        child->hide();
    it = findChild(child);
    if (it != _children->_list.end())
        move(it);
    if (shown)
        child->show();
}

void UiContainer::front(UiWidget* child) {
    restack(child, [this, child](ChildList::iterator it) {
        Children& c = *_children;
        auto& list = c._list;
        if (c._alwaysOnTop && list.back() == c._alwaysOnTop && c._alwaysOnTop != child) {
            list.splice(std::prev(list.end()), list, it);
            swapKeys(child, c._alwaysOnTop.get());
            c._alwaysOnTop->_imp->_stackKey = ++c._topKey;
            restacked(c._alwaysOnTop.get());
        } else {
            list.splice(list.end(), list, it);
            child->_imp->_stackKey = ++c._topKey;
        }
        restacked(child);
    });
}

void UiContainer::back(UiWidget* child) {
    restack(child, [this, child](ChildList::iterator it) {
        auto& list = _children->_list;
        list.splice(list.begin(), list, it);
        child->_imp->_stackKey = --_children->_bottomKey;
        restacked(child);
    });
}

void UiContainer::push(UiWidget* child) {
    restack(child, [this, child](ChildList::iterator it) {
        auto& list = _children->_list;
        auto above = std::next(it);
        if (above == list.end() || *above == _children->_alwaysOnTop)
            return;
        UiWidget* other = above->get();
        list.splice(std::next(above), list, it);
        swapKeys(child, other);
    });
}

void UiContainer::pop(UiWidget* child) {
    restack(child, [this, child](ChildList::iterator it) {
        auto& list = _children->_list;
        if (it == list.begin() || *it == _children->_alwaysOnTop)
            return;
        UiWidget* other = std::prev(it)->get();
        list.splice(std::prev(it), list, it);
        swapKeys(child, other);
    });
}

void UiContainer::swapKeys(UiWidget* a, UiWidget* b) {
    std::swap(a->_imp->_stackKey, b->_imp->_stackKey);
    restacked(a);
    restacked(b);
}

void UiContainer::setAlwaysOnTop(UiWidget* child) {
    if (!child) {
        _children->_alwaysOnTop = nullptr;
        return;
    }
    auto it = findChild(child);
    if (it == _children->_list.end())
        return;
    _children->_alwaysOnTop = *it;
    _children->_list.splice(_children->_list.end(), _children->_list, it);
    child->_imp->_stackKey = ++_children->_topKey;
    restacked(child);
}

RCShdPtr<UiWidget> const& UiContainer::getAlwaysOnTop() const {
    return _children->_alwaysOnTop;
}

void UiContainer::forEach(FunctorObj& f) {
    ChildList children = _children->_list;
    for (auto const& child : children)
        f(child);
}

void UiContainer::setLowerLeft(int x, int y) {
    int const dx = x - _rect.x1;
    int const dy = y - _rect.y1;
    if (dx == 0 && dy == 0)
        return;
    // The children keep their place on screen while the canvas origin moves under them.
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->translateOrigin(-dx, -dy, true);
    GeRectangle<int> const old = _rect;
    _rect = GeRectangle<int>(x, old.x2, y, old.y2);
    if (UiContainer* parent = _imp->_listed ? getParent() : nullptr)
        parent->childMoved(this, old);
    adjustCoords();
    markParent(old);
    markForUpdate();
}

// --- finders
// ---------------------------------------------------------------------------------------

RCShdPtr<UiWidget> UiContainer::findWidget(PrdPredicate<UiWidget> const& pred) const {
    for (auto const& child : _children->_list)
        if (pred(*child))
            return child;
    return nullptr;
}

RCShdPtr<UiWidget> UiContainer::findWidget(LiString const& name) const {
    return RCShdPtr<UiWidget>(firstChildNamed(name));
}

Iterator<RCShdPtr<UiWidget>> UiContainer::findWidgets(PrdPredicate<UiWidget> const& pred) const {
    std::vector<RCShdPtr<UiWidget>> found;
    for (auto const& child : _children->_list)
        if (pred(*child))
            found.push_back(child);
    return makeIterator(std::move(found));
}

RCShdPtr<UiWidget> UiContainer::findWidgetRecursive(PrdPredicate<UiWidget> const& pred) const {
    for (auto const& child : _children->_list) {
        if (pred(*child))
            return child;
        if (auto const* sub = dynamic_cast<UiContainer const*>(child.get()))
            if (RCShdPtr<UiWidget> found = sub->findWidgetRecursive(pred))
                return found;
    }
    return nullptr;
}

RCShdPtr<UiWidget> UiContainer::findWidgetRecursive(LiString const& name) const {
    return findWidgetRecursive([&name](UiWidget const& w) { return w.getName() == name; });
}

Iterator<RCShdPtr<UiWidget>>
UiContainer::findWidgetsRecursive(PrdPredicate<UiWidget> const& pred) const {
    std::vector<RCShdPtr<UiWidget>> found;
    // Depth first, each widget ahead of its own children.
    auto collect = [&](auto& self, UiContainer const& container) -> void {
        for (auto const& child : container._children->_list) {
            if (pred(*child))
                found.push_back(child);
            if (auto const* sub = dynamic_cast<UiContainer const*>(child.get()))
                self(self, *sub);
        }
    };
    collect(collect, *this);
    return makeIterator(std::move(found));
}

RCShdPtr<UiGroup> UiContainer::findGroup(LiString const& name) const {
    for (auto const& child : _children->_list)
        if (child->getName() == name)
            if (auto* group = dynamic_cast<UiGroup*>(child.get()))
                return RCShdPtr<UiGroup>(group);
    return nullptr;
}

RCShdPtr<UiGroup> UiContainer::findGroupRecursive(LiString const& name) const {
    RCShdPtr<UiWidget> found = findWidgetRecursive([&name](UiWidget const& w) {
        return w.getName() == name && dynamic_cast<UiGroup const*>(&w) != nullptr;
    });
    return dynamicCast<UiGroup>(found);
}

UiWidget* UiContainer::findWidgetAt(GePoint2<int> const& p) {
    if (!isMapped() || !isInside(p))
        return nullptr;
    GeRectangle<int> const canvas = getCanvas();
    GePoint2<int> const local(p.x - canvas.x1, p.y - canvas.y1);
    auto& list = _children->_list;
    // Among many children, the grid gives the few whose rectangles hold the point, top first
    // (a child is only ever found inside its rectangle). Over the frame, outside the grid, the
    // list is walked as for a small container.
    if (list.size() > _gridThreshold && local.x >= 0 && local.y >= 0 && local.x < canvas.width() &&
        local.y < canvas.height()) {
        std::vector<UiWidget*>& over = _children->_over;
        childrenOver({local.x, local.x + 1, local.y, local.y + 1}, INT64_MIN, over);
        for (UiWidget* child : over)
            if (UiWidget* hit = child->findWidgetAt(local))
                return hit;
        return this;
    }
    for (auto it = list.rbegin(); it != list.rend(); ++it)
        if (UiWidget* hit = (*it)->findWidgetAt(local))
            return hit;
    return this;
}

// --- geometry, state and appearance passed down -----------------------------------------------

void UiContainer::resizeChildren() {
    GeRectangle<int> const canvas = getCanvas();
    // Bottom to top: a constraint that names a sibling sees it as already placed.
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->parentResize(canvas.width(), canvas.height());
}

void UiContainer::setRect(GeRectangle<int> const& rect, bool notify) {
    if (rect == _rect)
        return;
    int const oldWidth = _rect.width();
    int const oldHeight = _rect.height();
    UiWidget::setRect(rect, false);
    if (_rect.width() != oldWidth || _rect.height() != oldHeight)
        resizeChildren();
    if (notify) {
        UiResize resized(makeSender());
        resized.setRegion(_rect);
        imp().fire(UiWidgetImp::Resize, resized);
    }
}

void UiContainer::setFrame(RCShdPtr<UiFrame> const& frame, LiString const& name) {
    GeRectangle<int> const oldCanvas = getCanvas();
    UiWidget::setFrame(frame, name);
    GeRectangle<int> const newCanvas = getCanvas();
    if (newCanvas.width() != oldCanvas.width() || newCanvas.height() != oldCanvas.height())
        resizeChildren();
    markForUpdate();
}

void UiContainer::setColor(LiString const& name, CoRgbColor const& color) {
    UiWidget::setColor(name, color);
    if (name == BackgroundColor) {
        ChildList children = _children->_list;
        for (auto const& child : children)
            child->setColor(ParentColor, _background);
    }
    markForUpdate();
}

void UiContainer::enable(bool enabled) {
    bool const wasEnabled = isEnabled();
    UiWidget::enable(enabled);
    if (isEnabled() == wasEnabled)
        return;
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->parentEnable(isEnabled());
}

void UiContainer::setWindow(UiWindow* window) {
    UiWidget::setWindow(window);
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->setWindow(window);
}

bool UiContainer::setMap(bool map, bool checkParent) {
    if (!UiWidget::setMap(map, checkParent))
        return false;
    // A copy: map and unmap callbacks may change the list.
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->setMap(map, checkParent);
    return true;
}

void UiContainer::setShadedBackground(bool shaded) {
    if (_shadedBackground == shaded)
        return;
    _shadedBackground = shaded;
    markForUpdate();
}

void UiContainer::acceptVisitor(UiWidgetVisitor& visitor) {
    UiWidget::acceptVisitor(visitor);
    ChildList children = _children->_list;
    for (auto const& child : children)
        child->acceptVisitor(visitor);
}

// --- drawing ---------------------------------------------------------------------------------

int UiContainer::computeCanvasHidden() const {
    // Everything relative to the container's own lower-left corner.
    GeRectangle<int> canvas = getCanvas();
    canvas.translate(-_rect.x1, -_rect.y1);
    int const childDx = canvas.x1;
    int const childDy = canvas.y1;
    std::vector<GeRectangle<int>> opaque;
    std::vector<int> xs{0, _rect.width(), canvas.x1, canvas.x2};
    std::vector<int> ys{0, _rect.height(), canvas.y1, canvas.y2};
    for (auto const& child : _children->_list) {
        if (!child->isDisplayed() || !child->isMapped() || child->getOpacity() != 1.0f)
            continue;
        GeRectangle<int> r = child->getRect().translated(childDx, childDy);
        if (r.isEmpty())
            continue;
        opaque.push_back(r);
        xs.push_back(r.x1);
        xs.push_back(r.x2);
        ys.push_back(r.y1);
        ys.push_back(r.y2);
    }
    if (opaque.empty())
        return 0;
    xs = sortedUnique(std::move(xs));
    ys = sortedUnique(std::move(ys));
    // Each cell of the grid lies wholly inside or wholly outside every child, so testing one
    // cell against the children decides it.
    for (std::size_t i = 0; i + 1 < xs.size(); ++i) {
        for (std::size_t j = 0; j + 1 < ys.size(); ++j) {
            GeRectangle<int> const cell(xs[i], xs[i + 1], ys[j], ys[j + 1]);
            if (!canvas.contains(cell))
                continue;
            bool covered =
                std::any_of(opaque.begin(), opaque.end(),
                            [&cell](GeRectangle<int> const& r) { return r.contains(cell); });
            if (!covered)
                return 0;
        }
    }
    return 1;
}

void UiContainer::expose(GeRectangle<int> const& clip, GePoint2<int> const& origin) {
    if (!isDisplayed() || !isMapped())
        return;
    if (!getMarkedRectList().empty())
        performExpose(clip, origin, computeCanvasHidden());
    Children& c = *_children;
    if (c._damaged.empty() || !c._exposing.empty())
        return; // nothing below to draw, or a draw of this container is under way
    GeRectangle<int> const canvas = getCanvas();
    GeRectangle<int> const region = canvas.translated(origin.x, origin.y).intersection(clip);
    if (region.isEmpty())
        return;
    GePoint2<int> const canvasOrigin(origin.x + canvas.x1, origin.y + canvas.y1);
    // Only the children with damage are visited, bottom to top. Damage made while they draw
    // goes to the emptied list: children it reaches are drawn after them in this same pass,
    // as a draw over the whole list would have reached them.
    auto byStack = [](UiWidget const* a, UiWidget const* b) {
        return a->_imp->_stackKey < b->_imp->_stackKey;
    };
    for (int pass = 0; pass < 2 && !c._damaged.empty(); ++pass) {
        std::size_t const drawn = c._exposing.size();
        if (pass == 0 && 4 * c._damaged.size() > c._list.size()) {
            // Most children have damage: the list gives them in order without a sort (the
            // listed ones are those with damage).
            for (auto const& child : c._list)
                if (child->_imp->_damageListed)
                    c._exposing.push_back(child.get());
        } else {
            c._exposing.insert(c._exposing.end(), c._damaged.begin(), c._damaged.end());
            std::sort(c._exposing.begin() + drawn, c._exposing.end(), byStack);
        }
        c._damaged.clear();
        for (std::size_t i = drawn; i < c._exposing.size(); ++i)
            if (UiWidget* child = c._exposing[i])
                child->expose(region, canvasOrigin);
    }
    // What still has marks (a rectangle drawn into one buffer of two) stays listed.
    // (A child drawn in this pass kept its listed flag, so none is in the list twice.)
    for (UiWidget* child : c._exposing) {
        if (!child)
            continue;
        if (child->hasDamage())
            c._damaged.push_back(child);
        else
            child->_imp->_damageListed = false;
    }
    c._exposing.clear();
}

void UiContainer::drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) {
    if (_shadedBackground) {
        drawShadedBackground(r, origin, ShadeTop, ShadeBottom);
        return;
    }
    UiWindow* window = getWindow();
    if (_opacity == 1.0f && window && window->isGlClearAllowed()) {
        SmGl::clearColor(_background.r, _background.g, _background.b, 1.0f);
        SmGl::clear(Gl::COLOR_BUFFER_BIT);
    } else {
        SmGl::color3fv(_background.data());
        SmGl::recti(r.x1 - origin.x, r.y1 - origin.y, r.x2 - origin.x, r.y2 - origin.y);
    }
}

// --- damage ------------------------------------------------------------------------------------

void UiContainer::markRegion(GeRectangle<int> const& rect) {
    UiWindow* window = getWindow();
    if (!isMapped() || !isDisplayed() || !window || rect.isEmpty())
        return;
    if (window->isRepaintMerged())
        return; // the whole window is repainted at its next redraw
    GeRectangle<int> copy = rect.intersection(_rect);
    if (UiContainer* parent = getParent())
        parent->markUp(copy, this);
    if (copy.isEmpty())
        return;
    window->noteMark(copy);

    GeRectangle<int> const canvas = getCanvas();
    GeRectangle<int> region = copy.intersection(canvas);
    region.translate(-canvas.x1, -canvas.y1);
    // Top down: an opaque child takes its share, and what is left is this container's.
    std::vector<UiWidget*>& over = _children->_over;
    childrenOver(region, INT64_MIN, over);
    for (std::size_t i = 0; i < over.size() && !region.isEmpty(); ++i)
        over[i]->markChildren(region);
    region.translate(canvas.x1, canvas.y1);

    if (canvas.contains(copy)) {
        if (region.isEmpty())
            return;
        mark(region);
        if (!isOpaque())
            markParent(region);
    } else {
        // The copy reaches into the frame, which only this container draws.
        mark(copy);
        if (!isOpaque())
            markParent(copy);
    }
    window->markNotify();
}

void UiContainer::markUp(GeRectangle<int>& rect, UiWidget* child) {
    if (!isMapped() || !isDisplayed() || rect.isEmpty()) {
        rect = GeRectangle<int>();
        return;
    }
    GeRectangle<int> const canvas = getCanvas();
    rect.translate(canvas.x1, canvas.y1);
    rect.intersect(canvas);
    if (!rect.isEmpty())
        if (UiContainer* parent = getParent())
            parent->markUp(rect, this);
    rect.translate(-canvas.x1, -canvas.y1);
    if (rect.isEmpty())
        return;
    // The siblings stacked above the child see the damage too; opaque ones cut it. A child
    // known to have no sibling above over it (since the children last changed) skips the
    // look-up for marks inside its rectangle, as a widget marking itself does.
    Children& c = *_children;
    bool const listed = child && child->_imp->_listed;
    if (listed && child->_imp->_clearAboveEpoch == c._layoutEpoch &&
        child->getRect().contains(rect))
        return;
    std::vector<UiWidget*>& over = c._over;
    childrenOver(rect, listed ? child->_imp->_stackKey : INT64_MIN, over, listed ? child : nullptr);
    if (over.empty()) {
        if (listed && rect.contains(child->getRect()))
            child->_imp->_clearAboveEpoch = c._layoutEpoch;
        return;
    }
    for (UiWidget* sibling : over) {
        sibling->markDown(rect);
        if (rect.isEmpty())
            return;
    }
}

void UiContainer::markChildren(GeRectangle<int>& rect) {
    if (!isMapped() || !isDisplayed())
        return;
    GeRectangle<int> const part = rect.intersection(_rect);
    if (part.isEmpty())
        return;
    GeRectangle<int> const canvas = getCanvas();
    // Only the canvas reaches the children: a child half over the frame gets its marks cut.
    GeRectangle<int> region = part.intersection(canvas);
    region.translate(-canvas.x1, -canvas.y1);
    std::vector<UiWidget*>& over = _children->_over;
    childrenOver(region, INT64_MIN, over);
    for (std::size_t i = 0; i < over.size() && !region.isEmpty(); ++i)
        over[i]->markDown(region);
    region.translate(canvas.x1, canvas.y1);

    if (!canvas.contains(part))
        mark(part);
    else if (!region.isEmpty())
        mark(region);
    if (isOpaque())
        rect = subtractRect(rect, _rect);
    if (UiWindow* window = getWindow())
        window->markNotify();
}

void UiContainer::markDown(GeRectangle<int>& rect) {
    markChildren(rect);
}

// --- tabbing ---------------------------------------------------------------------------------

void UiContainer::setTabUnitFinder(TabUnitFinder finder) {
    _tabUnitFinder = finder;
}

void UiContainer::setTabbingEnabled(bool enabled) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    _tabbingEnabled = enabled;
    if (enabled) {
        registry.registerHandler(PreviousControl, &_registryHandler);
        registry.registerHandler(NextControl, &_registryHandler);
        addKeyPressCb(&_keyPressHandler);
        addHotkeyCb(&_hotkeyHandler);
        if (isMapped() && getParent() && hasFocus())
            UiFocusPointer::getInstance().updateFocus(this);
    } else {
        // The key press handler stays: it tests the flag first.
        registry.unregisterHandler(PreviousControl, &_registryHandler);
        registry.unregisterHandler(NextControl, &_registryHandler);
        removeHotkeyCb(&_hotkeyHandler);
    }
}

void UiContainer::onRegistryHotkey(EvEvent& event) {
    processEvent(event);
}

bool UiContainer::stepForHotkey(EvHotkeyEvent const& event) {
    UiHotkeyRegistry const& registry = UiHotkeyRegistry::getInstance();
    if (event.getEntry() == registry.getEntry(NextControl)) {
        tabStep(1);
        return true;
    }
    if (event.getEntry() == registry.getEntry(PreviousControl)) {
        tabStep(2);
        return true;
    }
    return false;
}

void UiContainer::onKeyPress(EvEvent& event) {
    auto* press = dynamic_cast<EvKeyPressEvent*>(&event);
    if (!press || press->isProcessed() || !_tabbingEnabled)
        return;
    UiHotkeyRegistry const& registry = UiHotkeyRegistry::getInstance();
    for (LiString const& action : {NextControl, PreviousControl}) {
        UiHotkey const* hotkey = registry.getHotkey(action);
        if (!hotkey || !hotkey->matches(*press))
            continue;
        EvHotkeyEvent asHotkey(*press, registry.getEntry(action));
        stepForHotkey(asHotkey);
        press->setProcessed();
        return;
    }
}

void UiContainer::onHotkey(EvEvent& event) {
    auto* hotkey = dynamic_cast<EvHotkeyEvent*>(&event);
    if (!hotkey || hotkey->isProcessed() || !_tabbingEnabled)
        return;
    if (stepForHotkey(*hotkey))
        hotkey->setProcessed();
}

void UiContainer::getTabList(std::vector<RCShdPtr<UiWidget>>& list, WidgetList mode) const {
    std::vector<RCShdPtr<UiWidget>> mine;
    for (auto const& child : _children->_list) {
        if (mode == MappedChildren && !child->isMapped())
            continue;
        auto const* sub = dynamic_cast<UiContainer const*>(child.get());
        if (sub && sub->isTabbingEnabled())
            continue; // it runs its own
        if (_tabUnitFinder && _tabUnitFinder(*child)) {
            mine.push_back(child);
            continue;
        }
        if (child->isKeyboardFocusable())
            mine.push_back(child);
        if (sub && !sub->_excludeFromTabbing)
            sub->getTabList(mine, mode);
    }

    if (!_tabStops.empty()) {
        // The named stops first, in the order named; the others after them as collected.
        std::vector<RCShdPtr<UiWidget>> ordered;
        for (LiString const& name : _tabStops) {
            auto it = std::find_if(mine.begin(), mine.end(), [&name](RCShdPtr<UiWidget> const& w) {
                return w && w->getName() == name;
            });
            if (it != mine.end()) {
                ordered.push_back(*it);
                *it = nullptr;
            }
        }
        for (auto& w : mine)
            if (w)
                ordered.push_back(std::move(w));
        mine.swap(ordered);
    } else {
        // Reading order: top rows first, left to right, with y counted up from the window's
        // bottom edge.
        UiWidget const* top = getWindow();
        if (!top) {
            top = this;
            while (top->getParent())
                top = top->getParent();
        }
        long long const height = top->getRect().height();
        long long const width = top->getRect().width();
        auto key = [height, width](UiWidget const& w) {
            GePoint2<int> const p = w.getScreenCoord(true);
            return (height - p.y) * width + p.x;
        };
        std::vector<std::pair<long long, RCShdPtr<UiWidget>>> keyed;
        keyed.reserve(mine.size());
        for (auto& w : mine)
            keyed.emplace_back(key(*w), std::move(w));
        std::stable_sort(keyed.begin(), keyed.end(),
                         [](auto const& a, auto const& b) { return a.first < b.first; });
        mine.clear();
        for (auto& k : keyed)
            mine.push_back(std::move(k.second));
    }
    list.insert(list.end(), mine.begin(), mine.end());
}

bool UiContainer::tabListIsStale() const {
    if (_tabbingDirty)
        return true;
    // An entry that lost its parent, or that only this list keeps alive, has left the tree.
    return std::any_of(_tabList.begin(), _tabList.end(), [](RCShdPtr<UiWidget> const& w) {
        return !w->getParent() || w->getReferenceCount() == 1;
    });
}

void UiContainer::rebuildTabList() {
    if (!tabListIsStale())
        return;
    _tabList.clear();
    getTabList(_tabList, AllChildren);
    _tabbingDirty = false;
}

void UiContainer::tabStep(int direction) {
    rebuildTabList();
    int const count = static_cast<int>(_tabList.size());
    if (count == 0)
        return;
    if (_tabIndex < 0 || _tabIndex >= count)
        _tabIndex = direction == 1 ? count - 1 : 0;

    if (UiWidget* focus = UiFocusKeyboard::getInstance().getFocus()) {
        UiWidget* unit = _tabUnitFinder ? _tabUnitFinder(*focus) : nullptr;
        UiWidget* sought = unit ? unit : focus;
        for (int i = 0; i < count; ++i) {
            if (_tabList[i].get() == sought) {
                _tabIndex = i;
                break;
            }
        }
    }

    int const step = direction == 1 ? 1 : -1;
    int const start = _tabIndex;
    int index = start;
    do {
        index = (index + step + count) % count;
        UiWidget const& w = *_tabList[index];
        UiContainer const* parent = w.getParent();
        if (!dynamic_cast<UiContainer const*>(&w) && parent && parent->isDisplayed() &&
            w.isDisplayed() && w.isMapped() && w.isEnabled() && w.isFocusable())
            break;
    } while (index != start);

    _tabIndex = index;
    UiFocusKeyboard::getInstance().cycleFocus(_tabList[index].get());
}

void UiContainer::refreshTabbingState() {
    rebuildTabList();
    int const count = static_cast<int>(_tabList.size());
    if (count == 0) {
        _tabIndex = -1;
        return;
    }
    _tabIndex = std::clamp(_tabIndex, 0, count - 1);
    UiFocusKeyboard::getInstance().setFocus(_tabList[_tabIndex]);
}

void UiContainer::setTabbingDirty() {
    for (UiContainer* c = this; c; c = c->getParent()) {
        c->_tabbingDirty = true;
        if (c->_tabbingEnabled)
            break;
    }
}

RttiType<WidgetRttiType> const& UiContainer::getNodeType() const {
    return UiWidgetTypes::Container::getType();
}

} // namespace Zr
