// MsgServer: the process-wide table of message texts, fed by the ".msg" files that MsgFileGuards
// keep loaded. Files loaded later take precedence over earlier ones.
#pragma once

#include "osFilePath.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Zr {

class MsgServer {
public:
    using FileId = std::uint64_t;
    using Messages = std::map<std::string, std::string>;

    static MsgServer& getInstance();

    // Reads and parses a message file and adds what parsed. Each problem (unreadable file,
    // malformed or duplicate line) is reported as one line "<path>:<line>: <problem>" through
    // ExStdout::printAtomically. Never throws.
    FileId loadFile(OsFilePath const& path);
    // Adds messages parsed elsewhere under a name.
    FileId addMessages(std::string const& name, Messages messages);
    // Removes what a loadFile or addMessages added; an unknown id is ignored.
    void removeFile(FileId id);

    // The text of a message in the most recently loaded file that defines it.
    std::optional<std::string> lookup(std::string const& id) const;
    std::size_t getNbFiles() const;

    // Parses message-file text; problems are appended as "<name>:<line>: <problem>".
    static Messages parse(std::string const& text, std::string const& name,
                          std::vector<std::string>& problems);

private:
    MsgServer() = default;
    struct File {
        FileId _id;
        std::string _name;
        Messages _messages;
    };
    mutable std::mutex _mutex;
    std::vector<File> _files;
    FileId _nextId = 1;
};

} // namespace Zr
