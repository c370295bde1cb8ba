// MsgProtocol: how messages reach the user. A display handler (a message box once the toolkit
// runs, standard error before) shows each message; substitute wraps a text as an argument.
#pragma once

#include "msgBase.h"

#include <functional>
#include <string>

namespace Zr {

struct MsgProtocol {
    using DisplayHandler = std::function<void(MsgBase const&)>;

    // Wraps a text, such as an expression or a file name a user typed, as an argument that
    // replaces a %N of a message verbatim: no part of it is read as a message identifier or
    // as a further %N.
    static MsgArgument substitute(std::string const& text) { return MsgArgument(text); }

    // Shows the message through the installed handler.
    static void display(MsgBase const& message);
    // Installs a handler and returns the previous one; an empty handler restores the default.
    static DisplayHandler setDisplayHandler(DisplayHandler handler);
    // The default: "Warning: text", "Error: text" or "Information: text" on standard error.
    static void displayOnStandardError(MsgBase const& message);
};

} // namespace Zr
