// UiDragButton: following the pointer inside the parent, its resources and its drawing.
#include "uiDragButton.h"

#include "uiContainer.h"
#include "uiGrab.h"
#include "uiLabelString.h"
#include "uiResFrame.h"
#include "uiResSet.h"

#include "smGl.h"

#include <algorithm>

namespace Zr {

// The grab offset, the drag callbacks and the handlers bound to the button.
class UiDragButtonImp : public RCObject, public UiStringProtocol {
public:
    explicit UiDragButtonImp(UiDragButton* owner)
        : _owner(owner), arm(owner, &UiDragButton::onArm), disarm(owner, &UiDragButton::onDisarm),
          mmove(owner, &UiDragButton::onMmove), userDraw(owner, &UiDragButton::userDraw) {}

    void stringPositionChanged(int) override { _owner->markForUpdate(); }

    UiDragButton* _owner;
    // Where the pointer took the button, from its lower-left corner.
    GePoint2<int> offset;
    CbDispatcher<EvEvent> dragCb;
    CbMethod<UiDragButton, EvEvent> arm;
    CbMethod<UiDragButton, EvEvent> disarm;
    CbMethod<UiDragButton, EvEvent> mmove;
    CbMethod<UiDragButton, EvEvent> userDraw;
};

RCShdPtr<UiDragButton> UiDragButton::create(UiContainer* parent, LiString const& name,
                                            UiResTable const* table) {
    RCShdPtr<UiDragButton> widget(new UiDragButton(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiDragButton::UiDragButton(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _dragImp(new UiDragButtonImp(this)), _label(nullptr, 0) {
    setKeyboardFocusable(false);
    addArmCb(&_dragImp->arm);
    addDisarmCb(&_dragImp->disarm);
    addMmoveCb(&_dragImp->mmove);
    addUserDrawCb(&_dragImp->userDraw);
}

UiDragButton::~UiDragButton() = default;

void UiDragButton::postInit() {
    UiWidget::postInit();
    _label.setOwner(_dragImp.get());
}

void UiDragButton::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    UiLabelString::setDefaultResources(set, "Center Center 5 1");
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "None")));
}

void UiDragButton::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiLabelString::applyResource(_label, *resource);
    UiWidget::setResource(resource);
}

void UiDragButton::addDragCb(CbHandler<EvEvent>* h) {
    _dragImp->dragCb.addHandler(h);
}

void UiDragButton::removeDragCb(CbHandler<EvEvent>* h) {
    _dragImp->dragCb.removeHandler(h);
}

void UiDragButton::adjustCoords() {
    UiWidget::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _label.setRect({0, canvas.width(), 0, canvas.height()});
}

void UiDragButton::onArm(EvEvent& event) {
    if (auto const* press = dynamic_cast<EvPointerEvent const*>(&event)) {
        GePoint2<int> const p = press->getCoord();
        _dragImp->offset = GePoint2<int>(p.x - _rect.x1, p.y - _rect.y1);
    }
    UiGrab::pointer().grab(getEventHandler());
    markForUpdate();
}

void UiDragButton::onDisarm(EvEvent&) {
    UiGrab::pointer().release(getEventHandler());
}

void UiDragButton::onMmove(EvEvent& event) {
    auto const* move = dynamic_cast<EvPointerEvent const*>(&event);
    UiContainer* parent = getParent();
    if (!move || !parent || UiGrab::pointer().getCurrent() != getEventHandler())
        return;
    GeRectangle<int> const room = parent->getCanvas();
    int const maxX = std::max(0, room.width() - _rect.width());
    int const maxY = std::max(0, room.height() - _rect.height());
    GePoint2<int> const p = move->getCoord();
    GePoint2<int> const to(std::clamp(p.x - _dragImp->offset.x, 0, maxX),
                           std::clamp(p.y - _dragImp->offset.y, 0, maxY));
    if (to.x == _rect.x1 && to.y == _rect.y1)
        return;
    setOrigin(to, true);
    RCShdPtr<UiDragButtonImp> keep = _dragImp;
    keep->dragCb.call(event);
}

void UiDragButton::userDraw(EvEvent&) {
    SmGl::color3fv((isEnabled() ? _foreground : _inactiveForeground).data());
    if (!_label.getFont())
        return;
    GeRectangle<int> const canvas = getCanvas();
    _label.draw(canvas.x1, canvas.y1);
}

} // namespace Zr
