// UiPopupMenu: filling, sizing and placing, the pointer and keys, cascading, selection, closing
// and drawing.
#include "uiPopupMenu.h"

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiCellIcon.h"
#include "uiCellIndicator.h"
#include "uiCellKey.h"
#include "uiCellText.h"
#include "uiColorRegistry.h"
#include "uiConstraint.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFrame.h"
#include "uiGrab.h"
#include "uiIconRegistry.h"
#include "uiResColor.h"
#include "uiResFont.h"
#include "uiResFrame.h"
#include "uiResSet.h"
#include "uiRowCascading.h"
#include "uiRowSeparator.h"
#include "uiWidgetRttiType.h"
#include "uiWindow.h"

#include "evKeyCode.h"
#include "msgProtocol.h"
#include "smContext.h"
#include "wsCursorRegistry.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

namespace Zr {

namespace {

// The marks of toggle, radio and cascading rows, loaded once when the first menu is made.
struct MenuIcons {
    RCShdPtr<WsManagedImage> cascade, toggleOn, toggleOff, radioOn, radioOff;
    static MenuIcons const& get() {
        static MenuIcons const icons = [] {
            // A mark that cannot be read is left out: the row still works without it.
            auto load = [](char const* file) -> RCShdPtr<WsManagedImage> {
                try {
                    return UiIconRegistry::getInstance().loadImage(file);
                } catch (ExBase const&) {
                    return nullptr;
                }
            };
            MenuIcons i;
            i.cascade = load("cascade.tif");
            i.toggleOn = load("toggleOn.tif");
            i.toggleOff = load("toggleOff.tif");
            i.radioOn = load("radioOn.tif");
            i.radioOff = load("radioOff.tif");
            return i;
        }();
        return icons;
    }
};

// The room a frame takes on each side, measured on a large rectangle.
struct Insets {
    int left = 0, right = 0, bottom = 0, top = 0;
};

Insets insetsOf(RCShdPtr<UiFrame> const& frame) {
    if (!frame)
        return {};
    GeRectangle<int> const big{0, 1000, 0, 1000};
    GeRectangle<int> const c = frame->getCanvas(big);
    return {c.x1, big.x2 - c.x2, c.y1, big.y2 - c.y2};
}

// The key codes a menu answers to.
constexpr int KeyLeft = 1, KeyUp = 2, KeyRight = 3, KeyDown = 4, KeyReturn = 11, KeyEscape = 15,
              KeyEnter = 46;

} // namespace

// The rows with their handlers, the layout and the state of an open menu.
class UiPopupMenuImp {
public:
    explicit UiPopupMenuImp(UiPopupMenu* owner) : draw(owner, &UiPopupMenu::userDraw) {}

    struct Entry {
        RCShdPtr<UiRow> row;
        // The row's handlers; made with the first one.
        std::unique_ptr<CbDispatcher<EvEvent>> handlers;
    };
    std::vector<Entry> rows;
    std::vector<int> columnWidths;
    bool closeOnSelection = true;
    bool reverseOrder = false;
    int focusIndex = -1;
    UiPopupMenu* parentPopup = nullptr; // not owned: the parent owns this menu through a row
    RCShdPtr<UiWidget> trigger;
    // The trigger found on the arm stack at launch, for this opening only.
    bool implicitTrigger = false;
    UiContainer* savedParent = nullptr;
    bool moved = false;
    bool removeOnClose = false;
    int minimumWidth = 0;
    GeVector2<int> launchOffset;
    LiString fontHandle;
    bool armedByLaunch = false;
    bool cursorPushed = false;
    // The release of the press that opened the menu selects nothing unless the pointer moved
    // onto another row first.
    bool ignoreRelease = false;
    // The rows shown: all of them unless the menu is taller than the window.
    int firstRow = 0;
    int rowsHeight = 0; // the height the shown rows may take
    bool reportedTall = false;
    CoRgbColor focusColor, separatorLight, separatorShadow;
    CbDispatcher<EvEvent> aboutToPop, traverseLeft, traverseRight, selectionChanged;
    CbMethod<UiPopupMenu, EvEvent> draw;

    int shownEnd(int first) const {
        int height = 0, i = first;
        for (; i < static_cast<int>(rows.size()); ++i) {
            height += rows[static_cast<std::size_t>(i)].row->getHeight();
            if (height > rowsHeight && i > first)
                break;
        }
        return i;
    }
};

// --- life ------------------------------------------------------------------------------------

RCShdPtr<UiPopupMenu> UiPopupMenu::create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table) {
    RCShdPtr<UiPopupMenu> menu(new UiPopupMenu(parent, name));
    menu->resInit(table);
    menu->postInit();
    return menu;
}

GeRectangle<int> UiPopupMenu::getDefaultSubMenuRect() {
    return {0, 100, 0, UiCell::defaultRowHeight()};
}

