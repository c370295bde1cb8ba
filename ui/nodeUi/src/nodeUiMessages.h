// NodeUiMessages: the user messages of the node-bound widgets. "nodeUi.msg" is loaded only while
// the package starts, so the texts the package reports later are kept at start-up.
#pragma once

#include "msgBase.h"

#include <initializer_list>
#include <string>

namespace Zr {

struct NodeUiMessages {
    // Copies the texts of the loaded message files for these identifiers; called while
    // "nodeUi.msg" is loaded. An identifier no file defines keeps no text.
    static void keep(std::initializer_list<char const*> ids);
    // Forgets the kept texts and the reports made.
    static void clear();
    // A warning with the kept text of `id` (the loaded text, or the identifier, when none was
    // kept) and the arguments.
    static MsgWarning warning(std::string const& id, std::initializer_list<MsgArgument> arguments);
    // Shows the warning through MsgProtocol::display unless a warning of the same text was
    // shown already: a bad part of a panel is reported once however often the panel opens.
    // True when it was shown.
    static bool reportOnce(std::string const& id, std::initializer_list<MsgArgument> arguments);
};

} // namespace Zr
