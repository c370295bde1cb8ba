// zrui-icongen: draws the toolkit's icons (menu cascade arrow, check boxes, radio buttons, the
// warning sign, the anchor) in code and writes them as small RGBA TIFF files.
#include "ixTile.h"
#include "osFilePath.h"
#include "wsManagedImage.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using Zr::IxTile;
using Zr::OsFilePath;
using Zr::RCShdPtr;

// Shapes are tests on a point in pixel units, x to the right and y downwards from the top-left
// corner; a pixel's coverage is the share of 8 x 8 samples inside it, which gives smooth edges.
using Shape = std::function<bool(float x, float y)>;

struct Rgba {
    float r, g, b, a;
};

class Canvas {
public:
    Canvas(int width, int height)
        : _width(width), _height(height), _pixels(std::size_t(width * height), {0, 0, 0, 0}) {}

    // Composites the shape in `color` over what is there.
    void paint(Shape const& shape, Rgba color) {
        constexpr int N = 8;
        for (int py = 0; py < _height; ++py) {
            for (int px = 0; px < _width; ++px) {
                int inside = 0;
                for (int sy = 0; sy < N; ++sy)
                    for (int sx = 0; sx < N; ++sx)
                        inside += shape(px + (sx + 0.5f) / N, py + (sy + 0.5f) / N) ? 1 : 0;
                if (inside == 0)
                    continue;
                float const a = color.a * float(inside) / float(N * N);
                Rgba& d = _pixels[std::size_t(py * _width + px)];
                float const outA = a + d.a * (1 - a);
                auto mix = [&](float s, float dst) {
                    return outA > 0 ? (s * a + dst * d.a * (1 - a)) / outA : 0.f;
                };
                d = {mix(color.r, d.r), mix(color.g, d.g), mix(color.b, d.b), outA};
            }
        }
    }

    // The picture laid over an opaque backdrop, to look at.
    Canvas onBackdrop(Rgba backdrop) const {
        Canvas out(_width, _height);
        for (std::size_t i = 0; i < _pixels.size(); ++i) {
            Rgba const& p = _pixels[i];
            auto over = [&](float s, float d) { return s * p.a + d * (1 - p.a); };
            out._pixels[i] = {over(p.r, backdrop.r), over(p.g, backdrop.g), over(p.b, backdrop.b),
                              1};
        }
        return out;
    }

    // The picture as a tile, rows bottom-up; `zoom` repeats each pixel for a preview.
    RCShdPtr<IxTile> toTile(int zoom = 1) const {
        RCShdPtr<IxTile> tile(new IxTile(_width * zoom, _height * zoom, 4));
        for (int y = 0; y < _height * zoom; ++y) {
            for (int x = 0; x < _width * zoom; ++x) {
                Rgba const& p = _pixels[std::size_t((y / zoom) * _width + x / zoom)];
                int const row = _height * zoom - 1 - y;
                float const values[4] = {p.r, p.g, p.b, p.a};
                for (int c = 0; c < 4; ++c)
                    tile->setValue(
                        x, row, c,
                        std::uint8_t(std::lround(std::clamp(values[c], 0.f, 1.f) * 255)));
            }
        }
        return tile;
    }

private:
    int _width;
    int _height;
    std::vector<Rgba> _pixels;
};

Shape circle(float cx, float cy, float radius) {
    return [=](float x, float y) {
        return (x - cx) * (x - cx) + (y - cy) * (y - cy) <= radius * radius;
    };
}

Shape rect(float x1, float y1, float x2, float y2) {
    return [=](float x, float y) { return x >= x1 && x <= x2 && y >= y1 && y <= y2; };
}

// A rectangle with rounded corners of radius r.
Shape roundRect(float x1, float y1, float x2, float y2, float r) {
    return [=](float x, float y) {
        float const dx = std::max({x1 + r - x, 0.f, x - (x2 - r)});
        float const dy = std::max({y1 + r - y, 0.f, y - (y2 - r)});
        return x >= x1 && x <= x2 && y >= y1 && y <= y2 && dx * dx + dy * dy <= r * r;
    };
}

