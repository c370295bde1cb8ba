// UiProgressBar: its defaults and the shaded quad that shows the value.
#include "uiProgressBar.h"

#include "uiColorRegistry.h"
#include "uiResColor.h"
#include "uiResFrame.h"
#include "uiResSet.h"

#include "numUtil.h"
#include "smContext.h"
#include "smGl.h"

#include <cmath>

namespace Zr {

class UiProgressBarImp {
public:
    explicit UiProgressBarImp(UiProgressBar* owner) : userDraw(owner, &UiProgressBar::onUserDraw) {}
    CbMethod<UiProgressBar, EvEvent> userDraw;
};

namespace {

struct BarShades {
    CoRgbColor top, bottom;
};

// Taken from the registry once, on the first draw, when the colour definitions are read.
BarShades const& shades() {
    static BarShades const s{UiColorRegistry::getInstance().getColor("Blue2"),
                             UiColorRegistry::getInstance().getColor("Blue1")};
    return s;
}

} // namespace

RCShdPtr<UiProgressBar> UiProgressBar::create(UiContainer* parent, LiString const& name,
                                              UiResTable const* table) {
    RCShdPtr<UiProgressBar> widget(new UiProgressBar(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiProgressBar::UiProgressBar(UiContainer* parent, LiString const& name)
    : UiRange(parent, name), _barImp(std::make_unique<UiProgressBarImp>(this)) {
    setKeyboardFocusable(false);
    addUserDrawCb(&_barImp->userDraw);
}

UiProgressBar::~UiProgressBar() = default;

void UiProgressBar::setDefaultResources(UiResSet& set) {
    UiRange::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResColor(
        BackgroundColor, UiColorRegistry::getInstance().getColor("TextBackground"))));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "Line")));
}

void UiProgressBar::postInit() {
    UiRange::postInit();
    setRange(0.0, 1.0, false);
    setValue(0.0, false);
    updateRange();
}

void UiProgressBar::setOrientation(int orientation) {
    _orientation = orientation;
    adjustCoords();
    markForUpdate();
}

void UiProgressBar::updateValue() {
    markForUpdate();
}

void UiProgressBar::updateRange() {
    markForUpdate();
}

void UiProgressBar::onUserDraw(EvEvent&) {
    GeRectangle<int> const canvas = getCanvas();
    double x0 = canvas.x1, x1 = canvas.x2, y0 = canvas.y1, y1 = canvas.y2;
    double const min = getMinDisplayValue();
    // An empty range shows as full or empty rather than as a division by zero.
    double const span = guard(getMaxDisplayValue() - min);
    double const value = getDisplayValue();
    if (_orientation == 0) {
        x1 = std::floor((x1 - x0) / span * (value - min) + x0 + 0.5);
        y1 += 1;
    } else {
        y1 = std::floor((y1 - y0) / span * (value - min) + y0 + 0.5);
        x1 += 1;
    }
    SmContext* context = SmContext::getCurrentContext();
    context->applyStateObject(getDrawState(DrawStateByOpacity));
    unsigned const previous = context->getShadeModel();
    if (previous != Gl::SMOOTH)
        context->setShadeModel(Gl::SMOOTH);
    SmGl::begin(Gl::QUADS);
    SmGl::color3fv(shades().bottom.data());
    SmGl::vertex2f(static_cast<float>(x0), static_cast<float>(y0));
    SmGl::vertex2f(static_cast<float>(x1), static_cast<float>(y0));
    SmGl::color3fv(shades().top.data());
    SmGl::vertex2f(static_cast<float>(x1), static_cast<float>(y1));
    SmGl::vertex2f(static_cast<float>(x0), static_cast<float>(y1));
    SmGl::end();
    if (previous == Gl::FLAT)
        context->setShadeModel(Gl::FLAT);
}

} // namespace Zr
