// The drawing pieces of the standard frames and the inset measure they share.
#include "uiFramePaint.h"

#include "smContext.h"
#include "smGl.h"
#include "uiColorRegistry.h"

#include <algorithm>
#include <utility>

namespace Zr {

UiFrameColors UiFrameColors::fromRegistry() {
    UiColorRegistry const& registry = UiColorRegistry::getInstance();
    UiFrameColors colors;
    colors.dark = registry.getColor(UiColorRegistry::Black);
    colors.mid = registry.getColor(UiColorRegistry::Grey65);
    colors.light = registry.getColor(UiColorRegistry::White);
    colors.shadow = registry.getColor(UiColorRegistry::Grey115);
    colors.toggleOff = registry.getColor(UiColorRegistry::ToggleInactive);
    colors.toggleOn = registry.getColor(UiColorRegistry::ToggleActive);
    colors.radioOff = registry.getColor(UiColorRegistry::RadioInactive);
    colors.radioOn = registry.getColor(UiColorRegistry::RadioActive);
    return colors;
}

UiFrameInset::UiFrameInset(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors)
    : UiFrame(colors.dark), _type(std::move(type)), _insets(insets), _colors(colors) {}

GeRectangle<int> UiFrameInset::getCanvas(GeRectangle<int> const& rect) const {
    if (rect.width() <= _insets.minWidth || rect.height() <= _insets.minHeight)
        return rect;
    GeRectangle<int> canvas{rect.x1 + _insets.left, rect.x2 - _insets.right,
                            rect.y1 + _insets.bottom, rect.y2 - _insets.top};
    // Frames without a minimum may be given less room than they take: keep the canvas empty
    // rather than inverted.
    canvas.x2 = std::max(canvas.x2, canvas.x1);
    canvas.y2 = std::max(canvas.y2, canvas.y1);
    return canvas;
}

CoRgbColor UiFramePaint::highlight(CoRgbColor const& background) {
    bool neutral = background.r == background.g && background.g == background.b;
    return CoUtils::calcLuminance(background, neutral ? 1.79f : 1.4f);
}

void UiFramePaint::vertex(int x, int y) {
    SmGl::vertex2i(x, y);
}

void UiFramePaint::color(CoRgbColor const& c) {
    SmGl::color3fv(c.data());
}

void UiFramePaint::cornerPoints(GeRectangle<int> const& r, CoRgbColor const& c) {
    SmGl::begin(Gl::POINTS);
    color(c);
    vertex(r.x1, r.y1);
    vertex(r.x2 - 1, r.y1);
    vertex(r.x2 - 1, r.y2 - 1);
    vertex(r.x1, r.y2 - 1);
    vertex(r.x1 + 1, r.y1);
    vertex(r.x1, r.y1 + 1);
    vertex(r.x2 - 2, r.y1);
    vertex(r.x2 - 1, r.y1 + 1);
    vertex(r.x2 - 2, r.y2 - 1);
    vertex(r.x2 - 1, r.y2 - 2);
    vertex(r.x1 + 1, r.y2 - 1);
    vertex(r.x1, r.y2 - 2);
    SmGl::end();
}

void UiFramePaint::topCornerPoints(GeRectangle<int> const& r, CoRgbColor const& c) {
    SmGl::begin(Gl::POINTS);
    color(c);
    vertex(r.x2 - 1, r.y2 - 1);
    vertex(r.x1, r.y2 - 1);
    vertex(r.x2 - 2, r.y2 - 1);
    vertex(r.x2 - 1, r.y2 - 2);
    vertex(r.x1 + 1, r.y2 - 1);
    vertex(r.x1, r.y2 - 2);
    SmGl::end();
}

void UiFramePaint::bevelLines(GeRectangle<int> const& r, CoRgbColor const& a, CoRgbColor const& b,
                              CoRgbColor const& c, CoRgbColor const& d, bool noInnerTop) {
    SmGl::begin(Gl::LINES);
    color(a);
    line(r.x1 + 2, r.y2 - 1, r.x2 - 2, r.y2 - 1);
    line(r.x1, r.y1 + 3, r.x1, r.y2 - 2);
    line(r.x2 - 1, r.y1 + 3, r.x2 - 1, r.y2 - 2);
    color(b);
    line(r.x1 + 2, r.y1 + 1, r.x2 - 2, r.y1 + 1);
    if (!noInnerTop) {
        color(c);
        line(r.x1 + 2, r.y2 - 2, r.x2 - 2, r.y2 - 2);
    }
    color(d);
    line(r.x1 + 2, r.y1, r.x2 - 2, r.y1);
    SmGl::end();
}

void UiFramePaint::bevelPoints(GeRectangle<int> const& r, CoRgbColor const& a, CoRgbColor const& b,
                               CoRgbColor const& c, bool noInnerTop) {
    SmGl::begin(Gl::POINTS);
    color(a);
    vertex(r.x1 + 1, r.y2 - 2);
    vertex(r.x2 - 2, r.y2 - 2);
    vertex(r.x1 + 1, r.y1 + 2);
    vertex(r.x2 - 2, r.y1 + 2);
    if (!noInnerTop) {
        color(b);
        vertex(r.x1 + 1, r.y2 - 3);
        vertex(r.x2 - 2, r.y2 - 3);
    }
    color(c);
    vertex(r.x1 + 1, r.y1 + 1);
    vertex(r.x1, r.y1 + 2);
    vertex(r.x2 - 2, r.y1 + 1);
    vertex(r.x2 - 1, r.y1 + 2);
    SmGl::end();
}

void UiFramePaint::bevel(GeRectangle<int> const& r, bool pushedIn, CoRgbColor const& background,
                         CoRgbColor const& cornerColor, UiFrameColors const& colors) {
    CoRgbColor const bright = highlight(background);
    // A sunken bevel exchanges the highlight and the shadow of the raised one.
    CoRgbColor const& up = pushedIn ? colors.shadow : bright;
    CoRgbColor const& down = pushedIn ? bright : colors.shadow;
    cornerPoints(r, cornerColor);
    bevelLines(r, colors.dark, colors.dark, up, down, false);
    bevelPoints(r, down, up, colors.dark, false);
}

void UiFramePaint::strip(GeRectangle<int> const& r, int width, CoRgbColor const& c) {
    CoRgbColor const dim = CoUtils::calcLuminance(c, 0.7f);
    CoRgbColor const bright = CoUtils::calcLuminance(c, 1.3f);
    int const left = r.x2 - width - 1;
    int const quarter = r.height() / 4;
    color(c);
    SmGl::recti(left, r.y1, r.x2, r.y2);

    SmContext* context = SmContext::getCurrentContext();
    unsigned const previous = context->getShadeModel();
    context->setShadeModel(Gl::SMOOTH);
    SmGl::begin(Gl::QUADS);
    color(bright);
    vertex(left, r.y2);
    vertex(r.x2, r.y2);
    color(c);
    vertex(r.x2, r.y2 - quarter);
    vertex(left, r.y2 - quarter);
    color(c);
    vertex(left, r.y1 + quarter);
    vertex(r.x2, r.y1 + quarter);
    color(dim);
    vertex(r.x2, r.y1);
    vertex(left, r.y1);
    SmGl::end();
    context->setShadeModel(previous);
}

void UiFramePaint::edges(GeRectangle<int> const& r, unsigned which, CoRgbColor const& c) {
    SmGl::begin(Gl::LINES);
    color(c);
    if (which & Left)
        line(r.x1, r.y1, r.x1, r.y2);
    if (which & Right)
        line(r.x2 - 1, r.y1, r.x2 - 1, r.y2);
    if (which & Top)
        line(r.x1, r.y2 - 1, r.x2, r.y2 - 1);
    if (which & Bottom)
        line(r.x1, r.y1, r.x2, r.y1);
    SmGl::end();
}

} // namespace Zr
