// NodeUiAction<Target>: the base of the actions that this package puts in the application's
// action registry for the input context menu. Each action works on an input (or a value editor's
// calculatable) at a time path, has a fixed label, which is both its menu text and the text of
// its undo entry, and belongs to a group. The registry lists groups by name, so the groups'
// names begin with letters that give their order in the menu.
#pragma once

#include "actTypedAction.h"
#include "piAnimInterface.h"
#include "piCommandStack.h"
#include "piInput.h"
#include "piKeyframingUtil.h"
#include "piTimePath.h"

#include <string>

namespace Zr {

using TimePathPtr = RCShdPtr<PiTimePath const>;
using InputPtr = RCShdPtr<PiInput>;
using ConstInputPtr = RCShdPtr<PiInput const>;

template <class Target>
class NodeUiAction : public ActTypedAction<Target, TimePathPtr> {
public:
    std::string getCompositeName() const override { return "nodeUi." + _name; }
    std::string getDisplayString() const override { return _label; }
    std::string getGroup() const override { return _group; }
    std::string const& getLabel() const { return _label; }

protected:
    NodeUiAction(std::string name, std::string label, std::string group)
        : _name(std::move(name)), _label(std::move(label)), _group(std::move(group)) {}

private:
    std::string _name;
    std::string _label;
    std::string _group;
};

// What the actions share: the input's time, undo stack, animation interface and keyframing
// utility, the clipboard items, and the registration of all the actions.
struct NodeUiActionUtil {
    // The local time of the time path; 0 without one.
    static double localTime(TimePathPtr const& timePath);
    // The undo stack of the input's node; null without a node.
    static RCShdPtr<PiCommandStack> commandStack(PiInput const& input);
    // The animation interface of the input's node controller; null without one.
    static PiAnimInterface* animInterface(PiInput const& input);
    // The keyframing utility of the input's graph; null without a graph.
    static PiKeyframingUtil* keyframingUtil(PiInput const& input);
    // The first item of the clipboard's content that holds a V; null without one.
    template <class V>
    static RCShdPtr<SnItem const> clipboardItem();
    // Replaces the clipboard's content by a selection of the one item.
    static void putOnClipboard(RCShdPtr<SnItem> const& item, int srcAction);

    // The package's start-up and exit steps: every action in the registry, and out again.
    static void registerActions();
    static void unregisterActions();
};

// Resets the input to its default, dropping animation, expression and connection.
class ResetInput : public NodeUiAction<InputPtr> {
public:
    ResetInput() : NodeUiAction("ResetInput", "Reset", "resetGroup") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

// Puts the input's full name on the system clipboard as text, and as a reference to the input
// on the application's clipboard, ready to be pasted as an expression.
class CopyPath : public NodeUiAction<InputPtr> {
public:
    CopyPath() : NodeUiAction("CopyPath", "Copy Path", "fCopyPathGroup") {}
    bool test(InputPtr const& input, TimePathPtr const& timePath) override;
    void perform(InputPtr const& input, TimePathPtr const& timePath) override;
};

} // namespace Zr
