// Fuzz target: message files ("MSG_ID = "text"" lines) given as text. Parsing reports each bad
// line and keeps the others; what parsed must survive being added to the server, looked up and
// removed again.
#include "msgServer.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace Zr;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::vector<std::string> problems;
    MsgServer::Messages messages = MsgServer::parse(text, "fuzz.msg", problems);
    for (std::string const& problem : problems)
        if (problem.rfind("fuzz.msg:", 0) != 0) {
            std::fprintf(stderr, "a problem without its place: %s\n", problem.c_str());
            std::abort();
        }
    MsgServer& server = MsgServer::getInstance();
    MsgServer::FileId const id = server.addMessages("fuzz.msg", messages);
    server.removeFile(id);
    return 0;
}
