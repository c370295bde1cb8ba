// UiSimpleCalculator: the field over the value, the evaluation through PiExpression (muparser)
// and the write-back.
#include "uiSimpleCalculator.h"

#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiTextField.h"

#include "liStringUtil.h"
#include "msgProtocol.h"
#include "piExpression.h"

#include <algorithm>
#include <cmath>

namespace Zr {

namespace {
// The field is at least this wide, so an expression has room beside the number.
constexpr int MinimumWidth = 140;
} // namespace

UiSimpleCalculator::UiSimpleCalculator(RCShdPtr<UiContainer> const& root)
    : _root(root), _enter(this, &UiSimpleCalculator::onEnter),
      _escape(this, &UiSimpleCalculator::onClose), _focusOut(this, &UiSimpleCalculator::onClose) {}

UiSimpleCalculator::~UiSimpleCalculator() {
    if (_field) {
        _field->removeKeyEnterCb(&_enter);
        _field->removeKeyEscapeCb(&_escape);
        _field->removeKbdFocusOutCb(&_focusOut);
        close();
    }
}

bool UiSimpleCalculator::evaluate(std::string const& text, double value, double& result,
                                  std::string& error) {
    PiExpression const expression(text);
    try {
        result = expression.evaluate(0.0, 24.0, [&expression, value](int index) -> double {
            std::string const& name = expression.getVariables()[static_cast<std::size_t>(index)];
            if (name != "x")
                throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__,
                                                   "Unknown name \"" + name + "\"; x is the value");
            return value;
        });
    } catch (PiExpressionEx::ExEvaluation const& e) {
        error = e.getReason();
        return false;
    }
    if (!std::isfinite(result)) {
        error = "The result is not a finite number";
        return false;
    }
    return true;
}

bool UiSimpleCalculator::isOpen() const {
    return _field && _field->getParent();
}

void UiSimpleCalculator::popup(UiCalculatable* calculatable, PopupMode mode) {
    close();
    if (!calculatable || !_root)
        return;
    _target = calculatable;
    if (!_field) {
        _field = UiTextField::create(_root.get(), "calculator");
        _field->setColor(UiWidget::BackgroundColor,
                         UiColorRegistry::getInstance().getColor("TextBackgroundOn"));
        _field->addKeyEnterCb(&_enter);
        _field->addKeyEscapeCb(&_escape);
        _field->addKbdFocusOutCb(&_focusOut);
    } else {
        _root->addChild(_field);
    }
    // Over the value, as wide as an expression needs, and inside the window.
    GeRectangle<int> const canvas = _root->getCanvas();
    GePoint2<int> const origin = _root->getScreenCanvas().getMin();
    GeRectangle<int> r = calculatable->getScreenRectangle().translated(-origin.x, -origin.y);
    int const width = std::min(std::max(r.width(), MinimumWidth), canvas.width());
    int const x = std::clamp(r.x1, canvas.x1, canvas.x2 - width);
    _field->setRect({x, x + width, r.y1, r.y2});
    RCShdPtr<UiCalculatable::Expression const> const expression =
        mode == Expression ? calculatable->getExpression() : nullptr;
    std::string const text =
        expression ? expression->getText() : LiStringUtil::convertNb(calculatable->getValue());
    _field->show();
    _field->setString(text.c_str());
    UiFocusKeyboard::getInstance().setFocus(_field.get());
    // The edit starts at once: Return as the first key begins it, and the text is selected.
    EvKeyPressEvent start;
    start.setTriggerKey(11);
    _field->keyPress(start);
    _field->highlightAll();
}

void UiSimpleCalculator::onEnter(EvEvent&) {
    if (!_target)
        return;
    std::string const text = _field->getString().str();
    double result = 0.0;
    std::string error;
    if (!evaluate(text, _target->getValue(), result, error)) {
        MsgProtocol::display(MsgWarning("Cannot compute \"" + text + "\": " + error));
        return;
    }
    RCShdPtr<UiCalculatable> const target = _target;
    close();
    target->setValue(result);
}

void UiSimpleCalculator::onClose(EvEvent&) {
    close();
}

void UiSimpleCalculator::close() {
    _target = nullptr;
    if (!isOpen())
        return;
    // The field leaves the window but stays for the next popup.
    RCShdPtr<UiTextField> const field = _field;
    field->hide();
    _root->removeChild(field);
}

} // namespace Zr
