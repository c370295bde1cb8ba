// PiNode: inputs, outputs, stored values, naming and the controller of a node.
#include "piNode.h"

#include "piGraph.h"
#include "piGroupNode.h"
#include "piStructuredInput.h"

namespace Zr {

namespace {

struct NameMemento : CmMemento {
    explicit NameMemento(std::string n) : name(std::move(n)) {}
    bool equals(CmMemento const& other) const override {
        auto const* o = dynamic_cast<NameMemento const*>(&other);
        return o && o->name == name;
    }
    std::string name;
};

// Every input a node holds, parts of structured inputs included.
template <class F>
void forEachInput(std::vector<RCShdPtr<PiInput>> const& inputs, F const& f) {
    for (auto const& input : inputs) {
        f(*input);
        if (auto const* structured = dynamic_cast<PiStructuredInput const*>(input.get()))
            for (auto const& part : structured->getParts())
                f(*part);
    }
}

} // namespace

PiNode::PiNode(std::string name)
    : PiGraphObject(std::move(name)), _storedValueHandler(this, &PiNode::onStoredValueChanged) {}

PiNode::~PiNode() {
    if (_controller)
        _controller->detachNode();
    forEachInput(_inputs, [](PiInput& input) {
        input.unregisterReads();
        input.setNode(nullptr);
    });
    for (auto const& output : _outputs)
        output->setNode(nullptr);
    for (auto const& value : _storedValues)
        value->setOwner(nullptr);
}

void PiNode::setController(RCStrongPtr<PiNodeController> controller) {
    _controller = std::move(controller);
}

RCWeakPtr<PiNodeController const> PiNode::getControllerRO() const {
    return RCWeakPtr<PiNodeController const>(RCStrongPtr<PiNodeController const>(_controller));
}

void PiNode::setParentGroup(PiGroupNode* group) {
    ZR_ASSERT_TEXT(group != this, "A group cannot contain itself");
    _parentGroup = group;
    if (_graph)
        _graph->structureChanged();
}

std::string PiNode::getFullName() const {
    std::string name = getName();
    for (PiGroupNode const* group = _parentGroup; group; group = group->getParentGroup())
        name = group->getName() + "." + name;
    return name;
}

RCShdPtr<PiInput> PiNode::getInput(int index) const {
    if (index < 0 || index >= getNbInputs())
        return nullptr;
    return _inputs[static_cast<std::size_t>(index)];
}

RCShdPtr<PiInput> PiNode::findInput(std::string const& name) const {
    for (auto const& input : _inputs)
        if (input->getName() == name)
            return input;
    return nullptr;
}

RCShdPtr<PiInput> PiNode::addInput(RCShdPtr<PiInput> const& input) {
    ZR_ASSERT(!input.isNull());
    if (findInput(input->getName()))
        throw PiNodeEx::ExDuplicateName(__FILE__, __LINE__,
                                        "Input name in use: " + getName() + "." + input->getName());
    _inputs.push_back(input);
    forEachInput({input}, [this](PiInput& in) {
        in.setNode(this);
        if (_graph)
            in.registerReads(_graph);
    });
    if (_graph)
        _graph->structureChanged();
    return input;
}

RCShdPtr<PiOutput> PiNode::findOutput(std::string const& name) const {
    for (auto const& output : _outputs)
        if (output->getName() == name)
            return output;
    return nullptr;
}

RCShdPtr<PiOutput> PiNode::addOutput(RCShdPtr<PiOutput> const& output) {
    ZR_ASSERT(!output.isNull());
    if (findOutput(output->getName()))
        throw PiNodeEx::ExDuplicateName(
            __FILE__, __LINE__, "Output name in use: " + getName() + "." + output->getName());
    output->setNode(this);
    _outputs.push_back(output);
    return output;
}

RCShdPtr<PiValue> PiNode::getStoredValue(std::string const& name) const {
    for (auto const& value : _storedValues)
        if (value->getName() == name)
            return value;
    return nullptr;
}

RCShdPtr<PiValue> PiNode::addStoredValue(RCShdPtr<PiValue> const& value) {
    ZR_ASSERT(!value.isNull());
    if (getStoredValue(value->getName()))
        throw PiNodeEx::ExDuplicateName(
            __FILE__, __LINE__, "Stored value name in use: " + getName() + "." + value->getName());
    value->setOwner(this);
    value->addChangeCb(&_storedValueHandler);
    _storedValues.push_back(value);
    return value;
}

void PiNode::onStoredValueChanged(PiValue const& value) {
    if (_controller)
        _controller->fireEvent(PiNodeEvent::ValueChanged(RCShdPtr<PiValue const>(&value)));
}

RCShdPtr<PiCommandStack> PiNode::getCommandStack() const {
    return _graph ? _graph->getCommandStack() : nullptr;
}

void PiNode::setName(std::string name) {
    if (name == getName())
        return;
    PiGraph::checkName(name);
    if (_graph)
        _graph->checkNewName(*this, name);
    std::string const oldName = getName();
    PiGraphObject::setName(std::move(name));
    nameChanged(oldName);
}

void PiNode::nameChanged(std::string const& oldName) {
    RCShdPtr<PiNode> keep(this);
    if (_graph)
        _graph->nodeRenamed(*this, oldName);
    if (_controller)
        _controller->fireEvent(PiNodeEvent::NameChanged());
}

OPtr<CmMemento> PiNode::snapshotState() const {
    return std::make_unique<NameMemento>(getName());
}

void PiNode::restoreState(CmMemento const& memento) {
    auto const& m = dynamic_cast<NameMemento const&>(memento);
    if (m.name == getName())
        return;
    std::string const oldName = getName();
    assignName(m.name);
    nameChanged(oldName);
}

void PiNode::setGraph(PiGraph* graph) {
    if (graph == _graph)
        return;
    _graph = graph;
    forEachInput(_inputs, [graph](PiInput& input) {
        if (graph)
            input.registerReads(graph);
        else
            input.unregisterReads();
    });
}

} // namespace Zr
