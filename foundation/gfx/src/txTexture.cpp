// TxTexture: upload, partial update, binding and release of one OpenGL texture.
#include "txTexture.h"

#include "ixTile.h"
#include "smGl.h"
#include "txTexFcty.h"

namespace Zr {

namespace {
// Points the unpacking at a region of the tile's rows, which may be padded.
void setUnpack(IxTile const& tile, int skipPixels, int skipRows) {
    SmGl::pixelStorei(Gl::UNPACK_ALIGNMENT, 1);
    SmGl::pixelStorei(Gl::UNPACK_ROW_LENGTH, tile.getStride() / tile.getChannels());
    SmGl::pixelStorei(Gl::UNPACK_SKIP_PIXELS, skipPixels);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_ROWS, skipRows);
}

// Puts OpenGL's defaults back, which other pixel transfers count on.
void resetUnpack() {
    SmGl::pixelStorei(Gl::UNPACK_ALIGNMENT, 4);
    SmGl::pixelStorei(Gl::UNPACK_ROW_LENGTH, 0);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_PIXELS, 0);
    SmGl::pixelStorei(Gl::UNPACK_SKIP_ROWS, 0);
}
} // namespace

TxTexture::TxTexture(IxTile const& tile, TxGfxFmt const& format, bool smooth)
    : _format(format), _width(tile.getWidth()), _height(tile.getHeight()),
      _texWidth(TxTexFcty::roundUpToPowerOfTwo(tile.getWidth())),
      _texHeight(TxTexFcty::roundUpToPowerOfTwo(tile.getHeight())) {
    SmGl::genTextures(1, &_name);
    SmGl::bindTexture(Gl::TEXTURE_2D, _name);
    int const filter = static_cast<int>(smooth ? Gl::LINEAR : Gl::NEAREST);
    SmGl::texParameteri(Gl::TEXTURE_2D, Gl::TEXTURE_MIN_FILTER, filter);
    SmGl::texParameteri(Gl::TEXTURE_2D, Gl::TEXTURE_MAG_FILTER, filter);
    SmGl::texParameteri(Gl::TEXTURE_2D, Gl::TEXTURE_WRAP_S, static_cast<int>(Gl::CLAMP_TO_EDGE));
    SmGl::texParameteri(Gl::TEXTURE_2D, Gl::TEXTURE_WRAP_T, static_cast<int>(Gl::CLAMP_TO_EDGE));
    bool const padded = _texWidth != _width || _texHeight != _height;
    if (padded) {
        // Allocated empty, then the image goes into the lower-left corner.
        SmGl::texImage2D(Gl::TEXTURE_2D, 0, _format.internalFormat, _texWidth, _texHeight, 0,
                         _format.format, _format.type, nullptr);
        update(tile, GeRectangle<int>(0, _width, 0, _height));
    } else {
        setUnpack(tile, 0, 0);
        SmGl::texImage2D(Gl::TEXTURE_2D, 0, _format.internalFormat, _texWidth, _texHeight, 0,
                         _format.format, _format.type, tile.getData());
        resetUnpack();
    }
}

std::size_t TxTexture::getByteSize() const {
    return static_cast<std::size_t>(_texWidth) * static_cast<std::size_t>(_texHeight) *
           static_cast<std::size_t>(TxGfxFmt::getBytesPerPixel(_format.format));
}

TxTexture::~TxTexture() {
    --TxTexFcty::_nbTextures;
    TxTexFcty::_textureBytes -= getByteSize();
    // Without a drawing backend there is no context whose name could be freed.
    if (_name != 0 && !SmGl::isNoOpBackend())
        SmGl::deleteTextures(1, &_name);
}

void TxTexture::bind() const {
    SmGl::bindTexture(Gl::TEXTURE_2D, _name);
}

void TxTexture::update(IxTile const& tile, GeRectangle<int> const& region) {
    ZR_ASSERT(tile.getWidth() == _width && tile.getHeight() == _height);
    GeRectangle<int> const r = region.intersection(GeRectangle<int>(0, _width, 0, _height));
    if (r.isEmpty())
        return;
    SmGl::bindTexture(Gl::TEXTURE_2D, _name);
    setUnpack(tile, r.x1, r.y1);
    SmGl::texSubImage2D(Gl::TEXTURE_2D, 0, r.x1, r.y1, r.width(), r.height(), _format.format,
                        _format.type, tile.getData());
    resetUnpack();
}

} // namespace Zr
