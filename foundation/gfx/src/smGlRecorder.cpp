// The recording backend: call counts, the call log, and the painted rectangles.
#include "smGlRecorder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace Zr {

int SmGlRecorder::getCount(std::string const& name) const {
    auto it = _counts.find(name);
    return it == _counts.end() ? 0 : it->second;
}

void SmGlRecorder::clearLog() {
    _counts.clear();
    _total = 0;
    _log.clear();
    _painted.clear();
}

void SmGlRecorder::record(char const* name, std::initializer_list<std::string> args) {
    ++_counts[name];
    ++_total;
    std::string entry = name;
    entry += '(';
    bool first = true;
    for (std::string const& a : args) {
        if (!first)
            entry += ", ";
        entry += a;
        first = false;
    }
    entry += ')';
    _log.push_back(std::move(entry));
}

void SmGlRecorder::paintRect(float x1, float y1, float x2, float y2) {
    auto px = [](float v) { return static_cast<int>(std::lround(v)); };
    float tx = _translation.x, ty = _translation.y;
    GeRectangle<int> r{px(std::min(x1, x2) + tx), px(std::max(x1, x2) + tx),
                       px(std::min(y1, y2) + ty), px(std::max(y1, y2) + ty)};
    paint(r, _color, false);
}

void SmGlRecorder::paint(GeRectangle<int> const& rect, CoRgbaColorTyped<float> const& color,
                         bool isClear) {
    GeRectangle<int> r = rect;
    if (isEnabled(Gl::SCISSOR_TEST))
        r.intersect(_scissorBox);
    if (!r.isEmpty())
        _painted.push_back({r, color, isClear});
}

std::string SmGlRecorder::toText(int v) {
    return std::to_string(v);
}

std::string SmGlRecorder::toText(unsigned v) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", v);
    return text;
}

std::string SmGlRecorder::toText(unsigned short v) {
    return toText(static_cast<unsigned>(v));
}

std::string SmGlRecorder::toText(float v) {
    return toText(static_cast<double>(v));
}

std::string SmGlRecorder::toText(double v) {
    std::ostringstream os;
    os << v;
    return os.str();
}

std::string SmGlRecorder::toText(bool v) {
    return v ? "true" : "false";
}

std::string SmGlRecorder::formatPointer(void const* p) {
    return p ? "data" : "null";
}

template <class T>
std::string SmGlRecorder::formatArray(T const* values, int count) {
    if (!values)
        return "null";
    std::string text = "{";
    for (int i = 0; i < count; ++i) {
        if (i)
            text += ", ";
        text += toText(values[i]);
    }
    return text + "}";
}

int SmGlRecorder::lightValueCount(unsigned pname) {
    switch (pname) {
    case Gl::AMBIENT:
    case Gl::DIFFUSE:
    case Gl::SPECULAR:
    case Gl::POSITION:
    case Gl::EMISSION:
    case Gl::AMBIENT_AND_DIFFUSE:
    case Gl::LIGHT_MODEL_AMBIENT:
        return 4;
    case Gl::SPOT_DIRECTION:
        return 3;
    default:
        return 1;
    }
}

void SmGlRecorder::enable(unsigned cap) {
    record("enable", {toText(cap)});
    _enabled.insert(cap);
}

void SmGlRecorder::disable(unsigned cap) {
    record("disable", {toText(cap)});
    _enabled.erase(cap);
}

void SmGlRecorder::blendFunc(unsigned src, unsigned dst) {
    record("blendFunc", {toText(src), toText(dst)});
}

void SmGlRecorder::blendEquation(unsigned mode) {
    record("blendEquation", {toText(mode)});
}

void SmGlRecorder::blendColor(float r, float g, float b, float a) {
    record("blendColor", {toText(r), toText(g), toText(b), toText(a)});
}

void SmGlRecorder::shadeModel(unsigned mode) {
    record("shadeModel", {toText(mode)});
}

void SmGlRecorder::cullFace(unsigned mode) {
    record("cullFace", {toText(mode)});
}

void SmGlRecorder::depthFunc(unsigned func) {
    record("depthFunc", {toText(func)});
}

void SmGlRecorder::depthMask(bool flag) {
    record("depthMask", {toText(flag)});
}

void SmGlRecorder::colorMask(bool r, bool g, bool b, bool a) {
    record("colorMask", {toText(r), toText(g), toText(b), toText(a)});
}

void SmGlRecorder::hint(unsigned target, unsigned mode) {
    record("hint", {toText(target), toText(mode)});
}

void SmGlRecorder::lineStipple(int factor, unsigned short pattern) {
    record("lineStipple", {toText(factor), toText(pattern)});
}

