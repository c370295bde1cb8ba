// UiRange: storing, clamping and converting the value and its limits, the six callback lists,
// the value-handler resource and the registry of value-handler factories.
#include "uiRange.h"

#include "rangeAdapter.h"
#include "uiResRegistry.h"
#include "uiWidgetEvent.h"
#include "uiWidgetRttiType.h"
#include "valueHandlerResource.h"

#include "numUtil.h"

#include <algorithm>
#include <vector>

namespace Zr {

// The handler, the display view of value and limits, and the callback lists.
class UiRangeImp {
public:
    RCShdPtr<UiRange::ValueHandler> handler;
    double displayValue = 0.0;
    double displayMin = 0.0;
    double displayMax = 1.0;
    CbDispatcher<EvEvent> drag;
    CbDispatcher<EvEvent> valueChanged;
    CbDispatcher<EvEvent> beginExternalEdit;
    CbDispatcher<EvEvent> endExternalEdit;
    CbDispatcher<EvEvent> preEdit;
    CbDispatcher<EvEvent> postEdit;
};

namespace {

// Every factory ever registered, kept to process end: resource prototypes and their clones
// point at them, also after a name is registered again.
std::vector<OPtr<UiRange::ValueHandlerFactory>>& factories() {
    static std::vector<OPtr<UiRange::ValueHandlerFactory>> kept;
    return kept;
}

} // namespace

UiRange::UiRange(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name), _rangeImp(std::make_unique<UiRangeImp>()) {}

UiRange::~UiRange() = default;

void UiRange::registerValueHandlerFactory(LiString const& name, OPtr<ValueHandlerFactory> factory) {
    if (!factory)
        RCExUtil::throwExNullPtr("UiRange::ValueHandlerFactory");
    factories().push_back(std::move(factory));
    UiResRegistry::getInstance().registerType(
        name.c_str(),
        RCShdPtr<UiResource>(new ValueHandlerResource(name, factories().back().get())));
}

// --- conversions ---------------------------------------------------------------------------

double UiRange::toDisplay(double value) const {
    return _rangeImp->handler ? _rangeImp->handler->toDisplay(value) : value;
}

double UiRange::fromDisplay(double display) const {
    return _rangeImp->handler ? _rangeImp->handler->fromDisplay(display) : display;
}

double UiRange::getRelativeValue() const {
    return (_value - _minValue) / guard(_maxValue - _minValue);
}

double UiRange::getDisplayValue() const {
    return _rangeImp->displayValue;
}

double UiRange::getMinDisplayValue() const {
    return _rangeImp->displayMin;
}

double UiRange::getMaxDisplayValue() const {
    return _rangeImp->displayMax;
}

// --- value ---------------------------------------------------------------------------------

double UiRange::storeValue(double value, bool notify) {
    double const old = _value;
    _value = value;
    _rangeImp->displayValue = toDisplay(value);
    // A stream of equal pointer events stays silent: no update, no callback, no redraw.
    if (almostEqual(old, _value))
        return _value;
    updateValue();
    if (notify)
        fireValueChanged();
    return _value;
}

void UiRange::fireValueChanged() {
    UiValueChanged event(makeSender());
    event.setValue(_value);
    _rangeImp->valueChanged.call(event);
}

double UiRange::setValue(double value, bool notify) {
    if (_clamped)
        value = std::min(_maxValue, std::max(_minValue, value));
    return storeValue(value, notify);
}

double UiRange::setValueNoClamp(double value, bool notify) {
    return storeValue(value, notify);
}

double UiRange::setIntValue(int value, bool notify) {
    return static_cast<int>(setValue(value, notify));
}

double UiRange::setRelativeValue(double relative, bool notify) {
    return setValue(relative * (_maxValue - _minValue) + _minValue, notify);
}

double UiRange::setDisplayValue(double display, bool notify) {
    return setValue(fromDisplay(display), notify);
}

double UiRange::dragValue(double value, EvEvent& event) {
    if (isLocked())
        return _value;
    setValue(value, true);
    // Also for an unchanged value: a drag listener follows the hand, not the number.
    _rangeImp->drag.call(event);
    return _value;
}

double UiRange::dragDisplayValue(double display, EvEvent& event) {
    if (isLocked())
        return toDisplay(_value);
    dragValue(fromDisplay(display), event);
    return toDisplay(_value);
}

// --- limits --------------------------------------------------------------------------------

void UiRange::refreshDisplayLimits() {
    _rangeImp->displayMin = toDisplay(_minValue);
    _rangeImp->displayMax = toDisplay(_maxValue);
    // A decreasing handler turns the limits round.
    if (_rangeImp->displayMin > _rangeImp->displayMax)
        std::swap(_rangeImp->displayMin, _rangeImp->displayMax);
}

void UiRange::setRange(double a, double b, bool notify) {
    double const lo = std::min(a, b);
    double const hi = std::max(a, b);
    bool changed = false;
    if (!almostEqual(lo, _minValue)) {
        _minValue = lo;
        _rangeImp->displayMin = toDisplay(lo);
        changed = true;
    }
    if (!almostEqual(hi, _maxValue)) {
        _maxValue = hi;
        _rangeImp->displayMax = toDisplay(hi);
        changed = true;
    }
    if (!changed)
        return;
    if (_rangeImp->displayMin > _rangeImp->displayMax)
        std::swap(_rangeImp->displayMin, _rangeImp->displayMax);
    double const old = _value;
    if (_clamped)
        _value = std::min(_maxValue, std::max(_minValue, _value));
    _rangeImp->displayValue = toDisplay(_value);
    if (!almostEqual(old, _value)) {
        updateValue();
        if (notify)
            fireValueChanged();
    }
    updateRange();
}

void UiRange::setMinValue(double value, bool notify) {
    setRange(value, std::max(value, _maxValue), notify);
}

void UiRange::setMaxValue(double value, bool notify) {
    setRange(std::min(value, _minValue), value, notify);
}

void UiRange::setValueClamped(bool clamped) {
    _clamped = clamped;
    if (!clamped)
        return;
    double const old = _value;
    _value = std::min(_maxValue, std::max(_minValue, _value));
    _rangeImp->displayValue = toDisplay(_value);
    if (!almostEqual(old, _value))
        updateValue();
    fireValueChanged();
}

void UiRange::setValueHandler(RCShdPtr<ValueHandler> const& handler) {
    _rangeImp->handler = handler;
    _rangeImp->displayValue = toDisplay(_value);
    refreshDisplayLimits();
    updateValue();
    updateRange();
}

RCShdPtr<UiRange::ValueHandler> const& UiRange::getValueHandler() const {
    return _rangeImp->handler;
}

// --- edits and callbacks -------------------------------------------------------------------

namespace {
void callFresh(CbDispatcher<EvEvent>& dispatcher) {
    EvDefaultEvent event;
    dispatcher.call(event);
}
} // namespace

void UiRange::callPreEditCb() {
    callFresh(_rangeImp->preEdit);
}

void UiRange::callPostEditCb() {
    callFresh(_rangeImp->postEdit);
}

void UiRange::beginExternalEdit() {
    callFresh(_rangeImp->beginExternalEdit);
}

void UiRange::endExternalEdit() {
    callFresh(_rangeImp->endExternalEdit);
}

void UiRange::addDragCb(CbHandler<EvEvent>* h) {
    _rangeImp->drag.addHandler(h);
}

void UiRange::removeDragCb(CbHandler<EvEvent>* h) {
    _rangeImp->drag.removeHandler(h);
}

void UiRange::addValueChangedCb(CbHandler<EvEvent>* h) {
    _rangeImp->valueChanged.addHandler(h);
}

void UiRange::removeValueChangedCb(CbHandler<EvEvent>* h) {
    _rangeImp->valueChanged.removeHandler(h);
}

void UiRange::addBeginExternalEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->beginExternalEdit.addHandler(h);
}

