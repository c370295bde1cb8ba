// PiInput: evaluation, undoable state and observers of a node input.
#include "piInput.h"

#include "piExpression.h"
#include "piGraph.h"
#include "piNode.h"
#include "piStructuredInput.h"
#include "tcTimeCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace Zr {

namespace {

// The inputs whose evaluation is under way on this thread, outermost first, and the input at
// which a detected cycle started while the cycle's error travels up to it.
thread_local std::vector<PiInput const*> tl_evaluating;
thread_local PiInput const* tl_cycleStart = nullptr;

// The inputs under evaluation, for a look-up in constant time (tl_evaluating keeps the order).
thread_local std::unordered_set<PiInput const*> tl_evaluatingSet;
// Values of inputs already computed in the present top-level evaluation (one time), so that
// each input of a chain or a diamond is computed once; null outside one.
thread_local std::unordered_map<PiInput const*, double>* tl_computed = nullptr;

// How deep expressions may read through each other while evaluating recursively. A long chain
// never gets near it (its links are computed ahead, bottom up); only the inputs leading into
// a cycle recurse, and past this depth the deepest falls back as on a cycle.
constexpr std::size_t MaxReadDepth = 1000;

class EvaluationFrame {
public:
    explicit EvaluationFrame(PiInput const* input) {
        tl_evaluating.push_back(input);
        tl_evaluatingSet.insert(input);
    }
    ~EvaluationFrame() {
        tl_evaluatingSet.erase(tl_evaluating.back());
        tl_evaluating.pop_back();
    }
    EvaluationFrame(EvaluationFrame const&) = delete;
    EvaluationFrame& operator=(EvaluationFrame const&) = delete;
};

// A cycle is an input read again while its own evaluation is under way.
void checkNoCycle(PiInput const* input) {
    if (tl_evaluating.size() >= MaxReadDepth)
        throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__,
                                           "Expressions read through more than " +
                                               std::to_string(MaxReadDepth) + " inputs");
    if (!tl_evaluatingSet.contains(input))
        return;
    auto it = std::find(tl_evaluating.begin(), tl_evaluating.end(), input);
    std::string text = "Expression cycle: ";
    for (; it != tl_evaluating.end(); ++it)
        text += (*it)->getFullName() + " -> ";
    text += input->getFullName();
    tl_cycleStart = input;
    throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__, text);
}

RCShdPtr<TmTimeCurve> copyAsEditable(TmTimeCurve const& curve) {
    if (dynamic_cast<TcTimeCurve const*>(&curve))
        return curve.clone();
    RCShdPtr<TcTimeCurve> copy = makeShared<TcTimeCurve>();
    for (TmKeyframe const& key : curve.getKeys())
        copy->setKey(key);
    return copy;
}

bool sameCurve(RCShdPtr<TmTimeCurve> const& a, RCShdPtr<TmTimeCurve> const& b) {
    if (a.isNull() || b.isNull())
        return a.isNull() == b.isNull();
    return *a == *b;
}

} // namespace

struct PiInput::State {
    double staticValue = 0.0;
    std::string stringValue;
    RCShdPtr<TmTimeCurve> curve;
    std::string expression;
    RCShdPtr<PiOutput> connection;

    bool sameStateAs(State const& o) const {
        return sameCurve(curve, o.curve) && expression == o.expression &&
               connection == o.connection;
    }
    bool operator==(State const& o) const {
        return staticValue == o.staticValue && stringValue == o.stringValue && sameStateAs(o);
    }
};

struct PiInput::Memento : CmMemento {
    explicit Memento(State s) : state(std::move(s)) {}
    bool equals(CmMemento const& other) const override {
        auto const* o = dynamic_cast<Memento const*>(&other);
        return o && state == o->state;
    }
    State state;
};

PiInput::PiInput(std::string name, Type type)
    : PiGraphObject(std::move(name)), _type(type),
      _minimum(type == Type::Bool ? 0.0 : -std::numeric_limits<double>::max()),
      _maximum(type == Type::Bool ? 1.0 : std::numeric_limits<double>::max()) {}

PiInput::~PiInput() {
    unregisterReads();
    if (_connection)
        _connection->removeConnectedInput(this);
}

