// TxTexFcty: makes the textures of the toolkit and counts those alive, with their memory.
#pragma once

#include "lkSingleton.h"
#include "rcBase.h"
#include "txGfxFmt.h"
#include "txTexture.h"

#include <cstddef>

namespace Zr {

class IxTile;

class TxTexFcty {
public:
    static TxTexFcty& getInstance() { return LkSingleton<TxTexFcty>::getInstance(); }

    // A texture holding the tile's pixels, uploaded at once to the current context. `smooth`
    // chooses linear filtering, else nearest; `oneChannel` says how a one-channel tile is
    // taken (grey or coverage). Edges are clamped.
    RCShdPtr<TxTexture> createTexture(IxTile const& tile, bool smooth,
                                      TxGfxFmt::OneChannel oneChannel = TxGfxFmt::Luminance);

    // Counted outside the instance, so that a texture that outlives the factory at process
    // exit still finds them.
    static int getNbTextures() { return _nbTextures; }
    static std::size_t getTextureBytes() { return _textureBytes; }

    // The smallest power of two at or above n (1 for n <= 1).
    static int roundUpToPowerOfTwo(int n);

private:
    friend class LkSingleton<TxTexFcty>;
    friend class TxTexture;
    TxTexFcty() = default;

    inline static int _nbTextures = 0;
    inline static std::size_t _textureBytes = 0;
};

} // namespace Zr
