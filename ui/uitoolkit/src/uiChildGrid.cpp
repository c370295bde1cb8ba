// UiChildGrid: cells of children over a container's canvas.
#include "uiChildGrid.h"

#include <algorithm>
#include <cmath>

namespace Zr {

void UiChildGrid::reset(int width, int height, std::size_t count) {
    _width = width;
    _height = height;
    double const area = static_cast<double>(std::max(width, 1)) * std::max(height, 1);
    _cellSize = std::clamp(
        static_cast<int>(std::sqrt(4.0 * area / std::max<std::size_t>(count, 1))), 8, 512);
    _columns = std::max(1, (width + _cellSize - 1) / _cellSize);
    int const rows = std::max(1, (height + _cellSize - 1) / _cellSize);
    _cells.assign(static_cast<std::size_t>(_columns) * rows, {});
}

bool UiChildGrid::cellRange(GeRectangle<int> const& rect, int& x1, int& x2, int& y1,
                            int& y2) const {
    GeRectangle<int> const r = rect.intersection({0, _width, 0, _height});
    if (r.isEmpty())
        return false;
    x1 = r.x1 / _cellSize;
    x2 = (r.x2 - 1) / _cellSize;
    y1 = r.y1 / _cellSize;
    y2 = (r.y2 - 1) / _cellSize;
    return true;
}

void UiChildGrid::insert(UiWidget* child, GeRectangle<int> const& rect) {
    int x1, x2, y1, y2;
    if (!cellRange(rect, x1, x2, y1, y2))
        return;
    for (int y = y1; y <= y2; ++y)
        for (int x = x1; x <= x2; ++x)
            _cells[static_cast<std::size_t>(y) * _columns + x].push_back({child, rect});
}

void UiChildGrid::erase(UiWidget* child, GeRectangle<int> const& rect) {
    int x1, x2, y1, y2;
    if (!cellRange(rect, x1, x2, y1, y2))
        return;
    for (int y = y1; y <= y2; ++y)
        for (int x = x1; x <= x2; ++x) {
            auto& cell = _cells[static_cast<std::size_t>(y) * _columns + x];
            auto it = std::find_if(cell.begin(), cell.end(),
                                   [child](Entry const& e) { return e.child == child; });
            if (it != cell.end()) {
                *it = cell.back();
                cell.pop_back();
            }
        }
}

void UiChildGrid::collect(GeRectangle<int> const& rect, std::vector<UiWidget*>& out,
                          UiWidget const* skip) const {
    int x1, x2, y1, y2;
    if (!cellRange(rect, x1, x2, y1, y2))
        return;
    std::size_t const first = out.size();
    for (int y = y1; y <= y2; ++y)
        for (int x = x1; x <= x2; ++x) {
            for (Entry const& entry : _cells[static_cast<std::size_t>(y) * _columns + x])
                if (entry.child != skip && entry.rect.intersects(rect))
                    out.push_back(entry.child);
        }
    // A child over several cells was met in each.
    if ((x1 != x2 || y1 != y2) && out.size() - first > 1) {
        std::sort(out.begin() + first, out.end());
        out.erase(std::unique(out.begin() + first, out.end()), out.end());
    }
}

} // namespace Zr