char const* PiInput::getTypeName(Type type) {
    switch (type) {
    case Type::Double:
        return "Double";
    case Type::Int:
        return "Int";
    case Type::Bool:
        return "Bool";
    case Type::String:
        return "String";
    case Type::Structured:
        return "Structured";
    }
    return "Double";
}

std::string const& PiInput::getDisplayName() const {
    return _displayName.empty() ? getName() : _displayName;
}

void PiInput::setDisplayName(std::string const& displayName) {
    if (displayName == _displayName)
        return;
    _displayName = displayName;
    notifyDisplayChanged();
}

RCShdPtr<PiNode> PiInput::getNodePtr() const {
    return RCShdPtr<PiNode>(_node);
}

PiGraph* PiInput::getGraph() const {
    return _node ? _node->getGraph() : nullptr;
}

std::string PiInput::getFullName() const {
    std::string name;
    if (_node)
        name = _node->getFullName() + ".";
    if (_parent)
        name += _parent->getName() + ".";
    return name + getName();
}

void PiInput::setName(std::string name) {
    ZR_ASSERT_TEXT(name == getName(), "Inputs cannot be renamed");
}

void PiInput::setRange(double minimum, double maximum) {
    ZR_ASSERT(minimum <= maximum);
    if (minimum == _minimum && maximum == _maximum)
        return;
    _minimum = minimum;
    _maximum = maximum;
    notifyDisplayChanged();
}

void PiInput::setDefault(double value) {
    if (value == _default)
        return;
    _default = value;
    notifyDisplayChanged();
}

void PiInput::setDefaultString(std::string const& value) {
    if (value == _defaultString)
        return;
    _defaultString = value;
    notifyDisplayChanged();
}

void PiInput::setPolicy(RCShdPtr<PiInputPolicy const> const& policy) {
    if (policy == _policy)
        return;
    _policy = policy;
    notifyDisplayChanged();
}

// --- Connection

void PiInput::connect(RCShdPtr<PiOutput> const& output) {
    if (output.isNull()) {
        disconnect();
        return;
    }
    ZR_ASSERT_TEXT(isNumeric(), "Only number inputs can be connected");
    if (output == _connection)
        return;
    willChange();
    State s = captureState();
    s.connection = output;
    auto [value, state] = applyState(s);
    fireChange(value, state);
}

void PiInput::disconnect() {
    if (!_connection)
        return;
    willChange();
    State s = captureState();
    s.connection = nullptr;
    auto [value, state] = applyState(s);
    fireChange(value, state);
}

// --- Static value

double PiInput::getStaticValue() const {
    if (_type == Type::String)
        throw PiInputEx::ExWrongType(__FILE__, __LINE__,
                                     "String input has no number: " + getFullName());
    return _staticValue;
}

void PiInput::setStaticValue(double value) {
    if (_type == Type::String)
        throw PiInputEx::ExWrongType(__FILE__, __LINE__,
                                     "String input has no number: " + getFullName());
    value = constrain(value);
    if (value == _staticValue)
        return;
    willChange();
    _staticValue = value;
    fireChange(true, false);
}

std::string const& PiInput::getStringValue() const {
    if (_type != Type::String)
        throw PiInputEx::ExWrongType(__FILE__, __LINE__,
                                     "Number input has no string: " + getFullName());
    return _stringValue;
}

void PiInput::setStringValue(std::string const& value) {
    if (_type != Type::String)
        throw PiInputEx::ExWrongType(__FILE__, __LINE__,
                                     "Number input has no string: " + getFullName());
    if (value == _stringValue)
        return;
    willChange();
    _stringValue = value;
    fireChange(true, false);
}

double PiInput::roundForType(double value) const {
    // An integer input holds an int: values past its range are kept at its ends, and a
    // computed NaN never reaches it (evaluation reports it and falls back; see checkHoldable).
    if (_type == Type::Int)
        return std::isnan(value)
                   ? 0.0
                   : std::clamp(std::round(value), double(std::numeric_limits<int>::min()),
                                double(std::numeric_limits<int>::max()));
    if (_type == Type::Bool)
        return !std::isnan(value) && std::round(value) != 0.0 ? 1.0 : 0.0;
    return value;
}

