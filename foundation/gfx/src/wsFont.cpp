// WsFont: fontconfig lookup, FreeType loading and rasterising, the glyph cache, measuring and
// drawing of UTF-8 text.
#include "wsFont.h"

#include "smGl.h"
#include "wsFontAtlas.h"
#include "wsFontEx.h"
#include "wsFontUtils.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Zr {

namespace {

constexpr unsigned Dpi = 96;

// The FreeType library, shared by the faces: each font holds it, so it goes after the last
// face whatever the order of destruction at exit.
struct FtLibrary : RCObject {
    FT_Library library = nullptr;
    FtLibrary() {
        if (FT_Init_FreeType(&library) != 0)
            throw WsFontEx::ExNotFound(__FILE__, __LINE__, "", "FreeType cannot start");
    }
    ~FtLibrary() override { FT_Done_FreeType(library); }
};

RCShdPtr<FtLibrary> getFtLibrary() {
    static RCShdPtr<FtLibrary> const library(new FtLibrary);
    return library;
}

FcConfig* getFcConfig(std::string const& description) {
    static FcConfig* const config = FcInitLoadConfigAndFonts();
    if (!config)
        throw WsFontEx::ExNotFound(__FILE__, __LINE__, description, "fontconfig cannot start");
    return config;
}

// The end of [start, start + length) moved forward to a character boundary, so that a range
// covers every character it has a byte of.
std::size_t rangeEnd(std::string_view text, std::size_t start, std::size_t length) {
    if (start >= text.size() || length >= text.size() - start)
        return text.size();
    std::size_t const end = start + length;
    std::size_t pos = WsFontUtils::toCharacterStart(text, end);
    if (pos == end)
        return end;
    WsFontUtils::decodeUtf8(text, pos);
    return pos;
}

// A control character takes no room and draws nothing.
bool isControl(char32_t cp) {
    return cp < 0x20 || (cp >= 0x7F && cp < 0xA0);
}

} // namespace

struct WsFont::Glyph {
    bool loaded = false;
    unsigned index = 0; // in the face; 0 for a control character or a failed load
    float advance = 0.f;
    int left = 0; // bitmap's left edge from the pen
    int top = 0;  // bitmap's top row above the baseline
    int width = 0;
    int height = 0;
    int page = -1; // -1: nothing to draw
    float s0 = 0.f, t0 = 0.f, s1 = 0.f, t1 = 0.f;
};

struct WsFont::Imp {
    RCShdPtr<FtLibrary> library;
    FT_Face face = nullptr;
    std::string fileName;
    std::string familyFound;
    bool kerning = false;
    // Latin-1 by code point, the rest in a map.
    std::vector<Glyph> latin = std::vector<Glyph>(256);
    std::unordered_map<char32_t, Glyph> others;
    // Kerning between Latin-1 characters in 1/64 pixel, as FreeType gives it: a row of 256 per
    // left character, made when that character is first measured before another. Asking
    // FreeType costs most of the time of measuring a line.
    static constexpr std::int16_t NotLookedUp = std::numeric_limits<std::int16_t>::min();
    std::unique_ptr<std::int16_t[]> latinKerning[256];
    int nbCached = 0;
    WsFontAtlas atlas;

    ~Imp() {
        if (face)
            FT_Done_Face(face);
    }
};

RCShdPtr<WsFont> WsFont::load(std::string_view description) {
    return RCShdPtr<WsFont>(new WsFont(WsFontDescription::parse(description)));
}

