// The facade's backend switch and the backend that does nothing, installed by default so that
// the toolkit draws into nowhere when there is no display.
#include "smGl.h"

#include <algorithm>

namespace Zr {

int Gl::getValueCount(unsigned pname) {
    switch (pname) {
    case VIEWPORT:
    case SCISSOR_BOX:
    case CURRENT_COLOR:
    case COLOR_CLEAR_VALUE:
        return 4;
    case MODELVIEW_MATRIX:
    case PROJECTION_MATRIX:
        return 16;
    default:
        return 1;
    }
}

SmGlBackend::~SmGlBackend() = default;

namespace {

// Draws nothing. Queries answer zeros and texture names are handed out from a counter, so
// that code reading them back keeps working.
class SmGlNoOpBackend : public SmGlBackend {
public:
    void enable(unsigned) override {}
    void disable(unsigned) override {}
    void blendFunc(unsigned, unsigned) override {}
    void blendEquation(unsigned) override {}
    void blendColor(float, float, float, float) override {}
    void shadeModel(unsigned) override {}
    void cullFace(unsigned) override {}
    void depthFunc(unsigned) override {}
    void depthMask(bool) override {}
    void colorMask(bool, bool, bool, bool) override {}
    void hint(unsigned, unsigned) override {}
    void lineStipple(int, unsigned short) override {}
    void lineWidth(float) override {}
    void pointSize(float) override {}
    void polygonMode(unsigned, unsigned) override {}
    void alphaFunc(unsigned, float) override {}
    void pushAttrib(unsigned) override {}
    void popAttrib() override {}
    void scissor(int, int, int, int) override {}
    void viewport(int, int, int, int) override {}
    void matrixMode(unsigned) override {}
    void loadIdentity() override {}
    void loadMatrixf(float const*) override {}
    void multMatrixf(float const*) override {}
    void ortho(double, double, double, double, double, double) override {}
    void pushMatrix() override {}
    void popMatrix() override {}
    void translatef(float, float, float) override {}
    void rotatef(float, float, float, float) override {}
    void scalef(float, float, float) override {}
    void clearColor(float, float, float, float) override {}
    void clear(unsigned) override {}
    void clearStencil(int) override {}
    void stencilFunc(unsigned, int, unsigned) override {}
    void stencilOp(unsigned, unsigned, unsigned) override {}
    void stencilMask(unsigned) override {}
    void drawBuffer(unsigned) override {}
    void readBuffer(unsigned) override {}
    void flush() override {}
    void finish() override {}
    void begin(unsigned) override {}
    void end() override {}
    void vertex2i(int, int) override {}
    void vertex2f(float, float) override {}
    void vertex2fv(float const*) override {}
    void vertex3f(float, float, float) override {}
    void vertex3fv(float const*) override {}
    void normal3f(float, float, float) override {}
    void texCoord2f(float, float) override {}
    void color3f(float, float, float) override {}
    void color3fv(float const*) override {}
    void color4f(float, float, float, float) override {}
    void color4fv(float const*) override {}
    void recti(int, int, int, int) override {}
    void rectf(float, float, float, float) override {}
    void rasterPos2f(float, float) override {}
    void pixelZoom(float, float) override {}
    void drawPixels(int, int, unsigned, unsigned, void const*) override {}
    void readPixels(int, int, int, int, unsigned, unsigned, void*) override {}
    void pixelStorei(unsigned, int) override {}
    void pixelTransferi(unsigned, int) override {}
    void pixelMapusv(unsigned, int, unsigned short const*) override {}
    void getFloatv(unsigned pname, float* params) override;
    void getIntegerv(unsigned pname, int* params) override;
    void lightf(unsigned, unsigned, float) override {}
    void lightfv(unsigned, unsigned, float const*) override {}
    void lightModelfv(unsigned, float const*) override {}
    void materialf(unsigned, unsigned, float) override {}
    void materialfv(unsigned, unsigned, float const*) override {}
    void colorMaterial(unsigned, unsigned) override {}
    void activeTexture(unsigned) override {}
    void genTextures(int n, unsigned* textures) override;
    void deleteTextures(int, unsigned const*) override {}
    void bindTexture(unsigned, unsigned) override {}
    void texImage2D(unsigned, int, int, int, int, int, unsigned, unsigned, void const*) override {}
    void texSubImage2D(unsigned, int, int, int, int, int, unsigned, unsigned,
                       void const*) override {}
    void texParameteri(unsigned, unsigned, int) override {}
    void texEnvi(unsigned, unsigned, int) override {}

private:
    unsigned _lastTexture = 0;
};

void SmGlNoOpBackend::genTextures(int n, unsigned* textures) {
    for (int i = 0; i < n; ++i)
        textures[i] = ++_lastTexture;
}

void SmGlNoOpBackend::getFloatv(unsigned pname, float* params) {
    std::fill_n(params, Gl::getValueCount(pname), 0.f);
}

void SmGlNoOpBackend::getIntegerv(unsigned pname, int* params) {
    std::fill_n(params, Gl::getValueCount(pname), 0);
}

SmGlNoOpBackend noOpBackend;

} // namespace

SmGlBackend* SmGl::_backend = &noOpBackend;

void SmGl::setBackend(SmGlBackend* backend) {
    _backend = backend ? backend : &noOpBackend;
}

bool SmGl::isNoOpBackend() {
    return _backend == &noOpBackend;
}

} // namespace Zr