void PiInput::checkHoldable(double value) const {
    bool const integer = _type == Type::Int;
    if (!(integer || _type == Type::Bool) || std::isfinite(value) ||
        (!integer && !std::isnan(value)))
        return;
    std::string const what = std::isnan(value) ? "NaN" : value > 0 ? "infinity" : "-infinity";
    throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__,
                                       "The value is " + what + ", which " +
                                           (integer ? "an integer" : "a boolean") +
                                           " input cannot hold");
}

double PiInput::constrain(double value) const {
    return std::clamp(roundForType(value), _minimum, _maximum);
}

// --- Animation

void PiInput::checkAnimatable() const {
    if (!isAnimatable())
        throw PiInputEx::ExNotAnimatable(__FILE__, __LINE__,
                                         "Input is not animatable: " + getFullName());
}

bool PiInput::isAnimatable() const {
    return isNumeric() && !isConnected();
}

bool PiInput::hasAnimation() const {
    return !_curve.isNull();
}

bool PiInput::hasKeyAt(double time) const {
    return _curve && _curve->findKey(time) != nullptr;
}

void PiInput::setCurve(RCShdPtr<TmTimeCurve const> const& curve) {
    if (curve.isNull()) {
        if (!_curve)
            return;
        willChange();
        _curve = nullptr;
        fireChange(true, true);
        return;
    }
    checkAnimatable();
    if (_curve && *_curve == *curve)
        return;
    willChange();
    _curve = copyAsEditable(*curve);
    fireChange(true, true);
}

void PiInput::setKey(double time, double value) {
    checkAnimatable();
    value = constrain(value);
    if (_curve) {
        TmKeyframe const* key = _curve->findKey(time);
        if (key && key->getValue() == value)
            return;
    }
    willChange();
    if (!_curve)
        _curve = makeShared<TcTimeCurve>();
    if (auto* editable = dynamic_cast<TcTimeCurve*>(_curve.get()))
        editable->addKey(time, value);
    else
        _curve->setKey(time, value);
    fireChange(true, true);
}

bool PiInput::removeKey(double time) {
    if (!hasKeyAt(time))
        return false;
    willChange();
    _curve->removeKey(time);
    fireChange(true, true);
    return true;
}

RCShdPtr<TmTimeCurve> PiInput::editCurve() {
    if (_curve)
        willChange();
    return _curve;
}

void PiInput::curveEdited() {
    fireChange(true, true);
}

// --- Expression

void PiInput::setExpression(std::string const& text) {
    if (text == _expressionText)
        return;
    if (!text.empty() && !isNumeric())
        throw PiInputEx::ExNotAnimatable(__FILE__, __LINE__,
                                         "Input takes no expression: " + getFullName());
    willChange();
    State s = captureState();
    s.expression = text;
    auto [value, state] = applyState(s);
    fireChange(value, state);
}

void PiInput::compileExpression() {
    _evaluationError.clear();
    _resolvedVersion = 0;
    if (_expressionText.empty())
        _expression.reset();
    else
        _expression = std::make_unique<PiExpression>(_expressionText);
    if (PiGraph* graph = _readsGraph) {
        unregisterReads();
        registerReads(graph);
    }
}

std::string PiInput::getExpressionError() const {
    if (_expression && !_expression->isValid())
        return _expression->getErrorMessage();
    return _evaluationError;
}

void PiInput::registerReads(PiGraph* graph) {
    unregisterReads();
    if (!graph)
        return;
    _readsGraph = graph;
    if (_expression)
        _registeredReads = _expression->getVariables();
    for (std::string const& name : _registeredReads)
        graph->addReader(name, this);
}

void PiInput::unregisterReads() {
    if (_readsGraph)
        for (std::string const& name : _registeredReads)
            _readsGraph->removeReader(name, this);
    _registeredReads.clear();
    _readsGraph = nullptr;
    _resolvedVersion = 0;
}

void PiInput::resolveReads() const {
    PiGraph* graph = getGraph();
    std::uint64_t version = graph ? graph->getStructureVersion() : 0;
    if (_resolvedVersion == version && version != 0)
        return;
    std::vector<std::string> const& names = _expression->getVariables();
    _resolvedReads.assign(names.size(), nullptr);
    if (graph)
        for (std::size_t i = 0; i < names.size(); ++i)
            _resolvedReads[i] = graph->findInput(names[i]).get();
    _resolvedVersion = version;
}

