// The shared part of the input bindings: following the input, writing edits as undo entries, and
// the underline that shows the input's animation state.
#include "inputDataBase.h"

#include "piCommandStack.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "piUndoGuard.h"
#include "piUndoGuardNoLog.h"
#include "smContext.h"
#include "smGl.h"
#include "uiColorRegistry.h"
#include "wsTestGfx.h"

#include <cmath>

namespace Zr {

InputUnderlineColors& InputUnderlineColors::get() {
    static InputUnderlineColors colors;
    return colors;
}

void InputUnderlineColors::fetch() {
    if (WsTestGfx::isNoGraphicsRequested())
        return;
    UiColorRegistry const& registry = UiColorRegistry::getInstance();
    InputUnderlineColors& colors = get();
    auto take = [&registry](char const* name, CoRgbColorTyped<float>& color) {
        if (registry.isRegisteredColor(LiString(name)))
            color = registry.getColor(LiString(name));
    };
    take("Keyframe", colors.animated);
    take("MarkedForAnimation", colors.marked);
    take("Cyan", colors.expression);
}

bool InputDataCommon::isSameValue(double shown, double value) {
    if (shown == value)
        return true;
    // An infinite value has no tolerance: only the same infinity is the same.
    double const tolerance = std::isinf(value) ? 0.0 : std::abs(value) * 1e-12;
    return std::abs(shown - value) <= tolerance;
}

InputDataCommon::InputDataCommon(UiWidget* widget, bool undoable)
    : _widget(widget), _undoable(undoable) {}

void InputDataCommon::drawUnderline() const {
    if (_underline == UnderlineNone)
        return;
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(_widget->getDrawState(UiWidget::DrawStateByOpacity));
    InputUnderlineColors const& colors = InputUnderlineColors::get();
    GeRectangle<int> const canvas = _widget->getCanvas();
    int const x1 = canvas.x1, x2 = canvas.x2, y1 = canvas.y1, y2 = canvas.y1 + BarHeight;
    if (_underline & UnderlineExpression) {
        SmGl::color3fv(colors.expression.data());
        SmGl::recti(x1, y1, x2, y2);
    } else if (_underline & UnderlineOnKey) {
        SmGl::color3fv(colors.animated.data());
        SmGl::recti(x1, y1, x2, y2);
    } else if (_underline & UnderlineAnimated) {
        // Hollow: the outline of the bar, its inside left as the widget drew it.
        SmGl::color3fv(colors.animated.data());
        SmGl::recti(x1, y1, x2, y1 + 1);
        SmGl::recti(x1, y2 - 1, x2, y2);
        SmGl::recti(x1, y1, x1 + 1, y2);
        SmGl::recti(x2 - 1, y1, x2, y2);
    }
    if (_underline & UnderlineMarked) {
        SmGl::color3fv(colors.marked.data());
        SmGl::recti(x1, y2, x2, y2 + BarHeight);
    }
}

template <class T>
InputDataBase<T>::InputDataBase(UiWidget* widget, RCShdPtr<PiInput> const& inputRW,
                                RCShdPtr<PiInput const> const& input,
                                RCShdPtr<PiTimePath const> const& timePath, bool undoable)
    : InputDataCommon(widget, undoable) {
    if (!inputRW.isNull()) {
        _inputValRW = Value::createTyped(inputRW, timePath);
        _inputVal = _inputValRW;
    } else {
        _inputVal = Value::createTypedRO(input, timePath);
    }
    _widget->addMapCb(&_mapHandler);
    _widget->addUserDrawCb(&_drawHandler);
    observe(true);
}

template <class T>
InputDataBase<T>::~InputDataBase() = default;

template <class T>
std::string InputDataBase<T>::getUndoLabel() const {
    return (_reset ? "Reset " : "Set ") +
           PiSocketUtil::getName(_inputVal->getInput(), PiSocketUtil::DISPLAY_NAME);
}

template <class T>
RCShdPtr<PiCommandStack> InputDataBase<T>::getCommandStack() const {
    PiNode const* node = _inputVal->getInput()->getNode();
    return node ? node->getCommandStack() : nullptr;
}

template <class T>
bool InputDataBase<T>::isLockedByInput() const {
    return _inputValRW.isNull() || !_inputValRW->isSettable() || !_inputVal->isEditable();
}

template <class T>
void InputDataBase<T>::observe(bool on) {
    if (on == _observing)
        return;
    _observing = on;
    if (on) {
        _inputVal->addValueObserver(&_valueObserver);
        _inputVal->addStateObserver(&_stateObserver);
        _inputVal->addDisplayObserver(&_displayObserver);
    } else {
        _inputVal->removeValueObserver(&_valueObserver);
        _inputVal->removeStateObserver(&_stateObserver);
        _inputVal->removeDisplayObserver(&_displayObserver);
    }
}

template <class T>
void InputDataBase<T>::refresh() {
    bool const wasInUpdate = std::exchange(_inUpdate, true);
    if (_inputVal->needsEvaluation())
        _inputVal->evaluate();
    showRange();
    showValue(_inputVal->getValue());
    bool const locked = isLockedByInput();
    if (_widget->isLocked() != locked)
        _widget->lock(locked);
    int underline = UnderlineNone;
    if (_inputVal->hasExpression())
        underline |= UnderlineExpression;
    if (_inputVal->showsAnimatedBar())
        underline |= _inputVal->animatedBarIsSolid() ? UnderlineOnKey : UnderlineAnimated;
    if (_inputVal->showsYellowBar())
        underline |= UnderlineMarked;
    if (underline != _underline) {
        _underline = underline;
        _widget->markForUpdate();
    }
    _inUpdate = wasInUpdate;
}

template <class T>
void InputDataBase<T>::onValueObserved() {
    refresh();
}

template <class T>
void InputDataBase<T>::onStateObserved() {
    if (_inputVal->needsEvaluation())
        _inputVal->evaluate();
    refresh();
}

template <class T>
void InputDataBase<T>::beginGesture() {
    if (_inGesture)
        return;
    _inGesture = true;
    _transitionOpen = false;
    observe(false);
}

template <class T>
void InputDataBase<T>::endGesture() {
    if (!_inGesture)
        return;
    _inGesture = false;
    if (_transitionOpen) {
        _transitionOpen = false;
        PiUndoGuard close(getCommandStack(), std::string(),
                          PiExecParam(PiExecParam::CLOSE_TRANSITION));
    }
    observe(true);
    refresh();
}

template <class T>
bool InputDataBase<T>::write(T const& value) {
    if (isLockedByInput()) {
        refresh();
        return false;
    }
    bool taken = false;
    if (!_undoable) {
        PiUndoGuardNoLog noLog(false);
        taken = _inputValRW->setValue(value);
    } else if (_inGesture) {
        // The first write opens the gesture's entry, the others join it; a reset within the
        // gesture names the whole entry.
        RCShdPtr<PiCommandStack> const stack = getCommandStack();
        bool const opening = !_transitionOpen;
        PiUndoGuard guard(
            stack, opening ? getUndoLabel() : std::string(),
            PiExecParam(opening ? PiExecParam::OPEN_TRANSITION : PiExecParam::CONTINUE_TRANSITION));
        _transitionOpen = true;
        if (_reset && !opening && !stack.isNull())
            stack->setPendingLabel(getUndoLabel());
        taken = _inputValRW->setValue(value);
    } else {
        PiUndoGuard guard(getCommandStack(), getUndoLabel());
        taken = _inputValRW->setValue(value);
    }
    if (!taken)
        _inputValRW->evaluate();
    if (!taken || !_observing)
        refresh();
    return taken;
}

template <class T>
void InputDataBase<T>::reset() {
    if (_inputValRW.isNull())
        return;
    bool const wasReset = std::exchange(_reset, true);
    if (!_inputVal->isEditable()) {
        // A value driven from elsewhere: the reset lets go of the expression or connection.
        if (_undoable) {
            PiUndoGuard guard(getCommandStack(), getUndoLabel());
            PiSocketUtil::resetInput(_inputValRW->getInput());
        } else {
            PiUndoGuardNoLog noLog(false);
            PiSocketUtil::resetInput(_inputValRW->getInput());
        }
    } else {
        write(_inputVal->getDefaultValue());
    }
    _reset = wasReset;
    refresh();
}

template class InputDataBase<double>;
template class InputDataBase<int>;
template class InputDataBase<bool>;
template class InputDataBase<std::string>;

} // namespace Zr
