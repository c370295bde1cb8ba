// SmGlOpenGl: the OpenGL backend of the facade. Every call goes to the OpenGL function of the
// same name in the context current on the calling thread.
#pragma once

#include "smGl.h"

namespace Zr {

class SmGlOpenGl : public SmGlBackend {
public:
    SmGlOpenGl() = default;

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
    // The entry points beyond OpenGL 1.1, looked up on first use in a current context.
    using BlendColorFn = void (*)(float, float, float, float);
    using EnumFn = void (*)(unsigned);
    void loadExtensions();
    bool _extensionsLoaded = false;
    BlendColorFn _blendColor = nullptr;
    EnumFn _blendEquation = nullptr;
    EnumFn _activeTexture = nullptr;
};

} // namespace Zr
