// PiGraph: a graph of nodes with its undo stack, time client, frame rate and frame range, and
// the record of which inputs' expressions read which inputs.
#pragma once

#include "dtTime.h"
#include "piCommandStack.h"
#include "piGroupNode.h"
#include "piLinkNode.h"
#include "piNode.h"
#include "piToolNode.h"
#include "piValueNode.h"
#include "rational.h"
#include "tmTimeClient.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Zr {

class PiKeyframingUtil;

struct PiGraphEx {
    // A node added or renamed to a name another node of the graph has.
    ZR_DECLARE_EXCEPTION(ExDuplicateName, ExBase);
    // An empty node name, or one with a '.' (full names use it as separator).
    ZR_DECLARE_EXCEPTION(ExBadName, ExBase);
    // createNode of a tool the registry does not know.
    ZR_DECLARE_EXCEPTION(ExUnknownTool, ExBase);
};

// The graph holds its nodes by RCShdPtr; node names are unique in the whole graph, also across
// groups. A removed node is no longer valid (PiGraphObject::isValid) and leaves its group.
class PiGraph : public RCObject {
public:
    explicit PiGraph(std::string name = "Graph");
    ~PiGraph() override;

    std::string const& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    // Nodes, in order of addition.
    std::vector<RCShdPtr<PiNode>> const& getNodes() const { return _nodes; }
    RCShdPtr<PiNode> findNode(std::string const& name) const;
    // Adds a node made elsewhere; its name must be valid and free. Returns it.
    RCShdPtr<PiNode> addNode(RCShdPtr<PiNode> const& node);
    // Removes the node, and the nodes inside it when it is a group; disconnects every input
    // connected to their outputs. False if the node is not in this graph.
    bool removeNode(RCShdPtr<PiNode> const& node);

    // `base` followed by the smallest number from 1 that gives a free name: "Blur1", "Blur2".
    std::string createUniqueName(std::string const& base) const;

    // A node of the registered tool `toolName` (PiToolRegistry); an empty `nodeName` gives a
    // unique name from the tool's name. Unknown tools raise PiGraphEx::ExUnknownTool.
    RCShdPtr<PiToolNode> createNode(std::string const& toolName, std::string const& nodeName = {});
    // The other kinds, each with a unique name from "Group", "Link", "Value" when none is given.
    RCShdPtr<PiGroupNode> createGroupNode(std::string const& nodeName = {},
                                          RCShdPtr<PiGroup> const& group = {});
    RCShdPtr<PiLinkNode> createLinkNode(std::string const& nodeName = {});
    RCShdPtr<PiValueNode> createValueNode(std::string const& nodeName = {});

    // The input with the full name "node.input" or "node.input.part", nodes inside groups
    // prefixed by their groups ("Group1.Blur1.radius"); null when there is none.
    RCShdPtr<PiInput> findInput(std::string const& fullName) const;

    RCShdPtr<PiCommandStack> getCommandStack() const { return _commandStack; }
    RCShdPtr<TmTimeClient> getTimeClient() const { return _timeClient; }
    // Shares another time client (an application's); its rate becomes the graph's.
    void setTimeClient(RCShdPtr<TmTimeClient> const& client);

    // Frames per second (default 25); also set on the time client.
    Rational const& getFrameRate() const { return _frameRate; }
    void setFrameRate(Rational const& rate);
    // The frame range, in frames of the frame rate (default 0 to 100).
    DtTimeIndex getStartTime() const { return _startTime; }
    DtTimeIndex getEndTime() const { return _endTime; }
    void setStartTime(DtTimeIndex frame) { _startTime = frame; }
    void setEndTime(DtTimeIndex frame) { _endTime = frame; }
    double getStartSeconds() const;
    double getEndSeconds() const;

    // The graph's one keyframing utility, made on first use. Defined with PiKeyframingUtil.
    RCShdPtr<PiKeyframingUtil> getKeyframingUtil();

    // The dependency record: which inputs' expressions read the input of a full name.
    void addReader(std::string const& readName, PiInput* reader);
    void removeReader(std::string const& readName, PiInput* reader);
    std::vector<PiInput*> const& getReaders(std::string const& fullName) const;
    // Changes whenever a node is added, removed or renamed, or gets inputs: cached name
    // resolutions are redone when it moved.
    std::uint64_t getStructureVersion() const { return _structureVersion; }
    void structureChanged() { ++_structureVersion; }

    // Used by PiNode::setName: checks the name and moves the node's entry.
    void checkNewName(PiNode const& node, std::string const& name) const;
    void nodeRenamed(PiNode& node, std::string const& oldName);

    // Checks a node name: empty or with '.' raises PiGraphEx::ExBadName.
    static void checkName(std::string const& name);

private:
    template <class T>
    RCShdPtr<T> addNew(RCShdPtr<T> node) {
        addNode(node);
        return node;
    }
    void collectSubtree(PiNode* node, std::vector<RCShdPtr<PiNode>>& out) const;

    std::string _name;
    std::vector<RCShdPtr<PiNode>> _nodes;
    std::unordered_map<std::string, PiNode*> _byName;
    RCShdPtr<PiCommandStack> _commandStack;
    RCShdPtr<TmTimeClient> _timeClient;
    Rational _frameRate{25};
    DtTimeIndex _startTime{0};
    DtTimeIndex _endTime{100};
    std::unordered_map<std::string, std::vector<PiInput*>> _readers;
    std::uint64_t _structureVersion = 1;
    // A PiKeyframingUtil (which derives RCObject), kept here by getKeyframingUtil.
    RCShdPtr<RCObject> _keyframingUtil;
};

} // namespace Zr
