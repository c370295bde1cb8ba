// PxNodeEvaluator: sampling of an input's values, and the conversion of an expression to keys.
#include "pxNodeEvaluator.h"

#include "tcTimeCurve.h"
#include "tcTimeCurveUtils.h"

#include <cmath>

namespace Zr {

PxNodeEvaluator::PxNodeEvaluator() = default;
PxNodeEvaluator::~PxNodeEvaluator() = default;

void PxNodeEvaluator::evaluate(RCShdPtr<PiInput const> const& input, double start, double end,
                               double rate) {
    ZR_ASSERT(rate > 0.0);
    _minTime = start;
    _rate = rate;
    _values.clear();
    if (input.isNull() || !(end >= start))
        return;
    // Sample i sits at start + i / rate: dividing keeps the times exact where adding 1/rate
    // repeatedly would drift.
    auto const count = static_cast<std::size_t>(std::floor((end - start) * rate + 1e-6)) + 1;
    _values.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        _values.push_back(input->evaluate(start + static_cast<double>(i) / rate));
}

void PxNodeEvaluator::evaluateNode(PiNode const* node, double start, double end, double rate) {
    RCShdPtr<PiInput const> input;
    if (node && node->getNbInputs() > 0)
        input = node->getInput(0);
    evaluate(input, start, end, rate);
}

bool PxNodeEvaluator::convertToKeys(RCShdPtr<PiInput> const& input, double start, double end,
                                    double rate) {
    if (input.isNull() || !input->isAnimatable())
        return false;
    PxNodeEvaluator evaluator;
    evaluator.evaluate(input, start, end, rate);
    if (evaluator.getValues().empty())
        return false;
    auto curve = makeShared<TcTimeCurve>();
    std::vector<double> times;
    times.reserve(evaluator.getValues().size());
    for (std::size_t i = 0; i < evaluator.getValues().size(); ++i) {
        double const time = start + static_cast<double>(i) / rate;
        curve->addKey(time, evaluator.getValues()[i]);
        times.push_back(time);
    }
    TcTimeCurveUtils::simplify(*curve, times, 0.001, 0.001);
    input->reset();
    input->setCurve(curve);
    return true;
}

} // namespace Zr
