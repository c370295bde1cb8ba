// UiConfirmButton: the prompt's own event loop, its resources and its drawing.
#include "uiConfirmButton.h"

#include "uiApplication.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiLabelString.h"
#include "uiResFrame.h"
#include "uiResSet.h"
#include "uiWindow.h"

#include "evKeyCode.h"
#include "smContext.h"
#include "smGl.h"
#include "wsEvents.h"
#include "wsWindow.h"

namespace Zr {

// The user-draw handler; the label reports to it.
class UiConfirmButtonImp : public UiStringProtocol {
public:
    explicit UiConfirmButtonImp(UiConfirmButton* owner)
        : _owner(owner), userDraw(owner, &UiConfirmButton::userDraw) {}

    void stringPositionChanged(int) override { _owner->markForUpdate(); }

    UiConfirmButton* _owner;
    CbMethod<UiConfirmButton, EvEvent> userDraw;
};

RCShdPtr<UiConfirmButton> UiConfirmButton::create(UiContainer* parent, LiString const& name,
                                                  UiResTable const* table) {
    RCShdPtr<UiConfirmButton> widget(new UiConfirmButton(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiConfirmButton::UiConfirmButton(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _confirmImp(std::make_unique<UiConfirmButtonImp>(this)),
      _label(nullptr, 0) {
    addUserDrawCb(&_confirmImp->userDraw);
}

UiConfirmButton::~UiConfirmButton() = default;

void UiConfirmButton::postInit() {
    UiWidget::postInit();
    _label.setOwner(_confirmImp.get());
}

void UiConfirmButton::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    UiLabelString::setDefaultResources(set, "Center Center 5 1");
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "In")));
}

void UiConfirmButton::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiLabelString::applyResource(_label, *resource);
    UiWidget::setResource(resource);
}

void UiConfirmButton::adjustCoords() {
    UiWidget::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _label.setRect({0, canvas.width(), 0, canvas.height()});
}

bool UiConfirmButton::askConfirm(bool allowCancel) {
    RCShdPtr<UiWidget> self = makeSender();
    UiApplication& app = UiApplication::getInstance();
    UiGrab::pointer().clear();
    show();
    // The prompt is drawn before the wait begins.
    if (UiWindow* window = getWindow()) {
        if (RCShdPtr<WsWindow> const& os = window->getOSWindow()) {
            WsExposeEvent expose(os->getId(), window->getRect());
            app.processEvent(expose);
        }
    }
    bool answer = false;
    for (bool waiting = true; waiting;) {
        OPtr<EvEvent> event = app.getNextEvent(DtTimeIndex::MAX);
        if (!event)
            continue;
        if (dynamic_cast<EvPointerMoveEvent*>(event.get())) {
            // The move does not reach the widgets: the pointer focus stays where it was when
            // the prompt opened.
            if (UiFocusPointer::getInstance().getFocus() == this) {
                answer = true;
                waiting = false;
            } else if (allowCancel) {
                waiting = false;
            }
        } else if (auto* key = dynamic_cast<EvKeyPressEvent*>(event.get())) {
            if (key->getTriggerKey() == EvKeyCode::Escape && allowCancel) {
                waiting = false;
            } else if (key->getTriggerKey() == EvKeyCode::Return) {
                answer = true;
                waiting = false;
            }
        } else if (dynamic_cast<WsExposeEvent*>(event.get())) {
            app.processEvent(*event);
        }
    }
    hide();
    return answer;
}

void UiConfirmButton::userDraw(EvEvent&) {
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    SmGl::color3fv((isEnabled() ? _foreground : _inactiveForeground).data());
    if (!_label.getFont())
        return;
    GeRectangle<int> const canvas = getCanvas();
    _label.draw(canvas.x1, canvas.y1);
}

} // namespace Zr
