// The calculatable of a bound value editor.
#include "uiInputCalculatable.h"

#include "piExpressionServices.h"
#include "uiValueEditor.h"

namespace Zr {

UiInputCalculatable::UiInputCalculatable(UiValueEditor* editor, RCShdPtr<PiInput const> input)
    : _editor(editor), _input(std::move(input)) {}

void UiInputCalculatable::setValue(double value) {
    if (_editor)
        _editor->setUiValue(value);
}

double UiInputCalculatable::getValue() const {
    return _editor ? _editor->getDisplayValue() : 0.0;
}

RCShdPtr<UiCalculatable::Expression const> UiInputCalculatable::getExpression() const {
    if (_input.isNull() || !_input->hasExpression())
        return nullptr;
    return RCShdPtr<Expression const>(new Expression(_input->getExpression()));
}

bool UiInputCalculatable::supportsExpressions() const {
    return PiExpressionServices::supportsExpressions(_input);
}

GeRectangle<int> UiInputCalculatable::getScreenRectangle() const {
    if (!_editor)
        return {};
    GePoint2<int> const corner = _editor->getScreenCoord();
    GeRectangle<int> const& rect = _editor->getRect();
    return GeRectangle<int>::fromSize(corner.x, corner.y, rect.width(), rect.height());
}

RCShdPtr<UiLabelHandler const> UiInputCalculatable::getLabelHandler() const {
    return _editor ? _editor->getLabelHandler() : nullptr;
}

} // namespace Zr
