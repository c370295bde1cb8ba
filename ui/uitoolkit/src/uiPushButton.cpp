// UiPushButton: press, release, move and key handling, its look by state, its resources and
// its drawing.
#include "uiPushButton.h"

#include "pushButtonAdapter.h"
#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiLabelString.h"
#include "uiResColor.h"
#include "uiResFrame.h"
#include "uiResSet.h"
#include "uiWindow.h"

#include "evKeyCode.h"
#include "smContext.h"
#include "smGl.h"

namespace Zr {

LiString const UiPushButton::OnFrame("On");
LiString const UiPushButton::PushedFrame("Pushed");

// The pushed colour and the handlers bound to the button; the label reports to it.
class UiPushButtonImp : public UiStringProtocol {
public:
    explicit UiPushButtonImp(UiPushButton* owner)
        : _owner(owner), arm(owner, &UiPushButton::onArm), disarm(owner, &UiPushButton::onDisarm),
          userDraw(owner, &UiPushButton::userDraw), mmove(owner, &UiPushButton::onMmove),
          keyPress(owner, &UiPushButton::onKeyPress) {}

    void stringPositionChanged(int) override { _owner->markForUpdate(); }

    UiPushButton* _owner;
    CoRgbColor pushedColor;
    CbMethod<UiPushButton, EvEvent> arm;
    CbMethod<UiPushButton, EvEvent> disarm;
    CbMethod<UiPushButton, EvEvent> userDraw;
    CbMethod<UiPushButton, EvEvent> mmove;
    CbMethod<UiPushButton, EvEvent> keyPress;
};

namespace {

struct ButtonShades {
    CoRgbColor top, bottom, activeTop, activeBottom;
    CoRgbColor blueTop, blueBottom, blueActiveTop, blueActiveBottom, blueActive;
};

ButtonShades const& shades() {
    static ButtonShades const s = [] {
        UiColorRegistry const& colors = UiColorRegistry::getInstance();
        CoRgbColor const blue1 = colors.getColor("Blue1");
        return ButtonShades{colors.getColor("Grey100"),
                            colors.getColor("Grey40"),
                            colors.getColor("Grey65"),
                            colors.getColor("Grey145"),
                            blue1,
                            colors.getColor("Blue2"),
                            colors.getColor("Blue2"),
                            CoUtils::calcLuminance(blue1, 1.3f),
                            CoUtils::calcLuminance(blue1, 1.05f)};
    }();
    return s;
}

RCShdPtr<UiResource> registryColor(char const* resource, char const* color) {
    return RCShdPtr<UiResource>(
        new UiResColor(resource, UiColorRegistry::getInstance().getColor(color)));
}

} // namespace

RCShdPtr<UiPushButton> UiPushButton::create(UiContainer* parent, LiString const& name,
                                            UiResTable const* table) {
    RCShdPtr<UiPushButton> widget(new UiPushButton(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiPushButton::UiPushButton(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _buttonImp(std::make_unique<UiPushButtonImp>(this)),
      _label(nullptr, 0) {
    addArmCb(&_buttonImp->arm);
    addDisarmCb(&_buttonImp->disarm);
    addUserDrawCb(&_buttonImp->userDraw);
    addMmoveCb(&_buttonImp->mmove);
    addKeyPressCb(&_buttonImp->keyPress);
}

UiPushButton::~UiPushButton() = default;

void UiPushButton::postInit() {
    UiWidget::postInit();
    // From here on a change of the label redraws the button.
    _label.setOwner(_buttonImp.get());
}

// --- resources and look --------------------------------------------------------------------

void UiPushButton::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResFrame(OnFrame, "PushOut")));
    set.set(RCShdPtr<UiResource>(new UiResFrame(PushedFrame, "PushIn")));
    UiLabelString::setDefaultResources(set, "Center Center 5 1");
    set.set(registryColor("Background", "Grey65"));
    set.set(registryColor("PushedColor", "Grey100"));
}

void UiPushButton::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiWidget::setResource(resource);
    UiLabelString::applyResource(_label, *resource);
}

void UiPushButton::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == "PushedColor")
        _buttonImp->pushedColor = color;
    else
        UiWidget::setColor(name, color);
    markForUpdate();
}

CoRgbColor UiPushButton::getColor(LiString const& name) const {
    if (name == "PushedColor")
        return _buttonImp->pushedColor;
    return UiWidget::getColor(name);
}

