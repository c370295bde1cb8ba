// Drawing text through the recorder: textured quads where the glyphs go, the atlas sent once
// and then only what changed, alignment, and sub-strings that line up with the whole.
#include "smGl.h"
#include "smGlRecorder.h"
#include "txTexFcty.h"
#include "wsFont.h"
#include "wsFontAtlas.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace Zr;

namespace {
struct Quad {
    float x0, y0, x1, y1; // from the vertices
    float s0, t0, s1, t1; // from the texture coordinates
};

bool parse2(std::string const& entry, char const* name, float& a, float& b) {
    std::string const format = std::string(name) + "(%f, %f)";
    return std::sscanf(entry.c_str(), format.c_str(), &a, &b) == 2;
}

// The quads in the log, four texCoord2f/vertex2f pairs each.
std::vector<Quad> quadsOf(SmGlRecorder const& gl) {
    std::vector<float> xs, ys, ss, ts;
    for (std::string const& entry : gl.getLog()) {
        float a = 0.f, b = 0.f;
        if (parse2(entry, "vertex2f", a, b)) {
            xs.push_back(a);
            ys.push_back(b);
        } else if (parse2(entry, "texCoord2f", a, b)) {
            ss.push_back(a);
            ts.push_back(b);
        }
    }
    std::vector<Quad> quads;
    for (std::size_t i = 0; i + 3 < xs.size(); i += 4)
        quads.push_back({xs[i], ys[i], xs[i + 2], ys[i + 2], ss[i], ts[i], ss[i + 2], ts[i + 2]});
    return quads;
}

class FontDraw : public ::testing::Test {
protected:
    SmGlRecorder _gl;
    SmGlBackendGuard _guard{_gl};
    // A font of its own, so that the atlas starts empty in each test.
    RCShdPtr<WsFont> _font = WsFont::load("DejaVu Sans:Regular:12");
};
} // namespace

TEST_F(FontDraw, DrawsOneTexturedQuadPerVisibleGlyphAtThePen) {
    _font->drawString("Hi j", 10, 20);
    std::vector<Quad> const quads = quadsOf(_gl);
    ASSERT_EQ(3u, quads.size()); // the blank has no pixels
    EXPECT_EQ(1, _gl.getCount("begin"));
    EXPECT_EQ(1, _gl.getCount("end"));
    EXPECT_EQ(1, _gl.getCount("pushAttrib"));
    EXPECT_EQ(1, _gl.getCount("popAttrib"));
    EXPECT_TRUE(std::find(_gl.getLog().begin(), _gl.getLog().end(), "begin(0x0007)") !=
                _gl.getLog().end());
    // Each quad starts near the pen: the left bearing is a pixel or two.
    float const penH = 10.f;
    float const penJ = 10.f + _font->getStringWidth("Hi ");
    EXPECT_NEAR(penH, quads[0].x0, 2.f);
    EXPECT_NEAR(penJ, quads[2].x0, 2.f);
    EXPECT_LT(quads[0].x1, quads[1].x0 + 1.f);
    // "H" stands on the baseline; "j" goes below it.
    EXPECT_FLOAT_EQ(20.f, quads[0].y0);
    EXPECT_LT(quads[2].y0, 20.f);
    EXPECT_GE(quads[2].y0, 20.f - _font->getDescent() - 1.f);
    EXPECT_LE(quads[0].y1, 20.f + _font->getAscent());
    // At scale 1 a texel is a pixel.
    float const page = static_cast<float>(_font->getAtlas().getPageSize(0));
    for (Quad const& q : quads) {
        // The log keeps six digits.
        EXPECT_NEAR(q.x1 - q.x0, (q.s1 - q.s0) * page, 0.01f);
        EXPECT_NEAR(q.y1 - q.y0, (q.t1 - q.t0) * page, 0.01f);
    }
}

