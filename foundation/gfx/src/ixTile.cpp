// IxTile: pixel storage and access; IxReadGuard.
#include "ixTile.h"

#include <algorithm>

namespace Zr {

IxTile::IxTile(int width, int height, int channels, int stride)
    : _width(width), _height(height), _channels(channels) {
    ZR_ASSERT(width >= 0 && height >= 0);
    ZR_ASSERT(channels >= 1 && channels <= 4);
    _stride = stride == 0 ? width * channels : stride;
    ZR_ASSERT(_stride >= width * channels);
    _data.assign(static_cast<std::size_t>(_stride) * static_cast<std::size_t>(height), 0);
}

std::uint8_t const* IxTile::getRow(int y) const {
    ZR_ASSERT(y >= 0 && y < _height);
    return _data.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(_stride);
}

std::uint8_t const* IxTile::getPixel(int x, int y) const {
    ZR_ASSERT(x >= 0 && x < _width);
    return getRow(y) + x * _channels;
}

std::uint8_t* IxTile::getWritableData() {
    ZR_ASSERT(!isReadLocked());
    return _data.data();
}

std::uint8_t* IxTile::getWritableRow(int y) {
    ZR_ASSERT(!isReadLocked());
    return const_cast<std::uint8_t*>(getRow(y));
}

std::uint8_t* IxTile::getWritablePixel(int x, int y) {
    ZR_ASSERT(!isReadLocked());
    return const_cast<std::uint8_t*>(getPixel(x, y));
}

void IxTile::fill(std::uint8_t value) {
    ZR_ASSERT(!isReadLocked());
    std::fill(_data.begin(), _data.end(), value);
}

IxReadGuard::IxReadGuard(RCShdPtr<IxTile> const& tile) : _tile(tile) {
    if (!_tile)
        RCExUtil::throwExNullPtr("IxTile");
    ++_tile->_readers;
}

IxReadGuard::~IxReadGuard() {
    --_tile->_readers;
}

} // namespace Zr
