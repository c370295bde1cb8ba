// PiInput: one input of a node, with its value at a time (from a connection, an expression, an
// animation curve or its static value), its undoable state and its observers.
#pragma once

#include "cbDispatcher.h"
#include "piGraphObject.h"
#include "piInputPolicy.h"
#include "piOutput.h"
#include "tmTimeCurve.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Zr {

class PiExpression;
class PiGraph;
class PiNode;
class PiStructuredInput;

struct PiInputEx {
    // A key, curve or expression asked of an input that cannot be animated (a string, a
    // structured input as a whole, or a connected input).
    ZR_DECLARE_EXCEPTION(ExNotAnimatable, ExBase);
    // A number asked of a string input or a string of a number input.
    ZR_DECLARE_EXCEPTION(ExWrongType, ExBase);
};

// The value at a time: a connected input reads its output; else an expression is evaluated;
// else the curve; else the static value. Int and bool inputs round curve and expression values
// to the nearest integer (a bool is 1 for any non-zero result). Values are clamped to the range
// and rounded when set (setStaticValue, setKey), never when computed.
//
// The undoable state (snapshotState) is the static value or string, a copy of the curve, the
// expression text and the connection. Every mutator records it in the open undo scope.
//
// Observers, each told once per change:
// - value: the value at some time may have changed. Also told when an input that this one's
//   expression reads changes, when the input its connected output gives changes, and for a
//   structured input when one of its parts changes; transitively, each input once per change.
// - state: animation, expression, connection or mark changed.
// - display: display name, range, default or policy changed.
class PiInput : public PiGraphObject {
public:
    enum class Type { Double, Int, Bool, String, Structured };

    PiInput(std::string name, Type type);
    ~PiInput() override;

    Type getType() const { return _type; }
    bool isNumeric() const { return _type != Type::String && _type != Type::Structured; }
    // "Double", "Int", "Bool", "String", "Structured".
    static char const* getTypeName(Type type);

    // The name shown to users; the name itself until one is set.
    std::string const& getDisplayName() const;
    void setDisplayName(std::string const& displayName);

    // The node that holds the input (for a part, the node of its structured input); null once
    // the node is gone.
    PiNode* getNode() const { return _node; }
    RCShdPtr<PiNode> getNodePtr() const;
    // The graph of the node, or null.
    PiGraph* getGraph() const;
    // The structured input of a part, else null.
    PiStructuredInput* getParent() const { return _parent; }
    // "Blur1.radius", "Grade1.gain.Red", "Group1.Blur1.radius": what expressions read.
    std::string getFullName() const;

    double getMinimum() const { return _minimum; }
    double getMaximum() const { return _maximum; }
    double getDefault() const { return _default; }
    std::string const& getDefaultString() const { return _defaultString; }
    // A minimum above the maximum is an assertion failure. The static value is not changed.
    virtual void setRange(double minimum, double maximum);
    virtual void setDefault(double value);
    void setDefaultString(std::string const& value);
    RCShdPtr<PiInputPolicy const> getPolicy() const { return _policy; }
    void setPolicy(RCShdPtr<PiInputPolicy const> const& policy);

    // Connection to another node's output.
    bool isConnected() const { return !_connection.isNull(); }
    RCShdPtr<PiOutput> getConnectedOutput() const { return _connection; }
    // Replaces any earlier connection. Connecting a string or structured input is an assertion
    // failure.
    void connect(RCShdPtr<PiOutput> const& output);
    void disconnect();

    // The static value. Setting clamps to the range and rounds int and bool inputs; on a
    // structured input it sets every part. A string input raises PiInputEx::ExWrongType.
    virtual double getStaticValue() const;
    virtual void setStaticValue(double value);
    // The value of a string input (its static value); a number input raises ExWrongType.
    std::string const& getStringValue() const;
    void setStringValue(std::string const& value);

    // Animation. The curve held is the input's own copy; null when not animated.
    RCShdPtr<TmTimeCurve const> getCurve() const { return _curve; }
    // Stores a copy (a TcTimeCurve) of `curve`; null removes the animation. An input that is
    // not animatable raises PiInputEx::ExNotAnimatable unless `curve` is null.
    void setCurve(RCShdPtr<TmTimeCurve const> const& curve);
    // Sets a key (value clamped and rounded as a static value), creating the curve if needed.
    void setKey(double time, double value);
    // Removes the key at `time`; the last key removed leaves an empty curve (still animated).
    // False when there is no key there.
    bool removeKey(double time);
    // Numeric and not connected.
    virtual bool isAnimatable() const;
    virtual bool hasAnimation() const;
    bool hasKeyAt(double time) const;
    // Editing the live curve in place, for callers that add many keys: editCurve records the
    // input's state in the open undo scope and returns its curve (null when not animated);
    // curveEdited tells the observers once the edits are done.
    RCShdPtr<TmTimeCurve> editCurve();
    void curveEdited();

