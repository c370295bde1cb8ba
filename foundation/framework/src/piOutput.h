// PiOutput: an output of a node, which inputs of other nodes connect to and read.
#pragma once

#include "rcBase.h"

#include <string>
#include <vector>

namespace Zr {

class PiInput;
class PiNode;

class PiOutput : public RCObject {
public:
    explicit PiOutput(std::string name);
    ~PiOutput() override;

    std::string const& getName() const { return _name; }
    // The node that holds the output; null once the node is gone.
    PiNode* getNode() const { return _node; }
    void setNode(PiNode* node) { _node = node; }

    // The numeric value the output gives at `time`; 0 for outputs that give no number (images).
    virtual double getValue(double time) const;
    // The inputs of its own node whose value this output passes on: a change of one of them
    // changes the value of every input connected here.
    virtual std::vector<PiInput*> getSourceInputs() const { return {}; }

    // The inputs connected to this output now.
    std::vector<PiInput*> const& getConnectedInputs() const { return _connectedInputs; }

private:
    friend class PiInput;
    void addConnectedInput(PiInput* input);
    void removeConnectedInput(PiInput* input);

    std::string _name;
    PiNode* _node = nullptr;
    std::vector<PiInput*> _connectedInputs;
};

} // namespace Zr