void SmGlRecorder::lineWidth(float width) {
    record("lineWidth", {toText(width)});
    _lineWidth = width;
}

void SmGlRecorder::pointSize(float size) {
    record("pointSize", {toText(size)});
}

void SmGlRecorder::polygonMode(unsigned face, unsigned mode) {
    record("polygonMode", {toText(face), toText(mode)});
}

void SmGlRecorder::alphaFunc(unsigned func, float ref) {
    record("alphaFunc", {toText(func), toText(ref)});
}

void SmGlRecorder::pushAttrib(unsigned mask) {
    record("pushAttrib", {toText(mask)});
}

void SmGlRecorder::popAttrib() {
    record("popAttrib", {});
}

void SmGlRecorder::scissor(int x, int y, int width, int height) {
    record("scissor", {toText(x), toText(y), toText(width), toText(height)});
    _scissorBox = GeRectangle<int>::fromSize(x, y, width, height);
}

void SmGlRecorder::viewport(int x, int y, int width, int height) {
    record("viewport", {toText(x), toText(y), toText(width), toText(height)});
    _viewport = GeRectangle<int>::fromSize(x, y, width, height);
}

void SmGlRecorder::matrixMode(unsigned mode) {
    record("matrixMode", {toText(mode)});
    _matrixMode = mode;
}

void SmGlRecorder::loadIdentity() {
    record("loadIdentity", {});
    if (_matrixMode == Gl::MODELVIEW)
        _translation = {};
}

void SmGlRecorder::loadMatrixf(float const* m) {
    record("loadMatrixf", {formatArray(m, 16)});
}

void SmGlRecorder::multMatrixf(float const* m) {
    record("multMatrixf", {formatArray(m, 16)});
}

void SmGlRecorder::ortho(double left, double right, double bottom, double top, double zNear,
                         double zFar) {
    record("ortho",
           {toText(left), toText(right), toText(bottom), toText(top), toText(zNear), toText(zFar)});
}

void SmGlRecorder::pushMatrix() {
    record("pushMatrix", {});
    if (_matrixMode == Gl::MODELVIEW)
        _translationStack.push_back(_translation);
}

void SmGlRecorder::popMatrix() {
    record("popMatrix", {});
    if (_matrixMode == Gl::MODELVIEW && !_translationStack.empty()) {
        _translation = _translationStack.back();
        _translationStack.pop_back();
    }
}

void SmGlRecorder::translatef(float x, float y, float z) {
    record("translatef", {toText(x), toText(y), toText(z)});
    if (_matrixMode == Gl::MODELVIEW)
        _translation = _translation + GeVector2<float>(x, y);
}

void SmGlRecorder::rotatef(float angle, float x, float y, float z) {
    record("rotatef", {toText(angle), toText(x), toText(y), toText(z)});
}

void SmGlRecorder::scalef(float x, float y, float z) {
    record("scalef", {toText(x), toText(y), toText(z)});
}

void SmGlRecorder::clearColor(float r, float g, float b, float a) {
    record("clearColor", {toText(r), toText(g), toText(b), toText(a)});
    _clearColor = {r, g, b, a};
}

void SmGlRecorder::clear(unsigned mask) {
    record("clear", {toText(mask)});
    if (mask & Gl::COLOR_BUFFER_BIT)
        paint(isEnabled(Gl::SCISSOR_TEST) ? _scissorBox : _viewport, _clearColor, true);
}

void SmGlRecorder::clearStencil(int s) {
    record("clearStencil", {toText(s)});
}

void SmGlRecorder::stencilFunc(unsigned func, int ref, unsigned mask) {
    record("stencilFunc", {toText(func), toText(ref), toText(mask)});
}

void SmGlRecorder::stencilOp(unsigned fail, unsigned zfail, unsigned zpass) {
    record("stencilOp", {toText(fail), toText(zfail), toText(zpass)});
}

void SmGlRecorder::stencilMask(unsigned mask) {
    record("stencilMask", {toText(mask)});
}

void SmGlRecorder::drawBuffer(unsigned mode) {
    record("drawBuffer", {toText(mode)});
}

void SmGlRecorder::readBuffer(unsigned mode) {
    record("readBuffer", {toText(mode)});
}

void SmGlRecorder::flush() {
    record("flush", {});
}

void SmGlRecorder::finish() {
    record("finish", {});
}

void SmGlRecorder::begin(unsigned mode) {
    record("begin", {toText(mode)});
}

void SmGlRecorder::end() {
    record("end", {});
}

