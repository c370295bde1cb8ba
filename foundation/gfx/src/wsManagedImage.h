// WsManagedImage: an image of the interface (an icon, a splash picture) read from a TIFF or
// PNG file and kept as an IxTile; WsImageEx, the exceptions of reading and writing images.
#pragma once

#include <cstdint>

#include "exBase.h"
#include "ixTile.h"
#include "osFilePath.h"
#include "rcBase.h"

namespace Zr {

class WsImageEx : public ExBase {
public:
    WsImageEx(char const* file, int line) : ExBase(file, line) {}
    char const* getClassName() const override { return "WsImageEx"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<WsImageEx>(*this); }
    [[noreturn]] void raise() const override { throw *this; }

    class ExUnreadable;
    class ExUnwritable;
};

// "Cannot read image \"<path>\": <why>".
class WsImageEx::ExUnreadable : public WsImageEx {
public:
    ExUnreadable(char const* file, int line, OsFilePath const& path, std::string const& why);
    char const* getClassName() const override { return "WsImageEx::ExUnreadable"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<ExUnreadable>(*this); }
    [[noreturn]] void raise() const override { throw *this; }
};

// "Cannot write image \"<path>\": <why>".
class WsImageEx::ExUnwritable : public WsImageEx {
public:
    ExUnwritable(char const* file, int line, OsFilePath const& path, std::string const& why);
    char const* getClassName() const override { return "WsImageEx::ExUnwritable"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<ExUnwritable>(*this); }
    [[noreturn]] void raise() const override { throw *this; }
};

class WsManagedImage : public RCObject {
public:
    // An image made in memory; the path stays empty.
    explicit WsManagedImage(RCShdPtr<IxTile> tile);

    // Reads a TIFF or PNG file, told apart by its first bytes, not by its name. The tile has
    // the file's channels (grey, grey and alpha, RGB or RGBA), 8 bits each, rows bottom-up.
    // A file that can't be read raises WsImageEx::ExUnreadable naming it. Only regular files
    // are opened (a FIFO or a device would block or never end), and the size an image
    // declares is checked before anything is allocated for it: at most MaxImageSide pixels a
    // side, and at most MaxPixelsPerByte pixels per byte of the file (plus SmallImagePixels),
    // more than any compression that libtiff or libpng reads achieves on real pictures.
    static RCShdPtr<WsManagedImage> loadFromFile(OsFilePath const& path);
    static constexpr std::uint32_t MaxImageSide = 16384;
    static constexpr std::uint64_t MaxPixelsPerByte = 1024;
    static constexpr std::uint64_t SmallImagePixels = 65536;

    // The image as a tile. Images are kept at one resolution, so a proxy (fullResolution
    // false) is the full image too.
    RCShdPtr<IxTile> const& getImage(bool fullResolution = true) const;
    void getImage(RCShdPtr<IxTile>& tile, bool fullResolution) const;
    int getWidth() const { return _tile->getWidth(); }
    int getHeight() const { return _tile->getHeight(); }
    OsFilePath const& getPath() const { return _path; }

    // Write the tile, rows bottom-up as everywhere, as an 8-bit PNG or uncompressed TIFF with
    // its channels; raise WsImageEx::ExUnwritable naming the file when that fails.
    static void writePng(IxTile const& tile, OsFilePath const& path);
    static void writeTiff(IxTile const& tile, OsFilePath const& path);

private:
    RCShdPtr<IxTile> _tile;
    OsFilePath _path;
};

} // namespace Zr