TEST_F(FontDraw, MovesAndScalesWithThePosition) {
    _font->drawString("AV", 10, 20);
    std::vector<Quad> const first = quadsOf(_gl);
    _gl.clearLog();
    _font->drawString("AV", 15, 27);
    std::vector<Quad> const moved = quadsOf(_gl);
    ASSERT_EQ(2u, moved.size());
    for (std::size_t i = 0; i < moved.size(); ++i) {
        EXPECT_FLOAT_EQ(first[i].x0 + 5.f, moved[i].x0);
        EXPECT_FLOAT_EQ(first[i].y1 + 7.f, moved[i].y1);
    }
    _gl.clearLog();
    _font->drawString("AV", 10, 20, 2.f);
    std::vector<Quad> const scaled = quadsOf(_gl);
    ASSERT_EQ(2u, scaled.size());
    EXPECT_FLOAT_EQ(2.f * (first[1].x1 - first[1].x0), scaled[1].x1 - scaled[1].x0);
    EXPECT_FLOAT_EQ(10.f + 2.f * (first[1].x0 - 10.f), scaled[1].x0);
}

TEST_F(FontDraw, SendsThePageOnceThenOnlyNewGlyphs) {
    int const textures = TxTexFcty::getNbTextures();
    _font->drawString("abc", 0, 0);
    EXPECT_EQ(1, _gl.getCount("genTextures"));
    EXPECT_EQ(1, _gl.getCount("texImage2D"));
    EXPECT_EQ(textures + 1, TxTexFcty::getNbTextures());
    _gl.clearLog();
    _font->drawString("cab", 0, 0);
    EXPECT_EQ(0, _gl.getCount("texImage2D"));
    EXPECT_EQ(0, _gl.getCount("texSubImage2D"));
    _gl.clearLog();
    _font->drawString("abcd", 0, 0);
    EXPECT_EQ(0, _gl.getCount("genTextures"));
    EXPECT_EQ(1, _gl.getCount("texSubImage2D"));
    _font.reset();
    EXPECT_EQ(textures, TxTexFcty::getNbTextures());
    EXPECT_EQ(1, _gl.getCount("deleteTextures"));
}

TEST_F(FontDraw, AlignsOnTheGivenPoint) {
    float const width = _font->getStringWidth("Wide");
    _font->draw("Wide", 100, 50, 1.f, WsFont::AlignRight | WsFont::AlignTop);
    std::vector<Quad> const right = quadsOf(_gl);
    ASSERT_EQ(4u, right.size());
    EXPECT_NEAR(100.f - width, right.front().x0, 2.f);
    EXPECT_LE(right.back().x1, 101.f);
    EXPECT_LE(right.front().y1, 50.f);
    EXPECT_GE(right.front().y1, 50.f - 4.f);
    _gl.clearLog();
    _font->drawCenteredString("Wide", 100, 50, 1.f, true, false);
    std::vector<Quad> const centred = quadsOf(_gl);
    ASSERT_EQ(4u, centred.size());
    float const middle = (centred.front().x0 + centred.back().x1) / 2.f;
    EXPECT_NEAR(100.f, middle, 2.f);
    EXPECT_FLOAT_EQ(50.f, centred.front().y0); // baseline kept
}

TEST_F(FontDraw, SubStringsLineUpWithTheWholeText) {
    std::string const text = "Select \xE2\x82\xAC this";
    _font->drawString(text, 5, 5);
    std::vector<Quad> const whole = quadsOf(_gl);
    _gl.clearLog();
    // The selection "\xE2\x82\xAC th", at the position of the last draw.
    _font->drawSubString(text, 7, 6, 0);
    std::vector<Quad> const part = quadsOf(_gl);
    ASSERT_EQ(3u, part.size());
    // Whole: S e l e c t € t h i s -> the euro is the seventh quad.
    for (std::size_t i = 0; i < part.size(); ++i) {
        EXPECT_FLOAT_EQ(whole[6 + i].x0, part[i].x0);
        EXPECT_FLOAT_EQ(whole[6 + i].y0, part[i].y0);
    }
    _gl.clearLog();
    _font->drawSubString(text, 3, 0, 0); // nothing
    _font->drawSubString(text, 99, 5, 0);
    EXPECT_EQ(0, _gl.getTotalCount());
}

TEST_F(FontDraw, DrawsBadUtf8AsReplacementCharacters) {
    _font->drawString("a\xFF"
                      "b\xE2\x82",
                      0, 0);
    EXPECT_EQ(4u, quadsOf(_gl).size());
    _gl.clearLog();
    _font->drawString("", 0, 0); // no call at all
    _font->drawString("\n\t", 0, 0);
    EXPECT_EQ(0, _gl.getCount("begin"));
    EXPECT_EQ(1, _gl.getCount("pushAttrib"));
    EXPECT_EQ(1, _gl.getCount("popAttrib"));
}
