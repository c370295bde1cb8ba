// TxTexFcty: texture creation and book-keeping.
#include "txTexFcty.h"

#include "ixTile.h"

namespace Zr {

RCShdPtr<TxTexture> TxTexFcty::createTexture(IxTile const& tile, bool smooth,
                                             TxGfxFmt::OneChannel oneChannel) {
    RCShdPtr<TxTexture> texture(
        new TxTexture(tile, TxGfxFmt::cvt(tile.getChannels(), oneChannel), smooth));
    ++_nbTextures;
    _textureBytes += texture->getByteSize();
    return texture;
}

int TxTexFcty::roundUpToPowerOfTwo(int n) {
    int p = 1;
    while (p < n)
        p *= 2;
    return p;
}

} // namespace Zr
