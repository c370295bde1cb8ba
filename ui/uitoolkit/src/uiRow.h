// UiRow: one row of a popup menu, a list of owned cells laid out in the menu's columns, with an
// id for its owner, whether it can be selected, whether it is highlighted, and its text. The
// row keeps the colours it draws with; the menu passes its colour resources on to its rows.
#pragma once

#include "uiCell.h"

#include <memory>
#include <vector>

namespace Zr {

class UiRow : public RCObject {
public:
    UiRow(LiString const& string = LiString(""), int id = 0, bool selectable = true);
    ~UiRow() override;

    // Fills `args.rect` with the focus colour when highlighted, then draws each cell in its
    // column, left to right.
    virtual void draw(UiCell::DrawArgs const& args);
    // Closes what the row opened (a cascading row's submenu); nothing here.
    virtual void close();
    // The sum of the cells' widths.
    virtual int getWidth() const;
    // The tallest cell's desired height; 0 without cells.
    virtual int getHeight() const;
    virtual void setHighlight(bool highlighted);
    // "Background", "FocusColor", "Foreground" and "InactiveForeground"; other names are kept
    // by subclasses or ignored.
    virtual void setColor(char const* name, CoRgbColorTyped<float> const& color);
    virtual CoRgbColorTyped<float> getColor(char const* name) const;

    // Asserts "!cell.isNull()".
    void appendCell(OPtr<UiCell> cell);
    int getNbCells() const { return static_cast<int>(_cells.size()); }
    UiCell* getCell(int index) const;
    // Adds empty cells until the row has `count` of them.
    void padCells(int count);
    // The first cell of the given kind, or null.
    template <class T>
    T* findCell() const {
        for (auto const& c : _cells)
            if (auto* t = dynamic_cast<T*>(c.get()))
                return t;
        return nullptr;
    }
    // The index of the cell whose column holds `x`, counted from the row's left edge; -1 past
    // the last cell.
    int getCellAt(int x) const;
    void setFont(LiString const& handle);

    int getId() const { return _id; }
    void setId(int id) { _id = id; }
    bool isSelectable() const { return _selectable; }
    void setSelectable(bool selectable) { _selectable = selectable; }
    bool isHighlighted() const { return _highlighted; }
    LiString const& getString() const { return _string; }
    void setString(LiString const& s) { _string = s; }

protected:
    std::vector<std::unique_ptr<UiCell>> _cells;
    int _id = 0;
    bool _selectable = true;
    bool _highlighted = false;
    LiString _string;
    CoRgbColor _background;
    CoRgbColor _focusColor;
    CoRgbColor _foreground;
    CoRgbColor _inactiveForeground;
};

} // namespace Zr
