// UiWidget's draw path: expose, one draw cycle per marked rectangle (state, scissor,
// translation, background, user draw callbacks, frame), the shared draw states and the shaded
// backgrounds.
#include "uiWidget.h"

#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"
#include "uiFrame.h"
#include "uiWidgetImp.h"
#include "uiWindow.h"

namespace Zr {

namespace {

struct DrawStates {
    SmStateObject opaque;
    SmStateObject blended;
};

UPtr<DrawStates>& drawStates() {
    static UPtr<DrawStates> states;
    return states;
}

DrawStates const& sharedDrawStates() {
    if (!drawStates())
        UiWidget::initDrawStates();
    return *drawStates();
}

bool isTranslucent(float opacity) {
    return opacity != 1.0f && opacity != 0.0f;
}

} // namespace

void UiWidget::initDrawStates() {
    auto states = std::make_unique<DrawStates>();
    states->opaque.enable(Gl::SCISSOR_TEST).disable(Gl::DITHER);
    states->blended.enable(Gl::SCISSOR_TEST)
        .enable(Gl::BLEND)
        .disable(Gl::DITHER)
        .blendFunc(Gl::CONSTANT_ALPHA, Gl::ONE_MINUS_CONSTANT_ALPHA)
        .blendEquation(Gl::FUNC_ADD);
    drawStates() = std::move(states);
}

SmStateObject const& UiWidget::getDrawState(int selection, float opacity) {
    DrawStates const& states = sharedDrawStates();
    switch (selection) {
    case DrawStateByOpacity:
        return isTranslucent(opacity) ? states.blended : states.opaque;
    case DrawStateOpaque:
        return states.opaque;
    case DrawStateBlended:
        return states.blended;
    default:
        ZR_ABORT("UiWidget::getDrawState: unknown draw state selection");
    }
}

SmStateObject const& UiWidget::getDrawState(int selection) const {
    return getDrawState(selection, _opacity);
}

void UiWidget::expose(GeRectangle<int> const& clip, GePoint2<int> const& origin) {
    performExpose(clip, origin, 0);
}

void UiWidget::performExpose(GeRectangle<int> const& clip, GePoint2<int> const& origin,
                             int visibility) {
    if (!_imp->_displayed || !_imp->_mapped)
        return;
    GeRectangle<int> region = _rect.translated(origin.x, origin.y).intersection(clip);
    if (region.isEmpty())
        return;

    // Callbacks may add marks while we draw: the rectangles to draw are taken first. A widget
    // has a mark or two, so they usually fit on the stack and the draw allocates nothing.
    constexpr std::size_t Inline = 8;
    GeRectangle<int> inlineRects[Inline];
    std::vector<GeRectangle<int>> spilled;
    std::size_t count = 0;
    GeRectangle<int> united;
    for (UiMarkedRect const& m : _imp->_marks) {
        if (m.getState() == UiMarkedRect::InsideDrawnOnce)
            continue;
        GeRectangle<int> r = m.getRect().translated(origin.x, origin.y).intersection(region);
        if (r.isEmpty())
            continue;
        united = united.united(r);
        if (count < Inline)
            inlineRects[count] = r;
        else
            spilled.push_back(r);
        ++count;
    }
    if (_imp->_drawCollapsing && count > 0) {
        // Re-marked as one, so that the other buffer is repainted as one rectangle too.
        if (count > 1)
            markRegion(united.translated(-origin.x, -origin.y));
        draw(united, origin, visibility);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            draw(i < Inline ? inlineRects[i] : spilled[i - Inline], origin, visibility);
    }
    _imp->_marks.updateTransition();
}

void UiWidget::draw(GeRectangle<int> const& region, GePoint2<int> const& origin, int visibility) {
    preDraw(region, origin, visibility);
    if (visibility == 0) {
        preUserDraw(region, origin);
        EvDrawEvent event(origin, region);
        event.setSender(this);
        _imp->fire(UiWidgetImp::UserDraw, event);
        postUserDraw(region, origin);
    }
    postDraw(origin);
}

void UiWidget::preDraw(GeRectangle<int> const& r, GePoint2<int> const& origin, int visibility) {
    SmContext* context = SmContext::getCurrentContext();
    if (isTranslucent(_opacity)) {
        context->applyStateObject(getDrawState(DrawStateBlended));
        SmGl::blendColor(0.0f, 0.0f, 0.0f, _opacity);
    } else {
        context->applyStateObject(getDrawState(DrawStateOpaque));
    }
    SmGl::scissor(r.x1, r.y1, r.width(), r.height());
    SmGl::translatef(static_cast<float>(origin.x), static_cast<float>(origin.y), 0.0f);
    if (visibility == 0 && _opacity != 0.0f)
        drawBackground(r, origin);
}

void UiWidget::drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) {
    UiWindow* window = getWindow();
    if (_opacity == 1.0f && window && window->isGlClearAllowed()) {
        SmGl::clearColor(_currentBackground.r, _currentBackground.g, _currentBackground.b, 1.0f);
        SmGl::clear(Gl::COLOR_BUFFER_BIT);
    } else {
        SmGl::color3fv(_currentBackground.data());
        SmGl::recti(r.x1 - origin.x, r.y1 - origin.y, r.x2 - origin.x, r.y2 - origin.y);
    }
}

