// WsManagedImage: reading TIFF through libtiff and PNG through libpng's simplified API, and
// writing both.
#include "wsManagedImage.h"

#include <png.h>
#include <tiffio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>
#include <vector>

namespace Zr {

WsImageEx::ExUnreadable::ExUnreadable(char const* file, int line, OsFilePath const& path,
                                      std::string const& why)
    : WsImageEx(file, line) {
    setReason("Cannot read image \"" + path.toString() + "\": " + why);
}

WsImageEx::ExUnwritable::ExUnwritable(char const* file, int line, OsFilePath const& path,
                                      std::string const& why)
    : WsImageEx(file, line) {
    setReason("Cannot write image \"" + path.toString() + "\": " + why);
}

namespace {

// libtiff reports through process-wide handlers; the last error of this thread is kept here
// for the exception instead of going to standard error.
thread_local std::string tiffError;

void tiffErrorHandler(char const* module, char const* format, va_list args) {
    std::array<char, 512> text{};
    std::vsnprintf(text.data(), text.size(), format, args);
    tiffError = (module ? std::string(module) + ": " : std::string()) + text.data();
}

void installTiffHandlers() {
    static bool const installed = [] {
        TIFFSetErrorHandler(&tiffErrorHandler);
        TIFFSetWarningHandler(nullptr);
        return true;
    }();
    (void)installed;
}

struct TiffCloser {
    void operator()(TIFF* tif) const { TIFFClose(tif); }
};
using TiffPtr = std::unique_ptr<TIFF, TiffCloser>;

// Whether an image of the declared size may be read from a file of `fileSize` bytes; if not,
// `why` says so in the user's terms.
bool isPlausibleSize(std::uint64_t width, std::uint64_t height, std::uint64_t fileSize,
                     std::string& why) {
    if (width == 0 || height == 0) {
        why = "bad image size " + std::to_string(width) + "x" + std::to_string(height);
        return false;
    }
    if (width > WsManagedImage::MaxImageSide || height > WsManagedImage::MaxImageSide) {
        why = "image size " + std::to_string(width) + "x" + std::to_string(height) +
              " is larger than the limit of " + std::to_string(WsManagedImage::MaxImageSide) +
              " pixels a side";
        return false;
    }
    if (width * height >
        fileSize * WsManagedImage::MaxPixelsPerByte + WsManagedImage::SmallImagePixels) {
        why = "image size " + std::to_string(width) + "x" + std::to_string(height) +
              " does not fit a file of " + std::to_string(fileSize) + " bytes";
        return false;
    }
    return true;
}

std::string tiffReason(char const* fallback) {
    return tiffError.empty() ? std::string(fallback) : tiffError;
}

// Colour channels divided by alpha: the toolkit blends with straight (not premultiplied)
// colours.
void unpremultiply(IxTile& tile) {
    int const channels = tile.getChannels();
    if (channels != 2 && channels != 4)
        return;
    for (int y = 0; y < tile.getHeight(); ++y) {
        std::uint8_t* p = tile.getWritableRow(y);
        for (int x = 0; x < tile.getWidth(); ++x, p += channels) {
            unsigned const a = p[channels - 1];
            if (a == 255)
                continue;
            for (int c = 0; c < channels - 1; ++c)
                p[c] = a == 0
                           ? 0
                           : static_cast<std::uint8_t>(std::min(255u, (p[c] * 255u + a / 2) / a));
        }
    }
}

// 8-bit grey or RGB in strips, with or without one alpha: the rows are read as they are, so
// unassociated alpha keeps its colours exactly. Null for anything else.
RCShdPtr<IxTile> readTiffScanlines(TIFF* tif, OsFilePath const& path, std::uint32_t width,
                                   std::uint32_t height, std::uint16_t samples,
                                   std::uint16_t photometric) {
    std::uint16_t bits = 1, planar = PLANARCONFIG_CONTIG, extraCount = 0;
    std::uint16_t* extra = nullptr;
    TIFFGetFieldDefaulted(tif, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetFieldDefaulted(tif, TIFFTAG_PLANARCONFIG, &planar);
    TIFFGetFieldDefaulted(tif, TIFFTAG_EXTRASAMPLES, &extraCount, &extra);
    bool const grey = photometric == PHOTOMETRIC_MINISBLACK;
    bool const rgb = photometric == PHOTOMETRIC_RGB;
    int const colours = grey ? 1 : 3;
    if (bits != 8 || planar != PLANARCONFIG_CONTIG || TIFFIsTiled(tif) || !(grey || rgb) ||
        (samples != colours && samples != colours + 1) || extraCount != samples - colours)
        return {};
    RCShdPtr<IxTile> tile(
        new IxTile(static_cast<int>(width), static_cast<int>(height), static_cast<int>(samples)));
    if (TIFFScanlineSize(tif) != tile->getWidth() * tile->getChannels())
        return {};
    for (std::uint32_t row = 0; row < height; ++row) {
        // The file's first row is the top one.
        std::uint8_t* dst = tile->getWritableRow(static_cast<int>(height - 1 - row));
        if (TIFFReadScanline(tif, dst, row, 0) < 0)
            throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path,
                                          tiffReason("cannot decode the image data"));
    }
    if (extraCount == 1 && extra && extra[0] == EXTRASAMPLE_ASSOCALPHA)
        unpremultiply(*tile);
    return tile;
}

RCShdPtr<IxTile> readTiff(OsFilePath const& path, std::uint64_t fileSize) {
    installTiffHandlers();
    tiffError.clear();
    TiffPtr tif(TIFFOpen(path.getChars(), "r"));
    if (!tif)
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, tiffReason("not a TIFF file"));
    std::uint32_t width = 0, height = 0;
    std::uint16_t samples = 1;
    TIFFGetField(tif.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tif.get(), TIFFTAG_IMAGELENGTH, &height);
    TIFFGetFieldDefaulted(tif.get(), TIFFTAG_SAMPLESPERPIXEL, &samples);
    std::uint16_t photometric = PHOTOMETRIC_RGB;
    TIFFGetFieldDefaulted(tif.get(), TIFFTAG_PHOTOMETRIC, &photometric);
    std::string why;
    if (!isPlausibleSize(width, height, fileSize, why))
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, why);
    if (RCShdPtr<IxTile> tile =
            readTiffScanlines(tif.get(), path, width, height, samples, photometric))
        return tile;
    // Everything else through libtiff's RGBA reading, which handles palettes, other depths,
    // tiles and colour spaces, and gives premultiplied colours.
    std::vector<std::uint32_t> raster(static_cast<std::size_t>(width) * height);
    if (!TIFFReadRGBAImageOriented(tif.get(), width, height, raster.data(), ORIENTATION_BOTLEFT, 0))
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path,
                                      tiffReason("cannot decode the image data"));
    // Keep only the channels the file has: grey stays grey; palettes and other colour spaces
    // become RGB(A).
    bool const grey =
        photometric == PHOTOMETRIC_MINISBLACK || photometric == PHOTOMETRIC_MINISWHITE;
    bool const alpha = samples == 2 || samples >= 4;
    int const channels = grey ? (alpha ? 2 : 1) : (alpha ? 4 : 3);
    RCShdPtr<IxTile> tile(new IxTile(static_cast<int>(width), static_cast<int>(height), channels));
    for (int y = 0; y < tile->getHeight(); ++y) {
        std::uint8_t* row = tile->getWritableRow(y);
        std::uint32_t const* src = raster.data() + static_cast<std::size_t>(y) * width;
        for (std::uint32_t x = 0; x < width; ++x, row += channels) {
            std::uint32_t const p = src[x];
            row[0] = static_cast<std::uint8_t>(TIFFGetR(p));
            if (!grey) {
                row[1] = static_cast<std::uint8_t>(TIFFGetG(p));
                row[2] = static_cast<std::uint8_t>(TIFFGetB(p));
            }
            if (alpha)
                row[channels - 1] = static_cast<std::uint8_t>(TIFFGetA(p));
        }
    }
    unpremultiply(*tile);
    return tile;
}

