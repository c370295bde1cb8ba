// The kept texts of "nodeUi.msg" and the reports already shown.
#include "nodeUiMessages.h"

#include "msgProtocol.h"
#include "msgServer.h"

#include <map>
#include <set>

namespace Zr {

namespace {

constexpr std::size_t MaxRemembered = 10000;

struct Kept {
    std::map<std::string, std::string> texts;
    std::set<std::string> reported;
};

Kept& kept() {
    static Kept state;
    return state;
}

} // namespace

void NodeUiMessages::keep(std::initializer_list<char const*> ids) {
    for (char const* id : ids)
        if (auto text = MsgServer::getInstance().lookup(id))
            kept().texts[id] = *text;
}

void NodeUiMessages::clear() {
    kept().texts.clear();
    kept().reported.clear();
}

MsgWarning NodeUiMessages::warning(std::string const& id,
                                   std::initializer_list<MsgArgument> arguments) {
    auto it = kept().texts.find(id);
    if (it == kept().texts.end())
        return MsgWarning(MsgSubscription(id), arguments);
    return MsgWarning(it->second, arguments);
}

bool NodeUiMessages::reportOnce(std::string const& id,
                                std::initializer_list<MsgArgument> arguments) {
    MsgWarning message = warning(id, arguments);
    // A process that meets ever new bad descriptions (a fuzzer) must not keep every text: past
    // the limit the texts shown start afresh, and a repeat may be shown once more.
    if (kept().reported.size() >= MaxRemembered)
        kept().reported.clear();
    if (!kept().reported.insert(message.getText()).second)
        return false;
    MsgProtocol::display(message);
    return true;
}

} // namespace Zr
