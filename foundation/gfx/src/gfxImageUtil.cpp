// GfxImageUtil: pixel rectangles with lower-left clipping through the unpack skips.
#include "gfxImageUtil.h"

#include "smGl.h"
#include "txGfxFmt.h"

#include <algorithm>
#include <cmath>

namespace Zr {

namespace {
// How many tile pixels, each `pixelSize` screen pixels wide, lie before `clipped` when the
// first one starts at `position`: enough that the first drawn one starts at or after it.
int pixelsToSkip(int position, int clipped, float pixelSize) {
    if (clipped <= position || pixelSize <= 0.f)
        return 0;
    return static_cast<int>(std::ceil(static_cast<float>(clipped - position) / pixelSize - 1e-4f));
}
} // namespace

GfxImageUtil::PixelPlan GfxImageUtil::planPixels(GeRectangle<int> const& bounds,
                                                 GePoint2<int> position, float scaleX, float scaleY,
                                                 GePoint2<int> clippedPosition, float zoomX,
                                                 float zoomY) {
    PixelPlan plan;
    plan.zoomX = scaleX > 0.f ? zoomX / scaleX : zoomX;
    plan.zoomY = scaleY > 0.f ? zoomY / scaleY : zoomY;
    // A mirrored zoom draws towards lower coordinates, where nothing is clipped here.
    float const sizeX = std::max(plan.zoomX, 0.f);
    float const sizeY = std::max(plan.zoomY, 0.f);
    plan.skipPixels = std::min(pixelsToSkip(position.x, clippedPosition.x, sizeX), bounds.width());
    plan.skipRows = std::min(pixelsToSkip(position.y, clippedPosition.y, sizeY), bounds.height());
    plan.width = bounds.width() - plan.skipPixels;
    plan.height = bounds.height() - plan.skipRows;
    plan.rasterX = static_cast<float>(position.x) + static_cast<float>(plan.skipPixels) * sizeX;
    plan.rasterY = static_cast<float>(position.y) + static_cast<float>(plan.skipRows) * sizeY;
    return plan;
}

void GfxImageUtil::drawPixels(IxTile const& tile, GeRectangle<int> const& bounds,
                              GePoint2<int> position, float scaleX, float scaleY,
                              GePoint2<int> clippedPosition, float zoomX, float zoomY) {
    // Only what the tile holds can be drawn.
    GeRectangle<int> const inside = bounds.intersection(tile.getBounds());
    if (inside.isEmpty())
        return;
    // Cutting the bounds to the tile moves the corner that goes on `position`.
    float const pixelX = scaleX > 0.f ? zoomX / scaleX : zoomX;
    float const pixelY = scaleY > 0.f ? zoomY / scaleY : zoomY;
    position.x += static_cast<int>(std::lround((inside.x1 - bounds.x1) * pixelX));
    position.y += static_cast<int>(std::lround((inside.y1 - bounds.y1) * pixelY));
    PixelPlan const plan =
        planPixels(inside, position, scaleX, scaleY, clippedPosition, zoomX, zoomY);
    if (plan.isEmpty())
        return;
    TxGfxFmt const fmt = TxGfxFmt::cvt(tile.getChannels());
    GePoint2<int> const origin = tile.getOrigin();
    SmGl::pixelStorei(Gl::UNPACK_ALIGNMENT, 1);
    SmGl::pixelStorei(Gl::UNPACK_ROW_LENGTH, tile.getStride() / tile.getChannels());
    SmGl::pixelStorei(Gl::UNPACK_SKIP_PIXELS, inside.x1 - origin.x + plan.skipPixels);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_ROWS, inside.y1 - origin.y + plan.skipRows);
    SmGl::rasterPos2f(plan.rasterX, plan.rasterY);
    SmGl::pixelZoom(plan.zoomX, plan.zoomY);
    SmGl::drawPixels(plan.width, plan.height, fmt.format, fmt.type, tile.getData());
    SmGl::pixelZoom(1.f, 1.f);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_ROWS, 0);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_PIXELS, 0);
    SmGl::pixelStorei(Gl::UNPACK_ROW_LENGTH, 0);
    SmGl::pixelStorei(Gl::UNPACK_ALIGNMENT, 4);
}

void GfxImageUtil::drawPixels(RCShdPtr<IxTile> const& tile, GeRectangle<int> const& bounds,
                              GePoint2<int> position, float scaleX, float scaleY,
                              GePoint2<int> clippedPosition, float zoomX, float zoomY) {
    IxReadGuard guard(tile);
    drawPixels(guard.getTile(), bounds, position, scaleX, scaleY, clippedPosition, zoomX, zoomY);
}

void GfxImageUtil::draw(RCShdPtr<IxTile> const& tile, GeVector2<int> size, GePoint2<int> position,
                        float scale, bool blend) {
    IxReadGuard guard(tile);
    IxTile const& t = guard.getTile();
    if (t.getWidth() == 0 || t.getHeight() == 0)
        return;
    // The tile's resolution against the image it stands for.
    float const scaleX = size.x > 0 ? static_cast<float>(t.getWidth()) / size.x : 1.f;
    float const scaleY = size.y > 0 ? static_cast<float>(t.getHeight()) / size.y : 1.f;
    GePoint2<int> const clipped(std::max(position.x, 0), std::max(position.y, 0));
    if (blend) {
        SmGl::pushAttrib(Gl::COLOR_BUFFER_BIT | Gl::ENABLE_BIT);
        SmGl::enable(Gl::BLEND);
        SmGl::blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
    }
    drawPixels(t, t.getBounds(), position, scaleX, scaleY, clipped, scale, scale);
    if (blend)
        SmGl::popAttrib();
}

} // namespace Zr