UiPopupMenu::UiPopupMenu(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _menu(std::make_unique<UiPopupMenuImp>(this)) {
    MenuIcons::get();
    setDisplayed(false);
    setKeyboardFocusable(false);
    addUserDrawCb(&_menu->draw);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    _menu->focusColor = colors.getColor("Blue3");
    _menu->separatorLight = colors.getColor("Blue3");
    _menu->separatorShadow = colors.getColor("Black");
}

UiPopupMenu::~UiPopupMenu() {
    releaseBoth();
    if (_menu->cursorPushed)
        UiApplication::getInstance().popOverrideCursor();
}

void UiPopupMenu::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    set.set(RCShdPtr<UiResource>(new UiResColor(BackgroundColor, colors.getColor("Blue4"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("FocusColor", colors.getColor("Blue3"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("SeparatorColor", colors.getColor("Blue3"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("SeparatorShadowColor", colors.getColor("Black"))));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "Curve")));
}

void UiPopupMenu::setResource(RCShdPtr<UiResource> const& resource) {
    if (auto const* font = dynamic_cast<UiResFont const*>(resource.get())) {
        setFont(font->getFontHandle());
        return;
    }
    if (auto const* color = dynamic_cast<UiResColor const*>(resource.get())) {
        setColor(color->getNameRef(), color->getColor());
        return;
    }
    UiWidget::setResource(resource);
}

void UiPopupMenu::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == "FocusColor")
        _menu->focusColor = color;
    else if (name == "SeparatorColor")
        _menu->separatorLight = color;
    else if (name == "SeparatorShadowColor")
        _menu->separatorShadow = color;
    else
        UiWidget::setColor(name, color);
    for (auto const& e : _menu->rows)
        e.row->setColor(name.str().c_str(), color);
    markForUpdate();
}

CoRgbColor UiPopupMenu::getColor(LiString const& name) const {
    if (name == "FocusColor")
        return _menu->focusColor;
    if (name == "SeparatorColor")
        return _menu->separatorLight;
    if (name == "SeparatorShadowColor")
        return _menu->separatorShadow;
    return UiWidget::getColor(name);
}

RttiType<WidgetRttiType> const& UiPopupMenu::getNodeType() const {
    return UiWidgetTypes::PopupMenu::getType();
}

// --- filling ---------------------------------------------------------------------------------

RCShdPtr<UiRow> UiPopupMenu::makeTextRow(LiString const& text, LiString const& second, int id,
                                         bool selectable, OPtr<UiCell> lead) {
    RCShdPtr<UiRow> row(new UiRow(text, id, selectable));
    // Mark or icon, text, key name: the same columns in every row, so texts line up.
    row->appendCell(lead ? std::move(lead) : std::make_unique<UiCell>());
    row->appendCell(std::make_unique<UiCellText>(text));
    if (!second.str().empty())
        row->appendCell(std::make_unique<UiCellKey>(second));
    return row;
}

int UiPopupMenu::appendText(LiString const& text, CbHandler<EvEvent>* handler, int id,
                            bool selectable) {
    return insertEntry(getNbOptions(), makeTextRow(text, LiString(""), id, selectable, nullptr),
                       handler);
}

int UiPopupMenu::appendText(LiString const& text, LiString const& secondColumn,
                            CbHandler<EvEvent>* handler, int id, bool selectable) {
    return insertEntry(getNbOptions(), makeTextRow(text, secondColumn, id, selectable, nullptr),
                       handler);
}

int UiPopupMenu::appendText(OsFilePath const& icon, std::string const& text,
                            std::string const& secondColumn, CbHandler<EvEvent>* handler, int id,
                            bool selectable) {
    return insertEntry(getNbOptions(),
                       makeTextRow(LiString(text), LiString(secondColumn), id, selectable,
                                   std::make_unique<UiCellIcon>(icon)),
                       handler);
}

int UiPopupMenu::insertText(int beforeId, LiString const& text, CbHandler<EvEvent>* handler, int id,
                            bool selectable) {
    return insertText(beforeId, text, LiString(""), handler, id, selectable);
}

int UiPopupMenu::insertText(int beforeId, LiString const& text, LiString const& secondColumn,
                            CbHandler<EvEvent>* handler, int id, bool selectable) {
    int const at = getIndexOfId(beforeId);
    return insertEntry(at < 0 ? getNbOptions() : at,
                       makeTextRow(text, secondColumn, id, selectable, nullptr), handler);
}

int UiPopupMenu::insertText(int beforeId, OsFilePath const& icon, std::string const& text,
                            std::string const& secondColumn, CbHandler<EvEvent>* handler, int id,
                            bool selectable) {
    int const at = getIndexOfId(beforeId);
    return insertEntry(at < 0 ? getNbOptions() : at,
                       makeTextRow(LiString(text), LiString(secondColumn), id, selectable,
                                   std::make_unique<UiCellIcon>(icon)),
                       handler);
}

int UiPopupMenu::appendLabel(LiString const& text, LiString const& secondColumn) {
    return insertEntry(getNbOptions(), makeTextRow(text, secondColumn, -1, false, nullptr),
                       nullptr);
}

int UiPopupMenu::appendToggle(LiString const& text, bool state, CbHandler<EvEvent>* handler, int id,
                              bool selectable) {
    return appendToggle(text, LiString(""), state, handler, id, selectable);
}

int UiPopupMenu::appendToggle(LiString const& text, LiString const& secondColumn, bool state,
                              CbHandler<EvEvent>* handler, int id, bool selectable) {
    MenuIcons const& icons = MenuIcons::get();
    auto mark = std::make_unique<UiCellIndicator>(
        std::make_unique<UiIconIndicator>(icons.toggleOn, icons.toggleOff), state);
    return insertEntry(getNbOptions(),
                       makeTextRow(text, secondColumn, id, selectable, std::move(mark)), handler);
}

int UiPopupMenu::appendRadio(LiString const& text, bool state, CbHandler<EvEvent>* handler, int id,
                             bool selectable) {
    MenuIcons const& icons = MenuIcons::get();
    auto mark = std::make_unique<UiCellIndicator>(
        std::make_unique<UiIconIndicator>(icons.radioOn, icons.radioOff), state);
    return insertEntry(getNbOptions(),
                       makeTextRow(text, LiString(""), id, selectable, std::move(mark)), handler);
}

void UiPopupMenu::setToggleState(int index, bool state) {
    if (RCShdPtr<UiRow> row = getRow(index))
        if (auto* mark = row->findCell<UiCellIndicator>()) {
            mark->setState(state);
            markForUpdate();
        }
}

bool UiPopupMenu::getToggleState(int index) const {
    RCShdPtr<UiRow> row = getRow(index);
    auto* mark = row ? row->findCell<UiCellIndicator>() : nullptr;
    return mark && mark->getState();
}

void UiPopupMenu::toggleCell(EvEvent& event) {
    if (auto* selected = dynamic_cast<UiRowSelectedEvent*>(&event))
        if (UiRow* row = selected->getRow().get())
            if (auto* mark = row->findCell<UiCellIndicator>())
                mark->setState(!mark->getState());
}

void UiPopupMenu::toggleMultiCell(EvEvent& event) {
    auto* selected = dynamic_cast<UiRowSelectedEvent*>(&event);
    if (!selected || !selected->getRow())
        return;
    UiRow& row = *selected->getRow();
    for (int i = 0; i < row.getNbCells(); ++i)
        if (auto* mark = dynamic_cast<UiCellIndicator*>(row.getCell(i)))
            mark->setState(!mark->getState());
}

int UiPopupMenu::appendSeparator() {
    return insertEntry(getNbOptions(), RCShdPtr<UiRow>(new UiRowSeparator), nullptr);
}

int UiPopupMenu::insertSeparator(int index) {
    return insertEntry(std::clamp(index, 0, getNbOptions()), RCShdPtr<UiRow>(new UiRowSeparator),
                       nullptr);
}

int UiPopupMenu::appendRow(RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler) {
    ZR_ASSERT_TEXT(!row.isNull(), "!row.isNull()");
    return insertEntry(getNbOptions(), row, handler);
}

int UiPopupMenu::insertRow(int index, RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler) {
    ZR_ASSERT_TEXT(!row.isNull(), "!row.isNull()");
    return insertEntry(std::clamp(index, 0, getNbOptions()), row, handler);
}

RCShdPtr<UiRowCascading> UiPopupMenu::appendCascade(LiString const& text, int id) {
    RCShdPtr<UiPopupMenu> submenu =
        create(static_cast<UiContainer*>(nullptr), LiString(getName().str() + ".sub"));
    submenu->setRect(getDefaultSubMenuRect(), false);
    if (!_menu->fontHandle.str().empty())
        submenu->setFont(_menu->fontHandle);
    return appendCascade(text, submenu, id);
}

RCShdPtr<UiRowCascading> UiPopupMenu::appendCascade(LiString const& text,
                                                    RCShdPtr<UiPopupMenu> const& submenu, int id) {
    RCShdPtr<UiRowCascading> row(new UiRowCascading(submenu, text, id));
    row->appendCell(std::make_unique<UiCell>());
    row->appendCell(std::make_unique<UiCellText>(text));
    row->appendCell(std::make_unique<UiCell>()); // no key name
    auto arrow = std::make_unique<UiCellIndicator>(
        std::make_unique<UiIconIndicator>(MenuIcons::get().cascade), true);
    row->appendCell(std::move(arrow));
    // The whole row leads to the submenu: every cell is hot.
    for (int i = 0; i < row->getNbCells(); ++i)
        row->getCell(i)->setHot(true);
    if (insertEntry(getNbOptions(), row, nullptr) < 0)
        return nullptr;
    return row;
}

bool UiPopupMenu::wouldCycle(UiRow const& row) const {
    auto const* cascading = dynamic_cast<UiRowCascading const*>(&row);
    if (!cascading)
        return false;
    // Walks the submenus below the new row, each once, without recursion.
    std::vector<UiPopupMenu const*> pending{cascading->getPopup().get()};
    std::set<UiPopupMenu const*> seen;
    while (!pending.empty()) {
        UiPopupMenu const* menu = pending.back();
        pending.pop_back();
        if (menu == this)
            return true;
        if (!seen.insert(menu).second)
            continue;
        for (auto const& e : menu->_menu->rows)
            if (auto const* sub = dynamic_cast<UiRowCascading const*>(e.row.get()))
                pending.push_back(sub->getPopup().get());
    }
    return false;
}

int UiPopupMenu::insertEntry(int index, RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler) {
    if (wouldCycle(*row)) {
        auto const* cascading = static_cast<UiRowCascading const*>(row.get());
        MsgError error(MsgSubscription("UITOOLKIT_MENU_CYCLE"));
        error.arg(cascading->getPopup()->getName().str()).arg(getName().str());
        MsgProtocol::display(error);
        return -1;
    }
    UiPopupMenuImp::Entry entry{row, nullptr};
    if (handler) {
        entry.handlers = std::make_unique<CbDispatcher<EvEvent>>();
        entry.handlers->addHandler(handler);
    }
    // The row takes the menu's look.
    row->setColor("Background", _background);
    row->setColor("Foreground", _foreground);
    row->setColor("InactiveForeground", _inactiveForeground);
    row->setColor("FocusColor", _menu->focusColor);
    row->setColor("SeparatorColor", _menu->separatorLight);
    row->setColor("SeparatorShadowColor", _menu->separatorShadow);
    if (!_menu->fontHandle.str().empty())
        row->setFont(_menu->fontHandle);
    _menu->rows.insert(_menu->rows.begin() + index, std::move(entry));
    if (_menu->focusIndex >= index)
        ++_menu->focusIndex;
    if (isDisplayed())
        markForUpdate();
    return index;
}

void UiPopupMenu::removeOption(int index) {
    if (index < 0 || index >= getNbOptions())
        return;
    RCShdPtr<UiRow> const row = _menu->rows[static_cast<std::size_t>(index)].row;
    if (index == _menu->focusIndex) {
        row->setHighlight(false);
        _menu->focusIndex = -1;
    } else if (index < _menu->focusIndex) {
        --_menu->focusIndex;
    }
    row->close();
    _menu->rows.erase(_menu->rows.begin() + index);
    if (isDisplayed())
        markForUpdate();
}

void UiPopupMenu::removeOption(CbHandler<EvEvent>* handler) {
    for (int i = getNbOptions() - 1; i >= 0; --i) {
        auto const& handlers = _menu->rows[static_cast<std::size_t>(i)].handlers;
        if (handlers && handlers->isHandlerSubscribed(handler))
            removeOption(i);
    }
}

void UiPopupMenu::removeOptionById(int id) {
    for (int i = getNbOptions() - 1; i >= 0; --i)
        if (_menu->rows[static_cast<std::size_t>(i)].row->getId() == id)
            removeOption(i);
}

void UiPopupMenu::removeOptions(int fromIndex) {
    for (int i = getNbOptions() - 1; i >= std::max(fromIndex, 0); --i)
        removeOption(i);
}

int UiPopupMenu::getNbOptions() const {
    return static_cast<int>(_menu->rows.size());
}

RCShdPtr<UiRow> UiPopupMenu::getRow(int index) const {
    if (index < 0 || index >= getNbOptions())
        return nullptr;
    return _menu->rows[static_cast<std::size_t>(index)].row;
}

int UiPopupMenu::getIndexOfId(int id) const {
    for (int i = 0; i < getNbOptions(); ++i)
        if (_menu->rows[static_cast<std::size_t>(i)].row->getId() == id)
            return i;
    return -1;
}

// --- behaviour -------------------------------------------------------------------------------

void UiPopupMenu::setRemoveOnClose(bool remove) {
    _menu->removeOnClose = remove;
}
bool UiPopupMenu::getRemoveOnClose() const {
    return _menu->removeOnClose;
}
void UiPopupMenu::setCloseOnSelection(bool close) {
    _menu->closeOnSelection = close;
}
void UiPopupMenu::setReverseOrder(bool reverse) {
    _menu->reverseOrder = reverse;
}
void UiPopupMenu::setMinimumWidth(int width) {
    _menu->minimumWidth = width;
}
int UiPopupMenu::getMinimumWidth() const {
    return _menu->minimumWidth;
}
void UiPopupMenu::setLaunchOffset(GeVector2<int> const& offset) {
    _menu->launchOffset = offset;
}
void UiPopupMenu::setTrigger(RCShdPtr<UiWidget> const& trigger) {
    _menu->trigger = trigger;
    _menu->implicitTrigger = false;
}
RCShdPtr<UiWidget> const& UiPopupMenu::getTrigger() const {
    return _menu->trigger;
}
int UiPopupMenu::getFocusIndex() const {
    return _menu->focusIndex;
}
int UiPopupMenu::getFocusId() const {
    RCShdPtr<UiRow> row = getRow(_menu->focusIndex);
    return row ? row->getId() : -1;
}
bool UiPopupMenu::isOpen() const {
    return isDisplayed() || _menu->moved || _menu->parentPopup;
}

UiPopupMenu* UiPopupMenu::getParentPopup() const {
    return _menu->parentPopup;
}
int UiPopupMenu::getFirstShownRow() const {
    return _menu->firstRow;
}
int UiPopupMenu::getNbShownRows() const {
    return _menu->shownEnd(_menu->firstRow) - _menu->firstRow;
}

UiPopupMenu* UiPopupMenu::getOpenSubmenu() const {
    auto* row = dynamic_cast<UiRowCascading*>(getRow(_menu->focusIndex).get());
    return row && row->isPopupDisplayed() ? row->getPopup().get() : nullptr;
}

void UiPopupMenu::setFont(LiString const& handle) {
    _menu->fontHandle = handle;
    for (auto const& e : _menu->rows)
        e.row->setFont(handle);
    markForUpdate();
}

void UiPopupMenu::setSelectable(int index, bool selectable) {
    if (RCShdPtr<UiRow> row = getRow(index)) {
        row->setSelectable(selectable);
        markForUpdate();
    }
}

void UiPopupMenu::setSelection(int index) {
    if (index < -1 || index >= getNbOptions())
        index = -1;
    if (index == _menu->focusIndex)
        return;
    bool const hadSubmenu = getOpenSubmenu() != nullptr;
    if (RCShdPtr<UiRow> old = getRow(_menu->focusIndex))
        old->setHighlight(false); // closes its submenu
    _menu->focusIndex = index;
    if (RCShdPtr<UiRow> row = getRow(index))
        row->setHighlight(true);
    scrollToFocus();
    // The grabs went with the submenu; they come back here.
    if (hadSubmenu && isDisplayed())
        grabBoth();
    UiRowSelectedEvent changed(getRow(index), {});
    _menu->selectionChanged.call(changed);
    markForUpdate();
}

void UiPopupMenu::setFocusOnTopRow() {
    setSelection(-1);
    moveFocus(_menu->reverseOrder ? -1 : 1);
}

void UiPopupMenu::setFocusOnBottomRow() {
    setSelection(-1);
    moveFocus(_menu->reverseOrder ? 1 : -1);
}

void UiPopupMenu::moveFocus(int step) {
    int const n = getNbOptions();
    int index = _menu->focusIndex;
    // From no focus, down starts at the first row and up at the last.
    if (index < 0)
        index = step > 0 ? -1 : n;
    for (int tries = 0; tries < n; ++tries) {
        index = ((index + step) % n + n) % n;
        if (_menu->rows[static_cast<std::size_t>(index)].row->isSelectable()) {
            setSelection(index);
            return;
        }
    }
}

void UiPopupMenu::scrollToFocus() {
    int const focus = _menu->focusIndex;
    if (focus < 0 || _menu->rowsHeight <= 0)
        return;
    int first = _menu->firstRow;
    if (focus < first)
        first = focus;
    while (focus >= _menu->shownEnd(first) && first < focus)
        ++first;
    if (first != _menu->firstRow) {
        _menu->firstRow = first;
        markForUpdate();
    }
}

// --- opening ---------------------------------------------------------------------------------

void UiPopupMenu::launch(GePoint2<int> const& p, AlignPoint align) {
    GePoint2<int> const at = p + _menu->launchOffset;
    EvPointerButtonDownEvent down;
    down.setWCoord(at);
    // The widget that holds the press which opened the menu is its trigger for this opening.
    if (!_menu->trigger && !UiArmStack::empty() && UiArmStack::top()._widget &&
        UiArmStack::top()._widget != this) {
        _menu->trigger = UiArmStack::top()._widget;
        _menu->implicitTrigger = true;
    }
    performPopup(at, align, down, true);
    if (getNbOptions() > 0 && isDisplayed()) {
        UiWidget* trigger = _menu->trigger.get();
        _menu->armedByLaunch = trigger && UiArmStack::contains(trigger);
        _menu->ignoreRelease = !UiArmStack::empty();
    }
    if (!_menu->cursorPushed) {
        UiApplication::getInstance().pushOverrideCursor(
            WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Normal));
        _menu->cursorPushed = true;
    }
}

