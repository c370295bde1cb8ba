// PxNodeEvaluator: samples the value of an input (or of a value node) over a stretch of time, so
// that an expression can be turned into keys.
#pragma once

#include "piInput.h"
#include "piNode.h"

#include <type_traits>
#include <vector>

namespace Zr {

class PxNodeEvaluator {
public:
    PxNodeEvaluator();
    ~PxNodeEvaluator();

    // Fills the values of the input at start, start + 1/rate, start + 2/rate, ... up to end
    // (included when it falls on a sample, within a millionth of a sample). End before start
    // gives no values; a rate that is not positive is an assertion failure. A null input gives
    // no values.
    void evaluate(RCShdPtr<PiInput const> const& input, double start, double end, double rate);
    // The same on the node's first input (the "value" input of a PiValueNode); no values for a
    // node without inputs. A template so that a pointer to an input never reads as a node.
    template <class N>
    requires std::is_base_of_v<PiNode, std::remove_const_t<N>>
    void evaluate(RCShdPtr<N> const& node, double start, double end, double rate) {
        evaluateNode(node.get(), start, end, rate);
    }

    // The time of the first value.
    double getMinTime() const { return _minTime; }
    double getRate() const { return _rate; }
    std::vector<double> const& getValues() const { return _values; }

    // Replaces the input's expression by keys: samples it from start to end at `rate`, resets
    // the input (dropping the expression), sets a key per sample on a new curve and removes the
    // keys the curve does not need (TcTimeCurveUtils::simplify with tolerances 0.001). Recorded
    // in the open undo scope. False, changing nothing, for a null input or one that cannot be
    // animated, or when there is no sample.
    static bool convertToKeys(RCShdPtr<PiInput> const& input, double start, double end,
                              double rate);

private:
    void evaluateNode(PiNode const* node, double start, double end, double rate);

    double _minTime = 0.0;
    double _rate = 1.0;
    std::vector<double> _values;
};

} // namespace Zr
