// UiPopupMenu: the toolkit's transient menu. Rows of cells in aligned columns, opened on top of
// the root container of the window and kept inside the window, with pointer and keyboard
// navigation, cascading submenus and the pointer and keyboard grabs while it is open. Filled
// directly, or just before it opens by the AboutToPop handlers.
#pragma once

#include "uiWidget.h"

#include "uiPopupMenuEvents.h"

#include <memory>

namespace Zr {

class UiCell;
class UiPopupMenuImp;
class UiRow;
class UiRowCascading;

class UiPopupMenu : public UiWidget {
public:
    // On which side of the given point the menu opens.
    enum AlignPoint { BelowRight = 0, BelowLeft = 1, AboveRight = 2, AboveLeft = 3 };

    static RCShdPtr<UiPopupMenu> create(UiContainer* parent, LiString const& name,
                                        UiResTable const* table = nullptr);
    // The rectangle submenus are created with.
    static GeRectangle<int> getDefaultSubMenuRect();

    // --- filling; each append returns the new row's index --------------------------------------
    // `handler` (not owned, may be null) is called with a UiRowSelectedEvent when the row is
    // selected.
    int appendText(LiString const& text, CbHandler<EvEvent>* handler = nullptr, int id = 0,
                   bool selectable = true);
    // With a second column, the key name of the command ("Ctrl+Z").
    int appendText(LiString const& text, LiString const& secondColumn,
                   CbHandler<EvEvent>* handler = nullptr, int id = 0, bool selectable = true);
    // With an icon of the icon directory in front of the text.
    int appendText(OsFilePath const& icon, std::string const& text, std::string const& secondColumn,
                   CbHandler<EvEvent>* handler = nullptr, int id = 0, bool selectable = true);
    // The same three, placed before the row whose id is `beforeId` (at the end without one).
    int insertText(int beforeId, LiString const& text, CbHandler<EvEvent>* handler = nullptr,
                   int id = 0, bool selectable = true);
    int insertText(int beforeId, LiString const& text, LiString const& secondColumn,
                   CbHandler<EvEvent>* handler = nullptr, int id = 0, bool selectable = true);
    int insertText(int beforeId, OsFilePath const& icon, std::string const& text,
                   std::string const& secondColumn, CbHandler<EvEvent>* handler = nullptr,
                   int id = 0, bool selectable = true);
    // An unselectable row of two columns.
    int appendLabel(LiString const& text, LiString const& secondColumn);
    // A row with a toggle mark before its text.
    int appendToggle(LiString const& text, bool state, CbHandler<EvEvent>* handler = nullptr,
                     int id = 0, bool selectable = true);
    int appendToggle(LiString const& text, LiString const& secondColumn, bool state,
                     CbHandler<EvEvent>* handler = nullptr, int id = 0, bool selectable = true);
    // A row with a radio mark before its text.
    int appendRadio(LiString const& text, bool state, CbHandler<EvEvent>* handler = nullptr,
                    int id = 0, bool selectable = true);
    void setToggleState(int index, bool state);
    bool getToggleState(int index) const;
    // Ready-made row handlers: flip the row's first mark.
    static void toggleCell(EvEvent& event);
    static void toggleMultiCell(EvEvent& event);
    int appendSeparator();
    int insertSeparator(int index);
    // Asserts "!row.isNull()". A cascading row whose submenu is this menu, or holds it in its
    // own submenus, is refused: reported, nothing added, and -1 returned.
    int appendRow(RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler = nullptr);
    int insertRow(int index, RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler = nullptr);
    // A cascading row with a new, empty submenu, which the caller fills.
    RCShdPtr<UiRowCascading> appendCascade(LiString const& text, int id = 0);
    // A cascading row with the given submenu; null, after a report, for a submenu cycle.
    RCShdPtr<UiRowCascading> appendCascade(LiString const& text,
                                           RCShdPtr<UiPopupMenu> const& submenu, int id = 0);
    void removeOption(int index);
    void removeOption(CbHandler<EvEvent>* handler);
    void removeOptionById(int id);
    void removeOptions(int fromIndex);
    int getNbOptions() const;
    RCShdPtr<UiRow> getRow(int index) const;
    // The index of the first row of that id; -1 without one.
    int getIndexOfId(int id) const;

