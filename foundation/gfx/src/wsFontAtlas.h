// WsFontAtlas: the glyph images of one font, packed in rows ("shelves") into square pages of
// one alpha channel, each page sent to OpenGL as one texture when drawing needs it.
#pragma once

#include "geRectangle.h"
#include "ixTile.h"
#include "rcBase.h"
#include "txTexture.h"

#include <vector>

namespace Zr {

class WsFontAtlas {
public:
    static constexpr int DefaultPageSize = 512;
    // Pixels left empty around each glyph, so that linear filtering of a scaled glyph never
    // takes in its neighbour.
    static constexpr int Padding = 1;

    struct Slot {
        int page = -1;
        int x = 0; // lower-left corner of the glyph's pixels in the page
        int y = 0;
    };

    explicit WsFontAtlas(int pageSize = DefaultPageSize);

    // Finds room for a glyph of width x height pixels: in the lowest shelf of the newest page
    // that has the height and space left, else in a new shelf, else on a new page. A glyph
    // larger than a page gets a page of its own size.
    Slot allocate(int width, int height);
    // The page's pixels, row 0 at the bottom; after writing, markDirty says where.
    IxTile& getPageTile(int page);
    void markDirty(int page, GeRectangle<int> const& region);
    int getPageSize(int page) const;
    int getNbPages() const { return static_cast<int>(_pages.size()); }
    // Sends what changed in the page and binds its texture; the texture is made on first use.
    void bindPage(int page);
    // The texture of a page, null before its first bindPage.
    RCShdPtr<TxTexture> const& getTexture(int page) const;

private:
    struct Shelf {
        int y;
        int height;
        int used;
    };
    struct Page {
        RCShdPtr<IxTile> tile;
        RCShdPtr<TxTexture> texture;
        std::vector<Shelf> shelves;
        int top = 0; // first row above the last shelf
        GeRectangle<int> dirty;
    };
    bool allocateIn(Page& page, int width, int height, Slot& slot, int index);
    Page& addPage(int size);

    int _pageSize;
    std::vector<Page> _pages;
};

} // namespace Zr
