// UiCell: one cell of a popup menu row. A row lays its cells out in columns whose widths the menu
// computes over all rows; a cell says how wide and how high it would like to be and draws itself
// in the rectangle it is given. The plain UiCell is the empty filler of missing columns.
#pragma once

#include "zrBase.h"

namespace Zr {

class SmStateObject;

class UiCell {
public:
    enum CellJustification { Left = 0, Center = 1, Right = 2 };

    // What a row hands its cells when it draws: the cell's rectangle in drawing coordinates, the
    // row's colours and whether the row is highlighted or greyed out.
    struct DrawArgs {
        GeRectangle<int> rect;
        CoRgbColor foreground;
        CoRgbColor background;
        bool highlighted = false;
        bool enabled = true;
        SmStateObject const* state = nullptr;
    };

    UiCell() = default;
    UiCell(UiCell const&) = delete;
    UiCell& operator=(UiCell const&) = delete;
    virtual ~UiCell();

    virtual void draw(DrawArgs const& args);
    // Nothing for cells without text.
    virtual void setFont(LiString const& handle);
    // The grid's row height: 3 grid units, scaled (21 pixels by default).
    virtual int getDesiredHeight() const;
    virtual int getDesiredWidth() const;

    int getIndex() const { return _index; }
    void setIndex(int index) { _index = index; }
    // The column width the menu gave the cell.
    int getWidth() const { return _width; }
    void setWidth(int width) { _width = width; }
    // A hot cell reacts by itself under the pointer (a cascade arrow opens its submenu).
    bool isHot() const { return _hot; }
    void setHot(bool hot) { _hot = hot; }
    CellJustification getJustification() const { return _justification; }
    void setJustification(CellJustification j) { _justification = j; }

    // The height of one menu row on the grid, in pixels.
    static int defaultRowHeight();

private:
    int _index = 0;
    int _width = 0;
    bool _hot = false;
    CellJustification _justification = Left;
};

} // namespace Zr
