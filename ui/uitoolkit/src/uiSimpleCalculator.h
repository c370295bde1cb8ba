// UiSimpleCalculator: the small calculator the toolkit ships. It opens a text field over the value
// it was popped on, takes an arithmetic expression ("x * 2 + 1", x being the present value),
// and writes the result back through the calculatable on Return; Escape or a click elsewhere
// closes it and changes nothing.
#pragma once

#include "uiCalculatable.h"
#include "uiCalculator.h"

#include "zrBase.h"

namespace Zr {

class UiContainer;
class UiTextField;

class UiSimpleCalculator : public UiCalculator {
public:
    // The field opens in `root`, whose canvas is taken to be the window's (a top level's root
    // container).
    explicit UiSimpleCalculator(RCShdPtr<UiContainer> const& root);
    ~UiSimpleCalculator() override;

    // Opens the field with the value, or in Expression mode with the text of the value's
    // expression when it has one. A null calculatable opens nothing.
    void popup(UiCalculatable* calculatable, PopupMode mode) override;
    bool isOpen() const;
    // Evaluates `text` with `x` standing for `value`. False, and `error` says why, when the
    // text is no expression of numbers and x or its result is not a finite number.
    static bool evaluate(std::string const& text, double value, double& result, std::string& error);

private:
    void onEnter(EvEvent& event);
    void onClose(EvEvent& event);
    void close();

    RCShdPtr<UiContainer> _root;
    RCShdPtr<UiTextField> _field;
    RCShdPtr<UiCalculatable> _target;
    CbMethod<UiSimpleCalculator, EvEvent> _enter, _escape, _focusOut;
};

} // namespace Zr