png_uint_32 pngFormatForChannels(int channels) {
    switch (channels) {
    case 1:
        return PNG_FORMAT_GRAY;
    case 2:
        return PNG_FORMAT_GA;
    case 3:
        return PNG_FORMAT_RGB;
    default:
        return PNG_FORMAT_RGBA;
    }
}

RCShdPtr<IxTile> readPng(OsFilePath const& path, std::uint64_t fileSize) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.getChars()))
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, image.message);
    bool const alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    bool const colour = (image.format & PNG_FORMAT_FLAG_COLOR) != 0;
    int const channels = (colour ? 3 : 1) + (alpha ? 1 : 0);
    image.format = pngFormatForChannels(channels);
    std::string why;
    if (!isPlausibleSize(image.width, image.height, fileSize, why)) {
        png_image_free(&image);
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, why);
    }
    RCShdPtr<IxTile> tile;
    try {
        tile = new IxTile(static_cast<int>(image.width), static_cast<int>(image.height), channels);
    } catch (...) {
        png_image_free(&image);
        throw;
    }
    // With a negative stride libpng takes the buffer's last row as the image's first: the
    // file's top row lands at the top of the tile, whose rows run bottom-up.
    std::uint8_t* buffer = tile->getWritableData();
    if (!png_image_finish_read(&image, nullptr, buffer, -tile->getStride(), nullptr)) {
        std::string const why = image.message;
        png_image_free(&image);
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, why);
    }
    return tile;
}

enum class FileKind { Unknown, Png, Tiff };

