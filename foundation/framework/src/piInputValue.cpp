// PiInputValue<T>: the typed proxy of an input at a time path, with its cache and the observer
// chains from the input and the time client.
#include "piInputValue.h"

#include "piGraphAnimInterface.h"
#include "piNode.h"

#include <climits>
#include <cmath>

namespace Zr {

namespace {

// The proxy's type from the input's number.
template <class T>
T fromNumber(double value);
template <>
double fromNumber<double>(double value) {
    return value;
}
template <>
int fromNumber<int>(double value) {
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(INT_MAX))
        return INT_MAX;
    if (value <= static_cast<double>(INT_MIN))
        return INT_MIN;
    return static_cast<int>(std::lround(value));
}
template <>
bool fromNumber<bool>(double value) {
    return value != 0.0;
}

double toNumber(double value) {
    return value;
}
double toNumber(int value) {
    return static_cast<double>(value);
}
double toNumber(bool value) {
    return value ? 1.0 : 0.0;
}

} // namespace

template <class T>
RCShdPtr<PiInputValue<T>> PiInputValue<T>::createTyped(RCShdPtr<PiInput> const& input,
                                                       RCShdPtr<PiTimePath const> const& timePath) {
    if (input.isNull())
        return nullptr;
    checkType(*input);
    return RCShdPtr<PiInputValue<T>>(new PiInputValue<T>(input, input.get(), timePath));
}

template <class T>
RCShdPtr<PiInputValue<T> const>
PiInputValue<T>::createTypedRO(RCShdPtr<PiInput const> const& input,
                               RCShdPtr<PiTimePath const> const& timePath) {
    if (input.isNull())
        return nullptr;
    checkType(*input);
    return RCShdPtr<PiInputValue<T> const>(new PiInputValue<T>(input, nullptr, timePath));
}

template <class T>
PiInputValue<T>::PiInputValue(RCShdPtr<PiInput const> input, PiInput* inputRW,
                              RCShdPtr<PiTimePath const> timePath)
    : _input(std::move(input)), _inputRW(inputRW), _timePath(std::move(timePath)),
      _inputValueHandler(this, &PiInputValue::onInputValueChanged),
      _inputStateHandler(this, &PiInputValue::onInputStateChanged),
      _inputDisplayHandler(this, &PiInputValue::onInputDisplayChanged),
      _timeHandler(this, &PiInputValue::onTimeChanged) {
    // Observing does not change the input, so a read-only proxy subscribes as well.
    auto& observed = const_cast<PiInput&>(*_input);
    observed.addValueCb(&_inputValueHandler);
    observed.addStateCb(&_inputStateHandler);
    observed.addDisplayCb(&_inputDisplayHandler);
    if (!_timePath.isNull()) {
        _timeClient = _timePath->getTimeClient();
        if (!_timeClient.isNull())
            _timeClient->addTimeChangeCb(&_timeHandler);
    }
}

template <class T>
PiInputValue<T>::~PiInputValue() = default; // the handlers leave their dispatchers as they die

template <class T>
char const* PiInputValue<T>::getTypeName() {
    if constexpr (std::is_same_v<T, double>)
        return "double";
    else if constexpr (std::is_same_v<T, int>)
        return "int";
    else if constexpr (std::is_same_v<T, bool>)
        return "bool";
    else
        return "string";
}

template <class T>
void PiInputValue<T>::checkType(PiInput const& input) {
    bool fits;
    if constexpr (std::is_same_v<T, std::string>)
        fits = input.getType() == PiInput::Type::String;
    else
        fits = input.getType() != PiInput::Type::String;
    if (!fits)
        throw PiInputEx::ExWrongType(
            __FILE__, __LINE__,
            std::string("A ") + getTypeName() + " value cannot be bound to the " +
                PiInput::getTypeName(input.getType()) + " input " + input.getFullName());
}

template <class T>
RCShdPtr<PiInput> PiInputValue<T>::getInput() {
    return RCShdPtr<PiInput>(_inputRW);
}