void UiPopupMenu::layout(int windowHeight) {
    auto& rows = _menu->rows;
    int columns = 0;
    for (auto const& e : rows)
        columns = std::max(columns, e.row->getNbCells());
    _menu->columnWidths.assign(static_cast<std::size_t>(columns), 0);
    for (auto const& e : rows) {
        e.row->padCells(columns);
        for (int c = 0; c < columns; ++c) {
            UiCell* cell = e.row->getCell(c);
            ZR_ASSERT_TEXT(cell != nullptr, "cell != 0");
            int& width = _menu->columnWidths[static_cast<std::size_t>(c)];
            width = std::max(width, cell->getDesiredWidth());
        }
    }
    Insets const in = insetsOf(getCurrentFrame());
    int width = in.left + in.right;
    for (int w : _menu->columnWidths)
        width += w;
    // Room beyond the columns goes to the text column, so key names stay at the right edge.
    if (width < _menu->minimumWidth && columns > 0)
        _menu->columnWidths[columns > 1 ? 1 : 0] += _menu->minimumWidth - width;
    for (auto const& e : rows)
        for (int c = 0; c < columns; ++c)
            e.row->getCell(c)->setWidth(_menu->columnWidths[static_cast<std::size_t>(c)]);
    int total = 0;
    for (auto const& e : rows)
        total += e.row->getHeight();
    _menu->rowsHeight = std::min(total, std::max(windowHeight - in.bottom - in.top, 1));
    _menu->firstRow = 0;
    if (total > _menu->rowsHeight && !_menu->reportedTall) {
        _menu->reportedTall = true;
        MsgWarning warning(MsgSubscription("UITOOLKIT_MENU_TOO_TALL"));
        warning.arg(getName().str()).arg(getNbOptions());
        MsgProtocol::display(warning);
    }
    // The shown rows fill the height exactly.
    int const end = _menu->shownEnd(0);
    int shown = 0;
    for (int i = 0; i < end; ++i)
        shown += rows[static_cast<std::size_t>(i)].row->getHeight();
    _menu->rowsHeight = std::min(_menu->rowsHeight, shown);
}