FileKind sniff(OsFilePath const& path, std::string& why) {
    std::ifstream in(path.getPath(), std::ios::binary);
    if (!in) {
        why = std::error_code(errno, std::generic_category()).message();
        return FileKind::Unknown;
    }
    std::array<unsigned char, 8> head{};
    in.read(reinterpret_cast<char*>(head.data()), head.size());
    if (in.gcount() >= 8 && png_sig_cmp(head.data(), 0, 8) == 0)
        return FileKind::Png;
    if (in.gcount() >= 4 && ((head[0] == 'I' && head[1] == 'I' && head[2] == 42 && head[3] == 0) ||
                             (head[0] == 'M' && head[1] == 'M' && head[2] == 0 && head[3] == 42) ||
                             (head[0] == 'I' && head[1] == 'I' && head[2] == 43 && head[3] == 0) ||
                             (head[0] == 'M' && head[1] == 'M' && head[2] == 0 && head[3] == 43)))
        return FileKind::Tiff;
    why = "not a TIFF or PNG file";
    return FileKind::Unknown;
}

} // namespace

WsManagedImage::WsManagedImage(RCShdPtr<IxTile> tile) : _tile(std::move(tile)) {
    if (!_tile)
        RCExUtil::throwExNullPtr("IxTile");
}

RCShdPtr<WsManagedImage> WsManagedImage::loadFromFile(OsFilePath const& path) {
    std::error_code error;
    std::filesystem::file_status const status = std::filesystem::status(path.getPath(), error);
    if (error)
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, error.message());
    if (!std::filesystem::is_regular_file(status))
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, "not a regular file");
    std::uint64_t const fileSize = std::filesystem::file_size(path.getPath(), error);
    std::string why;
    RCShdPtr<IxTile> tile;
    switch (sniff(path, why)) {
    case FileKind::Png:
        tile = readPng(path, fileSize);
        break;
    case FileKind::Tiff:
        tile = readTiff(path, fileSize);
        break;
    case FileKind::Unknown:
        throw WsImageEx::ExUnreadable(__FILE__, __LINE__, path, why);
    }
    RCShdPtr<WsManagedImage> image(new WsManagedImage(tile));
    image->_path = path;
    return image;
}

RCShdPtr<IxTile> const& WsManagedImage::getImage(bool) const {
    return _tile;
}

void WsManagedImage::getImage(RCShdPtr<IxTile>& tile, bool fullResolution) const {
    tile = getImage(fullResolution);
}

void WsManagedImage::writePng(IxTile const& tile, OsFilePath const& path) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(tile.getWidth());
    image.height = static_cast<png_uint_32>(tile.getHeight());
    image.format = pngFormatForChannels(tile.getChannels());
    if (tile.getWidth() == 0 || tile.getHeight() == 0)
        throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path, "empty image");
    // The negative stride, as in reading, writes the tile's last row first.
    if (!png_image_write_to_file(&image, path.getChars(), 0, tile.getData(), -tile.getStride(),
                                 nullptr)) {
        std::string const why = image.message;
        png_image_free(&image);
        throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path, why);
    }
}

void WsManagedImage::writeTiff(IxTile const& tile, OsFilePath const& path) {
    if (tile.getWidth() == 0 || tile.getHeight() == 0)
        throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path, "empty image");
    installTiffHandlers();
    tiffError.clear();
    TiffPtr tif(TIFFOpen(path.getChars(), "w"));
    if (!tif)
        throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path,
                                      tiffReason("cannot create the file"));
    int const channels = tile.getChannels();
    TIFF* t = tif.get();
    TIFFSetField(t, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(tile.getWidth()));
    TIFFSetField(t, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(tile.getHeight()));
    TIFFSetField(t, TIFFTAG_SAMPLESPERPIXEL, static_cast<std::uint16_t>(channels));
    TIFFSetField(t, TIFFTAG_BITSPERSAMPLE, static_cast<std::uint16_t>(8));
    TIFFSetField(t, TIFFTAG_ORIENTATION, static_cast<std::uint16_t>(ORIENTATION_TOPLEFT));
    TIFFSetField(t, TIFFTAG_PLANARCONFIG, static_cast<std::uint16_t>(PLANARCONFIG_CONTIG));
    TIFFSetField(t, TIFFTAG_COMPRESSION, static_cast<std::uint16_t>(COMPRESSION_NONE));
    TIFFSetField(
        t, TIFFTAG_PHOTOMETRIC,
        static_cast<std::uint16_t>(channels <= 2 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB));
    if (channels == 2 || channels == 4) {
        std::uint16_t const extra = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(t, TIFFTAG_EXTRASAMPLES, static_cast<std::uint16_t>(1), &extra);
    }
    TIFFSetField(t, TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(tile.getHeight()));
    // The file's first row is the top one: the tile's last.
    for (int y = 0; y < tile.getHeight(); ++y) {
        auto* row = const_cast<std::uint8_t*>(tile.getRow(tile.getHeight() - 1 - y));
        if (TIFFWriteScanline(t, row, static_cast<std::uint32_t>(y), 0) < 0)
            throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path,
                                          tiffReason("cannot write the image data"));
    }
    if (!TIFFFlush(t))
        throw WsImageEx::ExUnwritable(__FILE__, __LINE__, path, tiffReason("cannot flush"));
}

} // namespace Zr
