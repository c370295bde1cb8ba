// Fonts: descriptions and their errors, the registry's handles, metrics, UTF-8 measuring and
// truncation in the middle.
#include "wsFont.h"
#include "wsFontAtlas.h"
#include "wsFontEx.h"
#include "wsFontRegistry.h"
#include "wsFontUtils.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Zr;

// fontconfig keeps a few bytes of its configuration until the process ends (as listed in
// scripts/lsan.supp); built in here too, so that a plain ctest run of this binary stays clean.
// Only that library is named.
extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

namespace {
RCShdPtr<WsFont> sans12() {
    return WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
}

std::string badDescriptionReason(std::string const& text) {
    try {
        WsFontDescription::parse(text);
    } catch (WsFontEx::ExBadDescription const& ex) {
        return ex.getReason();
    }
    return "(accepted)";
}

std::vector<char32_t> decodeAll(std::string_view text) {
    std::vector<char32_t> out;
    for (std::size_t pos = 0; pos < text.size();)
        out.push_back(WsFontUtils::decodeUtf8(text, pos));
    return out;
}
} // namespace

TEST(FontDescription, ParsesTheThreeFieldsAndWritesThemCanonically) {
    WsFontDescription const d = WsFontDescription::parse("DejaVu Sans Mono:BoldItalic:10.5");
    EXPECT_EQ("DejaVu Sans Mono", d.family);
    EXPECT_EQ(WsFontDescription::BoldItalic, d.style);
    EXPECT_DOUBLE_EQ(10.5, d.pointSize);
    EXPECT_EQ("DejaVu Sans Mono:BoldItalic:10.5", d.toString());
    EXPECT_EQ("DejaVu Sans:Regular:12", WsFontDescription::parse("DejaVu Sans:12").toString());
    EXPECT_EQ("DejaVu Sans:Italic:9",
              WsFontDescription::parse("DejaVu Sans:Italic:9.0").toString());
}

TEST(FontDescription, RejectsBadTextNamingIt) {
    EXPECT_EQ("Bad font description \"DejaVu Sans:Heavy:12\": unknown style \"Heavy\" (Regular, "
              "Bold, Italic or BoldItalic)",
              badDescriptionReason("DejaVu Sans:Heavy:12"));
    for (std::string const bad :
         {"", "DejaVu Sans", "DejaVu Sans 9", ":12", " DejaVu Sans:12", "DejaVu Sans :12",
          "DejaVu Sans:12pt", "DejaVu Sans:bold:12", "DejaVu Sans:Bold:", "a:Bold:12:3",
          "DejaVu Sans:0", "DejaVu Sans:1001", "DejaVu Sans:1.2.3", "DejaVu Sans:.5",
          "DejaVu Sans:-12", "DejaVu Sans:1e2"}) {
        std::string const reason = badDescriptionReason(bad);
        EXPECT_EQ(0u, reason.find("Bad font description \"" + bad + "\": ")) << reason;
    }
    EXPECT_THROW(WsFont::load("DejaVu Sans:Heavy:12"), WsFontEx::ExBadDescription);
}

TEST(FontDescription, ScalesThePointSize) {
    EXPECT_EQ("DejaVu Sans:Bold:18", WsFont::scalePointSizeFontName("DejaVu Sans:Bold:12", 1.5f));
    EXPECT_EQ("DejaVu Sans:Regular:6", WsFont::scalePointSizeFontName("DejaVu Sans:12", 0.5f));
    EXPECT_EQ("DejaVu Sans:Regular:1", WsFont::scalePointSizeFontName("DejaVu Sans:2", 0.1f));
    EXPECT_THROW(WsFont::scalePointSizeFontName("DejaVu Sans", 2.f), WsFontEx::ExBadDescription);
}

