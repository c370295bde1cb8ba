// The OpenGL facade: the no-op default, installing a backend, and what the recorder tells
// about painted pixels.
#include "smGl.h"
#include "smGlRecorder.h"

#include <gtest/gtest.h>

using namespace Zr;

TEST(SmGlTest, DoesNothingUntilABackendIsInstalledAndRestoresIt) {
    EXPECT_TRUE(SmGl::isNoOpBackend());
    SmGl::recti(0, 0, 10, 10); // harmless without a display
    int viewport[4] = {1, 2, 3, 4};
    SmGl::getIntegerv(Gl::VIEWPORT, viewport);
    EXPECT_EQ(0, viewport[3]);
    unsigned textures[2] = {0, 0};
    SmGl::genTextures(2, textures);
    EXPECT_NE(textures[0], textures[1]);
    {
        SmGlRecorder gl;
        SmGlBackendGuard guard(gl);
        EXPECT_FALSE(SmGl::isNoOpBackend());
        SmGl::enable(Gl::SCISSOR_TEST);
        EXPECT_EQ(1, gl.getCount("enable"));
        EXPECT_TRUE(gl.isEnabled(Gl::SCISSOR_TEST));
    }
    EXPECT_TRUE(SmGl::isNoOpBackend());
    SmGl::setBackend(nullptr);
    EXPECT_TRUE(SmGl::isNoOpBackend());
}

TEST(SmGlTest, RecorderLogsCallsWithTheirArguments) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    SmGl::color3f(1.f, 0.5f, 0.f);
    float v[2] = {1.5f, 2.f};
    SmGl::vertex2fv(v);
    SmGl::lineStipple(1, 0x00FF);
    SmGl::loadIdentity();
    SmGl::drawPixels(2, 2, Gl::RGBA, Gl::UNSIGNED_BYTE, nullptr);
    EXPECT_EQ((std::vector<std::string>{"color3f(1, 0.5, 0)", "vertex2fv({1.5, 2})",
                                        "lineStipple(1, 0x00FF)", "loadIdentity()",
                                        "drawPixels(2, 2, 0x1908, 0x1401, null)"}),
              gl.getLog());
    EXPECT_EQ(5, gl.getTotalCount());
    gl.clearLog();
    EXPECT_TRUE(gl.getLog().empty());
    EXPECT_EQ(0, gl.getCount("color3f"));
    EXPECT_EQ((CoRgbaColorTyped<float>{1.f, 0.5f, 0.f, 1.f}), gl.getColor()); // state stays
}

TEST(SmGlTest, RecorderTellsWhatWasPaintedWhere) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    SmGl::viewport(0, 0, 200, 100);
    SmGl::clearColor(0.f, 0.f, 1.f, 1.f);
    SmGl::clear(Gl::COLOR_BUFFER_BIT | Gl::STENCIL_BUFFER_BIT);

    SmGl::matrixMode(Gl::MODELVIEW);
    SmGl::pushMatrix();
    SmGl::translatef(10.f, 20.f, 0.f);
    SmGl::enable(Gl::SCISSOR_TEST);
    SmGl::scissor(15, 25, 10, 10);
    SmGl::color3f(1.f, 0.f, 0.f);
    SmGl::recti(10, 10, 0, 0); // corners in either order
    SmGl::clear(Gl::COLOR_BUFFER_BIT);
    SmGl::popMatrix();
    SmGl::rectf(100.f, 0.f, 101.f, 1.f); // outside the scissor box: nothing

    // The projection's identity leaves the model-view translation alone.
    SmGl::matrixMode(Gl::PROJECTION);
    SmGl::loadIdentity();
    EXPECT_EQ((GeVector2<float>{0.f, 0.f}), gl.getTranslation());

    auto const& painted = gl.getPaintedRects();
    ASSERT_EQ(3u, painted.size());
    EXPECT_EQ((GeRectangle<int>{0, 200, 0, 100}), painted[0].rect);
    EXPECT_TRUE(painted[0].isClear);
    EXPECT_EQ((GeRectangle<int>{15, 20, 25, 30}), painted[1].rect);
    EXPECT_EQ((CoRgbaColorTyped<float>{1.f, 0.f, 0.f, 1.f}), painted[1].color);
    EXPECT_FALSE(painted[1].isClear);
    EXPECT_EQ((GeRectangle<int>{15, 25, 25, 35}), painted[2].rect);
    EXPECT_EQ((CoRgbaColorTyped<float>{0.f, 0.f, 1.f, 1.f}), painted[2].color);

    int box[4];
    SmGl::getIntegerv(Gl::SCISSOR_BOX, box);
    EXPECT_EQ((std::vector<int>{15, 25, 10, 10}), std::vector<int>(box, box + 4));
}
