// The input policies: immutable descriptions that tell editors how to show an input, such as the
// labels of a menu, the two labels of a toggle, the parts of a colour or a 2D shape marker.
#pragma once

#include "iterator.h"
#include "rcBase.h"

#include <string>
#include <utility>
#include <vector>

namespace Zr {

// The base of every policy. Policies are shared between the inputs of all nodes of one tool.
class PiInputPolicy : public RCObject {
public:
    ~PiInputPolicy() override = default;
};

template <class T>
class PiTypedInputPolicy;

// Labels of an integer input: value i shows as label i.
template <>
class PiTypedInputPolicy<int> : public PiInputPolicy {
public:
    explicit PiTypedInputPolicy(std::vector<std::string> labels = {})
        : _labels(std::move(labels)) {}

    ConstIterator<std::string> getLabels() const { return makeConstIterator(_labels); }
    // The label of `value`; empty when the value has none.
    std::string getLabel(int value) const {
        if (value < 0 || value >= getNbLabels())
            return {};
        return _labels[static_cast<std::size_t>(value)];
    }
    int getNbLabels() const { return static_cast<int>(_labels.size()); }
    std::vector<std::string> const& getLabelList() const { return _labels; }

private:
    std::vector<std::string> _labels;
};

// A closed list of choices. On an integer input the value is the choice's index; on a string
// input the value is the label itself.
class PiEnumPolicy : public PiTypedInputPolicy<int> {
public:
    explicit PiEnumPolicy(std::vector<std::string> labels)
        : PiTypedInputPolicy<int>(std::move(labels)) {}
    // The index of `label`, or -1.
    int findLabel(std::string const& label) const {
        auto const& labels = getLabelList();
        for (std::size_t i = 0; i < labels.size(); ++i)
            if (labels[i] == label)
                return static_cast<int>(i);
        return -1;
    }
};

// The two labels of a boolean input (value 0 and value 1).
class PiBoolInputPolicy : public PiTypedInputPolicy<int> {
public:
    PiBoolInputPolicy(std::string offLabel = "Off", std::string onLabel = "On")
        : PiTypedInputPolicy<int>({std::move(offLabel), std::move(onLabel)}) {}
    std::string getOffLabel() const { return getLabel(0); }
    std::string getOnLabel() const { return getLabel(1); }
};

// The part names of a structured input, in order ("Red", "Green", "Blue").
class PiStructuredInputPolicy : public PiInputPolicy {
public:
    explicit PiStructuredInputPolicy(std::vector<std::string> partNames)
        : _partNames(std::move(partNames)) {}
    std::vector<std::string> const& getPartNames() const { return _partNames; }
    int getNbParts() const { return static_cast<int>(_partNames.size()); }

private:
    std::vector<std::string> _partNames;
};

// Marks an input whose value is a 2D shape, edited in a viewer rather than in a panel.
class PiShape2dInputPolicy : public PiInputPolicy {};

} // namespace Zr
