// UiWindowImp and the per-redraw OpenGL states of a window, with the stencil overdraw view.
#include "uiWindowImp.h"

#include "uiWindow.h"

#include "msgProtocol.h"
#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"
#include "wsDrawable.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Zr {

namespace {

// OpenGL enumerants of the pixel path that the facade doesn't name; values as in gl.h.
constexpr unsigned PIXEL_MAP_I_TO_R = 0x0C72, PIXEL_MAP_I_TO_G = 0x0C73, PIXEL_MAP_I_TO_B = 0x0C74,
                   PIXEL_MAP_I_TO_A = 0x0C75, COLOR_INDEX = 0x1900;

// Fewer stencil bits than this can't count overdraw usefully.
constexpr int MinStencilBits = 4;

// -1 until the visual's stencil bits have been checked, then 0 (too few) or 1.
int stencilBitsChecked = -1;

std::array<UiWindowExitState::PixelMap, 4> heatMapTables{};
bool heatMapBuilt = false;

void warnStencilBits(int bits) {
    char text[64];
    std::snprintf(text, sizeof text, "Not enough stencil bits (%d) in visual.", bits);
    MsgProtocol::display(MsgWarning(text));
}

} // namespace

// --- UiWindowImp ----------------------------------------------------------------------------

UiWindowImp::UiWindowImp(UiWindow* window)
    : _hotkeyHandler(this, &UiWindowImp::onHotkey), _window(window),
      _resizeHandler(this, &UiWindowImp::onResize), _exposeHandler(this, &UiWindowImp::onExpose),
      _redrawHandler(this, &UiWindowImp::onRedraw) {}

UiWindowImp::~UiWindowImp() = default;

int UiWindowImp::StencilHotkeyEntry = -1;

void UiWindowImp::onHotkey(EvEvent& event) {
    auto* hotkey = dynamic_cast<EvHotkeyEvent*>(&event);
    if (!hotkey || StencilHotkeyEntry < 0 || hotkey->getEntry() != StencilHotkeyEntry)
        return;
    stepStencilMode();
    hotkey->setProcessed();
}

void UiWindowImp::stepStencilMode() {
    int next = (_stencilMode + 1) % 3;
    if (_stencilMode == 0 && !UiWindowInitState::checkStencilBits())
        next = 0;
    _stencilMode = next;
    _window->markForUpdate();
}

void UiWindowImp::onResize(GeRectangle<int> const& rect) {
    _window->UiContainer::setRect(rect, true);
}

void UiWindowImp::onExpose(GeRectangle<int> const& rect) {
    // The system speaks window coordinates; marks are kept in those of the window's rectangle.
    GeRectangle<int> const& own = _window->getRect();
    _window->markRegion(rect.translated(own.x1, own.y1));
}

void UiWindowImp::onRedraw() {
    _window->redraw();
}

// --- UiWindowInitState ----------------------------------------------------------------------

bool UiWindowInitState::checkStencilBits() {
    if (stencilBitsChecked < 0) {
        int bits = WsDrawable::getPixelFormat().stencilBits;
        stencilBitsChecked = bits >= MinStencilBits ? 1 : 0;
        if (!stencilBitsChecked)
            warnStencilBits(bits);
    }
    return stencilBitsChecked == 1;
}

void UiWindowInitState::resetStencilCheck() {
    stencilBitsChecked = -1;
}

