// IxTile: an 8-bit image in memory, 1 to 4 channels, rows bottom-up like OpenGL's pixel
// rectangles; IxScanline<T>, a typed view of one row, and IxReadGuard, which holds a tile
// for reading so that nobody writes to it meanwhile.
#pragma once

#include "exBase.h"
#include "geRectangle.h"
#include "rcBase.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Zr {

class IxTile : public RCObject {
public:
    // A tile of width x height pixels, all channels zero. Rows are packed unless `stride`
    // (bytes per row) asks for more; stride 0 means packed.
    IxTile(int width, int height, int channels, int stride = 0);

    int getWidth() const { return _width; }
    int getHeight() const { return _height; }
    int getChannels() const { return _channels; }
    // Bytes from one row to the next; at least width * channels.
    int getStride() const { return _stride; }
    // The tile's place in its image: a tile of a whole image starts at (0, 0).
    GePoint2<int> getOrigin() const { return _origin; }
    void setOrigin(GePoint2<int> origin) { _origin = origin; }
    GeRectangle<int> getBounds() const {
        return GeRectangle<int>::fromSize(_origin.x, _origin.y, _width, _height);
    }
    std::size_t getByteSize() const { return _data.size(); }

    // Row 0 is the bottom row. Reading is always allowed; writing asserts that no IxReadGuard
    // holds the tile.
    std::uint8_t const* getData() const { return _data.data(); }
    std::uint8_t const* getRow(int y) const;
    std::uint8_t const* getPixel(int x, int y) const;
    std::uint8_t* getWritableData();
    std::uint8_t* getWritableRow(int y);
    std::uint8_t* getWritablePixel(int x, int y);
    // Channel c of pixel (x, y).
    std::uint8_t getValue(int x, int y, int c) const { return getPixel(x, y)[c]; }
    void setValue(int x, int y, int c, std::uint8_t value) { getWritablePixel(x, y)[c] = value; }
    void fill(std::uint8_t value);

    bool isReadLocked() const { return _readers > 0; }

private:
    friend class IxReadGuard;

    int _width;
    int _height;
    int _channels;
    int _stride;
    GePoint2<int> _origin;
    int _readers = 0;
    std::vector<std::uint8_t> _data;
};

// Holds a tile and marks it as being read: drawing code takes one while it hands the pixels
// to OpenGL, so that a writer in the same thread trips an assertion instead of changing the
// pixels under it.
class IxReadGuard {
public:
    explicit IxReadGuard(RCShdPtr<IxTile> const& tile);
    IxReadGuard(IxReadGuard const&) = delete;
    IxReadGuard& operator=(IxReadGuard const&) = delete;
    ~IxReadGuard();

    IxTile const& getTile() const { return *_tile; }
    IxTile const* operator->() const { return _tile.get(); }

private:
    RCShdPtr<IxTile> _tile;
};

// One row of a tile seen as elements of T: T = std::uint8_t gives the channel values one by
// one, a struct of `channels` bytes gives whole pixels.
template <class T>
class IxScanline {
public:
    IxScanline(IxTile& tile, int y) : _row(reinterpret_cast<T*>(tile.getWritableRow(y))) {
        ZR_ASSERT(sizeof(T) == 1 || static_cast<int>(sizeof(T)) == tile.getChannels());
        _size = tile.getWidth() * tile.getChannels() / static_cast<int>(sizeof(T));
    }
    int size() const { return _size; }
    T& operator[](int i) const { return _row[i]; }
    T* begin() const { return _row; }
    T* end() const { return _row + _size; }

private:
    T* _row;
    int _size;
};

// The read-only form, for tiles held through an IxReadGuard.
template <class T>
class IxScanline<T const> {
public:
    IxScanline(IxTile const& tile, int y) : _row(reinterpret_cast<T const*>(tile.getRow(y))) {
        ZR_ASSERT(sizeof(T) == 1 || static_cast<int>(sizeof(T)) == tile.getChannels());
        _size = tile.getWidth() * tile.getChannels() / static_cast<int>(sizeof(T));
    }
    int size() const { return _size; }
    T const& operator[](int i) const { return _row[i]; }
    T const* begin() const { return _row; }
    T const* end() const { return _row + _size; }

private:
    T const* _row;
    int _size;
};

} // namespace Zr
