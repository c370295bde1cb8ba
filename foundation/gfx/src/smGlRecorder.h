// SmGlRecorder: an OpenGL backend for tests. It counts every call by name, keeps a log of the
// calls with their arguments, and follows enough state to tell what was painted where.
#pragma once

#include "coRgbColor.h"
#include "gePoint2.h"
#include "geRectangle.h"
#include "smGl.h"

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Zr {

// A rectangle filled by recti/rectf or by a clear of the colour buffer, in window pixels:
// after the translation, within the scissor box when the scissor test is on.
struct SmGlPaintedRect {
    GeRectangle<int> rect;
    CoRgbaColorTyped<float> color;
    bool isClear = false;
};

class SmGlRecorder : public SmGlBackend {
public:
    SmGlRecorder() = default;

    // How often `name` (the call without "gl", such as "enable") was made since the last
    // clearLog.
    int getCount(std::string const& name) const;
    int getTotalCount() const { return _total; }
    // One entry per call, such as "enable(0x0C11)" or "recti(0, 0, 10, 20)": enumerants and
    // masks in hexadecimal, other integers in decimal.
    std::vector<std::string> const& getLog() const { return _log; }
    std::vector<SmGlPaintedRect> const& getPaintedRects() const { return _painted; }
    // Forgets the counts, the log and the painted rectangles; the state stays.
    void clearLog();

    bool isEnabled(unsigned cap) const { return _enabled.count(cap) != 0; }
    CoRgbaColorTyped<float> const& getColor() const { return _color; }
    CoRgbaColorTyped<float> const& getClearColor() const { return _clearColor; }
    GeRectangle<int> const& getScissorBox() const { return _scissorBox; }
    GeRectangle<int> const& getViewport() const { return _viewport; }
    // The model-view translation; rotations, scales and loaded matrices are not followed.
    GeVector2<float> const& getTranslation() const { return _translation; }
    int getMatrixDepth() const { return static_cast<int>(_translationStack.size()); }

    // Capabilities and fixed state.
    void enable(unsigned cap) override;
    void disable(unsigned cap) override;
    void blendFunc(unsigned src, unsigned dst) override;
    void blendEquation(unsigned mode) override;
    void blendColor(float r, float g, float b, float a) override;
    void shadeModel(unsigned mode) override;
    void cullFace(unsigned mode) override;
    void depthFunc(unsigned func) override;
    void depthMask(bool flag) override;
    void colorMask(bool r, bool g, bool b, bool a) override;
    void hint(unsigned target, unsigned mode) override;
    void lineStipple(int factor, unsigned short pattern) override;
    void lineWidth(float width) override;
    void pointSize(float size) override;
    void polygonMode(unsigned face, unsigned mode) override;
    void alphaFunc(unsigned func, float ref) override;
    void pushAttrib(unsigned mask) override;
    void popAttrib() override;
    // Viewport, scissor and matrices.
    void scissor(int x, int y, int width, int height) override;
    void viewport(int x, int y, int width, int height) override;
    void matrixMode(unsigned mode) override;
    void loadIdentity() override;
    void loadMatrixf(float const* m) override;
    void multMatrixf(float const* m) override;
    void ortho(double left, double right, double bottom, double top, double zNear,
               double zFar) override;
    void pushMatrix() override;
    void popMatrix() override;
    void translatef(float x, float y, float z) override;
    void rotatef(float angle, float x, float y, float z) override;
    void scalef(float x, float y, float z) override;
    // Buffers and stencil.
    void clearColor(float r, float g, float b, float a) override;
    void clear(unsigned mask) override;
    void clearStencil(int s) override;
    void stencilFunc(unsigned func, int ref, unsigned mask) override;
    void stencilOp(unsigned fail, unsigned zfail, unsigned zpass) override;
    void stencilMask(unsigned mask) override;
    void drawBuffer(unsigned mode) override;
    void readBuffer(unsigned mode) override;
    void flush() override;
    void finish() override;
    // Immediate mode.
    void begin(unsigned mode) override;
    void end() override;
    void vertex2i(int x, int y) override;
    void vertex2f(float x, float y) override;
    void vertex2fv(float const* v) override;
    void vertex3f(float x, float y, float z) override;
    void vertex3fv(float const* v) override;
    void normal3f(float x, float y, float z) override;
    void texCoord2f(float s, float t) override;
    void color3f(float r, float g, float b) override;
    void color3fv(float const* c) override;
    void color4f(float r, float g, float b, float a) override;
    void color4fv(float const* c) override;
    void recti(int x1, int y1, int x2, int y2) override;
    void rectf(float x1, float y1, float x2, float y2) override;
    // Pixels.
    void rasterPos2f(float x, float y) override;
    void pixelZoom(float x, float y) override;
    void drawPixels(int width, int height, unsigned format, unsigned type,
                    void const* data) override;
    void readPixels(int x, int y, int width, int height, unsigned format, unsigned type,
                    void* data) override;
    void pixelStorei(unsigned pname, int param) override;
    void pixelTransferi(unsigned pname, int param) override;
    void pixelMapusv(unsigned map, int size, unsigned short const* values) override;
    // Queries.
    void getFloatv(unsigned pname, float* params) override;
    void getIntegerv(unsigned pname, int* params) override;
    // Lighting.
    void lightf(unsigned light, unsigned pname, float param) override;
    void lightfv(unsigned light, unsigned pname, float const* params) override;
    void lightModelfv(unsigned pname, float const* params) override;
    void materialf(unsigned face, unsigned pname, float param) override;
    void materialfv(unsigned face, unsigned pname, float const* params) override;
    void colorMaterial(unsigned face, unsigned mode) override;
    // Textures.
    void activeTexture(unsigned unit) override;
    void genTextures(int n, unsigned* textures) override;
    void deleteTextures(int n, unsigned const* textures) override;
    void bindTexture(unsigned target, unsigned texture) override;
    void texImage2D(unsigned target, int level, int internalFormat, int width, int height,
                    int border, unsigned format, unsigned type, void const* data) override;
    void texSubImage2D(unsigned target, int level, int x, int y, int width, int height,
                       unsigned format, unsigned type, void const* data) override;
    void texParameteri(unsigned target, unsigned pname, int param) override;
    void texEnvi(unsigned target, unsigned pname, int param) override;
    void texParameterf(unsigned target, unsigned pname, float param) override;
    void texEnvfv(unsigned target, unsigned pname, float const* params) override;
    void texCoord2i(int s, int t) override;
    void texCoord2fv(float const* v) override;
    void copyTexSubImage2D(unsigned target, int level, int xoffset, int yoffset, int x, int y,
                           int width, int height) override;
    void pixelStoref(unsigned pname, float param) override;
    void pixelTransferf(unsigned pname, float param) override;
    void color4ub(unsigned char r, unsigned char g, unsigned char b, unsigned char a) override;
    void rasterPos2i(int x, int y) override;
    void bitmap(int width, int height, float xorig, float yorig, float xmove, float ymove,
                unsigned char const* bits) override;
    unsigned getError() override;
    char const* getString(unsigned name) override;

private:
    void record(char const* name, std::initializer_list<std::string> args);
    void paintRect(float x1, float y1, float x2, float y2);
    void paint(GeRectangle<int> const& rect, CoRgbaColorTyped<float> const& color, bool isClear);
    static std::string toText(int v);
    static std::string toText(unsigned v);
    static std::string toText(unsigned short v);
    static std::string toText(float v);
    static std::string toText(double v);
    static std::string toText(bool v);
    static std::string formatPointer(void const* p);
    template <class T>
    static std::string formatArray(T const* values, int count);
    static int lightValueCount(unsigned pname);

    std::unordered_map<std::string, int> _counts;
    int _total = 0;
    std::vector<std::string> _log;
    std::vector<SmGlPaintedRect> _painted;
    std::set<unsigned> _enabled;
    CoRgbaColorTyped<float> _color{1.f, 1.f, 1.f, 1.f};
    CoRgbaColorTyped<float> _clearColor{0.f, 0.f, 0.f, 0.f};
    GeRectangle<int> _scissorBox;
    GeRectangle<int> _viewport;
    unsigned _matrixMode = Gl::MODELVIEW;
    GeVector2<float> _translation;
    std::vector<GeVector2<float>> _translationStack;
    float _lineWidth = 1.f;
    unsigned _lastTexture = 0;
};

} // namespace Zr
