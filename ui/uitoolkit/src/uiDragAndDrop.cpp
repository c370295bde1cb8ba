// UiDragAndDrop's defaults, which all rest on the object's DrSrcSink, and the requests that
// change its flags on the loop's next turn.
#include "uiDragAndDrop.h"

#include "snSelection.h"
#include "uiWidget.h"

namespace Zr {

bool UiDragAndDrop::_pickAndStickActive = false;

// --- requests --------------------------------------------------------------------------------

UiDragAndDrop::SetDragEnabledRequest::SetDragEnabledRequest(RCShdPtr<UiDragAndDrop> target, bool on)
    : _target(std::move(target)), _on(on) {}

void UiDragAndDrop::SetDragEnabledRequest::execute() {
    if (_target)
        _target->setDragEnabled(_on);
}

UiDragAndDrop::SetDropEnabledRequest::SetDropEnabledRequest(RCShdPtr<UiDragAndDrop> target, bool on)
    : _target(std::move(target)), _on(on) {}

void UiDragAndDrop::SetDropEnabledRequest::execute() {
    if (_target)
        _target->setDropEnabled(_on);
}

UiDragAndDrop::SetActivateEnabledRequest::SetActivateEnabledRequest(RCShdPtr<UiDragAndDrop> target,
                                                                    bool on)
    : _target(std::move(target)), _on(on) {}

void UiDragAndDrop::SetActivateEnabledRequest::execute() {
    if (_target)
        _target->setActivateEnabled(_on);
}

// --- the object -------------------------------------------------------------------------------

RCShdPtr<UiDragAndDrop> UiDragAndDrop::create() {
    return RCShdPtr<UiDragAndDrop>(new UiDragAndDrop());
}

UiDragAndDrop::~UiDragAndDrop() = default;

bool UiDragAndDrop::willDrag(EvEvent&, RCShdPtr<UiWidget> const&) {
    return _srcSink && _srcSink->willPopulateSelection();
}

OPtr<UiDragAndDrop::Info> UiDragAndDrop::beginDrag(EvEvent& event,
                                                   RCShdPtr<UiWidget> const& widget) {
    if (!_srcSink)
        return nullptr;
    RCShdPtr<DrCarrier> carrier = DrCarrier::create(SnSelection::create());
    auto info = std::make_unique<Info>(carrier);
    if (auto* device = dynamic_cast<EvDeviceEvent*>(&event)) {
        GePoint2<int> p = device->getWCoord();
        if (widget) {
            GeRectangle<int> canvas = widget->getScreenCanvas();
            p = GePoint2<int>(p.x - canvas.x1, p.y - canvas.y1);
        }
        carrier->setLocation(GePoint2<float>(static_cast<float>(p.x), static_cast<float>(p.y)));
    }
    _srcSink->populateSelection(*carrier);
    return info;
}

bool UiDragAndDrop::getDragAndDropImage(RCShdPtr<WsManagedImage>*, Info&) {
    return false;
}

std::vector<std::string> UiDragAndDrop::getDragAndDropNames(Info&) {
    return {};
}

void UiDragAndDrop::dragOver(Info&) {}
void UiDragAndDrop::dragEnter(Info&) {}
void UiDragAndDrop::dragLeave(Info&) {}

void UiDragAndDrop::storeTargetFraction(Info& info) {
    if (!info.getCarrier())
        return;
    GePoint2<float> fraction(0.0f, 0.0f);
    if (RCShdPtr<UiWidget> const& target = info.getTarget()) {
        GeRectangle<int> const& r = target->getRect();
        GePoint2<int> const& at = info.getLocation();
        if (r.width() > 0)
            fraction.x = static_cast<float>(at.x) / static_cast<float>(r.width());
        if (r.height() > 0)
            fraction.y = static_cast<float>(at.y) / static_cast<float>(r.height());
    }
    info.getCarrier()->setLocation(fraction);
}

void UiDragAndDrop::cancelDragAndDrop(Info& info) {
    storeTargetFraction(info);
    if (_srcSink && info.getCarrier())
        _srcSink->operationCancelled(*info.getCarrier());
}

bool UiDragAndDrop::willAcceptDrop(Info& info) {
    storeTargetFraction(info);
    return _srcSink && info.getCarrier() && _srcSink->willConsumeSelection(*info.getCarrier());
}

bool UiDragAndDrop::beginDrop(Info& info) {
    storeTargetFraction(info);
    return _srcSink && info.getCarrier() && _srcSink->consumeSelection(*info.getCarrier());
}

void UiDragAndDrop::dragAndDropComplete(Info& info) {
    storeTargetFraction(info);
    if (_srcSink && info.getCarrier())
        _srcSink->dropCompleted(*info.getCarrier());
}

bool UiDragAndDrop::willAcceptActivate(Info&) {
    return false;
}

void UiDragAndDrop::activateWidget(Info&, UiGrabHandler*) {}

bool UiDragAndDrop::willPickAndStick() {
    return false;
}

void UiDragAndDrop::cancelPickAndStick(Info& info) {
    cancelDragAndDrop(info);
}

void UiDragAndDrop::pickAndStickComplete(Info& info) {
    dragAndDropComplete(info);
}

bool UiDragAndDrop::consumeSelection(RCShdPtr<UiWidget> const& target,
                                     RCShdPtr<DrCarrier> const& carrier) {
    if (!target || !carrier)
        return false;
    RCShdPtr<UiDragAndDrop> dnd = target->getDndObject();
    if (!dnd)
        return false;
    Info info(carrier);
    info.setTarget(target);
    if (!dnd->willAcceptDrop(info))
        return false;
    return dnd->beginDrop(info);
}

} // namespace Zr