float segmentDistance(float x, float y, float ax, float ay, float bx, float by) {
    float const vx = bx - ax, vy = by - ay;
    float t = ((x - ax) * vx + (y - ay) * vy) / (vx * vx + vy * vy);
    t = std::clamp(t, 0.f, 1.f);
    float const dx = x - (ax + t * vx), dy = y - (ay + t * vy);
    return std::sqrt(dx * dx + dy * dy);
}

// A stroke of the given width along a polyline, with round joins and ends.
Shape stroke(std::vector<float> points, float width) {
    return [points = std::move(points), width](float x, float y) {
        for (std::size_t i = 0; i + 3 < points.size(); i += 2) {
            if (segmentDistance(x, y, points[i], points[i + 1], points[i + 2], points[i + 3]) <=
                width / 2)
                return true;
        }
        return false;
    };
}

Shape polygon(std::vector<float> points) {
    return [points = std::move(points)](float x, float y) {
        bool inside = false;
        std::size_t const n = points.size() / 2;
        for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
            float const xi = points[2 * i], yi = points[2 * i + 1];
            float const xj = points[2 * j], yj = points[2 * j + 1];
            if ((yi > y) != (yj > y) && x < (xj - xi) * (y - yi) / (yj - yi) + xi)
                inside = !inside;
        }
        return inside;
    };
}

Shape ring(float cx, float cy, float radius, float width) {
    return [=](float x, float y) {
        float const d = std::sqrt((x - cx) * (x - cx) + (y - cy) * (y - cy));
        return std::abs(d - radius) <= width / 2;
    };
}

Shape both(Shape a, Shape b) {
    return [=](float x, float y) { return a(x, y) && b(x, y); };
}

Rgba const Ink{0.12f, 0.12f, 0.13f, 1};
Rgba const Edge{0.30f, 0.31f, 0.33f, 1};
Rgba const Face{0.93f, 0.93f, 0.94f, 1};
Rgba const Shade{0.78f, 0.79f, 0.81f, 1};
Rgba const Black{0, 0, 0, 1};
Rgba const White{1, 1, 1, 1};

// The sub-menu arrow of a menu entry: a small triangle pointing right.
Canvas cascade() {
    Canvas c(13, 13);
    c.paint(polygon({4.0f, 2.5f, 10.0f, 6.5f, 4.0f, 10.5f}), Ink);
    return c;
}

// A check box: a light square with a dark edge, shaded at the top; `on` adds the check mark.
Canvas toggle(bool on) {
    Canvas c(13, 13);
    c.paint(roundRect(0.5f, 0.5f, 12.5f, 12.5f, 1.5f), Edge);
    c.paint(roundRect(1.5f, 1.5f, 11.5f, 11.5f, 0.8f), Face);
    c.paint(rect(1.5f, 1.5f, 11.5f, 2.5f), Shade);
    if (on)
        c.paint(stroke({3.3f, 6.6f, 5.4f, 8.9f, 9.8f, 3.6f}, 1.9f), Ink);
    return c;
}

// A radio button: a light disc with a dark edge, shaded at the top; `on` adds the dot.
Canvas radio(bool on) {
    Canvas c(13, 13);
    c.paint(circle(6.5f, 6.5f, 6.0f), Edge);
    c.paint(circle(6.5f, 6.5f, 5.0f), Face);
    c.paint(both(circle(6.5f, 6.5f, 5.0f), ring(6.5f, 7.6f, 5.3f, 1.2f)), Shade);
    if (on)
        c.paint(circle(6.5f, 6.5f, 2.6f), Ink);
    return c;
}

