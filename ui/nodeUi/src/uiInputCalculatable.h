// UiInputCalculatable: how the calculator and the context menu reach the input behind a bound
// value editor: the value goes through the editor (and so into the input's undo entry), the
// expression is the input's.
#pragma once

#include "piInput.h"
#include "uiCalculatable.h"

namespace Zr {

class UiValueEditor;

class UiInputCalculatable : public UiCalculatable {
public:
    // The editor owns this object through its binding; detach() is called when the binding goes.
    UiInputCalculatable(UiValueEditor* editor, RCShdPtr<PiInput const> input);
    void detach() { _editor = nullptr; }
    RCShdPtr<PiInput const> const& getInput() const { return _input; }

    void setValue(double value) override;
    double getValue() const override;
    RCShdPtr<Expression const> getExpression() const override;
    bool supportsExpressions() const override;
    GeRectangle<int> getScreenRectangle() const override;
    RCShdPtr<UiLabelHandler const> getLabelHandler() const override;

private:
    UiValueEditor* _editor;
    RCShdPtr<PiInput const> _input;
};

} // namespace Zr