void UiPopupMenu::performPopup(GePoint2<int> const& p, int align, EvEvent&, bool grab) {
    if (!getWindow())
        return;
    // The handlers fill the menu, directly or by listing rows in the event.
    UiPopulateReturnEvent fill;
    _menu->aboutToPop.call(fill);
    for (RCShdPtr<UiRow> const& row : fill.getList())
        if (row)
            insertEntry(getNbOptions(), row, fill.getHandler());
    if (getNbOptions() == 0)
        return;
    if (align < 0 || align > 3) {
        std::string const text = "Unknown menu position: " + std::to_string(align);
        Assertions::throwProgramAborted(__FILE__, __LINE__, text.c_str());
    }
    UiContainer* root = getWindow()->getRootContainer().get();
    if (!_menu->moved) {
        _menu->savedParent = getParent();
        _menu->moved = true;
    }
    if (getParent() != root)
        setParent(root);
    root->front(this);

    GeRectangle<int> const window = getWindow()->getRect();
    int const W = window.width(), H = window.height();
    if (RCShdPtr<UiRow> old = getRow(_menu->focusIndex))
        old->setHighlight(false);
    _menu->focusIndex = -1;
    layout(H);
    Insets const in = insetsOf(getCurrentFrame());
    int w = in.left + in.right, h = in.bottom + in.top + _menu->rowsHeight;
    for (int c : _menu->columnWidths)
        w += c;
    w = std::max(w, _menu->minimumWidth);

    int x = 0, y = 0;
    if (align == BelowRight || align == AboveRight) {
        x = p.x + 3;
        if (W < x + w)
            x = _menu->parentPopup ? _menu->parentPopup->getRect().x1 - w : p.x - w;
    } else {
        x = p.x - w;
    }
    if (x < 1)
        x = 0;
    if (align == BelowRight || align == BelowLeft) {
        y = p.y - h - 3;
    } else {
        y = p.y + 3;
        if (y + h > H) {
            GeVector2<float> const& grid = UiConstraint::getUIGrid();
            GeVector2<float> const& gap = UiConstraint::getUIGridGap();
            y = p.y - h - static_cast<int>(std::floor(grid.y * 4.f - gap.y)) + 3;
        }
    }
    if (y < 1)
        y = 0;
    setRect({x, x + w, y, y + h}, true);
    show();
    markForUpdate();
    if (grab)
        grabBoth();
}

