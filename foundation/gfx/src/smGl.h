// The OpenGL facade: every drawing call of the toolkit goes through SmGl, which forwards to
// the installed SmGlBackend. Windows install the real OpenGL; tests install a recorder; by
// default a backend that does nothing lets the toolkit run without a display.
#pragma once

#include <cstdint>

namespace Zr {

// OpenGL's enumerants under their own numbers, so that a real backend forwards them as they are.
namespace Gl {
// Capabilities.
constexpr unsigned SCISSOR_TEST = 0x0C11, BLEND = 0x0BE2, DITHER = 0x0BD0, STENCIL_TEST = 0x0B90,
                   DEPTH_TEST = 0x0B71, TEXTURE_2D = 0x0DE1, LINE_STIPPLE = 0x0B24,
                   CULL_FACE = 0x0B44, LIGHTING = 0x0B50, LIGHT0 = 0x4000, LIGHT1 = 0x4001,
                   NORMALIZE = 0x0BA1, COLOR_MATERIAL = 0x0B57, LINE_SMOOTH = 0x0B20,
                   POINT_SMOOTH = 0x0B10, POLYGON_SMOOTH = 0x0B41, POLYGON_STIPPLE = 0x0B42,
                   ALPHA_TEST = 0x0BC0, COLOR_LOGIC_OP = 0x0BF2, FOG = 0x0B60;
// Blending.
constexpr unsigned ZERO = 0, ONE = 1, SRC_COLOR = 0x0300, ONE_MINUS_SRC_COLOR = 0x0301,
                   SRC_ALPHA = 0x0302, ONE_MINUS_SRC_ALPHA = 0x0303, DST_ALPHA = 0x0304,
                   ONE_MINUS_DST_ALPHA = 0x0305, DST_COLOR = 0x0306, ONE_MINUS_DST_COLOR = 0x0307,
                   CONSTANT_COLOR = 0x8001, ONE_MINUS_CONSTANT_COLOR = 0x8002,
                   CONSTANT_ALPHA = 0x8003, ONE_MINUS_CONSTANT_ALPHA = 0x8004, FUNC_ADD = 0x8006,
                   MIN = 0x8007, MAX = 0x8008, FUNC_SUBTRACT = 0x800A,
                   FUNC_REVERSE_SUBTRACT = 0x800B;
// Clear masks and attribute groups.
constexpr unsigned CURRENT_BIT = 0x0001, LINE_BIT = 0x0004, POLYGON_BIT = 0x0008,
                   LIGHTING_BIT = 0x0040, DEPTH_BUFFER_BIT = 0x0100, STENCIL_BUFFER_BIT = 0x0400,
                   VIEWPORT_BIT = 0x0800, TRANSFORM_BIT = 0x1000, ENABLE_BIT = 0x2000,
                   COLOR_BUFFER_BIT = 0x4000, HINT_BIT = 0x8000, SCISSOR_BIT = 0x00080000,
                   TEXTURE_BIT = 0x00040000, ALL_ATTRIB_BITS = 0x000FFFFF;
// Primitives.
constexpr unsigned POINTS = 0, LINES = 1, LINE_LOOP = 2, LINE_STRIP = 3, TRIANGLES = 4,
                   TRIANGLE_STRIP = 5, TRIANGLE_FAN = 6, QUADS = 7, QUAD_STRIP = 8, POLYGON = 9;
// Shading, faces, comparisons, stencil operations, hints.
constexpr unsigned FLAT = 0x1D00, SMOOTH = 0x1D01, FRONT = 0x0404, BACK = 0x0405,
                   FRONT_AND_BACK = 0x0408, CW = 0x0900, CCW = 0x0901, POINT = 0x1B00,
                   LINE = 0x1B01, FILL = 0x1B02, NEVER = 0x0200, LESS = 0x0201, EQUAL = 0x0202,
                   LEQUAL = 0x0203, GREATER = 0x0204, NOTEQUAL = 0x0205, GEQUAL = 0x0206,
                   ALWAYS = 0x0207, KEEP = 0x1E00, REPLACE = 0x1E01, INCR = 0x1E02, DECR = 0x1E03,
                   INVERT = 0x150A, DONT_CARE = 0x1100, FASTEST = 0x1101, NICEST = 0x1102,
                   POINT_SMOOTH_HINT = 0x0C51, LINE_SMOOTH_HINT = 0x0C52,
                   POLYGON_SMOOTH_HINT = 0x0C53, PERSPECTIVE_CORRECTION_HINT = 0x0C50;
// Matrices, buffers and queries.
constexpr unsigned MODELVIEW = 0x1700, PROJECTION = 0x1701, TEXTURE = 0x1702, FRONT_LEFT = 0x0400,
                   BACK_LEFT = 0x0402, CURRENT_COLOR = 0x0B00, LINE_WIDTH = 0x0B21,
                   VIEWPORT = 0x0BA2, MODELVIEW_MATRIX = 0x0BA6, PROJECTION_MATRIX = 0x0BA7,
                   SCISSOR_BOX = 0x0C10, STENCIL_BITS = 0x0D57, MAX_TEXTURE_SIZE = 0x0D33,
                   COLOR_CLEAR_VALUE = 0x0C22;
// Pixel formats, types and transfer.
constexpr unsigned BYTE = 0x1400, UNSIGNED_BYTE = 0x1401, SHORT = 0x1402, UNSIGNED_SHORT = 0x1403,
                   INT = 0x1404, UNSIGNED_INT = 0x1405, FLOAT = 0x1406, STENCIL_INDEX = 0x1901,
                   DEPTH_COMPONENT = 0x1902, RED = 0x1903, ALPHA = 0x1906, RGB = 0x1907,
                   RGBA = 0x1908, LUMINANCE = 0x1909, LUMINANCE_ALPHA = 0x190A, BGR = 0x80E0,
                   BGRA = 0x80E1, RGB8 = 0x8051, RGBA8 = 0x8058, UNPACK_ROW_LENGTH = 0x0CF2,
                   UNPACK_SKIP_ROWS = 0x0CF3, UNPACK_SKIP_PIXELS = 0x0CF4,
                   UNPACK_ALIGNMENT = 0x0CF5, PACK_ROW_LENGTH = 0x0D02, PACK_ALIGNMENT = 0x0D05,
                   MAP_COLOR = 0x0D10, RED_SCALE = 0x0D14, RED_BIAS = 0x0D15, GREEN_SCALE = 0x0D18,
                   BLUE_SCALE = 0x0D1A, ALPHA_SCALE = 0x0D1C, PIXEL_MAP_R_TO_R = 0x0C76,
                   PIXEL_MAP_G_TO_G = 0x0C77, PIXEL_MAP_B_TO_B = 0x0C78, PIXEL_MAP_A_TO_A = 0x0C79;
// Lighting.
constexpr unsigned AMBIENT = 0x1200, DIFFUSE = 0x1201, SPECULAR = 0x1202, POSITION = 0x1203,
                   SPOT_DIRECTION = 0x1204, EMISSION = 0x1600, SHININESS = 0x1601,
                   AMBIENT_AND_DIFFUSE = 0x1602, LIGHT_MODEL_TWO_SIDE = 0x0B52,
                   LIGHT_MODEL_AMBIENT = 0x0B53;
// Textures.
constexpr unsigned TEXTURE0 = 0x84C0, TEXTURE_ENV = 0x2300, TEXTURE_ENV_MODE = 0x2200,
                   MODULATE = 0x2100, DECAL = 0x2101, NEAREST = 0x2600, LINEAR = 0x2601,
                   TEXTURE_MAG_FILTER = 0x2800, TEXTURE_MIN_FILTER = 0x2801,
                   TEXTURE_WRAP_S = 0x2802, TEXTURE_WRAP_T = 0x2803, REPEAT = 0x2901,
                   CLAMP_TO_EDGE = 0x812F, TEXTURE_ENV_COLOR = 0x2201, TEXTURE_BINDING_2D = 0x8069,
                   CLAMP = 0x2900;
// Errors and strings.
constexpr unsigned NO_ERROR = 0, INVALID_ENUM = 0x0500, INVALID_VALUE = 0x0501,
                   INVALID_OPERATION = 0x0502, OUT_OF_MEMORY = 0x0505, VENDOR = 0x1F00,
                   RENDERER = 0x1F01, VERSION = 0x1F02, EXTENSIONS = 0x1F03;

// How many values a query of `pname` writes (1 where it isn't one of the known vectors).
int getValueCount(unsigned pname);
} // namespace Gl

// What a window plugs in: one virtual per OpenGL call that the toolkit makes, under the
// call's name without its "gl" prefix.
class SmGlBackend {
public:
    SmGlBackend() = default;
    SmGlBackend(SmGlBackend const&) = delete;
    SmGlBackend& operator=(SmGlBackend const&) = delete;
    virtual ~SmGlBackend();

