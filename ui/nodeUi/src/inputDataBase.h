// InputDataBase<T>: what every binding of a widget to a node input shares. It holds the input's
// proxies, follows the input through their observers, turns the widget's edits into undoable
// writes (one entry per gesture) and draws the input's animation state under the widget.
#pragma once

#include "piInputValue.h"
#include "uiWidget.h"

#include <string>

namespace Zr {

class PiCommandStack;

// The colours of the underline, fetched from the colour registry by the package's start-up steps
// and kept here so that drawing never looks a name up.
struct InputUnderlineColors {
    CoRgbColorTyped<float> animated{97.f / 255, 230.f / 255, 25.f / 255};
    CoRgbColorTyped<float> marked{220.f / 255, 199.f / 255, 0.f};
    CoRgbColorTyped<float> expression{0.f, 1.f, 1.f};

    static InputUnderlineColors& get();
    // Reads "Keyframe", "MarkedForAnimation" and "Cyan"; without graphics the built-in
    // colours stay.
    static void fetch();
};

// Non-template part: the state flags, the underline and the colours.
class InputDataCommon : public RCObject {
public:
    // Bits of the underline state. None is 0: neither animated, marked nor driven by an
    // expression.
    enum Underline {
        UnderlineNone = 0,
        UnderlineAnimated = 1, // animated, no key now: a hollow bar
        UnderlineOnKey = 2,    // animated with a key now: a solid bar
        UnderlineMarked = 4,   // marked for keyframing: a band above the bar
        UnderlineExpression = 8
    };
    // The bar is this many pixels high, the marked band above it as well.
    static constexpr int BarHeight = 3;

    // The test that keeps a value read back from the input off the widget when the widget
    // already shows it: within a millionth of a millionth of the value, exact for an infinite
    // one.
    static bool isSameValue(double shown, double value);

    UiWidget* getWidget() const { return _widget; }
    bool isUndoable() const { return _undoable; }
    int getUnderline() const { return _underline; }
    // Whether observers of the input are attached now: off during a gesture.
    bool isObserving() const { return _observing; }

protected:
    InputDataCommon(UiWidget* widget, bool undoable);

    // Draws the underline of `state` along the lower edge of the widget's canvas.
    void drawUnderline() const;

    UiWidget* _widget;
    bool _inUpdate = false;
    bool _undoable;
    bool _reset = false;
    bool _inGesture = false;
    bool _transitionOpen = false;
    bool _observing = false;
    int _underline = UnderlineNone;
};

template <class T>
class InputDataBase : public InputDataCommon {
public:
    using Value = PiInputValue<T>;

    ~InputDataBase() override;

    RCShdPtr<Value> const& getInputValRW() const { return _inputValRW; }
    RCShdPtr<Value const> const& getInputVal() const { return _inputVal; }
    // "Set Radius" or, during a reset, "Reset Radius": the entry of an edit.
    std::string getUndoLabel() const;

    // Reads the input into the widget: value, range, lock and underline.
    void refresh();

protected:
    // With a null `inputRW` the binding only reads `input`. The widget owns the binding.
    InputDataBase(UiWidget* widget, RCShdPtr<PiInput> const& inputRW,
                  RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> const& timePath,
                  bool undoable);

    // The widget shows `value`, or its range and default; called with _inUpdate set.
    virtual void showValue(T const& value) = 0;
    virtual void showRange() {}

    // A gesture (a drag, a typed value) makes one entry however many writes it has; the
    // observers are off meanwhile, and on again with the widget read back at its end.
    void beginGesture();
    void endGesture();
    // Writes the user's value: one entry on its own, or part of the gesture. A value the input
    // does not take is read back. False when nothing was written.
    bool write(T const& value);
    // Resets the input: to its default value, or, when the input is driven by an expression or a
    // connection, drops that first. The entry reads "Reset ...".
    void reset();
    RCShdPtr<PiCommandStack> getCommandStack() const;
    bool isLockedByInput() const;

private:
    void observe(bool on);
    void onValueObserved();
    void onStateObserved();
    void onMap(EvEvent&) { refresh(); }
    void onDraw(EvEvent&) { drawUnderline(); }

    RCShdPtr<Value> _inputValRW;
    RCShdPtr<Value const> _inputVal;
    CbMethod<InputDataBase, CbEmptyType> _valueObserver{this, &InputDataBase::onValueObserved};
    CbMethod<InputDataBase, CbEmptyType> _stateObserver{this, &InputDataBase::onStateObserved};
    CbMethod<InputDataBase, CbEmptyType> _displayObserver{this, &InputDataBase::onStateObserved};
    CbMethod<InputDataBase, EvEvent> _mapHandler{this, &InputDataBase::onMap};
    CbMethod<InputDataBase, EvEvent> _drawHandler{this, &InputDataBase::onDraw};
};

extern template class InputDataBase<double>;
extern template class InputDataBase<int>;
extern template class InputDataBase<bool>;
extern template class InputDataBase<std::string>;

} // namespace Zr
