// Start-up and exit of the "nodeUi" package: the node-bound widget types and the panel builder.
#pragma once

namespace Zr {

struct NodeUiInit {
    // Opens "nodeUi.msg" for the length of the start-up and runs the package's steps in their
    // fixed order: the widget types a node description may name, the panel factory, the label
    // sink's message handler, the context menu's actions and the UI builder.
    static void init();
    // Undoes the steps in the reverse order.
    static void exit();
};

} // namespace Zr
