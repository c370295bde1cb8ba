// TxTexture: one OpenGL 2D texture made from a tile, padded to powers of two so that
// OpenGL 1.x takes it; the image covers texture coordinates (0, 0) to (getMaxS, getMaxT).
#pragma once

#include "geRectangle.h"
#include "rcBase.h"
#include "txGfxFmt.h"

#include <cstddef>

namespace Zr {

class IxTile;

class TxTexture : public RCObject {
public:
    ~TxTexture() override;

    // Binds the texture to GL_TEXTURE_2D of the active unit.
    void bind() const;
    unsigned getName() const { return _name; }
    TxGfxFmt const& getFormat() const { return _format; }
    // The image's size, and the size of the texture that holds it.
    int getWidth() const { return _width; }
    int getHeight() const { return _height; }
    int getTexWidth() const { return _texWidth; }
    int getTexHeight() const { return _texHeight; }
    // The memory the texture takes in OpenGL, padding included.
    std::size_t getByteSize() const;
    float getMaxS() const { return static_cast<float>(_width) / static_cast<float>(_texWidth); }
    float getMaxT() const { return static_cast<float>(_height) / static_cast<float>(_texHeight); }

    // Sends the pixels of `region` (in the tile's pixels, clipped to it) again, after the
    // tile changed there. The tile must have the texture's size and channels.
    void update(IxTile const& tile, GeRectangle<int> const& region);

private:
    friend class TxTexFcty;
    TxTexture(IxTile const& tile, TxGfxFmt const& format, bool smooth);

    unsigned _name = 0;
    TxGfxFmt _format;
    int _width;
    int _height;
    int _texWidth;
    int _texHeight;
};

} // namespace Zr
