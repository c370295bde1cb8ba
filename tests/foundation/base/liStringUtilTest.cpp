// String helpers: numbers that read back, substitution, component names, quoted tokens,
// pattern tables and UTF-8 conversions.
#include "liStringUtil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace Zr {
namespace {

TEST(LiStringUtilTest, ConvertNbGivesShortestTextThatReadsBack) {
    for (auto [v, text] : {std::pair{1.0, "1"},
                           {0.5, "0.5"},
                           {0.1, "0.1"},
                           {-2.25, "-2.25"},
                           {100.0, "100"},
                           {0.0, "0"}})
        EXPECT_EQ(LiStringUtil::convertNb(v), text);
    EXPECT_EQ(LiStringUtil::convertNb(-7), "-7");
    for (double v : {1.0 / 3.0, 2.0 / 3.0, 1e-300, 1e300, 123456.789, -0.001, 29.97, M_PI}) {
        std::string text = LiStringUtil::convertNb(v);
        EXPECT_EQ(std::stod(text), v) << text;
        std::string mantissa = text.substr(0, text.find('e'));
        EXPECT_NE(mantissa.back(), '0') << text;
    }
}

TEST(LiStringUtilTest, SubstituteReplacesEveryOccurrenceOnce) {
    EXPECT_EQ(LiStringUtil::substitute("a.b.c", ".", "::"), "a::b::c");
    EXPECT_EQ(LiStringUtil::substitute("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(LiStringUtil::substitute("abab", "ab", ""), "");
    EXPECT_EQ(LiStringUtil::substitute("text", "", "x"), "text");
    EXPECT_EQ(LiStringUtil::toLowerCase("MiXeD 12 Ä"), "mixed 12 Ä");
    EXPECT_EQ(LiStringUtil::trimLeadingSpaces(" \t  keep  trailing "), "keep  trailing ");
    EXPECT_EQ(LiStringUtil::trimLeadingSpaces("   "), "");
}

TEST(LiStringUtilTest, ComponentNamesAreSanitisedIntoValidOnes) {
    EXPECT_EQ(LiStringUtil::sanitizeComponentName("Blur 2"), "Blur_2");
    EXPECT_EQ(LiStringUtil::sanitizeComponentName("3D.view"), "_3D_view");
    EXPECT_EQ(LiStringUtil::sanitise("caf\xC3\xA9!"), "caf__"); // é is one character
    EXPECT_EQ(LiStringUtil::sanitise(""), "_");
    for (std::string bad : {"", "9lives", "a b", "x-y", "caf\xC3\xA9", "dot."}) {
        EXPECT_FALSE(LiStringUtil::checkComponentNameValidity(bad)) << bad;
        EXPECT_TRUE(LiStringUtil::checkComponentNameValidity(LiStringUtil::sanitise(bad))) << bad;
    }
    EXPECT_TRUE(LiStringUtil::checkComponentNameValidity("_private9"));
}

TEST(LiStringParserTest, ReadsWordsAndQuotedPhrasesWithEscapesAndOpenEnds) {
    std::istringstream in("  first \"a \\\"quoted\\\" phrase\"\tlast \"back\\\\slash\" \"\" "
                          "\"keeps \\n\"");
    EXPECT_EQ(LiStringParser::readToken(in), "first");
    EXPECT_EQ(LiStringParser::readToken(in), "a \"quoted\" phrase");
    EXPECT_EQ(LiStringParser::readToken(in), "last");
    EXPECT_EQ(LiStringParser::readToken(in), "back\\slash");
    std::string token = "x";
    EXPECT_TRUE(LiStringParser::readToken(in, token));
    EXPECT_EQ(token, ""); // an empty phrase is a token
    EXPECT_EQ(LiStringParser::readToken(in), "keeps \\n");
    EXPECT_FALSE(LiStringParser::readToken(in, token));
    EXPECT_EQ(LiStringParser::readToken(in), "");
    // Another quote character, and a phrase left open.
    std::istringstream other("'it\\'s here' \"plain\" 'open ended");
    EXPECT_EQ(LiStringParser::readToken(other, '\''), "it's here");
    EXPECT_EQ(LiStringParser::readToken(other, '\''), "\"plain\"");
    EXPECT_EQ(LiStringParser::readToken(other, '\''), "open ended");
}

TEST(LiStringSubstituterTest, LongestPatternWinsAndReplacementsAreNotRescanned) {
    LiStringSubstituter sub;
    sub.registerPattern("$HOME", "/home/me");
    sub.registerPattern("$HOMEDIR", "/dirs/me");
    sub.registerPattern("$X", "$HOME");
    sub.registerPattern("", "ignored");
    EXPECT_EQ(sub.getNbPatterns(), 3);
    EXPECT_EQ(sub.substitute("$HOMEDIR/a:$HOME/b:$X"), "/dirs/me/a:/home/me/b:$HOME");
    sub.registerPattern("$HOME", "~");
    EXPECT_EQ(sub.substitute("$HOME/c"), "~/c");
    EXPECT_TRUE(sub.unregisterPattern("$HOMEDIR"));
    EXPECT_FALSE(sub.unregisterPattern("$HOMEDIR"));
    EXPECT_EQ(sub.substitute("$HOMEDIR"), "~DIR");
}

TEST(WideStringUtilTest, Utf8RoundTripAndReplacements) {
    std::wstring wide = L"A\u00e9\u20ac\U0001F600z";
    std::string utf8 = WideStringUtil::narrowMB(wide);
    EXPECT_EQ(utf8, "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z");
    EXPECT_EQ(WideStringUtil::widen(utf8), wide);
    EXPECT_EQ(WideStringUtil::narrowReplace(wide),
              std::string("A") + std::string(3, WideStringUtil::_defaultReplaceChar) + "z");
    // A truncated sequence, a stray continuation byte and an overlong form.
    EXPECT_EQ(WideStringUtil::widen("a\xE2\x82"), L"a\uFFFD");
    EXPECT_EQ(WideStringUtil::widen("\x80x"), L"\uFFFDx");
    EXPECT_EQ(WideStringUtil::widen("\xC0\xAF"), L"\uFFFD\uFFFD");
    EXPECT_EQ(WideStringUtil::widen("\xE2\x28\xA1"), L"\uFFFD(\uFFFD");
}

} // namespace
} // namespace Zr