void UiRange::removeBeginExternalEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->beginExternalEdit.removeHandler(h);
}

void UiRange::addEndExternalEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->endExternalEdit.addHandler(h);
}

void UiRange::removeEndExternalEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->endExternalEdit.removeHandler(h);
}

void UiRange::addPreEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->preEdit.addHandler(h);
}

void UiRange::removePreEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->preEdit.removeHandler(h);
}

void UiRange::addPostEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->postEdit.addHandler(h);
}

void UiRange::removePostEditCb(CbHandler<EvEvent>* h) {
    _rangeImp->postEdit.removeHandler(h);
}

// --- resources and interface ---------------------------------------------------------------

void UiRange::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    if (resource->getNameRef() == "DisplayValueHandler") {
        if (auto const* handler = dynamic_cast<ValueHandlerResource const*>(resource.get())) {
            ZR_ASSERT_TEXT(!handler->getHandler().isNull(), "!_handler.isNull()");
            setValueHandler(handler->getHandler());
        }
        return;
    }
    UiWidget::setResource(resource);
}

RCShdPtr<PiWidget> UiRange::retrieveInterface() {
    return RCShdPtr<PiWidget>(new RangeAdapter(RCShdPtr<UiRange>(this)));
}

RttiType<WidgetRttiType> const& UiRange::getNodeType() const {
    return UiWidgetTypes::Range::getType();
}

} // namespace Zr