// The warning sign of message boxes, in black and white: a triangle with rounded corners and
// an exclamation mark.
Canvas warningBW() {
    Canvas c(32, 32);
    std::vector<float> const corners{16.0f, 3.0f, 29.0f, 27.5f, 3.0f, 27.5f};
    auto outline = corners;
    outline.insert(outline.end(), {corners[0], corners[1]});
    c.paint(polygon(corners), Black);
    c.paint(stroke(outline, 3.0f), Black);
    c.paint(polygon({16.0f, 7.6f, 25.6f, 25.6f, 6.4f, 25.6f}), White);
    c.paint(polygon({14.4f, 11.5f, 17.6f, 11.5f, 16.8f, 20.0f, 15.2f, 20.0f}), Black);
    c.paint(stroke({14.9f, 11.8f, 17.1f, 11.8f}, 1.4f), Black);
    c.paint(circle(16.0f, 22.8f, 1.6f), Black);
    return c;
}

// The anchor of anchored widgets: a ring, a shank with a stock, and curved arms with flukes.
Canvas anchor() {
    Canvas c(16, 16);
    c.paint(ring(8.0f, 2.8f, 1.6f, 1.3f), Ink);
    c.paint(stroke({8.0f, 4.4f, 8.0f, 14.2f}, 1.5f), Ink);
    c.paint(stroke({4.8f, 6.4f, 11.2f, 6.4f}, 1.4f), Ink);
    c.paint(both(ring(8.0f, 8.6f, 5.6f, 1.4f), rect(0, 9.2f, 16, 16)), Ink);
    c.paint(polygon({0.9f, 10.6f, 4.2f, 9.8f, 2.0f, 7.6f}), Ink);
    c.paint(polygon({15.1f, 10.6f, 11.8f, 9.8f, 14.0f, 7.6f}), Ink);
    return c;
}

struct Icon {
    char const* file;
    Canvas (*draw)();
};

Canvas toggleOn() {
    return toggle(true);
}
Canvas toggleOff() {
    return toggle(false);
}
Canvas radioOn() {
    return radio(true);
}
Canvas radioOff() {
    return radio(false);
}

Icon const Icons[] = {{"cascade.tif", cascade},     {"toggleOn.tif", toggleOn},
                      {"toggleOff.tif", toggleOff}, {"radioOn.tif", radioOn},
                      {"radioOff.tif", radioOff},   {"warningBW.tif", warningBW},
                      {"anchor.tif", anchor}};

} // namespace

int main(int argc, char** argv) {
    std::string outDir;
    std::string previewDir;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--preview") && i + 1 < argc) {
            previewDir = argv[++i];
        } else if (!std::strcmp(argv[i], "--help") || !std::strcmp(argv[i], "-h") ||
                   argv[i][0] == '-') {
            std::printf("usage: zrui-icongen OUTDIR [--preview DIR]\n"
                        "Writes the toolkit's icons as RGBA TIFF files into OUTDIR (as a rule\n"
                        "resources/icons); --preview also writes them 8 times enlarged over a\n"
                        "grey backdrop as PNG files into DIR, to look at.\n");
            return std::strcmp(argv[i], "--help") && std::strcmp(argv[i], "-h") ? 2 : 0;
        } else {
            outDir = argv[i];
        }
    }
    if (outDir.empty()) {
        std::fprintf(stderr, "zrui-icongen: no output directory (see --help)\n");
        return 2;
    }
    try {
        for (Icon const& icon : Icons) {
            Canvas const canvas = icon.draw();
            Zr::WsManagedImage::writeTiff(*canvas.toTile(),
                                          OsFilePath(outDir) + OsFilePath(icon.file));
            if (!previewDir.empty()) {
                std::string png = icon.file;
                png.replace(png.size() - 4, 4, ".png");
                Zr::WsManagedImage::writePng(*canvas.onBackdrop({0.68f, 0.69f, 0.71f, 1}).toTile(8),
                                             OsFilePath(previewDir) + OsFilePath(png));
            }
            std::printf("%s\n", icon.file);
        }
    } catch (Zr::ExBase const& ex) {
        std::fprintf(stderr, "zrui-icongen: %s\n", ex.getReason().c_str());
        return 1;
    }
    return 0;
}