void UiPushButton::setActive(bool active) {
    if (_active == active)
        return;
    _active = active;
    stateChanged();
}

void UiPushButton::setShadedBackground(bool shaded) {
    _shaded = shaded;
    markForUpdate();
}

void UiPushButton::setBlueButton() {
    _shaded = true;
    _blue = true;
    setColor(BackgroundColor, UiColorRegistry::getInstance().getColor("Blue4"));
}

void UiPushButton::stateChanged() {
    if (!_active) {
        _currentBackground = _background;
        setCurrentFrame(OnFrame);
    } else {
        _currentBackground = _blue ? shades().blueActive : _buttonImp->pushedColor;
        setCurrentFrame(PushedFrame);
    }
    markForUpdate();
}

void UiPushButton::adjustCoords() {
    UiWidget::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _label.setRect({0, canvas.width(), 0, canvas.height()});
}

RCShdPtr<PiWidget> UiPushButton::retrieveInterface() {
    return RCShdPtr<PiWidget>(new PushButtonAdapter(RCShdPtr<UiPushButton>(this)));
}

// --- drawing -------------------------------------------------------------------------------

void UiPushButton::drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) {
    if (!_shaded) {
        UiWidget::drawBackground(r, origin);
        return;
    }
    ButtonShades const& s = shades();
    if (_blue)
        drawShadedBackground(r, origin, _active ? s.blueActiveTop : s.blueTop,
                             _active ? s.blueActiveBottom : s.blueBottom);
    else
        drawShadedBackground(r, origin, _active ? s.activeTop : s.top,
                             _active ? s.activeBottom : s.bottom);
}

void UiPushButton::userDraw(EvEvent&) {
    drawContent();
}

void UiPushButton::drawContent() {
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    SmGl::color3fv((isEnabled() ? _foreground : _inactiveForeground).data());
    if (!_label.getFont())
        return;
    GeRectangle<int> const canvas = getCanvas();
    _label.draw(canvas.x1, canvas.y1);
}

// --- pointer and keys ----------------------------------------------------------------------

bool UiPushButton::hasPointerFocusNow() const {
    // The widget under the pointer: while a grab holds the pointer focus, this is what follows
    // the pointer (and what a key press sets).
    return UiFocusPointer::getInstance().getPointer() == this;
}

void UiPushButton::onArm(EvEvent&) {
    if (!_active) {
        _active = true;
        stateChanged();
    }
    UiGrab::pointer().grab(getEventHandler());
}

void UiPushButton::onDisarm(EvEvent& event) {
    if (_active) {
        _active = false;
        stateChanged();
    }
    if (UiGrab::pointer().release(getEventHandler()) && hasPointerFocusNow())
        activate(event);
}

void UiPushButton::onMmove(EvEvent&) {
    if (!isArmed())
        return;
    // Pushed while the pointer is on the button, released-looking while it is off.
    bool const inside = hasPointerFocusNow();
    if (inside != _active) {
        _active = inside;
        stateChanged();
    }
}

void UiPushButton::pressFromCode(UiGrabHandler* grabHandler) {
    RCShdPtr<UiWidget> self = makeSender();
    UiFocusPointer::getInstance().updatePointer(this, false);
    UiFocusPointer::getInstance().updateFocus(this);
    EvPointerButtonDownEvent down;
    arm(down);
    // The pushed look reaches the screen before the action runs.
    if (UiContainer* parent = getParent())
        if (UiWindow* window = parent->getWindow())
            window->redraw();
    if (UiGrab::pointer().getCurrent() == getEventHandler()) {
        disarm();
        UiGrab::pointer().grab(grabHandler);
    }
}

void UiPushButton::onKeyPress(EvEvent& event) {
    auto* key = dynamic_cast<EvKeyPressEvent*>(&event);
    if (!key ||
        (key->getTriggerKey() != EvKeyCode::Return && key->getTriggerKey() != EvKeyCode::KP_Enter))
        return;
    if (isEnabled())
        pressFromCode(nullptr);
    key->setProcessed();
}

void UiPushButton::activateButton(UiPushButton& button, UiGrabHandler* grabHandler) {
    if (!button.isEnabled())
        return;
    button.pressFromCode(grabHandler);
}

} // namespace Zr
