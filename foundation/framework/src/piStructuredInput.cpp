// PiStructuredInput: an input made of Double parts that hold the values.
#include "piStructuredInput.h"

#include "piInputPolicy.h"

namespace Zr {

PiStructuredInput::PiStructuredInput(std::string name, std::vector<std::string> const& partNames,
                                     double minimum, double maximum, double defaultValue)
    : PiInput(std::move(name), Type::Structured) {
    PiInput::setRange(minimum, maximum);
    PiInput::setDefault(defaultValue);
    for (std::string const& partName : partNames) {
        RCShdPtr<PiInput> part = makeShared<PiInput>(partName, Type::Double);
        part->setRange(minimum, maximum);
        part->setDefault(defaultValue);
        // A part starts at its default, as a reset would leave it; nothing is recorded.
        part->_staticValue = part->constrain(defaultValue);
        part->setParent(this);
        _parts.push_back(part);
    }
    setPolicy(makeShared<PiStructuredInputPolicy>(partNames));
}

PiStructuredInput::~PiStructuredInput() {
    for (auto const& part : _parts) {
        part->setParent(nullptr);
        part->setNode(nullptr);
    }
}

template <class F>
void PiStructuredInput::changeParts(F const& change) {
    RCShdPtr<PiInput> keep(this);
    if (_batchDepth++ == 0)
        _pendingValue = _pendingState = false;
    try {
        for (auto const& part : _parts)
            change(*part);
    } catch (...) {
        --_batchDepth;
        throw;
    }
    if (--_batchDepth == 0 && (_pendingValue || _pendingState))
        fireChange(_pendingValue, _pendingState);
}

RCShdPtr<PiInput> PiStructuredInput::getPart(int index) const {
    if (index < 0 || index >= getNbParts())
        return nullptr;
    return _parts[static_cast<std::size_t>(index)];
}

RCShdPtr<PiInput> PiStructuredInput::findPart(std::string const& name) const {
    for (auto const& part : _parts)
        if (part->getName() == name)
            return part;
    return nullptr;
}

void PiStructuredInput::setRange(double minimum, double maximum) {
    for (auto const& part : _parts)
        part->setRange(minimum, maximum);
    PiInput::setRange(minimum, maximum);
}

void PiStructuredInput::setDefault(double value) {
    for (auto const& part : _parts)
        part->setDefault(value);
    PiInput::setDefault(value);
}

double PiStructuredInput::getStaticValue() const {
    return _parts.empty() ? 0.0 : _parts.front()->getStaticValue();
}

void PiStructuredInput::setStaticValue(double value) {
    changeParts([value](PiInput& part) { part.setStaticValue(value); });
}

bool PiStructuredInput::hasAnimation() const {
    for (auto const& part : _parts)
        if (part->hasAnimation())
            return true;
    return false;
}

bool PiStructuredInput::hasExpression() const {
    for (auto const& part : _parts)
        if (part->hasExpression())
            return true;
    return false;
}

double PiStructuredInput::evaluate(double time) const {
    return _parts.empty() ? 0.0 : _parts.front()->evaluate(time);
}

void PiStructuredInput::reset() {
    changeParts([](PiInput& part) { part.reset(); });
}

void PiStructuredInput::removeAnimationKeepingValue(double time) {
    changeParts([time](PiInput& part) { part.removeAnimationKeepingValue(time); });
}

} // namespace Zr
