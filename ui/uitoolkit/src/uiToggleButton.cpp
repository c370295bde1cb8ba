// UiToggleButton: its frames and colours by state, its resources and its drawing.
#include "uiToggleButton.h"

#include "uiColorRegistry.h"
#include "uiFrame.h"
#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResSet.h"

namespace Zr {

LiString const UiToggleButton::OnFrame("On");
LiString const UiToggleButton::OffFrame("Off");

namespace {

struct ToggleShades {
    CoRgbColor offTop, offBottom, onTop, onBottom;
};

ToggleShades const& shades() {
    static ToggleShades const s = [] {
        UiColorRegistry const& colors = UiColorRegistry::getInstance();
        return ToggleShades{colors.getColor("Grey100"), colors.getColor("Grey40"),
                            colors.getColor("Grey65"), colors.getColor("Grey145")};
    }();
    return s;
}

void installFrame(UiWidget& widget, char const* type, LiString const& slot) {
    UiFrameRegistry& frames = UiFrameRegistry::getInstance();
    if (frames.isRegisteredType(type))
        widget.setFrame(frames.create(type), slot);
}

} // namespace

RCShdPtr<UiToggleButton> UiToggleButton::create(UiContainer* parent, LiString const& name,
                                                UiResTable const* table) {
    RCShdPtr<UiToggleButton> widget(new UiToggleButton(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiToggleButton::UiToggleButton(UiContainer* parent, LiString const& name)
    : UiDualState(parent, name), _userDraw(this, &UiToggleButton::userDraw) {
    addUserDrawCb(&_userDraw);
}

UiToggleButton::~UiToggleButton() = default;

void UiToggleButton::setDefaultResources(UiResSet& set) {
    UiDualState::setDefaultResources(set);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    set.set(RCShdPtr<UiResource>(new UiResFrame(OnFrame, "PushIn")));
    set.set(RCShdPtr<UiResource>(new UiResFrame(OffFrame, "PushOut")));
    set.set(RCShdPtr<UiResource>(new UiResAlign("LabelAlign", "Left Center 5 1")));
    set.set(RCShdPtr<UiResource>(new UiResColor(BackgroundColor, colors.getColor("Grey65"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("OnColor", colors.getColor("Grey100"))));
    set.set(RCShdPtr<UiResource>(new UiResInt("RadioFrame", "0")));
}

void UiToggleButton::setResource(RCShdPtr<UiResource> const& resource) {
    if (resource && resource->getNameRef() == "RadioFrame") {
        auto const* value = dynamic_cast<UiResInt const*>(resource.get());
        if (value && value->getNbValues() == 1)
            setRadioFrame(value->getValue(0) != 0);
        return;
    }
    UiDualState::setResource(resource);
}

void UiToggleButton::setRadioFrame(bool radio) {
    _radio = radio;
    installFrame(*this, radio ? "RadioIn" : "ToggleIn", OnFrame);
    installFrame(*this, radio ? "RadioOut" : "ToggleOut", OffFrame);
}

void UiToggleButton::addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    addContextHandler(h);
}

void UiToggleButton::removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    removeContextHandler(h);
}

void UiToggleButton::setShadedBackground(bool shaded) {
    _shaded = shaded;
    markForUpdate();
}

void UiToggleButton::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == "OnColor")
        _onColor = color;
    else
        UiWidget::setColor(name, color);
    markForUpdate();
}

CoRgbColor UiToggleButton::getColor(LiString const& name) const {
    if (name == "OnColor")
        return _onColor;
    return UiWidget::getColor(name);
}

void UiToggleButton::stateChanged() {
    if (_state) {
        _currentBackground = _onColor;
        setCurrentLabel(1);
        setCurrentFrame(OnFrame);
    } else {
        _currentBackground = _background;
        setCurrentLabel(0);
        setCurrentFrame(OffFrame);
    }
}

void UiToggleButton::drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) {
    if (!_shaded) {
        UiWidget::drawBackground(r, origin);
        return;
    }
    ToggleShades const& s = shades();
    if (_state)
        drawShadedBackground(r, origin, s.onTop, s.onBottom);
    else
        drawShadedBackground(r, origin, s.offTop, s.offBottom);
}

void UiToggleButton::userDraw(EvEvent&) {
    drawLabel(getLabel(_currentLabel), isEnabled() ? _foreground : _inactiveForeground);
}

} // namespace Zr
