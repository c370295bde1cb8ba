// UiPushedToggle: its colours and frames by state, its resources and its drawing.
#include "uiPushedToggle.h"

#include "uiColorRegistry.h"
#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResFrame.h"
#include "uiResSet.h"
#include "uiToggleButton.h"

namespace Zr {

namespace {

struct PushedShades {
    CoRgbColor offTop, offBottom, onTop, onBottom, topOnlyOff, topOnlyOn;
};

PushedShades const& shades() {
    static PushedShades const s = [] {
        UiColorRegistry const& colors = UiColorRegistry::getInstance();
        return PushedShades{colors.getColor("Grey100"), colors.getColor("Grey40"),
                            colors.getColor("Grey65"),  colors.getColor("Grey145"),
                            colors.getColor("Grey100"), colors.getColor("Grey115")};
    }();
    return s;
}

RCShdPtr<UiResource> registryColor(char const* resource, char const* color) {
    return RCShdPtr<UiResource>(
        new UiResColor(resource, UiColorRegistry::getInstance().getColor(color)));
}

} // namespace

RCShdPtr<UiPushedToggle> UiPushedToggle::create(UiContainer* parent, LiString const& name,
                                                UiResTable const* table) {
    RCShdPtr<UiPushedToggle> widget(new UiPushedToggle(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiPushedToggle::UiPushedToggle(UiContainer* parent, LiString const& name)
    : UiDualState(parent, name), _userDraw(this, &UiPushedToggle::userDraw) {
    addUserDrawCb(&_userDraw);
}

UiPushedToggle::~UiPushedToggle() = default;

void UiPushedToggle::setDefaultResources(UiResSet& set) {
    UiDualState::setDefaultResources(set);
    set.set(registryColor("Background", "Grey65"));
    set.set(registryColor("DisabledForegroundColor", "InactiveForeground"));
    set.set(registryColor("OnColor", "Grey100"));
    set.set(registryColor("OnForegroundColor", "Foreground"));
    set.set(registryColor("OffForegroundColor", "Foreground"));
    set.set(RCShdPtr<UiResource>(new UiResFrame(UiToggleButton::OnFrame, "ToggleIn")));
    set.set(RCShdPtr<UiResource>(new UiResFrame(UiToggleButton::OffFrame, "ToggleOut")));
    set.set(RCShdPtr<UiResource>(new UiResAlign("LabelAlign", "Left Center 5 1")));
}

void UiPushedToggle::addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    addContextHandler(h);
}

void UiPushedToggle::removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    removeContextHandler(h);
}

void UiPushedToggle::setShadedBackground(bool shaded) {
    _shaded = shaded;
    markForUpdate();
}

void UiPushedToggle::setTopShadedBackground(bool shaded) {
    _topShaded = shaded;
    markForUpdate();
}

void UiPushedToggle::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == "OnColor")
        _colors.on = color;
    else if (name == "OnForegroundColor")
        _colors.onForeground = color;
    else if (name == "OffForegroundColor")
        _colors.offForeground = color;
    else if (name == "DisabledForegroundColor")
        _disabledForeground = color;
    else
        UiWidget::setColor(name, color);
    markForUpdate();
}

CoRgbColor UiPushedToggle::getColor(LiString const& name) const {
    if (name == "OnColor")
        return _colors.on;
    if (name == "OnForegroundColor")
        return _colors.onForeground;
    if (name == "OffForegroundColor")
        return _colors.offForeground;
    if (name == "DisabledForegroundColor")
        return _disabledForeground;
    return UiWidget::getColor(name);
}

void UiPushedToggle::stateChanged() {
    if (_state) {
        _currentBackground = _colors.on;
        _foreground = _colors.onForeground;
        setCurrentLabel(1);
        setCurrentFrame(UiToggleButton::OnFrame);
    } else {
        _currentBackground = _background;
        _foreground = _colors.offForeground;
        setCurrentLabel(0);
        setCurrentFrame(UiToggleButton::OffFrame);
    }
}

void UiPushedToggle::drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) {
    PushedShades const& s = shades();
    if (_shaded) {
        if (_state)
            drawShadedBackground(r, origin, s.onTop, s.onBottom);
        else
            drawShadedBackground(r, origin, s.offTop, s.offBottom);
    } else if (_topShaded) {
        drawShadedBackground(r, origin, _state ? s.topOnlyOn : s.topOnlyOff, _currentBackground);
    } else {
        UiWidget::drawBackground(r, origin);
    }
}

void UiPushedToggle::userDraw(EvEvent&) {
    drawContent();
}

void UiPushedToggle::drawContent() {
    CoRgbColor color = _foreground;
    if (!isEnabled())
        color = _state ? _disabledForeground : _inactiveForeground;
    drawLabel(getLabel(_currentLabel), color);
}

} // namespace Zr
