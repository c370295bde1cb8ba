// TxGfxFmt: how the pixels of a tile are handed to OpenGL (internal format, format, type).
#pragma once

namespace Zr {

struct TxGfxFmt {
    // What a one-channel tile stands for: grey levels, or coverage (alpha only, as glyphs and
    // masks are, so that the current colour tints them).
    enum OneChannel { Luminance, Alpha };

    int internalFormat = 0;
    unsigned format = 0;
    unsigned type = 0;

    // The OpenGL format of 8-bit tiles of 1 to 4 channels: LUMINANCE (or ALPHA),
    // LUMINANCE_ALPHA, RGB, RGBA, all UNSIGNED_BYTE.
    static TxGfxFmt cvt(int channels, OneChannel oneChannel = Luminance);
    // The bytes of one pixel of a format that cvt gives.
    static int getBytesPerPixel(unsigned format);

    bool operator==(TxGfxFmt const&) const = default;
};

} // namespace Zr
