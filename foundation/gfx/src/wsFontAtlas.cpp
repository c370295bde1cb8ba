// WsFontAtlas: shelf packing of glyphs and lazy upload of the pages.
#include "wsFontAtlas.h"

#include "txTexFcty.h"

#include <algorithm>

namespace Zr {

WsFontAtlas::WsFontAtlas(int pageSize) : _pageSize(pageSize) {
    ZR_ASSERT(pageSize > 0);
}

WsFontAtlas::Slot WsFontAtlas::allocate(int width, int height) {
    ZR_ASSERT(width >= 0 && height >= 0);
    int const w = width + 2 * Padding;
    int const h = height + 2 * Padding;
    Slot slot;
    if (!_pages.empty() && allocateIn(_pages.back(), w, h, slot, getNbPages() - 1))
        return slot;
    int const size = std::max(_pageSize, TxTexFcty::roundUpToPowerOfTwo(std::max(w, h)));
    addPage(size);
    bool const placed = allocateIn(_pages.back(), w, h, slot, getNbPages() - 1);
    ZR_ASSERT(placed);
    return slot;
}

bool WsFontAtlas::allocateIn(Page& page, int width, int height, Slot& slot, int index) {
    int const size = page.tile->getWidth();
    if (width > size)
        return false;
    // A shelf takes glyphs up to its own height and not much lower, so that small glyphs
    // don't waste the rows of tall shelves.
    for (Shelf& shelf : page.shelves) {
        if (height <= shelf.height && height * 4 >= shelf.height * 3 &&
            shelf.used + width <= size) {
            slot = {index, shelf.used + Padding, shelf.y + Padding};
            shelf.used += width;
            return true;
        }
    }
    if (page.top + height > size)
        return false;
    page.shelves.push_back({page.top, height, width});
    slot = {index, Padding, page.top + Padding};
    page.top += height;
    return true;
}

WsFontAtlas::Page& WsFontAtlas::addPage(int size) {
    Page page;
    page.tile = new IxTile(size, size, 1);
    _pages.push_back(std::move(page));
    return _pages.back();
}

IxTile& WsFontAtlas::getPageTile(int page) {
    ZR_ASSERT(page >= 0 && page < getNbPages());
    return *_pages[static_cast<std::size_t>(page)].tile;
}

void WsFontAtlas::markDirty(int page, GeRectangle<int> const& region) {
    ZR_ASSERT(page >= 0 && page < getNbPages());
    Page& p = _pages[static_cast<std::size_t>(page)];
    p.dirty = p.dirty.united(region);
}

int WsFontAtlas::getPageSize(int page) const {
    ZR_ASSERT(page >= 0 && page < getNbPages());
    return _pages[static_cast<std::size_t>(page)].tile->getWidth();
}

void WsFontAtlas::bindPage(int page) {
    ZR_ASSERT(page >= 0 && page < getNbPages());
    Page& p = _pages[static_cast<std::size_t>(page)];
    if (!p.texture) {
        p.texture = TxTexFcty::getInstance().createTexture(*p.tile, true, TxGfxFmt::Alpha);
        p.dirty.setEmpty();
    } else if (!p.dirty.isEmpty()) {
        p.texture->update(*p.tile, p.dirty);
        p.dirty.setEmpty();
    }
    p.texture->bind();
}

RCShdPtr<TxTexture> const& WsFontAtlas::getTexture(int page) const {
    ZR_ASSERT(page >= 0 && page < getNbPages());
    return _pages[static_cast<std::size_t>(page)].texture;
}

} // namespace Zr