void SmGlRecorder::vertex2i(int x, int y) {
    record("vertex2i", {toText(x), toText(y)});
}

void SmGlRecorder::vertex2f(float x, float y) {
    record("vertex2f", {toText(x), toText(y)});
}

void SmGlRecorder::vertex2fv(float const* v) {
    record("vertex2fv", {formatArray(v, 2)});
}

void SmGlRecorder::vertex3f(float x, float y, float z) {
    record("vertex3f", {toText(x), toText(y), toText(z)});
}

void SmGlRecorder::vertex3fv(float const* v) {
    record("vertex3fv", {formatArray(v, 3)});
}

void SmGlRecorder::normal3f(float x, float y, float z) {
    record("normal3f", {toText(x), toText(y), toText(z)});
}

void SmGlRecorder::texCoord2f(float s, float t) {
    record("texCoord2f", {toText(s), toText(t)});
}

void SmGlRecorder::color3f(float r, float g, float b) {
    record("color3f", {toText(r), toText(g), toText(b)});
    _color = {r, g, b, 1.f};
}

void SmGlRecorder::color3fv(float const* c) {
    record("color3fv", {formatArray(c, 3)});
    _color = {c[0], c[1], c[2], 1.f};
}

void SmGlRecorder::color4f(float r, float g, float b, float a) {
    record("color4f", {toText(r), toText(g), toText(b), toText(a)});
    _color = {r, g, b, a};
}

void SmGlRecorder::color4fv(float const* c) {
    record("color4fv", {formatArray(c, 4)});
    _color = {c[0], c[1], c[2], c[3]};
}

void SmGlRecorder::recti(int x1, int y1, int x2, int y2) {
    record("recti", {toText(x1), toText(y1), toText(x2), toText(y2)});
    paintRect(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
              static_cast<float>(y2));
}

void SmGlRecorder::rectf(float x1, float y1, float x2, float y2) {
    record("rectf", {toText(x1), toText(y1), toText(x2), toText(y2)});
    paintRect(x1, y1, x2, y2);
}

void SmGlRecorder::rasterPos2f(float x, float y) {
    record("rasterPos2f", {toText(x), toText(y)});
}

void SmGlRecorder::pixelZoom(float x, float y) {
    record("pixelZoom", {toText(x), toText(y)});
}

void SmGlRecorder::drawPixels(int width, int height, unsigned format, unsigned type,
                              void const* data) {
    record("drawPixels",
           {toText(width), toText(height), toText(format), toText(type), formatPointer(data)});
}

void SmGlRecorder::readPixels(int x, int y, int width, int height, unsigned format, unsigned type,
                              void* data) {
    record("readPixels", {toText(x), toText(y), toText(width), toText(height), toText(format),
                          toText(type), formatPointer(data)});
}

void SmGlRecorder::pixelStorei(unsigned pname, int param) {
    record("pixelStorei", {toText(pname), toText(param)});
}

void SmGlRecorder::pixelTransferi(unsigned pname, int param) {
    record("pixelTransferi", {toText(pname), toText(param)});
}

void SmGlRecorder::pixelMapusv(unsigned map, int size, unsigned short const* values) {
    record("pixelMapusv", {toText(map), toText(size), formatArray(values, size)});
}

void SmGlRecorder::getFloatv(unsigned pname, float* params) {
    record("getFloatv", {toText(pname), "params"});
    std::fill_n(params, Gl::getValueCount(pname), 0.f);
    if (pname == Gl::CURRENT_COLOR)
        std::copy_n(_color.data(), 4, params);
    else if (pname == Gl::COLOR_CLEAR_VALUE)
        std::copy_n(_clearColor.data(), 4, params);
    else if (pname == Gl::LINE_WIDTH)
        params[0] = _lineWidth;
}

void SmGlRecorder::getIntegerv(unsigned pname, int* params) {
    record("getIntegerv", {toText(pname), "params"});
    std::fill_n(params, Gl::getValueCount(pname), 0);
    auto box = [params](GeRectangle<int> const& r) {
        params[0] = r.x1;
        params[1] = r.y1;
        params[2] = r.width();
        params[3] = r.height();
    };
    if (pname == Gl::VIEWPORT)
        box(_viewport);
    else if (pname == Gl::SCISSOR_BOX)
        box(_scissorBox);
    else if (pname == Gl::STENCIL_BITS)
        params[0] = 8;
}

void SmGlRecorder::lightf(unsigned light, unsigned pname, float param) {
    record("lightf", {toText(light), toText(pname), toText(param)});
}

