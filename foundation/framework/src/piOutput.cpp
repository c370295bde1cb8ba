// PiOutput: a node output and the inputs connected to it.
#include "piOutput.h"

#include <algorithm>

namespace Zr {

PiOutput::PiOutput(std::string name) : _name(std::move(name)) {}

PiOutput::~PiOutput() = default;

double PiOutput::getValue(double) const {
    return 0.0;
}

void PiOutput::addConnectedInput(PiInput* input) {
    if (std::find(_connectedInputs.begin(), _connectedInputs.end(), input) ==
        _connectedInputs.end())
        _connectedInputs.push_back(input);
}

void PiOutput::removeConnectedInput(PiInput* input) {
    _connectedInputs.erase(std::remove(_connectedInputs.begin(), _connectedInputs.end(), input),
                           _connectedInputs.end());
}

} // namespace Zr
