// UiChildGrid: a coarse grid over a container's canvas that finds the children lying over a
// rectangle without walking them all. Damage marking asks it which siblings a mark reaches, so
// marking one widget among thousands costs what the mark covers, not what the container holds.
#pragma once

#include "geRectangle.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Zr {

class UiWidget;

class UiChildGrid {
public:
    // Empties the grid and lays it over a canvas of `width` x `height` for `count` children.
    // Cells are square, sized so that a cell holds a few children when they tile the canvas:
    // a mark the size of a child then meets a few cells and a few children.
    void reset(int width, int height, std::size_t count);
    bool isFor(int width, int height) const { return width == _width && height == _height; }

    // A child is registered in the cells its rectangle (canvas coordinates) covers; what lies
    // outside the canvas is never looked for.
    void insert(UiWidget* child, GeRectangle<int> const& rect);
    void erase(UiWidget* child, GeRectangle<int> const& rect);

    // Appends the children whose rectangles meet `rect`, each once, in no order: only those can
    // take a share of damage in `rect` or hide part of it. `skip` (the child a mark comes from)
    // is left out.
    void collect(GeRectangle<int> const& rect, std::vector<UiWidget*>& out,
                 UiWidget const* skip = nullptr) const;

private:
    // The cell range a rectangle covers, clipped to the grid; false when it misses the grid.
    bool cellRange(GeRectangle<int> const& rect, int& x1, int& x2, int& y1, int& y2) const;

    int _width = -1;
    int _height = -1;
    int _columns = 0;
    int _cellSize = 64;
    // Each cell keeps its children's rectangles beside them: a query reads the cell's own
    // memory and touches only the children it returns, not every neighbour's record.
    struct Entry {
        UiWidget* child;
        GeRectangle<int> rect;
    };
    std::vector<std::vector<Entry>> _cells;
};

} // namespace Zr