bool UiPopupMenu::openSubmenu() {
    auto* row = dynamic_cast<UiRowCascading*>(getRow(_menu->focusIndex).get());
    if (!row || !row->isSelectable() || row->isPopupDisplayed())
        return false;
    RCShdPtr<UiPopupMenu> const sub = row->getPopup();
    UiRowSelectedEvent event(RCShdPtr<UiRow>(row), {});
    GeRectangle<int> const S = getScreenRect();
    GeRectangle<int> const rowRect = getCoordOfRow(_menu->focusIndex);
    int const dy = S.y1 - _rect.y1; // the parent canvas to the window
    Insets const in = insetsOf(getCurrentFrame());
    GePoint2<int> at{S.x2 - 3, rowRect.y2 + dy + in.top + 3};
    if (_menu->reverseOrder)
        at.y = rowRect.y1 + dy - in.bottom - 3;
    sub->_menu->parentPopup = this;
    if (!sub->_menu->moved) {
        sub->_menu->savedParent = sub->getParent();
        sub->_menu->moved = true;
    }
    if (sub->getParent() != getParent())
        sub->setParent(getParent());
    sub->performPopup(at, _menu->reverseOrder ? AboveRight : BelowRight, event, true);
    if (!sub->isDisplayed()) {
        sub->close();
        return false;
    }
    markForUpdate();
    return true;
}

