// PiGraph: nodes by unique name, full-name look-up of inputs, time settings and the record of
// which expressions read which inputs.
#include "piGraph.h"

#include "piStructuredInput.h"
#include "piToolRegistry.h"

#include <algorithm>
#include <sstream>

namespace Zr {

namespace {

std::vector<std::string> splitFullName(std::string const& fullName) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (true) {
        std::size_t dot = fullName.find('.', start);
        parts.push_back(fullName.substr(start, dot - start));
        if (dot == std::string::npos)
            break;
        start = dot + 1;
    }
    return parts;
}

} // namespace

PiGraph::PiGraph(std::string name)
    : _name(std::move(name)), _commandStack(makeShared<PiCommandStack>()),
      _timeClient(makeShared<TmTimeClient>(0.0, Rational(25))) {}

PiGraph::~PiGraph() {
    for (auto const& node : _nodes) {
        node->setGraph(nullptr);
        node->setValid(false);
    }
}

RCShdPtr<PiNode> PiGraph::findNode(std::string const& name) const {
    auto it = _byName.find(name);
    return it == _byName.end() ? nullptr : RCShdPtr<PiNode>(it->second);
}

void PiGraph::checkName(std::string const& name) {
    if (name.empty())
        throw PiGraphEx::ExBadName(__FILE__, __LINE__, "Empty node name");
    if (name.find('.') != std::string::npos)
        throw PiGraphEx::ExBadName(__FILE__, __LINE__, "Node name with '.': " + name);
}

void PiGraph::checkNewName(PiNode const& node, std::string const& name) const {
    auto it = _byName.find(name);
    if (it != _byName.end() && it->second != &node)
        throw PiGraphEx::ExDuplicateName(__FILE__, __LINE__, "Node name in use: " + name);
}

void PiGraph::nodeRenamed(PiNode& node, std::string const& oldName) {
    auto it = _byName.find(oldName);
    if (it != _byName.end() && it->second == &node)
        _byName.erase(it);
    _byName[node.getName()] = &node;
    structureChanged();
}

RCShdPtr<PiNode> PiGraph::addNode(RCShdPtr<PiNode> const& node) {
    ZR_ASSERT(!node.isNull());
    ZR_ASSERT_TEXT(node->getGraph() == nullptr, "node->getGraph() == nullptr");
    checkName(node->getName());
    checkNewName(*node, node->getName());
    _nodes.push_back(node);
    _byName[node->getName()] = node.get();
    node->setGraph(this);
    node->setValid(true);
    structureChanged();
    return node;
}

void PiGraph::collectSubtree(PiNode* node, std::vector<RCShdPtr<PiNode>>& out) const {
    out.emplace_back(node);
    if (auto* group = dynamic_cast<PiGroupNode*>(node))
        for (auto const& child : _nodes)
            if (child->getParentGroup() == group)
                collectSubtree(child.get(), out);
}

bool PiGraph::removeNode(RCShdPtr<PiNode> const& node) {
    if (node.isNull() || node->getGraph() != this)
        return false;
    std::vector<RCShdPtr<PiNode>> removed;
    collectSubtree(node.get(), removed);
    for (auto const& gone : removed) {
        // Inputs of other nodes connected to the node's outputs are disconnected (recorded
        // in an open undo scope like any disconnection).
        for (auto const& output : gone->getOutputs()) {
            std::vector<PiInput*> connected = output->getConnectedInputs();
            for (PiInput* input : connected)
                input->disconnect();
        }
    }
    for (auto const& gone : removed) {
        _nodes.erase(std::remove(_nodes.begin(), _nodes.end(), gone), _nodes.end());
        auto it = _byName.find(gone->getName());
        if (it != _byName.end() && it->second == gone.get())
            _byName.erase(it);
        gone->setGraph(nullptr);
        gone->setValid(false);
        gone->setParentGroup(nullptr);
    }
    structureChanged();
    return true;
}

std::string PiGraph::createUniqueName(std::string const& base) const {
    for (int n = 1;; ++n) {
        std::string name = base + std::to_string(n);
        if (_byName.find(name) == _byName.end())
            return name;
    }
}