// --- Evaluation

double PiInput::evaluate(double time) const {
    // A top-level evaluation first computes what the expression reads, bottom up.
    std::unordered_map<PiInput const*, double> computed;
    bool const top = tl_evaluating.empty() && tl_computed == nullptr;
    if (top) {
        tl_computed = &computed;
        computeReadsAhead(time);
    }
    struct EndTop {
        bool top;
        ~EndTop() {
            if (top)
                tl_computed = nullptr;
        }
    } endTop{top};
    try {
        return evaluateInCycle(time);
    } catch (PiExpressionEx::ExEvaluation const&) {
        // Only a cycle's error can get here, and only when the input where it started has
        // already left the evaluation; the outermost input falls back.
        if (!tl_evaluating.empty())
            throw;
        tl_cycleStart = nullptr;
        return evaluateWithoutExpression(time);
    }
}

std::vector<PiInput*> const* PiInput::getExpressionReads() const {
    if (_type == Type::String || isConnected() || !_expression || !_expression->isValid())
        return nullptr;
    resolveReads();
    return &_resolvedReads;
}

void PiInput::computeReadsAhead(double time) const {
    // Depth first without recursion, each input after what it reads. An input on a cycle, or
    // one that reaches a cycle, is left to the recursive evaluation, which reports the cycle
    // from the same entry as without this step.
    enum class Mark { Open, Done, Cyclic };
    std::unordered_map<PiInput const*, Mark> marks{{this, Mark::Open}};
    struct Frame {
        PiInput const* input;
        std::vector<PiInput*> const* reads;
        std::size_t next;
        bool cyclic;
    };
    std::vector<Frame> stack{{this, getExpressionReads(), 0, false}};
    while (!stack.empty()) {
        Frame& frame = stack.back();
        if (frame.reads && frame.next < frame.reads->size()) {
            PiInput const* read = (*frame.reads)[frame.next++];
            if (!read)
                continue;
            auto const [mark, fresh] = marks.try_emplace(read, Mark::Open);
            if (fresh)
                stack.push_back({read, read->getExpressionReads(), 0, false});
            else if (mark->second != Mark::Done)
                frame.cyclic = true; // open: a cycle; cyclic: leads into one
            continue;
        }
        Frame const done = frame;
        stack.pop_back();
        marks[done.input] = done.cyclic ? Mark::Cyclic : Mark::Done;
        if (!stack.empty() && done.cyclic)
            stack.back().cyclic = true;
        if (done.cyclic || !done.reads || stack.empty())
            continue;
        double const value = done.input->evaluateInCycle(time);
        (*tl_computed)[done.input] = value;
    }
}

double PiInput::evaluateWithoutExpression(double time) const {
    if (_curve && _curve->getNbKeys() > 0)
        return roundForType(_curve->evaluate(time));
    return _type == Type::String ? 0.0 : _staticValue;
}

double PiInput::evaluateInCycle(double time) const {
    if (_type == Type::String)
        return 0.0;
    bool const viaConnection = isConnected();
    bool const viaExpression = !viaConnection && _expression && _expression->isValid();
    if (!viaConnection && !viaExpression)
        return evaluateWithoutExpression(time);

    checkNoCycle(this);
    EvaluationFrame frame(this);
    try {
        double value;
        if (viaConnection) {
            value = _connection->getValue(time);
        } else {
            PiGraph* graph = getGraph();
            double rate = graph ? graph->getFrameRate().toDouble() : 25.0;
            resolveReads();
            value = _expression->evaluate(time, rate, [this, time](int index) {
                PiInput const* read = _resolvedReads[static_cast<std::size_t>(index)];
                if (!read) {
                    throw PiExpressionEx::ExEvaluation(
                        __FILE__, __LINE__,
                        "Unknown input: " +
                            _expression->getVariables()[static_cast<std::size_t>(index)]);
                }
                if (tl_computed) {
                    auto const found = tl_computed->find(read);
                    if (found != tl_computed->end())
                        return found->second;
                }
                return read->evaluateInCycle(time);
            });
            _evaluationError.clear();
        }
        checkHoldable(value);
        return roundForType(value);
    } catch (PiExpressionEx::ExEvaluation const& e) {
        _evaluationError = e.getReason();
        // Every input on a cycle reports it; the input where the cycle started falls back.
        if (tl_cycleStart && tl_cycleStart != this)
            throw;
        tl_cycleStart = nullptr;
    }
    return evaluateWithoutExpression(time);
}

