// UiPathFilter: what the file system says of a path decides whether it may be committed.
#include "uiPathFilter.h"

#include "msgProtocol.h"
#include "osFile.h"

namespace Zr {

namespace {

std::string trimmed(std::string const& text) {
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool refuse(char const* text) {
    MsgProtocol::display(MsgError(text));
    return false;
}

} // namespace

UiPathFilter::UiPathFilter(Kind kind, bool mustExist) : _kind(kind), _mustExist(mustExist) {}

bool UiPathFilter::isValid(LiString const& text) const {
    std::string const expanded = _substituter.substitute(text.str());
    OsFile const file{OsFilePath(expanded)};
    if (expanded.empty() || !file.exists())
        return _mustExist ? refuse("Directory does not exist.") : true;
    bool const isDirectory = file.getInfo().isDirectory();
    if (_kind == Directory && !isDirectory)
        return refuse("Path must be a directory.");
    if (_kind == File && isDirectory)
        return refuse("Path must be a file.");
    return true;
}

LiString UiPathFilter::postFilter(LiString const& text) {
    return LiString(trimmed(Filter::postFilter(text).str()));
}

} // namespace Zr