WsFont::WsFont(WsFontDescription const& description)
    : _imp(std::make_unique<Imp>()), _description(description), _name(description.toString()) {
    std::string const& name = _name.str();
    _imp->library = getFtLibrary();
    FcConfig* config = getFcConfig(name);

    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY,
                       reinterpret_cast<FcChar8 const*>(_description.family.c_str()));
    FcPatternAddInteger(pattern, FC_WEIGHT,
                        _description.isBold() ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT,
                        _description.isItalic() ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddDouble(pattern, FC_SIZE, _description.pointSize);
    FcPatternAddDouble(pattern, FC_DPI, Dpi);
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(config, pattern, &result);
    FcPatternDestroy(pattern);
    if (!match)
        throw WsFontEx::ExNotFound(__FILE__, __LINE__, name, "fontconfig has no font");
    FcChar8* file = nullptr;
    FcChar8* family = nullptr;
    int index = 0;
    if (FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch && file)
        _imp->fileName = reinterpret_cast<char const*>(file);
    if (FcPatternGetString(match, FC_FAMILY, 0, &family) == FcResultMatch && family)
        _imp->familyFound = reinterpret_cast<char const*>(family);
    FcPatternGetInteger(match, FC_INDEX, 0, &index);
    FcPatternDestroy(match);
    if (_imp->fileName.empty())
        throw WsFontEx::ExNotFound(__FILE__, __LINE__, name, "fontconfig gave no file");

    if (FT_New_Face(_imp->library->library, _imp->fileName.c_str(), index, &_imp->face) != 0) {
        _imp->face = nullptr;
        throw WsFontEx::ExNotFound(__FILE__, __LINE__, name,
                                   "FreeType cannot open \"" + _imp->fileName + "\"");
    }
    FT_Face face = _imp->face;
    FT_Select_Charmap(face, FT_ENCODING_UNICODE);
    FT_F26Dot6 const size = static_cast<FT_F26Dot6>(std::lround(_description.pointSize * 64.0));
    if (FT_Set_Char_Size(face, 0, size, Dpi, Dpi) != 0) {
        // A bitmap-only face offers fixed sizes only: take the first.
        if (face->num_fixed_sizes == 0 || FT_Select_Size(face, 0) != 0)
            throw WsFontEx::ExNotFound(__FILE__, __LINE__, name,
                                       "\"" + _imp->fileName + "\" has no such size");
    }
    _imp->kerning = FT_HAS_KERNING(face);
    FT_Size_Metrics const& m = face->size->metrics;
    _ascent = static_cast<int>(std::ceil(static_cast<double>(m.ascender) / 64.0));
    _descent = static_cast<int>(std::ceil(static_cast<double>(-m.descender) / 64.0));
    _lineHeight = static_cast<int>(std::ceil(static_cast<double>(m.height) / 64.0));
    _lineHeight = std::max(_lineHeight, _ascent + _descent);
}

WsFont::~WsFont() = default;

std::string const& WsFont::getFileName() const {
    return _imp->fileName;
}
std::string const& WsFont::getFamilyFound() const {
    return _imp->familyFound;
}
float WsFont::getPixelSize() const {
    return static_cast<float>(_imp->face->size->metrics.y_ppem);
}
bool WsFont::hasKerning() const {
    return _imp->kerning;
}
bool WsFont::hasGlyph(char32_t codePoint) const {
    return FT_Get_Char_Index(_imp->face, codePoint) != 0;
}
int WsFont::getNbCachedGlyphs() const {
    return _imp->nbCached;
}
WsFontAtlas const& WsFont::getAtlas() const {
    return _imp->atlas;
}

WsFont::Glyph const& WsFont::getGlyph(char32_t codePoint) const {
    Glyph* slot = nullptr;
    if (codePoint < 256) {
        slot = &_imp->latin[codePoint];
        if (slot->loaded)
            return *slot;
    } else {
        auto const it = _imp->others.find(codePoint);
        if (it != _imp->others.end())
            return it->second;
        slot = &_imp->others[codePoint];
    }
    Glyph& g = *slot;
    g.loaded = true;
    ++_imp->nbCached;
    if (isControl(codePoint))
        return g;
    FT_Face face = _imp->face;
    g.index = FT_Get_Char_Index(face, codePoint); // 0, the face's "missing" glyph, if absent
    if (FT_Load_Glyph(face, g.index, FT_LOAD_DEFAULT) != 0 ||
        FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0) {
        g.index = 0;
        return g;
    }
    FT_GlyphSlot const glyph = face->glyph;
    FT_Bitmap const& bitmap = glyph->bitmap;
    g.advance = static_cast<float>(glyph->advance.x) / 64.f;
    g.left = glyph->bitmap_left;
    g.top = glyph->bitmap_top;
    g.width = static_cast<int>(bitmap.width);
    g.height = static_cast<int>(bitmap.rows);
    if (g.width == 0 || g.height == 0)
        return g;
    WsFontAtlas& atlas = _imp->atlas;
    WsFontAtlas::Slot const place = atlas.allocate(g.width, g.height);
    IxTile& tile = atlas.getPageTile(place.page);
    // FreeType's rows run top-down, the page's bottom-up.
    for (int r = 0; r < g.height; ++r) {
        unsigned char const* src = bitmap.buffer + static_cast<std::ptrdiff_t>(r) * bitmap.pitch;
        std::uint8_t* dst = tile.getWritableRow(place.y + g.height - 1 - r) + place.x;
        for (int c = 0; c < g.width; ++c) {
            if (bitmap.pixel_mode == FT_PIXEL_MODE_MONO)
                dst[c] = (src[c >> 3] & (0x80 >> (c & 7))) ? 255 : 0;
            else
                dst[c] = src[c];
        }
    }
    atlas.markDirty(place.page, GeRectangle<int>::fromSize(place.x, place.y, g.width, g.height));
    float const size = static_cast<float>(atlas.getPageSize(place.page));
    g.page = place.page;
    g.s0 = static_cast<float>(place.x) / size;
    g.s1 = static_cast<float>(place.x + g.width) / size;
    g.t0 = static_cast<float>(place.y) / size;
    g.t1 = static_cast<float>(place.y + g.height) / size;
    return g;
}