    // Capabilities and fixed state.
    virtual void enable(unsigned cap) = 0;
    virtual void disable(unsigned cap) = 0;
    virtual void blendFunc(unsigned src, unsigned dst) = 0;
    virtual void blendEquation(unsigned mode) = 0;
    virtual void blendColor(float r, float g, float b, float a) = 0;
    virtual void shadeModel(unsigned mode) = 0;
    virtual void cullFace(unsigned mode) = 0;
    virtual void depthFunc(unsigned func) = 0;
    virtual void depthMask(bool flag) = 0;
    virtual void colorMask(bool r, bool g, bool b, bool a) = 0;
    virtual void hint(unsigned target, unsigned mode) = 0;
    virtual void lineStipple(int factor, unsigned short pattern) = 0;
    virtual void lineWidth(float width) = 0;
    virtual void pointSize(float size) = 0;
    virtual void polygonMode(unsigned face, unsigned mode) = 0;
    virtual void alphaFunc(unsigned func, float ref) = 0;
    virtual void pushAttrib(unsigned mask) = 0;
    virtual void popAttrib() = 0;
    // Viewport, scissor and matrices.
    virtual void scissor(int x, int y, int width, int height) = 0;
    virtual void viewport(int x, int y, int width, int height) = 0;
    virtual void matrixMode(unsigned mode) = 0;
    virtual void loadIdentity() = 0;
    virtual void loadMatrixf(float const* m) = 0;
    virtual void multMatrixf(float const* m) = 0;
    virtual void ortho(double left, double right, double bottom, double top, double zNear,
                       double zFar) = 0;
    virtual void pushMatrix() = 0;
    virtual void popMatrix() = 0;
    virtual void translatef(float x, float y, float z) = 0;
    virtual void rotatef(float angle, float x, float y, float z) = 0;
    virtual void scalef(float x, float y, float z) = 0;
    // Buffers and stencil.
    virtual void clearColor(float r, float g, float b, float a) = 0;
    virtual void clear(unsigned mask) = 0;
    virtual void clearStencil(int s) = 0;
    virtual void stencilFunc(unsigned func, int ref, unsigned mask) = 0;
    virtual void stencilOp(unsigned fail, unsigned zfail, unsigned zpass) = 0;
    virtual void stencilMask(unsigned mask) = 0;
    virtual void drawBuffer(unsigned mode) = 0;
    virtual void readBuffer(unsigned mode) = 0;
    virtual void flush() = 0;
    virtual void finish() = 0;
    // Immediate mode.
    virtual void begin(unsigned mode) = 0;
    virtual void end() = 0;
    virtual void vertex2i(int x, int y) = 0;
    virtual void vertex2f(float x, float y) = 0;
    virtual void vertex2fv(float const* v) = 0;
    virtual void vertex3f(float x, float y, float z) = 0;
    virtual void vertex3fv(float const* v) = 0;
    virtual void normal3f(float x, float y, float z) = 0;
    virtual void texCoord2f(float s, float t) = 0;
    virtual void color3f(float r, float g, float b) = 0;
    virtual void color3fv(float const* c) = 0;
    virtual void color4f(float r, float g, float b, float a) = 0;
    virtual void color4fv(float const* c) = 0;
    virtual void recti(int x1, int y1, int x2, int y2) = 0;
    virtual void rectf(float x1, float y1, float x2, float y2) = 0;
    // Pixels.
    virtual void rasterPos2f(float x, float y) = 0;
    virtual void pixelZoom(float x, float y) = 0;
    virtual void drawPixels(int width, int height, unsigned format, unsigned type,
                            void const* data) = 0;
    virtual void readPixels(int x, int y, int width, int height, unsigned format, unsigned type,
                            void* data) = 0;
    virtual void pixelStorei(unsigned pname, int param) = 0;
    virtual void pixelTransferi(unsigned pname, int param) = 0;
    virtual void pixelMapusv(unsigned map, int size, unsigned short const* values) = 0;
    // Queries.
    virtual void getFloatv(unsigned pname, float* params) = 0;
    virtual void getIntegerv(unsigned pname, int* params) = 0;
    // Lighting.
    virtual void lightf(unsigned light, unsigned pname, float param) = 0;
    virtual void lightfv(unsigned light, unsigned pname, float const* params) = 0;
    virtual void lightModelfv(unsigned pname, float const* params) = 0;
    virtual void materialf(unsigned face, unsigned pname, float param) = 0;
    virtual void materialfv(unsigned face, unsigned pname, float const* params) = 0;
    virtual void colorMaterial(unsigned face, unsigned mode) = 0;
    // Textures.
    virtual void activeTexture(unsigned unit) = 0;
    virtual void genTextures(int n, unsigned* textures) = 0;
    virtual void deleteTextures(int n, unsigned const* textures) = 0;
    virtual void bindTexture(unsigned target, unsigned texture) = 0;
    virtual void texImage2D(unsigned target, int level, int internalFormat, int width, int height,
                            int border, unsigned format, unsigned type, void const* data) = 0;
    virtual void texSubImage2D(unsigned target, int level, int x, int y, int width, int height,
                               unsigned format, unsigned type, void const* data) = 0;
    virtual void texParameteri(unsigned target, unsigned pname, int param) = 0;
    virtual void texEnvi(unsigned target, unsigned pname, int param) = 0;