// --- closing ---------------------------------------------------------------------------------

UiPopupMenu* UiPopupMenu::outermost() {
    UiPopupMenu* menu = this;
    while (menu->_menu->parentPopup)
        menu = menu->_menu->parentPopup;
    return menu;
}

void UiPopupMenu::grabBoth() {
    UiGrab::pointer().grab(getEventHandler());
    UiGrab::keyboard().grab(getEventHandler());
}

void UiPopupMenu::releaseBoth() {
    UiGrab::pointer().release(getEventHandler());
    UiGrab::keyboard().release(getEventHandler());
}

void UiPopupMenu::closeChain() {
    outermost()->close();
}

void UiPopupMenu::close() {
    RCShdPtr<UiPopupMenu> const self(this);
    UiPopupMenuImp& m = *_menu;
    // Submenus first, innermost last-in first-out.
    if (RCShdPtr<UiRow> row = getRow(m.focusIndex)) {
        row->close();
        row->setHighlight(false);
    }
    m.focusIndex = -1;
    bool const wasOpen = isOpen();
    hide();
    releaseBoth();
    if (m.removeOnClose)
        removeOptions(0);
    // A trigger serves one opening: kept, it would hold a widget that may well own the menu.
    RCShdPtr<UiWidget> const trigger = m.trigger;
    m.trigger = nullptr;
    m.implicitTrigger = false;
    if (trigger && m.armedByLaunch && UiArmStack::contains(trigger.get()))
        trigger->disarm();
    m.armedByLaunch = false;
    m.ignoreRelease = false;
    if (trigger && wasOpen && !m.parentPopup)
        UiFocusKeyboard::getInstance().setFocus(trigger);
    if (m.cursorPushed) {
        m.cursorPushed = false;
        UiApplication::getInstance().popOverrideCursor();
    }
    if (m.moved) {
        m.moved = false;
        UiContainer* const parent = m.savedParent;
        m.savedParent = nullptr;
        if (parent != getParent()) {
            if (parent)
                setParent(parent);
            else
                clearParent();
        }
    }
    m.parentPopup = nullptr;
}

