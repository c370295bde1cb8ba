// The gallery's "Node" panel: a Glow node's first panel shown in a NodeWidget, as a plug-in
// would show it, with Undo and Redo buttons (and Ctrl+Z, Ctrl+Shift+Z) on the node's command
// stack, and a line naming what they would undo and redo. The panel follows every undo and redo.
#pragma once

#include "zrUi.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Zr {

class GalleryNode {
public:
    // Builds the panel into `root`, placed by `constraint` (text form). Without the Glow tool
    // the panel shows no node.
    GalleryNode(RCShdPtr<UiContainer> const& root, std::string const& constraint);
    ~GalleryNode();
    GalleryNode(GalleryNode const&) = delete;
    GalleryNode& operator=(GalleryNode const&) = delete;

    RCShdPtr<UiContainer> const& panel() const { return _panel; }

private:
    void paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw);
    void onClick(UiPushButton& button, std::function<void()> action);
    void onHotkey(char const* action, UiHotkey const& key, std::function<void()> run);
    void showStack();

    RCShdPtr<PiGraph> _graph = makeShared<PiGraph>();
    RCShdPtr<PiNode> _node;
    RCShdPtr<UiContainer> _panel;
    RCShdPtr<UiWidget> _stackLine;
    std::string _stackText;
    // Callbacks, removed from what they were added to before they go.
    std::vector<std::pair<RCShdPtr<UiWidget>, std::unique_ptr<CbFunction<EvEvent>>>> _painters;
    std::vector<std::pair<RCShdPtr<UiPushButton>, std::unique_ptr<CbFunction<EvEvent>>>> _clicks;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _hotkeys;
    std::unique_ptr<CbFunction<CbEmptyType>> _stackChanged;
};

} // namespace Zr