RCShdPtr<PiToolNode> PiGraph::createNode(std::string const& toolName, std::string const& nodeName) {
    RCShdPtr<PiTool const> tool = PiToolRegistry::getInstance().findTool(toolName);
    if (!tool)
        throw PiGraphEx::ExUnknownTool(__FILE__, __LINE__, "Unknown tool: " + toolName);
    std::string name = nodeName.empty() ? createUniqueName(toolName) : nodeName;
    checkName(name);
    return addNew(makeShared<PiToolNode>(name, tool));
}

RCShdPtr<PiGroupNode> PiGraph::createGroupNode(std::string const& nodeName,
                                               RCShdPtr<PiGroup> const& group) {
    std::string name = nodeName.empty() ? createUniqueName("Group") : nodeName;
    checkName(name);
    return addNew(makeShared<PiGroupNode>(name, group));
}

RCShdPtr<PiLinkNode> PiGraph::createLinkNode(std::string const& nodeName) {
    std::string name = nodeName.empty() ? createUniqueName("Link") : nodeName;
    checkName(name);
    return addNew(makeShared<PiLinkNode>(name));
}

RCShdPtr<PiValueNode> PiGraph::createValueNode(std::string const& nodeName) {
    std::string name = nodeName.empty() ? createUniqueName("Value") : nodeName;
    checkName(name);
    return addNew(makeShared<PiValueNode>(name));
}

RCShdPtr<PiInput> PiGraph::findInput(std::string const& fullName) const {
    std::vector<std::string> parts = splitFullName(fullName);
    if (parts.size() < 2)
        return nullptr;
    auto it = _byName.find(parts[0]);
    if (it == _byName.end() || it->second->getParentGroup() != nullptr)
        return nullptr;
    PiNode* node = it->second;
    std::size_t i = 1;
    // Walk down the groups while the next name is a node inside the current one.
    while (i + 1 < parts.size()) {
        auto* group = dynamic_cast<PiGroupNode*>(node);
        auto child = _byName.find(parts[i]);
        if (!group || child == _byName.end() || child->second->getParentGroup() != group)
            break;
        node = child->second;
        ++i;
    }
    std::size_t const left = parts.size() - i;
    if (left < 1 || left > 2)
        return nullptr;
    RCShdPtr<PiInput> input = node->findInput(parts[i]);
    if (!input || left == 1)
        return input;
    auto* structured = dynamic_cast<PiStructuredInput*>(input.get());
    return structured ? structured->findPart(parts[i + 1]) : nullptr;
}

void PiGraph::setTimeClient(RCShdPtr<TmTimeClient> const& client) {
    ZR_ASSERT(!client.isNull());
    _timeClient = client;
    _frameRate = client->getRate();
}

void PiGraph::setFrameRate(Rational const& rate) {
    _timeClient->setRate(rate);
    _frameRate = rate;
}

double PiGraph::getStartSeconds() const {
    return _startTime.getSeconds(_frameRate.toDouble());
}

double PiGraph::getEndSeconds() const {
    return _endTime.getSeconds(_frameRate.toDouble());
}

void PiGraph::addReader(std::string const& readName, PiInput* reader) {
    std::vector<PiInput*>& readers = _readers[readName];
    if (std::find(readers.begin(), readers.end(), reader) == readers.end())
        readers.push_back(reader);
}

void PiGraph::removeReader(std::string const& readName, PiInput* reader) {
    auto it = _readers.find(readName);
    if (it == _readers.end())
        return;
    std::vector<PiInput*>& readers = it->second;
    readers.erase(std::remove(readers.begin(), readers.end(), reader), readers.end());
    if (readers.empty())
        _readers.erase(it);
}

std::vector<PiInput*> const& PiGraph::getReaders(std::string const& fullName) const {
    static std::vector<PiInput*> const none;
    auto it = _readers.find(fullName);
    return it == _readers.end() ? none : it->second;
}

} // namespace Zr
