// The OpenGL backend: one line per call. The calls beyond OpenGL 1.1 (blend colour and
// equation, texture units) come from SDL_GL_GetProcAddress, as libGL need not export them.
#include "smGlOpenGl.h"

#include <GL/gl.h>
#include <SDL.h>

namespace Zr {

namespace {
GLboolean glBool(bool b) {
    return b ? GL_TRUE : GL_FALSE;
}
} // namespace

void SmGlOpenGl::loadExtensions() {
    if (_extensionsLoaded)
        return;
    _extensionsLoaded = true;
    // GL's calling convention is the C one on the platforms SDL's x11 driver serves.
    _blendColor = reinterpret_cast<BlendColorFn>(SDL_GL_GetProcAddress("glBlendColor"));
    _blendEquation = reinterpret_cast<EnumFn>(SDL_GL_GetProcAddress("glBlendEquation"));
    _activeTexture = reinterpret_cast<EnumFn>(SDL_GL_GetProcAddress("glActiveTexture"));
}

void SmGlOpenGl::enable(unsigned cap) {
    glEnable(cap);
}
void SmGlOpenGl::disable(unsigned cap) {
    glDisable(cap);
}
void SmGlOpenGl::blendFunc(unsigned src, unsigned dst) {
    glBlendFunc(src, dst);
}

void SmGlOpenGl::blendEquation(unsigned mode) {
    loadExtensions();
    if (_blendEquation)
        _blendEquation(mode);
}

void SmGlOpenGl::blendColor(float r, float g, float b, float a) {
    loadExtensions();
    if (_blendColor)
        _blendColor(r, g, b, a);
}

void SmGlOpenGl::shadeModel(unsigned mode) {
    glShadeModel(mode);
}
void SmGlOpenGl::cullFace(unsigned mode) {
    glCullFace(mode);
}
void SmGlOpenGl::depthFunc(unsigned func) {
    glDepthFunc(func);
}
void SmGlOpenGl::depthMask(bool flag) {
    glDepthMask(glBool(flag));
}
void SmGlOpenGl::colorMask(bool r, bool g, bool b, bool a) {
    glColorMask(glBool(r), glBool(g), glBool(b), glBool(a));
}
void SmGlOpenGl::hint(unsigned target, unsigned mode) {
    glHint(target, mode);
}
void SmGlOpenGl::lineStipple(int factor, unsigned short pattern) {
    glLineStipple(factor, pattern);
}
void SmGlOpenGl::lineWidth(float width) {
    glLineWidth(width);
}
void SmGlOpenGl::pointSize(float size) {
    glPointSize(size);
}
void SmGlOpenGl::polygonMode(unsigned face, unsigned mode) {
    glPolygonMode(face, mode);
}
void SmGlOpenGl::alphaFunc(unsigned func, float ref) {
    glAlphaFunc(func, ref);
}
void SmGlOpenGl::pushAttrib(unsigned mask) {
    glPushAttrib(mask);
}
void SmGlOpenGl::popAttrib() {
    glPopAttrib();
}

void SmGlOpenGl::scissor(int x, int y, int width, int height) {
    glScissor(x, y, width, height);
}
void SmGlOpenGl::viewport(int x, int y, int width, int height) {
    glViewport(x, y, width, height);
}
void SmGlOpenGl::matrixMode(unsigned mode) {
    glMatrixMode(mode);
}
void SmGlOpenGl::loadIdentity() {
    glLoadIdentity();
}
void SmGlOpenGl::loadMatrixf(float const* m) {
    glLoadMatrixf(m);
}
void SmGlOpenGl::multMatrixf(float const* m) {
    glMultMatrixf(m);
}
void SmGlOpenGl::ortho(double left, double right, double bottom, double top, double zNear,
                       double zFar) {
    glOrtho(left, right, bottom, top, zNear, zFar);
}
void SmGlOpenGl::pushMatrix() {
    glPushMatrix();
}
void SmGlOpenGl::popMatrix() {
    glPopMatrix();
}
void SmGlOpenGl::translatef(float x, float y, float z) {
    glTranslatef(x, y, z);
}
void SmGlOpenGl::rotatef(float angle, float x, float y, float z) {
    glRotatef(angle, x, y, z);
}
void SmGlOpenGl::scalef(float x, float y, float z) {
    glScalef(x, y, z);
}

void SmGlOpenGl::clearColor(float r, float g, float b, float a) {
    glClearColor(r, g, b, a);
}
void SmGlOpenGl::clear(unsigned mask) {
    glClear(mask);
}
void SmGlOpenGl::clearStencil(int s) {
    glClearStencil(s);
}
void SmGlOpenGl::stencilFunc(unsigned func, int ref, unsigned mask) {
    glStencilFunc(func, ref, mask);
}
void SmGlOpenGl::stencilOp(unsigned fail, unsigned zfail, unsigned zpass) {
    glStencilOp(fail, zfail, zpass);
}
void SmGlOpenGl::stencilMask(unsigned mask) {
    glStencilMask(mask);
}
void SmGlOpenGl::drawBuffer(unsigned mode) {
    glDrawBuffer(mode);
}
void SmGlOpenGl::readBuffer(unsigned mode) {
    glReadBuffer(mode);
}
void SmGlOpenGl::flush() {
    glFlush();
}
void SmGlOpenGl::finish() {
    glFinish();
}

void SmGlOpenGl::begin(unsigned mode) {
    glBegin(mode);
}
void SmGlOpenGl::end() {
    glEnd();
}
void SmGlOpenGl::vertex2i(int x, int y) {
    glVertex2i(x, y);
}
void SmGlOpenGl::vertex2f(float x, float y) {
    glVertex2f(x, y);
}
void SmGlOpenGl::vertex2fv(float const* v) {
    glVertex2fv(v);
}
void SmGlOpenGl::vertex3f(float x, float y, float z) {
    glVertex3f(x, y, z);
}
void SmGlOpenGl::vertex3fv(float const* v) {
    glVertex3fv(v);
}
void SmGlOpenGl::normal3f(float x, float y, float z) {
    glNormal3f(x, y, z);
}
void SmGlOpenGl::texCoord2f(float s, float t) {
    glTexCoord2f(s, t);
}
void SmGlOpenGl::color3f(float r, float g, float b) {
    glColor3f(r, g, b);
}
void SmGlOpenGl::color3fv(float const* c) {
    glColor3fv(c);
}
void SmGlOpenGl::color4f(float r, float g, float b, float a) {
    glColor4f(r, g, b, a);
}
void SmGlOpenGl::color4fv(float const* c) {
    glColor4fv(c);
}
void SmGlOpenGl::recti(int x1, int y1, int x2, int y2) {
    glRecti(x1, y1, x2, y2);
}
void SmGlOpenGl::rectf(float x1, float y1, float x2, float y2) {
    glRectf(x1, y1, x2, y2);
}

void SmGlOpenGl::rasterPos2f(float x, float y) {
    glRasterPos2f(x, y);
}
void SmGlOpenGl::pixelZoom(float x, float y) {
    glPixelZoom(x, y);
}
void SmGlOpenGl::drawPixels(int width, int height, unsigned format, unsigned type,
                            void const* data) {
    glDrawPixels(width, height, format, type, data);
}
void SmGlOpenGl::readPixels(int x, int y, int width, int height, unsigned format, unsigned type,
                            void* data) {
    glReadPixels(x, y, width, height, format, type, data);
}
void SmGlOpenGl::pixelStorei(unsigned pname, int param) {
    glPixelStorei(pname, param);
}
void SmGlOpenGl::pixelTransferi(unsigned pname, int param) {
    glPixelTransferi(pname, param);
}
void SmGlOpenGl::pixelMapusv(unsigned map, int size, unsigned short const* values) {
    glPixelMapusv(map, size, values);
}

void SmGlOpenGl::getFloatv(unsigned pname, float* params) {
    glGetFloatv(pname, params);
}
void SmGlOpenGl::getIntegerv(unsigned pname, int* params) {
    glGetIntegerv(pname, params);
}

void SmGlOpenGl::lightf(unsigned light, unsigned pname, float param) {
    glLightf(light, pname, param);
}
void SmGlOpenGl::lightfv(unsigned light, unsigned pname, float const* params) {
    glLightfv(light, pname, params);
}
void SmGlOpenGl::lightModelfv(unsigned pname, float const* params) {
    glLightModelfv(pname, params);
}
void SmGlOpenGl::materialf(unsigned face, unsigned pname, float param) {
    glMaterialf(face, pname, param);
}
void SmGlOpenGl::materialfv(unsigned face, unsigned pname, float const* params) {
    glMaterialfv(face, pname, params);
}
void SmGlOpenGl::colorMaterial(unsigned face, unsigned mode) {
    glColorMaterial(face, mode);
}

void SmGlOpenGl::activeTexture(unsigned unit) {
    loadExtensions();
    if (_activeTexture)
        _activeTexture(unit);
}
void SmGlOpenGl::genTextures(int n, unsigned* textures) {
    glGenTextures(n, textures);
}
void SmGlOpenGl::deleteTextures(int n, unsigned const* textures) {
    glDeleteTextures(n, textures);
}
void SmGlOpenGl::bindTexture(unsigned target, unsigned texture) {
    glBindTexture(target, texture);
}
void SmGlOpenGl::texImage2D(unsigned target, int level, int internalFormat, int width, int height,
                            int border, unsigned format, unsigned type, void const* data) {
    glTexImage2D(target, level, internalFormat, width, height, border, format, type, data);
}
void SmGlOpenGl::texSubImage2D(unsigned target, int level, int x, int y, int width, int height,
                               unsigned format, unsigned type, void const* data) {
    glTexSubImage2D(target, level, x, y, width, height, format, type, data);
}
void SmGlOpenGl::texParameteri(unsigned target, unsigned pname, int param) {
    glTexParameteri(target, pname, param);
}
void SmGlOpenGl::texEnvi(unsigned target, unsigned pname, int param) {
    glTexEnvi(target, pname, param);
}
void SmGlOpenGl::texParameterf(unsigned target, unsigned pname, float param) {
    glTexParameterf(target, pname, param);
}
void SmGlOpenGl::texEnvfv(unsigned target, unsigned pname, float const* params) {
    glTexEnvfv(target, pname, params);
}
void SmGlOpenGl::texCoord2i(int s, int t) {
    glTexCoord2i(s, t);
}
void SmGlOpenGl::texCoord2fv(float const* v) {
    glTexCoord2fv(v);
}
void SmGlOpenGl::copyTexSubImage2D(unsigned target, int level, int xoffset, int yoffset, int x,
                                   int y, int width, int height) {
    glCopyTexSubImage2D(target, level, xoffset, yoffset, x, y, width, height);
}
void SmGlOpenGl::pixelStoref(unsigned pname, float param) {
    glPixelStoref(pname, param);
}
void SmGlOpenGl::pixelTransferf(unsigned pname, float param) {
    glPixelTransferf(pname, param);
}
void SmGlOpenGl::color4ub(unsigned char r, unsigned char g, unsigned char b, unsigned char a) {
    glColor4ub(r, g, b, a);
}
void SmGlOpenGl::rasterPos2i(int x, int y) {
    glRasterPos2i(x, y);
}
void SmGlOpenGl::bitmap(int width, int height, float xorig, float yorig, float xmove, float ymove,
                        unsigned char const* bits) {
    glBitmap(width, height, xorig, yorig, xmove, ymove, bits);
}
unsigned SmGlOpenGl::getError() {
    return glGetError();
}
char const* SmGlOpenGl::getString(unsigned name) {
    auto const* text = glGetString(name);
    return text ? reinterpret_cast<char const*>(text) : "";
}

} // namespace Zr
