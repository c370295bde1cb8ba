// PiInputValue<T>: a proxy of one input at one time path, through which editors read, set and
// observe the input as a double, an int, a bool or a string.
#pragma once

#include "cbDispatcher.h"
#include "piInput.h"
#include "piTimePath.h"

#include <string>

namespace Zr {

// A proxy is bound to one input and one time path for its whole life. Its value is the input's
// value at the local time of the time path (time 0 with a null time path), cached by evaluate().
//
// Types: a double, int or bool proxy fits a Double, Int, Bool or Structured input (an int proxy
// rounds to the nearest integer, a bool proxy is true for any non-zero value); a string proxy
// fits a String input only. Any other pairing raises PiInputEx::ExWrongType naming both types
// and the input.
//
// The underline of an editor has four states, from these tests:
// - none: the input is neither animated nor marked;
// - animated, hollow: showsAnimatedBar() true, animatedBarIsSolid() false: animated, and no key
//   at the current time;
// - on a key: showsAnimatedBar(), animatedBarIsSolid() and showsGreenBar() true: animated with a
//   key at the current time;
// - marked: showsYellowBar() true, the input is marked for keyframing; it adds to the others.
// An expression (hasExpression()) is told apart by the editor, which is then locked
// (isEditable() false). The bars depend on the time as well: an editor redraws them when its
// value observer is told of a time move.
//
// Observers (CbHandler<CbEmptyType>*) are held by the proxy's own dispatchers, which the input's
// value, state and display dispatchers feed: each observer is told once per change of the input.
// The value observers are also told once per change of the time client's time while the value
// depends on the time (the input is animated, has an expression or is connected). A proxy leaves
// the input and the time client when it dies; an observer that dies first leaves the proxy.
// Read-only proxies take observers too: observing changes nothing.
template <class T>
class PiInputValue : public RCObject {
public:
    // A writable proxy; null for a null input.
    static RCShdPtr<PiInputValue<T>> createTyped(RCShdPtr<PiInput> const& input,
                                                 RCShdPtr<PiTimePath const> const& timePath);
    // A read-only proxy: isSettable() is false and setValue() refuses; null for a null input.
    static RCShdPtr<PiInputValue<T> const>
    createTypedRO(RCShdPtr<PiInput const> const& input, RCShdPtr<PiTimePath const> const& timePath);

    ~PiInputValue() override;
    PiInputValue(PiInputValue const&) = delete;
    PiInputValue& operator=(PiInputValue const&) = delete;

    // The bound input: writable from a writable proxy (null from a read-only one), const always.
    RCShdPtr<PiInput> getInput();
    RCShdPtr<PiInput const> getInput() const { return _input; }
    RCShdPtr<PiTimePath const> const& getTimePath() const { return _timePath; }
    bool isReadOnly() const { return _inputRW == nullptr; }
    // The local time of the time path now.
    double getTime() const { return _timePath.isNull() ? 0.0 : _timePath->getTime(); }

    // A writable proxy, an input that is not connected, and when the input is animated, one
    // that can take a key now (animatable, and the node's PiGraphAnimInterface, if it has one,
    // allows key setting).
    bool isSettable() const;
    // False when the value is driven from elsewhere: a connection or an expression.
    bool isEditable() const;

    // See the underline states above.
    bool showsGreenBar() const;
    bool showsYellowBar() const;
    bool showsAnimatedBar() const;
    bool animatedBarIsSolid() const;
    bool hasExpression() const;

    // True when the cached value is stale: the input changed, or the local time moved, since the
    // last evaluate().
    bool needsEvaluation() const;
    // Reads the input at the local time now and caches the value.
    void evaluate() const;
    // The value at the local time now: the cached one, after evaluate() if it is stale. The
    // reference holds until the next evaluation.
    T const& getValue() const;

    // Sets the value at the local time now; false when the proxy is not settable or the value
    // is not taken (a number that is not finite, a string outside an enum policy's labels). On
    // an animated input it sets a key at the local time; otherwise the static value. The input
    // clamps numbers to its range and rounds int and bool inputs. The write goes through the
    // input's recorded mutators, so an open PiUndoGuard records it.
    bool setValue(T const& value);

    // The input's range and default in the proxy's type; a string proxy gives empty strings for
    // the range and the input's default string.
    T getMinimum() const;
    T getMaximum() const;
    T getDefaultValue() const;
    RCShdPtr<PiInputPolicy const> getPolicy() const { return _input->getPolicy(); }

    void addValueObserver(CbHandler<CbEmptyType>* h) const { _valueDispatcher.addHandler(h); }
    void removeValueObserver(CbHandler<CbEmptyType>* h) const { _valueDispatcher.removeHandler(h); }
    void addStateObserver(CbHandler<CbEmptyType>* h) const { _stateDispatcher.addHandler(h); }
    void removeStateObserver(CbHandler<CbEmptyType>* h) const { _stateDispatcher.removeHandler(h); }
    void addDisplayObserver(CbHandler<CbEmptyType>* h) const { _displayDispatcher.addHandler(h); }
    void removeDisplayObserver(CbHandler<CbEmptyType>* h) const {
        _displayDispatcher.removeHandler(h);
    }

    // "double", "int", "bool" or "string".
    static char const* getTypeName();

private:
    PiInputValue(RCShdPtr<PiInput const> input, PiInput* inputRW,
                 RCShdPtr<PiTimePath const> timePath);
    static void checkType(PiInput const& input);
    bool isKeySettingAllowed() const;
    bool dependsOnTime() const;

    void onInputValueChanged();
    void onInputStateChanged();
    void onInputDisplayChanged();
    void onTimeChanged();

    RCShdPtr<PiInput const> _input;
    PiInput* _inputRW;
    RCShdPtr<PiTimePath const> _timePath;
    RCShdPtr<TmTimeClient> _timeClient;

    mutable T _value{};
    mutable double _valueTime = 0.0;
    mutable bool _stale = true;

    mutable CbDispatcher<CbEmptyType> _valueDispatcher;
    mutable CbDispatcher<CbEmptyType> _stateDispatcher;
    mutable CbDispatcher<CbEmptyType> _displayDispatcher;
    CbMethod<PiInputValue, CbEmptyType> _inputValueHandler;
    CbMethod<PiInputValue, CbEmptyType> _inputStateHandler;
    CbMethod<PiInputValue, CbEmptyType> _inputDisplayHandler;
    CbMethod<PiInputValue, CbEmptyType> _timeHandler;
};

extern template class PiInputValue<double>;
extern template class PiInputValue<int>;
extern template class PiInputValue<bool>;
extern template class PiInputValue<std::string>;

} // namespace Zr
