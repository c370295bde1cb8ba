// WsFont: one face at one size, found through fontconfig and rasterised by FreeType at 96 dpi
// with hinting; measures UTF-8 text and draws it as textured quads from a glyph atlas.
#pragma once

#include "liString.h"
#include "rcBase.h"
#include "wsFontDescription.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Zr {

class WsFontAtlas;

class WsFont : public RCObject {
public:
    // Where (x, y) is against the drawn text. Horizontal: the left end, the middle or the
    // right end of the text's advance. Vertical: the baseline, the bottom of the descent, the
    // middle of ascent and descent, or the top of the ascent. NoKerning draws and measures
    // without the face's kerning.
    enum Flags : unsigned {
        AlignLeft = 0,
        AlignHCenter = 1,
        AlignRight = 2,
        HorizontalMask = 3,
        AlignBaseline = 0,
        AlignBottom = 4,
        AlignVCenter = 8,
        AlignTop = 12,
        VerticalMask = 12,
        NoKerning = 16,
    };

    // The font of a description ("DejaVu Sans:Bold:12", see WsFontDescription). A bad text
    // raises WsFontEx::ExBadDescription; a face that fontconfig can't find or FreeType can't
    // open raises WsFontEx::ExNotFound. fontconfig picks the nearest face it has, so an
    // unknown family gives a fallback face rather than an error.
    static RCShdPtr<WsFont> load(std::string_view description);
    ~WsFont() override;
    WsFont(WsFont const&) = delete;
    WsFont& operator=(WsFont const&) = delete;

    // The canonical description, "DejaVu Sans:Regular:12".
    LiString const& getName() const { return _name; }
    WsFontDescription const& getDescription() const { return _description; }
    // The font file and the family that fontconfig chose.
    std::string const& getFileName() const;
    std::string const& getFamilyFound() const;
    float getPixelSize() const;
    bool hasKerning() const;
    bool hasGlyph(char32_t codePoint) const;

    // Whole pixels above and below the baseline (both positive); the height is their sum, the
    // line height the face's distance from one baseline to the next.
    int getAscent() const { return _ascent; }
    int getDescent() const { return _descent; }
    int getHeight() const { return _ascent + _descent; }
    int getLineHeight() const { return _lineHeight; }

    // The advance of the text, kerning included, times `scale`. Text is UTF-8; bad bytes
    // measure as U+FFFD; control characters take no room. Once the glyphs are cached,
    // measuring allocates nothing.
    float getStringWidth(std::string_view text, float scale = 1.f) const;
    // The advance of the bytes [start, start + length) as they sit inside the whole text:
    // the kerning with the character before start counts. Offsets are bytes; the range takes
    // in every character it has a byte of; length npos runs to the end.
    float getSubStringWidth(std::string_view text, std::size_t start, std::size_t length,
                            float scale = 1.f) const;
    // The byte offset of the character boundary nearest to `x` pixels from the text's start
    // (0 for x before the text, the size past its end): where a text field puts its cursor.
    std::size_t getCharacterIndexAt(std::string_view text, float x, float scale = 1.f) const;

    // The pen position of every character of the text, kerning included, then the whole
    // width: one more entry than there are characters (bad spots count as one each). A text
    // field keeps these to place its cursor; `positions` is refilled, keeping its capacity.
    void getCharacterPositions(std::string_view text, std::vector<float>& positions,
                               float scale = 1.f) const;

    // Draw with the current colour (the glyphs are coverage, tinted by it) and blending on;
    // texturing and blending state are restored afterwards. (x, y) is the baseline's left end
    // unless `flags` place it otherwise.
    void drawString(std::string_view text, float x, float y);
    void drawString(std::string_view text, float x, float y, float scale);
    void draw(std::string_view text, float x, float y, float scale, unsigned flags);
    // Centres the text on x (horizontal) and on y (vertical: the middle of ascent and descent).
    void drawCenteredString(std::string_view text, float x, float y, float scale, bool horizontal,
                            bool vertical);
    // Draws bytes [start, start + length) of the text where they stand when the whole text is
    // drawn at (x, y) with `flags`: a selection drawn in another colour lines up exactly with
    // the rest. The form without a position uses the position and scale of this font's last
    // draw.
    void drawSubString(std::string_view text, std::size_t start, std::size_t length,
                       unsigned flags);
    void drawSubString(std::string_view text, std::size_t start, std::size_t length, float x,
                       float y, float scale, unsigned flags);

    // The description with its point size multiplied by `scale` (to a tenth of a point, at
    // least 1), in canonical form: ("DejaVu Sans:Bold:12", 1.5) gives "DejaVu Sans:Bold:18".
    // A bad description raises WsFontEx::ExBadDescription.
    static std::string scalePointSizeFontName(std::string_view name, float scale);

    // The glyph cache and its atlas, for tests and statistics.
    int getNbCachedGlyphs() const;
    WsFontAtlas const& getAtlas() const;

private:
    struct Imp;
    struct Glyph;
    explicit WsFont(WsFontDescription const& description);

    Glyph const& getGlyph(char32_t codePoint) const;
    float kerning(unsigned left, unsigned right) const;
    // Walks the text's glyphs with their pen positions: fn(glyph, penX, byteOffset).
    template <class Fn>
    float forEachGlyph(std::string_view text, unsigned flags, Fn&& fn) const;
    // The origin (baseline's left end) of the text drawn at (x, y) with flags.
    void placeOrigin(std::string_view text, float x, float y, float scale, unsigned flags,
                     float& ox, float& oy) const;
    void drawRange(std::string_view text, std::size_t start, std::size_t end, float ox, float oy,
                   float scale, unsigned flags);

    UPtr<Imp> _imp;
    WsFontDescription _description;
    LiString _name;
    int _ascent = 0;
    int _descent = 0;
    int _lineHeight = 0;
    // Where the last draw put its text, for drawSubString without a position.
    float _lastX = 0.f;
    float _lastY = 0.f;
    float _lastScale = 1.f;
};

} // namespace Zr