void SmGlRecorder::lightfv(unsigned light, unsigned pname, float const* params) {
    record("lightfv", {toText(light), toText(pname), formatArray(params, lightValueCount(pname))});
}

void SmGlRecorder::lightModelfv(unsigned pname, float const* params) {
    record("lightModelfv", {toText(pname), formatArray(params, lightValueCount(pname))});
}

void SmGlRecorder::materialf(unsigned face, unsigned pname, float param) {
    record("materialf", {toText(face), toText(pname), toText(param)});
}

void SmGlRecorder::materialfv(unsigned face, unsigned pname, float const* params) {
    record("materialfv",
           {toText(face), toText(pname), formatArray(params, lightValueCount(pname))});
}

void SmGlRecorder::colorMaterial(unsigned face, unsigned mode) {
    record("colorMaterial", {toText(face), toText(mode)});
}

void SmGlRecorder::activeTexture(unsigned unit) {
    record("activeTexture", {toText(unit)});
}

void SmGlRecorder::genTextures(int n, unsigned* textures) {
    for (int i = 0; i < n; ++i)
        textures[i] = ++_lastTexture;
    record("genTextures", {toText(n), formatArray(textures, n)});
}

void SmGlRecorder::deleteTextures(int n, unsigned const* textures) {
    record("deleteTextures", {toText(n), formatArray(textures, n)});
}

void SmGlRecorder::bindTexture(unsigned target, unsigned texture) {
    record("bindTexture", {toText(target), toText(texture)});
}

void SmGlRecorder::texImage2D(unsigned target, int level, int internalFormat, int width, int height,
                              int border, unsigned format, unsigned type, void const* data) {
    record("texImage2D",
           {toText(target), toText(level), toText(internalFormat), toText(width), toText(height),
            toText(border), toText(format), toText(type), formatPointer(data)});
}

void SmGlRecorder::texSubImage2D(unsigned target, int level, int x, int y, int width, int height,
                                 unsigned format, unsigned type, void const* data) {
    record("texSubImage2D", {toText(target), toText(level), toText(x), toText(y), toText(width),
                             toText(height), toText(format), toText(type), formatPointer(data)});
}

void SmGlRecorder::texParameteri(unsigned target, unsigned pname, int param) {
    record("texParameteri", {toText(target), toText(pname), toText(param)});
}

void SmGlRecorder::texEnvi(unsigned target, unsigned pname, int param) {
    record("texEnvi", {toText(target), toText(pname), toText(param)});
}

void SmGlRecorder::texParameterf(unsigned target, unsigned pname, float param) {
    record("texParameterf", {toText(target), toText(pname), toText(param)});
}

void SmGlRecorder::texEnvfv(unsigned target, unsigned pname, float const* params) {
    record("texEnvfv", {toText(target), toText(pname), formatArray(params, 4)});
}

void SmGlRecorder::texCoord2i(int s, int t) {
    record("texCoord2i", {toText(s), toText(t)});
}

void SmGlRecorder::texCoord2fv(float const* v) {
    record("texCoord2fv", {formatArray(v, 2)});
}

void SmGlRecorder::copyTexSubImage2D(unsigned target, int level, int xoffset, int yoffset, int x,
                                     int y, int width, int height) {
    record("copyTexSubImage2D", {toText(target), toText(level), toText(xoffset), toText(yoffset),
                                 toText(x), toText(y), toText(width), toText(height)});
}

void SmGlRecorder::pixelStoref(unsigned pname, float param) {
    record("pixelStoref", {toText(pname), toText(param)});
}

void SmGlRecorder::pixelTransferf(unsigned pname, float param) {
    record("pixelTransferf", {toText(pname), toText(param)});
}

void SmGlRecorder::color4ub(unsigned char r, unsigned char g, unsigned char b, unsigned char a) {
    record("color4ub", {toText(int(r)), toText(int(g)), toText(int(b)), toText(int(a))});
    _color = {r / 255.f, g / 255.f, b / 255.f, a / 255.f};
}

void SmGlRecorder::rasterPos2i(int x, int y) {
    record("rasterPos2i", {toText(x), toText(y)});
}

void SmGlRecorder::bitmap(int width, int height, float xorig, float yorig, float xmove, float ymove,
                          unsigned char const* bits) {
    record("bitmap", {toText(width), toText(height), toText(xorig), toText(yorig), toText(xmove),
                      toText(ymove), formatPointer(bits)});
}

unsigned SmGlRecorder::getError() {
    record("getError", {});
    return Gl::NO_ERROR;
}

char const* SmGlRecorder::getString(unsigned name) {
    record("getString", {toText(name)});
    return "";
}

} // namespace Zr
