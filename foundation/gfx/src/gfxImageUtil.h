// GfxImageUtil: drawing tiles as pixel rectangles (glRasterPos and glDrawPixels), clipped at
// the lower-left corner where OpenGL refuses a raster position.
#pragma once

#include "gePoint2.h"
#include "geRectangle.h"
#include "ixTile.h"
#include "rcBase.h"

namespace Zr {

struct GfxImageUtil {
    // What drawPixels sends: the raster position, the pixels skipped at the left and bottom
    // of `bounds`, the size drawn and the zoom. Empty (width or height 0) when nothing shows.
    struct PixelPlan {
        float rasterX = 0.f;
        float rasterY = 0.f;
        int skipPixels = 0; // within bounds, from its left edge
        int skipRows = 0;   // within bounds, from its bottom edge
        int width = 0;
        int height = 0;
        float zoomX = 1.f;
        float zoomY = 1.f;
        bool isEmpty() const { return width <= 0 || height <= 0; }
    };

    // Draws the part `bounds` of the tile (in the tile's coordinates, see IxTile::getBounds)
    // so that its lower-left corner falls on `position`. A tile pixel covers zoom / scale
    // pixels on screen: `scaleX`/`scaleY` is the tile's resolution against the image it stands
    // for (0.5 for a half-size proxy), `zoomX`/`zoomY` the display zoom. `clippedPosition` is
    // where drawing may start: the same position with what lies off the window (below or left
    // of 0) moved in. The tile pixels in between are skipped with GL_UNPACK_SKIP_PIXELS and
    // GL_UNPACK_SKIP_ROWS, and the raster position moves by whole tile pixels, so the visible
    // part lands exactly where it would have been.
    static void drawPixels(IxTile const& tile, GeRectangle<int> const& bounds,
                           GePoint2<int> position, float scaleX, float scaleY,
                           GePoint2<int> clippedPosition, float zoomX = 1.f, float zoomY = 1.f);
    static void drawPixels(RCShdPtr<IxTile> const& tile, GeRectangle<int> const& bounds,
                           GePoint2<int> position, float scaleX, float scaleY,
                           GePoint2<int> clippedPosition, float zoomX = 1.f, float zoomY = 1.f);

    // Draws the whole tile as an image of `size` (the image's full-resolution size, of which
    // the tile may be a proxy) at `position`, zoomed by `scale`, clipped at (0, 0). With
    // `blend` the tile's alpha blends it over what is there (source alpha, one minus source
    // alpha); the blending state is restored afterwards.
    static void draw(RCShdPtr<IxTile> const& tile, GeVector2<int> size, GePoint2<int> position,
                     float scale, bool blend);

    // The computation behind drawPixels, for callers and tests that want to know what will be
    // drawn.
    static PixelPlan planPixels(GeRectangle<int> const& bounds, GePoint2<int> position,
                                float scaleX, float scaleY, GePoint2<int> clippedPosition,
                                float zoomX, float zoomY);
};

} // namespace Zr