float WsFont::kerning(unsigned left, unsigned right) const {
    FT_Vector delta{0, 0};
    if (FT_Get_Kerning(_imp->face, left, right, FT_KERNING_DEFAULT, &delta) != 0)
        return 0.f;
    return static_cast<float>(delta.x) / 64.f;
}

template <class Fn>
float WsFont::forEachGlyph(std::string_view text, unsigned flags, Fn&& fn) const {
    bool const kern = _imp->kerning && (flags & NoKerning) == 0;
    auto kernPair = [this](char32_t left, char32_t right, unsigned leftIndex, unsigned rightIndex) {
        if (left >= 256 || right >= 256)
            return kerning(leftIndex, rightIndex);
        std::unique_ptr<std::int16_t[]>& row = _imp->latinKerning[left];
        if (!row) {
            row = std::make_unique<std::int16_t[]>(256);
            std::fill_n(row.get(), 256, Imp::NotLookedUp);
        }
        std::int16_t& cached = row[right];
        if (cached != Imp::NotLookedUp)
            return static_cast<float>(cached) / 64.f;
        float const value = kerning(leftIndex, rightIndex);
        float const units = value * 64.f;
        if (units > static_cast<float>(Imp::NotLookedUp) &&
            units <= static_cast<float>(std::numeric_limits<std::int16_t>::max()))
            cached = static_cast<std::int16_t>(units);
        return value;
    };
    float pen = 0.f;
    unsigned previous = 0;
    char32_t previousCode = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        std::size_t const start = pos;
        char32_t const code = WsFontUtils::decodeUtf8(text, pos);
        Glyph const& g = getGlyph(code);
        if (kern && previous != 0 && g.index != 0)
            pen += kernPair(previousCode, code, previous, g.index);
        fn(g, pen, start);
        pen += g.advance;
        previous = g.index;
        previousCode = code;
    }
    return pen;
}

float WsFont::getStringWidth(std::string_view text, float scale) const {
    return forEachGlyph(text, 0, [](Glyph const&, float, std::size_t) {}) * scale;
}

float WsFont::getSubStringWidth(std::string_view text, std::size_t start, std::size_t length,
                                float scale) const {
    start = WsFontUtils::toCharacterStart(text, start);
    if (start >= text.size())
        return 0.f;
    std::size_t const end = rangeEnd(text, start, length);
    float from = 0.f;
    float to = 0.f;
    forEachGlyph(text, 0, [&](Glyph const& g, float pen, std::size_t at) {
        if (at == start)
            from = pen;
        if (at < end)
            to = pen + g.advance;
    });
    return std::max(0.f, to - from) * scale;
}

std::size_t WsFont::getCharacterIndexAt(std::string_view text, float x, float scale) const {
    float const local = scale > 0.f ? x / scale : x;
    std::size_t found = text.size();
    bool done = false;
    forEachGlyph(text, 0, [&](Glyph const& g, float pen, std::size_t at) {
        if (!done && local < pen + g.advance / 2.f) {
            found = at;
            done = true;
        }
    });
    return found;
}

void WsFont::getCharacterPositions(std::string_view text, std::vector<float>& positions,
                                   float scale) const {
    positions.clear();
    float const total = forEachGlyph(
        text, 0, [&](Glyph const&, float pen, std::size_t) { positions.push_back(pen * scale); });
    positions.push_back(total * scale);
}