    // Expression. An empty text removes it. The text is kept even when it does not compile;
    // the input then falls back to its curve or static value and reports the error.
    std::string const& getExpression() const { return _expressionText; }
    void setExpression(std::string const& text);
    virtual bool hasExpression() const { return !_expressionText.empty(); }
    PiExpression const* getCompiledExpression() const { return _expression.get(); }
    // The compile error, else the error of the last evaluation ("Unknown input: X",
    // "Expression cycle: A -> B -> A"); empty when there is none.
    std::string getExpressionError() const;

    // The value at `time` (seconds), by the rule above. A string input gives 0. A structured
    // input gives the value of its first part.
    virtual double evaluate(double time) const;

    // Drops expression, animation and connection and sets the default, parts included, as one
    // recorded change: value observers once, state observers once (when the state changed).
    virtual void reset();
    // Drops expression and animation and keeps the value at `time` as the static value, as one
    // recorded change.
    virtual void removeAnimationKeepingValue(double time);

    // The keyframing mark (kept by the keyframing utility); a change tells the state observers.
    bool isMarked() const { return _marked; }
    void setMarked(bool marked);

    void addValueCb(CbHandler<CbEmptyType>* h) { _valueDispatcher.addHandler(h); }
    void removeValueCb(CbHandler<CbEmptyType>* h) { _valueDispatcher.removeHandler(h); }
    void addStateCb(CbHandler<CbEmptyType>* h) { _stateDispatcher.addHandler(h); }
    void removeStateCb(CbHandler<CbEmptyType>* h) { _stateDispatcher.removeHandler(h); }
    void addDisplayCb(CbHandler<CbEmptyType>* h) { _displayDispatcher.addHandler(h); }
    void removeDisplayCb(CbHandler<CbEmptyType>* h) { _displayDispatcher.removeHandler(h); }

    OPtr<CmMemento> snapshotState() const override;
    void restoreState(CmMemento const& memento) override;

    // Inputs are named by their node: renaming one is an assertion failure.
    void setName(std::string name) override;

    // Used by the node and the structured input that hold the input.
    void setNode(PiNode* node) { _node = node; }
    void setParent(PiStructuredInput* parent) { _parent = parent; }
    // Used by the graph: enters or leaves the graph's record of which inputs read which.
    void registerReads(PiGraph* graph);
    void unregisterReads();

    // Tells the value observers of this input and of every input depending on it, each once.
    void notifyValueChanged();
    void notifyStateChanged() { _stateDispatcher.call(); }
    void notifyDisplayChanged() { _displayDispatcher.call(); }

protected:
    // Rounds int and bool values and clamps to the range.
    double constrain(double value) const;
    // Raises PiExpressionEx::ExEvaluation for a computed value this input can't hold: NaN for
    // an integer or boolean input, an infinity for an integer one.
    void checkHoldable(double value) const;
    double roundForType(double value) const;
    // Evaluation that lets an expression cycle pass up to the input where it started.
    double evaluateInCycle(double time) const;
    // The inputs this one's expression reads, when its value comes from the expression; null
    // otherwise.
    std::vector<PiInput*> const* getExpressionReads() const;
    // Computes, before a top-level evaluation, every input the expression reads directly or
    // not, bottom up and without recursion, so that the evaluation itself stays shallow and
    // each input is computed once.
    void computeReadsAhead(double time) const;
    double evaluateWithoutExpression(double time) const;
    void fireChange(bool value, bool state);
    void checkAnimatable() const;

private:
    struct State;
    struct Memento;
    friend class PiStructuredInput;
    friend class PiOutput;

    State captureState() const;
    // Puts a state back; returns which observers must be told (value, state).
    std::pair<bool, bool> applyState(State const& state);
    void compileExpression();
    // Rebuilds the cache of inputs the expression reads when the graph's structure changed.
    void resolveReads() const;

    Type _type;
    std::string _displayName;
    PiNode* _node = nullptr;
    PiStructuredInput* _parent = nullptr;
    double _minimum;
    double _maximum;
    double _default = 0.0;
    std::string _defaultString;
    RCShdPtr<PiInputPolicy const> _policy;

    // The undoable state.
    double _staticValue = 0.0;
    std::string _stringValue;
    RCShdPtr<TmTimeCurve> _curve;
    std::string _expressionText;
    RCShdPtr<PiOutput> _connection;

    std::unique_ptr<PiExpression> _expression;
    mutable std::string _evaluationError;
    bool _marked = false;

    // The graph whose dependency record holds this input's reads, and what it holds.
    PiGraph* _readsGraph = nullptr;
    std::vector<std::string> _registeredReads;
    mutable std::vector<PiInput*> _resolvedReads;
    mutable std::uint64_t _resolvedVersion = 0;

    CbDispatcher<CbEmptyType> _valueDispatcher;
    CbDispatcher<CbEmptyType> _stateDispatcher;
    CbDispatcher<CbEmptyType> _displayDispatcher;
};

} // namespace Zr