TEST(FontRegistry, KnowsItsHandlesAndFallsBackToTheDefault) {
    WsFontRegistry& registry = WsFontRegistry::getInstance();
    EXPECT_EQ(WsFontRegistry::Normal12Font, registry.getDefaultFontHandle());
    EXPECT_EQ("Normal14Font", WsFontRegistry::Normal14Font.str());
    for (LiString const& handle :
         {WsFontRegistry::Normal10Font, WsFontRegistry::Normal14Font, WsFontRegistry::Bold12Font,
          WsFontRegistry::Fixed12Font, WsFontRegistry::Italic12Font})
        EXPECT_TRUE(registry.isRegisteredFont(handle)) << handle;
    EXPECT_FALSE(registry.isRegisteredFont("NoSuchFont"));
    RCShdPtr<WsFont> const fallback = registry.getFont("NoSuchFont");
    EXPECT_EQ(registry.getFont(WsFontRegistry::Normal12Font), fallback);
    EXPECT_EQ("DejaVu Sans:Regular:12", fallback->getName().str());
    EXPECT_EQ("DejaVu Sans", fallback->getFamilyFound());
    EXPECT_EQ("DejaVu Sans Mono", registry.getFont(WsFontRegistry::Fixed12Font)->getFamilyFound());
}

TEST(FontRegistry, SharesFontsByDescriptionAndKeepsAHandleOnABadOne) {
    WsFontRegistry& registry = WsFontRegistry::getInstance();
    registry.registerFont("TestSmall", "DejaVu Sans:Regular:10");
    EXPECT_EQ(registry.getFont(WsFontRegistry::Normal10Font), registry.getFont("TestSmall"));
    EXPECT_THROW(registry.registerFont("TestSmall", "DejaVu Sans 9"), WsFontEx::ExBadDescription);
    EXPECT_EQ("DejaVu Sans:Regular:10", registry.getFontName("TestSmall"));
    EXPECT_THROW(registry.registerFont("TestNew", "nonsense"), WsFontEx::ExBadDescription);
    EXPECT_FALSE(registry.isRegisteredFont("TestNew"));
    registry.registerFont("TestSmall", "DejaVu Sans:Bold:10");
    EXPECT_EQ(registry.getFont(WsFontRegistry::Bold10Font), registry.getFont("TestSmall"));
    EXPECT_THROW(registry.setDefaultFontHandle("TestNew"), ExAssertionFailed);
}

TEST(FontMetrics, GrowWithThePointSize) {
    WsFontRegistry& registry = WsFontRegistry::getInstance();
    RCShdPtr<WsFont> const small = registry.getFont(WsFontRegistry::Normal10Font);
    RCShdPtr<WsFont> const large = registry.getFont(WsFontRegistry::Normal18Font);
    EXPECT_GT(small->getAscent(), 0);
    EXPECT_GT(small->getDescent(), 0);
    EXPECT_EQ(small->getAscent() + small->getDescent(), small->getHeight());
    EXPECT_GE(small->getLineHeight(), small->getHeight());
    EXPECT_GT(large->getAscent(), small->getAscent());
    EXPECT_GT(large->getHeight(), small->getHeight());
    EXPECT_GT(large->getStringWidth("Hello"), small->getStringWidth("Hello"));
    // 12 points at 96 dpi are 16 pixels.
    EXPECT_FLOAT_EQ(16.f, sans12()->getPixelSize());
}

TEST(FontMetrics, MeasureWideAndNarrowLettersAndScale) {
    RCShdPtr<WsFont> const font = sans12();
    EXPECT_GT(font->getStringWidth("WW"), font->getStringWidth("ii"));
    EXPECT_EQ(0.f, font->getStringWidth(""));
    EXPECT_FLOAT_EQ(2.f * font->getStringWidth("Hello"), font->getStringWidth("Hello", 2.f));
    RCShdPtr<WsFont> const mono =
        WsFontRegistry::getInstance().getFont(WsFontRegistry::Fixed12Font);
    EXPECT_FLOAT_EQ(mono->getStringWidth("WW"), mono->getStringWidth("ii"));
    // Control characters take no room.
    EXPECT_FLOAT_EQ(font->getStringWidth("ab"), font->getStringWidth("a\nb"));
}

TEST(FontMetrics, KernPairsWhenTheFaceHasKerning) {
    RCShdPtr<WsFont> const font = sans12();
    if (!font->hasKerning())
        GTEST_SKIP() << font->getFileName() << " has no kerning table";
    float const separate = font->getStringWidth("A") + font->getStringWidth("V");
    EXPECT_LT(font->getStringWidth("AV"), separate);
}

