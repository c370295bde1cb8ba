// PiKeyframingUtil: keys, marks and key times of a graph's inputs; and the graph's and the
// controllers' access to the one utility of a graph.
#include "piKeyframingUtil.h"

#include "piCompositionGraphInterface.h"
#include "piGraph.h"
#include "piGraphAnimInterface.h"
#include "piStructuredInput.h"
#include "piUndoGuard.h"

#include <algorithm>
#include <optional>

namespace Zr {

RCShdPtr<PiKeyframingUtil> PiGraph::getKeyframingUtil() {
    if (_keyframingUtil.isNull())
        _keyframingUtil = makeShared<PiKeyframingUtil>(this);
    return RCShdPtr<PiKeyframingUtil>(static_cast<PiKeyframingUtil*>(_keyframingUtil.get()));
}

RCShdPtr<PiKeyframingUtil> PiCompositionGraphInterface::getKeyframingUtil() const {
    PiGraph* graph = getCompositionGraph();
    return graph ? graph->getKeyframingUtil() : nullptr;
}

namespace {

// The curves whose keys are the input's keys: its own, or its parts'.
template <class F>
void forEachCurve(PiInput const& input, F&& f) {
    if (auto const* whole = dynamic_cast<PiStructuredInput const*>(&input)) {
        for (auto const& part : whole->getParts())
            if (auto curve = part->getCurve())
                f(*curve);
        return;
    }
    if (auto curve = input.getCurve())
        f(*curve);
}

// The extreme of the times each curve gives (`better(a, b)`: a is preferred to b).
template <class Get, class Better>
bool findKeyTime(RCShdPtr<PiInput const> const& input, double& result, Get&& get, Better&& better) {
    if (input.isNull())
        return false;
    std::optional<double> best;
    forEachCurve(*input, [&](TmTimeCurve const& curve) {
        std::optional<double> t = get(curve);
        if (t && (!best || better(*t, *best)))
            best = t;
    });
    if (!best)
        return false;
    result = *best;
    return true;
}

bool isKeySettingAllowed(PiInput const& input) {
    PiNode const* node = input.getNode();
    if (!node)
        return true;
    auto controller = node->getControllerRO().lock();
    auto const* anim = dynamic_cast<PiGraphAnimInterface const*>(controller.get());
    return !anim || anim->isKeySettingAllowed();
}

// Every input of the node, parts of structured inputs after their whole.
template <class F>
void forEachInputOf(PiNode const& node, F&& f) {
    for (auto const& input : node.getInputs()) {
        f(input);
        if (auto const* whole = dynamic_cast<PiStructuredInput const*>(input.get()))
            for (auto const& part : whole->getParts())
                f(part);
    }
}

} // namespace

PiKeyframingUtil::PiKeyframingUtil(PiGraph* graph) : _graph(graph) {}

PiKeyframingUtil::~PiKeyframingUtil() = default;

bool PiKeyframingUtil::setKey(RCShdPtr<PiInput> const& input, double time) {
    if (input.isNull() || !input->isAnimatable() || !isKeySettingAllowed(*input))
        return false;
    PiNode const* node = input->getNode();
    PiUndoGuard guard(node ? RCShdPtr<CmCommandStack>(node->getCommandStack()) : nullptr,
                      "Set Keyframe");
    input->setKey(time, input->evaluate(time));
    return true;
}

bool PiKeyframingUtil::mark(RCShdPtr<PiInput> const& input,
                            RCShdPtr<PiTimePath const> const& timePath) {
    for (auto& mark : _marks)
        if (mark.input == input) {
            mark.timePath = timePath;
            if (input->isMarked())
                return false;
            input->setMarked(true);
            return true;
        }
    _marks.push_back({input, timePath});
    if (input->isMarked())
        return false;
    input->setMarked(true);
    return true;
}

bool PiKeyframingUtil::unmark(PiInput const* input) {
    auto it = std::find_if(_marks.begin(), _marks.end(),
                           [input](Mark const& m) { return m.input.get() == input; });
    if (it == _marks.end())
        return false;
    RCShdPtr<PiInput> const marked = it->input;
    _marks.erase(it);
    if (!marked->isMarked())
        return false;
    marked->setMarked(false);
    return true;
}

void PiKeyframingUtil::markAttribute(RCShdPtr<PiInput> const& input,
                                     RCShdPtr<PiTimePath const> const& timePath) {
    if (!input.isNull() && mark(input, timePath))
        notify();
}

void PiKeyframingUtil::unmarkAttribute(RCShdPtr<PiInput> const& input) {
    if (!input.isNull() && unmark(input.get()))
        notify();
}

void PiKeyframingUtil::unmarkAll() {
    bool changed = false;
    auto marks = std::move(_marks);
    _marks.clear();
    for (auto const& m : marks)
        if (m.input->isMarked()) {
            m.input->setMarked(false);
            changed = true;
        }
    if (changed)
        notify();
}

bool PiKeyframingUtil::isAttributeMarked(RCShdPtr<PiInput const> const& input) const {
    return !input.isNull() && input->isMarked();
}

bool PiKeyframingUtil::hasMarkedAttributes(RCShdPtr<PiNode const> const& node) const {
    if (node.isNull())
        return false;
    bool marked = false;
    forEachInputOf(*node,
                   [&marked](RCShdPtr<PiInput> const& in) { marked = marked || in->isMarked(); });
    return marked;
}

void PiKeyframingUtil::markToolForInput(RCShdPtr<PiInput> const& input,
                                        RCShdPtr<PiTimePath const> const& timePath) {
    if (input.isNull() || !input->getNode())
        return;
    bool changed = false;
    forEachInputOf(*input->getNode(), [&](RCShdPtr<PiInput> const& in) {
        if (in->isAnimatable() && mark(in, timePath))
            changed = true;
    });
    if (changed)
        notify();
}

void PiKeyframingUtil::unmarkToolForInput(RCShdPtr<PiInput> const& input) {
    if (input.isNull() || !input->getNode())
        return;
    bool changed = false;
    forEachInputOf(*input->getNode(), [&](RCShdPtr<PiInput> const& in) {
        if (unmark(in.get()))
            changed = true;
    });
    if (changed)
        notify();
}

std::vector<RCShdPtr<PiInput>> PiKeyframingUtil::getMarkedInputs() const {
    std::vector<RCShdPtr<PiInput>> inputs;
    for (auto const& m : _marks)
        if (m.input->isMarked())
            inputs.push_back(m.input);
    return inputs;
}

RCShdPtr<PiTimePath const>
PiKeyframingUtil::getMarkTimePath(RCShdPtr<PiInput const> const& input) const {
    for (auto const& m : _marks)
        if (m.input == input && m.input->isMarked())
            return m.timePath;
    return nullptr;
}

bool PiKeyframingUtil::getFirstKeyframeTime(RCShdPtr<PiInput const> const& input,
                                            double& time) const {
    return findKeyTime(
        input, time, [](TmTimeCurve const& c) { return c.getFirstKeyTime(); },
        [](double a, double b) { return a < b; });
}

bool PiKeyframingUtil::getLastKeyframeTime(RCShdPtr<PiInput const> const& input,
                                           double& time) const {
    return findKeyTime(
        input, time, [](TmTimeCurve const& c) { return c.getLastKeyTime(); },
        [](double a, double b) { return a > b; });
}

bool PiKeyframingUtil::getNextKeyframeTime(RCShdPtr<PiInput const> const& input, double time,
                                           double& next) const {
    return findKeyTime(
        input, next, [time](TmTimeCurve const& c) { return c.getNextKeyTime(time); },
        [](double a, double b) { return a < b; });
}

bool PiKeyframingUtil::getPreviousKeyframeTime(RCShdPtr<PiInput const> const& input, double time,
                                               double& previous) const {
    return findKeyTime(
        input, previous, [time](TmTimeCurve const& c) { return c.getPreviousKeyTime(time); },
        [](double a, double b) { return a > b; });
}

} // namespace Zr
