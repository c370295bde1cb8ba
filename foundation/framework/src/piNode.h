// PiNode: a node of a graph, with ordered inputs, outputs, stored values and the controller
// through which clients reach it. PiToolNode, PiGroupNode, PiLinkNode and PiValueNode are its
// kinds, told apart by dynamic_cast.
#pragma once

#include "piGraphObject.h"
#include "piInput.h"
#include "piNodeController.h"
#include "piOutput.h"
#include "piValue.h"

#include <string>
#include <vector>

namespace Zr {

class PiCommandStack;
class PiGraph;
class PiGroupNode;

struct PiNodeEx {
    // An input, output or stored value added under a name the node already uses.
    ZR_DECLARE_EXCEPTION(ExDuplicateName, ExBase);
};

// A node lives in an RCShdPtr: the graph holds it, and its inputs, outputs and controller point
// back to it with plain pointers that it clears as it dies.
//
// Undo: the node's own snapshot holds its name (renames are undoable); inputs and stored values
// are recorded on their own.
class PiNode : public PiGraphObject {
public:
    ~PiNode() override;

    // The graph that holds the node, or null.
    PiGraph* getGraph() const { return _graph; }
    // The group node the node sits in, or null at the top level.
    PiGroupNode* getParentGroup() const { return _parentGroup; }
    void setParentGroup(PiGroupNode* group);
    // "Blur1", or "Group1.Blur1" inside a group.
    std::string getFullName() const;

    RCWeakPtr<PiNodeController> getController() { return RCWeakPtr<PiNodeController>(_controller); }
    RCWeakPtr<PiNodeController const> getControllerRO() const;

    // Inputs in their order.
    std::vector<RCShdPtr<PiInput>> const& getInputs() const { return _inputs; }
    int getNbInputs() const { return static_cast<int>(_inputs.size()); }
    RCShdPtr<PiInput> getInput(int index) const;
    RCShdPtr<PiInput> findInput(std::string const& name) const;
    // Appends; a name in use raises PiNodeEx::ExDuplicateName. Returns the input.
    RCShdPtr<PiInput> addInput(RCShdPtr<PiInput> const& input);

    std::vector<RCShdPtr<PiOutput>> const& getOutputs() const { return _outputs; }
    RCShdPtr<PiOutput> findOutput(std::string const& name) const;
    RCShdPtr<PiOutput> addOutput(RCShdPtr<PiOutput> const& output);

    // Stored values: settings with no animation. Each change of one sends the controller's
    // PiNodeEvent::ValueChanged with the value.
    std::vector<RCShdPtr<PiValue>> const& getStoredValues() const { return _storedValues; }
    RCShdPtr<PiValue> getStoredValue(std::string const& name) const;
    RCShdPtr<PiValue> addStoredValue(RCShdPtr<PiValue> const& value);

    // The graph's undo stack; null outside a graph.
    RCShdPtr<PiCommandStack> getCommandStack() const;

    // Names must be unique in the graph and hold no '.': PiGraphEx::ExDuplicateName and
    // PiGraphEx::ExBadName otherwise. Recorded; the controller sends NameChanged.
    void setName(std::string name) override;

    OPtr<CmMemento> snapshotState() const override;
    void restoreState(CmMemento const& memento) override;

    // Used by the graph.
    void setGraph(PiGraph* graph);

protected:
    explicit PiNode(std::string name);
    // Each node kind gives the node its controller in its constructor.
    void setController(RCStrongPtr<PiNodeController> controller);

private:
    void onStoredValueChanged(PiValue const& value);
    void nameChanged(std::string const& oldName);

    PiGraph* _graph = nullptr;
    PiGroupNode* _parentGroup = nullptr;
    RCStrongPtr<PiNodeController> _controller;
    std::vector<RCShdPtr<PiInput>> _inputs;
    std::vector<RCShdPtr<PiOutput>> _outputs;
    std::vector<RCShdPtr<PiValue>> _storedValues;
    CbMethod<PiNode, PiValue const> _storedValueHandler;
};

} // namespace Zr