// --- Reset

void PiInput::reset() {
    State s;
    s.staticValue = _type == Type::String ? 0.0 : constrain(_default);
    s.stringValue = _type == Type::String ? _defaultString : std::string();
    if (s == captureState())
        return;
    willChange();
    auto [value, state] = applyState(s);
    fireChange(value, state);
}

void PiInput::removeAnimationKeepingValue(double time) {
    if (!_curve && _expressionText.empty())
        return;
    State s = captureState();
    if (isNumeric())
        s.staticValue = constrain(evaluate(time));
    s.curve = nullptr;
    s.expression.clear();
    willChange();
    auto [value, state] = applyState(s);
    fireChange(value, state);
}

void PiInput::setMarked(bool marked) {
    if (marked == _marked)
        return;
    _marked = marked;
    fireChange(false, true);
}

// --- Undo

PiInput::State PiInput::captureState() const {
    State s;
    s.staticValue = _staticValue;
    s.stringValue = _stringValue;
    s.curve = _curve ? _curve->clone() : nullptr;
    s.expression = _expressionText;
    s.connection = _connection;
    return s;
}

std::pair<bool, bool> PiInput::applyState(State const& s) {
    State const old{_staticValue, _stringValue, _curve, _expressionText, _connection};
    bool const stateChanged = !old.sameStateAs(s);
    bool const valueChanged = stateChanged || !(old == s);

    _staticValue = s.staticValue;
    _stringValue = s.stringValue;
    if (!sameCurve(_curve, s.curve))
        _curve = s.curve ? copyAsEditable(*s.curve) : nullptr;
    if (s.connection != _connection) {
        if (_connection)
            _connection->removeConnectedInput(this);
        _connection = s.connection;
        if (_connection)
            _connection->addConnectedInput(this);
    }
    if (s.expression != _expressionText) {
        _expressionText = s.expression;
        compileExpression();
    }
    return {valueChanged, stateChanged};
}

OPtr<CmMemento> PiInput::snapshotState() const {
    return std::make_unique<Memento>(captureState());
}

void PiInput::restoreState(CmMemento const& memento) {
    auto const& m = dynamic_cast<Memento const&>(memento);
    auto [value, state] = applyState(m.state);
    fireChange(value, state);
}

// --- Observers

void PiInput::fireChange(bool value, bool state) {
    RCShdPtr<PiInput> keep(this);
    if (value)
        notifyValueChanged();
    if (state) {
        _stateDispatcher.call();
        if (_parent && _parent->_batchDepth > 0)
            _parent->_pendingState = true;
        else if (_parent)
            _parent->_stateDispatcher.call();
    }
}

void PiInput::notifyValueChanged() {
    std::vector<RCShdPtr<PiInput>> queue{RCShdPtr<PiInput>(this)};
    std::unordered_set<PiInput*> queued{this};
    auto push = [&queue, &queued](PiInput* input) {
        if (queued.insert(input).second)
            queue.emplace_back(input);
    };
    for (std::size_t i = 0; i < queue.size(); ++i) {
        PiInput* input = queue[i].get();
        input->_valueDispatcher.call();
        if (input->_parent && input->_parent->_batchDepth > 0)
            input->_parent->_pendingValue = true;
        else if (input->_parent)
            push(input->_parent);
        if (PiGraph* graph = input->getGraph()) {
            std::vector<PiInput*> readers = graph->getReaders(input->getFullName());
            for (PiInput* reader : readers)
                push(reader);
        }
        if (PiNode* node = input->_node) {
            for (auto const& output : node->getOutputs()) {
                std::vector<PiInput*> sources = output->getSourceInputs();
                if (std::find(sources.begin(), sources.end(), input) == sources.end())
                    continue;
                std::vector<PiInput*> connected = output->getConnectedInputs();
                for (PiInput* c : connected)
                    push(c);
            }
        }
    }
}

} // namespace Zr