void WsFont::placeOrigin(std::string_view text, float x, float y, float scale, unsigned flags,
                         float& ox, float& oy) const {
    unsigned const horizontal = flags & HorizontalMask;
    if (horizontal != AlignLeft) {
        float const width =
            forEachGlyph(text, flags, [](Glyph const&, float, std::size_t) {}) * scale;
        x -= horizontal == AlignHCenter ? width / 2.f : width;
    }
    switch (flags & VerticalMask) {
    case AlignBottom:
        y += static_cast<float>(_descent) * scale;
        break;
    case AlignVCenter:
        y -= static_cast<float>(_ascent - _descent) * scale / 2.f;
        break;
    case AlignTop:
        y -= static_cast<float>(_ascent) * scale;
        break;
    default:
        break;
    }
    // Whole pixels, so that at scale 1 each texel falls on one pixel.
    ox = std::round(x);
    oy = std::round(y);
}

void WsFont::drawRange(std::string_view text, std::size_t start, std::size_t end, float ox,
                       float oy, float scale, unsigned flags) {
    // Rasterise every glyph first: a page is sent to OpenGL when bound, and binding must not
    // happen between begin and end.
    forEachGlyph(text, flags, [](Glyph const&, float, std::size_t) {});
    SmGl::pushAttrib(Gl::ENABLE_BIT | Gl::COLOR_BUFFER_BIT | Gl::TEXTURE_BIT);
    SmGl::enable(Gl::TEXTURE_2D);
    SmGl::enable(Gl::BLEND);
    SmGl::blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
    SmGl::texEnvi(Gl::TEXTURE_ENV, Gl::TEXTURE_ENV_MODE, static_cast<int>(Gl::MODULATE));
    int bound = -1;
    forEachGlyph(text, flags, [&](Glyph const& g, float pen, std::size_t at) {
        if (at < start || at >= end || g.page < 0)
            return;
        if (g.page != bound) {
            if (bound >= 0)
                SmGl::end();
            _imp->atlas.bindPage(g.page);
            bound = g.page;
            SmGl::begin(Gl::QUADS);
        }
        float const x0 = ox + (pen + static_cast<float>(g.left)) * scale;
        float const x1 = x0 + static_cast<float>(g.width) * scale;
        float const y1 = oy + static_cast<float>(g.top) * scale;
        float const y0 = y1 - static_cast<float>(g.height) * scale;
        SmGl::texCoord2f(g.s0, g.t0);
        SmGl::vertex2f(x0, y0);
        SmGl::texCoord2f(g.s1, g.t0);
        SmGl::vertex2f(x1, y0);
        SmGl::texCoord2f(g.s1, g.t1);
        SmGl::vertex2f(x1, y1);
        SmGl::texCoord2f(g.s0, g.t1);
        SmGl::vertex2f(x0, y1);
    });
    if (bound >= 0)
        SmGl::end();
    SmGl::popAttrib();
}

void WsFont::drawString(std::string_view text, float x, float y) {
    draw(text, x, y, 1.f, 0);
}

void WsFont::drawString(std::string_view text, float x, float y, float scale) {
    draw(text, x, y, scale, 0);
}

void WsFont::draw(std::string_view text, float x, float y, float scale, unsigned flags) {
    drawSubString(text, 0, std::string_view::npos, x, y, scale, flags);
}

void WsFont::drawCenteredString(std::string_view text, float x, float y, float scale,
                                bool horizontal, bool vertical) {
    draw(text, x, y, scale,
         (horizontal ? AlignHCenter : AlignLeft) | (vertical ? AlignVCenter : AlignBaseline));
}

void WsFont::drawSubString(std::string_view text, std::size_t start, std::size_t length,
                           unsigned flags) {
    drawSubString(text, start, length, _lastX, _lastY, _lastScale, flags);
}

void WsFont::drawSubString(std::string_view text, std::size_t start, std::size_t length, float x,
                           float y, float scale, unsigned flags) {
    _lastX = x;
    _lastY = y;
    _lastScale = scale;
    start = WsFontUtils::toCharacterStart(text, start);
    std::size_t const end = rangeEnd(text, start, length);
    if (start >= end)
        return;
    float ox = 0.f;
    float oy = 0.f;
    placeOrigin(text, x, y, scale, flags, ox, oy);
    drawRange(text, start, end, ox, oy, scale, flags);
}

std::string WsFont::scalePointSizeFontName(std::string_view name, float scale) {
    WsFontDescription d = WsFontDescription::parse(name);
    d.pointSize = std::max(1.0, std::round(d.pointSize * static_cast<double>(scale) * 10.0) / 10.0);
    return d.toString();
}

} // namespace Zr