    // --- behaviour --------------------------------------------------------------------------
    void setRemoveOnClose(bool remove);
    bool getRemoveOnClose() const;
    void setCloseOnSelection(bool close);
    void setReverseOrder(bool reverse);
    void setMinimumWidth(int width);
    int getMinimumWidth() const;
    void setFont(LiString const& handle);
    void setLaunchOffset(GeVector2<int> const& offset);
    void setSelectable(int index, bool selectable);
    // The widget that launches the menu: disarmed and given the keyboard focus back on closing.
    // It serves one opening and is forgotten when the menu closes.
    void setTrigger(RCShdPtr<UiWidget> const& trigger);
    RCShdPtr<UiWidget> const& getTrigger() const;
    int getFocusIndex() const;
    // The focus row's id; -1 without a focus row.
    int getFocusId() const;
    // The rectangle of a row in the parent's canvas; empty for a row that is not shown.
    GeRectangle<int> getCoordOfRow(int index) const;
    // The shown row under a point of the parent's canvas; -1 for none.
    int getRowByCoord(GePoint2<int> const& p) const;
    // Puts the focus on the row (-1: none); a submenu open from the old focus row closes.
    void setSelection(int index);
    void setFocusOnTopRow();
    void setFocusOnBottomRow();
    // Acts on the focus row as a click on it at `p` would; false without a focus row.
    bool selectCurrentRow(GePoint2<int> const& p);
    // Opens the menu at a point of the window (its root container's canvas), on the side
    // `align` says, with the grabs.
    void launch(GePoint2<int> const& p, AlignPoint align = BelowRight);
    void close();
    // Shown, or hidden for a moment while a choice is carried out and not yet closed.
    bool isOpen() const;
    // The menu this one cascades from; null for a top-level menu.
    UiPopupMenu* getParentPopup() const;
    // The submenu open from this menu's focus row; null for none.
    UiPopupMenu* getOpenSubmenu() const;
    // The first row shown, when the menu is taller than the window and its rows scroll.
    int getFirstShownRow() const;
    int getNbShownRows() const;

    void addAboutToPopCb(CbHandler<EvEvent>* h);
    void removeAboutToPopCb(CbHandler<EvEvent>* h);
    void addTraverseLeftCb(CbHandler<EvEvent>* h);
    void removeTraverseLeftCb(CbHandler<EvEvent>* h);
    void addTraverseRightCb(CbHandler<EvEvent>* h);
    void removeTraverseRightCb(CbHandler<EvEvent>* h);
    void addSelectionChangedCb(CbHandler<EvEvent>* h);
    void removeSelectionChangedCb(CbHandler<EvEvent>* h);

    void processEvent(EvEvent& event) override;
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;
    RttiType<WidgetRttiType> const& getNodeType() const override;

protected:
    UiPopupMenu(UiContainer* parent, LiString const& name);
    ~UiPopupMenu() override;

    void setDefaultResources(UiResSet& set) override;
    void setResource(RCShdPtr<UiResource> const& resource) override;

    // Fills (AboutToPop), sizes and places the menu, shows it and, with `grab`, takes the
    // grabs.
    virtual void performPopup(GePoint2<int> const& p, int align, EvEvent& event, bool grab);
    // Opens the submenu of the focus row; false when there is none or it is open.
    virtual bool openSubmenu();

private:
    friend class UiPopupMenuImp;
    UiPopupMenu* outermost();
    int insertEntry(int index, RCShdPtr<UiRow> const& row, CbHandler<EvEvent>* handler);
    RCShdPtr<UiRow> makeTextRow(LiString const& text, LiString const& second, int id,
                                bool selectable, OPtr<UiCell> lead);
    bool wouldCycle(UiRow const& row) const;
    void layout(int windowHeight);
    void moveFocus(int step);
    void scrollToFocus();
    void grabBoth();
    void releaseBoth();
    void closeChain();
    void closeTail();
    bool pointerMoved(GePoint2<int> const& p);
    void onPointer(EvPointerEvent& event);
    void onKey(EvKeyPressEvent& event);
    void userDraw(EvEvent& event);

    std::unique_ptr<UiPopupMenuImp> _menu;
};

} // namespace Zr