TEST(FontUtf8, DecodesAndReplacesEachBadSpotOnce) {
    EXPECT_EQ((std::vector<char32_t>{U'a', U'é', U'€', U'\U0001D11E'}),
              decodeAll("a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"));
    char32_t const R = WsFontUtils::ReplacementCharacter;
    EXPECT_EQ((std::vector<char32_t>{R, U'b'}), decodeAll("\x80"
                                                          "b")); // stray continuation
    EXPECT_EQ((std::vector<char32_t>{R}), decodeAll("\xC3"));    // truncated at the end
    EXPECT_EQ((std::vector<char32_t>{R, U'A'}), decodeAll("\xE2\x82"
                                                          "A"));            // truncated inside
    EXPECT_EQ((std::vector<char32_t>{R, R}), decodeAll("\xC0\xAF"));        // overlong
    EXPECT_EQ((std::vector<char32_t>{R, R, R}), decodeAll("\xED\xA0\x80")); // surrogate
    EXPECT_EQ((std::vector<char32_t>{R, R, R, R}), decodeAll("\xF4\x90\x80\x80")); // > U+10FFFF
    EXPECT_EQ((std::vector<char32_t>{R}), decodeAll("\xFF"));
    EXPECT_EQ(4u, WsFontUtils::countCodePoints("a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"));
}

TEST(FontUtf8, FindsCharacterStarts) {
    std::string_view const text = "a\xE2\x82\xAC"
                                  "b\x80";
    std::vector<std::size_t> starts;
    for (std::size_t i : {0, 1, 2, 3, 4, 5, 99})
        starts.push_back(WsFontUtils::toCharacterStart(text, i));
    // The euro's bytes start at 1; the stray byte at 5 is a character of its own.
    EXPECT_EQ(starts, (std::vector<std::size_t>{0, 1, 1, 1, 4, 5, 6}));
}

TEST(FontUtf8, MeasuresMultibyteAndBadText) {
    RCShdPtr<WsFont> const font = sans12();
    float const accented = font->getStringWidth("\xC3\xA9\xE2\x82\xAC");
    EXPECT_GT(accented, 0.f);
    EXPECT_FLOAT_EQ(font->getStringWidth("\xC3\xA9") + font->getStringWidth("\xE2\x82\xAC"),
                    accented);
    // Bad bytes measure as the replacement character, one per bad spot.
    float const replacement = font->getStringWidth("\xEF\xBF\xBD");
    EXPECT_GT(replacement, 0.f);
    EXPECT_FLOAT_EQ(replacement, font->getStringWidth("\xE2\x82"));
    EXPECT_FLOAT_EQ(2.f * replacement, font->getStringWidth("\xFF\xFE"));
    std::string garbage;
    for (int i = 0; i < 256; ++i)
        garbage += static_cast<char>(i);
    EXPECT_GT(font->getStringWidth(garbage), 0.f);
    EXPECT_EQ(font->getCharacterIndexAt(garbage, 1e6f), garbage.size());
}

TEST(FontUtf8, SubStringsAndCharacterIndexFollowTheCharacters) {
    RCShdPtr<WsFont> const font = sans12();
    std::string const text = "ab\xE2\x82\xAC"
                             "cd";
    float const whole = font->getStringWidth(text);
    float const head = font->getSubStringWidth(text, 0, 2);
    float const euro = font->getSubStringWidth(text, 2, 3);
    float const tail = font->getSubStringWidth(text, 5, std::string::npos);
    EXPECT_NEAR(whole, head + euro + tail, 0.01f);
    EXPECT_FLOAT_EQ(euro, font->getSubStringWidth(text, 3, 1)); // inside the sequence: all of it
    EXPECT_EQ(0.f, font->getSubStringWidth(text, 99, 1));
    EXPECT_EQ(0u, font->getCharacterIndexAt(text, -5.f));
    EXPECT_EQ(2u, font->getCharacterIndexAt(text, head + 0.5f));
    EXPECT_EQ(5u, font->getCharacterIndexAt(text, head + euro - 0.5f));
    EXPECT_EQ(text.size(), font->getCharacterIndexAt(text, whole + 1.f));
    EXPECT_EQ(2u, font->getCharacterIndexAt(text, 2.f * (head + 0.5f), 2.f));
    std::vector<float> positions{99.f};
    font->getCharacterPositions(text, positions);
    ASSERT_EQ(6u, positions.size()); // a, b, euro, c, d, end
    EXPECT_EQ(0.f, positions[0]);
    EXPECT_FLOAT_EQ(head, positions[2]);
    EXPECT_FLOAT_EQ(whole, positions[5]);
    font->getCharacterPositions("", positions);
    EXPECT_EQ(std::vector<float>{0.f}, positions);
}