    // Calls added later; a backend that doesn't know them does nothing (and reports no error).
    virtual void texParameterf(unsigned, unsigned, float) {}
    virtual void texEnvfv(unsigned, unsigned, float const*) {}
    virtual void texCoord2i(int, int) {}
    virtual void texCoord2fv(float const*) {}
    virtual void copyTexSubImage2D(unsigned, int, int, int, int, int, int, int) {}
    virtual void pixelStoref(unsigned, float) {}
    virtual void pixelTransferf(unsigned, float) {}
    virtual void color4ub(unsigned char, unsigned char, unsigned char, unsigned char) {}
    virtual void rasterPos2i(int, int) {}
    virtual void bitmap(int, int, float, float, float, float, unsigned char const*) {}
    virtual unsigned getError() { return Gl::NO_ERROR; }
    // The driver's text for VENDOR, RENDERER, VERSION or EXTENSIONS; empty without a driver.
    virtual char const* getString(unsigned) { return ""; }
};

// The calls as the drawing code writes them: SmGl::recti(0, 0, 10, 10).
class SmGl {
public:
    static SmGlBackend& get() { return *_backend; }
    // Installs a backend, which the caller keeps alive while installed; null restores the
    // backend that does nothing.
    static void setBackend(SmGlBackend* backend);
    static bool isNoOpBackend();

