// PiStructuredInput: an input made of part inputs, such as a colour with "Red", "Green" and
// "Blue". The parts hold the values, animation and expressions; the whole gives access to all.
#pragma once

#include "piInput.h"

namespace Zr {

// Part full names are "node.input.part". A change of a part tells the part's value observers
// and then the whole's. As a whole: the static value is the first part's and setting it sets
// every part, telling the whole's observers once; it is animated or has an expression when a part
// is; reset resets every part. A structured input cannot be connected or animated as a whole.
class PiStructuredInput : public PiInput {
public:
    // Makes one Double part per name, with the range and default of the whole.
    PiStructuredInput(std::string name, std::vector<std::string> const& partNames,
                      double minimum = 0.0, double maximum = 1.0, double defaultValue = 0.0);
    ~PiStructuredInput() override;

    std::vector<RCShdPtr<PiInput>> const& getParts() const { return _parts; }
    int getNbParts() const { return static_cast<int>(_parts.size()); }
    RCShdPtr<PiInput> getPart(int index) const;
    RCShdPtr<PiInput> findPart(std::string const& name) const;

    void setRange(double minimum, double maximum) override;
    void setDefault(double value) override;
    double getStaticValue() const override;
    void setStaticValue(double value) override;
    bool isAnimatable() const override { return false; }
    bool hasAnimation() const override;
    bool hasExpression() const override;
    double evaluate(double time) const override;
    void reset() override;
    void removeAnimationKeepingValue(double time) override;

private:
    friend class PiInput;
    // Runs `change` over the parts and then tells the whole's observers once, not once per
    // part.
    template <class F>
    void changeParts(F const& change);

    std::vector<RCShdPtr<PiInput>> _parts;
    int _batchDepth = 0;
    bool _pendingValue = false;
    bool _pendingState = false;
};

} // namespace Zr