template <class T>
bool PiInputValue<T>::isKeySettingAllowed() const {
    PiNode const* node = _input->getNode();
    if (!node)
        return true;
    auto controller = node->getControllerRO().lock();
    auto const* anim = dynamic_cast<PiGraphAnimInterface const*>(controller.get());
    return !anim || anim->isKeySettingAllowed();
}

template <class T>
bool PiInputValue<T>::dependsOnTime() const {
    return _input->hasAnimation() || _input->hasExpression() || _input->isConnected();
}

template <class T>
bool PiInputValue<T>::isSettable() const {
    if (!_inputRW || _input->isConnected())
        return false;
    if (_input->hasAnimation())
        return _input->isAnimatable() && isKeySettingAllowed();
    return true;
}

template <class T>
bool PiInputValue<T>::isEditable() const {
    return !_input->isConnected() && !_input->hasExpression();
}

template <class T>
bool PiInputValue<T>::showsGreenBar() const {
    return _input->hasAnimation() && _input->hasKeyAt(getTime());
}

template <class T>
bool PiInputValue<T>::showsYellowBar() const {
    return _input->isMarked();
}

template <class T>
bool PiInputValue<T>::showsAnimatedBar() const {
    return _input->hasAnimation();
}

template <class T>
bool PiInputValue<T>::animatedBarIsSolid() const {
    return showsGreenBar();
}

template <class T>
bool PiInputValue<T>::hasExpression() const {
    return _input->hasExpression();
}

template <class T>
bool PiInputValue<T>::needsEvaluation() const {
    return _stale || _valueTime != getTime();
}

template <class T>
void PiInputValue<T>::evaluate() const {
    double const time = getTime();
    if constexpr (std::is_same_v<T, std::string>)
        _value = _input->getStringValue();
    else
        _value = fromNumber<T>(_input->evaluate(time));
    _valueTime = time;
    _stale = false;
}

template <class T>
T const& PiInputValue<T>::getValue() const {
    if (needsEvaluation())
        evaluate();
    return _value;
}

template <class T>
bool PiInputValue<T>::setValue(T const& value) {
    if (!isSettable())
        return false;
    PiInput& input = *_inputRW;
    if constexpr (std::is_same_v<T, std::string>) {
        if (auto const* choices = dynamic_cast<PiEnumPolicy const*>(input.getPolicy().get()))
            if (choices->findLabel(value) < 0)
                return false;
        input.setStringValue(value);
    } else {
        double const number = toNumber(value);
        if (!std::isfinite(number))
            return false;
        if (input.hasAnimation())
            input.setKey(getTime(), number);
        else
            input.setStaticValue(number);
    }
    return true;
}

template <class T>
T PiInputValue<T>::getMinimum() const {
    if constexpr (std::is_same_v<T, std::string>)
        return {};
    else
        return fromNumber<T>(_input->getMinimum());
}

template <class T>
T PiInputValue<T>::getMaximum() const {
    if constexpr (std::is_same_v<T, std::string>)
        return {};
    else
        return fromNumber<T>(_input->getMaximum());
}

template <class T>
T PiInputValue<T>::getDefaultValue() const {
    if constexpr (std::is_same_v<T, std::string>)
        return _input->getDefaultString();
    else
        return fromNumber<T>(_input->getDefault());
}

template <class T>
void PiInputValue<T>::onInputValueChanged() {
    _stale = true;
    _valueDispatcher.call(); // last: an observer may let the proxy die
}

template <class T>
void PiInputValue<T>::onInputStateChanged() {
    _stale = true;
    _stateDispatcher.call();
}

template <class T>
void PiInputValue<T>::onInputDisplayChanged() {
    _displayDispatcher.call();
}

template <class T>
void PiInputValue<T>::onTimeChanged() {
    if (!_valueDispatcher.isEmpty() && dependsOnTime())
        _valueDispatcher.call();
}

template class PiInputValue<double>;
template class PiInputValue<int>;
template class PiInputValue<bool>;
template class PiInputValue<std::string>;

} // namespace Zr