    // Capabilities and fixed state.
    static void enable(unsigned cap) { get().enable(cap); }
    static void disable(unsigned cap) { get().disable(cap); }
    static void blendFunc(unsigned src, unsigned dst) { get().blendFunc(src, dst); }
    static void blendEquation(unsigned mode) { get().blendEquation(mode); }
    static void blendColor(float r, float g, float b, float a) { get().blendColor(r, g, b, a); }
    static void shadeModel(unsigned mode) { get().shadeModel(mode); }
    static void cullFace(unsigned mode) { get().cullFace(mode); }
    static void depthFunc(unsigned func) { get().depthFunc(func); }
    static void depthMask(bool flag) { get().depthMask(flag); }
    static void colorMask(bool r, bool g, bool b, bool a) { get().colorMask(r, g, b, a); }
    static void hint(unsigned target, unsigned mode) { get().hint(target, mode); }
    static void lineStipple(int factor, unsigned short pattern) {
        get().lineStipple(factor, pattern);
    }
    static void lineWidth(float width) { get().lineWidth(width); }
    static void pointSize(float size) { get().pointSize(size); }
    static void polygonMode(unsigned face, unsigned mode) { get().polygonMode(face, mode); }
    static void alphaFunc(unsigned func, float ref) { get().alphaFunc(func, ref); }
    static void pushAttrib(unsigned mask) { get().pushAttrib(mask); }
    static void popAttrib() { get().popAttrib(); }
    // Viewport, scissor and matrices.
    static void scissor(int x, int y, int width, int height) { get().scissor(x, y, width, height); }
    static void viewport(int x, int y, int width, int height) {
        get().viewport(x, y, width, height);
    }
    static void matrixMode(unsigned mode) { get().matrixMode(mode); }
    static void loadIdentity() { get().loadIdentity(); }
    static void loadMatrixf(float const* m) { get().loadMatrixf(m); }
    static void multMatrixf(float const* m) { get().multMatrixf(m); }
    static void ortho(double left, double right, double bottom, double top, double zNear,
                      double zFar) {
        get().ortho(left, right, bottom, top, zNear, zFar);
    }
    static void pushMatrix() { get().pushMatrix(); }
    static void popMatrix() { get().popMatrix(); }
    static void translatef(float x, float y, float z) { get().translatef(x, y, z); }
    static void rotatef(float angle, float x, float y, float z) { get().rotatef(angle, x, y, z); }
    static void scalef(float x, float y, float z) { get().scalef(x, y, z); }
    // Buffers and stencil.
    static void clearColor(float r, float g, float b, float a) { get().clearColor(r, g, b, a); }
    static void clear(unsigned mask) { get().clear(mask); }
    static void clearStencil(int s) { get().clearStencil(s); }
    static void stencilFunc(unsigned func, int ref, unsigned mask) {
        get().stencilFunc(func, ref, mask);
    }
    static void stencilOp(unsigned fail, unsigned zfail, unsigned zpass) {
        get().stencilOp(fail, zfail, zpass);
    }
    static void stencilMask(unsigned mask) { get().stencilMask(mask); }
    static void drawBuffer(unsigned mode) { get().drawBuffer(mode); }
    static void readBuffer(unsigned mode) { get().readBuffer(mode); }
    static void flush() { get().flush(); }
    static void finish() { get().finish(); }
    // Immediate mode.
    static void begin(unsigned mode) { get().begin(mode); }
    static void end() { get().end(); }
    static void vertex2i(int x, int y) { get().vertex2i(x, y); }
    static void vertex2f(float x, float y) { get().vertex2f(x, y); }
    static void vertex2fv(float const* v) { get().vertex2fv(v); }
    static void vertex3f(float x, float y, float z) { get().vertex3f(x, y, z); }
    static void vertex3fv(float const* v) { get().vertex3fv(v); }
    static void normal3f(float x, float y, float z) { get().normal3f(x, y, z); }
    static void texCoord2f(float s, float t) { get().texCoord2f(s, t); }
    static void color3f(float r, float g, float b) { get().color3f(r, g, b); }
    static void color3fv(float const* c) { get().color3fv(c); }
    static void color4f(float r, float g, float b, float a) { get().color4f(r, g, b, a); }
    static void color4fv(float const* c) { get().color4fv(c); }
    static void recti(int x1, int y1, int x2, int y2) { get().recti(x1, y1, x2, y2); }
    static void rectf(float x1, float y1, float x2, float y2) { get().rectf(x1, y1, x2, y2); }
    // Pixels.
    static void rasterPos2f(float x, float y) { get().rasterPos2f(x, y); }
    static void pixelZoom(float x, float y) { get().pixelZoom(x, y); }
    static void drawPixels(int width, int height, unsigned format, unsigned type,
                           void const* data) {
        get().drawPixels(width, height, format, type, data);
    }
    static void readPixels(int x, int y, int width, int height, unsigned format, unsigned type,
                           void* data) {
        get().readPixels(x, y, width, height, format, type, data);
    }
    static void pixelStorei(unsigned pname, int param) { get().pixelStorei(pname, param); }
    static void pixelTransferi(unsigned pname, int param) { get().pixelTransferi(pname, param); }
    static void pixelMapusv(unsigned map, int size, unsigned short const* values) {
        get().pixelMapusv(map, size, values);
    }
    // Queries.
    static void getFloatv(unsigned pname, float* params) { get().getFloatv(pname, params); }
    static void getIntegerv(unsigned pname, int* params) { get().getIntegerv(pname, params); }
    // Lighting.
    static void lightf(unsigned light, unsigned pname, float param) {
        get().lightf(light, pname, param);
    }
    static void lightfv(unsigned light, unsigned pname, float const* params) {
        get().lightfv(light, pname, params);
    }
    static void lightModelfv(unsigned pname, float const* params) {
        get().lightModelfv(pname, params);
    }
    static void materialf(unsigned face, unsigned pname, float param) {
        get().materialf(face, pname, param);
    }
    static void materialfv(unsigned face, unsigned pname, float const* params) {
        get().materialfv(face, pname, params);
    }
    static void colorMaterial(unsigned face, unsigned mode) { get().colorMaterial(face, mode); }
    // Textures.
    static void activeTexture(unsigned unit) { get().activeTexture(unit); }
    static void genTextures(int n, unsigned* textures) { get().genTextures(n, textures); }
    static void deleteTextures(int n, unsigned const* textures) {
        get().deleteTextures(n, textures);
    }
    static void bindTexture(unsigned target, unsigned texture) {
        get().bindTexture(target, texture);
    }
    static void texImage2D(unsigned target, int level, int internalFormat, int width, int height,
                           int border, unsigned format, unsigned type, void const* data) {
        get().texImage2D(target, level, internalFormat, width, height, border, format, type, data);
    }
    static void texSubImage2D(unsigned target, int level, int x, int y, int width, int height,
                              unsigned format, unsigned type, void const* data) {
        get().texSubImage2D(target, level, x, y, width, height, format, type, data);
    }
    static void texParameteri(unsigned target, unsigned pname, int param) {
        get().texParameteri(target, pname, param);
    }
    static void texEnvi(unsigned target, unsigned pname, int param) {
        get().texEnvi(target, pname, param);
    }
    static void texParameterf(unsigned target, unsigned pname, float param) {
        get().texParameterf(target, pname, param);
    }
    static void texEnvfv(unsigned target, unsigned pname, float const* params) {
        get().texEnvfv(target, pname, params);
    }
    static void texCoord2i(int s, int t) { get().texCoord2i(s, t); }
    static void texCoord2fv(float const* v) { get().texCoord2fv(v); }
    static void copyTexSubImage2D(unsigned target, int level, int xoffset, int yoffset, int x,
                                  int y, int width, int height) {
        get().copyTexSubImage2D(target, level, xoffset, yoffset, x, y, width, height);
    }
    static void pixelStoref(unsigned pname, float param) { get().pixelStoref(pname, param); }
    static void pixelTransferf(unsigned pname, float param) { get().pixelTransferf(pname, param); }
    static void color4ub(unsigned char r, unsigned char g, unsigned char b, unsigned char a) {
        get().color4ub(r, g, b, a);
    }
    static void rasterPos2i(int x, int y) { get().rasterPos2i(x, y); }
    static void bitmap(int width, int height, float xorig, float yorig, float xmove, float ymove,
                       unsigned char const* bits) {
        get().bitmap(width, height, xorig, yorig, xmove, ymove, bits);
    }
    static unsigned getError() { return get().getError(); }
    static char const* getString(unsigned name) { return get().getString(name); }

private:
    static SmGlBackend* _backend;
};

// Installs a backend for a scope and restores the previous one at its end.
class SmGlBackendGuard {
public:
    explicit SmGlBackendGuard(SmGlBackend& backend) : _previous(&SmGl::get()) {
        SmGl::setBackend(&backend);
    }
    SmGlBackendGuard(SmGlBackendGuard const&) = delete;
    SmGlBackendGuard& operator=(SmGlBackendGuard const&) = delete;
    ~SmGlBackendGuard() { SmGl::setBackend(_previous); }

private:
    SmGlBackend* _previous;
};

} // namespace Zr
