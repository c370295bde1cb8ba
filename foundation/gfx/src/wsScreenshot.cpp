// Screenshots: glReadPixels of the back buffer (rows come bottom first and are flipped), and
// PNG writing through libpng.
#include "wsScreenshot.h"

#include "smGl.h"
#include "wsWindow.h"

#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace Zr {

std::vector<std::uint8_t> WsScreenshot::readPixels(WsWindow& window) {
    GeRectangle<int> const& g = window.getGeometry();
    int const w = std::max(1, g.width()), h = std::max(1, g.height());
    window.makeCurrent();
    std::vector<std::uint8_t> bottomUp(static_cast<std::size_t>(w) * h * 4);
    SmGl::pixelStorei(Gl::PACK_ALIGNMENT, 1);
    SmGl::readBuffer(Gl::BACK_LEFT);
    SmGl::readPixels(0, 0, w, h, Gl::RGBA, Gl::UNSIGNED_BYTE, bottomUp.data());
    std::vector<std::uint8_t> rgba(bottomUp.size());
    std::size_t const row = static_cast<std::size_t>(w) * 4;
    for (int y = 0; y < h; ++y)
        std::memcpy(&rgba[static_cast<std::size_t>(y) * row],
                    &bottomUp[static_cast<std::size_t>(h - 1 - y) * row], row);
    return rgba;
}

std::uint32_t WsScreenshot::pixelAt(std::vector<std::uint8_t> const& rgba, int width, int height,
                                    int x, int y) {
    ZR_ASSERT(x >= 0 && x < width && y >= 0 && y < height);
    std::size_t const i = (static_cast<std::size_t>(height - 1 - y) * width + x) * 4;
    ZR_ASSERT(i + 3 < rgba.size());
    return (std::uint32_t(rgba[i]) << 24) | (std::uint32_t(rgba[i + 1]) << 16) |
           (std::uint32_t(rgba[i + 2]) << 8) | std::uint32_t(rgba[i + 3]);
}

void WsScreenshot::writePng(WsWindow& window, OsFilePath const& path) {
    GeRectangle<int> const& g = window.getGeometry();
    writePng(readPixels(window), std::max(1, g.width()), std::max(1, g.height()), path);
}

void WsScreenshot::writePng(std::vector<std::uint8_t> const& rgba, int width, int height,
                            OsFilePath const& path) {
    ZR_ASSERT(width > 0 && height > 0);
    ZR_ASSERT(rgba.size() == static_cast<std::size_t>(width) * height * 4);
    auto fail = [&path](char const* why) {
        return ExWriteFailed(__FILE__, __LINE__,
                             "Cannot write \"" + path.toString() + "\": " + why);
    };
    std::FILE* file = std::fopen(path.getChars(), "wb");
    if (!file)
        throw fail(std::strerror(errno));
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info) {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        throw fail("out of memory");
    }
    std::vector<png_bytep> rows(static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y)
        rows[static_cast<std::size_t>(y)] = const_cast<png_bytep>(
            &rgba[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) * 4]);
    // libpng reports errors by longjmp; nothing with a destructor lives past this point.
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        throw fail("PNG encoding failed");
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
                 PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    if (std::fclose(file) != 0)
        throw fail(std::strerror(errno));
}

std::vector<std::uint8_t> WsScreenshot::readPng(OsFilePath const& path, int& width, int& height) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    auto fail = [&path, &image]() {
        std::string why = image.message[0] ? image.message : "not a PNG file";
        png_image_free(&image);
        return ExReadFailed(__FILE__, __LINE__, "Cannot read \"" + path.toString() + "\": " + why);
    };
    if (!png_image_begin_read_from_file(&image, path.getChars()))
        throw fail();
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> rgba(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, rgba.data(), 0, nullptr))
        throw fail();
    width = static_cast<int>(image.width);
    height = static_cast<int>(image.height);
    return rgba;
}

} // namespace Zr
