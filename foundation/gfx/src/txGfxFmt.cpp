// TxGfxFmt: tile channels to OpenGL formats.
#include "txGfxFmt.h"

#include "exBase.h"
#include "smGl.h"

namespace Zr {

TxGfxFmt TxGfxFmt::cvt(int channels, OneChannel oneChannel) {
    switch (channels) {
    case 1:
        if (oneChannel == Alpha)
            return {static_cast<int>(Gl::ALPHA), Gl::ALPHA, Gl::UNSIGNED_BYTE};
        return {static_cast<int>(Gl::LUMINANCE), Gl::LUMINANCE, Gl::UNSIGNED_BYTE};
    case 2:
        return {static_cast<int>(Gl::LUMINANCE_ALPHA), Gl::LUMINANCE_ALPHA, Gl::UNSIGNED_BYTE};
    case 3:
        return {static_cast<int>(Gl::RGB), Gl::RGB, Gl::UNSIGNED_BYTE};
    case 4:
        return {static_cast<int>(Gl::RGBA), Gl::RGBA, Gl::UNSIGNED_BYTE};
    default:
        ZR_ASSERT(channels >= 1 && channels <= 4);
    }
    return {};
}

int TxGfxFmt::getBytesPerPixel(unsigned format) {
    switch (format) {
    case Gl::LUMINANCE_ALPHA:
        return 2;
    case Gl::RGB:
        return 3;
    case Gl::RGBA:
        return 4;
    default:
        return 1;
    }
}

} // namespace Zr
