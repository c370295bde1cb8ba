// UiLabel: its resources, its state and the colour it draws its text in.
#include "uiLabel.h"

#include "labelAdapter.h"
#include "uiColorRegistry.h"
#include "uiLabelString.h"
#include "uiResColor.h"
#include "uiResFrame.h"
#include "uiResSet.h"

namespace Zr {

namespace {
// The resource name as a LiString: comparing it checks the stored hashes first.
LiString const OnColorName("OnColor");
} // namespace

RCShdPtr<UiLabel> UiLabel::create(UiContainer* parent, LiString const& name,
                                  UiResTable const* table) {
    RCShdPtr<UiLabel> widget(new UiLabel(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiLabel::UiLabel(UiContainer* parent, LiString const& name)
    : UiDualState(parent, name), _userDraw(this, &UiLabel::userDraw) {
    addUserDrawCb(&_userDraw);
    setKeyboardFocusable(false);
    lock(true);
    setStateChangedOnArm(false);
}

UiLabel::~UiLabel() = default;

void UiLabel::setDefaultResources(UiResSet& set) {
    UiDualState::setDefaultResources(set);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    UiLabelString::setDefaultResources(set, "Center Center 5 0");
    set.set(RCShdPtr<UiResource>(new UiResColor(BackgroundColor, colors.getColor("Background"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("OnColor", colors.getColor("MarkedForAnimation"))));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "CurveI")));
}

void UiLabel::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == OnColorName)
        _colors.on = color;
    else
        UiWidget::setColor(name, color);
    markForUpdate();
}

CoRgbColor UiLabel::getColor(LiString const& name) const {
    if (name == OnColorName)
        return _colors.on;
    return UiWidget::getColor(name);
}

void UiLabel::stateChanged() {
    setCurrentLabel(getState() ? 1 : 0);
    // While the resources are applied, postInit lays the label out once for all of them.
    if (getInitPhase() == 3)
        return;
    adjustCoords();
    markForUpdate();
}

void UiLabel::userDraw(EvEvent&) {
    CoRgbColor color = _foreground;
    if (!isEnabled())
        color = _inactiveForeground;
    else if (isLocked())
        color = _foreground;
    else if (getState())
        color = _colors.on;
    // Always the text of label 0: the current label is kept for subclasses only.
    drawLabel(getLabel(0), color);
}

RCShdPtr<PiWidget> UiLabel::retrieveInterface() {
    return RCShdPtr<PiWidget>(new LabelAdapter(RCShdPtr<UiLabel>(this)));
}

} // namespace Zr