bool UiPopupMenu::selectCurrentRow(GePoint2<int> const& p) {
    if (_menu->focusIndex < 0)
        return false;
    RCShdPtr<UiPopupMenu> const self(this);
    RCShdPtr<UiPopupMenu> const outer(outermost());
    int const index = _menu->focusIndex;
    RCShdPtr<UiRow> const row = getRow(index);
    if (auto* cascading = dynamic_cast<UiRowCascading*>(row.get())) {
        int const cell =
            getCoordOfRow(index).contains(p) ? row->getCellAt(p.x - getCanvas().x1) : -1;
        // The keyboard (no cell under the pointer) or a hot cell opens the submenu.
        if (cell < 0 || row->getCell(cell)->isHot()) {
            if (cascading->isPopupDisplayed())
                return false;
            bool const opened = openSubmenu();
            if (opened && getOpenSubmenu())
                getOpenSubmenu()->setFocusOnTopRow();
            return opened;
        }
    }
    UiCell* first = row->findCell<UiCellIndicator>();
    bool const keepOpen = row->isSelectable() && first && first->isHot();
    bool const closing = _menu->closeOnSelection && !keepOpen;
    if (closing)
        for (UiPopupMenu* m = this; m; m = m->_menu->parentPopup)
            m->hide();
    if (row->isSelectable()) {
        UiRowSelectedEvent event(row, p);
        CbDispatcher<EvEvent>* handlers =
            _menu->rows[static_cast<std::size_t>(index)].handlers.get();
        try {
            if (handlers)
                handlers->call(event);
        } catch (std::exception const& e) {
            // A failing command is reported; the menu closes as after any selection.
            MsgError error(MsgSubscription("UITOOLKIT_MENU_ACTION_FAILED"));
            error.arg(row->getString().str()).arg(e.what());
            MsgProtocol::display(error);
        }
        markForUpdate();
    }
    if (closing)
        outer->close();
    return true;
}

// --- events ----------------------------------------------------------------------------------

void UiPopupMenu::processEvent(EvEvent& event) {
    if (auto* pointer = evCast<EvPointerEvent>(event)) {
        onPointer(*pointer);
        event.setProcessed();
        return;
    }
    if (auto* key = evCast<EvKeyPressEvent>(event)) {
        onKey(*key);
        event.setProcessed();
        return;
    }
    // While open, the menu takes every key: nothing below reacts to keys meant for it.
    if (evCast<EvKeyboardEvent>(event) && isDisplayed()) {
        event.setProcessed();
        return;
    }
    UiWidget::processEvent(event);
}

bool UiPopupMenu::pointerMoved(GePoint2<int> const& p) {
    // The innermost menu of the chain under the pointer takes it.
    for (UiPopupMenu* m = this; m; m = m->_menu->parentPopup) {
        if (!m->_rect.contains(p))
            continue;
        int row = m->getRowByCoord(p);
        // A separator or a label takes no focus: the highlight leaves the rows.
        if (row >= 0 && !m->getRow(row)->isSelectable())
            row = -1;
        if (row != m->_menu->focusIndex) {
            m->setSelection(row);
            _menu->ignoreRelease = false;
        }
        if (row >= 0 && m->getOpenSubmenu() == nullptr) {
            RCShdPtr<UiRow> const r = m->getRow(row);
            int const cell = r->getCellAt(p.x - m->getCanvas().x1);
            if (dynamic_cast<UiRowCascading*>(r.get()) && cell >= 0 && r->getCell(cell)->isHot())
                m->openSubmenu();
        }
        return true;
    }
    return false;
}

void UiPopupMenu::onPointer(EvPointerEvent& event) {
    GePoint2<int> const p = event.getCoord();
    RCShdPtr<UiPopupMenu> const self(this);
    if (auto* scroll = evCast<EvPointerScrollEvent>(event)) {
        int const step = scroll->getScrollDirection() == EvPointerScrollEvent::Up ? -1 : 1;
        int const last = getNbOptions() - getNbShownRows();
        int const first = std::clamp(_menu->firstRow + step, 0, std::max(last, 0));
        if (first != _menu->firstRow) {
            _menu->firstRow = first;
            markForUpdate();
        }
        return;
    }
    if (evCast<EvPointerButtonDownEvent>(event)) {
        // A press outside every menu of the chain closes the chain, and goes no further.
        if (!pointerMoved(p))
            closeChain();
        return;
    }
    if (evCast<EvPointerButtonUpEvent>(event)) {
        bool const opening = _menu->ignoreRelease;
        _menu->ignoreRelease = false;
        if (opening)
            return;
        for (UiPopupMenu* m = this; m; m = m->_menu->parentPopup)
            if (m->_rect.contains(p)) {
                int const row = m->getRowByCoord(p);
                if (row >= 0 && m->getRow(row)->isSelectable()) {
                    m->setSelection(row);
                    m->selectCurrentRow(p);
                }
                return;
            }
        return;
    }
    pointerMoved(p);
}

