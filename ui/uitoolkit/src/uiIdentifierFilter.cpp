// UiIdentifierFilter: names without the characters file names may not hold.
#include "uiIdentifierFilter.h"

#include "liStringUtil.h"
#include "osFile.h"

namespace Zr {

UiIdentifierFilter::UiIdentifierFilter() {
    // The set is kept as narrow characters: each wide character of it as one byte.
    std::string const& chars = OsFileUtils::getFileInvalidChars();
    _refused = WideStringUtil::narrowReplace(std::wstring(chars.begin(), chars.end()));
}

bool UiIdentifierFilter::isValid(char c) const {
    return _refused.find(c) == std::string::npos;
}

bool UiIdentifierFilter::isValid(LiString const& text) const {
    std::string const& s = text.str();
    return !s.empty() && s.front() != ' ' && s.back() != ' ' && Filter::isValid(text);
}

LiString UiIdentifierFilter::postFilter(LiString const& text) {
    std::string const kept = Filter::postFilter(text).str();
    std::size_t const first = kept.find_first_not_of(' ');
    if (first == std::string::npos)
        return LiString("");
    return LiString(kept.substr(first, kept.find_last_not_of(' ') - first + 1));
}

} // namespace Zr