TEST(FontTruncate, LeavesFittingTextAlone) {
    RCShdPtr<WsFont> const font = sans12();
    EXPECT_EQ("Short", WsFontUtils::truncateInTheMiddle(font, "Short", 1000.f));
    EXPECT_EQ("", WsFontUtils::truncateInTheMiddle(font, "", 0.f));
}

TEST(FontTruncate, CutsTheMiddleAsLittleAsPossible) {
    RCShdPtr<WsFont> const font = sans12();
    std::string const text = "/very/long/path/to/some/file/name.tif";
    float const width = font->getStringWidth(text) / 2.f;
    std::string const cut = WsFontUtils::truncateInTheMiddle(font, text, width);
    EXPECT_LE(font->getStringWidth(cut), width);
    std::size_t const dots = cut.find("...");
    ASSERT_NE(std::string::npos, dots);
    EXPECT_EQ(text.substr(0, dots), cut.substr(0, dots));
    std::string const end = cut.substr(dots + 3);
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    EXPECT_GE(dots, end.size()); // the start keeps the odd character
    EXPECT_LE(dots, end.size() + 1);
    // Keeping one more character would not fit.
    std::string const longer = text.substr(0, dots + 1) + "..." + end;
    std::string const longer2 =
        text.substr(0, dots) + "..." + text.substr(text.size() - end.size() - 1);
    EXPECT_GT(std::min(font->getStringWidth(longer), font->getStringWidth(longer2)), width);
}

TEST(FontTruncate, NeverSplitsASequenceAndShowsTheEllipsisWhenNothingFits) {
    RCShdPtr<WsFont> const font = sans12();
    std::string const text =
        "\xC3\xA9t\xC3\xA9 \xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC \xF0\x9D\x84\x9E\xC3\xA9";
    for (float width = 0.f; width < font->getStringWidth(text); width += 3.f) {
        std::string const cut = WsFontUtils::truncateInTheMiddle(font, text, width);
        for (char32_t const cp : decodeAll(cut))
            EXPECT_NE(WsFontUtils::ReplacementCharacter, cp) << width;
        if (cut != "...") {
            EXPECT_LE(font->getStringWidth(cut), width);
        } else {
            EXPECT_LT(width, font->getStringWidth("\xC3\xA9...\xC3\xA9"));
        }
    }
    EXPECT_EQ("...", WsFontUtils::truncateInTheMiddle(font, "abcdef", 1.f));
    EXPECT_THROW(WsFontUtils::truncateInTheMiddle(RCShdPtr<WsFont>(), "abc", 10.f), ExNullPtr);
}

TEST(FontAtlas, PacksGlyphsWithoutOverlapAndOpensPages) {
    WsFontAtlas atlas(64);
    std::vector<GeRectangle<int>> placed;
    std::vector<int> pages;
    for (int i = 0; i < 40; ++i) {
        int const w = 5 + i % 7;
        int const h = 8 + i % 4;
        WsFontAtlas::Slot const s = atlas.allocate(w, h);
        GeRectangle<int> const r = GeRectangle<int>::fromSize(s.x, s.y, w, h);
        EXPECT_TRUE(GeRectangle<int>(0, 64, 0, 64).contains(r));
        for (std::size_t k = 0; k < placed.size(); ++k) {
            if (pages[k] == s.page) {
                EXPECT_FALSE(placed[k].intersects(GeRectangleUtil::addBorder(r, 1)));
            }
        }
        placed.push_back(r);
        pages.push_back(s.page);
    }
    EXPECT_GT(atlas.getNbPages(), 1);
    WsFontAtlas::Slot const big = atlas.allocate(100, 20);
    EXPECT_EQ(128, atlas.getPageSize(big.page));
    EXPECT_TRUE(atlas.getTexture(0).isNull()); // nothing sent before drawing
}

TEST(FontAtlas, MeasuringCachesEachGlyphOnce) {
    RCShdPtr<WsFont> const font = WsFont::load("DejaVu Sans:Regular:11");
    font->getStringWidth("abcabc");
    EXPECT_EQ(3, font->getNbCachedGlyphs());
    font->getStringWidth("cab\xE2\x82\xAC");
    EXPECT_EQ(4, font->getNbCachedGlyphs());
    EXPECT_EQ(1, font->getAtlas().getNbPages());
}