void UiWindowInitState::apply() const {
    int w = _rect.width();
    int h = _rect.height();
    SmGl::viewport(0, 0, w, h);
    SmGl::matrixMode(Gl::PROJECTION);
    SmGl::loadIdentity();
    double m = std::max(w, h);
    SmGl::ortho(0, w, 0, h, -m, m);
    SmGl::matrixMode(Gl::MODELVIEW);
    SmGl::loadIdentity();
    // The usual offset that puts integer coordinates on pixel centres.
    SmGl::translatef(0.375f, 0.375f, 0.0f);
    if (_stencilMode == 0) {
        SmGl::stencilMask(0);
        return;
    }
    if (stencilBitsChecked < 0) {
        int bits = 0;
        SmGl::getIntegerv(Gl::STENCIL_BITS, &bits);
        stencilBitsChecked = bits >= MinStencilBits ? 1 : 0;
        if (!stencilBitsChecked)
            warnStencilBits(bits);
    }
    SmGl::stencilMask(~0u);
    SmGl::scissor(0, 0, w, h);
    SmGl::clearStencil(0);
    SmGl::clear(Gl::STENCIL_BUFFER_BIT);
    SmGl::stencilFunc(Gl::ALWAYS, 0, ~0u);
    SmGl::stencilOp(Gl::INCR, Gl::INCR, Gl::INCR);
    static SmStateObject const counting = SmStateObject().enable(Gl::STENCIL_TEST);
    SmContext::getCurrentContext()->applyStateObject(counting);
}

// --- UiWindowExitState ----------------------------------------------------------------------

void UiWindowExitState::buildHeatMapTables() {
    // Colour of a pixel drawn n times, for n from 0 to 20; from 21 on it is white.
    static unsigned char const heat[21][3] = {
        {0, 0, 0},      {85, 0, 78},    {96, 25, 137},  {0, 0, 158},     {16, 74, 182},
        {9, 114, 145},  {24, 167, 138}, {0, 197, 102},  {60, 220, 4},    {167, 240, 118},
        {194, 222, 96}, {222, 255, 0},  {249, 240, 4},  {253, 255, 114}, {254, 206, 78},
        {243, 156, 4},  {255, 140, 27}, {255, 109, 51}, {255, 0, 0},     {255, 96, 99},
        {255, 196, 197}};
    for (int n = 0; n < 256; ++n) {
        for (int c = 0; c < 3; ++c) {
            unsigned value = n < 21 ? heat[n][c] : 255u;
            heatMapTables[c][n] = static_cast<unsigned short>(value << 8);
        }
        heatMapTables[3][n] = static_cast<unsigned short>(255u << 8);
    }
    heatMapBuilt = true;
}

std::array<UiWindowExitState::PixelMap, 4> const& UiWindowExitState::getHeatMapTables() {
    if (!heatMapBuilt)
        buildHeatMapTables();
    return heatMapTables;
}

void UiWindowExitState::apply() const {
    if (_stencilMode == 0)
        return;
    if (_stencilMode != 1 && _stencilMode != 2)
        ZR_ABORT("Unknown stencil mode");
    int w = _rect.width() & ~7;
    int h = _rect.height() & ~7;
    // Through the context's cache, so that the widgets' next states are sent as they must be.
    static SmStateObject const plain = SmStateObject()
                                           .disable(Gl::STENCIL_TEST)
                                           .disable(Gl::BLEND)
                                           .disable(Gl::DITHER)
                                           .enable(Gl::SCISSOR_TEST);
    SmContext::getCurrentContext()->applyStateObject(plain);
    SmGl::scissor(0, 0, _rect.width(), _rect.height());
    if (w <= 0 || h <= 0)
        return;
    std::vector<unsigned char> counts(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    SmGl::pixelStorei(Gl::PACK_ALIGNMENT, 8);
    SmGl::readPixels(0, 0, w, h, Gl::STENCIL_INDEX, Gl::UNSIGNED_BYTE, counts.data());
    auto const& tables = getHeatMapTables();
    SmGl::pixelMapusv(PIXEL_MAP_I_TO_R, 256, tables[0].data());
    SmGl::pixelMapusv(PIXEL_MAP_I_TO_G, 256, tables[1].data());
    SmGl::pixelMapusv(PIXEL_MAP_I_TO_B, 256, tables[2].data());
    SmGl::pixelMapusv(PIXEL_MAP_I_TO_A, 256, tables[3].data());
    SmGl::pixelTransferi(Gl::MAP_COLOR, 1);
    SmGl::rasterPos2f(0, 0);
    SmGl::pixelZoom(1, 1);
    SmGl::drawPixels(w, h, COLOR_INDEX, Gl::UNSIGNED_BYTE, counts.data());
    SmGl::pixelTransferi(Gl::MAP_COLOR, 0);
}

} // namespace Zr
