// InputValEdData<T>: binds a value editor to a node input, as a double or, for an integer
// input, through the input's int form. Drags and typed values become one undo entry each, a
// Control-click resets the input, and the context button reaches the input's menu hook.
#pragma once

#include "inputDataBase.h"
#include "uiPopupMenuHandler.h"
#include "uiValueEditor.h"

namespace Zr {

class UiInputCalculatable;

template <class T>
class InputValEdData : public InputDataBase<T> {
public:
    // With a null `inputRW` the editor only shows `input`, locked.
    InputValEdData(UiValueEditor* editor, RCShdPtr<PiInput> const& inputRW,
                   RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> const& timePath,
                   bool undoable);
    ~InputValEdData() override;

    UiValueEditor* getValueEditor() const { return _editor; }
    RCShdPtr<UiCalculatable> getCalculatable() const;

protected:
    void showValue(T const& value) override;
    void showRange() override;

private:
    void onPreEdit(EvEvent&) { this->beginGesture(); }
    void onPostEdit(EvEvent&) { this->endGesture(); }
    void onValueChanged(EvEvent&);
    void onReset();
    void onDisarm(EvEvent& event);
    // A right click opens the input's context menu.
    void onContextMenu(RCShdPtr<UiCalculatable> const& calculatable) {
        _popupHandler->popupContextMenuCb(calculatable);
    }

    UiValueEditor* _editor;
    RCShdPtr<UiInputCalculatable> _calculatable;
    RCShdPtr<UiPopupMenuHandler<T>> _popupHandler;
    CbMethod<InputValEdData, EvEvent> _preEditHandler{this, &InputValEdData::onPreEdit};
    CbMethod<InputValEdData, EvEvent> _postEditHandler{this, &InputValEdData::onPostEdit};
    CbMethod<InputValEdData, EvEvent> _valueHandler{this, &InputValEdData::onValueChanged};
    CbMethod<InputValEdData, CbEmptyType> _resetHandler{this, &InputValEdData::onReset};
    CbMethod<InputValEdData, EvEvent> _disarmHandler{this, &InputValEdData::onDisarm};
    CbMethod<InputValEdData, RCShdPtr<UiCalculatable> const> _contextHandler{
        this, &InputValEdData::onContextMenu};
};

extern template class InputValEdData<double>;
extern template class InputValEdData<int>;

} // namespace Zr
