// PiKeyframingUtil: a graph's keyframing helper: setting keys, the marks of inputs chosen for
// keyframing, and the times of an input's keys.
#pragma once

#include "cbDispatcher.h"
#include "piInput.h"
#include "piTimePath.h"

#include <vector>

namespace Zr {

class PiGraph;
class PiNode;

// One per graph (PiGraph::getKeyframingUtil), kept by the graph; it points back to the graph
// without keeping it.
//
// Marks: a marked input has its PiInput::setMarked flag set (which tells its state observers)
// and is kept here with the time path it was marked at. Marks are a working selection, not a
// state of the graph: undo leaves them alone. The marking callbacks are told once per call that
// changed a mark, however many inputs it touched; a call that changes nothing tells no one.
//
// Key times: those of the input's curve; for a structured input those of all its parts' curves.
// Times are the input's local times.
class PiKeyframingUtil : public RCObject {
public:
    explicit PiKeyframingUtil(PiGraph* graph);
    ~PiKeyframingUtil() override;

    PiGraph* getGraph() const { return _graph; }

    // Sets a key at `time` with the input's value there (animating the input if needed), in an
    // undo scope "Set Keyframe" on the node's command stack (joining any open scope). False,
    // changing nothing, for a null input, one that cannot be animated, or when the node's
    // PiGraphAnimInterface forbids key setting.
    bool setKey(RCShdPtr<PiInput> const& input, double time);

    void markAttribute(RCShdPtr<PiInput> const& input, RCShdPtr<PiTimePath const> const& timePath);
    void unmarkAttribute(RCShdPtr<PiInput> const& input);
    void unmarkAll();
    bool isAttributeMarked(RCShdPtr<PiInput const> const& input) const;
    // True when an input of the node, or a part of one, is marked.
    bool hasMarkedAttributes(RCShdPtr<PiNode const> const& node) const;
    // Marks every animatable input of the input's node, parts of structured inputs included.
    void markToolForInput(RCShdPtr<PiInput> const& input,
                          RCShdPtr<PiTimePath const> const& timePath);
    // Unmarks every input of the input's node, parts included.
    void unmarkToolForInput(RCShdPtr<PiInput> const& input);
    // The marked inputs, in order of marking.
    std::vector<RCShdPtr<PiInput>> getMarkedInputs() const;
    // The time path an input was marked at; null when it is not marked.
    RCShdPtr<PiTimePath const> getMarkTimePath(RCShdPtr<PiInput const> const& input) const;

    // False, leaving `time` alone, when the input has no keys (or no key after or before).
    bool getFirstKeyframeTime(RCShdPtr<PiInput const> const& input, double& time) const;
    bool getLastKeyframeTime(RCShdPtr<PiInput const> const& input, double& time) const;
    // The first key strictly after `time`, the last strictly before it.
    bool getNextKeyframeTime(RCShdPtr<PiInput const> const& input, double time, double& next) const;
    bool getPreviousKeyframeTime(RCShdPtr<PiInput const> const& input, double time,
                                 double& previous) const;

    void addMarkingCallback(CbHandler<CbEmptyType>* handler) {
        _markingDispatcher.addHandler(handler);
    }
    void removeMarkingCallback(CbHandler<CbEmptyType>* handler) {
        _markingDispatcher.removeHandler(handler);
    }

private:
    struct Mark {
        RCShdPtr<PiInput> input;
        RCShdPtr<PiTimePath const> timePath;
    };
    // Marks or unmarks one input; true when its mark changed.
    bool mark(RCShdPtr<PiInput> const& input, RCShdPtr<PiTimePath const> const& timePath);
    bool unmark(PiInput const* input);
    void notify() { _markingDispatcher.call(); }

    PiGraph* _graph;
    std::vector<Mark> _marks;
    CbDispatcher<CbEmptyType> _markingDispatcher;
};

} // namespace Zr
