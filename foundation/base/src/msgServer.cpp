// MsgServer: the message table and the parser of ".msg" files.
//
// A message file is UTF-8 text, one message a line:   MSG_ID = "text with %1 and %2"
// Blank lines and lines whose first non-blank character is '#' are ignored; a '#' comment may
// also follow the closing quote. Inside the quotes \" \\ \n and \t are the only escapes.
#include "msgServer.h"

#include "exBase.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace Zr {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isIdStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}
bool isIdChar(char c) {
    return isIdStart(c) || (c >= '0' && c <= '9') || c == '.';
}

// Parses one non-comment line into id and text; returns the problem, or "" on success.
std::string parseLine(std::string const& line, std::string& id, std::string& text) {
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i]))
        ++i;
    std::size_t idStart = i;
    if (i >= line.size() || !isIdStart(line[i]))
        return "expected a message identifier";
    while (i < line.size() && isIdChar(line[i]))
        ++i;
    id = line.substr(idStart, i - idStart);
    while (i < line.size() && isBlank(line[i]))
        ++i;
    if (i >= line.size() || line[i] != '=')
        return "expected '=' after " + id;
    ++i;
    while (i < line.size() && isBlank(line[i]))
        ++i;
    if (i >= line.size() || line[i] != '"')
        return "expected a quoted text after '='";
    ++i;
    text.clear();
    for (;;) {
        if (i >= line.size())
            return "missing closing quote";
        char c = line[i++];
        if (c == '"')
            break;
        if (c != '\\') {
            text += c;
            continue;
        }
        if (i >= line.size())
            return "missing closing quote";
        char e = line[i++];
        switch (e) {
        case '"':
            text += '"';
            break;
        case '\\':
            text += '\\';
            break;
        case 'n':
            text += '\n';
            break;
        case 't':
            text += '\t';
            break;
        default:
            return std::string("unknown escape \\") + e;
        }
    }
    while (i < line.size() && isBlank(line[i]))
        ++i;
    if (i < line.size() && line[i] != '#')
        return "unexpected text after the closing quote";
    return "";
}

} // namespace

MsgServer& MsgServer::getInstance() {
    // Never destroyed: guards held by statics of other libraries unload during exit.
    static auto* server = new MsgServer();
    return *server;
}

MsgServer::Messages MsgServer::parse(std::string const& text, std::string const& name,
                                     std::vector<std::string>& problems) {
    Messages messages;
    std::size_t pos = 0;
    int lineNumber = 0;
    if (text.compare(0, 3, "\xEF\xBB\xBF") == 0)
        pos = 3; // byte order mark
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(pos, end - pos);
        pos = end + 1;
        ++lineNumber;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        auto first = std::find_if_not(line.begin(), line.end(), isBlank);
        if (first == line.end() || *first == '#')
            continue;
        std::string id;
        std::string message;
        std::string problem = parseLine(line, id, message);
        if (problem.empty() && messages.count(id))
            problem = "duplicate message " + id + ", the first one is kept";
        if (!problem.empty()) {
            problems.push_back(name + ":" + std::to_string(lineNumber) + ": " + problem);
            continue;
        }
        messages.emplace(std::move(id), std::move(message));
    }
    return messages;
}

MsgServer::FileId MsgServer::loadFile(OsFilePath const& path) {
    std::ifstream in(path.getPath(), std::ios::binary);
    if (!in) {
        ExStdout::printAtomically(path.toString() + ": cannot read the message file");
        return addMessages(path.toString(), {});
    }
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<std::string> problems;
    Messages messages = parse(text, path.toString(), problems);
    for (std::string const& p : problems)
        ExStdout::printAtomically(p);
    return addMessages(path.toString(), std::move(messages));
}

MsgServer::FileId MsgServer::addMessages(std::string const& name, Messages messages) {
    std::lock_guard<std::mutex> lock(_mutex);
    FileId id = _nextId++;
    _files.push_back(File{id, name, std::move(messages)});
    return id;
}

void MsgServer::removeFile(FileId id) {
    std::lock_guard<std::mutex> lock(_mutex);
    _files.erase(
        std::remove_if(_files.begin(), _files.end(), [id](File const& f) { return f._id == id; }),
        _files.end());
}

std::optional<std::string> MsgServer::lookup(std::string const& id) const {
    std::lock_guard<std::mutex> lock(_mutex);
    for (auto it = _files.rbegin(); it != _files.rend(); ++it) {
        auto found = it->_messages.find(id);
        if (found != it->_messages.end())
            return found->second;
    }
    return std::nullopt;
}

std::size_t MsgServer::getNbFiles() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _files.size();
}

} // namespace Zr
