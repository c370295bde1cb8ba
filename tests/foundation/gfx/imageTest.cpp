// Images: TIFF and PNG written and read back pixel for pixel with rows kept bottom-up, clear
// errors for files that can't be read, pixel drawing clipped at the lower-left corner, and
// textures.
#include "gfxImageUtil.h"
#include "ixTile.h"
#include "smGl.h"
#include "smGlRecorder.h"
#include "txTexFcty.h"
#include "wsManagedImage.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

using namespace Zr;

namespace {
// A directory of its own for the files of one test, removed afterwards.
class ImageFile : public ::testing::Test {
protected:
    void SetUp() override {
        _dir = std::filesystem::temp_directory_path() /
               ("zrImageTest" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(_dir);
    }
    void TearDown() override { std::filesystem::remove_all(_dir); }
    OsFilePath path(char const* name) const { return OsFilePath(_dir / name); }

    std::filesystem::path _dir;
};

// Every channel of every pixel different, so that a swap of rows, columns or channels shows.
RCShdPtr<IxTile> makeTile(int width, int height, int channels) {
    RCShdPtr<IxTile> tile(new IxTile(width, height, channels));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < channels; ++c)
                tile->setValue(x, y, c, static_cast<std::uint8_t>(17 * y + 5 * x + 60 * c + 1));
    return tile;
}

void expectSamePixels(IxTile const& expected, IxTile const& actual) {
    ASSERT_EQ(expected.getWidth(), actual.getWidth());
    ASSERT_EQ(expected.getHeight(), actual.getHeight());
    ASSERT_EQ(expected.getChannels(), actual.getChannels());
    for (int y = 0; y < expected.getHeight(); ++y)
        for (int x = 0; x < expected.getWidth(); ++x)
            for (int c = 0; c < expected.getChannels(); ++c)
                ASSERT_EQ(expected.getValue(x, y, c), actual.getValue(x, y, c))
                    << "at " << x << ", " << y << " channel " << c;
}

std::string unreadableReason(OsFilePath const& path) {
    return TestSupport::reasonOf<WsImageEx::ExUnreadable>(
        [&] { WsManagedImage::loadFromFile(path); });
}

std::string readBytes(OsFilePath const& path) {
    std::ifstream in(path.getPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool logHas(SmGlRecorder const& gl, std::string const& entry) {
    return std::find(gl.getLog().begin(), gl.getLog().end(), entry) != gl.getLog().end();
}
} // namespace

TEST_F(ImageFile, PngAndTiffKeepEveryPixelOfEachChannelCount) {
    for (int channels = 1; channels <= 4; ++channels) {
        RCShdPtr<IxTile> const tile = makeTile(5, 3, channels);
        WsManagedImage::writePng(*tile, path("a.png"));
        WsManagedImage::writeTiff(*tile, path("a.tif"));
        // The name doesn't decide the format: the first bytes do.
        std::filesystem::rename(_dir / "a.png", _dir / "png.tif");
        RCShdPtr<WsManagedImage> const png = WsManagedImage::loadFromFile(path("png.tif"));
        RCShdPtr<WsManagedImage> const tiff = WsManagedImage::loadFromFile(path("a.tif"));
        {
            SCOPED_TRACE("PNG of " + std::to_string(channels) + " channels");
            expectSamePixels(*tile, *png->getImage(true));
        }
        {
            SCOPED_TRACE("TIFF of " + std::to_string(channels) + " channels");
            expectSamePixels(*tile, *tiff->getImage(true));
        }
        EXPECT_EQ(path("a.tif"), tiff->getPath());
        EXPECT_EQ(GeRectangle<int>(0, 5, 0, 3), tiff->getImage(true)->getBounds());
    }
}

TEST_F(ImageFile, TheFileHoldsTheTopRowFirst) {
    // Rows run bottom-up in memory and top-down in files; a grey 2x2 image shows which is which.
    RCShdPtr<IxTile> tile(new IxTile(2, 2, 1));
    tile->setValue(0, 0, 0, 11);
    tile->setValue(1, 0, 0, 22);
    tile->setValue(0, 1, 0, 33);
    tile->setValue(1, 1, 0, 44);
    WsManagedImage::writeTiff(*tile, path("g.tif"));
    EXPECT_NE(std::string::npos, readBytes(path("g.tif")).find("\x21\x2C\x0B\x16"));
    RCShdPtr<WsManagedImage> const image = WsManagedImage::loadFromFile(path("g.tif"));
    EXPECT_EQ(11, image->getImage(true)->getValue(0, 0, 0));
    EXPECT_EQ(44, image->getImage(true)->getValue(1, 1, 0));
    RCShdPtr<IxTile> proxy;
    image->getImage(proxy, false);
    EXPECT_EQ(image->getImage(true), proxy);
}

TEST_F(ImageFile, ReadsOtherTiffKindsThroughTheRgbaInterface) {
    // A 2x2 grey file where 0 is white, built by hand: the scanline path doesn't take it.
    std::string tiff("II*\0\x08\0\0\0", 8);
    auto put16 = [&](unsigned v) { tiff += {char(v & 0xFF), char(v >> 8)}; };
    auto put32 = [&](unsigned v) { put16(v & 0xFFFF), put16(v >> 16); };
    auto entry = [&](unsigned tag, unsigned type, unsigned value) {
        put16(tag), put16(type), put32(1), type == 3 ? (put16(value), put16(0)) : put32(value);
    };
    unsigned const dataOffset = 8 + 2 + 9 * 12 + 4;
    put16(9);
    entry(256, 3, 2);          // width
    entry(257, 3, 2);          // height
    entry(258, 3, 8);          // bits per sample
    entry(259, 3, 1);          // no compression
    entry(262, 3, 0);          // min is white
    entry(273, 4, dataOffset); // strip offset
    entry(277, 3, 1);          // samples per pixel
    entry(278, 3, 2);          // rows per strip
    entry(279, 4, 4);          // strip byte count
    put32(0);
    tiff += {char(0), char(10), char(200), char(255)}; // top row, then bottom row
    std::ofstream(path("white.tif").getPath(), std::ios::binary) << tiff;
    RCShdPtr<IxTile> const tile = WsManagedImage::loadFromFile(path("white.tif"))->getImage(true);
    ASSERT_EQ(1, tile->getChannels());
    EXPECT_EQ(255, tile->getValue(0, 1, 0));
    EXPECT_EQ(245, tile->getValue(1, 1, 0));
    EXPECT_EQ(55, tile->getValue(0, 0, 0));
    EXPECT_EQ(0, tile->getValue(1, 0, 0));
}

TEST_F(ImageFile, UnreadableFilesRaiseAnExceptionNamingThem) {
    std::string const missing = path("missing.tif").toString();
    EXPECT_EQ(
        0u, unreadableReason(path("missing.tif")).find("Cannot read image \"" + missing + "\": "));
    std::ofstream(path("text.png").getPath()) << "just some text, not an image";
    EXPECT_EQ("Cannot read image \"" + path("text.png").toString() + "\": not a TIFF or PNG file",
              unreadableReason(path("text.png")));
    std::ofstream(path("empty.tif").getPath());
    EXPECT_EQ(0u, unreadableReason(path("empty.tif")).find("Cannot read image \""));
    // Good headers, cut-off data.
    RCShdPtr<IxTile> const tile = makeTile(40, 30, 3);
    WsManagedImage::writePng(*tile, path("full.png"));
    WsManagedImage::writeTiff(*tile, path("full.tif"));
    for (char const* name : {"full.png", "full.tif"}) {
        std::string const bytes = readBytes(path(name));
        std::string const cut = std::string("cut_") + name;
        std::ofstream(path(cut.c_str()).getPath(), std::ios::binary) << bytes.substr(0, 60);
        std::string const reason = unreadableReason(path(cut.c_str()));
        EXPECT_EQ(0u, reason.find("Cannot read image \"" + path(cut.c_str()).toString() + "\": "))
            << reason;
    }
    EXPECT_THROW(WsManagedImage::loadFromFile(path("")), WsImageEx);
}

TEST_F(ImageFile, UnwritableFilesRaiseAnExceptionNamingThem) {
    RCShdPtr<IxTile> const tile = makeTile(2, 2, 3);
    OsFilePath const nowhere = path("no/such/dir/x.png");
    EXPECT_EQ(0u, TestSupport::reasonOf<WsImageEx::ExUnwritable>([&] {
                      WsManagedImage::writePng(*tile, nowhere);
                  }).find("Cannot write image \"" + nowhere.toString() + "\": "));
    EXPECT_THROW(WsManagedImage::writeTiff(*tile, path("no/such/dir/x.tif")),
                 WsImageEx::ExUnwritable);
    EXPECT_THROW(WsManagedImage::writePng(IxTile(0, 0, 3), path("e.png")), WsImageEx::ExUnwritable);
}

TEST(ImageTile, GuardsReadersAndViewsRows) {
    RCShdPtr<IxTile> const tile = makeTile(3, 2, 4);
    EXPECT_EQ(12, tile->getStride());
    RCShdPtr<IxTile> const padded(new IxTile(3, 2, 1, 8));
    EXPECT_EQ(8, padded->getStride());
    EXPECT_EQ(16u, padded->getByteSize());
    struct Rgba {
        std::uint8_t r, g, b, a;
    };
    IxScanline<Rgba> row(*tile, 1);
    EXPECT_EQ(3, row.size());
    EXPECT_EQ(tile->getValue(2, 1, 3), row[2].a);
    {
        IxReadGuard guard(tile);
        EXPECT_TRUE(tile->isReadLocked());
        IxScanline<std::uint8_t const> bytes(guard.getTile(), 0);
        EXPECT_EQ(12, bytes.size());
        EXPECT_EQ("!isReadLocked()",
                  TestSupport::reasonOf<ExAssertionFailed>([&] { tile->setValue(0, 0, 0, 1); }));
    }
    EXPECT_FALSE(tile->isReadLocked());
    tile->setValue(0, 0, 0, 1);
    EXPECT_THROW(IxScanline<Rgba>(*padded, 0), ExAssertionFailed);
    EXPECT_THROW(IxTile(2, 2, 5), ExAssertionFailed);
}

TEST(ImagePixels, ClipsOffTheLowerLeftCornerBySkippingWholeRowsAndColumns) {
    // channels, tile origin, part drawn, its lower-left corner, the window's lower-left corner;
    // the skips (0x0CF4 pixels, 0x0CF3 rows), raster position and drawPixels call expected.
    struct Row {
        int channels;
        GePoint2<int> origin;
        std::optional<GeRectangle<int>> part;
        GePoint2<int> at, window;
        char const *skipPixels, *skipRows, *raster, *draw;
    } const rows[] = {
        {4,
         {0, 0},
         {},
         {3, 5},
         {3, 5},
         "pixelStorei(0x0CF4, 0)",
         "pixelStorei(0x0CF3, 0)",
         "rasterPos2f(3, 5)",
         "drawPixels(10, 8, 0x1908, 0x1401, data)"},
        {3,
         {0, 0},
         {},
         {-3, -2},
         {0, 0},
         "pixelStorei(0x0CF4, 3)",
         "pixelStorei(0x0CF3, 2)",
         "rasterPos2f(0, 0)",
         "drawPixels(7, 6, 0x1907, 0x1401, data)"},
        // The part x 102..106, y 203..208 of a placed tile: 2 into the tile, 1 clipped.
        {1,
         {100, 200},
         GeRectangle<int>(102, 106, 203, 208),
         {-1, 4},
         {0, 4},
         "pixelStorei(0x0CF4, 3)",
         "pixelStorei(0x0CF3, 3)",
         "rasterPos2f(0, 4)",
         "drawPixels(3, 5, 0x1909, 0x1401, data)"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.draw);
        SmGlRecorder gl;
        SmGlBackendGuard guard(gl);
        RCShdPtr<IxTile> const tile = makeTile(10, 8, row.channels);
        tile->setOrigin(row.origin);
        GfxImageUtil::drawPixels(tile, row.part.value_or(tile->getBounds()), row.at, 1.f, 1.f,
                                 row.window);
        for (char const* entry : {row.skipPixels, row.skipRows, row.raster, row.draw,
                                  "pixelStorei(0x0CF2, 10)"}) // the row length
            EXPECT_TRUE(logHas(gl, entry)) << entry;
        EXPECT_EQ("pixelStorei(0x0CF5, 4)", gl.getLog().back()); // the defaults are back
    }
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    RCShdPtr<IxTile> const tile = makeTile(10, 8, 3);
    // Zoomed by 2: a partly hidden tile pixel is skipped whole, and the raster position moves
    // by the whole pixels skipped.
    GfxImageUtil::PixelPlan plan =
        GfxImageUtil::planPixels(tile->getBounds(), {-3, 5}, 1.f, 1.f, {0, 5}, 2.f, 2.f);
    EXPECT_EQ(2, plan.skipPixels);
    EXPECT_EQ(0, plan.skipRows);
    EXPECT_FLOAT_EQ(1.f, plan.rasterX);
    EXPECT_FLOAT_EQ(5.f, plan.rasterY);
    EXPECT_EQ(8, plan.width);
    EXPECT_FLOAT_EQ(2.f, plan.zoomX);
    // A half-resolution proxy shown at zoom 1: each tile pixel covers two.
    plan = GfxImageUtil::planPixels(tile->getBounds(), {-4, -1}, 0.5f, 0.5f, {0, 0}, 1.f, 1.f);
    EXPECT_EQ(2, plan.skipPixels);
    EXPECT_EQ(1, plan.skipRows);
    EXPECT_FLOAT_EQ(0.f, plan.rasterX);
    EXPECT_FLOAT_EQ(1.f, plan.rasterY);
    // Wholly off the window: nothing is drawn.
    GfxImageUtil::drawPixels(tile, tile->getBounds(), {-20, 0}, 1.f, 1.f, {0, 0});
    EXPECT_EQ(0, gl.getCount("drawPixels"));
}

TEST(ImagePixels, DrawScalesAProxyAndBlendsOnRequest) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    RCShdPtr<IxTile> const proxy = makeTile(5, 4, 4);
    GfxImageUtil::draw(proxy, {10, 8}, {-2, 3}, 1.f, true);
    EXPECT_TRUE(logHas(gl, "pixelZoom(2, 2)"));
    EXPECT_TRUE(logHas(gl, "pixelStorei(0x0CF4, 1)"));
    EXPECT_TRUE(logHas(gl, "rasterPos2f(0, 3)"));
    EXPECT_TRUE(logHas(gl, "enable(0x0BE2)"));
    EXPECT_EQ(1, gl.getCount("pushAttrib"));
    EXPECT_EQ("popAttrib()", gl.getLog().back());
    EXPECT_FALSE(proxy->isReadLocked());
}

TEST(ImageTexture, PadsToPowersOfTwoAndFreesItsName) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    int const before = TxTexFcty::getNbTextures();
    std::size_t const bytes = TxTexFcty::getTextureBytes();
    {
        RCShdPtr<IxTile> const tile = makeTile(3, 5, 3);
        RCShdPtr<TxTexture> const texture = TxTexFcty::getInstance().createTexture(*tile, true);
        EXPECT_EQ(4, texture->getTexWidth());
        EXPECT_EQ(8, texture->getTexHeight());
        EXPECT_FLOAT_EQ(0.75f, texture->getMaxS());
        EXPECT_FLOAT_EQ(0.625f, texture->getMaxT());
        EXPECT_EQ(before + 1, TxTexFcty::getNbTextures());
        EXPECT_EQ(bytes + 4 * 8 * 3, TxTexFcty::getTextureBytes());
        EXPECT_TRUE(logHas(gl, "texImage2D(0x0DE1, 0, 6407, 4, 8, 0, 0x1907, 0x1401, null)"));
        EXPECT_TRUE(logHas(gl, "texSubImage2D(0x0DE1, 0, 0, 0, 3, 5, 0x1907, 0x1401, data)"));
        EXPECT_TRUE(logHas(gl, "texParameteri(0x0DE1, 0x2801, 9729)"));
        gl.clearLog();
        texture->bind();
        char expected[64];
        std::snprintf(expected, sizeof expected, "bindTexture(0x0DE1, 0x%04X)", texture->getName());
        EXPECT_EQ(expected, gl.getLog().back());
    }
    EXPECT_EQ(1, gl.getCount("deleteTextures"));
    EXPECT_EQ(before, TxTexFcty::getNbTextures());
    EXPECT_EQ(bytes, TxTexFcty::getTextureBytes());
}

TEST(ImageTexture, ConvertsChannelsToFormats) {
    EXPECT_EQ(Gl::LUMINANCE, TxGfxFmt::cvt(1).format);
    EXPECT_EQ(Gl::ALPHA, TxGfxFmt::cvt(1, TxGfxFmt::Alpha).format);
    EXPECT_EQ(Gl::LUMINANCE_ALPHA, TxGfxFmt::cvt(2).format);
    EXPECT_EQ(Gl::RGB, TxGfxFmt::cvt(3).format);
    EXPECT_EQ(static_cast<int>(Gl::RGBA), TxGfxFmt::cvt(4).internalFormat);
    EXPECT_EQ(Gl::UNSIGNED_BYTE, TxGfxFmt::cvt(4).type);
    EXPECT_THROW(TxGfxFmt::cvt(0), ExAssertionFailed);
}