void UiWidget::postDraw(GePoint2<int> const& origin) {
    SmContext* context = SmContext::getCurrentContext();
    bool blended = !isOpaque() && _keyboardFocusType != HasKeyboardFocus;
    context->applyStateObject(getDrawState(blended ? DrawStateBlended : DrawStateOpaque));
    if (RCShdPtr<UiFrame> frame = getPreparedFrame())
        frame->draw(_rect, _currentBackground, blackColor());
    SmGl::translatef(static_cast<float>(-origin.x), static_cast<float>(-origin.y), 0.0f);
}

namespace {

// Fills `r` with `background`, then lays the two gradients: from `top` at the top edge down
// to the background at `topReach`, and from the background at `bottomReach` down to `bottom`;
// with one band, a single gradient from `top` to `bottom` over the whole height.
void drawGradients(GeRectangle<int> const& r, CoRgbColor const& background, CoRgbColor const& top,
                   CoRgbColor const& bottom, int topReach, int bottomReach, bool twoBands) {
    SmContext* context = SmContext::getCurrentContext();
    unsigned previous = context->getShadeModel();
    context->setShadeModel(Gl::SMOOTH);
    SmGl::color3fv(background.data());
    SmGl::recti(r.x1, r.y1, r.x2, r.y2);
    SmGl::begin(Gl::POLYGON);
    SmGl::color3fv(top.data());
    SmGl::vertex2i(r.x1, r.y2);
    SmGl::vertex2i(r.x2, r.y2);
    SmGl::color3fv((twoBands ? background : bottom).data());
    SmGl::vertex2i(r.x2, topReach);
    SmGl::vertex2i(r.x1, topReach);
    SmGl::end();
    if (twoBands) {
        SmGl::begin(Gl::POLYGON);
        SmGl::color3fv(background.data());
        SmGl::vertex2i(r.x1, bottomReach);
        SmGl::vertex2i(r.x2, bottomReach);
        SmGl::color3fv(bottom.data());
        SmGl::vertex2i(r.x2, r.y1);
        SmGl::vertex2i(r.x1, r.y1);
        SmGl::end();
    }
    if (previous == Gl::FLAT)
        context->setShadeModel(Gl::FLAT);
}

} // namespace

void UiWidget::drawShadedBackground(GeRectangle<int> const& r, GePoint2<int> const& origin,
                                    CoRgbColor const& top, CoRgbColor const& bottom) {
    GeRectangle<int> local = r.translated(-origin.x, -origin.y);
    int quarter = local.height() / 4;
    drawGradients(local, _currentBackground, top, bottom, local.y2 - quarter, local.y1 + quarter,
                  true);
}

void UiWidget::drawFadedBackground(GeRectangle<int> const& r, GePoint2<int> const& origin,
                                   CoRgbColor const& top, CoRgbColor const& bottom) {
    GeRectangle<int> local = r.translated(-origin.x, -origin.y);
    drawGradients(local, _currentBackground, top, bottom, local.y1, local.y1, false);
}

} // namespace Zr
