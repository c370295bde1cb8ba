// WsScreenshot: a window's pixels read back from its back buffer, as RGBA bytes or a PNG file.
#pragma once

#include "exBase.h"
#include "osFilePath.h"

#include <cstdint>
#include <vector>

namespace Zr {

class WsWindow;

class WsScreenshot {
public:
    ZR_DECLARE_EXCEPTION(ExWriteFailed, ExBase);
    ZR_DECLARE_EXCEPTION(ExReadFailed, ExBase);

    // The back buffer of `window`, width x height RGBA bytes, top row first (as images are
    // stored). Read it after drawing and before the swap; after a swap it holds the frame
    // only where the swap copies (Xvfb does). Makes the window's context current.
    static std::vector<std::uint8_t> readPixels(WsWindow& window);
    // The RGBA bytes of the toolkit's pixel (x, y), y up from the bottom, in what readPixels
    // returned for a window `width` by `height`.
    static std::uint32_t pixelAt(std::vector<std::uint8_t> const& rgba, int width, int height,
                                 int x, int y);
    // Writes readPixels(window) as an 8-bit RGBA PNG; throws ExWriteFailed naming the file.
    static void writePng(WsWindow& window, OsFilePath const& path);
    static void writePng(std::vector<std::uint8_t> const& rgba, int width, int height,
                         OsFilePath const& path);
    // Reads a PNG back as RGBA bytes, top row first; throws ExReadFailed naming the file.
    static std::vector<std::uint8_t> readPng(OsFilePath const& path, int& width, int& height);
};

} // namespace Zr