void UiPopupMenu::onKey(EvKeyPressEvent& event) {
    RCShdPtr<UiPopupMenu> const self(this);
    int const key = event.getTriggerKey();
    bool const reverse = _menu->reverseOrder;
    switch (key) {
    case KeyLeft:
        if (UiPopupMenu* parent = _menu->parentPopup) {
            close();
            parent->grabBoth();
            parent->markForUpdate();
        } else {
            _menu->traverseLeft.call(event);
        }
        return;
    case KeyUp:
    case KeyDown:
        moveFocus((key == KeyDown) != reverse ? 1 : -1);
        grabBoth();
        return;
    case KeyRight:
        if (_menu->focusIndex < 0) {
            if (reverse)
                setFocusOnBottomRow();
            else
                setFocusOnTopRow();
            return;
        }
        if (openSubmenu()) {
            UiPopupMenu* sub = getOpenSubmenu();
            if (sub && reverse)
                sub->setFocusOnBottomRow();
            else if (sub)
                sub->setFocusOnTopRow();
        } else {
            outermost()->_menu->traverseRight.call(event);
        }
        return;
    case KeyReturn:
    case KeyEnter:
        selectCurrentRow(event.getCoord());
        return;
    case KeyEscape:
        closeChain();
        return;
    default:
        return;
    }
}

// --- geometry and drawing --------------------------------------------------------------------

GeRectangle<int> UiPopupMenu::getCoordOfRow(int index) const {
    int const first = _menu->firstRow, end = _menu->shownEnd(first);
    if (index < first || index >= end)
        return {};
    GeRectangle<int> const canvas = getCanvas();
    int y = _menu->reverseOrder ? canvas.y1 : canvas.y2;
    for (int i = first; i < end; ++i) {
        int const h = _menu->rows[static_cast<std::size_t>(i)].row->getHeight();
        GeRectangle<int> const r = _menu->reverseOrder
                                       ? GeRectangle<int>{canvas.x1, canvas.x2, y, y + h}
                                       : GeRectangle<int>{canvas.x1, canvas.x2, y - h, y};
        if (i == index)
            return r;
        y += _menu->reverseOrder ? h : -h;
    }
    return {};
}

int UiPopupMenu::getRowByCoord(GePoint2<int> const& p) const {
    GeRectangle<int> const canvas = getCanvas();
    if (!canvas.contains(p))
        return -1;
    int const first = _menu->firstRow, end = _menu->shownEnd(first);
    int y = _menu->reverseOrder ? canvas.y1 : canvas.y2;
    for (int i = first; i < end; ++i) {
        int const h = _menu->rows[static_cast<std::size_t>(i)].row->getHeight();
        bool const inside = _menu->reverseOrder ? p.y >= y && p.y < y + h : p.y < y && p.y >= y - h;
        if (inside)
            return i;
        y += _menu->reverseOrder ? h : -h;
    }
    return -1;
}

void UiPopupMenu::userDraw(EvEvent&) {
    SmStateObject const& state = getDrawState(DrawStateByOpacity);
    UiCell::DrawArgs args;
    args.state = &state;
    args.foreground = _foreground;
    args.background = _background;
    int const first = _menu->firstRow, end = _menu->shownEnd(first);
    for (int i = first; i < end; ++i) {
        args.rect = getCoordOfRow(i);
        _menu->rows[static_cast<std::size_t>(i)].row->draw(args);
    }
}

// --- callbacks -------------------------------------------------------------------------------

void UiPopupMenu::addAboutToPopCb(CbHandler<EvEvent>* h) {
    _menu->aboutToPop.addHandler(h);
}
void UiPopupMenu::removeAboutToPopCb(CbHandler<EvEvent>* h) {
    _menu->aboutToPop.removeHandler(h);
}
void UiPopupMenu::addTraverseLeftCb(CbHandler<EvEvent>* h) {
    _menu->traverseLeft.addHandler(h);
}
void UiPopupMenu::removeTraverseLeftCb(CbHandler<EvEvent>* h) {
    _menu->traverseLeft.removeHandler(h);
}
void UiPopupMenu::addTraverseRightCb(CbHandler<EvEvent>* h) {
    _menu->traverseRight.addHandler(h);
}
void UiPopupMenu::removeTraverseRightCb(CbHandler<EvEvent>* h) {
    _menu->traverseRight.removeHandler(h);
}
void UiPopupMenu::addSelectionChangedCb(CbHandler<EvEvent>* h) {
    _menu->selectionChanged.addHandler(h);
}
void UiPopupMenu::removeSelectionChangedCb(CbHandler<EvEvent>* h) {
    _menu->selectionChanged.removeHandler(h);
}

} // namespace Zr
