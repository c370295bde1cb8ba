// UiIconRegistry: the image cache of the interface and the drawing of its images.
#include "uiIconRegistry.h"

#include "exBase.h"
#include "gfxImageUtil.h"

#include <algorithm>
#include <filesystem>

namespace Zr {

UiIconRegistry& UiIconRegistry::getInstance() {
    static UiIconRegistry instance;
    return instance;
}

RCShdPtr<WsManagedImage> UiIconRegistry::loadImage(OsFilePath const& path) {
    OsFilePath full = path;
    if (full.isRelative()) {
        // A relative path names a file inside the icon directory: "../secret" or "a/../../b"
        // would reach outside it, so they are refused.
        std::filesystem::path const inside = path.getPath().lexically_normal();
        if (!inside.empty() && *inside.begin() == "..")
            throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path,
                                          "a relative icon path may not leave the icon directory");
        full = _iconDirectory + path;
    }
    // "icons/./a.tif" and "icons/a.tif" are one file: key the cache on the normal form.
    full = OsFilePath(full.getPath().lexically_normal());
    auto it = _cache.find(full);
    if (it != _cache.end())
        return it->second;
    RCShdPtr<WsManagedImage> image = WsManagedImage::loadFromFile(full);
    _cache.emplace(full, image);
    _reverseCache.emplace(image.get(), full);
    return image;
}

OsFilePath UiIconRegistry::getImagePath(RCShdPtr<WsManagedImage> const& image) const {
    auto it = _reverseCache.find(image.get());
    ZR_ASSERT_TEXT(it != _reverseCache.end(), "it != reverseCache.end()");
    return it->second;
}

void UiIconRegistry::draw(RCShdPtr<WsManagedImage> const& image, GePoint2<int> position,
                          bool flag) {
    if (!image)
        return;
    RCShdPtr<IxTile> tile;
    image->getImage(tile, flag);
    if (!tile)
        return;
    GePoint2<int> const clipped(std::max(position.x, 0), std::max(position.y, 0));
    GfxImageUtil::drawPixels(tile, tile->getBounds(), position, 1.f, 1.f, clipped);
}

} // namespace Zr
