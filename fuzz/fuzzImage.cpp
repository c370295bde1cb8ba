// Fuzz target: icon files given as bytes (TIFF and PNG; the first bytes decide, as in a file),
// loaded by WsManagedImage::loadFromFile, the loader behind the icon registry. An image either
// loads, within the stated size limits and with as many bytes as its size says, or raises
// WsImageEx::ExUnreadable; nothing else may escape and nothing may be allocated for a size
// the file cannot hold.
#include "fuzzFile.h"

#include "ixTile.h"
#include "wsManagedImage.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace Zr;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    FuzzFile const file("icon.tif", data, size);
    try {
        RCShdPtr<WsManagedImage> image = WsManagedImage::loadFromFile(file.path());
        RCShdPtr<IxTile> tile;
        image->getImage(tile, true);
        std::uint64_t const pixels = std::uint64_t(tile->getWidth()) * tile->getHeight();
        if (tile->getWidth() <= 0 || tile->getHeight() <= 0 ||
            tile->getWidth() > int(WsManagedImage::MaxImageSide) ||
            tile->getHeight() > int(WsManagedImage::MaxImageSide) ||
            pixels > size * WsManagedImage::MaxPixelsPerByte + WsManagedImage::SmallImagePixels) {
            std::fprintf(stderr, "an image of %dx%d from %zu bytes\n", tile->getWidth(),
                         tile->getHeight(), size);
            std::abort();
        }
    } catch (WsImageEx::ExUnreadable const&) {
    }
    return 0;
}
