// FrameRaster: a recording backend that also paints what it is given (points, lines, line
// loops, rectangles and axis-aligned quads) into an in-memory raster, so frame tests can compare
// pixels, and print them as a picture of one character per colour.
#pragma once

#include "smContext.h"
#include "smGlRecorder.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Zr::UiTest {

class FrameRaster : public SmGlRecorder {
public:
    // A raster over [0, width) x [0, height); pixels outside are dropped.
    FrameRaster(int width, int height)
        : _width(width), _height(height), _pixels(static_cast<size_t>(width * height)),
          _smooth(SmContext::getCurrentContext()->getShadeModel() == Gl::SMOOTH) {}

    std::optional<CoRgbColor> const& at(int x, int y) const {
        return _pixels[static_cast<size_t>(y * _width + x)];
    }

    // One string per row, top row first; each pixel is the character of the first legend
    // colour within 1e-4 of it, '.' for an untouched pixel and '?' for any other colour.
    std::vector<std::string> picture(std::vector<std::pair<char, CoRgbColor>> const& legend) const {
        std::vector<std::string> rows;
        for (int y = _height - 1; y >= 0; --y) {
            std::string row;
            for (int x = 0; x < _width; ++x) {
                std::optional<CoRgbColor> const& p = at(x, y);
                char c = p ? '?' : '.';
                for (auto const& [ch, color] : legend)
                    if (p && near(*p, color)) {
                        c = ch;
                        break;
                    }
                row += c;
            }
            rows.push_back(row);
        }
        return rows;
    }

    void begin(unsigned mode) override {
        SmGlRecorder::begin(mode);
        _mode = mode;
        _vertices.clear();
    }
    void color3fv(float const* c) override {
        SmGlRecorder::color3fv(c);
        _current = {c[0], c[1], c[2]};
    }
    void vertex2i(int x, int y) override {
        SmGlRecorder::vertex2i(x, y);
        _vertices.push_back({x, y, _current});
    }
    void recti(int x1, int y1, int x2, int y2) override {
        SmGlRecorder::recti(x1, y1, x2, y2);
        for (int y = y1; y < y2; ++y)
            for (int x = x1; x < x2; ++x)
                set(x, y, _current);
    }
    void shadeModel(unsigned mode) override {
        SmGlRecorder::shadeModel(mode);
        _smooth = mode == Gl::SMOOTH;
    }
    void end() override {
        SmGlRecorder::end();
        size_t const n = _vertices.size();
        if (_mode == Gl::POINTS)
            for (Vertex const& v : _vertices)
                set(v.x, v.y, v.color);
        if (_mode == Gl::LINES)
            for (size_t i = 0; i + 1 < n; i += 2)
                line(_vertices[i], _vertices[i + 1]);
        if (_mode == Gl::LINE_LOOP)
            for (size_t i = 0; i < n; ++i)
                line(_vertices[i], _vertices[(i + 1) % n]);
        if (_mode == Gl::QUADS)
            for (size_t i = 0; i + 3 < n; i += 4)
                quad(&_vertices[i]);
    }

private:
    struct Vertex {
        int x, y;
        CoRgbColor color;
    };

    static bool near(CoRgbColor const& a, CoRgbColor const& b) {
        return std::abs(a.r - b.r) < 1e-4f && std::abs(a.g - b.g) < 1e-4f &&
               std::abs(a.b - b.b) < 1e-4f;
    }
    void set(int x, int y, CoRgbColor const& c) {
        if (x >= 0 && x < _width && y >= 0 && y < _height)
            _pixels[static_cast<size_t>(y * _width + x)] = c;
    }
    // From the first vertex's pixel up to, not including, the second's, in the second's colour
    // (flat shading takes the last vertex).
    void line(Vertex const& a, Vertex const& b) {
        int const dx = b.x - a.x, dy = b.y - a.y;
        int const steps = std::max(std::abs(dx), std::abs(dy));
        for (int i = 0; i < steps; ++i)
            set(a.x + static_cast<int>(std::lround(double(dx) * i / steps)),
                a.y + static_cast<int>(std::lround(double(dy) * i / steps)), b.color);
    }
    // An axis-aligned quad, its colour interpolated from the top vertices to the bottom ones
    // when shading is smooth.
    void quad(Vertex const* v) {
        int x1 = v[0].x, x2 = v[0].x, y1 = v[0].y, y2 = v[0].y;
        for (int i = 1; i < 4; ++i) {
            x1 = std::min(x1, v[i].x);
            x2 = std::max(x2, v[i].x);
            y1 = std::min(y1, v[i].y);
            y2 = std::max(y2, v[i].y);
        }
        CoRgbColor top = v[3].color, bottom = v[3].color;
        for (int i = 0; i < 4 && _smooth; ++i)
            (v[i].y == y2 ? top : bottom) = v[i].color;
        for (int y = y1; y < y2; ++y) {
            float const t = (static_cast<float>(y) + 0.5f - static_cast<float>(y1)) /
                            static_cast<float>(y2 - y1);
            CoRgbColor const c(bottom.r + (top.r - bottom.r) * t, bottom.g + (top.g - bottom.g) * t,
                               bottom.b + (top.b - bottom.b) * t);
            for (int x = x1; x < x2; ++x)
                set(x, y, c);
        }
    }

    int _width;
    int _height;
    std::vector<std::optional<CoRgbColor>> _pixels;
    bool _smooth;
    unsigned _mode = Gl::POINTS;
    CoRgbColor _current{1.f, 1.f, 1.f};
    std::vector<Vertex> _vertices;
};

} // namespace Zr::UiTest
