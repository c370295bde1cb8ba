// The binding of a value editor to a node input.
#include "inputValEdData.h"

#include "uiInputCalculatable.h"

#include "evEvent.h"
#include "evKeyboardState.h"

#include <cmath>

namespace Zr {

template <class T>
InputValEdData<T>::InputValEdData(UiValueEditor* editor, RCShdPtr<PiInput> const& inputRW,
                                  RCShdPtr<PiInput const> const& input,
                                  RCShdPtr<PiTimePath const> const& timePath, bool undoable)
    : InputDataBase<T>(editor, inputRW, input, timePath, undoable), _editor(editor) {
    _calculatable = new UiInputCalculatable(editor, this->getInputVal()->getInput());
    _editor->setCalculatable(_calculatable);
    _editor->addPreEditCb(&_preEditHandler);
    _editor->addPostEditCb(&_postEditHandler);
    _editor->addValueChangedCb(&_valueHandler);
    _editor->setResetValueCb(&_resetHandler);
    _editor->addDisarmCb(&_disarmHandler);
    _popupHandler = new UiPopupMenuHandler<T>(editor, inputRW, input, timePath);
    _editor->addContextMenuCb(&_contextHandler);
    this->refresh();
}

template <class T>
InputValEdData<T>::~InputValEdData() {
    _calculatable->detach();
}

template <class T>
RCShdPtr<UiCalculatable> InputValEdData<T>::getCalculatable() const {
    return _calculatable;
}

template <class T>
void InputValEdData<T>::showValue(T const& value) {
    if (!InputDataCommon::isSameValue(_editor->getValue(), static_cast<double>(value)))
        _editor->setValue(static_cast<double>(value), true);
}

template <class T>
void InputValEdData<T>::showRange() {
    auto const& val = *this->getInputVal();
    double const lo = static_cast<double>(val.getMinimum());
    double const hi = static_cast<double>(val.getMaximum());
    if (lo != _editor->getMinValue() || hi != _editor->getMaxValue())
        _editor->setRange(lo, hi, false);
    _editor->setDefaultValue(static_cast<double>(val.getDefaultValue()));
}

template <class T>
void InputValEdData<T>::onValueChanged(EvEvent&) {
    if (this->_inUpdate)
        return;
    double const shown = _editor->getValue();
    if constexpr (std::is_same_v<T, int>)
        this->write(static_cast<int>(std::lround(shown)));
    else
        this->write(shown);
}

template <class T>
void InputValEdData<T>::onReset() {
    if (!this->_inUpdate)
        this->reset();
}

template <class T>
void InputValEdData<T>::onDisarm(EvEvent& event) {
    // A locked editor ignores its own reset click; an input locked only by its expression or
    // connection is freed by it: the reset drops what drives the value.
    auto* up = evCast<EvPointerButtonEvent>(event);
    if (!up || !_editor->isLocked() || this->getInputValRW().isNull() ||
        this->getInputVal()->isEditable())
        return;
    unsigned const modifiers = up->getKeyboardState().getState();
    if (!(modifiers & EvKeyboardState::Control) || (modifiers & EvKeyboardState::Shift))
        return;
    _editor->unlock();
    this->reset();
}

template class InputValEdData<double>;
template class InputValEdData<int>;

} // namespace Zr
